#include "ExportDeTest.h"

#include "platform/NomsSysteme.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace {

constexpr GenreExport s_genres[] = {GenreExport::PageAvecImages, GenreExport::PageSansImages, GenreExport::TexteEncadre,
                                    GenreExport::PointsVirgules, GenreExport::Tabulations};

/// Takes so many bytes, and nothing more.
class AppareilPlein : public QIODevice
{
public:
    explicit AppareilPlein(qint64 place) : m_place(place) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

    qint64 Pris = 0;
    qint64 PlusGrand = 0;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 taille) override
    {
        const qint64 pris = std::min(taille, m_place - Pris);
        Pris += pris;
        PlusGrand = std::max(PlusGrand, taille);
        return pris;
    }

private:
    qint64 m_place;
};

class Suivi : public Avancement
{
public:
    std::vector<std::pair<int, int>> dits;

protected:
    void Dire(int fait, int total) override { dits.emplace_back(fait, total); }
};

class EcrireExportTest : public ExportDeTest
{
protected:
    /// A document whose entries are slices, in the encoding that the characters ask for.
    void Charger(const QList<QByteArray>& entrees)
    {
        TexteDeCatalogue texte;
        texte.trie = "0";
        texte.colonnes = {"Titre|1000|", "Année|1000|", "Prêté|600|"};
        texte.entrees = entrees;
        const QByteArray huitBits = texte.Texte();
        QByteArray exact = PageDeCode::VersTexte(huitBits).toUtf8();
        exact = exact.first(exact.indexOf("It1="));
        for (qsizetype i = 0; i < entrees.size(); ++i)
            exact += "It" + QByteArray::number(i + 1) + "=" + entrees[i] + "\r\n";
        if (exact != PageDeCode::VersTexte(huitBits).toUtf8())
            d.dossier.Ecrire("Zelvane.utf8", exact);
        d.Charger(huitBits);
        choix.colonnes.assign(3, true);
    }

    void AvecImage(const QString& nom, const QByteArray& octets)
    {
        d.dossier.Ecrire(nom, octets);
        AjouterEntrees(d.table, {{"x"}});
        d.table.ListItems(d.doc.ItemsCount()).SetTag(nom);
    }
    QByteArray Image(const QString& nom) const { return page.Lire("images/" + nom); }
};

} // namespace

// ---- the set of characters

TEST_F(EcrireExportTest, WhatIsReadFromTheFileGoesOutLikeWhatWasTyped)
{
    Charger({"élan\x7F|œuvre||é.jpg", "", "€|b", "a|b|c|i.jpg|trop"});
    ASSERT_EQ(d.table.CodageSource(), stockage::Codage::Cp1252);
    QList<QByteArray> lus;
    for (const GenreExport genre : s_genres)
        lus.append(Exporter(genre));
    for (int i = 1; i <= d.doc.ItemsCount(); ++i)
        d.table.ListItems(i).SetText(d.table.ListItems(i).Text());
    ASSERT_FALSE(d.table.StockageDe(1).EstTranche());
    for (const GenreExport genre : s_genres)
        EXPECT_EQ(Exporter(genre), lus.takeFirst());
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules),
              EnHuitBits("Titre;Année;Prêté;\r\nélan\x7F;œuvre;\r\n;;\r\n€;b;\r\na;b;c\r\n"));
}

TEST_F(EcrireExportTest, ALoanColumnThatTheFileLacksIsEmpty)
{
    TexteDeCatalogue texte;
    texte.colonnes = {"A|1000|", "B|1000|"};
    texte.entrees = {"a|b|image.jpg"};
    d.Charger(texte.Texte());
    choix.colonnes.assign(3, true);
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), EnHuitBits("A;B;Prêté;\r\na;b;\r\n"));
    EXPECT_EQ(Exporter(GenreExport::Tabulations), EnHuitBits("A\tB\tPrêté\r\na\tb\t\r\n"));
}

