#include "extensions/modLang.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "platform/Plateforme.h"

#include <QDirIterator>
#include <QFileInfo>

QString FichierLangue;

namespace {

const QString s_extension = QStringLiteral(".ini");
const QString s_sectionMessages = QStringLiteral("other");

QString DossierLangues()
{
    return DossierProgramme() + QStringLiteral("lang/");
}

QString SectionOuDefaut(const QString& section)
{
    return section.isEmpty() ? plateforme().nomProgramme : section;
}

QString FichierOuDefaut(const QString& fichier)
{
    if (!fichier.isEmpty())
        return fichier;
    return DossierProgramme() + plateforme().nomProgramme + s_extension;
}

/// Tells that a read failed. The window that tells it has texts to look up itself: their failures stay untold.
void DireEchec(const QString& erreur)
{
    static bool enCours = false;
    if (enCours)
        return;
    enCours = true;
    AfficherMsg(QStringLiteral("ERREUR INIProfileRead ") + erreur, MsgOk, QString());
    enCours = false;
}

} // namespace

Message LangMsg(const QString& cle, const QString& defaut)
{
    const QString texte = DecoderTexte(LireProfil(cle, QString(), s_sectionMessages, FichierLangue));
    if (!texte.isEmpty())
        return Message(cle, texte);
    EnregistrerDefaut(cle, defaut);
    return Message(cle, defaut);
}

void EnregistrerDefaut(const QString& cle, const QString& defaut)
{
    if (QFileInfo(DossierLangues()).isDir())
        EcrireIni(DossierLangues() + QStringLiteral("default.ini"), s_sectionMessages, cle, EncoderTexte(defaut));
}

bool ChargerLangue(const QString& nom)
{
    const QString fichier = DossierLangues() + nom + s_extension;
    if (QFileInfo(fichier).isFile()) {
        FichierLangue = fichier;
        return true;
    }
    if (nom.isEmpty())
        FichierLangue.clear();
    return false;
}

QStringList ListeLangues()
{
    QStringList langues;
    QDirIterator fichiers(DossierLangues(), QDir::Files);
    while (fichiers.hasNext()) {
        fichiers.next();
        if (fichiers.fileName().endsWith(s_extension))
            langues.append(fichiers.fileName().chopped(s_extension.size()));
    }
    return langues;
}

QString LireProfil(const QString& cle, const QString& defaut, const QString& section, const QString& fichier)
{
    const FichiersIni::Lecture lecture =
        plateforme().ini->Lire(FichierOuDefaut(fichier), SectionOuDefaut(section), cle);
    if (!lecture.erreur.isEmpty())
        DireEchec(lecture.erreur);
    const QString valeur = lecture.valeur.value_or(QString());
    return valeur.isEmpty() ? defaut : valeur;
}

bool EcrireProfil(const QString& cle, const QString& valeur, const QString& section, const QString& fichier)
{
    return EcrireIni(FichierOuDefaut(fichier), SectionOuDefaut(section), cle, valeur);
}

QString EncoderTexte(const QString& texte)
{
    QString encode = texte;
    return encode.replace("\\", "\\\\").replace("\r", "\\r").replace("\n", "\\f");
}

QString DecoderTexte(const QString& texte)
{
    QString decode = texte;
    return decode.replace("\\r", "\r").replace("\\f", "\n").replace("\\\\", "\\");
}
