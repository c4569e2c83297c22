#include "catalogue/texte/LectureQrt.h"

#include "platform/PageDeCode.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

namespace {

QStringList Titres(const MyLV& table)
{
    QStringList titres;
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
        titres.append(table.ColumnHeaders(i).Text());
    return titres;
}

QStringList Marques(const MyLV& table)
{
    QStringList marques;
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
        marques.append(table.ColumnHeaders(i).Icon());
    return marques;
}

} // namespace

TEST(ValeurLigne, IsWhatStandsBehindTheFirstEqualsSign)
{
    EXPECT_EQ(ValeurLigne("It1=a=b"), "a=b");
    EXPECT_EQ(ValeurLigne("sans signe"), "sans signe");
    EXPECT_EQ(ValeurLigne("="), "");
    EXPECT_EQ(ValeurLigne(""), "");
}

TEST(ChargerFichier, FillsTheTableFromAWholeFile)
{
    FileDeReponses messages;
    DocumentDeTest d;
    d.dossier.Ecrire("b.jpg", "x");
    TexteDeCatalogue texte;
    texte.grille = "0";
    texte.cleDeTri = "1";
    texte.dependante = "2";
    texte.colonnes = {"Titre|4200,5|", "Artiste|3300.25|rock|jazz", "Prêté|600|"};
    texte.entrees = {"Été|Zazie||", "Kind of Blue|Miles Davis|Éric - 01/02/2026|b.jpg", "Ça|Abba||perdue.gif"};
    d.Charger(texte.Texte());

    EXPECT_TRUE(messages.Affiches().isEmpty());
    EXPECT_EQ(Titres(d.table), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(d.table.ColumnHeaders(1).Width(), 4200.5F);
    EXPECT_EQ(d.table.ColumnHeaders(2).Width(), 3300.25F);
    EXPECT_EQ(d.table.ColumnHeaders(2).Tag(), "rock|jazz");
    EXPECT_FALSE(d.table.GridLines());
    EXPECT_TRUE(d.table.Sorted());
    EXPECT_EQ(d.table.SortKey(), 1);
    EXPECT_EQ(d.table.View(), 3);
    EXPECT_EQ(d.doc.dependantcol, 2);
    EXPECT_EQ(d.doc.IndexColPrete, 3);
    EXPECT_FALSE(d.doc.IlFautSauver);
    EXPECT_EQ(ColonneDe(d.table, 2), QStringList({"Abba", "Miles Davis", "Zazie"}));
    EXPECT_EQ(ClesDe(d.table), QStringList({"k3", "k2", "k1"})) << "a key tells the place in the file";
    EXPECT_EQ(d.table.ListItems(2).Valeurs(), QStringList({"Kind of Blue", "Miles Davis", "Éric - 01/02/2026"}));
    EXPECT_EQ(d.table.ListItems(2).Tag(), "b.jpg");
    EXPECT_EQ(d.table.ListItems(1).SmallIcon(), "icoerror");
    EXPECT_EQ(d.table.ListItems(2).SmallIcon(), "ico");
    EXPECT_EQ(d.table.ListItems(3).SmallIcon(), "noico");
}

TEST(ChargerFichier, TakesACategoryWithoutEntries)
{
    FileDeReponses messages;
    DocumentDeTest d;
    d.Charger(TexteDeCatalogue().Texte());
    EXPECT_EQ(d.doc.ItemsCount(), 0);
    EXPECT_EQ(d.doc.ColCount(), 2);
    EXPECT_TRUE(messages.Affiches().isEmpty());
}

TEST(ChargerFichier, WithoutEntriesReadsTheSameColumnsAndRefusesTheSame)
{
    const FileDeReponses reponses;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"Dummy|"};
    d.dossier.Ecrire("Zelvane.qrt", texte.Texte());
    ChargerFichier(d.doc, Etendue::SansEntrees);
    EXPECT_EQ(d.doc.ColCount(), 2);
    EXPECT_EQ(d.doc.IndexColPrete, 2);
    EXPECT_EQ(d.doc.ItemsCount(), 0);
    EXPECT_EQ(reponses.Cles(), QStringList());

    texte.nombreDEntrees = "2000000000";
    d.dossier.Ecrire("Zelvane.qrt", texte.Texte());
    ChargerFichier(d.doc, Etendue::SansEntrees);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg50"})) << "it announces more than it can hold";
    EXPECT_EQ(d.doc.ColCount(), 0);
}

