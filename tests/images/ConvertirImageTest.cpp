#include "images/ConvertirImage.h"

#include "support/DossierDeTest.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QtEndian>

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
    /// Of a square with that side, with nothing behind it.
    static QByteArray TetePng(quint32 cote)
    {
        QByteArray octets("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
        for (int i = 0; i < 2; ++i) {
            const quint32 enGros = qToBigEndian(cote);
            octets.append(reinterpret_cast<const char*>(&enGros), sizeof enGros);
        }
        return octets + QByteArray("\x08\x02\0\0\0", 5);
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

TEST_F(ConvertirImageTest, VectorsMayHoldPicturesOfTheKnownForms)
{
    for (const char* forme : {"PNG", "JPEG", "BMP"}) {
        const QByteArray dedans = Octets(Dessin(), forme).toBase64();
        const QImage lue = Jpeg(Convertir(
            "a.svg", Svg(R"(<image width="20" height="10" xlink:href="data:image/png;base64,)" + dedans + R"("/>)")));
        ATeinte(lue, {512, 256}, Dessin().pixelColor(0, 0));
    }
}

TEST_F(ConvertirImageTest, VectorsThatLeadToAnotherFileAreRefusedUnopened)
{
    // Who opens it waits for ever.
    const QString tube = dossier.Fichier("tube.png");
    ASSERT_EQ(mkfifo(tube.toUtf8().constData(), 0600), 0);
    const QByteArray dehors = tube.toUtf8();
    for (const char* attribut : {"xlink:href", "href"}) {
        for (const QByteArray& adresse : {dehors, QByteArray("tube.png"), "file://" + dehors, " data:" + dehors}) {
            const QByteArray image =
                QByteArray(R"(<image width="9" height="9" )") + attribut + "=\"" + adresse + R"("/>)";
            EXPECT_EQ(AptitudeDe("b.svg", Svg(image)), Aptitude::Illisible) << image.toStdString();
        }
    }
    EXPECT_EQ(AptitudeDe("c.svg", "<?xml version=\"1.0\"?><?xml-stylesheet type=\"text/css\" href=\"" + dehors +
                                      "\"?>" + Svg("<rect/>")),
              Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("d.svg", "<?xml version=\"1.0\"?><?autre?>" + Svg("<rect width=\"9\" height=\"9\"/>")),
              Aptitude::Convertie)
        << "what other programs note for themselves";
}

TEST_F(ConvertirImageTest, VectorsInVectorsAreRefused)
{
    const QByteArray dedans = Svg(R"(<rect width="9" height="9"/>)").toBase64();
    for (const char* genre : {"image/svg+xml", "image/png", "text/plain"}) {
        const QByteArray image =
            QByteArray(R"(<image width="9" height="9" xlink:href="data:)") + genre + ";base64," + dedans + R"("/>)";
        EXPECT_EQ(AptitudeDe("a.svg", Svg(image)), Aptitude::Illisible) << genre;
    }
    EXPECT_EQ(AptitudeDe("b.svg", Svg(R"(<image xlink:href="data:image/png,abc"/>)")), Aptitude::Illisible);
}

TEST_F(ConvertirImageTest, PicturesInVectorsThatWouldSwellTheProgramAreRefused)
{
    const QByteArray image = "<image width=\"9\" height=\"9\" xlink:href=\"data:image/png;base64,";
    EXPECT_EQ(AptitudeDe("a.svg", Svg(image + TetePng(100000).toBase64() + "\"/>")), Aptitude::TropGrande);
    const QByteArray une = image + TetePng(8000).toBase64() + "\"/>";
    EXPECT_EQ(AptitudeDe("b.svg", Svg(une)), Aptitude::Convertie) << "it is only broken";
    EXPECT_EQ(AptitudeDe("c.svg", Svg(une.repeated(20))), Aptitude::TropGrande) << "all of them together";
}

TEST_F(ConvertirImageTest, VectorsThatAreBrokenTooLargeOrPackedAreRefusedUnread)
{
    EXPECT_EQ(AptitudeDe("a.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"><rect"), Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("b.svg", Svg(QByteArray((4 << 20) + 1, ' '))), Aptitude::TropGrande);
    EXPECT_EQ(AptitudeDe("c.svgz", QByteArray("\x1f\x8b\x08\0\0\0\0\0\0\3", 10) + QByteArray(100, 'x')),
              Aptitude::Illisible);
    // Nothing of it is on the disk.
    const QString creuse = Ecrire("creux.svg", "<?xml version=\"1.0\"?>");
    ASSERT_TRUE(QFile::resize(creuse, qint64(1) << 28));
    EXPECT_EQ(ConvertirImage(creuse, "creux.svg").aptitude, Aptitude::TropGrande);
}

TEST_F(ConvertirImageTest, VectorsThatAreDrawnAgainAndAgainAreRefused)
{
    for (const QByteArray& identite : {QByteArray("id"), QByteArray("xml:id")}) {
        QByteArray niveaux = "<defs><g " + identite + R"(="n0"><rect width="1" height="1"/></g>)";
        for (int i = 1; i <= 9; ++i) {
            const QByteArray avant = R"(<use xlink:href="#n)" + QByteArray::number(i - 1) + R"("/>)";
            niveaux += "<g " + identite + "=\"n" + QByteArray::number(i) + R"(">)" + avant.repeated(10) + "</g>";
        }
        EXPECT_EQ(AptitudeDe("a.svg", Svg(niveaux + R"(</defs><use xlink:href="#n9"/>)")), Aptitude::TropGrande)
            << identite.toStdString();
    }
    const QByteArray point = R"(<defs><g id="n0"><rect width="1" height="1"/></g></defs>)";
    const QByteArray reprise = R"(<use xlink:href="#n0"/>)";
    EXPECT_EQ(AptitudeDe("b.svg", Svg(point + reprise.repeated(100))), Aptitude::Convertie);
    EXPECT_EQ(AptitudeDe("c.svg", Svg(point + reprise.repeated(8'000))), Aptitude::TropGrande);
    const QByteArray foule = R"(<g id="n0">)" + QByteArray(R"(<rect width="1" height="1"/>)").repeated(8'000) + "</g>";
    EXPECT_EQ(AptitudeDe("d.svg", Svg(foule + reprise)), Aptitude::Convertie);
    EXPECT_EQ(AptitudeDe("e.svg", Svg(foule + reprise.repeated(2))), Aptitude::TropGrande);
    EXPECT_EQ(AptitudeDe("f.svg", Svg(foule.repeated(2) + reprise)), Aptitude::TropGrande) << "both have that name";
    EXPECT_EQ(AptitudeDe("g.svg", Svg(R"(<use xlink:href="#inconnu"/>)")), Aptitude::Convertie);
}

TEST_F(ConvertirImageTest, VectorsThatDrawThemselvesAreRefused)
{
    EXPECT_EQ(AptitudeDe("a.svg", Svg(R"(<g id="a"><use xlink:href="#a"/></g>)")), Aptitude::TropGrande);
    EXPECT_EQ(AptitudeDe("b.svg", Svg(R"(<g id="a"><use xlink:href="#b"/></g><g id="b"><use xlink:href="#a"/></g>)")),
              Aptitude::TropGrande);
}

TEST_F(ConvertirImageTest, VectorsThatGoTooDeepAreRefused)
{
    const auto niveaux = [](int nombre) {
        return Svg(QByteArray("<g>").repeated(nombre) + "<rect/>" + QByteArray("</g>").repeated(nombre));
    };
    EXPECT_EQ(AptitudeDe("a.svg", niveaux(254)), Aptitude::Convertie);
    EXPECT_EQ(AptitudeDe("b.svg", niveaux(255)), Aptitude::TropGrande);
    const auto chaine = [](int longueur) {
        QByteArray groupes = R"(<g id="n0"><rect width="1" height="1"/></g>)";
        for (int i = 1; i <= longueur; ++i)
            groupes.prepend("<g id=\"n" + QByteArray::number(i) + R"("><use xlink:href="#n)" +
                            QByteArray::number(i - 1) + R"("/></g>)");
        return Svg(groupes);
    };
    EXPECT_EQ(AptitudeDe("c.svg", chaine(32)), Aptitude::Convertie);
    EXPECT_EQ(AptitudeDe("d.svg", chaine(40'000)), Aptitude::TropGrande);
}

TEST_F(ConvertirImageTest, NamesForLongTextsInVectorsAreRefused)
{
    const auto avecEntites = [](const QByteArray& declarations, const QByteArray& texte) {
        return "<?xml version=\"1.0\"?><!DOCTYPE svg [" + declarations + "]>" +
               Svg("<desc>" + texte + "</desc><rect/>");
    };
    EXPECT_EQ(AptitudeDe("a.svg", avecEntites("<!ENTITY a 'http://ns.example.org/a/'>", "&a;&a;")),
              Aptitude::Convertie);
    EXPECT_EQ(AptitudeDe("b.svg",
                         avecEntites("<!ENTITY a '" + QByteArray(4000, 'x') + "'>", QByteArray("&a;").repeated(2000))),
              Aptitude::TropGrande);
    EXPECT_EQ(AptitudeDe("c.svg", avecEntites("<!ENTITY a 'x'><!ENTITY b '&a;&a;'>", "&b;")), Aptitude::TropGrande);
}

TEST_F(ConvertirImageTest, AFileWhoseHeadIsNotReadIsNotDecoded)
{
    // Its decoder would pass over the byte.
    EXPECT_EQ(AptitudeDe("a.jpg", Octets(Dessin(), "JPEG").insert(2, '\0')), Aptitude::Illisible);
    EXPECT_EQ(AptitudeDe("a.jpe", Octets(Dessin(), "JPEG").insert(2, '\0')), Aptitude::Illisible);
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
    const QByteArray png = TetePng(100000);
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
