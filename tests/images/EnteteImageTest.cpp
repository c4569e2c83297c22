#include "images/EnteteImage.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

QByteArray Petit(qint64 nombre, int octets)
{
    QByteArray texte;
    for (int i = 0; i < octets; ++i)
        texte += static_cast<char>(nombre >> (8 * i));
    return texte;
}

QByteArray Grand(qint64 nombre, int octets)
{
    QByteArray texte = Petit(nombre, octets);
    std::reverse(texte.begin(), texte.end());
    return texte;
}

QByteArray Segment(uchar marque, const QByteArray& contenu)
{
    return QByteArray("\xFF") + static_cast<char>(marque) + Grand(contenu.size() + 2, 2) + contenu;
}

/// A JPEG file's head: size and one factor byte a component.
QByteArray Cadre(uchar marque, int largeur, int hauteur, const QByteArray& facteurs)
{
    QByteArray contenu = "\x08" + Grand(hauteur, 2) + Grand(largeur, 2) + static_cast<char>(facteurs.size());
    for (const char facteur : facteurs)
        contenu += QByteArray("c") + facteur + "q";
    return Segment(marque, contenu);
}

QByteArray Passage(int composantes)
{
    return Segment(0xDA, static_cast<char>(composantes) + QByteArray(7, 'p')) + "coded \xFF" + QByteArray(1, '\0');
}

const QByteArray s_jpeg = "\xFF\xD8";

QByteArray Bmp(qint64 largeur, qint64 hauteur)
{
    return "BM" + QByteArray(12, '\0') + Petit(40, 4) + Petit(largeur, 4) + Petit(hauteur, 4) + QByteArray(28, '\0');
}

QByteArray Png(qint64 largeur, qint64 hauteur, char profondeur)
{
    return QByteArray("\x89PNG\r\n\x1a\n") + Grand(13, 4) + "IHDR" + Grand(largeur, 4) + Grand(hauteur, 4) +
           profondeur + QByteArray(4, '\2');
}

std::optional<EnteteImage> Lire(QByteArray octets)
{
    QBuffer fichier(&octets);
    EXPECT_TRUE(fichier.open(QIODevice::ReadOnly));
    return LireEntete(fichier);
}

/// Kind and size, "-" for no picture.
std::string Dit(const QByteArray& octets)
{
    const std::optional<EnteteImage> entete = Lire(octets);
    if (!entete)
        return "-";
    return QStringLiteral("%1 %2x%3")
        .arg(QString::fromLatin1(entete->format))
        .arg(entete->taille.width())
        .arg(entete->taille.height())
        .toStdString();
}

bool Supportable(const QByteArray& octets)
{
    const std::optional<EnteteImage> entete = Lire(octets);
    EXPECT_TRUE(entete.has_value());
    return entete && EstSupportable(*entete);
}

} // namespace

TEST(EnteteImage, TheBytesTellKindAndSize)
{
    EXPECT_EQ(Dit(Bmp(640, 480)), "bmp 640x480");
    EXPECT_EQ(Dit(Bmp(640, -480)), "bmp 640x480") << "from top to bottom";
    EXPECT_EQ(Dit("BM" + QByteArray(12, '\0') + Petit(12, 4) + Petit(300, 2) + Petit(200, 2) + QByteArray(40, '\0')),
              "bmp 300x200");
    EXPECT_EQ(Dit("GIF89a" + Petit(320, 2) + Petit(200, 2) + "xxx"), "gif 320x200");
    EXPECT_EQ(Dit(Png(30, 20, 8)), "png 30x20");
    EXPECT_EQ(Dit(s_jpeg + Cadre(0xC0, 1000, 500, "\x22\x11\x11") + Passage(3)), "jpeg 1000x500");
}

TEST(EnteteImage, AJpegMayHaveAnythingBeforeItsHead)
{
    const QByteArray suite = Cadre(0xC0, 10, 5, "\x11") + Passage(1);
    EXPECT_EQ(Dit(s_jpeg + Segment(0xE1, QByteArray(60000, 'e')) + Segment(0xC4, "table") + suite), "jpeg 10x5");
    EXPECT_EQ(Dit(s_jpeg + Segment(0xE0, "a") + "\xFF\xFF\xFF" + suite.mid(1)), "jpeg 10x5") << "filling";
    EXPECT_EQ(Dit(s_jpeg + Segment(0xE0, "a") + QByteArray("stray\xFF\0", 7) + suite), "jpeg 10x5") << "stray bytes";
}