TEST(ChargerFichier, AWrongTypeLineIsToldAndLeavesAnEmptyTable)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"a||"};
    d.Charger(texte.Texte());
    ASSERT_EQ(d.doc.ItemsCount(), 1);
    for (const QByteArray type : {"Type=QRT FILE ", "Type=qrt file", "Type="}) {
        d.Charger(texte.Texte().replace("Type=QRT FILE", type));
        EXPECT_EQ(d.doc.ItemsCount(), 0);
        EXPECT_EQ(d.doc.ColCount(), 0);
    }
    EXPECT_EQ(messages.Cles(), QStringList({"msg50", "msg50", "msg50"}));
    EXPECT_TRUE(messages.Affiches().first().message.texte.endsWith("n'est pas un fichier qrt valide"));
    EXPECT_EQ(messages.Affiches().first().genre, MsgOk);
}

TEST(ChargerFichier, AMissingOrEmptyFileIsNoCatalogue)
{
    FileDeReponses messages;
    DocumentDeTest d;
    ChargerFichier(d.doc);
    d.Charger("");
    EXPECT_EQ(messages.Cles(), QStringList({"msg50", "msg50"}));
}

TEST(ChargerTexteExact, ReadsATextOutsideTheFolderWithAllItsCharacters)
{
    DocumentDeTest d;
    d.dossier.Ecrire("b.jpg", "x");
    TexteDeCatalogue texte;
    texte.entrees = {"TITRE||b.jpg"};
    const QByteArray utf8 = PageDeCode::VersTexte(texte.Texte()).toUtf8().replace("TITRE", "Пётр и волк");

    ASSERT_TRUE(ChargerTexteExact(d.doc, utf8));

    EXPECT_EQ(d.table.ListItems(1).Text(), "Пётр и волк");
    EXPECT_EQ(d.table.ListItems(1).SmallIcon(), "ico");
    EXPECT_EQ(d.doc.IndexColPrete, 2);
    EXPECT_FALSE(d.dossier.Existe("Zelvane.qrt"));
}

TEST(ChargerTexteExact, RefusesWhatIsNoCatalogueWithoutAMessage)
{
    const FileDeReponses messages;
    DocumentDeTest d;
    EXPECT_FALSE(ChargerTexteExact(d.doc, "autre chose"));
    EXPECT_FALSE(ChargerTexteExact(d.doc, {}));
    EXPECT_FALSE(ChargerDossier(d.doc)) << "nor does the empty folder hold one";
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST(ChargerFichier, TheVersionLineNeverMatters)
{
    FileDeReponses messages;
    DocumentDeTest d;
    for (const char* version : {"2", "1.4", "99", ""}) {
        TexteDeCatalogue texte;
        texte.version = version;
        texte.entrees = {"a||"};
        d.Charger(texte.Texte());
        EXPECT_EQ(ColonneDe(d.table, 1), QStringList("a")) << version;
    }
}

TEST(ChargerFichier, LineEndsMayBeLineFeedsAlone)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"a|x|i", "b|y|"};
    d.Charger(texte.Texte().replace("\r\n", "\n"));
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({"a", "b"}));
    EXPECT_EQ(d.table.ListItems(1).Tag(), "i");
    d.Charger(texte.Texte().chopped(2));
    EXPECT_EQ(ColonneDe(d.table, 2), QStringList({"x", "y"})) << "the last line needs no end";
}

TEST(ChargerFichier, AnythingButZeroIsTrueForGridAndSort)
{
    FileDeReponses messages;
    DocumentDeTest d;
    for (const auto& [valeur, attendu] :
         {std::pair("0", false), {"1", true}, {"", true}, {"non", true}, {"00", true}}) {
        TexteDeCatalogue texte;
        texte.grille = texte.trie = valeur;
        d.Charger(texte.Texte());
        EXPECT_EQ(d.table.GridLines(), attendu) << valeur;
        EXPECT_EQ(d.table.Sorted(), attendu) << valeur;
    }
}

TEST(ChargerFichier, AnUnsortedFileKeepsItsOrder)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.trie = "0";
    texte.entrees = {"b||", "a||"};
    d.Charger(texte.Texte());
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({"b", "a"}));
}