TEST_F(EcrireExportTest, ATextThatTheCodePageLacksIsInUtf8WithItsMark)
{
    Charger({"élan|1959||", "Жар|é||"});
    ASSERT_EQ(d.table.CodageSource(), stockage::Codage::Utf8);
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), "\xEF\xBB\xBFTitre;Année;Prêté;\r\nélan;1959;\r\nЖар;é;\r\n");
    choix.numeroter = true;
    EXPECT_EQ(Exporter(GenreExport::Tabulations),
              "\xEF\xBB\xBFN°\tTitre\tAnnée\tPrêté\r\n1\télan\t1959\t\r\n2\tЖар\té\t\r\n");
    EXPECT_TRUE(Exporter(GenreExport::TexteEncadre).startsWith("\xEF\xBB\xBF        \\"));
    EXPECT_TRUE(Exporter(GenreExport::TexteEncadre).contains("\r\n-1 :élan  1959\r\n-2 :Жар   é\r\n"));
}

TEST_F(EcrireExportTest, SlicesOfTheCodePageBesideSuchATextAreInUtf8Too)
{
    Charger({"élan|1959||", "x|y||"});
    ASSERT_EQ(d.table.CodageSource(), stockage::Codage::Cp1252);
    d.table.ListItems(2).SetText("Жар");
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), "\xEF\xBB\xBFTitre;Année;Prêté;\r\nélan;1959;\r\nЖар;y;\r\n");
}

TEST_F(EcrireExportTest, OnlyWhatIsExportedMakesATextUtf8)
{
    Charger({"élan|1959||", "Жар|é|Ж|Ж.jpg"});
    Cocher({2});
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), EnHuitBits("Année;\r\n1959\r\né\r\n")) << "not ticked";
    choix.colonnes.assign(3, true);
    choix.selectionUniquement = true;
    d.table.Selectionner(1, 1, true);
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), EnHuitBits("Titre;Année;Prêté;\r\nélan;1959;\r\n"))
        << "not selected";
    choix.selectionUniquement = false;
    Cocher({2, 3});
    EXPECT_FALSE(Exporter(GenreExport::TexteEncadre).startsWith("\xEF\xBB\xBF")) << "the last column is not written";
}

TEST_F(EcrireExportTest, ATitleOrTheFilesNameMakesATextUtf8)
{
    Colonnes({"Ж"});
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), "\xEF\xBB\xBFЖ;\r\n");
    d.table.ColumnHeaders(1).SetText("é");
    d.doc.SetCheminReel("/Ж.qrt");
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), EnHuitBits("é;\r\n")) << "the name is not in it";
    EXPECT_TRUE(Exporter(GenreExport::TexteEncadre).contains("-Ж.qrt : 0-"));
}

TEST_F(EcrireExportTest, ANameThatIsNoUtf8IsWrittenInTheCodePage)
{
    Colonnes({"A"});
    d.doc.SetCheminReel(CheminDesOctets("/\xE9t\xE9.qrt"));
    EXPECT_TRUE(Exporter(GenreExport::TexteEncadre).contains("-\xE9t\xE9.qrt : 0-"));
    EXPECT_TRUE(Exporter(GenreExport::PageAvecImages).contains("<title>&eacute;t&eacute;.qrt : 0</title>"));
}

// ---- failures

