#include "catalogue/texte/TypeFichier.h"

#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class TypeDeFichier : public testing::Test
{
protected:
    int TypeDe(const QByteArray& contenu) { return TypeFichier(dossier.Ecrire("x.qrt", contenu)); }

    FileDeReponses messages;
    DossierDeTest dossier;
};

} // namespace

TEST_F(TypeDeFichier, TenBytesTellTheBareText)
{
    EXPECT_EQ(TypeDe("[FileInfo]"), 1);
    EXPECT_EQ(TypeDe("[FileInfo]\r\nType=something else\r\n"), 1);
    EXPECT_EQ(TypeDe("[FileInfo"), 0);
    EXPECT_EQ(TypeDe("[fileinfo]\r\n"), 0);
    EXPECT_EQ(TypeDe(" [FileInfo]"), 0);
    EXPECT_EQ(TypeDe(""), 0);
    EXPECT_EQ(TypeDe("PK"), 0);
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(TypeDeFichier, AnArchiveIsACatalogueByTheExactNameOfItsText)
{
    EXPECT_EQ(TypeDe(FaireArchive({{"a.jpg", ""}, {"Zelvane.qrt", ""}})), 2);
    EXPECT_EQ(TypeDe(FaireArchive({{"zelvane.qrt", ""}})), 0);
    EXPECT_EQ(TypeDe(FaireArchive({{"Zelvane.qrt ", ""}})), 0);
    EXPECT_EQ(TypeDe(FaireArchive({{"sous/Zelvane.qrt", ""}})), 0);
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(TypeDeFichier, AnArchiveThatCannotBeListedIsNoCatalogueWithoutAMessage)
{
    const QByteArray archive = FaireArchive({{"Zelvane.qrt", "[FileInfo]"}});
    EXPECT_EQ(TypeDe(archive.chopped(1)), 0);
    EXPECT_EQ(TypeDe("PK\3\4" + QByteArray(100, 'x')), 0);
    EXPECT_EQ(TypeDe("x" + archive), 0) << "the signature stands first in the file";
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(TypeDeFichier, AnEncryptedArchiveIsACatalogueAndNobodyIsAsked)
{
    dossier.Ecrire("Zelvane.qrt", "[FileInfo]");
    Lancer("zip", {"-q", "-P", "secret", "x.qrt", "Zelvane.qrt"}, dossier.Chemin());
    EXPECT_EQ(TypeFichier(dossier.Fichier("x.qrt")), 2);
    EXPECT_EQ(messages.QuestionsDeMotDePasse(), 0);
}

TEST_F(TypeDeFichier, WhatCannotBeReadIsTrap)
{
    EXPECT_EQ(TypeFichier(dossier.Fichier("absent")), 0);
    EXPECT_EQ(TypeFichier(dossier.Chemin()), 0);
    ASSERT_EQ(messages.Affiches().size(), 2);
    for (const FileDeReponses::Affiche& affiche : messages.Affiches()) {
        EXPECT_EQ(affiche.message.texte, "trap");
        EXPECT_EQ(affiche.message.cle, "") << "the word is in no language file";
        EXPECT_EQ(affiche.genre, MsgOk);
        EXPECT_EQ(affiche.titre, "");
    }
}

TEST_F(TypeDeFichier, APipeIsNotWaitedFor)
{
    const QString tube = dossier.Fichier("tube");
    ASSERT_EQ(mkfifo(tube.toUtf8().constData(), 0600), 0);
    EXPECT_EQ(TypeFichier(tube), 0);
}
