#include "images/Bibliotheque.h"

#include "base/ActesDuDossier.h"
#include "support/DossierDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using testing::UnorderedElementsAre;

namespace {

class BibliothequeTest : public testing::Test
{
protected:
    BibliothequeTest() { QDir().mkpath(Dossier()); }
    QString Dossier() const { return m_dossier.Fichier("cat1") + u'/'; }
    QString Ecrire(const QString& nom, const QByteArray& contenu = "x") const
    {
        return m_dossier.Ecrire("cat1/" + nom, contenu);
    }
    QByteArray Lire(const QString& nom) const { return m_dossier.Lire("cat1/" + nom); }
    QStringList Noms() const { return QDir(Dossier()).entryList(QDir::Files | QDir::Hidden); }

    DossierDeTest m_dossier;
};

/// Answers with one code after the other, and notes what it was asked about.
struct Questions
{
    QList<int> reponses;
    QStringList posees;

    QuestionSupprImg Poser()
    {
        return [this](const QString& chemin) {
            posees.append(chemin);
            return reponses.isEmpty() ? 0 : reponses.takeFirst();
        };
    }
};

} // namespace

TEST(EstNomDImage, FourExtensionsInAnyCase)
{
    for (const char* nom : {"a.gif", "a.jpg", "a.jpeg", "a.bmp", "A.GIF", "b.c.JpG", ".bmp", "jpg"})
        EXPECT_TRUE(EstNomDImage(QString::fromLatin1(nom))) << nom;
    for (const char* nom : {"a.jpe", "a.png", "a.jpg.txt", "a", "", "Zelvane.qrt", "a.jpg "})
        EXPECT_FALSE(EstNomDImage(QString::fromLatin1(nom))) << nom;
}

TEST_F(BibliothequeTest, ImagesAndDirectoriesNamedLikeOneAreListed)
{
    for (const char* nom : {"a.jpg", "B.GIF", ".c.bmp", "d.jpe", "Zelvane.qrt", "e.txt"})
        Ecrire(QString::fromLatin1(nom));
    QDir(Dossier()).mkdir("vacances.jpeg");
    QDir(Dossier()).mkdir("sous");
    EXPECT_THAT(ListerImages(Dossier()), UnorderedElementsAre("a.jpg", "B.GIF", ".c.bmp", "vacances.jpeg"));
}

TEST_F(BibliothequeTest, TheOrderIsTheSystems)
{
    for (int i = 0; i < 50; ++i)
        Ecrire(u"%1.jpg"_s.arg(i * 37 % 50));
    EXPECT_EQ(ListerImages(Dossier()), QDir(Dossier()).entryList(QDir::Files, QDir::Unsorted));
}

TEST_F(BibliothequeTest, NamesThatNoEntryCanKeepAreNotListed)
{
    for (const QString& nom : {u"a|b.jpg"_s, u"a\nb.jpg"_s, u"a\tb.jpg"_s, u"a\\b.jpg"_s, u"bon.jpg"_s})
        Ecrire(nom);
    EXPECT_EQ(ListerImages(Dossier()), QStringList("bon.jpg"));
}

TEST_F(BibliothequeTest, EventsMayRunBetweenTwoNames)
{
    Ecrire("a.jpg");
    Ecrire("b.txt");
    int fois = 0;
    ListerImages(Dossier(), [&] { ++fois; });
    EXPECT_EQ(fois, 2);
}

TEST_F(BibliothequeTest, AMissingFolderHasNoImages)
{
    EXPECT_EQ(ListerImages(m_dossier.Fichier("absent/")), QStringList());
}

TEST(NomTenable, IsTheNameWithoutItsFolder)
{
    EXPECT_EQ(NomTenable("/home/moi/été 1.jpg"), u"été 1.jpg"_s);
    EXPECT_EQ(NomTenable("C:\\images\\a.jpg"), "a.jpg");
}

TEST(NomTenable, WhatWouldEndTheNameInTheCatalogueIsReplaced)
{
    EXPECT_EQ(NomTenable("/x/a|b.jpg"), "a_b.jpg");
    EXPECT_EQ(NomTenable("/x/a\r\nb\tc.jpg"), "a__b_c.jpg");
}

