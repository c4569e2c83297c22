#include "images/FichierImage.h"

#include "support/DossierDeTest.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FichierImageTest : public testing::Test
{
protected:
    FichierImageTest()
    {
        m_dossier.Ecrire("cat1/pochette.jpg", "x");
        m_dossier.Ecrire("cat1/sous/dedans.jpg", "x");
        m_dossier.Ecrire("dehors.jpg", "x");
    }
    QString Dossier() const { return m_dossier.Fichier("cat1") + u'/'; }

    DossierDeTest m_dossier;
};

} // namespace

TEST_F(FichierImageTest, ABareNameIsAFileOfTheFolder)
{
    EXPECT_EQ(FichierImage(Dossier(), "pochette.jpg"), Dossier() + "pochette.jpg");
}

TEST_F(FichierImageTest, NoNameAMissingFileAndADirectoryAreNone)
{
    EXPECT_EQ(FichierImage(Dossier(), ""), "");
    EXPECT_EQ(FichierImage(Dossier(), "absente.jpg"), "");
    EXPECT_EQ(FichierImage(Dossier(), "sous"), "");
    EXPECT_EQ(FichierImage(Dossier(), "."), "");
    EXPECT_EQ(FichierImage(Dossier(), ".."), "");
}

TEST_F(FichierImageTest, ANameThatLeadsElsewhereNamesNoFile)
{
    m_dossier.Ecrire("cat1/a\\b.jpg", "x");
    for (const QString& nom : {u"../dehors.jpg"_s, u"sous/dedans.jpg"_s, u"./pochette.jpg"_s, u"/pochette.jpg"_s,
                               u"a\\b.jpg"_s, m_dossier.Fichier("dehors.jpg")}) {
        EXPECT_EQ(FichierImage(Dossier(), nom), "") << nom.toStdString();
        EXPECT_EQ(IconeImage(Dossier(), nom), "icoerror") << nom.toStdString();
    }
}

TEST_F(FichierImageTest, TheMarkerTellsWhetherTheFileIsThere)
{
    EXPECT_EQ(IconeImage(Dossier(), ""), "noico");
    EXPECT_EQ(IconeImage(Dossier(), "pochette.jpg"), "ico");
    EXPECT_EQ(IconeImage(Dossier(), "absente.jpg"), "icoerror");
    EXPECT_EQ(IconeImage(Dossier(), "sous"), "icoerror");
}
