#include "base/Const_Vrac.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

namespace {

struct CasOption
{
    const char* texte;
    double nombre;
    bool egale;
};

TEST(LireOption, GivesTheDefaultAsGivenWhenNothingIsStored)
{
    EXPECT_EQ(LireOption("VerrifAssociation", 1), QVariant(1));
    EXPECT_EQ(LireOption("FontSize", 8.25), QVariant(8.25));
    EXPECT_EQ(LireOption("FusionnerCol", "_-_"), QVariant("_-_"));
}

TEST(LireOption, GivesTheStoredTextWhateverTheDefault)
{
    EcrireOption("SizeForm1", 2);

    EXPECT_EQ(LireOption("SizeForm1", 0), QVariant("2"));
    EXPECT_EQ(LireOption("SizeForm1", "x"), QVariant("2"));
}

TEST(LireOption, GivesAnEmptyTextThatWasStored)
{
    EcrireOption("FRecent1", "");

    EXPECT_EQ(LireOption("FRecent1", "x"), QVariant(""));
}

TEST(LireOption, TakesKeysInAnyCase)
{
    EcrireOption("OpenlastFile", 1);

    EXPECT_EQ(LireOption("OpenLastFile", 0), QVariant("1"));
}

TEST(LireOption, ReadsTheSectionOptions)
{
    PlateformeDeTest::Courante().reglages.Ecrire("HwndInstance", "Hwnd", "7");
    PlateformeDeTest::Courante().reglages.Ecrire("Options", "AffImg", "1");

    EXPECT_EQ(LireOption("Hwnd", 0), QVariant(0));
    EXPECT_EQ(LireOption("AffImg", 0), QVariant("1"));
}

TEST(EcrireOption, StoresTexts)
{
    EcrireOption("a", 8.25);
    EcrireOption("b", -1);
    EcrireOption("c", "x y");
    EcrireOption("d", true);
    EcrireOption("e", false);

    EXPECT_EQ(LireOption("a", 0), QVariant("8.25"));
    EXPECT_EQ(LireOption("b", 0), QVariant("-1"));
    EXPECT_EQ(LireOption("c", 0), QVariant("x y"));
    EXPECT_EQ(LireOption("d", 0), QVariant("1"));
    EXPECT_EQ(LireOption("e", 0), QVariant("0"));
}

TEST(OptionEgale, ComparesAsNumbers)
{
    for (const CasOption& cas : {CasOption{"1", 1, true},
                                 {"01", 1, true},
                                 {" 1 ", 1, true},
                                 {"1,0", 1, true},
                                 {"8,25", 8.25, true},
                                 {"8.25", 8.25, true},
                                 {"2", 1, false},
                                 {"-1", 1, false}}) {
        EXPECT_EQ(OptionEgale(QString(cas.texte), cas.nombre), cas.egale) << cas.texte;
    }
}

TEST(OptionEgale, IsFalseForATextThatIsNoNumber)
{
    for (const char* texte : {"", "x", "1x", "Vrai", "un"}) {
        EXPECT_FALSE(OptionEgale(QString(texte), 1)) << texte;
        EXPECT_FALSE(OptionEgale(QString(texte), 0)) << texte;
    }
    EXPECT_FALSE(OptionEgale(QVariant(), 0));
}

TEST(OptionEgale, TakesDefaultsThatAreNumbers)
{
    EXPECT_TRUE(OptionEgale(1, 1));
    EXPECT_FALSE(OptionEgale(0, 1));
    EXPECT_TRUE(OptionEgale(8.25, 8.25));
}

TEST(LireIni, GivesTheDefaultForWhatIsMissing)
{
    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
    const QString fichier = dossier.Ecrire("a.ini", "[s]\nk=1\nvide=\n");

    EXPECT_EQ(LireIni(fichier, "s", "k", "x"), "1");
    EXPECT_EQ(LireIni(fichier, "s", "vide", "x"), "");
    EXPECT_EQ(LireIni(fichier, "s", "l", "x"), "x");
    EXPECT_EQ(LireIni(fichier, "t", "k", "x"), "x");
    EXPECT_EQ(LireIni(dossier.Fichier("none.ini"), "s", "k", "x"), "x");
}

TEST(LireIni, GivesTheDefaultForAFileThatCannotBeRead)
{
    PlateformeDeTest& test = PlateformeDeTest::Courante();
    plateforme().ini = &test.iniEnMemoire;
    test.iniEnMemoire.fermes = {"ferme"};
    test.iniEnMemoire.casses = {"casse"};

    EXPECT_EQ(LireIni("ferme", "s", "k", "x"), "x");
    EXPECT_EQ(LireIni("casse", "s", "k", "x"), "x");
}

TEST(LireIni, CutsAValueAt1024Characters)
{
    const QString fichier =
        PlateformeDeTest::Courante().dossier.Ecrire("a.ini", "[s]\nk=" + QByteArray(2000, 'a') + "\n");

    EXPECT_EQ(LireIni(fichier, "s", "k", "").size(), 1024);
}

TEST(EcrireIni, TellsWhetherItWrote)
{
    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;

    EXPECT_TRUE(EcrireIni(dossier.Fichier("a.ini"), "Preter", "count", "1"));
    EXPECT_EQ(LireIni(dossier.Fichier("a.ini"), "preter", "Count", "0"), "1");
    EXPECT_FALSE(EcrireIni(dossier.Fichier("none/a.ini"), "Preter", "count", "1"));
}

TEST(EnregistrerAssociation, IsThePlatforms)
{
    EnregistrerAssociation();

    EXPECT_EQ(PlateformeDeTest::Courante().association.fois, 1);
}

TEST(BoolVersTexte, IsOneOrZero)
{
    EXPECT_EQ(BoolVersTexte(true), "1");
    EXPECT_EQ(BoolVersTexte(false), "0");
}

TEST(TexteVersBool, IsFalseForZeroAlone)
{
    EXPECT_FALSE(TexteVersBool("0"));
    for (const char* texte : {"", "1", "-1", "00", " 0", "False", "x"})
        EXPECT_TRUE(TexteVersBool(texte)) << texte;
}

TEST(LongueurMax, IsTheLargerOfLengthAndNumber)
{
    EXPECT_EQ(LongueurMax("abc", 2), 3);
    EXPECT_EQ(LongueurMax("abc", 3), 3);
    EXPECT_EQ(LongueurMax("abc", 4), 4);
    EXPECT_EQ(LongueurMax("", -1), 0);
}

TEST(PlusGrand, IsTheLargerNumber)
{
    EXPECT_EQ(PlusGrand(1, 2), 2);
    EXPECT_EQ(PlusGrand(2, 1), 2);
    EXPECT_EQ(PlusGrand(-2, -1), -1);
    EXPECT_EQ(PlusGrand(3, 3), 3);
}

TEST(AjouterSlash, LeavesAPathThatHasOne)
{
    EXPECT_EQ(AjouterSlash("/a/b/"), "/a/b/");
    EXPECT_EQ(AjouterSlash("C:\\"), "C:\\");
    EXPECT_EQ(AjouterSlash("/"), "/");
}

TEST(AjouterSlash, AddsOneElsewhere)
{
    EXPECT_EQ(AjouterSlash("/a/b"), "/a/b/");
    EXPECT_EQ(AjouterSlash("C:\\a"), "C:\\a/");
    EXPECT_EQ(AjouterSlash(""), "/");
}

TEST(NomDeFichier, IsWhatFollowsTheLastSeparator)
{
    EXPECT_EQ(NomDeFichier("/a/b.qrt"), "b.qrt");
    EXPECT_EQ(NomDeFichier("C:\\a\\b.qrt"), "b.qrt");
    EXPECT_EQ(NomDeFichier("/a\\b/c"), "c");
    EXPECT_EQ(NomDeFichier("b.qrt"), "b.qrt");
    EXPECT_EQ(NomDeFichier("/a/"), "");
    EXPECT_EQ(NomDeFichier(""), "");
}

TEST(ExtensionDe, IsWhatFollowsTheLastPointInLowerCase)
{
    EXPECT_EQ(ExtensionDe("a.b.QRT"), "qrt");
    EXPECT_EQ(ExtensionDe("Photo.É"), "é");
    EXPECT_EQ(ExtensionDe("a."), "");
    EXPECT_EQ(ExtensionDe(".Profile"), "profile");
}

TEST(ExtensionDe, IsTheWholeNameInLowerCaseWithoutAPoint)
{
    EXPECT_EQ(ExtensionDe("README"), "readme");
    EXPECT_EQ(ExtensionDe(""), "");
}

TEST(PremiereSelection, IsTheTables)
{
    struct Table
    {
        int PremiereSelection() const { return 3; }
    };
    EXPECT_EQ(PremiereSelection(Table()), 3);
}

TEST(DossierProgramme, IsThePlatforms)
{
    plateforme().dossierProgramme = "/opt/zelvane/";

    EXPECT_EQ(DossierProgramme(), "/opt/zelvane/");
    EXPECT_EQ(FichierZelvaneIni(), "/opt/zelvane/Zelvane.ini");
}

} // namespace