TEST_F(EcrireExportTest, ADeviceThatRefusesIsKnownAndStopsNothing)
{
    for (int i = 0; i < 20000; ++i)
        AjouterEntrees(d.table, {{"un titre, et encore un peu de texte"}});
    Colonnes({"A"});
    SansAvancement avancement;
    for (const GenreExport genre : s_genres) {
        AppareilPlein plein(300'000);
        EXPECT_FALSE(EcrireExport(d.doc, genre, choix, plein, page.Fichier("x"), avancement).texteEntier);
        EXPECT_EQ(plein.Pris, 300'000);
        AppareilPlein vaste(100'000'000);
        EXPECT_TRUE(EcrireExport(d.doc, genre, choix, vaste, page.Fichier("x"), avancement).texteEntier);
        EXPECT_LE(vaste.PlusGrand, 1'000'000) << "it goes out in pieces";
    }
    AppareilPlein rien(0);
    EXPECT_FALSE(EcrireExport(d.doc, GenreExport::Tabulations, choix, rien, "x", avancement).texteEntier)
        << "also when all of it is written at the end";
}

TEST_F(EcrireExportTest, ImagesAreCopiedAlsoWhenTheTextCannotBeWritten)
{
    Colonnes({"A"});
    AvecImage("a.jpg", "neuve");
    AppareilPlein plein(0);
    SansAvancement avancement;
    EXPECT_FALSE(
        EcrireExport(d.doc, GenreExport::PageAvecImages, choix, plein, page.Fichier("x"), avancement).EstEntiere());
    EXPECT_EQ(Image("a.jpg"), "neuve");
}

TEST_F(EcrireExportTest, TheFileIsMadeOrEmptied)
{
    const QString ancien = CheminDesOctets("\xE9.csv");
    page.Ecrire(ancien, "un texte plus long");
    for (const QString& nom : {ancien, QString("neuf.csv")}) {
        QFile fichier;
        ASSERT_TRUE(CreerExport(fichier, page.Fichier(nom)));
        fichier.write("x");
        fichier.close();
        EXPECT_EQ(page.Lire(nom), "x");
    }
    QFile fichier;
    EXPECT_FALSE(CreerExport(fichier, page.Fichier("absent/x.csv")));
    EXPECT_FALSE(CreerExport(fichier, page.Chemin()));
}

TEST_F(EcrireExportTest, EveryPassOverTheEntriesIsTold)
{
    Colonnes({"A"});
    for (int i = 0; i < Avancement::Pas; ++i)
        AjouterEntrees(d.table, {{"x"}});
    const auto dits = [this](GenreExport genre) {
        QBuffer sortie;
        sortie.open(QIODevice::WriteOnly);
        Suivi suivi;
        EcrireExport(d.doc, genre, choix, sortie, page.Fichier("x"), suivi);
        return suivi.dits;
    };
    using Dits = std::vector<std::pair<int, int>>;
    EXPECT_EQ(dits(GenreExport::PageSansImages), (Dits{{1024, 1024}}));
    EXPECT_EQ(dits(GenreExport::PointsVirgules), (Dits{{1024, 2048}, {2048, 2048}}));
    EXPECT_EQ(dits(GenreExport::TexteEncadre), (Dits{{1024, 3072}, {2048, 3072}, {3072, 3072}}));
}

// ---- images

TEST_F(EcrireExportTest, ImagesStandBesideThePageUnderTheirNames)
{
    Colonnes({"A"});
    AvecImage("été.jpg", "GIF89a");
    AvecImage("日.png", "x");
    Exporter(GenreExport::PageAvecImages);
    EXPECT_EQ(Image("été.jpg"), "GIF89a");
    EXPECT_EQ(Image("日.png"), "x");
    EXPECT_TRUE(issue.EstEntiere());
}

TEST_F(EcrireExportTest, ThePagesFolderMayHaveAnyName)
{
    Colonnes({"A"});
    AvecImage("a.jpg", "a");
    const QString dossier = CheminDesOctets("\xE9t\xE9/");
    ASSERT_EQ(mkdir(OctetsDuChemin(page.Fichier(dossier)).constData(), 0777), 0);
    QBuffer sortie;
    sortie.open(QIODevice::WriteOnly);
    SansAvancement avancement;
    EcrireExport(d.doc, GenreExport::PageAvecImages, choix, sortie, page.Fichier(dossier + "p.htm"), avancement);
    EXPECT_EQ(page.Lire(dossier + "images/a.jpg"), "a");
}

TEST_F(EcrireExportTest, TheFolderOfTheImagesIsThereWithoutAny)
{
    Colonnes({"A"});
    Exporter(GenreExport::PageAvecImages);
    EXPECT_TRUE(QFileInfo(page.Fichier("images")).isDir());
    EXPECT_TRUE(QDir(page.Fichier("images")).isEmpty());
}

TEST_F(EcrireExportTest, AnImageThatLiesThereStays)
{
    Colonnes({"A"});
    AvecImage("a.jpg", "neuve");
    page.Ecrire("images/a.jpg", "ancienne");
    EXPECT_TRUE(Exporter(GenreExport::PageAvecImages).contains("<img src=\"images\\a.jpg\""));
    EXPECT_EQ(Image("a.jpg"), "ancienne");
    EXPECT_TRUE(issue.EstEntiere());
}

TEST_F(EcrireExportTest, OnlyIncludedEntriesHaveTheirImagesCopied)
{
    Colonnes({"A"});
    AvecImage("a.jpg", "a");
    AvecImage("b.jpg", "b");
    choix.selectionUniquement = true;
    d.table.Selectionner(2, 2, true);
    Exporter(GenreExport::PageAvecImages);
    EXPECT_EQ(QDir(page.Fichier("images")).entryList(QDir::Files), QStringList("b.jpg"));
}

TEST_F(EcrireExportTest, AnImageThatTheCategoryLacksIsPassedOver)
{
    Colonnes({"A"});
    AjouterEntrees(d.table, {{"x"}});
    d.table.ListItems(1).SetTag("absente.jpg");
    EXPECT_TRUE(Exporter(GenreExport::PageAvecImages).contains("<img src=\"images\\absente.jpg\""));
    EXPECT_TRUE(issue.EstEntiere()) << "nothing of the category is missing";
}

TEST_F(EcrireExportTest, ANameWithASeparatorNamesNoFile)
{
    Colonnes({"A"});
    const QString loin = page.Ecrire("loin.jpg", "secret");
    AjouterEntrees(d.table, {{"a"}, {"b"}, {"c"}, {"d"}});
    d.dossier.Ecrire("sous/a.jpg", "x");
    d.dossier.Ecrire("a\\b.jpg", "x");
    d.table.ListItems(1).SetTag("../" + QFileInfo(page.Chemin()).dir().dirName() + "/loin.jpg");
    d.table.ListItems(2).SetTag("sous/a.jpg");
    d.table.ListItems(3).SetTag("a\\b.jpg");
    d.table.ListItems(4).SetTag("..");
    page.Ecrire("images/sous/x", "");
    EXPECT_TRUE(Exporter(GenreExport::PageAvecImages).contains("<img src=\"images\\sous/a.jpg\""));
    EXPECT_EQ(QDir(page.Fichier("images")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("sous"));
    EXPECT_EQ(QDir(page.Fichier("images/sous")).entryList(QDir::Files), QStringList("x"));
    EXPECT_TRUE(issue.EstEntiere());
}

TEST_F(EcrireExportTest, ImagesThatCannotBeCopiedAreCounted)
{
    Colonnes({"A"});
    AvecImage("a.jpg", "a");
    AvecImage("b.jpg", "b");
    const QString lien = page.Fichier("images/b.jpg");
    ASSERT_TRUE(QDir().mkpath(page.Fichier("images/a.jpg")));
    ASSERT_EQ(symlink("/absent/loin.jpg", OctetsDuChemin(lien).constData()), 0);
    EXPECT_TRUE(Exporter(GenreExport::PageAvecImages).endsWith("</html>\r\n"));
    EXPECT_EQ(issue.imagesPerdues, 2) << "a folder and a link to nothing stand in their places";
    EXPECT_TRUE(issue.texteEntier);
    EXPECT_TRUE(QFileInfo(lien).isSymLink());
}

TEST_F(EcrireExportTest, WithoutAFolderOfImagesThePageIsWritten)
{
    Colonnes({"A"});
    AvecImage("a.jpg", "a");
    page.Ecrire("images", "un fichier");
    EXPECT_TRUE(Exporter(GenreExport::PageAvecImages).contains("<img src=\"images\\a.jpg\""));
    EXPECT_EQ(issue.imagesPerdues, 1);
    EXPECT_EQ(page.Lire("images"), "un fichier");
}
