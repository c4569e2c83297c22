// Lending and return in one large category whose entries stand in ten thousand boxes.
//
// ZELVANE_BENCH_COFFRETS names a bare catalogue text whose second column is the dependant one.
#include "Mesurer.h"

#include "base/Avancement.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "columns/ColonnePrete.h"
#include "lending/Prets.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <malloc.h>
#include <memory>

namespace {

/// The category as it is loaded, with every tenth entry selected.
class Document
{
public:
    Document()
    {
        doc.TmpFolder = m_dossier.path() + u'/';
        if (!QFile::link(qEnvironmentVariable("ZELVANE_BENCH_COFFRETS"), doc.TmpFolder + QStringLiteral("Zelvane.qrt")))
            std::abort();
        ChargerFichier(doc);
        ChercherColPrete(doc);
        ChoisirUnDixieme();
    }
    ~Document()
    {
        doc.ClearLV();
        malloc_trim(0);
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    void ChoisirUnDixieme()
    {
        for (int i = 1; i <= doc.ItemsCount(); ++i)
            doc.Table.Selectionner(i, i, i % 10 == 0);
    }
    void Preter(Portee portee)
    {
        PreterEntrees(
            doc, {QStringLiteral("Camille"), QStringLiteral("13/09/2005")}, portee, [] { return true; }, m_avancement);
    }
    void Rendre() { RendreEntrees(doc, Portee::Dependantes, m_avancement); }
    /// How many entries are lent.
    int Pretees() const
    {
        int pretees = 0;
        for (int i = 1; i <= doc.ItemsCount(); ++i)
            pretees += doc.Table.StockageDe(i).Champ(doc.IndexColPrete - 1).taille > 0;
        return pretees;
    }

    Categorie doc;

private:
    QTemporaryDir m_dossier;
    SansAvancement m_avancement;
};

void PreterUnDixieme(benchmark::State& etat)
{
    for (auto _ : etat) {
        etat.PauseTiming();
        auto document = std::make_unique<Document>();
        etat.ResumeTiming();
        document->Preter(Portee::Selection);
        etat.PauseTiming();
        if (document->Pretees() != document->doc.ItemsCount() / 10) {
            etat.SkipWithError("not lent as it is meant");
            break;
        }
        document.reset();
        etat.ResumeTiming();
    }
}

/// `pretees`: the entries that are lent when the return begins. It selects all entries, by their boxes.
void Rendre(benchmark::State& etat, Portee pretees)
{
    for (auto _ : etat) {
        etat.PauseTiming();
        auto document = std::make_unique<Document>();
        document->Preter(pretees);
        document->ChoisirUnDixieme();
        etat.ResumeTiming();
        document->Rendre();
        etat.PauseTiming();
        if (document->Pretees() != 0 || document->doc.SelItemsCount() != document->doc.ItemsCount()) {
            etat.SkipWithError("not returned as it is meant");
            break;
        }
        document.reset();
        etat.ResumeTiming();
    }
}

void RendreUnDixieme(benchmark::State& etat)
{
    Rendre(etat, Portee::Selection);
}
void RendreTout(benchmark::State& etat)
{
    Rendre(etat, Portee::Dependantes);
}

BENCHMARK(PreterUnDixieme)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(RendreUnDixieme)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(RendreTout)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return MesurerTout(argc, argv, {"ZELVANE_BENCH_COFFRETS"});
}
