#include "catalogue/texte/EcritureQrt.h"

#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TexteExact.h"
#include "catalogue/texte/TexteQrt.h"
#include "platform/PageDeCode.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

namespace {

/// What a command prints; fails the test when it does not end with 0.
QByteArray Sortie(const QString& programme, const QStringList& arguments)
{
    QProcess processus;
    processus.start(programme, arguments);
    EXPECT_TRUE(processus.waitForFinished(60000)) << programme.toStdString();
    const QByteArray sortie = processus.readAllStandardOutput();
    EXPECT_EQ(processus.exitCode(), 0) << sortie.toStdString() << processus.readAllStandardError().toStdString();
    return sortie;
}

TexteDeCatalogue PetitCatalogue()
{
    TexteDeCatalogue texte;
    texte.cleDeTri = "1";
    texte.dependante = "1";
    texte.colonnes = {"Titre|4200,5|", "Artiste|3300|rock|jazz", "Prêté|600|"};
    texte.entrees = {"Ça|Abba||", "Kind of Blue|Miles Davis|Éric - 01/02/2026|b.jpg"};
    return texte;
}

class Ecriture : public testing::Test
{
protected:
    Ecriture() { d.doc.SetCheminReel(sortie.Fichier("essai.qrt")); }

    QByteArray Bare() const { return sortie.Lire("essai.qrt"); }
    QByteArray TexteDuDossier() const { return d.dossier.Lire("Zelvane.qrt"); }

    FileDeReponses messages;
    DocumentDeTest d;
    DossierDeTest sortie;
};

} // namespace

TEST_F(Ecriture, ABareFileWrittenAndReadAgainIsEqualToTheByte)
{
    TexteDeCatalogue texte = PetitCatalogue();
    texte.version = "1.4";
    d.Charger(texte.Texte());
    ASSERT_TRUE(EcrireFichier14(d.doc, false));
    EXPECT_EQ(Bare(), texte.Texte());
}

TEST_F(Ecriture, EveryLineOfTheTextFollowsTheTable)
{
    MettreColonnes(d.table, {"A", "Prêté"});
    d.table.ColumnHeaders(1).SetWidth(1234.5F);
    d.table.ColumnHeaders(1).SetTag("x|y");
    AjouterEntrees(d.table, {{"un", "Éric"}, {"deux"}});
    d.table.ListItems(2).SetTag("i.gif");
    d.table.SetGridLines(false);
    d.table.SetSortKey(1);
    d.table.SetSortOrder(1);
    d.doc.dependantcol = 2;
    ASSERT_TRUE(EcrireFichier14(d.doc, false));
    EXPECT_EQ(Bare(), PageDeCode::VersOctets(QString::fromUtf8(Lignes({"[FileInfo]",
                                                                       "Type=QRT FILE",
                                                                       "Version=1.4",
                                                                       "",
                                                                       "[ListView]",
                                                                       "GridLines=0",
                                                                       "Sorted=1",
                                                                       "SortKey=1",
                                                                       "SortOrder=1",
                                                                       "View=3",
                                                                       "",
                                                                       "[ColumHeaders]",
                                                                       "Count=2",
                                                                       "Colum1=A|1234,5|x|y",
                                                                       "Colum2=Prêté|1440|",
                                                                       "Dependant=2",
                                                                       "",
                                                                       "[ListItems]",
                                                                       "Count=2",
                                                                       "It1=un|Éric|",
                                                                       "It2=deux||i.gif"}))));
}

TEST_F(Ecriture, EntriesGoOutInDisplayOrderAndNumberedByIt)
{
    TexteDeCatalogue texte = PetitCatalogue();
    texte.sensDeTri = "1";
    d.Charger(texte.Texte());
    ASSERT_TRUE(EcrireFichier14(d.doc, false));
    EXPECT_TRUE(Bare().contains("It1=Kind of Blue|Miles Davis|"));
    EXPECT_TRUE(Bare().contains("It2="));
    EXPECT_LT(Bare().indexOf("Miles"), Bare().indexOf("Abba"));
}

