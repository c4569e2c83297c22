#include "cli/Sortie.h"

#include "base/AfficherMsg.h"
#include "catalogue/archive/PlaceDuFichier.h"
#include "catalogue/documents/FichiersDisparus.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "cli/Console.h"
#include "cli/Menage.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"
#include "platform/Presence.h"

#include <QFile>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// A folder beside the file to be written, in which it is made: renaming it there replaces the old one at once.
QString DossierVoisin(const QString& chemin)
{
    QByteArray nom = OctetsDuChemin(DossierDuChemin(chemin) + u"/.zelvane-XXXXXX"_s);
    return mkdtemp(nom.data()) ? CheminDesOctets(nom) + u'/' : QString();
}

bool EcrireDans(Categorie& doc, const QString& chemin, FormeFichier forme)
{
    doc.SetCheminReel(chemin);
    const bool ecrit = forme == TexteSeul ? EcrireFichier14(doc, false) : doc.Ecrire(false) == IssueEcriture::Entiere;
    return ecrit && doc.Forcer();
}

/// Gives the new file what the one that it replaces has: its owner and who may read it.
void HeriterDroits(const QString& neuf, const struct stat& ancien)
{
    QFile fichier;
    if (OuvrirParChemin(fichier, neuf, QIODevice::ReadWrite | QIODevice::ExistingOnly))
        TransmettreDroits(fichier.handle(), ancien);
}

/// Writes the document beside `sortie` and puts it in its place once it is whole.
bool Remplacer(Categorie& doc, const QString& sortie, FormeFichier forme)
{
    // Through a link the file that it names is replaced, not the link; what is no file is never replaced.
    const QString destination = CibleDesLiens(CheminAbsolu(sortie));
    PlaceDuFichier place(destination);
    if (!place.Prendre() || (place.Ancien() && !S_ISREG(place.Ancien()->st_mode)))
        return false;
    const DossierPassager voisin([&destination] { return DossierVoisin(destination); });
    if (voisin.Chemin().isEmpty())
        return false;
    const QString neuf = voisin.Chemin() + u"categorie.qrt"_s;
    bool fait = EcrireDans(doc, neuf, forme);
    if (fait && place.Ancien())
        HeriterDroits(neuf, *place.Ancien());
    fait = fait && RenommerParChemin(neuf, destination);
    if (!fait)
        SupprimerParChemin(neuf); // by its name: a disk with errors may not list it any more
    return fait;
}

} // namespace

QList<OptionConnue> OptionsDeSortie(const QString& defaut)
{
    return {{u"format"_s, u"2|1.4"_s, u"format de la sortie, %1 par défaut"_s.arg(defaut), {u"2"_s, u"1.4"_s}},
            {u"force"_s, QString(), u"remplace un fichier existant et accepte la perte de caractères"_s}};
}

FormeFichier FormeDemandee(const LigneDeCommande& ligne, FormeFichier defaut)
{
    if (!ligne.A(u"format"_s))
        return defaut;
    return ligne.Valeur(u"format"_s) == u"1.4" ? TexteSeul : Archive;
}

bool SortieLibre(const LigneDeCommande& ligne, const QString& sortie)
{
    if (ligne.A(u"force"_s) || !(PeutExister(sortie) || EstLien(sortie)))
        return true;
    AfficherMsg(LangMsg(u"msg59"_s, u"Le fichier existe deja, voulez-vous le remplacer?"_s), MsgOuiNonAnnuler, sortie);
    return false;
}

Statut EcrireSortie(const LigneDeCommande& ligne, Categorie& doc, const QString& sortie, FormeFichier forme)
{
    if (forme == TexteSeul && !ligne.A(u"force"_s) && !AccepterPerteDeCaracteres(doc))
        return Echec;
    if (forme == Archive && !RetablirDisparus(doc))
        return Echec;
    if (Remplacer(doc, sortie, forme))
        return Fait;
    AfficherMsg(LangMsg(u"msg62"_s, u"Erreur d'enregistrement !"_s), MsgOk, QString());
    DireErreur(u"Le fichier n'a pas pu être écrit : "_s + sortie);
    return Echec;
}
