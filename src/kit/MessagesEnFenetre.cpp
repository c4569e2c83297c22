#include "kit/MessagesEnFenetre.h"

#include "kit/FenetreDessous.h"
#include "kit/frmInputText.h"
#include "kit/frmMotDePasse.h"
#include "kit/frmMsg.h"

MessagesEnFenetre::MessagesEnFenetre() : m_precedent(InstallerPresentateur(this)) {}

MessagesEnFenetre::~MessagesEnFenetre()
{
    InstallerPresentateur(m_precedent);
}

int MessagesEnFenetre::Afficher(const Message& message, int genre, const QString& titre)
{
    frmMsg boite(message.texte, genre, titre, FenetreDessous());
    boite.ChoisirDefaut(message.defaut);
    boite.exec();
    return boite.Resultat;
}

QString MessagesEnFenetre::DemanderMotDePasse(const QString& titre, const QString& invite)
{
    frmMotDePasse boite(titre, invite, FenetreDessous());
    boite.exec();
    return boite.MotDePasse();
}

QString MessagesEnFenetre::SaisirTexte(const QString& libelle, const QString& defaut)
{
    frmInputText boite(libelle, defaut, FenetreDessous());
    boite.exec();
    return boite.Valide ? boite.Texte() : defaut;
}
