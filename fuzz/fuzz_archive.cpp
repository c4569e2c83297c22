// Catalogue archives: any bytes are listed, and extracted within their limits into their folder or not at all; and what
// came out of an archive goes into a new one and comes out of that again.
#include "base/AfficherMsg.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/mZipDLLProc.h"
#include "catalogue/texte/TypeFichier.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr uint64_t ParEntree = uint64_t(256) << 10;
constexpr uint64_t PlaceLibre = uint64_t(1) << 20;

void Verifier(bool vrai, const char* quoi)
{
    if (vrai)
        return;
    std::fprintf(stderr, "fuzz_archive: %s\n", quoi);
    std::abort();
}

/// Knows the password of the corpus, and gives up at the second question.
struct Repondeur : PresentateurMessages
{
    int questions = 0;
    int Afficher(const Message&, int, const QString&) override { return RepOk; }
    QString DemanderMotDePasse(const QString&, const QString&) override
    {
        return ++questions == 1 ? QStringLiteral("zelvane") : QString();
    }
};

/// In memory where there is such a folder.
QString Modele()
{
    const QString memoire = QStringLiteral("/dev/shm");
    return (QFileInfo(memoire).isWritable() ? memoire : QDir::tempPath()) + QStringLiteral("/fuzz_archive-XXXXXX");
}

using Fichiers = QMap<QString, QByteArray>;

struct Atelier
{
    Atelier() : dossier(Modele())
    {
        static int argc = 1;
        static char nom[] = "fuzz_archive";
        static char* argv[] = {nom, nullptr};
        static QCoreApplication application(argc, argv);
        qputenv("ZELVANE_DOSSIER", programme.path().toUtf8());
        static const PlateformeReelle plateformeReelle; // texts of questions are looked up in its files
        Vider();
    }

    QString Archive() const { return dossier.filePath(QStringLiteral("x.qrt")); }
    QString Copie() const { return dossier.filePath(QStringLiteral("copie.qrt")); }
    QString Cible() const { return dossier.filePath(QStringLiteral("cible/")); }

    void Vider() const
    {
        QDir(Cible()).removeRecursively();
        Verifier(QDir().mkpath(Cible()), "no room to work in");
    }

    /// What lies in the target: plain files and nothing else, and nothing new beside it.
    Fichiers Extraits() const
    {
        const auto tout = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        for (const QString& nom : QDir(dossier.path()).entryList(tout))
            Verifier(nom == u"x.qrt" || nom == u"copie.qrt" || nom == u"cible", "something lies outside the target");
        Fichiers fichiers;
        for (const QFileInfo& info : QDir(Cible()).entryInfoList(tout)) {
            Verifier(info.isFile() && !info.isSymLink(), "something that is no plain file was extracted");
            QFile fichier(info.filePath());
            Verifier(fichier.open(QIODevice::ReadOnly), "an extracted file cannot be read");
            fichiers.insert(info.fileName(), fichier.readAll());
        }
        return fichiers;
    }

    QTemporaryDir dossier;
    QTemporaryDir programme;
};

struct Extrait
{
    int resultat;
    Fichiers fichiers;
};

Extrait Extraire(const Atelier& atelier, const QString& archive)
{
    atelier.Vider();
    ccZip zip;
    zip.Limites = {ParEntree, PlaceLibre};
    zip.Init(archive);
    Verifier(zip.GetFile(0).isEmpty() && zip.GetFile(zip.count() + 1).isEmpty(), "a name where there is none");
    MotDePasseAbandonne = false;
    const int resultat = zip.Decompress(atelier.Cible(), QString());
    const Fichiers fichiers = atelier.Extraits();
    uint64_t somme = 0;
    for (const QByteArray& octets : fichiers) {
        Verifier(static_cast<uint64_t>(octets.size()) <= ParEntree, "an entry is larger than the limit");
        somme += static_cast<uint64_t>(octets.size());
    }
    Verifier(somme <= PlaceLibre, "more was extracted than there is room");
    Verifier(resultat <= ZipAvertissement || fichiers.isEmpty(), "a failure left files behind");
    return {resultat, fichiers};
}

void Reecrire(const Atelier& atelier, const Extrait& extrait)
{
    ccZip zip;
    zip.Init(atelier.Copie());
    zip.Comm = QStringLiteral("Zelvane v2.2 by Morvenal");
    for (const QString& nom : extrait.fichiers.keys())
        Verifier(zip.AddFile(atelier.Cible() + nom, 0, true) == ZipFait, "an extracted file is not taken again");
    Verifier(zip.Fermer() == ZipFait, "what was extracted cannot be written");
    Verifier(Extraire(atelier, atelier.Copie()).fichiers == extrait.fichiers, "what was written reads back otherwise");
    QFile::remove(atelier.Copie());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    static const Atelier atelier;
    {
        QFile archive(atelier.Archive());
        Verifier(archive.open(QIODevice::WriteOnly) &&
                     archive.write(reinterpret_cast<const char*>(octets), static_cast<qint64>(taille)) ==
                         static_cast<qint64>(taille),
                 "no room to work in");
    }
    Repondeur repondeur;
    InstallerPresentateur(&repondeur);
    TypeFichier(atelier.Archive());
    const Extrait extrait = Extraire(atelier, atelier.Archive());
    Verifier(repondeur.questions <= 2, "asked again after an empty answer");
    if (extrait.resultat <= ZipAvertissement && !extrait.fichiers.isEmpty())
        Reecrire(atelier, extrait);
    InstallerPresentateur(nullptr);
    return 0;
}
