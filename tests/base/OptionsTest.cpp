#include "base/Options.h"

#include "base/Const_Vrac.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

namespace {

struct Ligne
{
    const char* cle;
    QVariant defaut;
};

} // namespace

TEST(Options, EverySettingHasItsDefaultUntilItIsWritten)
{
    const QString dossier = DossierProgramme();
    const std::vector<Ligne> table{
        {"AffImg", "0"},          {"ExportInitDir", ""},
        {"FRecent1", ""},         {"FRecent2", ""},
        {"FRecent3", ""},         {"FRecent4", ""},
        {"FRecent5", ""},         {"FontBold", "0"},
        {"FontItalic", "0"},      {"FontName", "MS Sans Serif"},
        {"FontSize", 8.25},       {"FontColor", 0},
        {"FusionnerCol", "_-_"},  {"GrandesIcones", "0"},
        {"ImgInitDir", dossier},  {"QRTLangue", "default"},
        {"MessageEditMulti", 1},  {"MessageImprim", 1},
        {"OpenInitDir", ""},      {"OpenLastFile", 0},
        {"SauvegardeLBK", 0},     {"SauvegardeLBK_1", 0},
        {"SaveInitDir", ""},      {"SeparerEn2", "_-_"},
        {"ShowTipsAtStartup", 0}, {"SizeForm1", 2},
        {"SupprDependant", 0},    {"TempFolder", dossier + "temp"},
        {"VerrifAssociation", 1}, {"VotreEmail", ""},
        {"VotreSmtp", ""},        {"commentAtStartup", 1},
        {"showInfobulles", 0},
    };
    EXPECT_EQ(ToutesLesOptions().size(), table.size());
    for (const Ligne& ligne : table) {
        const QVariant lue = LireOption(QString::fromUtf8(ligne.cle));
        EXPECT_EQ(lue.toString(), ligne.defaut.toString()) << ligne.cle;
        EXPECT_EQ(lue.typeId() == QMetaType::QString, ligne.defaut.typeId() == QMetaType::QString) << ligne.cle;
        EcrireOption(QString::fromUtf8(ligne.cle), QStringLiteral("autre"));
        EXPECT_EQ(LireOption(QString::fromUtf8(ligne.cle)), QVariant(QStringLiteral("autre"))) << ligne.cle;
    }
}

TEST(Options, KeysHaveNoCase)
{
    EcrireOption(QStringLiteral("OpenlastFile"), 1);
    EXPECT_TRUE(OptionEgale(LireOption(QStringLiteral("OpenLastFile")), 1));
    EXPECT_EQ(LireOption(QStringLiteral("fusionnercol")).toString(), "_-_");
}

TEST(Options, AKeyOutsideTheTableIsEmpty)
{
    EXPECT_EQ(LireOption(QStringLiteral("Inconnue")), QVariant(QString()));
}
