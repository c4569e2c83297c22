#include "DevinerCsv.h"

#include "ValeurCsv.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QBuffer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

FormatCsv Devine(QByteArray octets, const QString& extension = u"csv"_s)
{
    QBuffer texte(&octets);
    texte.open(QIODevice::ReadOnly);
    return DevinerFormat(texte, extension);
}

ApercuCsv Apercu(QByteArray octets, const FormatCsv& format = {})
{
    QBuffer texte(&octets);
    texte.open(QIODevice::ReadOnly);
    return LireApercu(texte, format);
}

QChar Separateur(const QByteArray& octets, const QString& extension = u"csv"_s)
{
    return Devine(octets, extension).separateur;
}

} // namespace

TEST(DevinerFormat, TheSeparatorMakesTheRowsAlike)
{
    EXPECT_EQ(Separateur("a,b,c\nd,e,f\n"), u',');
    EXPECT_EQ(Separateur("a;b\nc;d\n"), u';');
    EXPECT_EQ(Separateur("a\tb, c\nd\te\n"), u'\t');
    EXPECT_EQ(Separateur("a|b\nc|d\n"), u'|');
    EXPECT_EQ(Separateur("prix;poids\n1,5;2,3\n2,0;1,1\n"), u';') << "decimal commas";
    EXPECT_EQ(Separateur("titre,note\n\"a;b\",c\n\"d;e\",f\n"), u',') << "within quotes";
    EXPECT_EQ(Separateur("nom,notes\nun,a; b; c\ndeux,d\ntrois,e; f\n"), u',');
}

TEST(DevinerFormat, OneColumnTakesTheSeparatorOfTheExtension)
{
    EXPECT_EQ(Separateur("a\nb\n"), u',');
    EXPECT_EQ(Separateur("a\nb\n", u"tsv"_s), u'\t');
    EXPECT_EQ(Separateur(""), u',');
}

TEST(DevinerFormat, QuotesAreThoseAroundFields)
{
    EXPECT_EQ(Devine("a,\"b\"\n\"c\",d\n").guillemet, u'"');
    EXPECT_EQ(Devine("a,b\nc,d\n").guillemet, u'"') << "none at all";
    EXPECT_EQ(Devine("'a,1','b'\n'c','d,2'\n").guillemet, u'\'');
    EXPECT_EQ(Devine("titre,lieu\nl'été,ici\nd'ici,'là\n").guillemet, u'"') << "apostrophes";
    EXPECT_EQ(Devine("a\tb\n\"c\td\n\"e\tf\n\"g\th\n", u"tsv"_s).guillemet, QChar()) << "they never end";
}

TEST(DevinerFormat, TitlesAreNames)
{
    EXPECT_TRUE(Devine("Titre,Année\nAja,1977\n").entete);
    EXPECT_TRUE(Devine("Titre,Artiste\nAja,Steely Dan\n").entete);
    EXPECT_TRUE(Devine(",Titre\n1,Aja\n").entete) << "a first column without a title";
    EXPECT_FALSE(Devine("Aja,1977\nBlue,1971\n").entete) << "a number";
    EXPECT_FALSE(Devine("Aja,12/03/1977\nBlue,1971\n").entete);
    EXPECT_FALSE(Devine("Aja,Aja\nBlue,Blue\n").entete) << "twice";
    EXPECT_FALSE(Devine("rock,Aja\njazz,Chet\nrock,Blue\n").entete) << "once more in its column";
    EXPECT_FALSE(Devine("").entete);
}

TEST(DevinerFormat, InTheEncodingThatWasGuessed)
{
    const FormatCsv format = Devine("Titre;Lieu\nL'\xE9t\xE9;\xC9tretat\n");
    EXPECT_EQ(format.codage, CodageCsv::Windows1252);
    EXPECT_EQ(format.separateur, u';');
    EXPECT_EQ(Devine("T\0;\0U\0\n\0a\0;\0b\0\n\0"_ba).separateur, u';');
}

TEST(DevinerFormat, ALongTextIsLookedAtToTheEndOfALine)
{
    QByteArray texte = "Titre;Lieu\n";
    texte += QByteArray("un titre assez long;et, peut-être, un lieu\n").repeated(20000);
    EXPECT_EQ(Separateur(texte), u';');
}

TEST(LireApercu, HoldsTheFirstRowsWithoutEmptyOnes)
{
    const ApercuCsv apercu = Apercu("a,b\n\nc,d\n");
    ASSERT_EQ(apercu.lignes.size(), 2);
    EXPECT_EQ(apercu.lignes[1].champs, QStringList({"c", "d"}));
    EXPECT_EQ(apercu.lignes[1].numero, 3);
    EXPECT_EQ(Apercu(QByteArray("a,b\n").repeated(1000)).lignes.size(), 200);
    EXPECT_EQ(Apercu(QByteArray("a,b\n") + QByteArray(3 << 20, 'x')).lignes.size(), 1) << "the second one is cut";
}

