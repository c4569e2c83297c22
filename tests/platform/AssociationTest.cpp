#include "platform/Association.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <QXmlStreamReader>
#include <QtEndian>

#include <gtest/gtest.h>

namespace {

const QByteArray s_png = QByteArray("\x89PNG\r\n\x1a\n", 8);

struct Image
{
    int largeur;
    int hauteur;
    QByteArray octets;
};

/// An icon file of these images.
QByteArray Ico(const QList<Image>& images)
{
    const auto nombre16 = [](int n) { return QByteArray(1, char(n)) + char(n >> 8); };
    const auto nombre32 = [&](qsizetype n) { return nombre16(int(n)) + nombre16(int(n >> 16)); };
    QByteArray fiches;
    QByteArray donnees;
    for (const Image& image : images) {
        fiches += QByteArray(1, char(image.largeur)) + char(image.hauteur) + nombre16(0) + nombre32(0) +
                  nombre32(image.octets.size()) + nombre32(6 + 16 * images.size() + donnees.size());
        donnees += image.octets;
    }
    return nombre16(0) + nombre16(1) + nombre16(int(images.size())) + fiches + donnees;
}

TEST(ImagesPng, FindsTheSquarePngImages)
{
    const QByteArray ico = Ico({{16, 16, s_png + "a"}, {32, 32, "BMP data"}, {0, 0, s_png + "b"}, {16, 32, s_png}});

    const QList<ImageIcone> images = ImagesPng(ico);

    ASSERT_EQ(images.size(), 2);
    EXPECT_EQ(images[0].cote, 16);
    EXPECT_EQ(images[0].png, s_png + "a");
    EXPECT_EQ(images[1].cote, 256);
    EXPECT_EQ(images[1].png, s_png + "b");
}

TEST(ImagesPng, FindsNothingInWhatIsNoIconFile)
{
    EXPECT_TRUE(ImagesPng("").isEmpty());
    EXPECT_TRUE(ImagesPng("GIF89a and more").isEmpty());
    EXPECT_TRUE(ImagesPng(s_png).isEmpty());
}

TEST(ImagesPng, ReadsNeverBeyondTheFile)
{
    const QByteArray ico = Ico({{16, 16, s_png + "abc"}, {32, 32, s_png + "defg"}});
    for (qsizetype taille = 0; taille < ico.size(); ++taille) {
        for (const ImageIcone& image : ImagesPng(ico.left(taille)))
            EXPECT_EQ(image.cote, 16) << "the second image is not whole in " << taille << " bytes";
    }
    QByteArray mensonge = ico;
    qToLittleEndian<quint32>(0xFFFFFFF0u, mensonge.data() + 6 + 8); // size of the first image
    EXPECT_EQ(ImagesPng(mensonge).size(), 1);
    qToLittleEndian<quint32>(0xFFFFFFF0u, mensonge.data() + 6 + 12); // its place
    EXPECT_EQ(ImagesPng(mensonge).size(), 1);
}

class AssociationBureauTest : public testing::Test
{
protected:
    // Keeps the tools that refresh the desktop's caches out: they are not what is tested.
    AssociationBureauTest() { qputenv("PATH", m_dossier.Chemin().toUtf8()); }
    ~AssociationBureauTest() override { qputenv("PATH", m_path); }

    void Enregistrer(const QString& executable = "/opt/zelvane/bin/zelvane")
    {
        AssociationBureau({m_dossier.Fichier("data"), executable, m_dossier.Fichier("IcoFile.ico")}).Enregistrer();
    }

    QStringList Entree() const
    {
        return QString::fromUtf8(m_dossier.Lire("data/applications/zelvane.desktop")).split(u'\n');
    }

    /// Whether a tool has run and said so.
    bool Tourne(const QString& outil) const { return QFileInfo(m_dossier.Fichier(outil + ".ran")).size() > 0; }

