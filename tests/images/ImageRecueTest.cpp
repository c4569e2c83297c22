#include "images/ImageRecue.h"

#include "images/PanneauImage.h"
#include "support/DossierDeTest.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

class ImageRecueTest : public testing::Test
{
protected:
    ImageRecueTest() { m_dossier.Ecrire("cat1/Zelvane.qrt", "x"); }

    static QByteArray Octets(const QColor& couleur, const char* forme)
    {
        QImage image(30, 20, QImage::Format_RGB32);
        image.fill(couleur);
        QBuffer octets;
        EXPECT_TRUE(octets.open(QIODevice::WriteOnly) && image.save(&octets, forme));
        return octets.data();
    }
    /// A file outside the category.
    QString Ecrire(const QString& nom, const QByteArray& octets) const
    {
        m_dossier.Ecrire(nom, octets);
        return m_dossier.Fichier(nom);
    }
    QString Dossier() const { return m_dossier.Fichier("cat1") + u'/'; }
    QByteArray Lire(const QString& nom) const
    {
        QFile fichier(Dossier() + nom);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }
    QStringList Images() const
    {
        QStringList noms = QDir(Dossier()).entryList(QDir::Files, QDir::Name);
        noms.removeAll(u"Zelvane.qrt"_s);
        return noms;
    }
    QString Prendre(const QMimeData& donnees) const { return PrendreImage(RecevoirImage(donnees), Dossier(), nullptr); }
    QString PrendreFichiers(const QStringList& chemins) const
    {
        QMimeData donnees;
        QList<QUrl> adresses;
        for (const QString& chemin : chemins)
            adresses.append(QUrl::fromLocalFile(chemin));
        donnees.setUrls(adresses);
        return Prendre(donnees);
    }
    QString PrendreOctets(const QString& format, const QByteArray& octets) const
    {
        QMimeData donnees;
        donnees.setData(format, octets);
        return Prendre(donnees);
    }
    /// The colour that a picture of the category has in its middle.
    QColor Teinte(const QString& nom) const { return QImage(Dossier() + nom).pixelColor(15, 10); }

    DossierDeTest m_dossier;
    FileDeReponses messages;
};

} // namespace

// ---- files

TEST_F(ImageRecueTest, AFileIsCopiedUnderItsName)
{
    const QByteArray octets = Octets(Qt::red, "JPEG");
    EXPECT_EQ(PrendreFichiers({Ecrire("Abbey Road.jpg", octets)}), "Abbey Road.jpg");
    EXPECT_EQ(Images(), QStringList("Abbey Road.jpg"));
    EXPECT_EQ(Lire("Abbey Road.jpg"), octets);
}

TEST_F(ImageRecueTest, AnotherFormIsConvertedAndNamedForWhatItIsThen)
{
    EXPECT_EQ(PrendreFichiers({Ecrire("Abbey.Road.png", Octets(Qt::red, "PNG"))}), "Abbey.Road.jpg");
    EXPECT_EQ(Images(), QStringList("Abbey.Road.jpg"));
    EXPECT_TRUE(Lire("Abbey.Road.jpg").startsWith("\xFF\xD8"));
    EXPECT_GT(Teinte("Abbey.Road.jpg").red(), 240);
}

TEST_F(ImageRecueTest, ANameThatNoEntryCouldKeepIsChanged)
{
    EXPECT_EQ(PrendreFichiers({Ecrire("a|b.bmp", Octets(Qt::red, "BMP"))}), "a_b.bmp");
    EXPECT_EQ(PrendreFichiers({Ecrire(".png", Octets(Qt::red, "PNG"))}), "image.jpg");
}

TEST_F(ImageRecueTest, ANameThatIsNoTextIsReadAsFarAsItCanBe)
{
    const QByteArray chemin = QFile::encodeName(m_dossier.Chemin()) + "/\xE9t\xE9.bmp";
    Ecrire("ici.bmp", Octets(Qt::red, "BMP"));
    ASSERT_EQ(rename(QFile::encodeName(m_dossier.Fichier("ici.bmp")).constData(), chemin.constData()), 0);
    QMimeData donnees;
    donnees.setUrls({QUrl(u"file://"_s + QString::fromLatin1(chemin.toPercentEncoding("/")))});
    EXPECT_EQ(Prendre(donnees), u"été.bmp"_s);
    EXPECT_EQ(Teinte(u"été.bmp"_s), QColor(Qt::red));
}

