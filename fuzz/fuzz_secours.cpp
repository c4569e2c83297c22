// Rescue copies and left folders: any bytes of either are offered or left alone, nothing that may be a category goes
// before all of it was taken over, and the copy of what was opened tells the same again.
//
// An input is the rescue copy and behind the byte 0x1E, where there are any, the folder's "Zelvane.qrt", its
// "Zelvane.utf8" and its image "i.jpg"; without any there is no folder. The files are of one time, so that an input can
// tell which text its copy continues.
#include "Commun.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "support/CadreDeTest.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QMap>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <limits>

namespace {

constexpr auto Tout = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
constexpr qint64 Date = 1'000'000'000'000; ///< of the folder's files, in milliseconds

using Fichiers = QMap<QString, QByteArray>;

Fichiers LireDossier(const QString& dossier)
{
    Fichiers fichiers;
    for (const QString& nom : QDir(dossier).entryList(Tout))
        fichiers.insert(nom, LireOctets(dossier + nom));
    return fichiers;
}

/// What a killed run left.
struct Laisse
{
    QByteArray copie;
    Fichiers fichiers;
    bool dossier = false;
};

Laisse Decoder(const QByteArray& entree)
{
    const QList<QByteArray> parties = entree.split('\x1E');
    Laisse laisse{parties[0], {}, parties.size() > 1};
    const QString noms[] = {QStringLiteral("Zelvane.qrt"), QStringLiteral("Zelvane.utf8"), QStringLiteral("i.jpg")};
    for (qsizetype i = 1; i < std::min<qsizetype>(parties.size(), 4); ++i)
        laisse.fichiers.insert(noms[i - 1], parties[i]);
    return laisse;
}

class Atelier
{
public:
    Atelier() : m_lieu(ModeleDeDossier(QStringLiteral("fuzz_secours")))
    {
        static int argc = 1;
        static char nom[] = "fuzz_secours";
        static char* argv[] = {nom, nullptr};
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_lieu.path())); // nobody's settings
        static QCoreApplication application(argc, argv);
        static PlateformeReelle plateformeReelle;
        plateforme().dossierProgramme = m_lieu.path() + u'/';
        TempFolder = m_lieu.filePath(QStringLiteral("temp"));
    }

    QString Dossier() const { return TempFolder + QStringLiteral("/cat7/"); }
    QString Copie() const { return TempFolder + QStringLiteral("/cat7.secours"); }

    void Poser(const Laisse& laisse) const
    {
        QDir(TempFolder).removeRecursively();
        QDir().mkpath(laisse.dossier ? Dossier() : TempFolder);
        EcrireOctets(Copie(), laisse.copie);
        for (auto it = laisse.fichiers.cbegin(); it != laisse.fichiers.cend(); ++it) {
            EcrireOctets(Dossier() + it.key(), it.value());
            QFile fichier(Dossier() + it.key());
            Verifier(fichier.open(QIODevice::ReadWrite) &&
                         fichier.setFileTime(QDateTime::fromMSecsSinceEpoch(Date), QFileDevice::FileModificationTime),
                     "a file takes no date");
        }
    }
    bool EstEntiere(const Laisse& laisse) const
    {
        return QFile::exists(Copie()) && LireOctets(Copie()) == laisse.copie &&
               LireDossier(Dossier()) == laisse.fichiers;
    }
    bool EstPartie() const { return !QFile::exists(Copie()) && !QFile::exists(Dossier().chopped(1)); }

private:
    QTemporaryDir m_lieu;
};

/// Whether a copy without a folder may belong to a running program.
bool PeutVivre(qint64 processus)
{
    return processus > 0 && processus <= std::numeric_limits<pid_t>::max() &&
           (kill(static_cast<pid_t>(processus), 0) == 0 || errno != ESRCH);
}

/// What a catalogue's text gives when it is read and written again; nothing when it is none.
std::optional<QByteArray> Relire(const QByteArray& texte)
{
    Categorie doc;
    return ChargerTexteExact(doc, texte) ? std::optional(TexteDe(doc, stockage::Codage::Utf8)) : std::nullopt;
}

