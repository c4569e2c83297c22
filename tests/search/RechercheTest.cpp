#include "search/Recherche.h"

#include "catalogue/texte/TexteExact.h"
#include "platform/PageDeCode.h"
#include "search/ResultatsDeRecherche.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace {

const std::vector<bool> Premiere{true, false, false};
const std::vector<bool> Deuxieme{false, true, false};

/// A category of three columns, as it was saved.
class RechercheTest : public testing::Test
{
protected:
    static QByteArray Texte(const QList<QByteArray>& entrees)
    {
        TexteDeCatalogue texte;
        texte.colonnes = {"Titre|1000|", "Artiste|900|", "Prêté|600|"};
        texte.entrees = entrees;
        return texte.Texte();
    }
    void Sauver(const QList<QByteArray>& entrees) { d.dossier.Ecrire("Zelvane.qrt", Texte(entrees)); }
    /// With characters that the code page lacks.
    void SauverExact(const QList<QByteArray>& entrees)
    {
        Sauver(entrees);
        QByteArray exact = Texte({QByteArray()});
        exact.truncate(exact.lastIndexOf("Count="));
        exact = PageDeCode::VersTexte(exact).toUtf8() + "Count=" + QByteArray::number(entrees.size()) + "\r\n";
        for (qsizetype i = 0; i < entrees.size(); ++i)
            exact += "It" + QByteArray::number(i + 1) + '=' + entrees[i] + "\r\n";
        d.dossier.Ecrire("Zelvane.utf8", exact);
        ASSERT_EQ(TexteExact::FinDuTexteReduit(exact, d.dossier.Lire("Zelvane.qrt")), exact.size());
    }

    Recherche Chercher(const QString& texte, const std::vector<bool>& choix = {true, true, true}) const
    {
        return Recherche(d.dossier.Chemin(), 3, texte, PorteeDeRecherche::DeChoix(choix));
    }
    IssueDeRecherche Issue(const QString& texte) const
    {
        Recherche recherche = Chercher(texte);
        while (recherche.Avancer(1 << 20)) {
        }
        return recherche.Issue();
    }
    QStringList Cles(const QString& texte, const std::vector<bool>& choix = {true, true, true}) const
    {
        return Cles(Chercher(texte, choix), 1 << 20);
    }
    static QStringList Cles(Recherche&& recherche, qsizetype pas)
    {
        while (recherche.Avancer(pas)) {
        }
        QStringList cles;
        for (const uint32_t cle : recherche.Prendre().lignes.cles)
            cles.append(ClesDeTable::CleDeNumero(cle));
        return cles;
    }

    DocumentDeTest d;
};

} // namespace

TEST_F(RechercheTest, FindsTheLinesThatHoldTheText)
{
    Sauver({"Kind of Blue|Miles Davis||", "Été|Zazie||", "Blue Train|Coltrane||"});
    EXPECT_EQ(Cles("Blue"), QStringList({"k1", "k3"}));
    EXPECT_EQ(Cles("Zazie"), QStringList({"k2"}));
    EXPECT_EQ(Cles("Abba"), QStringList());
}

TEST_F(RechercheTest, DoesNotTellLettersOfBothCasesApart)
{
    Sauver({"ABC|||", "abc|||", "aBd|||"});
    EXPECT_EQ(Cles("abc"), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("ABC"), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("BC", Premiere), QStringList({"k1", "k2"}));
}

TEST_F(RechercheTest, TellsAccentsApartAndFindsThemInBothCases)
{
    Sauver({"été|||", "ÉTÉ|||", "ete|||", "Œuvre|||", "œuvre|||", "Ÿ|||", "ÿ|||", "Žižek|||"});
    EXPECT_EQ(Cles("é"), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("É"), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("ete"), QStringList({"k3"}));
    EXPECT_EQ(Cles("œ"), QStringList({"k4", "k5"}));
    EXPECT_EQ(Cles("ÿ"), QStringList({"k6", "k7"}));
    EXPECT_EQ(Cles("ŽI"), QStringList({"k8"}));
}