struct Page : Puits
{
    QByteArray texte;
    bool Recevoir(const char* octets, size_t taille) override
    {
        texte.append(octets, static_cast<qsizetype>(taille));
        return true;
    }
};

TEST_F(Ecriture, TheTextWrittenInStepsIsTheSame)
{
    Page page;
    TexteDeCatalogue texte = PetitCatalogue();
    texte.entrees += {"Non|Nougaro||", "Oui|Oum||", "Zut|Piaf||"};
    d.Charger(texte.Texte());
    ASSERT_EQ(d.doc.ColCount(), 3);
    for (const int pas : {1, 2, 3, 5, 2000000000}) {
        page.texte.clear();
        RedacteurQrt redacteur(d.doc, "2", EntreesEcrites::Toutes, stockage::Codage::Cp1252, page);
        int pasFaits = 1;
        while (redacteur.Avancer(pas))
            ++pasFaits;
        EXPECT_EQ(redacteur.Finir(), 0) << pas;
        // Entries come in the step that the last column is written in.
        const int avant = (3 + pas - 1) / pas - 1;
        EXPECT_EQ(pasFaits, avant + (pas >= 5 ? 1 : (5 + pas - 1) / pas)) << pas;
        EXPECT_EQ(page.texte, d.dossier.Lire("Zelvane.qrt")) << pas;
    }
}

