// Printing: the pages of many entries. Runs on the offscreen platform.
//
// ZELVANE_BENCH_FICHIER names a bare catalogue text, of which the first 100,000 entries are printed; ZELVANE_BENCH_PDF
// the file that the pages are left in, for who measures other programs with it.
#include "Mesurer.h"

#include "base/Avancement.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "output/MiseEnPages.h"
#include "output/PeindrePages.h"
#include "output/PoliceSurPapier.h"
#include "output/TravailEnPdf.h"
#include "platform/Plateforme.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QTemporaryDir>

#include <malloc.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int EntreesImprimees = 100'000;

class Catalogue
{
public:
    Catalogue()
    {
        doc.TmpFolder = m_dossier.path() + u'/';
        if (!QFile::link(qEnvironmentVariable("ZELVANE_BENCH_FICHIER"), doc.TmpFolder + QStringLiteral("Zelvane.qrt")))
            std::abort();
        ChargerFichier(doc);
        doc.Table.Selectionner(1, std::min(EntreesImprimees, doc.ItemsCount()), true);
    }

    /// The columns share the sheet.
    PagesComposees Composer() const
    {
        Feuille feuille;
        const int nombre = doc.ColCount();
        for (int i = 1; i <= nombre; ++i)
            feuille.colonnes.push_back({doc.Table.ColumnHeaders(i).Text(), feuille.largeurDeLV1 / nombre});
        MesureSurPapier mesure;
        MiseEnPages mise(doc.Table, feuille, QStringLiteral("DejaVu Sans"), true, mesure);
        while (mise.Avancer(64)) {
        }
        return std::move(mise.Pages);
    }

    Categorie doc;

private:
    QTemporaryDir m_dossier;
};

const Catalogue& LeCatalogue()
{
    static const Catalogue catalogue;
    return catalogue;
}

/// What the process grows by with the pages.
void MemoireDesPages(benchmark::State& etat)
{
    LeCatalogue();
    for (auto _ : etat) {
        malloc_trim(0);
        const qint64 avant = MemoireDuProcessus();
        const PagesComposees pages = LeCatalogue().Composer();
        etat.counters["octets"] = static_cast<double>(MemoireDuProcessus() - avant);
        etat.counters["pages"] = static_cast<double>(pages.pages.size());
    }
}

void ComposerLesPages(benchmark::State& etat)
{
    for (auto _ : etat)
        benchmark::DoNotOptimize(LeCatalogue().Composer());
}

void EcrireLePdf(benchmark::State& etat)
{
    const PagesComposees pages = LeCatalogue().Composer();
    for (auto _ : etat) {
        const auto travail = TravailEnPdf::Commencer(qEnvironmentVariable("ZELVANE_BENCH_PDF"), {});
        const PeintreDePages peintreDePages(pages, {});
        QPainter peintre(&travail->Papier());
        for (size_t i = 0; i < peintreDePages.Nombre(); ++i) {
            if (i > 0)
                travail->NouvellePage();
            peintreDePages.Peindre(peintre, i);
        }
        peintre.end();
        if (!travail->Finir())
            std::abort();
    }
}

BENCHMARK(MemoireDesPages)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ComposerLesPages)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(EcrireLePdf)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const PlateformeReelle laPlateforme;
    return MesurerTout(argc, argv, {"ZELVANE_BENCH_FICHIER", "ZELVANE_BENCH_PDF"});
}
