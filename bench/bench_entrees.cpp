// Commands on all entries of one large catalogue, between the user's last click and the result. Runs on the offscreen
// platform.
//
// ZELVANE_BENCH_FICHIER names a bare catalogue text.
#include "Mesurer.h"

#include "base/Avancement.h"
#include "catalogue/documents/FenetreDocument.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "columns/EditerColonnes.h"
#include "columns/FusionnerColonnes.h"
#include "columns/SeparerColonne.h"
#include "entries/ModeleASupprimer.h"
#include "entries/OperationsEntrees.h"
#include "platform/Plateforme.h"
#include "search/frmRecherche.h"
#include "vue/VueDesLignes.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

namespace {

/// A window without a screen, on a catalogue that is loaded anew for each measurement.
class Fenetre : public FenetreDocument
{
public:
    Fenetre()
    {
        myqrt.TmpFolder = m_dossier.path() + u'/';
        if (!QFile::link(qEnvironmentVariable("ZELVANE_BENCH_FICHIER"),
                         myqrt.TmpFolder + QStringLiteral("Zelvane.qrt")))
            std::abort();
        ChargerFichier(myqrt);
        m_table.Selectionner(1, Nombre(), true);
    }
    int Nombre() const { return myqrt.ItemsCount(); }

    QString Caption() const override { return {}; }
    void SetCaption(const QString&) override {}
    void Decharger() override {}
    void RedrawAll(bool) override {}
    void MontrerImage(const QString&) override {}
    void RendreVisible(int) override {}
    void mAfficherImages_Click() override {}
    void mModifierCategorie_Click() override {}
    void mModifierCommentaires_Click() override {}
    void mRechercher_Click() override {}

private:
    MyLV& m_table = myqrt.Table;
    QTemporaryDir m_dossier;
};

/// Measures `action` on a catalogue of its own, all entries selected.
template<class Action> void Mesurer(benchmark::State& etat, Action action)
{
    for (auto _ : etat) {
        etat.PauseTiming();
        auto fenetre = std::make_unique<Fenetre>();
        etat.ResumeTiming();
        if (!action(*fenetre))
            etat.SkipWithError("the command did not do its work");
        etat.PauseTiming();
        fenetre.reset();
        etat.ResumeTiming();
    }
}

void EditionMultiple(benchmark::State& etat)
{
    Mesurer(etat, [](Fenetre& fenetre) {
        SansAvancement sans;
        ModifierSelection(fenetre, {{QString(), QStringLiteral("neuf"), QStringLiteral("jazz")}, {}, {}}, sans);
        return fenetre.myqrt.MyLV->ListItems(fenetre.Nombre()).Valeur(2) == u"neuf";
    });
}
BENCHMARK(EditionMultiple)->Unit(benchmark::kMillisecond)->UseRealTime();

/// One entry is selected in each hundred, and brings in those that depend on it.
void ListerDependantes(benchmark::State& etat)
{
    Mesurer(etat, [](Fenetre& fenetre) {
        Categorie& doc = fenetre.myqrt;
        for (int i = 1; i <= fenetre.Nombre(); ++i)
            doc.MyLV->Selectionner(i, i, i % 100 == 1);
        doc.dependantcol = 2;
        ListeASupprimer liste(doc);
        SansAvancement sans;
        liste.Remplir(true, sans);
        return liste.Count() >= doc.SelItemsCount();
    });
}
BENCHMARK(ListerDependantes)->Unit(benchmark::kMillisecond)->UseRealTime();

/// From the command to the first picture of the rows.
void ImageDeLaListe(benchmark::State& etat)
{
    Mesurer(etat, [](Fenetre& fenetre) {
        ListeASupprimer liste(fenetre.myqrt);
        ModeleASupprimer modele(liste, fenetre.myqrt.MyLV->ColumnHeaders);
        VueDesLignes vue;
        vue.Afficher(modele, fenetre.myqrt.MyLV->ColumnHeaders);
        modele.Remplir(false);
        vue.resize(760, 480);
        vue.show();
        QCoreApplication::processEvents();
        vue.viewport()->repaint();
        return modele.rowCount() == fenetre.Nombre();
    });
}
BENCHMARK(ImageDeLaListe)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Every tenth entry goes.
void SupprimerUnDixieme(benchmark::State& etat)
{
    Mesurer(etat, [](Fenetre& fenetre) {
        Categorie& doc = fenetre.myqrt;
        const int avant = fenetre.Nombre();
        ListeASupprimer liste(doc);
        SansAvancement sans;
        liste.Remplir(false, sans);
        liste.Cocher(1, avant, false);
        for (int ligne = 10; ligne <= avant; ligne += 10)
            liste.Cocher(ligne, ligne, true);
        SupprimerCochees(
            doc, liste, [](const QString&) {}, sans);
        RecalculerCles(*doc.MyLV);
        return fenetre.Nombre() == avant - avant / 10;
    });
}
BENCHMARK(SupprimerUnDixieme)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A tool on columns does its work: on all entries, and on a column in the middle where it matters which.
template<class Outil> void MesurerColonnes(benchmark::State& etat, int deColonnes, Outil outil)
{
    Mesurer(etat, [&](Fenetre& fenetre) {
        Categorie& doc = fenetre.myqrt;
        const int avant = doc.ColCount();
        SansAvancement sans;
        outil(doc, avant / 2, sans);
        return doc.ColCount() == avant + deColonnes;
    });
}

void DeplacerUneColonne(benchmark::State& etat)
{
    MesurerColonnes(etat, 0, [](Categorie& doc, int milieu, Avancement& sans) {
        DeplacerColonne(doc, milieu, Sens::Gauche, QString(), sans);
    });
}
BENCHMARK(DeplacerUneColonne)->Unit(benchmark::kMillisecond)->UseRealTime();

void SupprimerUneColonne(benchmark::State& etat)
{
    MesurerColonnes(etat, -1,
                    [](Categorie& doc, int milieu, Avancement& sans) { SupprimerColonne(doc, milieu, sans); });
}
BENCHMARK(SupprimerUneColonne)->Unit(benchmark::kMillisecond)->UseRealTime();

void FusionnerDeuxColonnes(benchmark::State& etat)
{
    MesurerColonnes(etat, -1, [](Categorie& doc, int milieu, Avancement& sans) {
        Fusionner(doc, {{QString(), milieu}, {QString(), 0}, QStringLiteral("_-_")}, sans);
    });
}
BENCHMARK(FusionnerDeuxColonnes)->Unit(benchmark::kMillisecond)->UseRealTime();

void SeparerUneColonne(benchmark::State& etat)
{
    MesurerColonnes(etat, 1, [](Categorie& doc, int, Avancement& sans) {
        Separer(doc, 0, QStringLiteral("Suite"), QStringLiteral(" "), sans);
    });
}
BENCHMARK(SeparerUneColonne)->Unit(benchmark::kMillisecond)->UseRealTime();

void DupliquerUneColonne(benchmark::State& etat)
{
    MesurerColonnes(etat, 1, [](Categorie& doc, int milieu, Avancement& sans) {
        Dupliquer(doc, milieu, QStringLiteral("Copie"), sans);
    });
}
BENCHMARK(DupliquerUneColonne)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A text that every entry holds is looked for: from the click on the button to the first picture of the results.
void ImageDesResultats(benchmark::State& etat)
{
    Mesurer(etat, [](Fenetre& fenetre) {
        frmRecherche form;
        form.SetDocument(fenetre);
        form.show();
        form.findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(QStringLiteral("|"));
        QCoreApplication::processEvents();
        form.findChild<QPushButton*>(QStringLiteral("btRecherche"))->click();
        const auto* compte = form.findChild<QLabel*>(QStringLiteral("StatusBar1_1"));
        while (compte->text().isEmpty())
            QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        auto& liste = *form.findChild<VueDesLignes*>(QStringLiteral("ListView1"));
        liste.viewport()->repaint();
        return liste.model()->rowCount() == fenetre.Nombre();
    });
}
BENCHMARK(ImageDesResultats)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir reglages; // windows look up and note their places: not in the user's settings
    qputenv("XDG_CONFIG_HOME", reglages.path().toUtf8());
    qputenv("ZELVANE_DOSSIER", reglages.path().toUtf8());
    const QApplication application(argc, argv);
    const PlateformeReelle plateformeReelle;
    return MesurerTout(argc, argv, {"ZELVANE_BENCH_FICHIER"});
}