TEST_F(Ecriture, AnyNumberOfColumnsIsWrittenInStepsToo)
{
    for (int i = 0; i < 30'000; ++i)
        d.table.ColumnHeaders.Add(0, QStringLiteral("une colonne parmi d'autres"));
    AjouterEntrees(d.table, {{"un"}});
    Page page;
    RedacteurQrt redacteur(d.doc, "2", EntreesEcrites::Toutes, stockage::Codage::Utf8, page);
    EXPECT_TRUE(redacteur.Avancer(100));
    EXPECT_TRUE(page.texte.isEmpty()) << "a hundred fit into the writer's buffer";
    while (redacteur.Avancer(100)) {
    }
    EXPECT_EQ(redacteur.Finir(), 0);
    EXPECT_TRUE(page.texte.contains("\r\nColum30000=une colonne parmi d'autres|1440|\r\nDependant=0\r\n"));
    EXPECT_TRUE(page.texte.contains("\r\nCount=1\r\nIt1=un|"));
}

TEST_F(Ecriture, WithoutColumnsNothingIsTouched)
{
    sortie.Ecrire("essai.qrt", "ancien");
    EXPECT_FALSE(EcrireFichier(d.doc, false));
    EXPECT_FALSE(EcrireFichier14(d.doc, false));
    EXPECT_EQ(Bare(), "ancien");
    EXPECT_FALSE(d.dossier.Existe("Zelvane.qrt"));
}

TEST_F(Ecriture, ALoadedEntryWithMissingFieldsIsWrittenWithAllOfThem)
{
    TexteDeCatalogue texte = PetitCatalogue();
    texte.entrees = {"court", "a|b|c|i.jpg|trop"};
    d.Charger(texte.Texte());
    ASSERT_TRUE(EcrireFichier14(d.doc, false));
    EXPECT_TRUE(Bare().contains("=court|||\r\n"));
    EXPECT_TRUE(Bare().contains("=a|b|c|i.jpg\r\n"));
}

TEST_F(Ecriture, WhatWouldBreakALineOfTheFileIsAnotherSignThere)
{
    d.Charger(PetitCatalogue().Texte());
    ListItem entree = d.table.ListItems(1);
    entree.SetText("a|b");
    entree.SetSubItems(1, "c\nd\re");
    entree.SetTag("f|g.jpg");
    for (const bool archive : {false, true}) {
        ASSERT_TRUE(archive ? EcrireFichier(d.doc, false) : EcrireFichier14(d.doc, false));
        const QByteArray texte = archive ? d.dossier.Lire("Zelvane.qrt") : Bare();
        EXPECT_TRUE(texte.contains("It1=a\xA6"
                                   "b|c d e|"))
            << texte.constData();
        EXPECT_TRUE(texte.contains("|f\xA6g.jpg\r\n")) << texte.constData();
    }
    EXPECT_EQ(entree.Text(), "a|b") << "in the table it stands as it is";
}

TEST_F(Ecriture, TheAddedLoanColumnIsWrittenWithEveryEntry)
{
    TexteDeCatalogue texte = PetitCatalogue();
    texte.colonnes = {"Titre|1|", "Artiste|1|"};
    texte.entrees = {"a|b|i.jpg"};
    d.Charger(texte.Texte());
    ASSERT_TRUE(EcrireFichier14(d.doc, false));
    EXPECT_TRUE(Bare().contains("It1=a|b||i.jpg\r\n"));
}

TEST_F(Ecriture, ASelectionIsNumberedFromOneAndHasNoImages)
{
    TexteDeCatalogue texte = PetitCatalogue();
    d.Charger(texte.Texte());
    EXPECT_FALSE(EcrireFichier14(d.doc, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg64"));
    d.table.ListItems(2).SetSelected(true);
    ASSERT_TRUE(EcrireFichier14(d.doc, true));
    EXPECT_TRUE(Bare().endsWith("Count=1\r\nIt1=Kind of Blue|Miles Davis|\xC9ric - 01/02/2026\r\n"));
}

TEST_F(Ecriture, AnArchiveHoldsTheWholeFolderAndForeignToolsAgree)
{
    d.dossier.Ecrire("b.jpg", QByteArray(5000, 'x'));
    d.dossier.Ecrire("orpheline.bmp", "y");
    d.dossier.Ecrire("Zelvane.txt", "Un commentaire");
    d.Charger(PetitCatalogue().Texte());
    sortie.Ecrire("essai.qrt", "ancien");
    ASSERT_EQ(d.doc.Ecrire(false), IssueEcriture::Entiere);
    EXPECT_FALSE(d.doc.GardeDossier());

    const QString chemin = d.doc.CheminReel();
    EXPECT_TRUE(Bare().startsWith("PK\x03\x04"));
    EXPECT_TRUE(Sortie("unzip", {"-t", chemin}).contains("No errors detected"));
    EXPECT_TRUE(Sortie("zipinfo", {"-z", chemin}).contains("Zelvane v2.2 by Morvenal"));
    EXPECT_EQ(Sortie("/usr/bin/python3", {"-c",
                                          "import sys, zipfile; archive = zipfile.ZipFile(sys.argv[1]); "
                                          "print(archive.testzip(), archive.comment.decode('cp1252'))",
                                          chemin}),
              "None Zelvane v2.2 by Morvenal\n");
    QStringList noms = QString::fromUtf8(Sortie("zipinfo", {"-1", chemin})).split(u'\n', Qt::SkipEmptyParts);
    noms.sort();
    EXPECT_EQ(noms, QStringList({"Zelvane.qrt", "Zelvane.txt", "b.jpg", "orpheline.bmp"}));
    EXPECT_EQ(Sortie("unzip", {"-p", chemin, "Zelvane.qrt"}), TexteDuDossier());
    EXPECT_EQ(TexteDuDossier(), PetitCatalogue().Texte());
}

TEST_F(Ecriture, AFolderOfTheWorkingFolderIsNoLoss)
{
    d.dossier.Ecrire("sous/x.jpg", "x");
    d.Charger(PetitCatalogue().Texte());
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_FALSE(d.doc.GardeDossier());
}

TEST_F(Ecriture, AnArchiveThatCannotBeWrittenIsToldAndItsFolderKept)
{
    d.Charger(PetitCatalogue().Texte());
    d.doc.SetCheminReel(sortie.Fichier("absent/essai.qrt"));
    EXPECT_EQ(d.doc.Ecrire(false), IssueEcriture::Incomplete);
    EXPECT_TRUE(d.doc.GardeDossier());
    EXPECT_TRUE(EcrireFichier(d.doc, false)) << "the data live in the folder now";
    MsgArchiveIncomplete(d.doc);
    ASSERT_EQ(messages.Cles(), QStringList("msgArchive"));
    EXPECT_TRUE(messages.Affiches().first().message.texte.contains(d.doc.TmpFolder));
    d.doc.SetCheminReel(sortie.Fichier("essai.qrt"));
    EXPECT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_FALSE(d.doc.GardeDossier());
}

TEST_F(Ecriture, ATextThatCannotBeWrittenLeavesTheOldFileAlone)
{
    d.Charger(PetitCatalogue().Texte());
    sortie.Ecrire("essai.qrt", "ancien");
    d.doc.TmpFolder = d.dossier.Fichier("absent/");
    EXPECT_EQ(d.doc.Ecrire(false), IssueEcriture::RienTouche);
    EXPECT_FALSE(EcrireFichier(d.doc, false));
    EXPECT_EQ(Bare(), "ancien");
    d.doc.SetCheminReel(sortie.Fichier("absent/essai.qrt"));
    EXPECT_FALSE(EcrireFichier14(d.doc, false));
}

TEST_F(Ecriture, AFullDiskIsSeen)
{
    struct Plein : Puits
    {
        size_t reste = 100;
        bool Recevoir(const char*, size_t taille) override
        {
            if (taille > reste)
                return false;
            reste -= taille;
            return true;
        }
    } plein;
    d.Charger(PetitCatalogue().Texte());
    EXPECT_FALSE(EcrireTexteQrt(d.doc, "2", EntreesEcrites::Toutes, stockage::Codage::Cp1252, plein).has_value());
}

TEST_F(Ecriture, ADeviceIsWrittenToAndItsRefusalSeen)
{
    d.Charger(PetitCatalogue().Texte());
    d.doc.SetCheminReel("/dev/full");
    EXPECT_FALSE(EcrireFichier14(d.doc, false));
    d.doc.SetCheminReel("/dev/null");
    EXPECT_TRUE(EcrireFichier14(d.doc, false));
    EXPECT_FALSE(QFileInfo("/dev/null").isFile()) << "the device itself is still there";
}

// ---- Characters outside the code page

TEST_F(Ecriture, ExactTextGoesBesideTheReducedOneAndComesBack)
{
    d.Charger(PetitCatalogue().Texte());
    d.table.ListItems(1).SetText("日本 – Łódź 𝄞");
    d.table.ColumnHeaders(2).SetText("Artiste ♪");
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_TRUE(TexteDuDossier().contains("It1=?? \x96 ?\xF3"
                                          "d? ?|Abba||\r\n"));
    EXPECT_TRUE(TexteDuDossier().contains("Artiste ?|3300|"));
    EXPECT_TRUE(d.dossier.Lire("Zelvane.utf8").contains("It1=日本 – Łódź 𝄞|Abba||\r\n"));
    EXPECT_TRUE(Sortie("zipinfo", {"-1", d.doc.CheminReel()}).contains("Zelvane.utf8"));

    ChargerFichier(d.doc);
    EXPECT_EQ(d.table.ListItems(1).Text(), "日本 – Łódź 𝄞");
    EXPECT_EQ(d.table.ColumnHeaders(2).Text(), "Artiste ♪");
    EXPECT_EQ(d.table.ListItems(2).Valeur(3), "Éric - 01/02/2026");
    const QByteArray premier = TexteDuDossier(), exact = d.dossier.Lire("Zelvane.utf8");
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_EQ(TexteDuDossier(), premier);
    EXPECT_EQ(d.dossier.Lire("Zelvane.utf8"), exact);
}

// It stands at the beginning of what some programs put into the clipboard.
TEST_F(Ecriture, AByteOrderMarkInAValueDoesNotSpoilTheExactText)
{
    d.Charger(PetitCatalogue().Texte());
    d.table.ListItems(1).SetText(QStringLiteral("\uFEFF日本"));
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    ChargerFichier(d.doc);
    EXPECT_EQ(d.table.ListItems(1).Text(), QStringLiteral("\uFEFF日本"));
}

TEST_F(Ecriture, ATextThatFitsNeedsNoSecondFile)
{
    d.Charger(PetitCatalogue().Texte());
    d.table.ListItems(1).SetText("日本");
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_TRUE(d.dossier.Existe("Zelvane.utf8"));
    d.table.ListItems(1).SetText("Japon");
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_FALSE(d.dossier.Existe("Zelvane.utf8"));
}

TEST_F(Ecriture, AnExactTextThatAnotherProgramOutdatedIsIgnored)
{
    d.Charger(PetitCatalogue().Texte());
    d.table.ListItems(1).SetText("日本");
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    d.dossier.Ecrire("Zelvane.qrt", TexteDuDossier().replace("Abba", "Toto"));
    ChargerFichier(d.doc);
    EXPECT_EQ(d.table.ListItems(QStringLiteral("k1")).Valeurs(), QStringList({"??", "Toto", ""}));
}

TEST_F(Ecriture, AnExactCommentSurvivesASaveOfTheTable)
{
    d.Charger(PetitCatalogue().Texte());
    d.dossier.Ecrire("Zelvane.txt", "Mes ?? pr\xE9"
                                    "f\xE9r\xE9s");
    d.dossier.Ecrire("Zelvane.utf8", QString::fromLatin1(PetitCatalogue().Texte()).toUtf8() + TexteExact::Separateur() +
                                         QByteArray("Mes ★★ préférés"));
    EXPECT_EQ(TexteExact::LireCommentaire(d.doc.TmpFolder), QStringLiteral("Mes ★★ préférés"));
    d.table.ListItems(1).SetText("Autre");
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_EQ(TexteExact::LireCommentaire(d.doc.TmpFolder), QStringLiteral("Mes ★★ préférés"));
    d.dossier.Ecrire("Zelvane.txt", "Neuf");
    EXPECT_EQ(TexteExact::LireCommentaire(d.doc.TmpFolder), QStringLiteral("Neuf"));
}

TEST_F(Ecriture, OnlyTextsBeyondTheCodePageAskForTheExactForm)
{
    d.Charger(PetitCatalogue().Texte());
    EXPECT_FALSE(TexteDepasseLaPage(d.doc));
    d.table.ListItems(1).SetText("œ€Ÿ…");
    EXPECT_FALSE(TexteDepasseLaPage(d.doc));
    d.table.ListItems(1).SetTag("☃.jpg");
    EXPECT_TRUE(TexteDepasseLaPage(d.doc));
}

TEST_F(Ecriture, TheUserIsAskedBeforeFormFourteenLosesCharacters)
{
    d.Charger(PetitCatalogue().Texte());
    EXPECT_TRUE(AccepterPerteDeCaracteres(d.doc));
    EXPECT_TRUE(messages.Affiches().isEmpty());
    d.table.ListItems(1).SetText("日本");
    messages.Preparer(RepNon);
    EXPECT_FALSE(AccepterPerteDeCaracteres(d.doc));
    messages.Preparer(RepOui);
    EXPECT_TRUE(AccepterPerteDeCaracteres(d.doc));
    EXPECT_EQ(messages.Affiches().first().genre, MsgOuiNon);
}

TEST(TexteExact, TellsWhereTheReducedTextEnds)
{
    EXPECT_EQ(TexteExact::FinDuTexteReduit("abc", "ab"), 2);
    EXPECT_EQ(TexteExact::FinDuTexteReduit("é𝄞x", "\xE9?"), 6);
    EXPECT_EQ(TexteExact::FinDuTexteReduit("", ""), 0);
    EXPECT_FALSE(TexteExact::FinDuTexteReduit("ab", "abc").has_value());
    EXPECT_FALSE(TexteExact::FinDuTexteReduit("xb", "ab").has_value());
    for (const QByteArray faux : {"\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xE2\x82"})
        EXPECT_FALSE(TexteExact::FinDuTexteReduit(faux, "?").has_value()) << faux.toHex().toStdString();
}