TEST(ChargerFichier, TheViewIsDetailsWhateverTheFileSays)
{
    FileDeReponses messages;
    DocumentDeTest d;
    for (const char* vue : {"0", "1", "rien", "7"}) {
        TexteDeCatalogue texte;
        texte.vue = vue;
        d.Charger(texte.Texte());
        EXPECT_EQ(d.table.View(), 3) << vue;
    }
}

TEST(ChargerFichier, TheSortOrderIsReadByItsLeadingDigits)
{
    FileDeReponses messages;
    DocumentDeTest d;
    for (const auto& [valeur, attendu] : {std::pair("1", 1), {"0", 0}, {"1abc", 1}, {"abc", 0}, {"", 0}}) {
        TexteDeCatalogue texte;
        texte.sensDeTri = valeur;
        d.Charger(texte.Texte());
        EXPECT_EQ(d.table.SortOrder(), attendu) << valeur;
    }
}

TEST(ChargerFichier, ASortOrderThatTheTableRefusesLeavesTheOneBefore)
{
    FileDeReponses messages;
    DocumentDeTest d;
    d.table.SetSortOrder(1);
    TexteDeCatalogue texte;
    texte.sensDeTri = "5";
    d.Charger(texte.Texte());
    EXPECT_EQ(d.table.SortOrder(), 1);
}

TEST(ChargerFichier, AMalformedSortKeyIsTheFirstColumn)
{
    FileDeReponses messages;
    DocumentDeTest d;
    for (const char* cle : {"abc", "", "70000", "1x"}) {
        TexteDeCatalogue texte;
        texte.cleDeTri = cle;
        d.Charger(texte.Texte());
        EXPECT_EQ(d.table.SortKey(), 0) << cle;
    }
}

TEST(ChargerFichier, TheMarkerStandsOnTheSortedColumnWhenAscending)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.cleDeTri = "1";
    d.Charger(texte.Texte());
    EXPECT_EQ(Marques(d.table), QStringList({"", "down"}));
}

TEST(ChargerFichier, TheMarkerStandsOneColumnToTheLeftWhenDescending)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.cleDeTri = "1";
    texte.sensDeTri = "1";
    texte.entrees = {"a|1|", "b|2|"};
    d.Charger(texte.Texte());
    EXPECT_EQ(Marques(d.table), QStringList({"up", ""}));
    EXPECT_EQ(ColonneDe(d.table, 2), QStringList({"2", "1"}));
}

TEST(ChargerFichier, DescendingByTheFirstColumnShowsNoMarkerAndSortsAllTheSame)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.sensDeTri = "1";
    texte.entrees = {"a||", "b||"};
    d.Charger(texte.Texte());
    EXPECT_EQ(Marques(d.table), QStringList({"", ""}));
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({"b", "a"}));
}

TEST(ChargerFichier, AFileWithoutLoanColumnGetsOneThatIsEmpty)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|1000|", "Artiste||x"};
    texte.entrees = {"a|b|i.jpg"};
    d.Charger(texte.Texte());
    EXPECT_EQ(Titres(d.table), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(d.table.ColumnHeaders(3).Width(), 600);
    EXPECT_EQ(d.doc.IndexColPrete, 3);
    EXPECT_TRUE(d.doc.IlFautSauver);
    EXPECT_EQ(d.table.ListItems(1).Valeurs(), QStringList({"a", "b", ""}));
    EXPECT_FALSE(d.table.ListItems(1).ListSubItems(2)) << "the cell was never written";
    EXPECT_EQ(d.table.ListItems(1).Tag(), "i.jpg") << "the image keeps the field number of the file";
}

TEST(ChargerFichier, ALoanColumnInTheMiddleKeepsItsPlaceAndTheLastOneWins)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|1|", "Prêté|600|", "Note|1|"};
    d.Charger(texte.Texte());
    EXPECT_EQ(d.doc.IndexColPrete, 2);
    EXPECT_EQ(d.doc.ColCount(), 3);
    texte.colonnes = {"Prêté|1|", "Prêté|600|", "prêté|1|"};
    d.Charger(texte.Texte());
    EXPECT_EQ(d.doc.IndexColPrete, 2);
}

TEST(ChargerFichier, WithoutColumnsTheLoanColumnIsTheOnlyOne)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.colonnes = {};
    texte.entrees = {"seul|autre"};
    d.Charger(texte.Texte());
    EXPECT_EQ(Titres(d.table), QStringList({"Prêté"}));
    EXPECT_EQ(d.doc.IndexColPrete, 1);
    EXPECT_EQ(d.table.ListItems(1).Text(), "seul");
    EXPECT_EQ(d.table.ListItems(1).Tag(), "seul") << "the image is the field behind the columns of the file";
    EXPECT_EQ(d.table.ListItems(1).SmallIcon(), "icoerror");
}

