#include "output/OptionsDImpression.h"

#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class OptionsDImpressionTest : public testing::Test
{
protected:
    void Ecrire(const QByteArray& lignes) const { dossier.Ecrire("print.ini", "[Impression]\r\n" + lignes); }
    /// Of one column (from 1) among others.
    double Largeur(int colonne, double defaut) const
    {
        return options.Largeurs(std::vector<double>(static_cast<size_t>(colonne), defaut)).back();
    }
    QByteArray Fichier() const { return dossier.Lire("print.ini"); }

    DossierDeTest dossier;
    OptionsDImpression options{dossier.Chemin()};
};

} // namespace

TEST_F(OptionsDImpressionTest, WithoutAFileEachHasItsDefault)
{
    EXPECT_EQ(options.AffImg(), 1);
    EXPECT_EQ(options.ImgDefaut(), 0);
    EXPECT_EQ(options.Titre(), "Zelvane v2.2 by Morvenal");
    EXPECT_EQ(options.Texte(), "%titre% - %nb% %nomcat%");
    EXPECT_FALSE(options.SelectionSeule());
    EXPECT_EQ(Largeur(3, 12.5), 12.5);
    EXPECT_FALSE(QFile::exists(dossier.Fichier("print.ini"))) << "reading writes nothing";
    EXPECT_EQ(options.FichierImage(), dossier.Fichier("print.image"));
}

TEST_F(OptionsDImpressionTest, EachIsReadFromItsKey)
{
    Ecrire("AffImg=0\r\nImgDefaut=1\r\nTitre=Mes disques\r\nTexte=%nb%\r\nSelOnly=1\r\nColWidth2=7.25\r\n");
    EXPECT_EQ(options.AffImg(), 0);
    EXPECT_EQ(options.ImgDefaut(), 1);
    EXPECT_EQ(options.Titre(), "Mes disques");
    EXPECT_EQ(options.Texte(), "%nb%");
    EXPECT_TRUE(options.SelectionSeule());
    EXPECT_EQ(Largeur(2, 12.5), 7.25);
    EXPECT_EQ(Largeur(1, 12.5), 12.5) << "a column without a key";
}

TEST_F(OptionsDImpressionTest, EachIsWrittenUnderItsKey)
{
    options.EcrireTextes(u"Mes disques"_s, u"%nb% pièces"_s);
    options.EcrireImage(true, false);
    options.EcrireSelectionSeule(true);
    options.EcrireLargeurs({30, 12.3456});
    EXPECT_EQ(Fichier(), "[Impression]\r\nTexte=%nb% pi\xe8"
                         "ces\r\nTitre=Mes disques\r\nAffImg=1\r\nImgDefaut=0\r\nSelOnly=1\r\n"
                         "ColWidth1=30.000\r\nColWidth2=12.346\r\n");
    options.EcrireImage(false, true);
    options.EcrireSelectionSeule(false);
    EXPECT_EQ(options.AffImg(), 0);
    EXPECT_EQ(options.ImgDefaut(), 1);
    EXPECT_FALSE(options.SelectionSeule());
}

TEST_F(OptionsDImpressionTest, WidthsHaveAPointAndStayWithinReason)
{
    Ecrire("ColWidth1=12,5\r\nColWidth2=-4\r\nColWidth3=99999999999999999999\r\nColWidth4=large\r\nColWidth5="
           "0\r\nColWidth7=\r\n");
    EXPECT_EQ(Largeur(1, 3), 12) << "a comma ends the number";
    EXPECT_EQ(Largeur(2, 3), 0);
    EXPECT_EQ(Largeur(3, 3), OptionsDImpression::LargeurMax);
    EXPECT_EQ(Largeur(4, 3), 0);
    EXPECT_EQ(Largeur(5, 3), 0) << "left out by the user";
    EXPECT_EQ(Largeur(6, -3), 0);
    EXPECT_EQ(Largeur(7, 3), 0) << "a key without a number has none";
}