TEST_F(RechercheTest, TakesTheTextAsItStands)
{
    Sauver({"a*c|||", "abc|||", "a?c|||", "[x]|||", " d |||", "d|||"});
    EXPECT_EQ(Cles("a*c"), QStringList({"k1"}));
    EXPECT_EQ(Cles("a?c"), QStringList({"k3"}));
    EXPECT_EQ(Cles("[x]"), QStringList({"k4"}));
    EXPECT_EQ(Cles(" d "), QStringList({"k5"}));
    EXPECT_EQ(Cles("."), QStringList());
}

TEST_F(RechercheTest, FindsABarInTheWholeLineAndInNoField)
{
    Sauver({"a|b||", "c", "d|"});
    EXPECT_EQ(Cles("|"), QStringList({"k1", "k3"}));
    EXPECT_EQ(Cles("|", Premiere), QStringList());
}

TEST_F(RechercheTest, FindsATextAcrossFieldsInTheWholeLineOnly)
{
    Sauver({"Kind|of Blue||"});
    EXPECT_EQ(Cles("kind|OF"), QStringList({"k1"}));
    EXPECT_EQ(Cles("kind|OF", {true, true, false}), QStringList());
}

TEST_F(RechercheTest, FindsAnImageNameInTheWholeLineOnly)
{
    Sauver({"a|b||pochette.jpg", "c|d||"});
    EXPECT_EQ(Cles("Pochette"), QStringList({"k1"}));
    EXPECT_EQ(Cles("Pochette", {true, true, false}), QStringList());
}

TEST_F(RechercheTest, LooksAtTheChosenColumnsAlone)
{
    Sauver({"rock|jazz||", "jazz|rock||", "pop|jazz|rock|"});
    EXPECT_EQ(Cles("rock", Premiere), QStringList({"k1"}));
    EXPECT_EQ(Cles("rock", Deuxieme), QStringList({"k2"}));
    EXPECT_EQ(Cles("rock", {false, false, true}), QStringList({"k3"}));
    EXPECT_EQ(Cles("rock", {true, true, false}), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("rock", {false, false, false}), QStringList());
}

TEST_F(RechercheTest, SearchesTheWholeLineAgainWhenAllColumnsAreChosen)
{
    EXPECT_TRUE(PorteeDeRecherche::DeChoix({true, true}).ToutesColonnes);
    EXPECT_FALSE(PorteeDeRecherche::DeChoix({true, false}).ToutesColonnes);
}

TEST_F(RechercheTest, TakesFieldsThatALineLacksForEmpty)
{
    Sauver({"seul", "", "a|b"});
    EXPECT_EQ(Cles("seul", {true, false, true}), QStringList({"k1"}));
    EXPECT_EQ(Cles("b", Deuxieme), QStringList({"k3"}));
    EXPECT_EQ(Cles("x", {false, false, true}), QStringList());
}

TEST_F(RechercheTest, LooksBehindTheFirstEqualsSignOnly)
{
    Sauver({"It=1|||", "b=It2|||", "c|||"});
    EXPECT_EQ(Cles("It"), QStringList({"k1", "k2"})) << "what stands before it is no value";
    EXPECT_EQ(Cles("It3"), QStringList());
    EXPECT_EQ(Cles("b=it"), QStringList({"k2"}));
    EXPECT_EQ(Cles("=c"), QStringList());
}

TEST_F(RechercheTest, TakesALineWithoutEqualsSignWhole)
{
    d.dossier.Ecrire("Zelvane.qrt", "[ListItems]\r\nCount=2\r\nun tel\r\nIt2=un\r\n");
    EXPECT_EQ(Cles("un"), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("tel"), QStringList({"k1"}));
}

TEST_F(RechercheTest, LeavesTheHeadOut)
{
    Sauver({"a|||"});
    EXPECT_EQ(Cles("Titre"), QStringList()) << "a column";
    EXPECT_EQ(Cles("Count"), QStringList());
    EXPECT_EQ(Cles("1"), QStringList()) << "the count of the entries";
}

