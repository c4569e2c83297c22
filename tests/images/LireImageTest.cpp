#include "images/LireImage.h"

#include "support/DossierDeTest.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QImageWriter>
#include <QtEndian>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Place{300, 200};

/// What the process held at most while `faire` ran, beyond what it held before; in megabytes.
double PicDeMemoire(const std::function<void()>& faire)
{
    const auto lire = [](const char* cle) {
        QFile etat(u"/proc/self/status"_s);
        EXPECT_TRUE(etat.open(QIODevice::ReadOnly));
        for (const QByteArray& ligne : etat.readAll().split('\n')) {
            if (ligne.startsWith(cle))
                return ligne.simplified().split(' ').value(1).toDouble() / 1024;
        }
        ADD_FAILURE() << "no " << cle;
        return 0.0;
    };
    QFile compteur(u"/proc/self/clear_refs"_s);
    EXPECT_TRUE(compteur.open(QIODevice::WriteOnly) && compteur.write("5") == 1);
    compteur.close();
    const double avant = lire("VmRSS:");
    faire();
    return lire("VmHWM:") - avant;
}

QByteArray Octets(QSize taille, const char* format, bool progressif = false)
{
    QImage image(taille, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray octets;
    QBuffer tampon(&octets);
    QImageWriter plume(&tampon, format);
    plume.setProgressiveScanWrite(progressif);
    EXPECT_TRUE(plume.write(image));
    return octets;
}

/// The picture with another size in its head: it says more than it holds.
QByteArray JpegQuiMent(quint16 largeur, quint16 hauteur, bool progressif)
{
    QByteArray octets = Octets({16, 16}, "jpg", progressif);
    const qsizetype cadre = octets.indexOf(progressif ? "\xFF\xC2" : "\xFF\xC0");
    EXPECT_GT(cadre, 0);
    qToBigEndian(hauteur, octets.data() + cadre + 5);
    qToBigEndian(largeur, octets.data() + cadre + 7);
    return octets;
}

/// The two pictures of an animation, 2 by 2 points: the first red, the second blue.
const QByteArray GifAnime = QByteArray::fromHex("47494638396102000200810000ff00000000ff000000000000"
                                                "2c0000000002000200000202845100"
                                                "2c0000000002000200000202"
                                                "8c53003b");

class LireImageTest : public testing::Test
{
protected:
    QImage Lire(const QByteArray& octets, QSize place = Place) const
    {
        return LireImage(dossier.Ecrire("image", octets), place);
    }
    DossierDeTest dossier;
};

/// A bitmap of 24 bits that is as long as it should be, all black but for its first line in the file; sparse on the
/// disk.
QString GrandBmp(const DossierDeTest& dossier, int largeur, int hauteur)
{
    QByteArray tete = Octets({4, 4}, "bmp").left(54);
    qToLittleEndian<quint32>(54, tete.data() + 10);
    qToLittleEndian(largeur, tete.data() + 18);
    qToLittleEndian(hauteur, tete.data() + 22);
    qToLittleEndian<quint16>(24, tete.data() + 28);
    QFile fichier(dossier.Ecrire("grand.bmp", tete));
    const qint64 ligne = (qint64(largeur) * 3 + 3) / 4 * 4;
    EXPECT_TRUE(fichier.open(QIODevice::ReadWrite) && fichier.resize(54 + ligne * hauteur));
    return fichier.fileName();
}

QColor Milieu(const QImage& image)
{
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

} // namespace

TEST_F(LireImageTest, TheFourKindsAreScaledIntoTheirRoomInTheirProportions)
{
    for (const char* format : {"bmp", "jpg", "png"}) {
        EXPECT_EQ(Lire(Octets({1000, 500}, format)).size(), QSize(300, 150)) << format;
        EXPECT_EQ(Lire(Octets({500, 5000}, format)).size(), QSize(20, 200)) << format;
        const QImage petite = Lire(Octets({16, 12}, format));
        EXPECT_EQ(petite.size(), QSize(16, 12)) << format << ", not blown up";
        EXPECT_GT(Milieu(petite).red(), 250) << format;
        EXPECT_LT(Milieu(petite).green(), 5) << format;
    }
}

TEST_F(LireImageTest, NoSideVanishes)
{
    for (const char* format : {"bmp", "jpg", "png"})
        EXPECT_EQ(Lire(Octets({5000, 2}, format), {50, 50}).size(), QSize(50, 1)) << format;
}

TEST_F(LireImageTest, AProgressivePictureIsShown)
{
    EXPECT_EQ(Lire(Octets({1000, 500}, "jpg", true)).size(), QSize(300, 150));
}

TEST_F(LireImageTest, AnAnimationShowsItsFirstPicture)
{
    const QImage image = Lire(GifAnime);
    ASSERT_EQ(image.size(), QSize(2, 2));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(LireImageTest, OtherKindsAreNotDecodedWhateverTheirName)
{
    EXPECT_TRUE(Lire("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' height='9'/></svg>")
                    .isNull());
    EXPECT_TRUE(Lire(Octets({16, 12}, "ppm")).isNull());
}

TEST_F(LireImageTest, BrokenPicturesAreNone)
{
    for (const char* format : {"bmp", "jpg", "png"}) {
        const QByteArray entier = Octets({64, 64}, format);
        for (const qsizetype n : {qsizetype(0), qsizetype(10), entier.size() / 4}) {
            const QImage image = Lire(entier.left(n));
            EXPECT_TRUE(image.isNull() || image.size() == QSize(64, 64)) << format << " cut to " << n;
        }
        QByteArray abime = entier;
        for (qsizetype i = 20; i < abime.size(); i += 7)
            abime[i] = static_cast<char>(i * 31);
        Lire(abime);
    }
    EXPECT_TRUE(Lire("").isNull());
    EXPECT_TRUE(LireImage(dossier.Fichier("absente"), Place).isNull());
    EXPECT_TRUE(LireImage(dossier.Chemin(), Place).isNull()) << "a folder";
}

TEST_F(LireImageTest, APipeKeepsNobodyWaiting)
{
    const QString tube = dossier.Fichier("tube.jpg");
    ASSERT_EQ(mkfifo(QFile::encodeName(tube).constData(), 0600), 0);
    EXPECT_TRUE(LireImage(tube, Place).isNull());
}

TEST_F(LireImageTest, AHeadThatLiesTakesNoMemory)
{
    const QByteArray bmp = [] {
        QByteArray octets = Octets({4, 4}, "bmp");
        qToLittleEndian<qint32>(65535, octets.data() + 18);
        qToLittleEndian<qint32>(65535, octets.data() + 22);
        return octets;
    }();
    QByteArray gif = GifAnime;
    gif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    for (const QByteArray& octets : {bmp, gif, JpegQuiMent(65535, 65535, false), JpegQuiMent(65535, 65535, true)}) {
        const QString fichier = dossier.Ecrire("image", octets);
        EXPECT_LT(PicDeMemoire([&] { EXPECT_TRUE(LireImage(fichier, Place).isNull()); }), 16);
    }
}

TEST_F(LireImageTest, AHundredMillionPointsOfJpegAreDecodedAtTheSizeShown)
{
    const QString fichier = dossier.Ecrire("grande.jpg", JpegQuiMent(10000, 10000, false));
    QImage image;
    EXPECT_LT(PicDeMemoire([&] { image = LireImage(fichier, Place); }), 64);
    EXPECT_EQ(image.size(), QSize(200, 200));
}

TEST_F(LireImageTest, AHundredMillionPointsInScansOverAllAreRefused)
{
    const QString fichier = dossier.Ecrire("grande.jpg", JpegQuiMent(10000, 10000, true));
    EXPECT_LT(PicDeMemoire([&] { EXPECT_TRUE(LireImage(fichier, Place).isNull()); }), 16);
}

TEST_F(LireImageTest, ABitmapTooLargeToHoldIsReducedWhileItIsRead)
{
    const QString fichier = GrandBmp(dossier, 10000, 10000);
    {
        QFile bord(fichier);
        ASSERT_TRUE(bord.open(QIODevice::ReadWrite) && bord.seek(54));
        bord.write(QByteArray("\xF0\x90\x30").repeated(10000 * 2500)); // the lowest quarter, in blue, green and red
    }
    QImage image;
    EXPECT_LT(PicDeMemoire([&] { image = LireImage(fichier, Place); }), 32);
    ASSERT_EQ(image.size(), QSize(200, 200));
    EXPECT_EQ(image.pixelColor(100, 20), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(100, 140), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(100, 160), QColor(0x30, 0x90, 0xF0));
}

TEST_F(LireImageTest, ALargeBitmapThatIsCutIsNone)
{
    const QString chemin = GrandBmp(dossier, 10000, 10000);
    ASSERT_TRUE(QFile::resize(chemin, 1000000));
    EXPECT_LT(PicDeMemoire([&] { EXPECT_TRUE(LireImage(chemin, Place).isNull()); }), 16);
}