    DossierDeTest m_dossier;
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(AssociationBureauTest, DeclaresTheProgramForItsType)
{
    Enregistrer();

    EXPECT_EQ(Entree().first(), "[Desktop Entry]");
    EXPECT_TRUE(Entree().contains("Type=Application"));
    EXPECT_TRUE(Entree().contains("Exec=\"/opt/zelvane/bin/zelvane\" %f"));
    EXPECT_TRUE(Entree().contains("MimeType=application/x-zelvane-qrt;"));
    EXPECT_TRUE(Entree().contains("Icon=zelvane"));
}

TEST_F(AssociationBureauTest, QuotesTheProgramsPath)
{
    Enregistrer("/a b/100%/$x/`\"\\/zelvane");

    EXPECT_TRUE(Entree().contains(R"(Exec="/a b/100%%/\\$x/\\`\\"\\\\/zelvane" %f)"))
        << Entree().join('\n').toStdString();
}

TEST_F(AssociationBureauTest, DeclaresTheTypeAsAKindOfZip)
{
    Enregistrer();

    QXmlStreamReader xml(m_dossier.Lire("data/mime/packages/zelvane.xml"));
    QStringList elements;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        QStringList texte{xml.name().toString()};
        for (const QXmlStreamAttribute& attribut : xml.attributes())
            texte += attribut.value().toString();
        elements += texte.join(' ');
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_TRUE(elements.contains("mime-type application/x-zelvane-qrt"));
    EXPECT_TRUE(elements.contains("sub-class-of application/zip"));
    EXPECT_TRUE(elements.contains("glob *.qrt"));
    EXPECT_TRUE(elements.contains("match string 0 PK\\003\\004"));
    EXPECT_TRUE(elements.contains("match string 0 [FileInfo]\\r\\nType=QRT FILE"));
}

TEST_F(AssociationBureauTest, InstallsTheIconForProgramAndDocuments)
{
    m_dossier.Ecrire("IcoFile.ico", Ico({{48, 48, s_png + "48"}}));

    Enregistrer();

    EXPECT_EQ(m_dossier.Lire("data/icons/hicolor/48x48/apps/zelvane.png"), s_png + "48");
    EXPECT_EQ(m_dossier.Lire("data/icons/hicolor/48x48/mimetypes/application-x-zelvane-qrt.png"), s_png + "48");
}

TEST_F(AssociationBureauTest, DoesWithoutAnIcon)
{
    Enregistrer();

    EXPECT_TRUE(m_dossier.Existe("data/applications/zelvane.desktop"));
    EXPECT_FALSE(m_dossier.Existe("data/icons"));
}

TEST_F(AssociationBureauTest, WritesOnlyWhatDiffers)
{
    Enregistrer();
    const QString entree = m_dossier.Fichier("data/applications/zelvane.desktop");
    const QString type = m_dossier.Fichier("data/mime/packages/zelvane.xml");
    const QDateTime jadis(QDate(2001, 1, 1), QTime(0, 0));
    for (const QString& chemin : {entree, type}) {
        QFile fichier(chemin);
        ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
        ASSERT_TRUE(fichier.setFileTime(jadis, QFileDevice::FileModificationTime));
    }

    Enregistrer("/elsewhere/zelvane");

    EXPECT_NE(QFileInfo(entree).lastModified(), jadis);
    EXPECT_EQ(QFileInfo(type).lastModified(), jadis);
}

TEST_F(AssociationBureauTest, RefreshesTheDesktopsCachesOfWhatChanged)
{
    for (const char* outil : {"update-mime-database", "update-desktop-database"}) {
        const QString script = m_dossier.Ecrire(outil, "#!/bin/sh\necho \"$1\" > \"$0.ran\"\n");
        ASSERT_TRUE(QFile::setPermissions(script, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    }

    Enregistrer();

    for (int i = 0; i < 500 && !(Tourne("update-mime-database") && Tourne("update-desktop-database")); ++i)
        QThread::msleep(20);
    EXPECT_EQ(m_dossier.Lire("update-mime-database.ran"), m_dossier.Fichier("data/mime\n").toUtf8());
    EXPECT_EQ(m_dossier.Lire("update-desktop-database.ran"), m_dossier.Fichier("data/applications\n").toUtf8());
}

TEST_F(AssociationBureauTest, DoesNotMindFailures)
{
    m_dossier.Ecrire("data", "a file where the folder should be");

    Enregistrer();

    EXPECT_EQ(m_dossier.Lire("data"), "a file where the folder should be");
}

} // namespace
