#include "catalogue/documents/ChargerCatalogue.h"

#include "base/AfficherMsg.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TypeFichier.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"
#include "platform/Presence.h"

#include <QFile>

#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

void Dire(const Message& message)
{
    AfficherMsg(message, MsgOk, QString());
}

/// Copies a bare text file to where the reader looks for it. The copy can be written even when the file cannot: the
/// next save replaces it.
bool CopierTexte(const QString& chemin, const QString& cible)
{
    std::error_code erreur;
    std::filesystem::copy_file(OctetsDuChemin(chemin).toStdString(), OctetsDuChemin(cible).toStdString(),
                               std::filesystem::copy_options::overwrite_existing, erreur);
    if (erreur) {
        Dire(LangMsg(u"msg51"_s, u"Erreur lors de l'ouverture du fichier. Opération annulée"_s));
        return false;
    }
    QFile copie(cible);
    copie.setPermissions(copie.permissions() | QFile::WriteOwner);
    return true;
}

} // namespace

void MsgFichierAbsent()
{
    Dire(LangMsg(u"msg49"_s, u"Erreur lors de l'ouverture : le fichier n'existe pas"_s));
}

std::optional<FormeFichier> FormeDuFichier(const QString& chemin)
{
    if (!PeutExister(chemin)) {
        MsgFichierAbsent();
        return std::nullopt;
    }
    if (EstDossier(chemin)) {
        Dire(LangMsg(u"msgDossier"_s, u"Erreur lors de l'ouverture : c'est un dossier, pas un fichier"_s));
        return std::nullopt;
    }
    if (EtatDuChemin(chemin) && !EstFichier(chemin)) {
        Dire(LangMsg(u"msgTube"_s, u"Erreur lors de l'ouverture : c'est un tube ou un périphérique, pas un fichier"_s));
        return std::nullopt;
    }
    const auto forme = static_cast<FormeFichier>(TypeFichier(chemin));
    if (forme == PasUnCatalogue) {
        Dire(LangMsg(u"msg50"_s, u"Erreur lors de l'ouverture : le fichier n'est pas un fichier qrt correcte"_s));
        return std::nullopt;
    }
    return forme;
}

bool ChargerCatalogue(Categorie& doc, const QString& chemin, FormeFichier forme, Etendue etendue)
{
    doc.SetCheminReel(chemin);
    doc.RegarderFichier(); // before it is read: what changes it meanwhile is told at the next save
    doc.FileType = QString::number(forme);
    if (forme == TexteSeul) {
        if (!CopierTexte(chemin, doc.TmpFolder + u"Zelvane.qrt"_s))
            return false;
    } else if (!ExtraireArchive(doc)) {
        return false;
    }
    ChargerFichier(doc, etendue);
    return true;
}
