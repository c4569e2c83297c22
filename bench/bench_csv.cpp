// A table of text opened by the plug-in that comes with the program, from the file to the entries of a new document.
// Runs on the offscreen platform.
//
// ZELVANE_BENCH_CSV names a table in CSV with titles.
#include "Mesurer.h"

#include "catalogue/texte/Categorie.h"
#include "extensions/plugins/mPlugin.h"
#include "kit/MessagesEnFenetre.h"
#include "platform/ComposantsDuSysteme.h"
#include "platform/Plateforme.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <malloc.h>
#include <memory>

namespace {

constexpr const char* Tableau = "ZELVANE_BENCH_CSV";

/// Accepts the plug-in's windows as they open.
class Accord
{
public:
    Accord()
    {
        QObject::connect(&m_tic, &QTimer::timeout, &m_tic, [] {
            auto* fenetre = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (fenetre && fenetre->objectName() != QLatin1String("frmAvancementCsv"))
                fenetre->accept();
        });
        m_tic.start(1);
    }

private:
    QTimer m_tic;
};

void OuvrirUnTableau(benchmark::State& etat)
{
    const QTemporaryDir dossier;
    const QString fichier = qEnvironmentVariable(Tableau);
    if (!EnregistrerDll(QStringLiteral(ZELVANE_PLUGIN_CSV), true))
        std::abort();
    for (auto _ : etat) {
        etat.PauseTiming();
        auto doc = std::make_unique<Categorie>();
        doc->TmpFolder = dossier.path() + u'/';
        malloc_trim(0);
        const qint64 avant = MemoireDuProcessus();
        etat.ResumeTiming();
        PluginAuTravail plugin(QStringLiteral("ImporterCsv"));
        const Accord accord;
        if (!plugin.initme(*doc, 0, PluginAuTravail::Passage::ParValeur) || !plugin.openFile(fichier))
            std::abort();
        etat.PauseTiming();
        malloc_trim(0);
        etat.counters["octets"] = static_cast<double>(MemoireDuProcessus() - avant);
        etat.counters["entrees"] = doc->ItemsCount();
        if (plugin.EstAbandonne() || doc->ItemsCount() == 0) {
            etat.SkipWithError("not opened");
            break;
        }
        doc->ClearLV();
        doc.reset();
        etat.ResumeTiming();
    }
}
BENCHMARK(OuvrirUnTableau)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir dossier;
    qputenv("ZELVANE_DOSSIER", dossier.path().toUtf8());
    const QApplication application(argc, argv);
    const PlateformeReelle reelle;
    ComposantsDuSysteme composants;
    plateforme().composants = &composants;
    const MessagesEnFenetre messages;
    return MesurerTout(argc, argv, {Tableau});
}