TEST(EnteteImage, WhatIsNoPictureHasNone)
{
    for (const QByteArray& octets : {QByteArray(),
                                     QByteArray("B"),
                                     QByteArray("BM"),
                                     QByteArray("GIF89a"),
                                     QByteArray("hello world"),
                                     QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>"),
                                     Bmp(0, 5),
                                     Bmp(-5, 5),
                                     Bmp(5, 0),
                                     Png(0, 1, 8),
                                     s_jpeg,
                                     s_jpeg + "\xFF",
                                     s_jpeg + "\xFF\xD9",
                                     s_jpeg + Cadre(0xC0, 10, 5, "\x11"),
                                     s_jpeg + Passage(1),
                                     s_jpeg + Cadre(0xC0, 10, 0, "\x11") + Passage(1),
                                     s_jpeg + Cadre(0xC0, 10, 5, "") + Passage(1),
                                     s_jpeg + Segment(0xC0, "\x08") + Passage(1),
                                     s_jpeg + Cadre(0xC0, 10, 5, "\x10") + Passage(1),
                                     s_jpeg + Cadre(0xC0, 10, 5, "\x51") + Passage(1),
                                     s_jpeg + QByteArray(100000, '\xFF'),
                                     s_jpeg + QByteArray(100000, 'x')})
        EXPECT_EQ(Dit(octets), "-") << octets.left(40).toStdString();
}

TEST(EnteteImage, EveryCutOfAPictureIsReadWithoutHarm)
{
    const QByteArray entier = s_jpeg + Segment(0xE1, "exif") + Cadre(0xC2, 1000, 500, "\x22\x11\x11") + Passage(1);
    for (qsizetype n = 0; n < entier.size(); ++n)
        Lire(entier.left(n));
    EXPECT_EQ(Dit(entier), "jpeg 1000x500");
}

TEST(EnteteImage, AHundredMillionPointsInOneScanAreNoTrouble)
{
    EXPECT_TRUE(Supportable(s_jpeg + Cadre(0xC0, 10000, 10000, "\x22\x11\x11") + Passage(3)));
}

TEST(EnteteImage, MorePointsThanAnyCameraHasAreRefused)
{
    EXPECT_FALSE(Supportable(s_jpeg + Cadre(0xC0, 65535, 65535, "\x22\x11\x11") + Passage(3)));
    EXPECT_FALSE(Supportable(Bmp(65535, 65535)));
    EXPECT_FALSE(Supportable(Bmp(0x7FFFFFFF, -0x7FFFFFFF - 1)));
    EXPECT_FALSE(Supportable(Png(0xFFFFFFFF, 0xFFFFFFFF, 16)));
    EXPECT_FALSE(Supportable("GIF89a" + Petit(65535, 2) + Petit(65535, 2) + "xxx"));
}

TEST(EnteteImage, APictureThatIsHeldWholeHasItsMemoryCounted)
{
    const QByteArray quart = "\x22\x11\x11"; // colours at a quarter of the points
    const auto progressif = [&](int cote) { return s_jpeg + Cadre(0xC2, cote, cote, quart) + Passage(1); };
    EXPECT_EQ(Lire(progressif(1000))->memoire, 3000000);
    EXPECT_EQ(Lire(s_jpeg + Cadre(0xC2, 1000, 1000, "\x11\x11\x11") + Passage(1))->memoire, 6000000);
    EXPECT_EQ(Lire(s_jpeg + Cadre(0xC0, 1000, 1000, quart) + Passage(3))->memoire, 0) << "line by line";
    EXPECT_EQ(Lire(s_jpeg + Cadre(0xC0, 1000, 1000, quart) + Passage(1) + Passage(2))->memoire, 3000000);
    EXPECT_EQ(Lire(Png(1000, 1000, 8))->memoire, 4000000);
    EXPECT_EQ(Lire(Png(1000, 1000, 16))->memoire, 8000000);
    EXPECT_TRUE(Supportable(progressif(9000)));
    EXPECT_FALSE(Supportable(progressif(10000)));
    EXPECT_TRUE(Supportable(Png(8000, 8000, 8)));
    EXPECT_FALSE(Supportable(Png(8000, 8000, 16)));
}

TEST(EnteteImage, APictureOfCountlessScansIsRefused)
{
    QByteArray peu = s_jpeg + Cadre(0xC2, 100, 100, "\x11");
    QByteArray trop = peu;
    for (int i = 0; i < 20; ++i)
        peu += Passage(1);
    for (int i = 0; i < 100000; ++i)
        trop += Passage(1);
    EXPECT_EQ(Lire(peu)->passages, 20);
    EXPECT_TRUE(Supportable(peu));
    EXPECT_FALSE(Supportable(trop));
}
