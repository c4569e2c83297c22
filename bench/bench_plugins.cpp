// What plug-ins cost: a new document window looks for them, registers each and asks it what it is. Runs on the
// offscreen platform.
#include "Mesurer.h"

#include "catalogue/documents/FenetreDocument.h"
#include "extensions/plugins/mPlugin.h"
#include "kit/MessagesEnFenetre.h"
#include "platform/ComposantsDuSysteme.h"
#include "platform/Plateforme.h"
#include "shell/MDIForm1.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

constexpr int Plugins = 20;
/// As many as the menu shows.
constexpr int Commandes = 7;

/// A folder of libraries that the process has not seen yet. The commands come last in the order of names: a window
/// stops looking once its menu is full.
class DossierPlein
{
public:
    DossierPlein()
    {
        static int numero = 0;
        QDir().mkpath(m_chemin);
        QFile::setPermissions(m_chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        for (int i = 0; i < Plugins; ++i) {
            const QString nom = QStringLiteral("%1%2.dll")
                                    .arg(i < Plugins - Commandes ? QStringLiteral("a") : QStringLiteral("autre"))
                                    .arg(++numero);
            if (!QFile::copy(QStringLiteral(ZELVANE_PLUGIN_MESURE), m_chemin + nom))
                std::abort();
        }
    }
    ~DossierPlein() { QDir(m_chemin).removeRecursively(); }
    DossierPlein(const DossierPlein&) = delete;
    DossierPlein& operator=(const DossierPlein&) = delete;

private:
    QString m_chemin = plateforme().dossierProgramme + QStringLiteral("plugins/");
};

/// A new window, to its picture.
FenetreDocument& Ouvrir(MDIForm1& cadre)
{
    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    QCoreApplication::processEvents();
    cadre.repaint();
    return fenetre;
}

void Fermer(FenetreDocument& fenetre)
{
    fenetre.Decharger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

MDIForm1* s_cadre = nullptr;

void FenetreSansPlugin(benchmark::State& etat)
{
    for (auto _ : etat) {
        FenetreDocument& fenetre = Ouvrir(*s_cadre);
        etat.PauseTiming();
        Fermer(fenetre);
        etat.ResumeTiming();
    }
}
BENCHMARK(FenetreSansPlugin)->Unit(benchmark::kMillisecond);

/// The first window of a run: every library is loaded.
void PremiereFenetre(benchmark::State& etat)
{
    for (auto _ : etat) {
        etat.PauseTiming();
        const DossierPlein dossier;
        etat.ResumeTiming();
        FenetreDocument& fenetre = Ouvrir(*s_cadre);
        etat.PauseTiming();
        if (dynamic_cast<QWidget&>(fenetre).findChild<QAction*>(QStringLiteral("mPlugins_6"))->text().isEmpty())
            std::abort();
        Fermer(fenetre);
        etat.ResumeTiming();
    }
}
BENCHMARK(PremiereFenetre)->Iterations(5)->Unit(benchmark::kMillisecond);

void FenetresSuivantes(benchmark::State& etat)
{
    const DossierPlein dossier;
    Fermer(Ouvrir(*s_cadre));
    for (auto _ : etat) {
        FenetreDocument& fenetre = Ouvrir(*s_cadre);
        etat.PauseTiming();
        Fermer(fenetre);
        etat.ResumeTiming();
    }
}
BENCHMARK(FenetresSuivantes)->Unit(benchmark::kMillisecond);

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
    MDIForm1 cadre;
    cadre.show();
    s_cadre = &cadre;
    return MesurerTout(argc, argv);
}
