#include "extensions/langue/modLang.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "platform/Plateforme.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QHash>

QString FichierLangue;

namespace {

const QString s_extension = QStringLiteral(".ini");
const QString s_sectionMessages = QStringLiteral("other");

QString DossierLangues()
{
    return DossierProgramme() + QStringLiteral("lang/");
}

/// The template for translators, which the program fills itself. It is a language like any other: "default".
QString FichierModele()
{
    return DossierLangues() + QStringLiteral("default.ini");
}

/// Whether `texte`, found under the key, is what another place that uses the key has recorded in the template: no
/// translator wrote it, and here it would ask the wrong question.
bool EstEnregistreAilleurs(const QString& cle, const QString& texte, const QString& defaut)
{
    return texte != defaut && FichierLangue == FichierModele() && TextesDuProgramme(cle).contains(texte);
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
    if (!texte.isEmpty() && !EstEnregistreAilleurs(cle, texte, defaut))
        return Message(cle, texte);
    EnregistrerDefaut(cle, defaut);
    return Message(cle, defaut);
}

QStringList TextesDuProgramme(const QString& cle)
{
    static const QHash<QString, QStringList> textes = {
        {QStringLiteral("msg50"),
         {QStringLiteral("Erreur lors de l'ouverture : le fichier n'est pas un fichier qrt correcte"),
          QStringLiteral("Erreur lors de l'ouverture : le fichier n'est pas un fichier qrt valide")}},
        {QStringLiteral("msg59"),
         {QStringLiteral("Le fichier est en lecture seule. Continuer l'enregistrement?"),
          QStringLiteral("Le fichier existe deja, voulez-vous le remplacer?")}},
        {QStringLiteral("msg98"),
         {QStringLiteral("Fichier non trouvé"), QStringLiteral("Veuillez selectionner au moins une entree")}},
    };
    return textes.value(cle);
}

void EnregistrerDefaut(const QString& cle, const QString& defaut)
{
    if (QFileInfo(DossierLangues()).isDir())
        EcrireIni(FichierModele(), s_sectionMessages, cle, EncoderTexte(defaut));
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
