#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/mZipDLLProc.h"
#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <zip.h>

namespace {

/// Records the texts of the password questions.
class Questions : public FileDeReponses
{
public:
    QStringList textes;

    QString DemanderMotDePasse(const QString& titre, const QString& invite) override
    {
        textes.append(titre + u'|' + invite);
        return FileDeReponses::DemanderMotDePasse(titre, invite);
    }
};

class ArchiveChiffree : public testing::Test
{
protected:
    ArchiveChiffree()
    {
        MotDePasseAbandonne = false;
        for (int i = 1; i <= 3; ++i)
            source.Ecrire(QStringLiteral("image%1.jpg").arg(i), Contenu(i));
    }

    static QByteArray Contenu(int i) { return "image " + QByteArray::number(i) + QByteArray(5000, 'x'); }

    /// Packs images with Info-ZIP; `motDePasse` as bytes.
    void Emballer(const QByteArray& motDePasse, const QStringList& images)
    {
        const QString script = source.Ecrire("pack", "zip -q -P '" + motDePasse + "' x.qrt \"$@\"\n");
        Lancer("sh", QStringList{script} + images, source.Chemin());
    }
    void Emballer(const QByteArray& motDePasse) { Emballer(motDePasse, {"image1.jpg", "image2.jpg", "image3.jpg"}); }

    int Extraire()
    {
        ccZip zip;
        zip.Init(source.Fichier("x.qrt"));
        return zip.Decompress(cible.Chemin(), QString());
    }
    QStringList Extraits() const { return QDir(cible.Chemin()).entryList(QDir::Files, QDir::Name); }

    DossierDeTest source;
    DossierDeTest cible;
    Questions questions;
};

} // namespace

TEST_F(ArchiveChiffree, TheQuestionHasItsTexts)
{
    Emballer("secret");
    questions.PreparerMotDePasse("secret");
    EXPECT_EQ(Extraire(), ZipFait);
    EXPECT_EQ(questions.textes,
              QStringList("Fichier Crypté|Veuillez entrer le mot de passe!\n\nAvertissement : Si vous réenregistrez "
                          "cette catégorie, le mot de passe ne sera pas concervé."));
}

TEST_F(ArchiveChiffree, TheGivenPasswordServesAllEntries)
{
    Emballer("secret");
    questions.PreparerMotDePasse("secret");
    EXPECT_EQ(Extraire(), ZipFait);
    EXPECT_EQ(questions.QuestionsDeMotDePasse(), 1);
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(cible.Lire(QStringLiteral("image%1.jpg").arg(i)), Contenu(i));
}

TEST_F(ArchiveChiffree, AnEmptyAnswerFailsAndNoFurtherQuestionIsAsked)
{
    Emballer("secret");
    questions.PreparerMotDePasse("");
    EXPECT_EQ(Extraire(), ZipMotDePasse);
    EXPECT_TRUE(MotDePasseAbandonne);
    EXPECT_EQ(Extraits(), QStringList());
    EXPECT_EQ(Extraire(), ZipMotDePasse) << "the same extraction goes on: it is not asked again";
    EXPECT_EQ(questions.QuestionsDeMotDePasse(), 1);
}

TEST_F(ArchiveChiffree, AWrongPasswordIsAskedAgainTwice)
{
    Emballer("secret");
    for (const char* reponse : {"faux", "Secret", "secret"})
        questions.PreparerMotDePasse(reponse);
    EXPECT_EQ(Extraire(), ZipFait);

    for (const char* reponse : {"faux", "Secret", "SECRET"})
        questions.PreparerMotDePasse(reponse);
    EXPECT_EQ(Extraire(), ZipMotDePasse);
    EXPECT_EQ(questions.QuestionsDeMotDePasse(), 6);
    EXPECT_FALSE(MotDePasseAbandonne);
}

TEST_F(ArchiveChiffree, AWrongPasswordLeavesNothing)
{
    Emballer("secret");
    for (int i = 0; i < 3; ++i)
        questions.PreparerMotDePasse("faux");
    EXPECT_EQ(Extraire(), ZipMotDePasse);
    EXPECT_EQ(Extraits(), QStringList());
}

TEST_F(ArchiveChiffree, EntriesMayHaveDifferentPasswords)
{
    Emballer("secret", {"image1.jpg"});
    Emballer("autre", {"image2.jpg"});
    Emballer("secret", {"image3.jpg"});
    for (const char* reponse : {"secret", "autre", "secret"})
        questions.PreparerMotDePasse(reponse);
    EXPECT_EQ(Extraire(), ZipFait);
    EXPECT_EQ(cible.Lire("image2.jpg"), Contenu(2));
    EXPECT_EQ(cible.Lire("image3.jpg"), Contenu(3));
}