TEST_F(ImageRecueTest, AFileWhoseNameIsNoTextIsNotCopiedToBeLookedAt)
{
    const QByteArray chemin = QFile::encodeName(m_dossier.Chemin()) + "/\xE9t\xE9.ppm";
    const QByteArray points = QByteArray("P6\n300 300\n255\n") + QByteArray(3 * 300 * 300, '\x40');
    const QString ici = Ecrire("ici.ppm", points);
    ASSERT_EQ(rename(QFile::encodeName(ici).constData(), chemin.constData()), 0);
    QMimeData donnees;
    donnees.setUrls({QUrl(u"file://"_s + QString::fromLatin1(chemin.toPercentEncoding("/")))});
    // Room for what becomes of it, and for nothing as large as it is.
    const auto avant = std::signal(SIGXFSZ, SIG_IGN);
    rlimit place{};
    getrlimit(RLIMIT_FSIZE, &place);
    const rlimit etroite{static_cast<rlim_t>(points.size() / 2), place.rlim_max};
    setrlimit(RLIMIT_FSIZE, &etroite);
    const QString nom = Prendre(donnees);
    setrlimit(RLIMIT_FSIZE, &place);
    std::signal(SIGXFSZ, avant);
    EXPECT_EQ(nom, u"été.jpg"_s);
}

TEST_F(ImageRecueTest, AnImageThatTheCategoryHasAlreadyIsTakenAsItIs)
{
    const QString fichier = Ecrire("photo.bmp", Octets(Qt::red, "BMP"));
    const QString autre = Ecrire("dessin.png", Octets(Qt::blue, "PNG"));
    for (int fois = 0; fois < 2; ++fois) {
        EXPECT_EQ(PrendreFichiers({fichier}), "photo.bmp");
        EXPECT_EQ(PrendreFichiers({autre}), "dessin.jpg");
    }
    EXPECT_EQ(Images(), QStringList({"dessin.jpg", "photo.bmp"}));
}

TEST_F(ImageRecueTest, OfTwoWithOneNameTheUserChooses)
{
    m_dossier.Ecrire("cat1/photo.jpg", Octets(Qt::red, "BMP"));
    const QString neuve = Ecrire("photo.png", Octets(Qt::blue, "PNG"));
    {
        const GardeModale garde([&](QWidget& question) {
            EXPECT_EQ(question.objectName(), "frmRemplacerImg");
            const auto teinte = [&](const char* nom) {
                return question.findChild<PanneauImage*>(nom)->Image().toImage().pixelColor(15, 10);
            };
            EXPECT_GT(teinte("Img_0").red(), 240);
            EXPECT_GT(teinte("Img_1").blue(), 240) << "the new one, as it would be kept";
            QTest::mouseClick(question.findChild<QPushButton*>("btNon"), Qt::LeftButton);
        });
        messages.Preparer(RepNon);
        EXPECT_EQ(PrendreFichiers({neuve}), "");
        EXPECT_EQ(messages.Cles(), QStringList("msg27"));
        EXPECT_EQ(Images(), QStringList("photo.jpg"));
    }
    {
        const GardeModale garde(
            [](QWidget& question) { QTest::mouseClick(question.findChild<QPushButton*>("btNon"), Qt::LeftButton); });
        messages.Preparer(RepOui);
        EXPECT_EQ(PrendreFichiers({neuve}), "0photo.jpg");
        EXPECT_EQ(Images(), QStringList({"0photo.jpg", "photo.jpg"}));
        EXPECT_EQ(Teinte("photo.jpg"), QColor(Qt::red));
    }
    const GardeModale garde(
        [](QWidget& question) { QTest::mouseClick(question.findChild<QPushButton*>("btOui"), Qt::LeftButton); });
    EXPECT_EQ(PrendreFichiers({neuve}), "photo.jpg");
    EXPECT_GT(Teinte("photo.jpg").blue(), 240);
}

TEST_F(ImageRecueTest, SeveralFilesAreRefusedInWords)
{
    const QString fichier = Ecrire("photo.bmp", Octets(Qt::red, "BMP"));
    EXPECT_EQ(PrendreFichiers({fichier, fichier}), "");
    EXPECT_EQ(messages.Cles(), QStringList("msgUneSeuleImage"));
    EXPECT_EQ(messages.Affiches().first().message.texte, u"Une entrée n'a qu'une image. Déposez un seul fichier."_s);
    EXPECT_EQ(Images(), QStringList());
}

TEST_F(ImageRecueTest, WhatIsNoImageIsRefusedInWords)
{
    EXPECT_EQ(PrendreFichiers({Ecrire("notes.txt", "Bonjour")}), "");
    EXPECT_EQ(PrendreFichiers({m_dossier.Chemin()}), "");
    EXPECT_EQ(PrendreFichiers({m_dossier.Fichier("absente.jpg")}), "");
    EXPECT_EQ(PrendreOctets("image/png", "Bonjour"), "");
    EXPECT_EQ(messages.Cles(), QStringList(4, u"msgImageIllisible"_s));
    EXPECT_EQ(messages.Affiches().first().message.texte, u"Ce n'est pas une image que le programme sait lire."_s);
    EXPECT_EQ(Images(), QStringList());
}

