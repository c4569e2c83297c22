// The exporters that come with the program, as their libraries were built, on a whole category.
//
// ZELVANE_BENCH_FICHIER names a bare catalogue text, ZELVANE_BENCH_EXPORTS the folder for what is written.
#include "Mesurer.h"

#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "extensions/plugins/QrtScript.h"
#include "extensions/plugins/mPlugin.h"
#include "platform/ComposantsDuSysteme.h"
#include "platform/Plateforme.h"

#include <QApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <malloc.h>
#include <thread>

namespace {

/// The most that the process grows by while one lives, in bytes; looked at every few milliseconds.
class Pointe
{
public:
    Pointe() : m_avant(MemoireDuProcessus()), m_veille([this] { Veiller(); }) {}
    ~Pointe()
    {
        if (m_veille.joinable())
            m_veille.join();
    }
    Pointe(const Pointe&) = delete;
    Pointe& operator=(const Pointe&) = delete;

    qint64 Octets()
    {
        m_fini = true;
        m_veille.join();
        return m_pointe - m_avant;
    }

private:
    void Veiller()
    {
        while (!m_fini) {
            m_pointe = std::max(m_pointe, MemoireDuProcessus());
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    std::atomic_bool m_fini = false;
    qint64 m_avant;
    qint64 m_pointe = 0;
    std::thread m_veille;
};

void Exporter(benchmark::State& etat, const QString& nom, const QString& fichier)
{
    const QTemporaryDir dossier;
    Categorie doc;
    doc.TmpFolder = dossier.path() + u'/';
    if (!QFile::link(qEnvironmentVariable("ZELVANE_BENCH_FICHIER"), doc.TmpFolder + QStringLiteral("Zelvane.qrt")))
        std::abort();
    ChargerFichier(doc);
    malloc_trim(0);
    const QString chemin = qEnvironmentVariable("ZELVANE_BENCH_EXPORTS") + u'/' + fichier;
    if (!EnregistrerDll(QStringLiteral(ZELVANE_PLUGINS_BATIS) + nom + QStringLiteral(".dll"), true))
        std::abort();
    qint64 pointe = 0;
    for (auto _ : etat) {
        Pointe memoire;
        PluginAuTravail plugin(nom);
        if (!plugin.initme(doc, 0, PluginAuTravail::Passage::ParReference) || !plugin.ExportToFile(chemin))
            std::abort();
        pointe = std::max(pointe, memoire.Octets());
    }
    if (QFileInfo(chemin).size() < doc.ItemsCount())
        etat.SkipWithError("not exported");
    etat.counters["octets"] = static_cast<double>(pointe);
}

void ExporterEnJson(benchmark::State& etat)
{
    Exporter(etat, QStringLiteral("ExporterJson"), QStringLiteral("bench.json"));
}
BENCHMARK(ExporterEnJson)->Unit(benchmark::kMillisecond);

void ExporterEnOds(benchmark::State& etat)
{
    Exporter(etat, QStringLiteral("ExporterOds"), QStringLiteral("bench.ods"));
}
BENCHMARK(ExporterEnOds)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir dossier;
    qputenv("ZELVANE_DOSSIER", dossier.path().toUtf8());
    const QApplication application(argc, argv);
    const PlateformeReelle reelle;
    ComposantsDuSysteme composants;
    InscrireScripts(composants);
    plateforme().composants = &composants;
    return MesurerTout(argc, argv, {"ZELVANE_BENCH_FICHIER", "ZELVANE_BENCH_EXPORTS"});
}
