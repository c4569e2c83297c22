#include "entries/SaisieDEntree.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar Barre = u'|';

} // namespace

QStringList TextesDe(const QString& liste)
{
    return liste.isEmpty() ? QStringList() : liste.split(Barre);
}

bool TexteConnu(const QString& liste, const QString& texte)
{
    return QString(Barre + liste + Barre).contains(QString(Barre + texte + Barre));
}

QString AvecTexte(const QString& liste, const QString& texte)
{
    return liste.isEmpty() ? texte : QString(liste + Barre + texte);
}

int ValeurInterdite(const QStringList& valeurs)
{
    const auto interdite = std::ranges::find_if(valeurs, [](const QString& valeur) { return valeur.contains(Barre); });
    return interdite == valeurs.end() ? -1 : static_cast<int>(interdite - valeurs.begin());
}

bool ToutEstVide(const QStringList& valeurs)
{
    return std::ranges::all_of(valeurs, [](const QString& valeur) { return valeur.isEmpty(); });
}
