// A catalogue of very many columns, in the program's window and in its table. Runs on the offscreen platform, in a
// folder of its own.
#include "Mesurer.h"

#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "platform/Plateforme.h"
#include "shell/Form1.h"
#include "shell/MDIForm1.h"
#include "vue/ModeleTable.h"

#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>

namespace {

/// The frame, and a file that announces so many columns; all are like the one that it has.
struct Montage
{
    explicit Montage(int colonnes) : fichier(dossier.filePath(QStringLiteral("colonnes.qrt")))
    {
        QFile texte(fichier);
        if (texte.open(QIODevice::WriteOnly))
            texte.write("[FileInfo]\r\nType=QRT FILE\r\nVersion=1.4\r\n\r\n[ListView]\r\nGridLines=1\r\nSorted=0\r\n"
                        "SortKey=0\r\nSortOrder=0\r\nView=3\r\n\r\n[ColumHeaders]\r\nCount=" +
                        QByteArray::number(colonnes) + "\r\nColum1=Titre|1000|\r\n");
        cadre.resize(1260, 760);
        cadre.show();
        QCoreApplication::processEvents();
    }
    bool Ouvrir() { return OuvrirFichier(cadre, fichier, TypeQrt2, true); }
    Form1& Fenetre() const { return dynamic_cast<Form1&>(*cadre.Documents().back()); }
    void Fermer() const
    {
        Fenetre().myqrt.IlFautSauver = false;
        Fenetre().Decharger();
        Laisser();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Lets what waits be done, and all be drawn.
    static void Laisser()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    QTemporaryDir dossier;
    QString fichier;
    MDIForm1 cadre;
};

double Duree(const std::function<void()>& faire)
{
    const auto debut = std::chrono::steady_clock::now();
    faire();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
}

/// From the file to the window that shows it; and, as the counter `pas`, the slowest of what a user does there then:
/// to scroll sideways, to drag a title's edge, to change the window's size.
void OuvrirColonnes(benchmark::State& etat)
{
    Montage montage(static_cast<int>(etat.range(0)));
    double pas = 0;
    for (auto _ : etat) {
        if (!montage.Ouvrir())
            etat.SkipWithError("the file did not open");
        Montage::Laisser();
        etat.PauseTiming();
        const Form1& fenetre = montage.Fenetre();
        if (fenetre.ListView1().model()->columnCount() <= etat.range(0))
            etat.SkipWithError("columns are missing");
        QScrollBar& barre = *fenetre.ListView1().horizontalScrollBar();
        const auto noter = [&pas](const std::function<void()>& faire) {
            pas = std::max(pas, Duree([&faire] {
                               faire();
                               Montage::Laisser();
                           }));
        };
        noter([&] { barre.setValue(barre.maximum() / 2); });
        noter([&] { barre.setValue(barre.maximum()); });
        noter([&] { fenetre.ListView1().horizontalHeader()->resizeSection(3, 200); });
        noter([&] { montage.cadre.resize(1000, 700); });
        montage.cadre.resize(1260, 760);
        montage.Fermer();
        etat.ResumeTiming();
    }
    etat.counters["pas"] = pas;
}
BENCHMARK(OuvrirColonnes)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Arg(100'000)->Arg(1'000'000);

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir maison;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "TMPDIR", "ZELVANE_DOSSIER"})
        qputenv(variable, maison.path().toUtf8());
    const QApplication application(argc, argv);
    const PlateformeReelle reelle;
    return MesurerTout(argc, argv);
}
