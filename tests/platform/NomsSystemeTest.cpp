#include "platform/NomsSysteme.h"

#include "platform/Presence.h"
#include "support/DossierDeTest.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

/// "été.qrt" as an older system wrote it.
const QByteArray s_ete = "\xE9t\xE9.qrt";

class NomsSysteme : public testing::Test
{
protected:
    QByteArray Octets(const QByteArray& nom) const { return dossier.Chemin().toUtf8() + nom; }
    QString Dans(const QByteArray& nom) const { return CheminDesOctets(Octets(nom)); }
    /// Makes a file by the system's own means.
    QString Faire(const QByteArray& nom, const QByteArray& contenu = "x") const
    {
        const int fichier = open(Octets(nom).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        EXPECT_EQ(write(fichier, contenu.constData(), static_cast<size_t>(contenu.size())), contenu.size());
        close(fichier);
        return Dans(nom);
    }
    bool Existe(const QByteArray& nom) const { return access(Octets(nom).constData(), F_OK) == 0; }
    static QByteArray Contenu(const QString& chemin)
    {
        QFile fichier;
        return OuvrirParChemin(fichier, chemin, QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("not to be read");
    }

    DossierDeTest dossier;
};

} // namespace

TEST_F(NomsSysteme, EveryNameComesBackByteForByte)
{
    QByteArray tous;
    for (int octet = 1; octet < 256; ++octet)
        tous += static_cast<char>(octet);
    const QByteArray noms[] = {
        "",
        "a.qrt",
        "été.qrt",
        "日本 \xF0\x9F\x8E\xB5.qrt",
        s_ete,
        "\xC3",             // a character cut short
        "\xC0\xAF",         // two bytes for what takes one
        "\xED\xA0\x80",     // a surrogate
        "\xF4\x90\x80\x80", // beyond the last character
        "\xEF\xBB\xBF"
        "a",                        // a byte order mark
        "\xF0\x9F\x8E\xB5\xB5\xE9", // a stray byte behind a surrogate pair
        tous,
    };
    for (const QByteArray& nom : noms)
        EXPECT_EQ(OctetsDuChemin(CheminDesOctets(nom)), nom) << nom.toHex().toStdString();
    EXPECT_EQ(CheminDesOctets("été"), QString("été"));
}

TEST_F(NomsSysteme, APathWithAZeroNamesNothing)
{
    Faire("a");
    EXPECT_FALSE(PeutExister(Dans("a") + QChar(0) + "b"));
    EXPECT_FALSE(EstFichier(Dans("a") + QChar(0)));
}

TEST_F(NomsSysteme, KnowBytesThatAreNoUtf8)
{
    EXPECT_TRUE(AOctetsBruts(CheminDesOctets(s_ete)));
    EXPECT_FALSE(AOctetsBruts("été 🎵"));
    EXPECT_FALSE(AOctetsBruts(QString()));
}

TEST_F(NomsSysteme, AreWrittenAsTextsInTheCodePage)
{
    EXPECT_EQ(NomLisible(CheminDesOctets("\xE9t\xE9\x80")), "été€");
    EXPECT_EQ(NomLisible("été 🎵"), "été 🎵");
}

TEST_F(NomsSysteme, AreMadeWholeFromTheCurrentFolder)
{
    const QString ici = QDir::currentPath();
    const QString ete = CheminDesOctets(s_ete);
    EXPECT_EQ(CheminAbsolu("./" + ete), ici + u'/' + ete);
    EXPECT_EQ(CheminAbsolu("/a/../b/" + ete), "/b/" + ete);
    EXPECT_EQ(DossierDuChemin(ete), ici);
    EXPECT_EQ(DossierDuChemin("/b/" + ete + "/a.qrt"), "/b/" + ete);
    EXPECT_EQ(DossierDuChemin("/a.qrt"), "/");
}

TEST_F(NomsSysteme, TellWhatLiesAtAPath)
{
    const QString fichier = Faire(s_ete);
    EXPECT_TRUE(EstFichier(fichier));
    EXPECT_FALSE(EstDossier(fichier));
    EXPECT_FALSE(EstLien(fichier));
    EXPECT_TRUE(EstDossier(dossier.Chemin()));
    EXPECT_FALSE(EstFichier(dossier.Chemin()));
    ASSERT_EQ(symlink(s_ete.constData(), Octets("lien").constData()), 0);
    EXPECT_TRUE(EstLien(Dans("lien")));
    EXPECT_TRUE(EstFichier(Dans("lien"))) << "links are followed";
    EXPECT_FALSE(EtatDuChemin(Dans("absent")));
    EXPECT_FALSE(EstFichier("/dev/null"));
}

TEST_F(NomsSysteme, FilesAreOpenedAsQtOpensThem)
{
    const QString chemin = Faire(s_ete, "ancien");
    {
        QFile fichier;
        ASSERT_TRUE(OuvrirParChemin(fichier, chemin, QIODevice::ReadWrite | QIODevice::ExistingOnly));
        EXPECT_EQ(fichier.write("AN"), 2);
    }
    EXPECT_EQ(Contenu(chemin), "ANcien");
    {
        QFile fichier;
        ASSERT_TRUE(OuvrirParChemin(fichier, chemin, QIODevice::Append));
        EXPECT_EQ(fichier.write("!"), 1);
    }
    EXPECT_EQ(Contenu(chemin), "ANcien!");
    {
        QFile fichier;
        ASSERT_TRUE(OuvrirParChemin(fichier, chemin, QIODevice::WriteOnly));
    }
    EXPECT_EQ(Contenu(chemin), "") << "what is written alone begins anew";
}

TEST_F(NomsSysteme, FilesThatCannotBeOpenedAreRefusedAndTheReasonIsKept)
{
    const QString chemin = Faire(s_ete);
    QFile fichier;
    EXPECT_FALSE(OuvrirParChemin(fichier, chemin, QIODevice::WriteOnly | QIODevice::NewOnly));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_FALSE(OuvrirParChemin(fichier, Dans("absent"), QIODevice::ReadWrite | QIODevice::ExistingOnly));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(OuvrirParChemin(fichier, dossier.Chemin(), QIODevice::ReadOnly));
    EXPECT_EQ(errno, EISDIR);
    EXPECT_FALSE(Existe("absent"));
}

TEST_F(NomsSysteme, FilesAreCopiedRenamedAndDeleted)
{
    const QString chemin = Faire(s_ete, "contenu");
    const QByteArray copie = "copie\xFF";
    EXPECT_TRUE(CopierParChemin(chemin, Dans(copie)));
    EXPECT_EQ(Contenu(Dans(copie)), "contenu");
    EXPECT_FALSE(CopierParChemin(Dans("absent"), Dans("b")));
    EXPECT_FALSE(Existe("b"));

    Faire("autre\xFE", "autre");
    EXPECT_FALSE(CopierParChemin(Dans("autre\xFE"), Dans(copie))) << "a file is there";
    EXPECT_EQ(Contenu(Dans(copie)), "contenu");
    EXPECT_TRUE(RenommerParChemin(Dans("autre\xFE"), Dans(copie)));
    EXPECT_EQ(Contenu(Dans(copie)), "autre");
    EXPECT_TRUE(SupprimerParChemin(Dans(copie)));
    EXPECT_FALSE(Existe(copie));
    EXPECT_FALSE(SupprimerParChemin(Dans(copie)));
}

TEST_F(NomsSysteme, ALinkStandsForAFile)
{
    const QString chemin = Faire(s_ete, "contenu");
    EXPECT_TRUE(LierParChemin(chemin, Dans("lien")));
    EXPECT_TRUE(EstLien(Dans("lien")));
    EXPECT_EQ(Contenu(Dans("lien")), "contenu");
    EXPECT_FALSE(LierParChemin(chemin, Dans("lien"))) << "there is one";
}

TEST_F(NomsSysteme, ANameThatSomebodyDecodedIsFoundAgain)
{
    ASSERT_EQ(mkdir(Octets("mus\xEF"
                           "que")
                        .constData(),
                    0777),
              0);
    const QString chemin = Faire("mus\xEF"
                                 "que/" +
                                 s_ete);
    const QString decode = QString::fromUtf8(OctetsDuChemin(chemin));
    ASSERT_FALSE(PeutExister(decode));
    EXPECT_EQ(RetrouverChemin(decode), chemin);
    const QString absent = dossier.Chemin() + "absent\uFFFD.qrt";
    EXPECT_EQ(RetrouverChemin(absent), absent);
    EXPECT_EQ(RetrouverChemin(dossier.Chemin() + "absent.qrt"), dossier.Chemin() + "absent.qrt");
}

TEST_F(NomsSysteme, OfTwoThatLookAlikeNoneIsTaken)
{
    Faire("a\xE9");
    Faire("a\xE8");
    const QString decode = dossier.Chemin() + "a\uFFFD";
    EXPECT_EQ(RetrouverChemin(decode), decode);
}

TEST_F(NomsSysteme, ANameThatHoldsTheSignItselfIsLeftAlone)
{
    const QString vrai = dossier.Ecrire("a\uFFFD", "x");
    Faire("a\xE9");
    EXPECT_EQ(RetrouverChemin(vrai), vrai);
}
