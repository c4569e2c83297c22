// The engine's hot paths on one large catalogue: reading, searching, sorting, writing, exporting, keys and counts.
//
// ZELVANE_BENCH_FICHIER names a bare catalogue text whose entries stand in order, ZELVANE_BENCH_DESORDRE the same
// entries shuffled, ZELVANE_BENCH_CHANGE those with other values in their second column, ZELVANE_BENCH_PRETE the same
// with all of them lent, ZELVANE_BENCH_TEXTE a text that hardly an entry of the first one holds. Files written go to
// ZELVANE_BENCH_SORTIE, by default /dev/shm.
#include "Mesurer.h"

#include "base/Avancement.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/LectureQrt.h"
#include "columns/SeparerColonne.h"
#include "output/EcrireExport.h"
#include "output/Statistiques.h"
#include "platform/Plateforme.h"
#include "search/Comparaison.h"
#include "search/ResultatsDeRecherche.h"

#include <QCoreApplication>
#include <QFile>
#include <QIODevice>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <malloc.h>

namespace {

QString Variable(const char* nom, const char* defaut = "")
{
    return qEnvironmentVariable(nom, QString::fromUtf8(defaut));
}

/// A document whose folder holds the text as a link: measuring starts with the bytes where a save leaves them.
class Document
{
public:
    explicit Document(const QString& texte)
    {
        doc.TmpFolder = m_dossier.path() + u'/';
        if (!QFile::link(texte, doc.TmpFolder + QStringLiteral("Zelvane.qrt")))
            std::abort();
    }

