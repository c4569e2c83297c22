#include "platform/Attributs.h"
#include "support/DossierDeTest.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class AttributsDisqueTest : public testing::Test
{
protected:
    QFileDevice::Permissions Permissions() const
    {
        constexpr auto utilisateur = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
        return QFileInfo(m_fichier).permissions() & ~utilisateur;
    }

    DossierDeTest m_dossier;
    QString m_fichier = m_dossier.Ecrire("a", "x");
    AttributsDisque m_attributs;
};

TEST_F(AttributsDisqueTest, ReadOnlyIsTheOwnersWritePermission)
{
    ASSERT_TRUE(QFile::setPermissions(m_fichier, QFileDevice::ReadOwner | QFileDevice::WriteGroup));
    EXPECT_TRUE(m_attributs.EstLectureSeule(m_fichier));

    ASSERT_TRUE(QFile::setPermissions(m_fichier, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    EXPECT_FALSE(m_attributs.EstLectureSeule(m_fichier));
}

TEST_F(AttributsDisqueTest, SetsAndClearsItAlone)
{
    constexpr auto autres = QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(m_fichier, autres | QFileDevice::WriteOwner));

    EXPECT_TRUE(m_attributs.MettreLectureSeule(m_fichier, true));
    EXPECT_EQ(Permissions(), autres);

    EXPECT_TRUE(m_attributs.MettreLectureSeule(m_fichier, false));
    EXPECT_EQ(Permissions(), autres | QFileDevice::WriteOwner);
}

TEST_F(AttributsDisqueTest, AMissingFileHasNone)
{
    EXPECT_FALSE(m_attributs.EstLectureSeule(m_dossier.Fichier("none")));
    EXPECT_FALSE(m_attributs.MettreLectureSeule(m_dossier.Fichier("none"), true));
}

} // namespace
