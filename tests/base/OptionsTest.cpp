#include "base/Options.h"

#include "base/Const_Vrac.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QObject>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

template<class UneOption> QString Cle(const UneOption& option)
{
    return option.cle.toString();
}

template<class UneOption> std::string Nom(const UneOption& option)
{
    return Cle(option).toStdString();
}

void Stocker(const Option& option, const QString& texte)
{
    EcrireOption(option.cle.toString(), texte);
}

int NombreDAvis(const Option& option, const std::function<void()>& geste)
{
    const QObject contexte;
    int avis = 0;
    SuivreOption(option, contexte, [&avis] { ++avis; });
    geste();
    return avis;
}

} // namespace

TEST(Options, TextsHaveTheirDefaultsUntilTheyAreWritten)
{
    const std::vector<std::pair<OptionTexte, const char*>> table{
        {Options::ExportInitDir, ""},    {Options::FRecent[0], ""},  {Options::FRecent[1], ""},
        {Options::FRecent[2], ""},       {Options::FRecent[3], ""},  {Options::FRecent[4], ""},
        {Options::FusionnerCol, "_-_"},  {Options::OpenInitDir, ""}, {Options::FontName, "MS Sans Serif"},
        {Options::QRTLangue, "default"}, {Options::SaveInitDir, ""}, {Options::SeparerEn2, "_-_"},
        {Options::VotreEmail, ""},       {Options::VotreSmtp, ""},   {Options::PlaceDuCadre, ""},
        {Options::PlaceDeLEditeur, ""},
    };
    for (const auto& [option, defaut] : table) {
        EXPECT_EQ(LireOption(option), defaut) << Nom(option);
        EcrireOption(option, u"autre"_s);
        EXPECT_EQ(LireOption(option), "autre") << Nom(option);
    }
}

TEST(Options, FoldersHaveTheirDefaultsInTheProgramsFolder)
{
    EXPECT_EQ(LireOption(Options::ImgInitDir), DossierProgramme());
    EXPECT_EQ(LireOption(Options::TempFolder), DossierProgramme() + u"temp"_s);
    EcrireOption(Options::TempFolder, u"/ailleurs"_s);
    EXPECT_EQ(LireOption(Options::TempFolder), "/ailleurs");
}

TEST(Options, NumbersHaveTheirDefaultsAndATextThatIsNoneEqualsNone)
{
    for (const auto& [option, defaut] :
         {std::pair(Options::FontSize, 8.25), std::pair(Options::FontColor, 0.0), std::pair(Options::SizeForm1, 2.0)}) {
        EXPECT_EQ(LireOption(option), defaut) << Nom(option);
        EcrireOption(option, 12.5);
        EXPECT_EQ(LireOption(Cle(option), {}), u"12.5"_s);
        EXPECT_EQ(LireOption(option), 12.5) << Nom(option);
        Stocker(option, u"8,25"_s);
        EXPECT_EQ(LireOption(option), 8.25) << Nom(option);
        Stocker(option, u"grand"_s);
        EXPECT_EQ(LireOption(option), std::nullopt) << Nom(option);
    }
    EcrireOption(Options::SizeForm1, 2);
    EXPECT_EQ(LireOption(Cle(Options::SizeForm1), {}), u"2"_s);
}

