// The search for duplicates in one large category, as the plug-in of that name does it.
//
// ZELVANE_BENCH_FICHIER names a bare catalogue text.
#include "Mesurer.h"

#include "ChercherDoublons.h"
#include "Suivi.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "extensions/plugins/FaceDocument.h"

#include <ZelvanePlugin.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

namespace {

/// The category as it is loaded, as a plug-in sees it.
class Document : public Source
{
public:
    Document()
    {
        doc.TmpFolder = m_dossier.path() + u'/';
        if (!QFile::link(qEnvironmentVariable("ZELVANE_BENCH_FICHIER"), doc.TmpFolder + QStringLiteral("Zelvane.qrt")))
            std::abort();
        ChargerFichier(doc);
        m_face = std::make_unique<FaceDocument>(doc);
        m_table = std::make_unique<zelvane::Table>(m_face.get());
    }
    int Lignes() const override { return m_table->Lignes(); }
    int Colonnes() const override { return m_table->Colonnes(); }
    QStringList Lire(const QList<int>& colonnes, int premiere, int nombre) const override
    {
        return m_table->LireColonnes(colonnes, premiere, nombre);
    }
    QStringList Images(int premiere, int nombre) const override { return m_table->LireImages(premiere, nombre); }

    Categorie doc;

private:
    QTemporaryDir m_dossier;
    std::unique_ptr<FaceDocument> m_face;
    std::unique_ptr<zelvane::Table> m_table;
};

class SansFin : public Suivi
{
    bool Avancer(double, double) override { return true; }
};

/// By the first two columns.
void Chercher(benchmark::State& etat, Mesure mesure)
{
    const Document document;
    SansFin suivi;
    for (auto _ : etat) {
        const auto groupes = ChercherDoublons(document, {{1, 2}, mesure, Vides::SaufToutes, 0}, suivi);
        if (!groupes) {
            etat.SkipWithError("given up");
            break;
        }
        etat.counters["groups"] = groupes->Count();
    }
}

void DoublonsEgaux(benchmark::State& etat)
{
    Chercher(etat, Mesure::Egales);
}

void DoublonsPresqueEgaux(benchmark::State& etat)
{
    Chercher(etat, Mesure::PresqueEgales);
}

BENCHMARK(DoublonsEgaux)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DoublonsPresqueEgaux)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return MesurerTout(argc, argv, {"ZELVANE_BENCH_FICHIER"});
}
