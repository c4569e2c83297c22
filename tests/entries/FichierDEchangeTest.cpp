#include "entries/FichierDEchange.h"

#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString Place()
{
    return plateforme().dossierProgramme + u"~qrtCopier.tmp"_s;
}

/// What lies at the place; nothing when nothing does.
std::optional<QByteArray> Contenu()
{
    QFile fichier(Place());
    return fichier.open(QIODevice::ReadOnly) ? std::optional(fichier.readAll()) : std::nullopt;
}

void Deposer(const QString& chemin, const QByteArray& octets)
{
    QFile fichier(chemin);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
}

} // namespace

TEST(FichierDEchange, HoldsTheLinesUntilTheyAreReadBack)
{
    FichierDEchange fichier;
    EXPECT_EQ(Contenu(), QByteArray());
    fichier.EcrireLigne(u"[Zelvane]");
    EXPECT_EQ(Contenu(), QByteArray("[Zelvane]\r\n"));
    fichier.EcrireLigne(u"★\tété");
    EXPECT_EQ(fichier.Relire(), u"[Zelvane]\r\n★\tété\r\n"_s);
    EXPECT_EQ(Contenu(), std::nullopt) << "it is deleted";
    EXPECT_FALSE(fichier.AEchoue());
}

TEST(FichierDEchange, HoldsAsMuchAsIsWritten)
{
    FichierDEchange fichier;
    const QByteArray ligne(999, 'x');
    for (int i = 0; i < 5000; ++i)
        fichier.Ecrire(ligne);
    EXPECT_GT(Contenu()->size(), 3'000'000) << "not all of it waits in memory";
    EXPECT_EQ(fichier.Relire().size(), 5000 * 999);
    EXPECT_FALSE(fichier.AEchoue());
}

TEST(FichierDEchange, StaysWhenItIsNotReadBack)
{
    {
        FichierDEchange fichier;
        fichier.EcrireLigne(u"[Zelvane-TxtPRE]");
    }
    EXPECT_EQ(Contenu(), QByteArray("[Zelvane-TxtPRE]\r\n"));
}

TEST(FichierDEchange, IsMadeAfresh)
{
    Deposer(Place(), "ancien, et bien plus long que ce qui vient");
    FichierDEchange fichier;
    fichier.EcrireLigne(u"a");
    EXPECT_EQ(Contenu(), QByteArray("a\r\n"));
    EXPECT_EQ(fichier.Relire(), u"a\r\n"_s);
}

TEST(FichierDEchange, NeverFollowsALink)
{
    const QString ailleurs = PlateformeDeTest::Courante().dossier.Fichier(u"ailleurs.txt"_s);
    Deposer(ailleurs, "garder");
    ASSERT_TRUE(QFile::link(ailleurs, Place()));
    FichierDEchange fichier;
    fichier.EcrireLigne(u"a");
    EXPECT_EQ(fichier.Relire(), u"a\r\n"_s);
    QFile la(ailleurs);
    ASSERT_TRUE(la.open(QIODevice::ReadOnly));
    EXPECT_EQ(la.readAll(), "garder");
}

TEST(FichierDEchange, TwoCopiesAtOnceNeverMix)
{
    FichierDEchange premier;
    premier.EcrireLigne(u"premier");
    FichierDEchange second;
    second.EcrireLigne(u"second");
    premier.EcrireLigne(u"encore");
    EXPECT_EQ(premier.Relire(), u"premier\r\nencore\r\n"_s);
    EXPECT_EQ(Contenu(), QByteArray("second\r\n")) << "the file of the other copy stays";
    EXPECT_EQ(second.Relire(), u"second\r\n"_s);
    EXPECT_EQ(Contenu(), std::nullopt);
    EXPECT_FALSE(premier.AEchoue() || second.AEchoue());
}

TEST(FichierDEchange, WhereItCannotBeMadeTheTextIsGatheredAllTheSame)
{
    ASSERT_TRUE(QDir().mkdir(Place()));
    FichierDEchange fichier;
    EXPECT_TRUE(fichier.AEchoue());
    fichier.EcrireLigne(u"a");
    EXPECT_EQ(fichier.Relire(), u"a\r\n"_s);
    EXPECT_TRUE(QDir(Place()).exists());
}

TEST(FichierDEchange, WhatAnotherProgramDidToItDoesNoHarm)
{
    FichierDEchange fichier;
    fichier.EcrireLigne(u"a");
    ASSERT_TRUE(QFile::resize(Place(), 1));
    EXPECT_EQ(fichier.Relire(), u"a\r\n"_s);
    EXPECT_TRUE(fichier.AEchoue());
}

TEST(FichierDEchange, IsPutOnTheClipboard)
{
    const FileDeReponses reponses;
    FichierDEchange fichier;
    fichier.EcrireLigne(u"é");
    PoserSurPressePapiers(fichier);
    EXPECT_EQ(PlateformeDeTest::Courante().pressePapiers.texte, u"é\r\n"_s);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST(FichierDEchange, ThatItFailedIsTold)
{
    const FileDeReponses reponses;
    ASSERT_TRUE(QDir().mkdir(Place()));
    FichierDEchange fichier;
    fichier.EcrireLigne(u"é");
    PoserSurPressePapiers(fichier);
    EXPECT_EQ(PlateformeDeTest::Courante().pressePapiers.texte, u"é\r\n"_s);
    EXPECT_EQ(reponses.Cles(), QStringList({u"msgEchange"_s}));
    EXPECT_TRUE(reponses.Affiches().first().message.texte.contains(Place()));
}