TEST(Options, WhatMakesAYesIsOfEachKey)
{
    struct Ligne
    {
        OptionOuiNon option;
        bool defaut, un, zero, zeroLong, deux, vide, mot;
    };
    // The values "1", "0", "0,0", "2", "" and "oui".
    const std::vector<Ligne> table{
        {Options::AffImg, false, true, false, true, true, true, true},
        {Options::FontBold, false, true, false, true, true, true, true},
        {Options::FontItalic, false, true, false, true, true, true, true},
        {Options::GrandesIcones, false, true, false, true, true, true, true},
        {Options::OpenLastFile, false, true, false, false, true, true, true},
        {Options::SauvegardeLBK_1, false, true, false, false, true, true, true},
        {Options::MessageEditMulti, true, true, false, false, false, false, false},
        {Options::MessageImprim, true, true, false, false, false, false, false},
        {Options::SauvegardeLBK, false, true, false, false, false, false, false},
        {Options::ShowTipsAtStartup, false, true, false, false, false, false, false},
        {Options::SupprDependant, false, true, false, false, false, false, false},
        {Options::VerrifAssociation, true, true, false, false, false, false, false},
        {Options::commentAtStartup, true, true, false, false, false, false, false},
        {Options::showInfobulles, false, true, false, false, false, false, false},
    };
    for (const Ligne& ligne : table) {
        EXPECT_EQ(LireOption(ligne.option), ligne.defaut) << Nom(ligne.option);
        for (const auto& [texte, oui] :
             {std::pair("1", ligne.un), std::pair("0", ligne.zero), std::pair("0,0", ligne.zeroLong),
              std::pair("2", ligne.deux), std::pair("", ligne.vide), std::pair("oui", ligne.mot)}) {
            Stocker(ligne.option, QString::fromLatin1(texte));
            EXPECT_EQ(LireOption(ligne.option), oui) << Nom(ligne.option) << " " << texte;
        }
        EcrireOption(ligne.option, false);
        EXPECT_EQ(LireOption(Cle(ligne.option), {}), u"0"_s);
        EcrireOption(ligne.option, true);
        EXPECT_EQ(LireOption(Cle(ligne.option), {}), u"1"_s);
    }
}

TEST(Options, ACallerMayHaveADefaultOfItsOwn)
{
    EXPECT_TRUE(LireOption(Options::commentAtStartup));
    EXPECT_FALSE(LireOption(Options::commentAtStartup, false));
    EXPECT_TRUE(LireOption(Options::OpenLastFile, true));
    EcrireOption(Options::commentAtStartup, true);
    EXPECT_TRUE(LireOption(Options::commentAtStartup, false));
}

TEST(Options, KeysHaveNoCase)
{
    EcrireOption(u"OpenlastFile"_s, 1);
    EXPECT_TRUE(LireOption(Options::OpenLastFile));
}

TEST(Options, AChangeIsToldWhoeverWritesItAndInWhateverCase)
{
    EXPECT_EQ(NombreDAvis(Options::AffImg, [] { EcrireOption(Options::AffImg, true); }), 1);
    EXPECT_EQ(NombreDAvis(Options::OpenLastFile, [] { EcrireOption(u"OpenlastFile"_s, 1); }), 1);
    EXPECT_EQ(NombreDAvis(Options::FontName, [] { EcrireOption(Options::FontName, u"Serif"_s); }), 1);
    EXPECT_EQ(NombreDAvis(Options::FontSize, [] { EcrireOption(Options::FontSize, 9); }), 1);
    EXPECT_EQ(NombreDAvis(Options::TempFolder, [] { EcrireOption(Options::TempFolder, u"/t"_s); }), 1);
}

TEST(Options, WhoFollowsASettingReadsTheNewValue)
{
    const QObject contexte;
    QString lu;
    SuivreOption(Options::FontName, contexte, [&lu] { lu = LireOption(Options::FontName); });

    EcrireOption(Options::FontName, u"Serif"_s);

    EXPECT_EQ(lu, "Serif");
}

TEST(Options, WhatStaysTheSameAndWhatIsAnotherSettingIsNotTold)
{
    EcrireOption(Options::AffImg, true);
    EXPECT_EQ(NombreDAvis(Options::AffImg, [] { EcrireOption(Options::AffImg, true); }), 0);
    EXPECT_EQ(NombreDAvis(Options::AffImg, [] { EcrireOption(Options::FontBold, true); }), 0);
}

TEST(Options, WhoIsGoneIsNotToldEvenWhenANoticeEndsIt)
{
    int avis = 0;
    auto second = std::make_unique<QObject>();
    const QObject premier;
    SuivreOption(Options::AffImg, premier, [&second] { second.reset(); });
    SuivreOption(Options::AffImg, *second, [&avis] { ++avis; });

    EcrireOption(Options::AffImg, true);
    EcrireOption(Options::AffImg, false);

    EXPECT_EQ(avis, 0);
}

TEST(Options, ANoticeMayFollowAnotherSetting)
{
    const QObject contexte;
    int avis = 0;
    SuivreOption(Options::AffImg, contexte, [&] {
        for (int i = 0; i < 100; ++i)
            SuivreOption(Options::FontBold, contexte, [&avis] { ++avis; });
    });

    EcrireOption(Options::AffImg, true);
    EcrireOption(Options::FontBold, true);

    EXPECT_EQ(avis, 100);
}
