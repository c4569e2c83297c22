// What is written in pieces, back and forth, lies in the file as if it had been written at once.
#include "catalogue/archive/ccZipTampon.h"
#include "support/DossierDeTest.h"

#include <QFile>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <random>

using namespace zipinterne;

namespace {

constexpr qsizetype Beaucoup = qsizetype(3) << 20; // more than waits in memory

std::span<const char> Octets(const QByteArray& octets)
{
    return {octets.constData(), static_cast<size_t>(octets.size())};
}

class TamponTest : public testing::Test
{
protected:
    void SetUp() override
    {
        hasard.seed(1);
        bruit.resize(Beaucoup);
        for (char& octet : bruit)
            octet = static_cast<char>(hasard());
        tampon.Commencer(Neuf("sortie"));
    }
    Descripteur Neuf(const QString& nom) const
    {
        return Descripteur(
            open(QFile::encodeName(dossier.Fichier(nom)).constData(), O_WRONLY | O_CREAT | O_EXCL, 0666));
    }
    void Ecrire(const QByteArray& octets) { ASSERT_TRUE(tampon.Ecrire(tampon.Taille(), Octets(octets))); }
    QByteArray Terminer()
    {
        EXPECT_TRUE(tampon.Terminer());
        EXPECT_FALSE(tampon.EstOuvert());
        return dossier.Lire("sortie");
    }

    DossierDeTest dossier;
    std::mt19937 hasard;
    QByteArray bruit;
    Tampon tampon;
};

TEST_F(TamponTest, PiecesOfEverySizeFollowEachOther)
{
    for (qsizetype place = 0; place < bruit.size();) {
        const qsizetype n = std::min<qsizetype>(bruit.size() - place, static_cast<qsizetype>(hasard() % 100'000));
        Ecrire(bruit.mid(place, n));
        place += n;
        ASSERT_EQ(tampon.Taille(), static_cast<uint64_t>(place));
    }
    EXPECT_EQ(Terminer(), bruit);
}

TEST_F(TamponTest, OnePieceMayBeLargerThanWhatWaits)
{
    Ecrire(bruit);
    EXPECT_EQ(Terminer(), bruit);
}

TEST_F(TamponTest, NothingWrittenIsAnEmptyFile)
{
    EXPECT_EQ(Terminer(), QByteArray());
}

TEST_F(TamponTest, WhatWaitsAndWhatIsOnTheDiskCanBothBeChanged)
{
    Ecrire(bruit);
    for (int i = 0; i < 200; ++i) {
        const QByteArray piece(static_cast<qsizetype>(hasard() % 5000), static_cast<char>(i));
        const auto place = static_cast<qsizetype>(hasard()) % (bruit.size() - piece.size());
        ASSERT_TRUE(tampon.Ecrire(static_cast<uint64_t>(place), Octets(piece)));
        bruit.replace(place, piece.size(), piece);
    }
    EXPECT_EQ(tampon.Taille(), static_cast<uint64_t>(bruit.size()));
    EXPECT_EQ(Terminer(), bruit);
}

TEST_F(TamponTest, OnePieceMayChangeAllAndGoOnBehindTheEnd)
{
    Ecrire(bruit.left(Beaucoup / 2));
    ASSERT_TRUE(tampon.Ecrire(10, Octets(bruit)));
    EXPECT_EQ(Terminer(), bruit.left(10) + bruit);
}

TEST_F(TamponTest, NoGapIsLeft)
{
    Ecrire("abc");
    errno = 0;
    EXPECT_FALSE(tampon.Ecrire(4, Octets("d")));
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(Terminer(), "abc");
}

TEST_F(TamponTest, PiecesOfAnotherFileComeFromTheirPlace)
{
    dossier.Ecrire("autre", bruit);
    const Descripteur autre(open(QFile::encodeName(dossier.Fichier("autre")).constData(), O_RDONLY));
    Ecrire("debut");
    ASSERT_TRUE(tampon.Copier(5, {autre.Numero(), 1000, uint64_t(Beaucoup) - 1000}));
    ASSERT_TRUE(tampon.Copier(2, {autre.Numero(), 7, 2})) << "on the disk by now";
    QByteArray attendu = "debut" + bruit.mid(1000);
    attendu.replace(2, 2, bruit.mid(7, 2));
    EXPECT_EQ(Terminer(), attendu);
}

TEST_F(TamponTest, APieceOfAFileThatBecameShorterFails)
{
    dossier.Ecrire("autre", "abc");
    const Descripteur autre(open(QFile::encodeName(dossier.Fichier("autre")).constData(), O_RDONLY));
    errno = 0;
    EXPECT_FALSE(tampon.Copier(0, {autre.Numero(), 1, 3}));
    EXPECT_EQ(errno, EIO);
}

TEST_F(TamponTest, RoomThatWasNotNeededIsGivenBack)
{
    const auto place = [this] {
        struct stat etat;
        return stat(QFile::encodeName(dossier.Fichier("sortie")).constData(), &etat) == 0 ? etat.st_blocks * 512 : -1;
    };
    tampon.Reserver(uint64_t(Beaucoup)); // what a disk without this service makes of it, must come out the same
    EXPECT_EQ(dossier.Lire("sortie"), QByteArray()) << "room is no content";
    Ecrire(bruit.left(5000));
    EXPECT_EQ(Terminer(), bruit.left(5000));
    EXPECT_LT(place(), Beaucoup / 2);
}

TEST_F(TamponTest, MoreRoomThanThereIsStopsNothing)
{
    tampon.Reserver(uint64_t(1) << 60);
    Ecrire(bruit);
    EXPECT_EQ(Terminer(), bruit);
}

} // namespace
