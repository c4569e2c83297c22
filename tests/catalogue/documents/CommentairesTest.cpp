#include "catalogue/documents/Commentaires.h"

#include "base/ActesDuDossier.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TexteExact.h"
#include "support/ArchiveDeTest.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

const QString s_etoiles = QStringLiteral("Mes ★★ préférés\n日本 𝄞");

class CommentairesTest : public testing::Test
{
protected:
    QString Dossier() const { return d.doc.TmpFolder; }
    QByteArray Texte() const { return d.dossier.Lire("Zelvane.txt"); }
    bool ExacteExiste() const { return d.dossier.Existe("Zelvane.utf8"); }
    bool Ecrire(const QString& texte) const { return Commentaires::Ecrire(Dossier(), texte); }
    std::optional<QString> Lire() const { return Commentaires::Lire(Dossier()); }

    /// A saved catalogue of one entry.
    void Enregistrer(const QString& titre)
    {
        TexteDeCatalogue catalogue;
        catalogue.entrees = {"a|b|"};
        d.Charger(catalogue.Texte());
        d.table.ListItems(1).SetText(titre);
        d.doc.SetCheminReel(m_ailleurs.Fichier("a.qrt"));
        ASSERT_TRUE(EcrireFichier(d.doc, false));
    }

    QString TitreRelu()
    {
        ChargerFichier(d.doc);
        return d.table.ListItems(1).Text();
    }

    DocumentDeTest d;
    DossierDeTest m_ailleurs;
};

TEST_F(CommentairesTest, ThereAreNoneWithoutAFile)
{
    EXPECT_FALSE(Lire());
    EXPECT_FALSE(Commentaires::AMontrer(Dossier()));
}

TEST_F(CommentairesTest, AreWrittenInTheCodePageWithItsLineEnds)
{
    EXPECT_TRUE(Ecrire("Été à Nœux\n\n12 €"));
    EXPECT_EQ(Texte(), "\xC9t\xE9 \xE0 N\x9Cux\r\n\r\n12 \x80");
    EXPECT_EQ(Lire(), "Été à Nœux\n\n12 €");
    EXPECT_FALSE(ExacteExiste()) << "the code page holds it all";
}

TEST_F(CommentairesTest, AnEmptyTextIsOneLineEndAndNotShown)
{
    EXPECT_TRUE(Ecrire(""));
    EXPECT_EQ(Texte(), "\r\n");
    EXPECT_FALSE(Commentaires::AMontrer(Dossier()));
}

TEST_F(CommentairesTest, AnythingElseIsShown)
{
    for (const char* contenu : {"a", "a\r\n", "\r\n\r\n", "\n", "\r\n "}) {
        d.dossier.Ecrire("Zelvane.txt", contenu);
        EXPECT_TRUE(Commentaires::AMontrer(Dossier())) << QByteArray(contenu).toHex().toStdString();
    }
}

TEST_F(CommentairesTest, EveryLineEndIsOneBreakInTheText)
{
    d.dossier.Ecrire("Zelvane.txt", "a\r\nb\nc\rd\r\n");
    EXPECT_EQ(Lire(), "a\nb\nc\nd\n");
}

TEST_F(CommentairesTest, CharactersBeyondTheCodePageComeBack)
{
    EXPECT_TRUE(Ecrire(s_etoiles));
    EXPECT_EQ(Texte(), "Mes ?? pr\xE9"
                       "f\xE9r\xE9s\r\n?? ?");
    EXPECT_EQ(Lire(), s_etoiles);
}

TEST_F(CommentairesTest, TheExactFileGoesWhenNothingNeedsIt)
{
    ASSERT_TRUE(Ecrire("★"));
    ASSERT_TRUE(ExacteExiste());
    EXPECT_TRUE(Ecrire("?"));
    EXPECT_FALSE(ExacteExiste());
    EXPECT_EQ(Lire(), "?") << "not the star that reduces to the same byte";
}

TEST_F(CommentairesTest, TheExactFileThatWentIsNotMissed)
{
    ASSERT_TRUE(Ecrire(s_etoiles));
    ASSERT_TRUE(Ecrire("simple"));
    ASSERT_FALSE(ExacteExiste());
    EXPECT_TRUE(ActesDuDossier(Dossier()).value("Zelvane.utf8").supprime);
}

TEST_F(CommentairesTest, TheExactCatalogueStaysWhateverTheCommentsNeed)
{
    Enregistrer("日本");
    ASSERT_TRUE(ExacteExiste());
    EXPECT_TRUE(Ecrire(s_etoiles));
    EXPECT_EQ(TitreRelu(), "日本");
    EXPECT_EQ(Lire(), s_etoiles);
    EXPECT_TRUE(Ecrire("Simple"));
    EXPECT_EQ(TitreRelu(), "日本");
    EXPECT_EQ(Lire(), "Simple");
}

TEST_F(CommentairesTest, ACatalogueInTheCodePageIsReadTheSameBehindAnExactComment)
{
    Enregistrer("Été");
    EXPECT_TRUE(Ecrire(s_etoiles));
    EXPECT_EQ(TitreRelu(), "Été");
    EXPECT_EQ(Lire(), s_etoiles);
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_EQ(Lire(), s_etoiles) << "a save keeps it";
}

TEST_F(CommentairesTest, AnExactTextThatAnOlderProgramMadeStaleIsNotRevived)
{
    Enregistrer("日本");
    d.dossier.Ecrire("Zelvane.qrt", d.dossier.Lire("Zelvane.qrt").replace("??", "Oslo"));
    EXPECT_TRUE(Ecrire(s_etoiles));
    EXPECT_EQ(TitreRelu(), "Oslo");
    EXPECT_EQ(Lire(), s_etoiles);
}

TEST_F(CommentairesTest, AFileThatCannotBeReplacedIsAFailure)
{
    QDir().mkpath(d.dossier.Fichier("Zelvane.txt"));
    EXPECT_FALSE(Ecrire("Nouveau"));
    EXPECT_EQ(QDir(Dossier()).entryList(QDir::Files), QStringList()) << "nothing is left beside it";
    EXPECT_FALSE(Commentaires::Ecrire(d.dossier.Fichier("none/"), "Nouveau"));
}

TEST_F(CommentairesTest, AFullDiskLeavesTheOldComments)
{
    ASSERT_TRUE(Ecrire(s_etoiles));
    for (const QString& texte : {QString(100000, u'x'), QString(30000, u'★')}) {
        EXPECT_EQ(DansUnEnfant([&] {
                      LimiterTailleDesFichiers(40000); // the second text fails in its exact form alone
                      return Ecrire(texte) ? 1 : 0;
                  }),
                  0);
        EXPECT_EQ(Lire(), s_etoiles);
        EXPECT_EQ(QDir(Dossier()).entryList(QDir::Files, QDir::Name), QStringList({"Zelvane.txt", "Zelvane.utf8"}));
    }
}

} // namespace