TEST_F(BibliothequeTest, AFreeNameIsTheFirstNumberDirectlyBeforeTheName)
{
    Ecrire("photo.jpg");
    EXPECT_EQ(NomLibre(Dossier(), "photo.jpg"), "0photo.jpg");
    Ecrire("0photo.jpg");
    EXPECT_EQ(NomLibre(Dossier(), "photo.jpg"), "1photo.jpg");
    for (int i = 1; i < 12; ++i)
        Ecrire(QString::number(i) + "photo.jpg");
    int fois = 0;
    EXPECT_EQ(NomLibre(Dossier(), "photo.jpg", [&] { ++fois; }), "12photo.jpg");
    EXPECT_EQ(fois, 12) << "events run in each round";
}

TEST_F(BibliothequeTest, ACopyHasTheSameBytesAndCanBeWritten)
{
    const QByteArray octets = QByteArray(3 * 1024 * 1024, 'z') + "fin";
    const QString source = m_dossier.Ecrire("a.jpg", octets);
    QFile::setPermissions(source, QFileDevice::ReadOwner);
    EXPECT_TRUE(CopierImage(source, Dossier() + "b.jpg", SiLeFichierExiste::Echouer));
    EXPECT_EQ(Lire("b.jpg"), octets);
    EXPECT_TRUE(QFileInfo(Dossier() + "b.jpg").isWritable());
    EXPECT_EQ(Noms(), QStringList("b.jpg")) << "nothing else is left";
}

TEST_F(BibliothequeTest, AFileThatIsThereIsReplacedOnDemandOnly)
{
    const QString source = m_dossier.Ecrire("a.jpg", "neuf");
    Ecrire("a.jpg", "vieux");
    EXPECT_FALSE(CopierImage(source, Dossier() + "a.jpg", SiLeFichierExiste::Echouer));
    EXPECT_EQ(Lire("a.jpg"), "vieux");
    EXPECT_TRUE(CopierImage(source, Dossier() + "a.jpg", SiLeFichierExiste::Remplacer));
    EXPECT_EQ(Lire("a.jpg"), "neuf");
}

TEST_F(BibliothequeTest, WhatCannotBeCopiedLeavesTheFolderAsItWas)
{
    Ecrire("a.jpg", "vieux");
    QDir(Dossier()).mkdir("d.jpg");
    const QString cible = Dossier() + "a.jpg";
    EXPECT_FALSE(CopierImage(m_dossier.Fichier("absent.jpg"), cible, SiLeFichierExiste::Remplacer));
    EXPECT_FALSE(CopierImage(Dossier(), cible, SiLeFichierExiste::Remplacer)) << "a directory is no image";
    EXPECT_FALSE(CopierImage("/dev/zero", cible, SiLeFichierExiste::Remplacer)) << "nor is a device";
    EXPECT_FALSE(CopierImage(cible, Dossier() + "d.jpg", SiLeFichierExiste::Remplacer));
    EXPECT_FALSE(CopierImage(cible, m_dossier.Fichier("absent/b.jpg"), SiLeFichierExiste::Echouer));
    EXPECT_EQ(Lire("a.jpg"), "vieux");
    EXPECT_EQ(Noms(), QStringList("a.jpg"));
}

TEST_F(BibliothequeTest, AnImageReplacedByItselfStays)
{
    const QString image = Ecrire("a.jpg", "contenu");
    EXPECT_TRUE(CopierImage(image, Dossier() + "../cat1/a.jpg", SiLeFichierExiste::Remplacer));
    EXPECT_EQ(Lire("a.jpg"), "contenu");
}

TEST_F(BibliothequeTest, YesDeletesOneAndAsksAgain)
{
    const QString a = Ecrire("a.jpg");
    const QString b = Ecrire("b.jpg");
    Questions questions{{SupprImgOui, SupprImgNon}, {}};
    int mode = 0;
    EXPECT_TRUE(SupprimerImage(a, mode, questions.Poser()));
    EXPECT_EQ(mode, SupprImgOui);
    EXPECT_FALSE(SupprimerImage(b, mode, questions.Poser()));
    EXPECT_EQ(mode, SupprImgNon);
    EXPECT_EQ(questions.posees, QStringList({a, b}));
    EXPECT_EQ(Noms(), QStringList("b.jpg"));
}

