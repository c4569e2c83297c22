#include "entries/CopierImages.h"

#include "base/ActesDuDossier.h"
#include "support/DossierDeTest.h"
#include "support/FileDeReponses.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class QuestionsPreparees : public QuestionsDImage
{
public:
    bool Remplacer(const QString& gauche, const QString& droite) override
    {
        demandees.append(gauche);
        demandees.append(droite);
        return remplacer;
    }
    bool Renommer() override
    {
        ++renommages;
        return renommer;
    }

    bool remplacer = false;
    bool renommer = false;
    QStringList demandees;
    int renommages = 0;
};

class CopierImagesTest : public testing::Test
{
protected:
    int Copier(const QStringList& noms) { return CopierImages(noms, source.Chemin(), cible.Chemin(), questions); }
    QStringList DansLaCible() const
    {
        return QDir(cible.Chemin()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    DossierDeTest source;
    DossierDeTest cible;
    QuestionsPreparees questions;
};

} // namespace

TEST_F(CopierImagesTest, ANewOneIsCopiedWithoutAQuestion)
{
    source.Ecrire("a.jpg", "image");
    EXPECT_EQ(Copier({"a.jpg"}), 0);
    EXPECT_EQ(cible.Lire("a.jpg"), "image");
    EXPECT_EQ(questions.demandees, QStringList());
    EXPECT_TRUE(ActesDuDossier(cible.Chemin()).contains("a.jpg")) << "the program's own act";
}

TEST_F(CopierImagesTest, TheFolderMayLackItsSeparator)
{
    source.Ecrire("a.jpg", "image");
    EXPECT_EQ(CopierImages({"a.jpg"}, source.Chemin().chopped(1), cible.Chemin(), questions), 0);
    EXPECT_EQ(cible.Lire("a.jpg"), "image");
}

TEST_F(CopierImagesTest, YesReplacesTheOneOnTheLeft)
{
    source.Ecrire("a.jpg", "neuve");
    cible.Ecrire("a.jpg", "vieille");
    questions.remplacer = true;
    EXPECT_EQ(Copier({"a.jpg"}), 0);
    EXPECT_EQ(cible.Lire("a.jpg"), "neuve");
    EXPECT_EQ(questions.demandees, QStringList({cible.Fichier("a.jpg"), source.Fichier("a.jpg")}));
    EXPECT_EQ(questions.renommages, 0);
}

TEST_F(CopierImagesTest, NoAndYesKeepsBothUnderTheFirstFreeNumber)
{
    source.Ecrire("a.jpg", "neuve");
    cible.Ecrire("a.jpg", "vieille");
    cible.Ecrire("0a.jpg", "autre");
    questions.renommer = true;
    EXPECT_EQ(Copier({"a.jpg"}), 0);
    EXPECT_EQ(cible.Lire("a.jpg"), "vieille");
    EXPECT_EQ(cible.Lire("0a.jpg"), "autre");
    EXPECT_EQ(cible.Lire("1a.jpg"), "neuve");
}

TEST_F(CopierImagesTest, NoAndNoCopiesNothingAndIsNoFailure)
{
    source.Ecrire("a.jpg", "neuve");
    cible.Ecrire("a.jpg", "vieille");
    EXPECT_EQ(Copier({"a.jpg"}), 0);
    EXPECT_EQ(DansLaCible(), QStringList({"a.jpg"}));
    EXPECT_EQ(cible.Lire("a.jpg"), "vieille");
}

TEST_F(CopierImagesTest, EachImageIsAskedAboutAnew)
{
    for (const char* nom : {"a.jpg", "b.jpg"}) {
        source.Ecrire(QString::fromLatin1(nom), "neuve");
        cible.Ecrire(QString::fromLatin1(nom), "vieille");
    }
    EXPECT_EQ(Copier({"a.jpg", "b.jpg", "a.jpg"}), 0);
    EXPECT_EQ(questions.demandees.size(), 6);
    EXPECT_EQ(questions.renommages, 3);
}

TEST_F(CopierImagesTest, AnImageOverItselfStays)
{
    cible.Ecrire("a.jpg", "image");
    questions.remplacer = true;
    EXPECT_EQ(CopierImages({"a.jpg"}, cible.Chemin(), cible.Chemin(), questions), 0);
    EXPECT_EQ(cible.Lire("a.jpg"), "image");
    EXPECT_EQ(questions.demandees.size(), 2);
}

TEST_F(CopierImagesTest, AFolderThatIsGoneCostsEveryImage)
{
    cible.Ecrire("b.jpg", "vieille");
    questions.remplacer = true;
    EXPECT_EQ(CopierImages({"a.jpg", "b.jpg"}, source.Fichier("absent/"), cible.Chemin(), questions), 2);
    EXPECT_EQ(cible.Lire("b.jpg"), "vieille");
    EXPECT_EQ(DansLaCible(), QStringList({"b.jpg"}));
}

TEST_F(CopierImagesTest, NamesThatAreNoImagesAreLeftAlone)
{
    source.Ecrire("dessous/a.jpg", "x");
    for (const char* nom :
         {"a.txt", "id_rsa", "Zelvane.qrt", "Zelvane.txt", "Zelvane.utf8", "print.ini", "print.image"})
        source.Ecrire(QString::fromLatin1(nom), "mauvais");
    cible.Ecrire("Zelvane.qrt", "bon");
    questions.remplacer = true;
    const QStringList noms{"dessous/a.jpg",
                           "../a.jpg",
                           source.Fichier("dessous/a.jpg"),
                           "dessous\\a.jpg",
                           "a.txt",
                           "id_rsa",
                           "Zelvane.qrt",
                           "Zelvane.txt",
                           "Zelvane.utf8",
                           "print.ini",
                           "print.image",
                           "a|b.jpg",
                           u"a\nb.jpg"_s,
                           u"a\0b.jpg"_s,
                           ".",
                           ".."};
    EXPECT_EQ(Copier(noms), noms.size());
    EXPECT_EQ(DansLaCible(), QStringList({"Zelvane.qrt"}));
    EXPECT_EQ(cible.Lire("Zelvane.qrt"), "bon");
    EXPECT_EQ(questions.demandees, QStringList());
}

TEST_F(CopierImagesTest, WhatIsNoFileIsNeitherReadNorShown)
{
    const QString ailleurs = source.Ecrire("secret", "secret");
    QFile::link(ailleurs, source.Fichier("lien.jpg"));
    QFile::link(source.Fichier("rien"), source.Fichier("pendu.jpg"));
    QDir(source.Chemin()).mkdir("dossier.jpg");
    mkfifo(source.Fichier("tube.jpg").toLocal8Bit().constData(), 0600);
    for (const char* nom : {"lien.jpg", "pendu.jpg", "dossier.jpg", "tube.jpg"})
        cible.Ecrire(QString::fromLatin1(nom), "vieille");
    questions.remplacer = true;
    EXPECT_EQ(Copier({"lien.jpg", "pendu.jpg", "dossier.jpg", "tube.jpg"}), 4);
    EXPECT_EQ(questions.demandees, QStringList());
    EXPECT_EQ(cible.Lire("lien.jpg"), "vieille");
}

TEST_F(CopierImagesTest, NothingIsWrittenThroughALinkInTheCategory)
{
    source.Ecrire("a.jpg", "neuve");
    source.Ecrire("b.jpg", "neuve");
    const DossierDeTest dehors;
    QFile::link(dehors.Ecrire("dehors.txt", "a moi"), cible.Fichier("a.jpg"));
    QFile::link(dehors.Fichier("absent.txt"), cible.Fichier("b.jpg"));
    questions.remplacer = true;
    EXPECT_EQ(Copier({"a.jpg", "b.jpg"}), 2);
    EXPECT_EQ(dehors.Lire("dehors.txt"), "a moi");
    EXPECT_FALSE(dehors.Existe("absent.txt"));
}

TEST_F(CopierImagesTest, AFolderIsNamedFromTheRootOn)
{
    source.Ecrire("a.jpg", "x");
    const QString ici = QDir::currentPath();
    QDir::setCurrent(source.Chemin());
    for (const char* dossier : {"", ".", "./", ":/"})
        EXPECT_EQ(CopierImages({"a.jpg"}, QString::fromLatin1(dossier), cible.Chemin(), questions), 1) << dossier;
    QDir::setCurrent(ici);
    EXPECT_EQ(DansLaCible(), QStringList());
}

TEST_F(CopierImagesTest, WindowsLiveBetweenTwoImages)
{
    source.Ecrire("a.jpg", "x");
    int pas = 0;
    CopierImages({"a.jpg", "a.jpg"}, source.Chemin(), cible.Chemin(), questions, [&] { ++pas; });
    EXPECT_EQ(pas, 2);
}

TEST(DireImagesNonCopiees, SaysOneWordForAll)
{
    FileDeReponses reponses;
    DireImagesNonCopiees(0);
    EXPECT_EQ(reponses.Cles(), QStringList());
    DireImagesNonCopiees(3);
    EXPECT_EQ(reponses.Cles(), QStringList({"msgImagesNonCopiees"}));
    EXPECT_EQ(reponses.Affiches().first().message.texte,
              u"Images qui n'ont pas pu être copiées : 3. Les entrées ont été ajoutées."_s);
}
