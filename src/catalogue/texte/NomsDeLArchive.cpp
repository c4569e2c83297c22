#include "catalogue/texte/NomsDeLArchive.h"

#include "base/AfficherMsg.h"
#include "catalogue/archive/FichierDuDossier.h"
#include "catalogue/archive/NomsTenables.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/texte/ImagesDuTexte.h"
#include "catalogue/texte/QrtClass.h"
#include "catalogue/texte/TexteExact.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The texts of the folder, for changing the image names in them.
class TextesDuDossier
{
public:
    explicit TextesDuDossier(const QString& dossier)
        : m_dossier(dossier), m_huitBits(LireFichier(dossier + s_nom).value_or(QByteArray())),
          m_exact(TexteExact::Lire(dossier, m_huitBits, LireFichier(dossier + u"Zelvane.txt"_s).value_or(QByteArray())))
    {
    }

    const QByteArray& Texte() const { return m_exact.catalogue ? *m_exact.catalogue : m_huitBits; }
    /// A name as the text has it; nothing where it cannot.
    std::optional<QByteArray> Dedans(const QString& nom) const
    {
        if (m_exact.catalogue)
            return nom.toUtf8();
        return PageDeCode::EstRepresentable(nom) ? std::optional(PageDeCode::VersOctets(nom)) : std::nullopt;
    }
    QString EnTexte(const QByteArray& nom) const
    {
        return m_exact.catalogue ? PageDeCode::DeUtf8(nom) : PageDeCode::VersTexte(nom);
    }
    /// Puts another text in its place.
    bool Remplacer(const QByteArray& texte) const;

private:
    static inline const QString s_nom = u"Zelvane.qrt"_s;

    QString m_dossier;
    QByteArray m_huitBits;
    TexteExact::Contenu m_exact;
};

bool TextesDuDossier::Remplacer(const QByteArray& texte) const
{
    FichierDuDossier fichier(m_dossier + s_nom);
    if (!m_exact.catalogue)
        return fichier.Preparer(texte) && fichier.Valider();
    FichierDuDossier exact(m_dossier + TexteExact::NomDuFichier());
    const QByteArray suite = m_exact.commentaire ? TexteExact::Separateur() + *m_exact.commentaire : QByteArray();
    return fichier.Preparer(PageDeCode::ReduireUtf8(texte)) && exact.Preparer(texte + suite) && exact.Valider() &&
           fichier.Valider();
}

/// Gives a file another name. What is known of it goes along.
void Renommer(const QString& dossier, QString& nom, const QString& nouveau, ArchiveConnue* connue)
{
    if (!QFile::rename(dossier + nom, dossier + nouveau))
        return;
    if (connue) {
        const ArchiveConnue::Fichier avant = connue->fichiers.take(OctetsDuChemin(nom));
        if (const std::optional<EtatFichier> etat = zipinterne::EtatDe(dossier + nouveau))
            connue->fichiers.insert(OctetsDuChemin(nouveau), {avant.index, *etat});
    }
    nom = nouveau;
}

/// A new name that entries have already for a file that is not there would show them a picture that is not theirs.
void EviterLesNoms(const QSet<QByteArray>& nommees, const TextesDuDossier& textes, const QString& dossier,
                   ccZip& archive)
{
    constexpr qsizetype auPlus = 240;
    NomsDistincts noms(auPlus);
    for (const QByteArray& nom : nommees)
        noms.Prendre(textes.EnTexte(nom));
    for (const QString& nom : QDir(dossier).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted))
        noms.Prendre(nom);
    for (NomRemplace& remplace : archive.Remplaces) {
        const std::optional<QByteArray> dedans = textes.Dedans(remplace.fichier);
        if (dedans && nommees.contains(*dedans))
            Renommer(dossier, remplace.fichier, noms.Donner(remplace.fichier), archive.Connue.get());
    }
}

/// A name as a message can show it.
QString Montrable(const QString& nom)
{
    constexpr qsizetype auPlus = 60;
    const QString tenable = RendreTenable(nom);
    return tenable.size() <= auPlus ? tenable : tenable.first(auPlus) + u'…';
}

void Dire(const QStringList& lignes)
{
    constexpr qsizetype auPlus = 10;
    QString liste;
    for (const QString& ligne : lignes.first(qMin(auPlus, lignes.size())))
        liste += u'\n' + ligne;
    if (lignes.size() > auPlus)
        liste += u"\n…"_s;
    AfficherMsg(
        LangMsg(
            u"msgNoms"_s,
            u"Des fichiers de cette catégorie ont un nom trop long ou avec des caractères interdits. Les images des entrées sont renommées, les autres fichiers sont laissés de côté :"_s) +
            liste,
        MsgOk, QString());
}

} // namespace

bool AccorderNoms(const QrtClass& doc, ccZip& archive)
{
    if (archive.Remplaces.isEmpty())
        return true;
    const TextesDuDossier textes(doc.TmpFolder);
    EviterLesNoms(ImagesNommees(textes.Texte()), textes, doc.TmpFolder, archive);
    QHash<QByteArray, QByteArray> noms;
    for (const auto& [nom, fichier] : std::as_const(archive.Remplaces)) {
        if (const std::optional<QByteArray> dedans = textes.Dedans(nom))
            noms.insert(*dedans, *textes.Dedans(fichier));
    }
    const auto [texte, vus] = RenommerImages(textes.Texte(), noms);
    if (!vus.isEmpty() && !textes.Remplacer(texte))
        return false;

    QStringList lignes;
    for (const auto& [nom, fichier] : std::as_const(archive.Remplaces)) {
        const std::optional<QByteArray> dedans = textes.Dedans(nom);
        if (dedans && vus.contains(*dedans)) {
            lignes.append(Montrable(nom) + u" → "_s + Montrable(fichier));
            continue;
        }
        QFile::remove(doc.TmpFolder + fichier);
        if (archive.Connue)
            archive.Connue->fichiers.remove(OctetsDuChemin(fichier));
        lignes.append(Montrable(nom));
    }
    Dire(lignes);
    return true;
}
