#include "kit/ValideurDeLigne.h"

#include "base/SurUneLigne.h"

#include <algorithm>

ValideurDeLigne::ValideurDeLigne(QObject* parent, const QString& interdits) : QValidator(parent), m_interdits(interdits)
{
}

QValidator::State ValideurDeLigne::validate(QString& texte, int& position) const
{
    if (std::ranges::any_of(texte, [this](QChar c) { return m_interdits.contains(c); })) {
        emit Refuse();
        return Invalid;
    }
    // Lines are often copied with the break behind them.
    while (!texte.isEmpty() && SurUneLigne(texte.last(1)) != texte.last(1))
        texte.chop(1);
    const QString avant = SurUneLigne(texte.left(position));
    texte = avant + SurUneLigne(texte.mid(position));
    position = static_cast<int>(avant.size());
    return Acceptable;
}
