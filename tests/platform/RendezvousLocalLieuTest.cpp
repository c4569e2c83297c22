// Where processes meet, and who listens there.
#include "platform/RendezvousLocalDeTest.h"
#include "platform/VerrouDossier.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// A variable of the environment, for one test.
class Variable
{
public:
    Variable(const char* nom, const QByteArray& valeur)
        : m_nom(nom), m_avant(qgetenv(nom)), m_etait(qEnvironmentVariableIsSet(nom))
    {
        valeur.isNull() ? qunsetenv(nom) : qputenv(nom, valeur);
    }
    ~Variable() { m_etait ? qputenv(m_nom, m_avant) : qunsetenv(m_nom); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_nom;
    QByteArray m_avant;
    bool m_etait;
};

TEST_F(RendezvousLocalTest, IsOpenToOneUserOnly)
{
    Ecouter();

    const auto autres =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(Prise()) & autres);
    EXPECT_FALSE(QFile::permissions(QFileInfo(Prise()).path()) & autres);
}

TEST_F(RendezvousLocalTest, LeavesItsPlaceWhenItIsAskedToClose)
{
    Ecouter();

    Demander([this](RendezvousLocal& autre) {
        autre.Chercher(Titre, [] {});
        EXPECT_TRUE(autre.Fermer(getpid()));
        EXPECT_EQ(Prise(), "");
        autre.PrendreLaPlace(Titre, [this] { ++m_publies; });
        EXPECT_NE(Prise(), "");
    });

    EXPECT_EQ(m_publies, 2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_fermes == 1; }, 5000));
}

TEST_F(RendezvousLocalTest, LeavesAloneTheSocketOfWhoTookItsPlace)
{
    Ecouter();
    Demander([](RendezvousLocal& autre) {
        autre.Chercher(Titre, [] {});
        autre.Fermer(getpid());
    });
    RendezvousLocal suivant(m_lieu);
    suivant.PrendreLaPlace(Titre, [] {});

    m_ecoute.reset();

    EXPECT_NE(Prise(), "");
}

TEST_F(RendezvousLocalTest, TakesThePlaceOfAnInstanceThatIsLeaving)
{
    Ecouter();
    qint32 trouve = -1;
    const auto fil = EnFil([&](RendezvousLocal& autre) { trouve = autre.Chercher(Titre, [this] { ++m_publies; }); });
    QThread::msleep(100); // it has asked who is there, and is not answered any more

    m_ecoute->Quitter();
    fil.wait();

    EXPECT_EQ(trouve, 0);
    EXPECT_EQ(m_publies, 2);
}

TEST_F(RendezvousLocalTest, WaitsForOneThatIsJustArriving)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier);
    const auto fil = EnFil([this](RendezvousLocal& autre) { autre.Chercher(Titre, [this] { ++m_publies; }); });
    EXPECT_FALSE(EstFini(fil, 100ms));

    verrou.reset();

    EXPECT_TRUE(EstFini(fil, 5000ms));
    EXPECT_EQ(m_publies, 2);
}

TEST_F(RendezvousLocalTest, StartsAllTheSameWhenSomebodyIsStuckWhileArriving)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier);
    m_delais.verrou = 50ms;

    RendezvousLocal autre(m_lieu, QString(), m_delais);

    EXPECT_EQ(autre.Chercher(Titre, [this] { ++m_publies; }), 0);
    EXPECT_EQ(m_publies, 2);
    verrou.reset(); // or the end waits for it
}

TEST_F(RendezvousLocalTest, TakesOverAFileThatNobodyListensAt)
{
    Ecouter();
    const QString prise = Prise();
    m_ecoute->Quitter();
    QFile fichier(prise);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.close();

    Ecouter();

    EXPECT_TRUE(Envoyer("/a.qrt"));
}

TEST_F(RendezvousLocalTest, CountsAsFirstWhereItCannotListen)
{
    const QString absent = m_dossier.Fichier("absent");
    const QString tropLong = m_dossier.Fichier(QString(120, u'x'));
    QDir().mkpath(tropLong);
    for (const QString& dossier : {absent, tropLong}) {
        RendezvousLocal seul({dossier, ":7"});
        int publies = 0;

        EXPECT_EQ(seul.Chercher(Titre, [&] { ++publies; }), 0);
        seul.PrendreLaPlace(Titre, [&] { ++publies; });

        EXPECT_EQ(publies, 2);
        EXPECT_FALSE(seul.Envoyer(1, "/a.qrt"));
        seul.Quitter();
    }
}

TEST_F(RendezvousLocalTest, DoesNotMeetInAFolderThatIsOpenToOthers)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    QFile::setPermissions(dossier, QFile::permissions(dossier) | QFile::WriteOther);

    RendezvousLocal autre(m_lieu);

    EXPECT_EQ(autre.Chercher(Titre, [] {}), 0);
    EXPECT_EQ(Prise(), "");
}

TEST_F(RendezvousLocalTest, DoesNotMeetBehindALink)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    ASSERT_TRUE(QDir().rename(dossier, m_dossier.Fichier("ailleurs")));
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("ailleurs"), dossier));

    RendezvousLocal autre(m_lieu);

    EXPECT_EQ(autre.Chercher(Titre, [] {}), 0);
    EXPECT_EQ(Prise(), "");
}

TEST_F(RendezvousLocalTest, LiesInTheFolderOfTheSession)
{
    const Variable dossier("XDG_RUNTIME_DIR", m_dossier.Chemin().toUtf8());

    EXPECT_EQ(RendezvousLocal::Lieu::DuSysteme().dossier, m_dossier.Chemin());
}

TEST_F(RendezvousLocalTest, LiesInTheTemporaryFolderWhereTheSessionHasNone)
{
    for (const QByteArray& valeur : {QByteArray(), QByteArray("relatif"), m_dossier.Fichier("absent").toUtf8()}) {
        const Variable dossier("XDG_RUNTIME_DIR", valeur);
        EXPECT_EQ(RendezvousLocal::Lieu::DuSysteme().dossier, QDir::tempPath());
    }
}

TEST_F(RendezvousLocalTest, TellsSessionsByTheirDisplay)
{
    struct Cas
    {
        QByteArray wayland, x11, session;
    };
    for (const auto& [wayland, x11, session] :
         {Cas{"wayland-1", ":0", "wayland-1"}, Cas{QByteArray(), ":0", ":0"}, Cas{"", ":0.0", ":0"},
          Cas{"", "hote.example:10.0", "hote.example:10"}, Cas{QByteArray(), QByteArray(), ""}}) {
        const Variable w("WAYLAND_DISPLAY", wayland);
        const Variable x("DISPLAY", x11);
        EXPECT_EQ(RendezvousLocal::Lieu::DuSysteme().session, session);
    }
}

TEST_F(RendezvousLocalTest, ReadsTheTokenThatTheDesktopGave)
{
    const Variable x11("DESKTOP_STARTUP_ID", "x11_TIME12");
    {
        const Variable wayland("XDG_ACTIVATION_TOKEN", "wl");
        EXPECT_EQ(RendezvousLocal::JetonDuLancement(), "wl");
    }
    const Variable wayland("XDG_ACTIVATION_TOKEN", QByteArray());
    EXPECT_EQ(RendezvousLocal::JetonDuLancement(), "x11_TIME12");
    const Variable rien("DESKTOP_STARTUP_ID", QByteArray());
    EXPECT_EQ(RendezvousLocal::JetonDuLancement(), "");
}

} // namespace
