#include "images/ConvertirImage.h"

#include "support/DossierDeTest.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class ConvertirImageTest : public testing::Test
{
protected:
    static QImage Dessin(QImage::Format format = QImage::Format_RGB32)
    {
        QImage image(40, 20, format);
        image.fill(QColor(200, 40, 60));
        return image;
    }
    static QByteArray Octets(const QImage& image, const char* forme)
    {
        QBuffer octets;
        EXPECT_TRUE(octets.open(QIODevice::WriteOnly) && image.save(&octets, forme)) << forme;
        return octets.data();
    }
    QString Ecrire(const QString& nom, const QByteArray& octets) const
    {
        dossier.Ecrire(nom, octets);
        return dossier.Fichier(nom);
    }
    /// As if it was found under its own name.
    ImageConvertie Convertir(const QString& nom, const QByteArray& octets) const
    {
        return ConvertirImage(Ecrire(nom, octets), nom);
    }
    /// The picture that a JPEG file holds; a null one for any other.
    static QImage Jpeg(const ImageConvertie& convertie)
    {
        EXPECT_EQ(convertie.aptitude, Aptitude::Convertie);
        EXPECT_EQ(convertie.extension, u"jpg"_s);
        return QImage::fromData(convertie.octets, "jpeg");
    }
    static void ATeinte(const QImage& image, const QPoint& point, const QColor& couleur)
    {
        const QColor lue = image.pixelColor(point);
        const int ecart = std::abs(lue.red() - couleur.red()) + std::abs(lue.green() - couleur.green()) +
                          std::abs(lue.blue() - couleur.blue());
        EXPECT_LT(ecart, 24) << lue.name().toStdString();
    }
    static QByteArray Svg(const QByteArray& contenu)
    {
        return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )"
               R"(viewBox="0 0 20 10">)" +
               contenu + "</svg>";
    }
    Aptitude AptitudeDe(const QString& nom, const QByteArray& octets) const { return Convertir(nom, octets).aptitude; }

    DossierDeTest dossier;
};

} // namespace

TEST_F(ConvertirImageTest, TheFormsOfALibraryAreCopiedAsTheyAre)
{
    for (const auto& [nom, forme] : {std::pair("a.bmp", "BMP"), {"a.jpg", "JPEG"}, {"A.JPEG", "JPEG"}}) {
        const ImageConvertie convertie = Convertir(QString::fromLatin1(nom), Octets(Dessin(), forme));
        EXPECT_EQ(convertie.aptitude, Aptitude::TelleQuelle) << nom;
        EXPECT_EQ(convertie.extension, QString()) << nom;
        EXPECT_TRUE(convertie.octets.isEmpty()) << nom;
    }
    const QByteArray gif = QByteArray::fromBase64("R0lGODlhAQABAIAAAP8AAAAAACwAAAAAAQABAAACAkQBADs=");
    EXPECT_EQ(AptitudeDe("a.gif", gif), Aptitude::TelleQuelle);
}

TEST_F(ConvertirImageTest, AFormOfALibraryUnderAnotherNameGetsItsExtension)
{
    for (const auto& [nom, forme, extension] :
         {std::tuple("a.jpe", "JPEG", "jpg"), {"photo", "JPEG", "jpg"}, {"a.png", "BMP", "bmp"}}) {
        const ImageConvertie convertie = Convertir(QString::fromLatin1(nom), Octets(Dessin(), forme));
        EXPECT_EQ(convertie.aptitude, Aptitude::TelleQuelle) << nom;
        EXPECT_EQ(convertie.extension, QString::fromLatin1(extension)) << nom;
    }
}

TEST_F(ConvertirImageTest, APngUnderANameOfALibraryIsReadByAllAndStays)
{
    EXPECT_EQ(AptitudeDe("a.jpg", Octets(Dessin(), "PNG")), Aptitude::TelleQuelle);
}

TEST_F(ConvertirImageTest, OtherFormsBecomeJpeg)
{
    for (const char* forme : {"PNG", "PPM", "XPM"}) {
        const QImage lue = Jpeg(Convertir(u"a."_s + QString::fromLatin1(forme).toLower(), Octets(Dessin(), forme)));
        EXPECT_EQ(lue.size(), QSize(40, 20)) << forme;
        ATeinte(lue, {20, 10}, Dessin().pixelColor(0, 0));
    }
}

