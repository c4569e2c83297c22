#include "lending/MessagesDuPret.h"

#include "base/AfficherMsg.h"
#include "catalogue/texte/QrtClass.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"

using namespace Qt::StringLiterals;

namespace {

void Dire(const Message& message)
{
    AfficherMsg(message, MsgOk, QString());
}

} // namespace

bool AUneSelection(const QrtClass& doc)
{
    if (doc.SelItemsCount() > 0)
        return true;
    Dire(LangMsg(u"msg98"_s, u"Veuillez selectionner au moins une entree"_s));
    return false;
}

void DireColonneDisparue()
{
    // The odd words inside the text are meant.
    Dire(LangMsg(u"msg31"_s, u"La colonne vbNullStringPrêtévbNullString semble avoir disparue,"
                             u"l'action demandée ne peut pas etre réalisée."
                             u" Créez une colonne de ce nom là et réessayez l'opération"_s));
}

void DireNomManquant()
{
    Dire(LangMsg(u"msg30"_s, u"Veuillez entrer le nom de la personne à\n"
                             u"qui vous avez prêté les entrées selectionnées"_s));
}

bool AccepterRemplacement()
{
    const Message question =
        LangMsg(u"msg32"_s, u"Certains CD sont deja pretés!! Doit-on remplacer le nom existant par le nouveau?"_s);
    return AfficherMsg(question, MsgOkAnnuler, QString()) == RepOk;
}

bool AccepterRetour()
{
    const Message question = LangMsg(u"msg33"_s, u"Toutes les entrées selectionnées vous ont ete rendu?"_s);
    return AfficherMsg(question, MsgOuiNon, QString()) == RepOui;
}

void DireContactsManquants(const ContactsLus& lus)
{
    if (!lus.lisible)
        Dire(LangMsg(u"msgContactsIllisibles"_s, u"La liste des contacts n'a pas pu être lue."_s));
    else if (lus.manquants > 0)
        Dire(LangMsg(u"msgContactsManquants"_s, u"Contacts de la liste qui n'ont pas pu être lus : %1"_s)
                 .Remplacer(u"%1"_s, QString::number(lus.manquants)));
}

bool AccepterPerteDeContacts()
{
    const Message question =
        LangMsg(u"msgContactsAPerdre"_s, u"Le fichier des contacts en contient qui n'ont pas été lus, ou qui ont "
                                         u"changé depuis. Ils seront perdus. Voulez-vous continuer?"_s);
    return AfficherMsg(question.ParDefaut(RepNon), MsgOuiNon, QString()) == RepOui;
}

void DireContactsNonEcrits(const QString& fichier)
{
    Dire(LangMsg(u"msgContactsNonEcrits"_s,
                 u"La liste des contacts n'a pas pu être enregistrée dans le fichier %1 : il est protégé, ou un autre "
                 u"programme le tient."_s)
             .Remplacer(u"%1"_s, NomLisible(fichier)));
}

void InscrireEmprunteur(const QString& fichier, const Contact& contact)
{
    switch (InscrireContact(fichier, contact, AccepterPerteDeContacts)) {
    case IssueInscription::Connu:
    case IssueInscription::Inscrit:
        break;
    case IssueInscription::Laisse:
    case IssueInscription::Impossible:
        Dire(LangMsg(u"msgContactNonInscrit"_s, u"« %1 » n'a pas pu être ajouté à la liste des contacts, dans le "
                                                u"fichier %2. Le prêt n'en dépend pas."_s)
                 .Remplacer(u"%1"_s, contact.nom)
                 .Remplacer(u"%2"_s, NomLisible(fichier)));
        break;
    }
}
