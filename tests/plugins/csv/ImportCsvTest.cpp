#include "ImportCsv.h"

#include "DevinerCsv.h"
#include "extensions/plugins/FaceDocument.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QBuffer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// In the program the plug-in has it from there.
extern "C" {
const ZelvaneRegistre* ZelvaneRegistreDuProgramme = nullptr;
}

namespace {

class ImportCsvTest : public testing::Test
{
protected:
    /// Brings a text in, with all its columns unless others are told.
    const BilanCsv& Importer(const QByteArray& octets, QList<UsageCsv> usages = {})
    {
        m_octets = octets;
        m_texte.setBuffer(&m_octets);
        m_texte.open(QIODevice::ReadOnly);
        PlanCsv plan{format, {}};
        const QStringList titres = TitresDeColonnes(LireApercu(m_texte, format), format.entete);
        for (qsizetype i = 0; i < titres.size(); ++i)
            plan.colonnes.append({titres[i], usages.value(i, UsageCsv::Prendre)});
        import = std::make_unique<ImportCsv>(m_texte, plan, d->dossier.Chemin(), face.get());
        while (import->Avancer())
            ++tours;
        return import->Bilan();
    }
    QStringList Colonne(int rang) const { return ColonneDe(d->table, rang); }
    QString Raison(size_t rang) const { return RaisonDe(import->Bilan().signalees.at(rang)); }

    FormatCsv format;
    std::optional<DocumentDeTest> d{std::in_place};
    std::unique_ptr<FaceDocument> face = std::make_unique<FaceDocument>(d->doc);
    std::unique_ptr<ImportCsv> import;
    int tours = 0;

private:
    QByteArray m_octets;
    QBuffer m_texte;
};

} // namespace

TEST_F(ImportCsvTest, RowsBecomeEntriesUnderTheirTitles)
{
    const BilanCsv& bilan = Importer("Titre,Année\nAja,1977\nBlue,1971\n");
    EXPECT_EQ(d->table.ColumnHeaders(1).Text(), "Titre");
    EXPECT_EQ(d->table.ColumnHeaders(2).Text(), u"Année");
    EXPECT_EQ(Colonne(1), QStringList({"Aja", "Blue"}));
    EXPECT_EQ(Colonne(2), QStringList({"1977", "1971"}));
    EXPECT_EQ(bilan.lignes, 2);
    EXPECT_TRUE(bilan.EstSansReserve());
    EXPECT_FALSE(import->EstRefuse());
}

TEST_F(ImportCsvTest, WithoutTitlesTheFirstRowIsAnEntry)
{
    format.entete = false;
    Importer("Aja,1977\nBlue,1971\n");
    EXPECT_EQ(d->table.ColumnHeaders(1).Text(), "Colonne 1");
    EXPECT_EQ(Colonne(1), QStringList({"Aja", "Blue"}));
}

TEST_F(ImportCsvTest, ColumnsCanBeLeftOut)
{
    Importer("a,b,c\n1,2,3\n4,5,6\n", {UsageCsv::Prendre, UsageCsv::Laisser, UsageCsv::Prendre});
    EXPECT_EQ(d->table.ColumnHeaders.Count(), 2);
    EXPECT_EQ(Colonne(1), QStringList({"1", "4"}));
    EXPECT_EQ(Colonne(2), QStringList({"3", "6"}));
}

TEST_F(ImportCsvTest, EmptyLinesArePassedOverAndCounted)
{
    const BilanCsv& bilan = Importer("\na,b\n\n1,2\n\n");
    EXPECT_EQ(Colonne(2), QStringList({"2"}));
    EXPECT_EQ(bilan.vides, 3);
    EXPECT_EQ(bilan.lignes, 1);
    EXPECT_TRUE(bilan.EstSansReserve());
}

TEST_F(ImportCsvTest, RowsWithDefectsAreTakenWithWhatTheyHaveAndTold)
{
    const BilanCsv& bilan = Importer("a,b\n1\n2,3,4\n\"5\"x,6\n7,8\n9,\"10\n");
    EXPECT_EQ(Colonne(1), QStringList({"1", "2", "5x", "7", "9"}));
    EXPECT_EQ(Colonne(2), QStringList({"", "3,4", "6", "8", "\"10"}));
    ASSERT_EQ(bilan.signalees.size(), 4U);
    EXPECT_FALSE(bilan.EstSansReserve());
    EXPECT_EQ(bilan.signalees[0].numero, 2);
    EXPECT_EQ(Raison(0), "trop peu de valeurs");
    EXPECT_EQ(Raison(1), "trop de valeurs");
    EXPECT_EQ(bilan.signalees[2].position, 3);
    EXPECT_EQ(Raison(2), u"texte après un guillemet fermant"_s);
    EXPECT_EQ(bilan.signalees[3].numero, 6);
    EXPECT_EQ(bilan.signalees[3].position, 5);
    EXPECT_EQ(Raison(3), u"guillemet jamais fermé"_s);
    EXPECT_EQ(RaisonDe({1, 1, TropPeuDeChamps | LigneCoupee, {}}), u"trop peu de valeurs, ligne trop longue, coupée");
}