    Categorie doc;
    MyLV& table = doc.Table;

private:
    QTemporaryDir m_dossier;
};

Document& DocumentCharge()
{
    static Document document(Variable("ZELVANE_BENCH_FICHIER"));
    if (document.doc.ItemsCount() == 0)
        ChargerFichier(document.doc);
    return document;
}

void Charger(benchmark::State& etat, const char* variable)
{
    Document document(Variable(variable));
    for (auto _ : etat) {
        ChargerFichier(document.doc);
        etat.PauseTiming();
        if (document.doc.ItemsCount() == 0)
            etat.SkipWithError("nothing was read");
        document.doc.ClearLV();
        malloc_trim(0);
        etat.ResumeTiming();
    }
}

void ChargerFichierTrie(benchmark::State& etat)
{
    Charger(etat, "ZELVANE_BENCH_FICHIER");
}
void ChargerFichierDesordre(benchmark::State& etat)
{
    Charger(etat, "ZELVANE_BENCH_DESORDRE");
}

/// What the process grows by when it loads the file, as the system counts it.
void MemoireTableChargee(benchmark::State& etat)
{
    for (auto _ : etat) {
        malloc_trim(0);
        const qint64 avant = MemoireDuProcessus();
        Document document(Variable("ZELVANE_BENCH_FICHIER"));
        ChargerFichier(document.doc);
        etat.counters["octets"] = static_cast<double>(MemoireDuProcessus() - avant);
    }
}

/// The same for a file one of whose columns was then duplicated, after which there is most.
void MemoireApresColonnes(benchmark::State& etat)
{
    for (auto _ : etat) {
        malloc_trim(0);
        const qint64 avant = MemoireDuProcessus();
        Document document(Variable("ZELVANE_BENCH_FICHIER"));
        ChargerFichier(document.doc);
        SansAvancement sans;
        Dupliquer(document.doc, 0, QStringLiteral("Copie"), sans);
        etat.counters["octets"] = static_cast<double>(MemoireDuProcessus() - avant);
    }
}

void TriAutreColonne(benchmark::State& etat)
{
    MyLV& table = DocumentCharge().table;
    for (auto _ : etat) {
        etat.PauseTiming();
        table.SetSortKey(0);
        etat.ResumeTiming();
        table.SetSortKey(1);
    }
    table.SetSortKey(0);
}

void BenchEcrireFichier14(benchmark::State& etat)
{
    Categorie& doc = DocumentCharge().doc;
    doc.SetCheminReel(Variable("ZELVANE_BENCH_SORTIE", "/dev/shm") + QStringLiteral("/zelvane-bench-1.4.qrt"));
    for (auto _ : etat) {
        QFile::remove(doc.CheminReel());
        if (!EcrireFichier14(doc, false))
            etat.SkipWithError("not written");
    }
    QFile::remove(doc.CheminReel());
}

void BenchRecalculerCles(benchmark::State& etat)
{
    MyLV& table = DocumentCharge().table;
    table.SetSortKey(1);
    for (auto _ : etat) {
        etat.PauseTiming();
        table.ListItems(1).SetKey(QStringLiteral("k900000000"));
        etat.ResumeTiming();
        RecalculerCles(table);
    }
    table.SetSortKey(0);
}

void SelItemsCount(benchmark::State& etat)
{
    Document& document = DocumentCharge();
    document.table.Selectionner(1, document.doc.ItemsCount() / 2, true);
    for (auto _ : etat)
        benchmark::DoNotOptimize(document.doc.SelItemsCount());
    document.table.Selectionner(1, document.doc.ItemsCount(), false);
}

/// A search in the saved text: the file is found, mapped and gone through each time.
void Chercher(benchmark::State& etat, const PorteeDeRecherche& colonnes)
{
    const Categorie& doc = DocumentCharge().doc;
    const QString texte = Variable("ZELVANE_BENCH_TEXTE");
    for (auto _ : etat) {
        Recherche recherche(doc.TmpFolder, doc.ColCount(), texte, colonnes);
        while (recherche.Avancer(qsizetype(1) << 20)) {
        }
        if (recherche.Nombre() == 0)
            etat.SkipWithError("nothing was found");
    }
}

void ChercherDansLaLigne(benchmark::State& etat)
{
    Chercher(etat, PorteeDeRecherche());
}

void ChercherDansDeuxColonnes(benchmark::State& etat)
{
    std::vector<bool> choix(static_cast<size_t>(DocumentCharge().doc.ColCount()));
    choix[1] = choix[2] = true;
    Chercher(etat, PorteeDeRecherche::DeChoix(choix));
}

/// The results of a text that every entry holds, as a table, and what the process has grown by when they are there.
void TrouverTout(benchmark::State& etat)
{
    const Categorie& doc = DocumentCharge().doc;
    for (auto _ : etat) {
        malloc_trim(0);
        const qint64 avant = MemoireDuProcessus();
        ResultatsDeRecherche resultats(doc);
        {
            Recherche recherche(doc.TmpFolder, doc.ColCount(), QStringLiteral("|"), PorteeDeRecherche());
            while (recherche.Avancer(qsizetype(1) << 20)) {
            }
            resultats.Prendre(recherche);
        }
        etat.counters["octets"] = static_cast<double>(MemoireDuProcessus() - avant);
        if (resultats.Table.ListItems.Count() != doc.ItemsCount())
            etat.SkipWithError("not every entry was found");
    }
}

/// Two catalogues that are open.
struct Paire
{
    Paire() : a(Variable("ZELVANE_BENCH_FICHIER")), b(Variable("ZELVANE_BENCH_CHANGE"))
    {
        ChargerFichier(a.doc);
        ChargerFichier(b.doc);
    }

    Document a;
    Document b;
};

/// Both tables are sorted and sorted back, and the lists are filled.
struct Resultats
{
    Resultats(Paire& paire, int colonneA, int colonneB)
    {
        CopierColonnes(seulesDeA, paire.a.table);
        CopierColonnes(seulesDeB, paire.b.table);
        Comparaison comparaison(paire.a.table, colonneA, paire.b.table, colonneB);
        while (comparaison.Avancer(1 << 14) != Comparaison::Etape::Finie) {
        }
        comparaison.Remplir(seulesDeA, seulesDeB);
    }