TEST_F(ConvertirImageTest, WhatCanBeSeenThroughStandsOnWhite)
{
    QImage image = Dessin(QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(0, 0, 16, 20, Qt::blue);
    const QImage lue = Jpeg(Convertir("a.png", Octets(image, "PNG")));
    ATeinte(lue, {4, 10}, Qt::blue);
    ATeinte(lue, {36, 10}, Qt::white);
}

TEST_F(ConvertirImageTest, VectorsAreDrawnAsLargeAsCoversAre)
{
    const QImage lue = Jpeg(Convertir("a.svg", Svg(R"(<rect width="10" height="10" fill="#00f"/>)")));
    EXPECT_EQ(lue.size(), QSize(1024, 512));
    ATeinte(lue, {200, 256}, Qt::blue);
    ATeinte(lue, {800, 256}, Qt::white);
}

TEST_F(ConvertirImageTest, VectorsThatLeadToAnotherFileAreRefused)
{
    const QByteArray dedans = Octets(Dessin(), "PNG").toBase64();
    EXPECT_EQ(AptitudeDe("a.svg",
                         Svg(R"(<image width="9" height="9" xlink:href="data:image/png;base64,)" + dedans + R"("/>)")),
              Aptitude::Convertie);
    const QByteArray dehors = Ecrire("secret.png", Octets(Dessin(), "PNG")).toUtf8();
    for (const char* attribut : {"xlink:href", "href"})
        EXPECT_EQ(AptitudeDe("b.svg",
                             Svg(QByteArray(R"(<image width="9" height="9" )") + attribut + "=\"" + dehors + R"("/>)")),
                  Aptitude::Illisible)
            << attribut;
}

TEST_F(ConvertirImageTest, VectorsThatAreBrokenOrTooManyAreRefused)
{
    EXPECT_EQ(AptitudeDe("a.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"><rect"), Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("b.svg", Svg(QByteArray((4 << 20) + 1, ' '))), Aptitude::TropGrande);
}

TEST_F(ConvertirImageTest, VectorsThatAreDrawnAgainAndAgainAreRefused)
{
    QByteArray niveaux = R"(<defs><g id="n0"><rect width="1" height="1"/></g>)";
    for (int i = 1; i <= 9; ++i) {
        const QByteArray avant = R"(<use xlink:href="#n)" + QByteArray::number(i - 1) + R"("/>)";
        niveaux += R"(<g id="n)" + QByteArray::number(i) + R"(">)" + avant.repeated(10) + "</g>";
    }
    EXPECT_EQ(AptitudeDe("a.svg", Svg(niveaux + R"(</defs><use xlink:href="#n9"/>)")), Aptitude::TropGrande);
    const QByteArray point = R"(<defs><g id="n0"><rect width="1" height="1"/></g></defs>)";
    EXPECT_EQ(AptitudeDe("b.svg", Svg(point + QByteArray(R"(<use xlink:href="#n0"/>)").repeated(100))),
              Aptitude::Convertie)
        << "each drawn once";
}

TEST_F(ConvertirImageTest, WhatIsNoPictureIsRefused)
{
    EXPECT_EQ(AptitudeDe("a.txt", "Bonjour"), Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("a.jpg", "Bonjour"), Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("vide.png", ""), Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("coupee.png", Octets(Dessin(), "PNG").left(40)), Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("coupee.gif", "GIF89a\1\0\1"), Aptitude::Illisible);
    EXPECT_EQ(ConvertirImage(dossier.Fichier("absente.png"), "absente.png").aptitude, Aptitude::Illisible);
    EXPECT_EQ(ConvertirImage(dossier.Chemin(), "dossier.png").aptitude, Aptitude::Illisible);
    EXPECT_EQ(ConvertirImage(QImage()).aptitude, Aptitude::Illisible);
}

TEST_F(ConvertirImageTest, APipeKeepsNobodyWaiting)
{
    const QString tube = dossier.Fichier("tube.png");
    ASSERT_EQ(mkfifo(tube.toUtf8().constData(), 0600), 0);
    EXPECT_EQ(ConvertirImage(tube, "tube.png").aptitude, Aptitude::Illisible);
}

TEST_F(ConvertirImageTest, WhatWouldSwellTheProgramIsNotDecoded)
{
    // Heads of 100 000 by 100 000 points, with nothing behind them.
    const QByteArray cote("\x00\x01\x86\xA0", 4);
    const QByteArray png =
        QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16) + cote + cote + QByteArray("\x08\x02\0\0\0", 5);
    EXPECT_EQ(AptitudeDe("a.png", png), Aptitude::TropGrande);
    EXPECT_EQ(AptitudeDe("a.jpg", png), Aptitude::TropGrande);
    EXPECT_EQ(AptitudeDe("a.ppm", "P6\n30000 30000\n255\n"), Aptitude::TropGrande);
}

TEST_F(ConvertirImageTest, ASideThatNoFormCanHoldIsTooLong)
{
    QImage longue(70000, 1, QImage::Format_RGB32);
    longue.fill(Qt::red);
    EXPECT_EQ(ConvertirImage(longue).aptitude, Aptitude::TropGrande);
}