/// A copy of the document tells all of it.
void Recopier(const Categorie& doc, const QString& nom)
{
    Verifier(EcritureDeSecours(doc, nom).Achever() == EcritureDeSecours::Etat::Faite, "no copy could be written");
    const QString fichier = FichierDeSecours(doc.TmpFolder);
    const std::optional<IdentiteDeSecours> identite = LireIdentite(fichier);
    Verifier(identite && identite->texte, "a copy that was written is none");
    Verifier(identite->nom == nom && OctetsDuChemin(identite->chemin) == OctetsDuChemin(doc.CheminConnu()) &&
                 identite->type == doc.FileType,
             "a copy tells of another document");
    Verifier(identite->processus == QCoreApplication::applicationPid(), "a copy tells of another process");
    Verifier(identite->base == EmpreinteDuTexte(doc.TmpFolder), "a copy continues another text");
    const QByteArray texte = TexteDe(doc, stockage::Codage::Utf8);
    Verifier(LireTexteDeSecours(fichier) == texte, "a copy holds another text");

    const std::optional<QByteArray> relu = Relire(texte);
    Verifier(relu.has_value(), "the text of a copy is none");
    // A written text always says that it is sorted, so only the entries of a sorted table keep their order.
    Verifier(relu == texte || !doc.MyLV->Sorted(), "the text of a copy reads back as something else");
}

void VerifierOuverte(const Atelier& atelier, const Laisse& laisse, const FenetreDeTest& fenetre,
                     const DossierLaisse& offerte, bool sansReserve)
{
    const Categorie& doc = fenetre.myqrt;
    Verifier(doc.IlFautSauver, "what was recovered counts as saved");
    Verifier(LireDossier(doc.TmpFolder) == laisse.fichiers, "the folder did not come along");
    if (!sansReserve) {
        Verifier(atelier.EstEntiere(laisse), "what could not be read is gone");
        return;
    }
    Verifier(!QFile::exists(atelier.Dossier().chopped(1)) && !QFile::exists(atelier.Copie()), "it is offered again");
    Verifier(LireOctets(FichierDeSecours(doc.TmpFolder)) == laisse.copie, "the copy did not come along");
    const std::optional<QByteArray> texte = LireTexteDeSecours(FichierDeSecours(doc.TmpFolder));
    const std::optional<QByteArray> change = offerte.modifie && texte ? Relire(*texte) : std::nullopt;
    Verifier(!change || TexteDe(doc, stockage::Codage::Utf8) == change, "the changes are not there");
}

void Ouvrir(const Atelier& atelier, const Laisse& laisse, const DossierLaisse& offerte)
{
    const CompteurDeMessages compteur;
    CadreDeTest cadre;
    if (!OuvrirLaisse(cadre, offerte)) {
        Verifier(compteur.messages == 1 && cadre.fenetres.empty(), "a refusal without a word");
        Verifier(atelier.EstEntiere(laisse), "what could not be opened is gone");
        return;
    }
    Verifier(cadre.fenetres.size() == 1, "no window");
    FenetreDeTest& fenetre = *cadre.fenetres.front();
    VerifierOuverte(atelier, laisse, fenetre, offerte, compteur.messages == 0);
    if (qint64(fenetre.myqrt.ColCount()) * fenetre.myqrt.ItemsCount() <= 200000)
        Recopier(fenetre.myqrt, fenetre.Caption());
    fenetre.Decharger();
}

void Essayer(const Atelier& atelier, const Laisse& laisse)
{
    atelier.Poser(laisse);
    const std::optional<IdentiteDeSecours> identite = LireIdentite(atelier.Copie());
    const std::optional<QByteArray> texte = LireTexteDeSecours(atelier.Copie());
    Verifier(texte.has_value() == (identite && identite->texte), "a text without a copy, or a copy without its text");
    Verifier(!texte || laisse.copie.endsWith(*texte + "[Fin]\r\n"), "a text that the copy does not hold");

    const bool vivante = !laisse.dossier && identite && PeutVivre(identite->processus);
    const bool vide = laisse.fichiers.isEmpty() && (identite ? !identite->texte : laisse.copie.isEmpty());
    const std::vector<DossierLaisse> offertes = ChercherLaisses();
    if (vivante || vide) {
        Verifier(offertes.empty(), "nothing to recover is offered");
        Verifier(vivante ? atelier.EstEntiere(laisse) : atelier.EstPartie(),
                 "a living one is gone, or an empty one not");
        return;
    }
    Verifier(offertes.size() == 1, "what was left is not offered");
    Verifier(atelier.EstEntiere(laisse), "what is offered is not whole");
    Ouvrir(atelier, laisse, offertes.front());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    static const Atelier atelier;
    const QByteArray entree(reinterpret_cast<const char*>(octets), static_cast<qsizetype>(taille));
    if (!AnnonceBeaucoup(entree))
        Essayer(atelier, Decoder(entree));
    return 0;
}