TEST_F(BibliothequeTest, NoKeepsOneAndAsksAgain)
{
    const QString a = Ecrire("a.jpg");
    Questions questions{{SupprImgNon, SupprImgOui}, {}};
    int mode = 0;
    EXPECT_FALSE(SupprimerImage(a, mode, questions.Poser()));
    EXPECT_TRUE(SupprimerImage(a, mode, questions.Poser()));
    EXPECT_EQ(questions.posees.size(), 2);
}

TEST_F(BibliothequeTest, YesForAllDeletesTheOthersWithoutAQuestion)
{
    Questions questions{{SupprImgOuiTous}, {}};
    int mode = 0;
    for (const char* nom : {"a.jpg", "b.jpg", "c.jpg"})
        EXPECT_TRUE(SupprimerImage(Ecrire(QString::fromLatin1(nom)), mode, questions.Poser()));
    EXPECT_EQ(mode, SupprImgOuiTous);
    EXPECT_EQ(questions.posees.size(), 1);
    EXPECT_EQ(Noms(), QStringList());
}

TEST_F(BibliothequeTest, NoForAllKeepsTheOthersWithoutAQuestion)
{
    Questions questions{{SupprImgNonTous}, {}};
    int mode = 0;
    for (const char* nom : {"a.jpg", "b.jpg", "c.jpg"})
        EXPECT_FALSE(SupprimerImage(Ecrire(QString::fromLatin1(nom)), mode, questions.Poser()));
    EXPECT_EQ(mode, SupprImgNonTous);
    EXPECT_EQ(questions.posees.size(), 1);
    EXPECT_EQ(Noms().size(), 3);
}

TEST_F(BibliothequeTest, AnAnswerThatIsNoneKeepsTheImage)
{
    Questions questions{{7}, {}};
    int mode = 0;
    EXPECT_FALSE(SupprimerImage(Ecrire("a.jpg"), mode, questions.Poser()));
    EXPECT_EQ(Noms(), QStringList("a.jpg"));
}

TEST_F(BibliothequeTest, AMissingImageIsNoQuestionAndLeavesTheMode)
{
    QDir(Dossier()).mkdir("d.jpg");
    Questions questions;
    for (const int avant : {0, 1, 2, 3, 4}) {
        int mode = avant;
        EXPECT_FALSE(SupprimerImage(Dossier() + "absente.jpg", mode, questions.Poser()));
        EXPECT_FALSE(SupprimerImage(Dossier() + "d.jpg", mode, questions.Poser())) << "a directory is no image";
        EXPECT_FALSE(SupprimerImage(QString(), mode, questions.Poser()));
        EXPECT_EQ(mode, avant);
    }
    EXPECT_EQ(questions.posees, QStringList());
    EXPECT_TRUE(QFileInfo(Dossier() + "d.jpg").isDir());
}

TEST_F(BibliothequeTest, AReadOnlyImageIsDeletedToo)
{
    const QString image = Ecrire("a.jpg");
    QFile::setPermissions(image, QFileDevice::ReadOwner);
    int mode = SupprImgOuiTous;
    EXPECT_TRUE(SupprimerImage(image, mode, Questions().Poser()));
    EXPECT_EQ(Noms(), QStringList());
}

TEST_F(BibliothequeTest, WhatIsDeletedOrCopiedIsRemembered)
{
    const QString source = m_dossier.Ecrire("ailleurs.jpg", "image");
    Ecrire("a.jpg");
    int mode = SupprImgOuiTous;
    ASSERT_TRUE(SupprimerImage(Dossier() + "a.jpg", mode, Questions().Poser()));
    ASSERT_TRUE(CopierImage(source, Dossier() + "b.jpg", SiLeFichierExiste::Echouer));
    const auto actes = ActesDuDossier(Dossier());
    EXPECT_TRUE(actes.value("a.jpg").supprime) << "it is not missed";
    ASSERT_TRUE(actes.contains("b.jpg"));
    EXPECT_EQ(actes.value("b.jpg").ecrit.taille, 5U);

    ASSERT_TRUE(CopierImage(source, Dossier() + "a.jpg", SiLeFichierExiste::Echouer));
    EXPECT_FALSE(ActesDuDossier(Dossier()).value("a.jpg").supprime) << "one of that name is there again";
}
