// A catalogue with many images, from the archive to the table and back, and to a page: what opening, saving and
// exporting cost.
//
// ZELVANE_BENCH_ARCHIVE names the archive. It is copied to a folder of its own below ZELVANE_BENCH_SORTIE, by default
// the archive's folder, and the document's folder lies there too.
#include "Mesurer.h"

#include "catalogue/archive/ccZip.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "catalogue/texte/LectureQrt.h"
#include "output/EcrireExport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <memory>

namespace {

QString CheminArchive()
{
    return qEnvironmentVariable("ZELVANE_BENCH_ARCHIVE");
}

QString Modele()
{
    return qEnvironmentVariable("ZELVANE_BENCH_SORTIE", QFileInfo(CheminArchive()).absolutePath()) +
           QStringLiteral("/bench-archive-XXXXXX");
}

/// A document, and the folder that it was opened into.
class Document
{
public:
    Document() { doc.TmpFolder = m_dossier.path() + u'/'; }
    bool Ouvrir(const QString& archive)
    {
        doc.SetCheminReel(archive);
        if (!ExtraireArchive(doc))
            return false;
        ChargerFichier(doc);
        return doc.ItemsCount() > 0;
    }

    Categorie doc;
    MyLV& table = doc.Table;

private:
    QTemporaryDir m_dossier{Modele()};
};

void OuvrirArchive(benchmark::State& etat)
{
    for (auto _ : etat) {
        auto document = std::make_unique<Document>();
        if (!document->Ouvrir(CheminArchive()))
            etat.SkipWithError("nothing was read");
        etat.PauseTiming();
        document.reset();
        etat.ResumeTiming();
    }
}

/// A save after one edit, over the archive before.
void EnregistrerArchive(benchmark::State& etat)
{
    const QTemporaryDir sortie(Modele());
    const QString copie = sortie.filePath(QStringLiteral("images.qrt"));
    Document document;
    if (!QFile::copy(CheminArchive(), copie) || !document.Ouvrir(copie)) {
        etat.SkipWithError("nothing was read");
        return;
    }
    int fois = 0;
    for (auto _ : etat) {
        document.table.ListItems(1).SetText(QString::number(++fois));
        etat.PauseTiming();
        sync(); // what the iteration before left to be written is no matter of this one
        etat.ResumeTiming();
        if (!EcrireFichier(document.doc, false) || document.doc.GardeDossier())
            etat.SkipWithError("not written");
    }
}

/// A page with all its images, in a folder of its own.
void ExporterImages(benchmark::State& etat)
{
    Document document;
    if (!document.Ouvrir(CheminArchive())) {
        etat.SkipWithError("nothing was read");
        return;
    }
    SansAvancement avancement;
    ChoixExport choix;
    choix.colonnes.assign(static_cast<size_t>(document.doc.ColCount()), true);
    for (auto _ : etat) {
        etat.PauseTiming();
        auto dossier = std::make_unique<QTemporaryDir>(Modele());
        sync();
        etat.ResumeTiming();
        const QString chemin = dossier->filePath(QStringLiteral("page.htm"));
        QFile fichier;
        if (!CreerExport(fichier, chemin) ||
            !EcrireExport(document.doc, GenreExport::PageAvecImages, choix, fichier, chemin, avancement).EstEntiere())
            etat.SkipWithError("not written");
        etat.PauseTiming();
        dossier.reset();
        etat.ResumeTiming();
    }
}

BENCHMARK(OuvrirArchive)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(EnregistrerArchive)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ExporterImages)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return MesurerTout(argc, argv, {"ZELVANE_BENCH_ARCHIVE"});
}
