// The table view on a table of a million entries: what a user waits for between a key and the picture. Runs on the
// offscreen platform.
#include "Mesurer.h"

#include "catalogue/table/MyLV.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/TriDeTable.h"
#include "vue/ModeleTable.h"
#include "vue/SaisieRapide.h"
#include "vue/VueTable.h"

#include <QApplication>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <functional>
#include <limits>

namespace {

constexpr int Entrees = 1'000'000;
constexpr int Colonnes = 6;

/// The entries as the reader hands them over: one block of bytes and a slice an entry.
void Remplir(MyLV& table)
{
    QByteArray octets;
    stockage::Lignes lignes;
    for (int i = 1; i <= Entrees; ++i) {
        const QByteArray numero = QByteArray::number(i);
        const QByteArray ligne = "Titre de l'album " + numero + "|Artiste " + QByteArray::number(i % 5000) + "|" +
                                 QByteArray::number(1950 + i % 75) +
                                 "|Chanson fran\xE7"
                                 "aise|\xC9tag\xE8re " +
                                 QByteArray::number(i % 40) + "||";
        lignes.debuts.push_back(static_cast<uint64_t>(octets.size()));
        lignes.longueurs.push_back(static_cast<uint32_t>(ligne.size()));
        lignes.drapeaux.push_back(stockage::AvecIcone(stockage::Reguliere, stockage::Icone::NoIco));
        octets += ligne;
    }
    stockage::Source source;
    source.taille = static_cast<size_t>(octets.size());
    source.octets = std::make_unique<char[]>(source.taille);
    std::memcpy(source.octets.get(), octets.constData(), source.taille);
    source.colonnes = Colonnes;
    table.Remplir(std::move(source), std::move(lignes));
}

struct Montage
{
    Montage()
    {
        for (const char* titre : {"Titre", "Artiste", "Année", "Genre", "Rangement", "Prêté"})
            table.ColumnHeaders.Add(0, QString::fromUtf8(titre)).SetWidth(2600);
        table.SetGridLines(true);
        Remplir(table);
        vue.Afficher(table);
        vue.resize(1260, 760);
        vue.show();
        QCoreApplication::processEvents();
    }

    /// Draws all that waits to be drawn.
    void Dessiner()
    {
        QCoreApplication::processEvents();
        vue.viewport()->repaint();
    }

    MyLV table;
    VueTable vue;
};

Montage* s_montage = nullptr;

Montage& LeMontage()
{
    return *s_montage;
}

/// A frame in which every cell is new: the thumb of the scroll bar is dragged.
void ImageDeDefilement(benchmark::State& etat)
{
    Montage& montage = LeMontage();
    QScrollBar* barre = montage.vue.verticalScrollBar();
    int position = 0;
    for (auto _ : etat) {
        position = (position + 7'919'123) % barre->maximum();
        barre->setValue(position);
        montage.vue.viewport()->repaint();
    }
}
BENCHMARK(ImageDeDefilement)->Unit(benchmark::kMillisecond);

void ToutSelectionner(benchmark::State& etat)
{
    Montage& montage = LeMontage();
    for (auto _ : etat) {
        etat.PauseTiming();
        montage.table.Selectionner(1, Entrees, false);
        montage.Dessiner();
        etat.ResumeTiming();
        montage.vue.selectAll();
        montage.Dessiner();
    }
    montage.table.Selectionner(1, Entrees, false);
}
BENCHMARK(ToutSelectionner)->Unit(benchmark::kMillisecond);

/// Every other entry is selected: the worst case for anything that keeps ranges.
void SelectionEnMiettes(benchmark::State& etat)
{
    Montage& montage = LeMontage();
    for (auto _ : etat) {
        for (int i = 1; i <= Entrees; i += 2)
            montage.table.Selectionner(i, i, !montage.table.EstSelectionnee(i));
        montage.Dessiner();
    }
    montage.table.Selectionner(1, Entrees, false);
}
BENCHMARK(SelectionEnMiettes)->Unit(benchmark::kMillisecond);

double Duree(const std::function<void()>& faire)
{
    const auto debut = std::chrono::steady_clock::now();
    faire();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
}

/// A click on a title, to the picture of the sorted table; and, as the counter `tri`, the sort alone. They take turns,
/// and the quickest of each counts: so a busy moment of the machine does not fall on one of them.
void ClicSurUnTitre(benchmark::State& etat)
{
    constexpr int tours = 3;
    Montage& montage = LeMontage();
    Categorie doc;
    doc.MyLV = &montage.table;
    montage.table.SetSorted(true);
    double tri = std::numeric_limits<double>::infinity();
    for (auto _ : etat) {
        double clic = std::numeric_limits<double>::infinity();
        for (int i = 0; i < tours; ++i) {
            montage.table.SetSortKey(0);
            tri = std::min(tri, Duree([&] { montage.table.SetSortKey(1); }));
            montage.table.SetSortKey(0);
            montage.Dessiner();
            clic = std::min(clic, Duree([&] {
                                TrierParColonne(doc, 2);
                                montage.Dessiner();
                            }));
        }
        etat.SetIterationTime(clic);
    }
    etat.counters["tri"] = tri;
}
BENCHMARK(ClicSurUnTitre)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

/// The two counts of the status bar, with every other entry selected.
void Comptes(benchmark::State& etat)
{
    Montage& montage = LeMontage();
    Categorie doc;
    doc.MyLV = &montage.table;
    for (int i = 1; i <= Entrees; i += 2)
        montage.table.Selectionner(i, i, true);
    montage.Dessiner();
    for (auto _ : etat) {
        benchmark::DoNotOptimize(QString::number(doc.ItemsCount()));
        benchmark::DoNotOptimize(QString::number(doc.SelItemsCount()));
    }
    montage.table.Selectionner(1, Entrees, false);
}
BENCHMARK(Comptes)->Unit(benchmark::kMillisecond);

/// From a filled table to the first picture of it.
void PremiereImage(benchmark::State& etat)
{
    Montage& montage = LeMontage();
    for (auto _ : etat) {
        VueTable vue;
        vue.resize(1260, 760);
        vue.Afficher(montage.table);
        vue.show();
        QCoreApplication::processEvents();
        vue.viewport()->repaint();
    }
}

void LettreSansEntree(benchmark::State& etat)
{
    Montage& montage = LeMontage();
    for (auto _ : etat)
        benchmark::DoNotOptimize(ChercherDebut(montage.table, QStringLiteral("zz"), 0));
}
BENCHMARK(LettreSansEntree)->Unit(benchmark::kMillisecond);

// Last: another view takes the table's notices.
BENCHMARK(PremiereImage)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Montage montage;
    s_montage = &montage;
    return MesurerTout(argc, argv);
}
