// The checker itself, on small made-up trees.
#include "architecture/Inclusions.h"

#include "support/DossierDeTest.h"

#include <gtest/gtest.h>

namespace {

class Inclusions : public testing::Test
{
protected:
    Inclusions()
    {
        m_dossier.Ecrire("QtCore/QString", "");
        m_dossier.Ecrire("QtCore/qglobal.h", "");
        m_dossier.Ecrire("src/bas/Bas.h", "#include <QString>\n#include <vector>\n");
        m_dossier.Ecrire("src/haut/Haut.h", "#include \"bas/Bas.h\"\n");
    }

    void Ecrire(const QString& fichier, const QByteArray& contenu) { m_dossier.Ecrire("src/" + fichier, contenu); }
    ArbreDeSources Arbre() const
    {
        return {m_dossier.Fichier("src"),
                {{"bas", 1}, {"milieu", 2}, {"milieu/cave", 2}, {"haut", 3}},
                m_dossier.Fichier("QtCore")};
    }
    QStringList Montantes() const { return InclusionsMontantes(Arbre()); }
    QStringList HorsQtCore(const QStringList& fichiers) const { return InclusionsHorsQtCore(Arbre(), fichiers); }

private:
    DossierDeTest m_dossier;
};

TEST_F(Inclusions, AFileMayIncludeItsOwnAndLowerFloors)
{
    Ecrire("haut/Haut.cpp", "#include \"haut/Haut.h\"\n#include \"Haut.h\"\n#include \"bas/Bas.h\"\n");
    EXPECT_EQ(Montantes(), QStringList());
}

TEST_F(Inclusions, AnUpwardIncludeIsTold)
{
    Ecrire("bas/Bas.cpp", "// one\n#include \"haut/Haut.h\"\n");
    EXPECT_EQ(Montantes(), QStringList("bas/Bas.cpp:2: haut/Haut.h is on a higher floor"));
}

TEST_F(Inclusions, AnIncludeOfAnotherRoomOfTheFloorIsTold)
{
    Ecrire("milieu/Milieu.h", "");
    Ecrire("milieu/cave/Cave.h", "#include \"milieu/Milieu.h\"\n#include \"Cave.h\"\n");
    EXPECT_EQ(Montantes(), QStringList("milieu/cave/Cave.h:1: milieu/Milieu.h is in another room of the floor"));
}

TEST(LireEtages, FloorsAreLinesAndRoomsAreWords)
{
    const Etages etages = LireEtages("# lowest first\nbas\n\nmilieu/a  milieu/b\nhaut\n");
    EXPECT_EQ(etages, (Etages{{"bas", 1}, {"milieu/a", 2}, {"milieu/b", 2}, {"haut", 3}}));
}

TEST_F(Inclusions, AnUpwardIncludeInAHeaderIsTold)
{
    Ecrire("milieu/Milieu.h", "  #  include \"haut/Haut.h\"\n");
    EXPECT_EQ(Montantes(), QStringList("milieu/Milieu.h:1: haut/Haut.h is on a higher floor"));
}

TEST_F(Inclusions, AnUpwardIncludeByWayOfTheParentFolderIsTold)
{
    Ecrire("bas/Bas.cpp", "#include \"../haut/Haut.h\"\n");
    EXPECT_EQ(Montantes(), QStringList("bas/Bas.cpp:1: haut/Haut.h is on a higher floor"));
}

TEST_F(Inclusions, AnIncludeThatLeadsOutOfTheTreeIsTold)
{
    Ecrire("bas/Bas.cpp", "#include \"../../tests/Aide.h\"\n#include \"nulle/part.h\"\n");
    EXPECT_EQ(Montantes(), QStringList({"bas/Bas.cpp:1: ../../tests/Aide.h is not in the tree",
                                        "bas/Bas.cpp:2: nulle/part.h is not in the tree"}));
}

TEST_F(Inclusions, AFolderThatIsNoRoomIsTold)
{
    Ecrire("cave/Vin.h", "");
    Ecrire("haut/grenier/Malle.h", "");
    EXPECT_EQ(Montantes(),
              QStringList({"cave/Vin.h: its folder is no room", "haut/grenier/Malle.h: its folder is no room"}));
}

TEST_F(Inclusions, PrecompiledHeadersHoldLibrariesOnly)
{
    Ecrire("pch.h", "#include <vector>\n#include \"bas/Bas.h\"\n");
    EXPECT_EQ(Montantes(), QStringList("pch.h:2: bas/Bas.h is on a higher floor"));
}

TEST_F(Inclusions, FilesThatTheBuildMakesNeedNotBeThere)
{
    Ecrire("haut/frmHaut.cpp", "#include \"ui_frmHaut.h\"\n#include \"frmHaut.moc\"\n#include \"moc_frmHaut.cpp\"\n");
    EXPECT_EQ(Montantes(), QStringList());
}

TEST_F(Inclusions, QtCoreHeadersMayBeInTheCore)
{
    Ecrire("bas/Bas.cpp",
           "#include <QString>\n#include <QtCore/QString>\n#include <qglobal.h>\n#include <unicode/ucol.h>\n");
    EXPECT_EQ(HorsQtCore({"bas/Bas.cpp"}), QStringList());
}

TEST_F(Inclusions, AScreenHeaderInTheCoreIsTold)
{
    Ecrire("bas/Bas.cpp", "#include <QColor>\n#include <QtWidgets>\n#include <QtGui/QImage>\n#include <qwidget.h>\n");
    EXPECT_EQ(
        HorsQtCore({"bas/Bas.cpp"}),
        QStringList({"bas/Bas.cpp:1: QColor is not Qt Core's", "bas/Bas.cpp:2: QtWidgets is not Qt Core's",
                     "bas/Bas.cpp:3: QtGui/QImage is not Qt Core's", "bas/Bas.cpp:4: qwidget.h is not Qt Core's"}));
}

TEST_F(Inclusions, AScreenHeaderThatAHeaderBringsIntoTheCoreIsTold)
{
    Ecrire("bas/Police.h", "#include <QFont>\n");
    Ecrire("bas/Texte.h", "#include \"bas/Police.h\"\n");
    Ecrire("haut/Haut.cpp", "#include \"bas/Texte.h\"\n");
    EXPECT_EQ(HorsQtCore({"haut/Haut.cpp"}), QStringList("bas/Police.h:1: QFont is not Qt Core's"));
}

TEST_F(Inclusions, AFormInTheCoreIsTold)
{
    Ecrire("haut/frmHaut.cpp", "#include \"ui_frmHaut.h\"\n");
    EXPECT_EQ(HorsQtCore({"haut/frmHaut.cpp"}), QStringList("haut/frmHaut.cpp:1: ui_frmHaut.h is not Qt Core's"));
}

TEST_F(Inclusions, AScreenHeaderOutsideTheCoreIsNobodysBusiness)
{
    Ecrire("haut/frmHaut.cpp", "#include <QWidget>\n");
    EXPECT_EQ(HorsQtCore({"haut/Haut.h"}), QStringList());
}

TEST_F(Inclusions, OnlyFilesBeyondTheLimitAreTooLong)
{
    Ecrire("bas/Court.h", "1\n2\n3\n");
    Ecrire("bas/Long.h", "1\n2\n3\n4\n");
    EXPECT_EQ(FichiersTropLongs(Arbre(), 3), QStringList("bas/Long.h: 4 lines"));
}

} // namespace