TEST(LireApercu, ColumnsAreThoseOfMostRowsOrOfTheTitles)
{
    EXPECT_EQ(Apercu("a,b\n1,2,3\n1,2,3\n1\n").colonnes, 3);
    EXPECT_EQ(Apercu("a,b,c\n1,2\n1,2\n").colonnes, 3);
    EXPECT_EQ(Apercu("a,b,,\n1,2\n1,2\n").colonnes, 2) << "empty titles without values";
    EXPECT_EQ(Apercu("a,b,\n1,2,3\n").colonnes, 3);
    EXPECT_EQ(Apercu("a,b\n").colonnes, 2) << "titles alone";
    EXPECT_EQ(Apercu("").colonnes, 0);
    EXPECT_EQ(Apercu(QByteArray(",").repeated(20000)).colonnes, 16384);
}

TEST(TitresDeColonnes, AreThoseOfTheFileMadeDistinct)
{
    EXPECT_EQ(TitresDeColonnes(Apercu("Titre,,Titre, Lieu ,\"a|b\nc\",Titre (2)\n1,2,3,4,5,6\n"), true),
              QStringList({u"Titre"_s, u"Colonne 2"_s, u"Titre (2)"_s, u"Lieu"_s, u"a¦b c"_s, u"Titre (2) (2)"_s}));
    EXPECT_EQ(TitresDeColonnes(Apercu("1,2\n3,4\n"), false), QStringList({"Colonne 1", "Colonne 2"}));
    EXPECT_EQ(TitresDeColonnes(Apercu("a\n1,2\n1,2\n"), true), QStringList({"a", "Colonne 2"}));
}

TEST(ColonneDImages, HoldsNothingButPathsOfImagesThatAreThere)
{
    const DossierDeTest dossier;
    dossier.Ecrire(u"a/aja.JPG"_s, "x");
    dossier.Ecrire(u"b.gif"_s, "x");
    const auto colonne = [&](const QByteArray& texte, bool entete = true) {
        return ColonneDImages(Apercu(texte), entete, dossier.Chemin());
    };
    EXPECT_EQ(colonne("Titre,Image\nAja,a/aja.JPG\nBlue,\nChet,absente.png\n"), 1);
    EXPECT_EQ(colonne("Titre,Image\nAja,a/aja.JPG\nBlue,aucune\n"), -1);
    EXPECT_EQ(colonne("Titre,Image\nAja,absente.png\n"), -1) << "a text like others as long as nothing is there";
    EXPECT_EQ(colonne("Titre,Image\nAja,https://exemple.invalid/aja.JPG\n"), -1);
    EXPECT_EQ(colonne("Titre,Image\nAja,\nBlue,\n"), -1);
    EXPECT_EQ(colonne("a.png\nb.gif\n", false), 0);
}

TEST(EstCheminDImage, ByTheExtension)
{
    for (const char* chemin : {"a.gif", "a.jpg", "/d/a.JPEG", "c:\\d\\a.bmp", "a.b.png"})
        EXPECT_TRUE(EstCheminDImage(QString::fromLatin1(chemin))) << chemin;
    for (const char* chemin : {"", "gif", "a.txt", "a.png.zip", "a."})
        EXPECT_FALSE(EstCheminDImage(QString::fromLatin1(chemin))) << chemin;
}

TEST(FichierDuChemin, BeginsAtTheTableUnlessItIsWhole)
{
    const DossierDeTest dossier;
    const QString image = dossier.Ecrire(u"images/a b.png"_s, "x");
    EXPECT_EQ(FichierDuChemin(u"images/a b.png"_s, dossier.Chemin()), image);
    EXPECT_EQ(FichierDuChemin(u"images\\a b.png"_s, dossier.Chemin()), image);
    EXPECT_EQ(FichierDuChemin(image, u"/"_s), image);
    EXPECT_EQ(FichierDuChemin(u"file://"_s + QString(image).replace(u' ', u"%20"_s), u"/"_s), image);
    EXPECT_EQ(FichierDuChemin(u"images"_s, dossier.Chemin()), QString()) << "a folder";
    EXPECT_EQ(FichierDuChemin(u"absent.png"_s, dossier.Chemin()), QString());
    EXPECT_EQ(FichierDuChemin(QString(), dossier.Chemin()), QString());
    EXPECT_EQ(FichierDuChemin(image + QChar(u'\0'), u"/"_s), QString());
}