TEST(ChargerFichier, AColumnWithoutWidthGetsTheUsualOneAndLosesItsTexts)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.colonnes = {"A", "B||textes", "C|700", "D|large|t", "Prêté|-5|"};
    d.Charger(texte.Texte());
    EXPECT_EQ(d.table.ColumnHeaders(1).Width(), 1000);
    EXPECT_EQ(d.table.ColumnHeaders(2).Width(), 1000);
    EXPECT_EQ(d.table.ColumnHeaders(2).Tag(), "");
    EXPECT_EQ(d.table.ColumnHeaders(3).Width(), 700);
    EXPECT_EQ(d.table.ColumnHeaders(3).Tag(), "");
    EXPECT_EQ(d.table.ColumnHeaders(4).Width(), 1440) << "what is no number leaves a new column's width";
    EXPECT_EQ(d.table.ColumnHeaders(4).Tag(), "t");
    EXPECT_EQ(d.table.ColumnHeaders(5).Width(), 1440);
}

TEST(ChargerFichier, AnEqualsSignInAValueSurvivesAndABarMovesWhatFollows)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"E=mc²|x|", "a|b|c|image.jpg", "court"};
    d.Charger(texte.Texte());
    EXPECT_EQ(d.table.ListItems(QStringLiteral("k1")).Text(), "E=mc²");
    EXPECT_EQ(d.table.ListItems(QStringLiteral("k2")).Tag(), "c") << "the fields behind the bar moved by one";
    const ListItem court = d.table.ListItems(QStringLiteral("k3"));
    EXPECT_EQ(court.Valeurs(), QStringList({"court", ""}));
    EXPECT_EQ(court.Tag(), "");
    EXPECT_EQ(court.SmallIcon(), "noico");
    EXPECT_FALSE(court.ListSubItems(1));
}

TEST(ChargerFichier, LinesBetweenTheDependantColumnAndTheEntriesAreSkipped)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.dependante = "abc";
    texte.entrees = {"a||"};
    d.doc.dependantcol = 7;
    d.Charger(texte.Texte().replace("[ListItems]", "Autre=1\r\n[Section]\r\n[ListItems]"));
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList("a"));
    EXPECT_EQ(d.doc.dependantcol, 7) << "what is no number changes nothing";
}

TEST(ChargerFichier, MoreEntriesThanAnnouncedAreIgnored)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"a||", "b||", "c||"};
    texte.nombreDEntrees = "2";
    d.Charger(texte.Texte());
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({"a", "b"}));
}

TEST(ChargerFichier, ACountThatIsNoNumberGivesNoEntries)
{
    FileDeReponses messages;
    DocumentDeTest d;
    for (const char* nombre : {"deux", "-3", "99999999999"}) {
        TexteDeCatalogue texte;
        texte.entrees = {"a||"};
        texte.nombreDEntrees = nombre;
        d.Charger(texte.Texte());
        EXPECT_EQ(d.doc.ItemsCount(), 0) << nombre;
    }
    EXPECT_TRUE(messages.Affiches().isEmpty());
}

TEST(ChargerFichier, FewerEntriesThanAnnouncedRepeatTheLastLine)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"a|1|", "b|2|i"};
    texte.nombreDEntrees = "5";
    d.Charger(texte.Texte());
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({"a", "b", "b", "b", "b"}));
    EXPECT_EQ(ClesDe(d.table), QStringList({"k1", "k2", "k3", "k4", "k5"}));
    EXPECT_EQ(d.table.ListItems(5).Tag(), "i");
    d.table.ListItems(5).SetText("à part");
    EXPECT_EQ(d.table.ListItems(4).Text(), "b") << "a copy is an entry of its own";
}

TEST(ChargerFichier, EntriesAnnouncedWithoutAnyLineRepeatTheCount)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.nombreDEntrees = "2";
    d.Charger(texte.Texte());
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({"2", "2"})) << "the last line read is the one with the count";
}

