// zelvane-cli: the catalogue engine without a window.
#include "base/Const_Vrac.h"
#include "base/DossiersDeCommande.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "cli/Commandes.h"
#include "cli/Console.h"
#include "cli/Menage.h"
#include "extensions/langue/modLang.h"
#include "kit/ManqueDeMemoire.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <new>
#include <span>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

Statut Afficher(const QString& texte)
{
    SortieStandard sortie;
    sortie.Ecrire(texte.toUtf8());
    return FinirSortie(sortie);
}

QString Resumes(const QList<Commande>& commandes)
{
    QString resumes;
    for (const Commande& commande : commandes)
        resumes += u"  %1 %2\n      %3\n"_s.arg(commande.nom, commande.arguments, commande.explication);
    return resumes;
}

QString AideGenerale()
{
    return u"Usage : zelvane-cli COMMANDE [OPTIONS] ARGUMENTS\n\nCommandes :\n"_s + Resumes(LesCommandes()) +
           u"\nzelvane-cli COMMANDE --help décrit les options d'une commande.\n"
           u"zelvane-cli --version affiche la version.\n"
           u"Statut de fin : 0 réussi, 1 échec, 2 mauvais usage.\n"_s;
}

QString AideDe(const Commande& commande)
{
    QString aide =
        u"Usage : zelvane-cli %1 [OPTIONS] %2\n\n%3\n"_s.arg(commande.nom, commande.arguments, commande.explication);
    if (!commande.options.isEmpty())
        aide += u"\nOptions :\n"_s;
    for (const OptionConnue& option : commande.options) {
        const QString valeur = option.valeur.isEmpty() ? QString() : u' ' + option.valeur;
        aide += u"  --%1%2\n      %3\n"_s.arg(option.nom, valeur, option.explication);
    }
    return aide;
}

Statut ExecuterCommande(const Commande& commande, const LigneDeCommande& ligne)
{
    const PlateformeReelle plateformeReelle;
    Console console;
    const QString fichier = ligne.Valeur(u"password-file"_s);
    if (!fichier.isEmpty() && !console.LireMotDePasse(fichier)) {
        DireErreur(u"Le fichier du mot de passe ne peut pas être lu : "_s + fichier);
        return Echec;
    }
    ChargerLangue(LireOption(Options::QRTLangue));
    InitialiserTempFolder();
    SupprimerDossiersDeCommande();
    return AvecMemoire([&] { return commande.executer(ligne); }, Echec);
}

/// The commands that share a first word.
QList<Commande> ActionsDe(const QString& mot)
{
    QList<Commande> actions;
    for (const Commande& commande : LesCommandes()) {
        if (commande.nom.startsWith(mot + u' '))
            actions.append(commande);
    }
    return actions;
}

QString AideDesActions(const QString& mot, const QList<Commande>& actions)
{
    return u"Usage : zelvane-cli %1 ACTION [OPTIONS] ARGUMENTS\n\nActions :\n"_s.arg(mot) + Resumes(actions) +
           u"\nzelvane-cli %1 ACTION --help décrit les options d'une action.\n"_s.arg(mot);
}

/// `mots`: what stands behind the command's name.
Statut AnalyserEtExecuter(const Commande& commande, const QStringList& mots)
{
    const LigneAnalysee analyse = Analyser(mots, commande.options, commande.nombreArguments);
    if (!analyse.ligne)
        return RefuserUsage(analyse.erreur, commande.nom);
    if (analyse.ligne->A(u"help"_s))
        return Afficher(AideDe(commande));
    return ExecuterCommande(commande, *analyse.ligne);
}

/// `mots`: what stands behind the first word. Options may stand before the second one too.
Statut ExecuterAction(const QString& premier, const QList<Commande>& actions, QStringList mots)
{
    QList<OptionConnue> options;
    for (const Commande& action : actions)
        options += action.options;
    const qsizetype place = PremierArgument(mots, options);
    if (place < 0) {
        const bool aide = mots.contains(u"--help"_s) || mots.contains(u"-h"_s);
        return aide ? Afficher(AideDesActions(premier, actions)) : RefuserUsage(u"action manquante"_s, premier);
    }
    const QString nom = premier + u' ' + mots.takeAt(place);
    const auto action = std::find_if(actions.begin(), actions.end(), [&](const Commande& c) { return c.nom == nom; });
    return action == actions.end() ? RefuserUsage(u"commande inconnue : "_s + nom, premier)
                                   : AnalyserEtExecuter(*action, mots);
}

Statut Executer(const QStringList& mots)
{
    if (mots.isEmpty())
        return RefuserUsage(u"commande manquante"_s);
    const QString& nom = mots.first();
    if (nom == u"--help" || nom == u"-h")
        return Afficher(AideGenerale());
    if (nom == u"--version")
        return Afficher(u"zelvane-cli " ZELVANE_VERSION "\n"_s);
    const auto& commandes = LesCommandes();
    const auto commande =
        std::find_if(commandes.begin(), commandes.end(), [&](const Commande& c) { return c.nom == nom; });
    if (commande != commandes.end())
        return AnalyserEtExecuter(*commande, mots.mid(1));
    if (const QList<Commande> actions = ActionsDe(nom); !actions.isEmpty())
        return ExecuterAction(nom, actions, mots.mid(1));
    return RefuserUsage(nom.startsWith(u'-') ? u"option inconnue : "_s + nom : u"commande inconnue : "_s + nom);
}

/// Before and after a command there is nothing yet, or no more, that could say it otherwise.
Statut DireManqueHorsCommande()
{
    std::fputs("La mémoire est insuffisante. L'opération n'a pas été menée à son terme.\n", stderr);
    return Echec;
}

} // namespace

int main(int argc, char** argv)
try {
    GuetterLesInterruptions();
    const QCoreApplication application(argc, argv);
    QStringList mots;
    for (const char* mot : std::span(argv, static_cast<size_t>(argc)).subspan(1))
        mots.append(CheminDesOctets(mot));
    return Executer(mots);
} catch (const std::bad_alloc&) {
    return DireManqueHorsCommande();
} catch (const std::system_error&) { // a thread, for which there is no memory
    return DireManqueHorsCommande();
}
