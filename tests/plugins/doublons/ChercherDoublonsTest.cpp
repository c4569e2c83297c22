#include "ChercherDoublons.h"

#include "SourceDeTest.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

std::string Trouver(const QList<QStringList>& lignes, const Demande& demande)
{
    SuiviDeTest suivi;
    const auto groupes = ChercherDoublons(SourceDeTest(lignes), demande, suivi);
    EXPECT_FALSE(suivi.recule);
    return groupes ? EnTexte(*groupes) : "nothing";
}
std::string Egales(const QList<QStringList>& lignes, const QList<int>& colonnes, Vides vides = Vides::SaufToutes)
{
    return Trouver(lignes, {colonnes, Mesure::Egales, vides});
}
std::string Presque(const QList<QStringList>& lignes, const QList<int>& colonnes, Vides vides = Vides::SaufToutes)
{
    return Trouver(lignes, {colonnes, Mesure::PresqueEgales, vides});
}

const QList<QStringList> Disques = {{"Aja", "Steely Dan"},   {"Blue", "Joni Mitchell"}, {"Aja", "Steely Dan"},
                                    {"aja", "Steely Dan"},   {"Blue", "Joni Mitchel"},  {"Aja", "Autre"},
                                    {" Aja ", "Steely Dan"}, {"Chet", "Chet Baker"}};

} // namespace

TEST(ChercherDoublons, EqualOnesAreEqualInEveryChosenColumn)
{
    EXPECT_EQ(Egales(Disques, {1, 2}), "1 3 7");
    EXPECT_EQ(Egales(Disques, {1}), "1 3 6 7, 2 5");
    EXPECT_EQ(Egales(Disques, {2}), "1 3 4 7");
    EXPECT_EQ(Egales({{u"\u00e9t\u00e9"_s}, {u"e\u0301te\u0301"_s}}, {1}), "1 2") << "they look the same";
}

TEST(ChercherDoublons, NearOnesAreNearInEveryChosenColumn)
{
    EXPECT_EQ(Presque(Disques, {1, 2}), "1 3 4 7, 2 5");
    EXPECT_EQ(Presque(Disques, {1}), "1 3 4 6 7, 2 5");
    EXPECT_EQ(Presque(Disques, {2}), "1 3 4 7, 2 5");
}

TEST(ChercherDoublons, CellsDoNotFlowIntoEachOther)
{
    EXPECT_EQ(Egales({{"ab", "c"}, {"a", "bc"}}, {1, 2}), "");
    EXPECT_EQ(Presque({{"ab", "c"}, {"a", "bc"}}, {1, 2}), "");
}

TEST(ChercherDoublons, ErrorsInSeveralColumnsAtOnceAreFound)
{
    EXPECT_EQ(Presque({{"Nevermind", "Nirvana", "1991"},
                       {"Nevermidn", "Nirvanna", "1991"},
                       {"Nevermind", "Nirvana", "1992"},
                       {"Nevermind", "Anthrax", "1991"}},
                      {1, 2, 3}),
              "1 2");
}

TEST(ChercherDoublons, EveryEntryOfAGroupIsNearToItsFirst)
{
    // Each is near to the next one.
    EXPECT_EQ(Presque({{"abcdef"}, {"abcdeX"}, {"abcdXX"}, {"abcXXX"}}, {1}), "1 2, 3 4");
    EXPECT_EQ(Presque({{"abcdeX"}, {"abcdef"}, {"abcdXX"}}, {1}), "1 2 3");
}

TEST(ChercherDoublons, EmptyCellsAreTakenAsAskedFor)
{
    const QList<QStringList> lignes = {{"", " "}, {"", ""}, {"Aja", ""}, {"Aja", ""}, {"Blue", "x"}, {"Blue", "x"}};
    for (const auto& chercher : {Egales, Presque}) {
        EXPECT_EQ(chercher(lignes, {1, 2}, Vides::CommeLesAutres), "1 2, 3 4, 5 6");
        EXPECT_EQ(chercher(lignes, {1, 2}, Vides::SaufToutes), "3 4, 5 6");
        EXPECT_EQ(chercher(lignes, {1, 2}, Vides::SaufUne), "5 6");
    }
}

TEST(ChercherDoublons, AnImageCountsAsAFilledCell)
{
    constexpr qsizetype Milieu = 5000; // beyond the first rows that are read together
    QList<QStringList> lignes;
    QStringList images;
    for (qsizetype i = 0; i < 2 * Milieu; ++i) {
        lignes.append({QString::number(i % Milieu), i < Milieu ? u"avec un long texte"_s : u"court"_s, QString()});
        images.append(i >= Milieu ? u"pochette.jpg"_s : QString());
    }
    lignes[2][2] = u"encore"_s; // as many as the other has with its image, and longer
    lignes[3][2] = u"encore"_s;
    images[3] = u"pochette.jpg"_s;
    images[Milieu + 3].clear();
    SuiviDeTest suivi;
    const auto groupes =
        ChercherDoublons(SourceDeTest(lignes, images), {{1}, Mesure::Egales, Vides::SaufToutes, 0}, suivi);
    ASSERT_TRUE(groupes);
    ASSERT_EQ(groupes->Count(), Milieu);
    EXPECT_EQ(groupes->Complete(1), 1);
    EXPECT_EQ(groupes->Complete(2), 0);
    EXPECT_EQ(groupes->Complete(3), 0);
    EXPECT_EQ(groupes->Complete(Milieu - 1), 1);
}