TEST_F(RechercheTest, CountsLinesThatAreNotFoundAndThoseBeyondTheCount)
{
    d.dossier.Ecrire("Zelvane.qrt", "[ListItems]\r\nCount=1\r\nIt1=a\r\n\r\nIt9=b\r\nIt1=ab\r\n");
    EXPECT_EQ(Cles("b"), QStringList({"k3", "k4"}));
}

TEST_F(RechercheTest, FindsNothingWithoutASectionOfEntries)
{
    d.dossier.Ecrire("Zelvane.qrt", "It1=abc\r\n [ListItems]\r\nIt2=abc\r\n[listitems]\r\nIt3=abc\r\nabc");
    EXPECT_EQ(Issue("abc"), IssueDeRecherche::Rien);
    d.dossier.Ecrire("Zelvane.qrt", "abc\r\n[ListItems]");
    EXPECT_EQ(Issue("abc"), IssueDeRecherche::Rien);
    d.dossier.Ecrire("Zelvane.qrt", "[ListItems]\r\nabc");
    EXPECT_EQ(Issue("abc"), IssueDeRecherche::Rien);
    d.dossier.Ecrire("Zelvane.qrt", "");
    EXPECT_EQ(Issue("abc"), IssueDeRecherche::Rien);
}

TEST_F(RechercheTest, TakesLineFeedsAndALastLineWithoutEnd)
{
    d.dossier.Ecrire("Zelvane.qrt", "[ListItems]\nCount=3\nIt1=a\nIt2=b\r\nIt3=a");
    EXPECT_EQ(Cles("a"), QStringList({"k1", "k3"}));
}

TEST_F(RechercheTest, FindsNoLineEnd)
{
    d.dossier.Ecrire("Zelvane.qrt", "[ListItems]\r\nCount=2\r\nIt1=a\rb\r\nIt2=c\r\n");
    EXPECT_EQ(Cles("\r"), QStringList({"k1"})) << "one inside a value";
    EXPECT_EQ(Cles("c\r"), QStringList());
    EXPECT_EQ(Cles("\n"), QStringList());
    EXPECT_EQ(Cles("c\r\n"), QStringList());
    EXPECT_EQ(Cles("b\r\nIt2"), QStringList());
}

TEST_F(RechercheTest, FindsACharacterThatTheCodePageLacksNowhereInItsText)
{
    Sauver({"?|||", "\xD0\x96|||"}); // both are "?" there
    EXPECT_EQ(Cles("?"), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("Ж"), QStringList());
    EXPECT_EQ(Cles(QString(QChar(0xD800))), QStringList());
}

TEST_F(RechercheTest, SearchesTheExactTextWhereThereIsOne)
{
    SauverExact({"Жук|Été||", "ЖУК|||", "?ук|||", "Ζευς|||", "straße|||"});
    EXPECT_EQ(Cles("жук"), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("?"), QStringList({"k3"})) << "the mark of a lost character is none";
    EXPECT_EQ(Cles("ΖΕΥΣ"), QStringList({"k4"})) << "both small sigmas are one letter";
    EXPECT_EQ(Cles("éTÉ"), QStringList({"k1"}));
    EXPECT_EQ(Cles("ete"), QStringList());
    EXPECT_EQ(Cles("STRASSE"), QStringList()) << "one character for one";
    EXPECT_EQ(Cles("Жук", Premiere), QStringList({"k1", "k2"}));
    EXPECT_EQ(Cles("Жук", Deuxieme), QStringList());
    EXPECT_EQ(Cles(QString(QChar(0xD800))), QStringList());
}

TEST_F(RechercheTest, PassesOverAStaleExactText)
{
    SauverExact({"Жук|||"});
    Sauver({"Abba|||"});
    EXPECT_EQ(Cles("жук"), QStringList());
    EXPECT_EQ(Cles("abba"), QStringList({"k1"}));
}

TEST_F(RechercheTest, LeavesTheCommentOfTheExactTextOut)
{
    SauverExact({"Жук|||"});
    d.dossier.Ecrire("Zelvane.utf8", d.dossier.Lire("Zelvane.utf8") + TexteExact::Separateur() + "Жук\r\n");
    EXPECT_EQ(Cles("жук"), QStringList({"k1"}));
}

