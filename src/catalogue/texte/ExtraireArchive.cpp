#include "catalogue/texte/ExtraireArchive.h"

#include "base/AfficherMsg.h"
#include "catalogue/archive/VolumeDArchive.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/mZipDLLProc.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/NomsDeLArchive.h"
#include "extensions/langue/modLang.h"

#include <new>

bool ExtraireArchive(Categorie& doc)
{
    MotDePasseAbandonne = false;
    const std::unique_ptr<ccZip> archive(new (std::nothrow) ccZip);
    if (!archive) {
        AfficherMsg(LangMsg(QStringLiteral("msg51"),
                            QStringLiteral("Erreur lors de l'ouverture du fichier. Opération annulée")),
                    MsgOk, QString());
        return false;
    }
    doc.Archive.reset();
    archive->Init(doc.CheminReel());
    archive->Limites.accepter = [&doc](uint64_t volume) {
        return AccepterVolume(volume, static_cast<uint64_t>(TraceDe(doc.CheminReel()).taille));
    };
    const int resultat = archive->Decompress(doc.TmpFolder, QString());
    if (resultat == ZipAbandon) {
        doc.ClearLV();
        return false;
    }
    if (resultat > ZipAvertissement || !AccorderNoms(doc, *archive)) {
        AfficherMsg(
            LangMsg(QStringLiteral("msg52"), QStringLiteral("Une erreur s'est produite pendant la décompression")),
            MsgOk, QString());
        doc.ClearLV();
        return false;
    }
    doc.Archive = archive->Connue;
    return true;
}
