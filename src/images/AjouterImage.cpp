#include "images/AjouterImage.h"

#include "base/AfficherMsg.h"
#include "base/Evenements.h"
#include "extensions/langue/modLang.h"
#include "images/Bibliotheque.h"
#include "images/frmRemplacerImg.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

std::optional<QString> AjouterImage(const QString& dossier, const QString& fichier, const QString& nom, QWidget* parent)
{
    QString sous = nom;
    auto siExiste = SiLeFichierExiste::Echouer;
    if (QFileInfo(dossier + nom).isFile()) {
        frmRemplacerImg question(dossier + nom, fichier, parent);
        question.exec();
        if (question.Resultat) {
            siExiste = SiLeFichierExiste::Remplacer;
        } else {
            const Message renommer = LangMsg(u"msg27"_s, u"Voulez vous que l'image a ajouter soit renomée?"_s);
            if (AfficherMsg(renommer, MsgOuiNonAnnuler, QString()) != RepOui)
                return QString();
            sous = NomLibre(dossier, nom, LaisserPasserEvenements);
        }
    }
    return CopierImage(fichier, dossier + sous, siExiste) ? std::optional(sous) : std::nullopt;
}
