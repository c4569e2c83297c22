#include "extensions/ValideurDeLigne.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool EstSaut(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

QString EnUneLigne(QString texte)
{
    texte.replace(u"\r\n"_s, u" "_s);
    std::replace_if(texte.begin(), texte.end(), EstSaut, u' ');
    return texte;
}

} // namespace

ValideurDeLigne::ValideurDeLigne(QObject* parent, const QString& interdits) : QValidator(parent), m_interdits(interdits)
{
}

QValidator::State ValideurDeLigne::validate(QString& texte, int& position) const
{
    if (std::ranges::any_of(texte, [this](QChar c) { return m_interdits.contains(c); })) {
        emit Refuse();
        return Invalid;
    }
    while (!texte.isEmpty() && EstSaut(texte.back()))
        texte.chop(1);
    const QString avant = EnUneLigne(texte.left(position));
    texte = avant + EnUneLigne(texte.mid(position));
    position = static_cast<int>(avant.size());
    return Acceptable;
}