TEST(ChargerFichier, FewerColumnsThanAnnouncedRepeatTheLastLineAndSoDoesTheRest)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|700|x"};
    texte.nombreDeColonnes = "3";
    const QByteArray tout = texte.Texte();
    d.Charger(tout.left(tout.indexOf("Dependant=")));
    EXPECT_EQ(Titres(d.table), QStringList({"Titre", "Titre", "Titre", "Prêté"}));
    EXPECT_EQ(d.table.ColumnHeaders(3).Width(), 700);
    EXPECT_EQ(d.doc.dependantcol, 0);
    EXPECT_EQ(d.doc.ItemsCount(), 0) << "\"Titre|700|x\" is no number of entries";
}

TEST(ChargerFichier, AFileCutBehindTheDependantColumnTakesItsNumberForTheCount)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.dependante = "2";
    const QByteArray tout = texte.Texte();
    d.Charger(tout.left(tout.indexOf("\r\n[ListItems]") - 2));
    EXPECT_EQ(d.doc.dependantcol, 2);
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({"2", "2"}));
}

TEST(ChargerFichier, AFileCutBehindItsTypeStillGivesATable)
{
    FileDeReponses messages;
    DocumentDeTest d;
    d.Charger("[FileInfo]\r\nType=QRT FILE");
    EXPECT_EQ(Titres(d.table), QStringList({"Prêté"}));
    EXPECT_TRUE(d.table.GridLines()) << "the value of the last line read is not 0";
    EXPECT_TRUE(messages.Affiches().isEmpty());
}

TEST(ChargerFichier, CopiesAreBoundedBeforeMemoryIsSpentOnThem)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"a||"};
    const int lignes = 13 + 2 + 4 + 1;

    texte.nombreDEntrees = QByteArray::number(1 + lignes + 1000000);
    d.Charger(texte.Texte());
    EXPECT_EQ(d.doc.ItemsCount(), 1 + lignes + 1000000);
    EXPECT_TRUE(messages.Affiches().isEmpty());

    texte.nombreDEntrees = QByteArray::number(2 + lignes + 1000000);
    d.Charger(texte.Texte());
    EXPECT_EQ(d.doc.ItemsCount(), 0);
    EXPECT_EQ(d.doc.ColCount(), 0);

    texte.nombreDEntrees = "2147483647";
    d.Charger(texte.Texte());
    texte.nombreDEntrees = "1";
    texte.nombreDeColonnes = "2147483647";
    d.Charger(texte.Texte());
    EXPECT_EQ(d.doc.ColCount(), 0);
    EXPECT_EQ(messages.Cles(), QStringList({"msg50", "msg50", "msg50"}));
}

TEST(ChargerFichier, ImageNamesWithSeparatorsAndFoldersAreNoFiles)
{
    FileDeReponses messages;
    DocumentDeTest d;
    d.dossier.Ecrire("sous/x.jpg", "x");
    d.dossier.Ecrire("é.jpg", "x");
    TexteDeCatalogue texte;
    texte.trie = "0";
    texte.entrees = {"a||sous/x.jpg", "b||sous", "c||../x", "d||.", "e||é.jpg", "f||É.jpg", "g||sous\\x.jpg"};
    d.Charger(texte.Texte());
    QStringList icones;
    for (int i = 1; i <= 7; ++i)
        icones.append(d.table.ListItems(i).SmallIcon());
    EXPECT_EQ(icones, QStringList({"icoerror", "icoerror", "icoerror", "icoerror", "ico", "icoerror", "icoerror"}));
}

TEST(ChargerFichier, EveryByteOfTheCodePageSurvives)
{
    FileDeReponses messages;
    DocumentDeTest d;
    QByteArray octets;
    for (int octet = 1; octet < 256; ++octet)
        if (octet != '\n' && octet != '\r' && octet != '|')
            octets.append(static_cast<char>(octet));
    TexteDeCatalogue texte;
    QByteArray fichier = texte.Texte();
    fichier.chop(3);
    fichier += "1\r\nIt1=" + octets + "||\r\n";
    d.Charger(fichier);
    EXPECT_EQ(d.table.ListItems(1).Text(), PageDeCode::VersTexte(octets));
}

TEST(ChargerFichier, ASecondLoadReplacesTheFirst)
{
    FileDeReponses messages;
    DocumentDeTest d;
    TexteDeCatalogue texte;
    texte.entrees = {"a||", "b||"};
    d.Charger(texte.Texte());
    d.table.ListItems(1).SetText("édité");
    texte.entrees = {"c||"};
    d.Charger(texte.Texte());
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList("c"));
    EXPECT_EQ(d.doc.ColCount(), 2);
}
