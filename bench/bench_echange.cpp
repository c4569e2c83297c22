// Copying a tenth of a large category as an exchange text, and pasting that into the same category, sorted.
//
// ZELVANE_BENCH_FICHIER names a bare catalogue text whose entries are in order, ZELVANE_BENCH_DESORDRE one whose
// entries are in none.
#include "Mesurer.h"

#include "base/Avancement.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "entries/AjouterEchange.h"
#include "entries/Echange.h"
#include "entries/FichierDEchange.h"
#include "entries/OperationsEntrees.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <malloc.h>
#include <memory>

namespace {

constexpr const char* EnOrdre = "ZELVANE_BENCH_FICHIER";
constexpr const char* EnDesordre = "ZELVANE_BENCH_DESORDRE";

/// A category sorted by its first column, with every tenth entry selected.
class Document
{
public:
    explicit Document(const char* fichier)
    {
        doc.TmpFolder = m_dossier.path() + u'/';
        if (!QFile::link(qEnvironmentVariable(fichier), doc.TmpFolder + QStringLiteral("Zelvane.qrt")))
            std::abort();
        ChargerFichier(doc);
        doc.Table.SetSortKey(0);
        doc.Table.SetSorted(true);
        for (int i = 1; i <= doc.ItemsCount(); ++i)
            doc.Table.Selectionner(i, i, i % 10 == 0);
    }
    ~Document()
    {
        doc.ClearLV();
        malloc_trim(0);
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Categorie doc;

private:
    QTemporaryDir m_dossier;
};

/// Takes what is copied, as the desktop's does.
class PressePapiersDuBanc : public PressePapiers
{
public:
    std::optional<QString> Texte() const override { return texte; }
    void Poser(const QString& nouveau) override { texte = nouveau; }
    void Vider() override { texte.reset(); }

    std::optional<QString> texte;
};

void CopierUnDixieme(benchmark::State& etat)
{
    const Document document(EnOrdre);
    const QTemporaryDir dossier;
    PressePapiersDuBanc pressePapiers;
    PressePapiers* const avant = plateforme().pressePapiers;
    plateforme().dossierProgramme = dossier.path() + u'/';
    plateforme().pressePapiers = &pressePapiers;
    for (auto _ : etat) {
        FichierDEchange fichier;
        SansAvancement sans;
        EcrireEchange(document.doc.Table, document.doc.TmpFolder, sans,
                      [&fichier](QByteArrayView octets) { fichier.Ecrire(octets); });
        PoserSurPressePapiers(fichier);
    }
    if (EchangeLu(pressePapiers.texte.value_or(QString())).Entrees() != document.doc.ItemsCount() / 10)
        etat.SkipWithError("not copied as it is meant");
    plateforme().pressePapiers = avant;
}

void CollerDansLOrdre(benchmark::State& etat)
{
    for (auto _ : etat) {
        etat.PauseTiming();
        auto document = std::make_unique<Document>(EnDesordre);
        MyLV& table = document->doc.Table;
        const int avant = table.ListItems.Count();
        const QString texte = TexteDEchange(table, document->doc.TmpFolder);
        etat.ResumeTiming();
        const EchangeLu echange(texte);
        SansAvancement sans;
        ToutDeselectionner(table);
        AjouterEchange(table, echange, Correspondre(echange.Titres(), TitresDe(table)), {}, sans);
        etat.PauseTiming();
        if (table.ListItems.Count() != avant + avant / 10 || table.NombreDeSelectionnees() != avant / 10) {
            etat.SkipWithError("not pasted as it is meant");
            break;
        }
        document.reset();
        etat.ResumeTiming();
    }
}

/// What the paste is held against: all entries put in order once.
void Trier(benchmark::State& etat)
{
    for (auto _ : etat) {
        etat.PauseTiming();
        auto document = std::make_unique<Document>(EnDesordre);
        MyLV& table = document->doc.Table;
        table.SetSorted(false);
        table.SetSortKey(1);
        etat.ResumeTiming();
        table.SetSorted(true);
        etat.PauseTiming();
        document.reset();
        etat.ResumeTiming();
    }
}

BENCHMARK(CopierUnDixieme)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CollerDansLOrdre)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(Trier)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const PlateformeReelle reelle;
    return MesurerTout(argc, argv, {EnOrdre, EnDesordre});
}