TEST_F(ImageRecueTest, WhatIsTooLargeIsRefusedInWords)
{
    EXPECT_EQ(PrendreFichiers({Ecrire("a.ppm", "P6\n30000 30000\n255\n")}), "");
    EXPECT_EQ(PrendreOctets("image/x-portable-pixmap", "P6\n30000 30000\n255\n"), "");
    EXPECT_EQ(messages.Cles(), QStringList(2, u"msgImageTropGrande"_s));
    EXPECT_EQ(messages.Affiches().first().message.texte,
              u"Cette image est trop grande : elle prendrait trop de mémoire ou de temps."_s);
    EXPECT_EQ(Images(), QStringList());
}

TEST_F(ImageRecueTest, WhatCannotBeCopiedIsTold)
{
    QDir(Dossier()).mkdir("photo.bmp");
    EXPECT_EQ(PrendreFichiers({Ecrire("photo.bmp", Octets(Qt::red, "BMP"))}), "");
    EXPECT_EQ(messages.Cles(), QStringList("msgImageNonCopiee"));
    EXPECT_EQ(messages.Affiches().first().message.texte,
              u"L'image n'a pas pu être copiée dans le dossier de la catégorie."_s);
}

TEST_F(ImageRecueTest, AnAddressOfAnotherComputerIsRefusedInWords)
{
    QMimeData donnees;
    donnees.setUrls({QUrl(u"https://exemple.invalid/pochette.jpg"_s)});
    EXPECT_TRUE(PeutDonnerUneImage(donnees));
    EXPECT_EQ(Prendre(donnees), "");
    EXPECT_EQ(messages.Cles(), QStringList("msgImageAilleurs"));
    EXPECT_EQ(messages.Affiches().first().message.texte,
              u"Cette image est sur un autre ordinateur. Enregistrez-la, puis déposez son fichier."_s);
}

// ---- pictures without a file

TEST_F(ImageRecueTest, APictureThatIsNoFileIsKeptUnderANameOfItsOwn)
{
    QImage rouge(30, 20, QImage::Format_RGB32);
    rouge.fill(Qt::red);
    QMimeData donnees;
    donnees.setImageData(rouge);
    EXPECT_TRUE(PeutDonnerUneImage(donnees));
    EXPECT_EQ(Prendre(donnees), "image.jpg");
    EXPECT_GT(Teinte("image.jpg").red(), 240);
    EXPECT_EQ(Prendre(donnees), "image.jpg") << "the same one once more";
    EXPECT_EQ(Images(), QStringList("image.jpg"));
    QImage bleue = rouge;
    bleue.fill(Qt::blue);
    donnees.setImageData(bleue);
    EXPECT_EQ(Prendre(donnees), "0image.jpg") << "without a question: nobody gave that name";
    EXPECT_EQ(Prendre(donnees), "0image.jpg") << "the second one once more";
    EXPECT_EQ(Images(), QStringList({"0image.jpg", "image.jpg"}));
}

TEST_F(ImageRecueTest, BytesOfALibrarysFormStayAsTheyAre)
{
    for (const auto& [format, forme, nom] :
         {std::tuple("image/bmp", "BMP", "image.bmp"), {"image/jpeg", "JPEG", "image.jpg"}}) {
        const QByteArray octets = Octets(Qt::red, forme);
        EXPECT_EQ(PrendreOctets(QString::fromLatin1(format), octets), nom);
        EXPECT_EQ(Lire(QString::fromLatin1(nom)), octets);
    }
}

TEST_F(ImageRecueTest, OtherBytesAreConverted)
{
    EXPECT_EQ(PrendreOctets("image/png", Octets(Qt::red, "PNG")), "image.jpg");
    EXPECT_GT(Teinte("image.jpg").red(), 240);
    EXPECT_EQ(PrendreOctets("image/x-portable-pixmap", Octets(Qt::blue, "PPM")), "0image.jpg");
}

TEST_F(ImageRecueTest, OfSeveralFormsTheOneThatLostNothingIsTaken)
{
    QMimeData donnees;
    donnees.setData(u"image/jpeg"_s, Octets(Qt::blue, "JPEG"));
    donnees.setData(u"image/png"_s, Octets(Qt::red, "PNG"));
    EXPECT_EQ(Prendre(donnees), "image.jpg");
    EXPECT_GT(Teinte("image.jpg").red(), 240);
}

TEST_F(ImageRecueTest, APictureThatComesWithItsAddressIsTaken)
{
    QMimeData donnees;
    donnees.setUrls({QUrl(u"https://exemple.invalid/pochette.png"_s)});
    donnees.setData(u"image/png"_s, Octets(Qt::red, "PNG"));
    EXPECT_EQ(Prendre(donnees), "image.jpg");
}

TEST_F(ImageRecueTest, ATextIsNoPicture)
{
    QMimeData donnees;
    donnees.setText(u"Abbey Road"_s);
    EXPECT_FALSE(PeutDonnerUneImage(donnees));
}
