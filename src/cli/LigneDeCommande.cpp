#include "cli/LigneDeCommande.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

LigneAnalysee Erreur(const QString& texte)
{
    return {std::nullopt, texte};
}

/// Reads the option at `i`, and its value behind it if need be. Returns what is wrong, or nothing.
QString LireOptionDeLigne(const QStringList& mots, qsizetype& i, const QList<OptionConnue>& connues,
                          LigneDeCommande& ligne)
{
    const QString mot = mots[i].mid(2);
    const qsizetype egal = mot.indexOf(u'=');
    const QString nom = egal < 0 ? mot : mot.left(egal);
    const auto option =
        std::find_if(connues.begin(), connues.end(), [&](const OptionConnue& connue) { return connue.nom == nom; });
    if (option == connues.end())
        return u"option inconnue : --%1"_s.arg(nom);
    if (ligne.options.contains(nom))
        return u"option donnée deux fois : --%1"_s.arg(nom);
    if (option->valeur.isEmpty()) {
        if (egal >= 0)
            return u"l'option --%1 ne prend pas de valeur"_s.arg(nom);
        ligne.options.insert(nom, QString());
        return QString();
    }
    if (egal < 0 && ++i >= mots.size())
        return u"valeur manquante pour --%1"_s.arg(nom);
    const QString valeur = egal < 0 ? mots[i] : mot.mid(egal + 1);
    if (!option->possibles.isEmpty() && !option->possibles.contains(valeur))
        return u"valeur impossible pour --%1 : %2"_s.arg(nom, valeur);
    ligne.options.insert(nom, valeur);
    return QString();
}

} // namespace

qsizetype PremierArgument(const QStringList& mots, const QList<OptionConnue>& options)
{
    for (qsizetype i = 0; i < mots.size(); ++i) {
        const QString& mot = mots[i];
        if (mot == u"--")
            return i + 1 < mots.size() ? i + 1 : -1;
        if (!mot.startsWith(u'-') || mot == u"-")
            return i;
        // Behind an option that takes one stands its value.
        i += std::any_of(options.begin(), options.end(), [&](const OptionConnue& option) {
            return !option.valeur.isEmpty() && mot == u"--"_s + option.nom;
        });
    }
    return -1;
}

LigneAnalysee Analyser(const QStringList& mots, const QList<OptionConnue>& options, int arguments)
{
    const QList<OptionConnue> connues = options + QList<OptionConnue>{{u"help"_s, QString(), QString()}};
    LigneDeCommande ligne;
    bool finDesOptions = false;
    for (qsizetype i = 0; i < mots.size(); ++i) {
        const QString& mot = mots[i];
        if (finDesOptions || !mot.startsWith(u'-') || mot == u"-") {
            ligne.arguments.append(mot);
        } else if (mot == u"--") {
            finDesOptions = true;
        } else if (mot == u"-h") {
            ligne.options.insert(u"help"_s, QString());
        } else if (!mot.startsWith(u"--")) {
            return Erreur(u"option inconnue : %1"_s.arg(mot));
        } else if (const QString erreur = LireOptionDeLigne(mots, i, connues, ligne); !erreur.isEmpty()) {
            return Erreur(erreur);
        }
    }
    if (ligne.A(u"help"_s))
        return {ligne, QString()};
    if (ligne.arguments.size() < arguments)
        return Erreur(u"argument manquant"_s);
    if (ligne.arguments.size() > arguments)
        return Erreur(u"argument en trop : %1"_s.arg(ligne.arguments[arguments]));
    return {ligne, QString()};
}