TEST_F(ArchiveChiffree, PlainEntriesNeedNoPassword)
{
    Lancer("zip", {"-q", "x.qrt", "image1.jpg"}, source.Chemin());
    EXPECT_EQ(Extraire(), ZipFait);
    EXPECT_EQ(questions.QuestionsDeMotDePasse(), 0);
}

TEST_F(ArchiveChiffree, AnEntryThatIsNotExtractedIsNotAskedFor)
{
    Emballer("secret", {"image1.jpg"});
    Lancer("zip", {"-q", "x.qrt", "image2.jpg"}, source.Chemin());
    ccZip zip;
    zip.Init(source.Fichier("x.qrt"));
    EXPECT_EQ(zip.Decompress(cible.Chemin(), "*2*"), ZipFait);
    EXPECT_EQ(Extraits(), QStringList("image2.jpg"));
    EXPECT_EQ(questions.QuestionsDeMotDePasse(), 0);
}

TEST_F(ArchiveChiffree, AStoredEntryIsDecrypted)
{
    Lancer("zip", {"-q", "-0", "-P", "secret", "x.qrt", "image1.jpg"}, source.Chemin());
    questions.PreparerMotDePasse("secret");
    EXPECT_EQ(Extraire(), ZipFait);
    EXPECT_EQ(cible.Lire("image1.jpg"), Contenu(1));
}

// The one byte that tests a password lets through every 256th wrong one.
TEST_F(ArchiveChiffree, AWrongPasswordThatPassesByChanceIsStillWrong)
{
    for (const char* niveau : {"-0", "-5"}) {
        QFile::remove(source.Fichier("x.qrt"));
        Lancer("zip", {"-q", niveau, "-P", "secret", "x.qrt", "image1.jpg"}, source.Chemin());
        zip_t* archive = zip_open(source.Fichier("x.qrt").toUtf8().constData(), ZIP_RDONLY, nullptr);
        ASSERT_NE(archive, nullptr);
        zip_file_t* ouverte = nullptr;
        QByteArray faux;
        for (int i = 0; !ouverte && i < 100000; ++i) {
            faux = "faux" + QByteArray::number(i);
            ouverte = zip_fopen_index_encrypted(archive, 0, 0, faux.constData());
        }
        ASSERT_NE(ouverte, nullptr);
        zip_fclose(ouverte);
        zip_discard(archive);

        questions.PreparerMotDePasse(QString::fromUtf8(faux));
        questions.PreparerMotDePasse("secret");
        EXPECT_EQ(Extraire(), ZipFait) << niveau;
        EXPECT_EQ(cible.Lire("image1.jpg"), Contenu(1));
        for (int i = 0; i < 3; ++i)
            questions.PreparerMotDePasse(QString::fromUtf8(faux));
        EXPECT_EQ(Extraire(), ZipMotDePasse) << niveau;
        EXPECT_EQ(Extraits(), QStringList());
    }
}

TEST_F(ArchiveChiffree, APasswordIsTriedInTheCodePageAndInUtf8)
{
    for (const QByteArray& octets : {QByteArray("\xE9t\xE9\x80"), QByteArray("été€")}) {
        QFile::remove(source.Fichier("x.qrt"));
        Emballer(octets);
        questions.PreparerMotDePasse("été€");
        EXPECT_EQ(Extraire(), ZipFait);
        EXPECT_EQ(cible.Lire("image3.jpg"), Contenu(3));
    }
    EXPECT_EQ(questions.QuestionsDeMotDePasse(), 2);
}

TEST_F(ArchiveChiffree, OnlyTheFirst256CharactersOfAPasswordCount)
{
    Emballer(QByteArray(256, 'a'));
    questions.PreparerMotDePasse(QString(300, u'a'));
    EXPECT_EQ(Extraire(), ZipFait);
}

TEST_F(ArchiveChiffree, TheOtherEncryptionOfTheLibraryIsReadToo)
{
    ASSERT_TRUE(zip_encryption_method_supported(ZIP_EM_AES_256, 1)) << "the libzip of this build has no AES";
    const QByteArray octets = Contenu(1);
    zip_t* archive = zip_open(source.Fichier("x.qrt").toUtf8().constData(), ZIP_CREATE, nullptr);
    ASSERT_NE(archive, nullptr);
    zip_source_t* contenu = zip_source_buffer(archive, octets.constData(), zip_uint64_t(octets.size()), 0);
    ASSERT_EQ(zip_file_add(archive, "image1.jpg", contenu, 0), 0);
    ASSERT_EQ(zip_file_set_encryption(archive, 0, ZIP_EM_AES_256, "secret"), 0);
    ASSERT_EQ(zip_close(archive), 0);

    questions.PreparerMotDePasse("faux");
    questions.PreparerMotDePasse("secret");
    EXPECT_EQ(Extraire(), ZipFait);
    EXPECT_EQ(cible.Lire("image1.jpg"), octets);
}
