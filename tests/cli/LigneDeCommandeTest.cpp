#include "cli/LigneDeCommande.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

namespace {

const QList<OptionConnue> Connues{{"json", "", ""}, {"format", "2|1.4", "", {"2", "1.4"}}, {"password-file", "F", ""}};

} // namespace

TEST(LigneDeCommande, OptionsStandAnywhere)
{
    for (const QStringList& mots : {QStringList{"--json", "a", "b"}, {"a", "--json", "b"}, {"a", "b", "--json"}}) {
        const LigneAnalysee analyse = Analyser(mots, Connues, 2);
        ASSERT_TRUE(analyse.ligne.has_value()) << analyse.erreur.toStdString();
        EXPECT_EQ(analyse.ligne->arguments, QStringList({"a", "b"}));
        EXPECT_TRUE(analyse.ligne->A("json"));
    }
}

TEST(LigneDeCommande, ValuesStandBehindOrInTheOption)
{
    EXPECT_EQ(Analyser({"a", "--format", "1.4"}, Connues, 1).ligne->Valeur("format"), "1.4");
    EXPECT_EQ(Analyser({"--format=2", "a"}, Connues, 1).ligne->Valeur("format"), "2");
    EXPECT_EQ(Analyser({"a", "--password-file="}, Connues, 1).ligne->Valeur("password-file", "d"), "");
    EXPECT_EQ(Analyser({"a"}, Connues, 1).ligne->Valeur("format", "2"), "2");
}

TEST(LigneDeCommande, TwoDashesEndTheOptions)
{
    const LigneAnalysee analyse = Analyser({"--", "--json", "-"}, Connues, 2);
    ASSERT_TRUE(analyse.ligne.has_value());
    EXPECT_EQ(analyse.ligne->arguments, QStringList({"--json", "-"}));
    EXPECT_FALSE(analyse.ligne->A("json"));
}

TEST(LigneDeCommande, TheFirstArgumentIsNeitherAnOptionNorItsValue)
{
    EXPECT_EQ(PremierArgument({"a", "b"}, Connues), 0);
    EXPECT_EQ(PremierArgument({"--json", "--format", "2", "a", "b"}, Connues), 3);
    EXPECT_EQ(PremierArgument({"--format=2", "a"}, Connues), 1);
    EXPECT_EQ(PremierArgument({"--json", "--", "--a"}, Connues), 2);
    EXPECT_EQ(PremierArgument({"-", "a"}, Connues), 0);
    for (const QStringList& mots : {QStringList{}, {"--json"}, {"--format", "2"}, {"--format"}, {"--"}})
        EXPECT_EQ(PremierArgument(mots, Connues), -1);
}

TEST(LigneDeCommande, WhatIsWrongIsSaid)
{
    const QList<std::pair<QStringList, QString>> fautes{
        {{"a", "--xml"}, "option inconnue : --xml"},
        {{"a", "-j"}, "option inconnue : -j"},
        {{"a", "--json=1"}, "l'option --json ne prend pas de valeur"},
        {{"a", "--json", "--json"}, "option donnée deux fois : --json"},
        {{"a", "--format"}, "valeur manquante pour --format"},
        {{"a", "--format", "3"}, "valeur impossible pour --format : 3"},
        {{}, "argument manquant"},
        {{"a", "b"}, "argument en trop : b"},
    };
    for (const auto& [mots, erreur] : fautes) {
        const LigneAnalysee analyse = Analyser(mots, Connues, 1);
        EXPECT_FALSE(analyse.ligne.has_value()) << mots.join(' ').toStdString();
        EXPECT_EQ(analyse.erreur, erreur);
    }
}

TEST(LigneDeCommande, HelpNeedsNoArguments)
{
    EXPECT_TRUE(Analyser({"--help"}, Connues, 2).ligne->A("help"));
    EXPECT_TRUE(Analyser({"-h"}, Connues, 2).ligne->A("help"));
}