TEST_F(RechercheTest, TellsThatThereIsNoTextToFind)
{
    Sauver({"a|||"});
    EXPECT_EQ(Issue(""), IssueDeRecherche::SansTexte);
}

TEST_F(RechercheTest, TellsAMissingFileFromOneThatCannotBeRead)
{
    EXPECT_EQ(Issue("a"), IssueDeRecherche::Absent);
    QDir().mkdir(d.dossier.Fichier("Zelvane.qrt"));
    EXPECT_EQ(Issue("a"), IssueDeRecherche::Illisible);
}

TEST_F(RechercheTest, TellsAnExactTextThatCannotBeRead)
{
    Sauver({"a|||"});
    EXPECT_EQ(Issue("a"), IssueDeRecherche::Trouve);
    QDir().mkdir(d.dossier.Fichier("Zelvane.utf8"));
    EXPECT_EQ(Issue("a"), IssueDeRecherche::Illisible);
    EXPECT_EQ(Cles("a"), QStringList());
}

TEST_F(RechercheTest, FindsTextsOfAnyLengthWhereverTheyStand)
{
    QByteArray ligne;
    for (int i = 0; i < 120; ++i)
        ligne.append(static_cast<char>('a' + (i * 7 + i / 26) % 26));
    Sauver({ligne});
    for (int debut = 0; debut < ligne.size(); ++debut)
        for (int taille = 1; debut + taille <= ligne.size(); taille += 1 + taille / 3) {
            const QString partie = QString::fromLatin1(ligne.mid(debut, taille)).toUpper();
            EXPECT_EQ(Cles(partie), QStringList({"k1"})) << qPrintable(partie);
            EXPECT_EQ(Cles(partie + "0"), QStringList()) << qPrintable(partie);
        }
    EXPECT_EQ(Cles(QString(1 << 20, u'a')), QStringList());
}

TEST_F(RechercheTest, FindsTheSameInStepsOfAnySize)
{
    QList<QByteArray> entrees;
    for (int i = 1; i <= 400; ++i)
        entrees.append(QByteArray::number(i) + (i % 3 ? "|rien||" : "|trois||") + QByteArray(i % 50, 'x'));
    Sauver(entrees);
    const QStringList attendues = Cles("TROIS");
    EXPECT_EQ(attendues.size(), 133);
    EXPECT_EQ(attendues.last(), "k399");
    for (const int pas : {1, 7, 64, 1000})
        EXPECT_EQ(Cles(Chercher("TROIS"), pas), attendues) << pas;
}

TEST_F(RechercheTest, StopsBetweenTwoStepsWithWhatItFound)
{
    Sauver({"a|||", "a|||", "a|||"});
    Recherche recherche = Chercher("a");
    EXPECT_TRUE(recherche.Avancer(1));
    EXPECT_EQ(recherche.Nombre(), 1);
    EXPECT_TRUE(recherche.Avancer(1));
    EXPECT_FALSE(recherche.Avancer(1 << 20));
    EXPECT_EQ(recherche.Nombre(), 3);
}

TEST_F(RechercheTest, FindsALineThatIsLongerThanABlock)
{
    const QByteArray longue(700000, 'y');
    Sauver({longue + "fin|||", "a|||", longue + "|||", "b fin|||"});
    EXPECT_EQ(Cles("yfin"), QStringList({"k1"}));
    EXPECT_EQ(Cles("fin"), QStringList({"k1", "k4"}));
}

TEST_F(RechercheTest, TakesOnePassForTextsThatRepeatThemselves)
{
    // There are as many places as bytes at which the text might stand; compared to its end at each, it takes an hour.
    const QByteArray presque(1 << 20, 'a');
    Sauver({(presque + 'b').repeated(8), "a|||", presque + "a|||"});
    EXPECT_EQ(Cles(QString(presque) + "a"), QStringList({"k3"}));
    EXPECT_EQ(Cles(QString(presque) + "ba"), QStringList({"k1"}));
    EXPECT_EQ(Cles(QString(presque) + "bb"), QStringList());
}