TEST_F(ImportCsvTest, RowsWithDefectsCanBeTakenOutAgain)
{
    Importer("a,b\n1\n2,3\n4,5,6\n7,8\n");
    import->RetirerDefectueuses();
    EXPECT_EQ(Colonne(1), QStringList({"2", "7"}));
}

TEST_F(ImportCsvTest, WhatNoCellCanHoldIsReplacedAndCounted)
{
    const BilanCsv& bilan =
        Importer("a,b\n\"1|1|1\",\"2\r\n2\n2\"\n\"3\r3|\",4\n\xC3\xA9,5" + QByteArray("\0", 1) + "5\n");
    EXPECT_EQ(Colonne(1), QStringList({u"1¦1¦1"_s, u"3 3¦"_s, u"é"_s}));
    EXPECT_EQ(Colonne(2), QStringList({"2 2 2", "4", "5 5"}));
    EXPECT_EQ(bilan.remplaces.barres, 2);
    EXPECT_EQ(bilan.remplaces.sauts, 2);
    EXPECT_EQ(bilan.remplaces.nuls, 1);
    EXPECT_FALSE(bilan.EstSansReserve());
}

TEST_F(ImportCsvTest, WhatCouldNotBeDecodedIsCounted)
{
    const BilanCsv& bilan = Importer("a,b\n1,\xE9t\xE9\n");
    EXPECT_EQ(bilan.illisibles, 2);
    EXPECT_FALSE(bilan.EstSansReserve());
    EXPECT_EQ(Colonne(2), QStringList({u"\uFFFDt\uFFFD"_s}));
}

TEST_F(ImportCsvTest, ManyRowsComeInSteps)
{
    QByteArray texte = "n,m\n";
    for (int i = 1; i <= 20000; ++i)
        texte += QByteArray::number(i) + (i % 5000 == 0 ? "\n" : ",x\n");
    const BilanCsv& bilan = Importer(texte);
    EXPECT_EQ(tours, 4);
    ASSERT_EQ(d->table.ListItems.Count(), 20000);
    EXPECT_EQ(d->table.ListItems(19999).Text(), "19999");
    ASSERT_EQ(bilan.signalees.size(), 4U);
    EXPECT_EQ(bilan.signalees[3].position, 20000);
    EXPECT_EQ(bilan.signalees[2].position, 15000);
}

TEST_F(ImportCsvTest, ImagesComeAlong)
{
    d->dossier.Ecrire(u"pochettes/aja.png"_s, "aja");
    d->dossier.Ecrire(u"autres/aja.png"_s, "autre");
    d->dossier.Ecrire(u"pochettes/notes.txt"_s, "x");
    const BilanCsv& bilan =
        Importer("Titre,Image\nAja,pochettes/aja.png\nBlue,\nChet,absente.jpg\n"
                 "Aja 2, ./pochettes/../pochettes/aja.png\nAja 3,autres/aja.png\nX,pochettes/notes.txt\n",
                 {UsageCsv::Prendre, UsageCsv::Image});
    EXPECT_EQ(d->table.ColumnHeaders.Count(), 1);
    QStringList images;
    for (int i = 1; i <= d->table.ListItems.Count(); ++i)
        images.append(d->table.ListItems(i).Tag());
    EXPECT_EQ(images, QStringList({"aja.png", "", "", "aja.png", "0aja.png", ""}));
    EXPECT_EQ(d->table.ListItems(1).SmallIcon(), "ico");
    EXPECT_EQ(d->table.ListItems(2).SmallIcon(), "noico");
    EXPECT_EQ(d->dossier.Lire(u"aja.png"_s), "aja");
    EXPECT_EQ(d->dossier.Lire(u"0aja.png"_s), "autre");
    EXPECT_EQ(bilan.images, 3);
    ASSERT_EQ(bilan.signalees.size(), 2U);
    EXPECT_EQ(Raison(0), "image introuvable : absente.jpg");
    EXPECT_EQ(bilan.signalees[0].position, 3);
    EXPECT_EQ(Raison(1), "image introuvable : pochettes/notes.txt");
    import->RetirerDefectueuses();
    EXPECT_EQ(d->table.ListItems.Count(), 6) << "a missing image is no defect of a row";
}

TEST_F(ImportCsvTest, ADocumentThatHasGoneTakesNothing)
{
    d.reset();
    QByteArray octets = "a,b\n1,2\n";
    QBuffer texte(&octets);
    texte.open(QIODevice::ReadOnly);
    ImportCsv perdu(texte, {format, {{u"a"_s}, {u"b"_s}}}, QString(), face.get());
    EXPECT_FALSE(perdu.Avancer());
    EXPECT_TRUE(perdu.EstRefuse());
}

TEST_F(ImportCsvTest, APlanWithoutColumnsBringsNothing)
{
    Importer("a,b\n1,2\n", {UsageCsv::Laisser, UsageCsv::Laisser});
    EXPECT_TRUE(import->EstRefuse());
    EXPECT_EQ(d->table.ListItems.Count(), 0);
}
