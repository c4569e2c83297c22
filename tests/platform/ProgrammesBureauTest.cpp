#include "platform/ProgrammesBureau.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

/// Takes the addresses that would go to the desktop.
class Bureau : public QObject
{
    Q_OBJECT
public:
    Bureau()
    {
        for (const char* genre : {"file", "https", "mailto"})
            QDesktopServices::setUrlHandler(genre, this, "Recevoir");
    }
    ~Bureau() override
    {
        for (const char* genre : {"file", "https", "mailto"})
            QDesktopServices::unsetUrlHandler(genre);
    }
    Q_SLOT void Recevoir(const QUrl& url) { recues.append(url); }

    QList<QUrl> recues;
};

TEST(ProgrammesBureau, ShowsAFileByItsWholeName)
{
    const DossierDeTest dossier;
    Bureau bureau;
    const QString fichier = dossier.Ecrire("a b#1?%20.html", "x");

    EXPECT_TRUE(ProgrammesBureau().OuvrirFichier(fichier));

    ASSERT_EQ(bureau.recues.size(), 1);
    EXPECT_EQ(bureau.recues[0].toLocalFile(), fichier);
}

TEST(ProgrammesBureau, StartsNothingForAFileThatIsNotThere)
{
    Bureau bureau;

    EXPECT_FALSE(ProgrammesBureau().OuvrirFichier("/none/such"));

    EXPECT_TRUE(bureau.recues.isEmpty());
}

TEST(ProgrammesBureau, HandsAddressesOver)
{
    Bureau bureau;

    EXPECT_TRUE(ProgrammesBureau().OuvrirAdresse("https://zelvane.example/"));
    EXPECT_TRUE(ProgrammesBureau().OuvrirAdresse("mailto:paul@zelvane.example"));

    EXPECT_EQ(bureau.recues, (QList<QUrl>{QUrl("https://zelvane.example/"), QUrl("mailto:paul@zelvane.example")}));
}

TEST(ProgrammesBureau, RefusesWhatIsNoAddress)
{
    Bureau bureau;

    EXPECT_FALSE(ProgrammesBureau().OuvrirAdresse(""));
    EXPECT_FALSE(ProgrammesBureau().OuvrirAdresse("page.html"));

    EXPECT_TRUE(bureau.recues.isEmpty());
}

} // namespace

#include "ProgrammesBureauTest.moc"