TEST(ChercherDoublons, TheMostCompleteEntryOfAGroupIsKnown)
{
    SuiviDeTest suivi;
    const SourceDeTest source({{"Aja", "", "x"},
                               {"Blue", "", ""},
                               {"Aja", "1977", "y"},
                               {"Aja", "1978", "y"},
                               {"Blue", "", "court"},
                               {"Blue", "", "plus long"},
                               {"Blue", " ", "plus longue encore"}});
    const auto groupes = ChercherDoublons(source, {{1}, Mesure::Egales, Vides::SaufToutes, 2}, suivi);
    ASSERT_TRUE(groupes);
    ASSERT_EQ(EnTexte(*groupes), "1 3 4, 2 5 6 7");
    EXPECT_EQ(groupes->Complete(0), 1) << "the first of two alike";
    EXPECT_EQ(groupes->Complete(1), 3) << "a blank fills nothing; the longest text then";
    EXPECT_TRUE(groupes->EstPretee(0, 1));
    EXPECT_FALSE(groupes->EstPretee(0, 0));
    EXPECT_FALSE(groupes->EstPretee(1, 0));
}

TEST(ChercherDoublons, NothingIsFoundInNothing)
{
    EXPECT_EQ(Egales({}, {1}), "");
    EXPECT_EQ(Presque({}, {1}), "");
    EXPECT_EQ(Egales({{"Aja"}}, {1}), "");
    EXPECT_EQ(Presque({{"Aja"}}, {1}), "");
    EXPECT_EQ(Presque({{""}, {""}}, {1}), "");
}

TEST(ChercherDoublons, GivingUpEndsItAtEveryStep)
{
    QList<QStringList> lignes;
    lignes.reserve(20000);
    for (int i = 0; i < 20000; ++i)
        lignes.append({u"titre%1"_s.arg(i / 2), u"x"_s});
    const SourceDeTest source(lignes);
    for (const Mesure mesure : {Mesure::Egales, Mesure::PresqueEgales}) {
        SuiviDeTest tout;
        ASSERT_TRUE(ChercherDoublons(source, {{1, 2}, mesure, Vides::SaufToutes, 0}, tout));
        EXPECT_GE(tout.pas, 10);
        for (int pas = 1; pas <= tout.pas; ++pas) {
            SuiviDeTest suivi(pas);
            EXPECT_FALSE(ChercherDoublons(source, {{1, 2}, mesure, Vides::SaufToutes, 0}, suivi));
            EXPECT_EQ(suivi.pas, pas) << "it went on";
        }
    }
}

TEST(ChercherDoublons, AllEqualAreOneGroup)
{
    const int combien = 50000;
    const QList<QStringList> lignes(combien, {u"La même"_s, u"chose"_s});
    for (const Mesure mesure : {Mesure::Egales, Mesure::PresqueEgales}) {
        SuiviDeTest suivi;
        const auto groupes = ChercherDoublons(SourceDeTest(lignes), {{1, 2}, mesure, Vides::SaufToutes, 0}, suivi);
        ASSERT_TRUE(groupes);
        ASSERT_EQ(groupes->Count(), 1);
        EXPECT_EQ(groupes->Taille(0), combien);
    }
}

TEST(ChercherDoublons, ManyColumnsWithManyNearValuesEnd)
{
    // Each of the twelve cells has the same five forms: more combinations than could ever be tried.
    QList<QStringList> lignes;
    for (int i = 0; i < 300; ++i) {
        QStringList ligne;
        for (int c = 0; c < 12; ++c)
            ligne.append(u"abcdefgh"_s + QChar(u'p' + (i * (c + 3) + c) % 5));
        lignes.append(ligne);
    }
    QList<int> colonnes(12);
    std::iota(colonnes.begin(), colonnes.end(), 1);
    EXPECT_NE(Presque(lignes, colonnes), "nothing");
}

TEST(ChercherDoublons, VeryLongCellsCostNoMoreThanTheirLength)
{
    const QString longue(2000000, u'a');
    EXPECT_EQ(Presque({{longue}, {longue + u"b"_s}, {longue.toUpper()}}, {1}), "1 3");
    EXPECT_EQ(Egales({{longue}, {longue + u"b"_s}, {longue}}, {1}), "1 3");
}