    MyLV seulesDeA;
    MyLV seulesDeB;
};

void ComparerDeux(benchmark::State& etat)
{
    Paire paire;
    for (auto _ : etat) {
        const Resultats resultats(paire, 1, 1);
        etat.PauseTiming();
        if (resultats.seulesDeB.ListItems.Count() < paire.b.doc.ItemsCount() / 20)
            etat.SkipWithError("too little was found");
        etat.ResumeTiming();
    }
}

/// The most that the process ever held since it was asked to forget that; 0 where the system does not tell.
qint64 PicDuProcessus(bool oublier)
{
    if (QFile oubli(QStringLiteral("/proc/self/clear_refs"));
        oublier && (!oubli.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || oubli.write("5") != 1))
        return 0;
    QFile statut(QStringLiteral("/proc/self/status"));
    if (!statut.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray texte = statut.readAll();
    const qsizetype debut = texte.indexOf("VmHWM:");
    return debut < 0 ? 0 : texte.mid(debut + 6, texte.indexOf("kB", debut) - debut - 6).trimmed().toLongLong() * 1024;
}

/// What the process grows by at most while it compares, with the results.
void MesurerComparaison(benchmark::State& etat, int colonneA, int colonneB)
{
    for (auto _ : etat) {
        Paire paire;
        malloc_trim(0);
        const qint64 avant = PicDuProcessus(true);
        const Resultats resultats(paire, colonneA, colonneB);
        etat.counters["octets"] = static_cast<double>(PicDuProcessus(false) - avant);
        if (avant == 0 || resultats.seulesDeA.ListItems.Count() == 0)
            etat.SkipWithError("the peak is not told, or nothing was found");
    }
}

void MemoireDeComparaison(benchmark::State& etat)
{
    MesurerComparaison(etat, 1, 1);
}

/// A title is no year.
void MemoireSansRienDEgal(benchmark::State& etat)
{
    MesurerComparaison(etat, 0, 2);
}

/// Takes all bytes, and keeps the most that the process held meanwhile.
class Balance : public QIODevice
{
public:
    Balance() { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }
    qint64 Sommet = 0;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 taille) override
    {
        Sommet = std::max(Sommet, MemoireDuProcessus());
        return taille;
    }
};

/// What the process grows by at most while it exports, of the kind that takes most.
void MemoireDExport(benchmark::State& etat)
{
    const Categorie& doc = DocumentCharge().doc;
    SansAvancement avancement;
    ChoixExport choix;
    choix.colonnes.assign(static_cast<size_t>(doc.ColCount()), true);
    for (auto _ : etat) {
        double plus = 0;
        for (const GenreExport genre :
             {GenreExport::PageAvecImages, GenreExport::PageSansImages, GenreExport::TexteEncadre,
              GenreExport::PointsVirgules, GenreExport::Tabulations}) {
            malloc_trim(0);
            const qint64 avant = MemoireDuProcessus();
            Balance balance;
            EcrireExport(doc, genre, choix, balance, doc.TmpFolder, avancement);
            plus = std::max(plus, static_cast<double>(balance.Sommet - avant));
        }
        etat.counters["octets"] = plus;
    }
}

void ChargerFichierPrete(benchmark::State& etat)
{
    Charger(etat, "ZELVANE_BENCH_PRETE");
}

void BenchRapportDesPrets(benchmark::State& etat)
{
    Document document(Variable("ZELVANE_BENCH_PRETE"));
    ChargerFichier(document.doc);
    for (auto _ : etat) {
        if (RapportDesPrets(document.doc).count(u'[') != 101) // the total, and a hundred borrowers
            etat.SkipWithError("not the report that is meant");
    }
}

BENCHMARK(MemoireTableChargee)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoireApresColonnes)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ChargerFichierTrie)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ChargerFichierDesordre)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(TriAutreColonne)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BenchEcrireFichier14)->Name("EcrireFichier14")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BenchRecalculerCles)->Name("RecalculerCles")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ChercherDansLaLigne)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ChercherDansDeuxColonnes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(TrouverTout)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(MemoireDeComparaison)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoireSansRienDEgal)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ComparerDeux)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(MemoireDExport)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ChargerFichierPrete)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BenchRapportDesPrets)->Name("RapportDesPrets")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SelItemsCount)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir reglages; // the report looks its texts up: not in the user's language
    qputenv("XDG_CONFIG_HOME", reglages.path().toUtf8());
    qputenv("ZELVANE_DOSSIER", reglages.path().toUtf8());
    const QCoreApplication application(argc, argv);
    const PlateformeReelle reelle;
    return MesurerTout(argc, argv,
                       {"ZELVANE_BENCH_FICHIER", "ZELVANE_BENCH_DESORDRE", "ZELVANE_BENCH_CHANGE",
                        "ZELVANE_BENCH_PRETE", "ZELVANE_BENCH_TEXTE"});
}