TEST_F(OptionsDImpressionTest, WidthsOfManyColumnsAreReadInOnePass)
{
    Ecrire(
        "colwidth2=7\r\nColWidth2=8\r\nColWidth02=9\r\nColWidth=3\r\nColWidth+1=4\r\nColWidth0=5\r\nColWidth12x=6\r\n"
        "ColWidth99999999999999999999=1\r\nColWidth3=\"12.5\"\r\nColWidt\r\n");
    EXPECT_EQ(options.Largeurs({1, 1, 1}), std::vector<double>({1, 7, 12.5})) << "the first of a name, in any case";
    EXPECT_EQ(options.Largeurs({}), std::vector<double>());
}

TEST_F(OptionsDImpressionTest, OtherNumbersOfSelOnlyAreAll)
{
    for (const char* valeur : {"2", "-1", "oui", "0"}) {
        Ecrire(QByteArray("SelOnly=") + valeur + "\r\n");
        EXPECT_FALSE(options.SelectionSeule()) << valeur;
    }
}

TEST_F(OptionsDImpressionTest, BlanksAndQuotesAtTheEndsOfATextStay)
{
    for (const QString& texte : {u"  Mes disques "_s, u"\"Mes disques\""_s, u"'Mes disques'"_s, u"\""_s, QString()}) {
        options.EcrireTextes(texte, u"%nb%"_s);
        EXPECT_EQ(options.Titre(), texte) << texte.toStdString();
    }
}

TEST_F(OptionsDImpressionTest, CharactersThatTheCodePageLacksStay)
{
    options.EcrireTextes(u"Жизнь = 100 %"_s, u"%titre%"_s);
    EXPECT_TRUE(Fichier().contains("Titre=????? = 100 %\r\n")) << Fichier().toStdString();
    EXPECT_EQ(options.Titre(), u"Жизнь = 100 %"_s);

    plateforme().ini->Ecrire(dossier.Fichier("print.ini"), u"Impression"_s, u"Titre"_s, u"Vie"_s);
    EXPECT_EQ(options.Titre(), "Vie") << "another program changed it";
    options.EcrireTextes(u"Vie"_s, u"%titre%"_s);
    EXPECT_FALSE(Fichier().contains("utf8"));
}

TEST_F(OptionsDImpressionTest, AFileThatCannotBeWrittenStays)
{
    plateforme().ini = &PlateformeDeTest::Courante().iniEnMemoire;
    PlateformeDeTest::Courante().iniEnMemoire.proteges.insert(dossier.Fichier("print.ini"));
    options.EcrireTextes(u"Mes disques"_s, u"%nb%"_s);
    options.EcrireLargeurs({10});
    EXPECT_EQ(options.Titre(), "Zelvane v2.2 by Morvenal");
    EXPECT_EQ(Largeur(1, 5), 5);
}

TEST_F(OptionsDImpressionTest, ComparisonsShareThoseOfTheProgramsFolder)
{
    OptionsDImpression(u"c:\\"_s).EcrireLargeurs({10});
    EXPECT_EQ(OptionsDImpression(u"c:\\"_s).Largeurs({5}), std::vector<double>({10}));
    EXPECT_EQ(PlateformeDeTest::Courante().dossier.Lire("print.ini"), "[Impression]\r\nColWidth1=10.000\r\n");
}

TEST(TexteDEntete, ReplacesEachNameInAnyCaseWhereverItStands)
{
    EXPECT_EQ(TexteDEntete(u"%titre% - %nb% %nomcat%"_s, u"Mes disques"_s, u"12"_s, u"jazz.qrt"_s),
              "Mes disques - 12 jazz.qrt");
    EXPECT_EQ(TexteDEntete(u"%NB%/%nb% %Titre%%TITRE% %NomCat% %x%"_s, u"T"_s, u"3"_s, u"c"_s), "3/3 TT c %x%");
}

TEST(TexteDEntete, WhatTheTitlePutsInIsReplacedToo)
{
    EXPECT_EQ(TexteDEntete(u"%titre%"_s, u"%nb% de %nomcat%"_s, u"3"_s, u"%nb%"_s), "3 de %nb%");
}
