#include "platform/PreferenceSombre.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int Patience = 60'000; // milliseconds, far longer than a busy machine stands still
const QString s_chemin = u"/org/freedesktop/portal/desktop"_s;

} // namespace

/// The settings portal, as far as the colours go.
class PortailDeTest : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public slots:
    QDBusVariant Read(const QString& espace, const QString& cle)
    {
        questions.append(espace + u' ' + cle);
        if (retenir) {
            setDelayedReply(true);
            retenue = message();
            return {};
        }
        return QDBusVariant(QVariant::fromValue(QDBusVariant(couleurs))); // wrapped twice, as the portal does
    }

public:
    QStringList questions;
    uint couleurs = 0;
    bool retenir = false; ///< the answer
    QDBusMessage retenue; ///< the question that has no answer yet
};

namespace {

/// A bus of the test's own, and two ends of it.
class PreferenceSombreTest : public testing::Test
{
protected:
    PreferenceSombreTest()
    {
        bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
        while (!bus.canReadLine() && bus.waitForReadyRead(-1)) {
        }
        const QString adresse = QString::fromLatin1(bus.readLine()).trimmed();
        duBureau = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(adresse, u"bureau"_s));
        duProgramme = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(adresse, u"programme"_s));
    }
    ~PreferenceSombreTest() override
    {
        QDBusConnection::disconnectFromBus(u"bureau"_s);
        QDBusConnection::disconnectFromBus(u"programme"_s);
        bus.terminate();
        bus.waitForFinished(-1);
    }
    void OuvrirPortail(uint couleurs)
    {
        portail.couleurs = couleurs;
        ASSERT_TRUE(duBureau->registerObject(s_chemin, &portail, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(duBureau->registerService(u"org.freedesktop.portal.Desktop"_s));
    }
    void Annoncer(const QString& espace, const QString& cle, uint valeur)
    {
        QDBusMessage annonce =
            QDBusMessage::createSignal(s_chemin, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        annonce << espace << cle << QVariant::fromValue(QDBusVariant(valeur));
        duBureau->send(annonce);
    }
    /// Until the bus has done what the program asked of it. Another end could speak before that.
    void LaisserEcouter() const
    {
        const QDBusMessage question =
            QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"GetId"_s);
        EXPECT_EQ(duProgramme->call(question, QDBus::Block, Patience).type(), QDBusMessage::ReplyMessage);
    }
    /// Until the program has heard all that the desktop said so far.
    void LaisserEntendre()
    {
        portail.retenir = false;
        QDBusMessage question = QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, s_chemin,
                                                               u"org.freedesktop.portal.Settings"_s, u"Read"_s);
        question << u"autre"_s << u"chose"_s;
        const QDBusPendingCallWatcher reponse(duProgramme->asyncCall(question, Patience));
        QSignalSpy repondu(&reponse, &QDBusPendingCallWatcher::finished);
        ASSERT_TRUE(repondu.wait(Patience));
        EXPECT_FALSE(reponse.isError());
    }
    void AnnoncerCouleurs(uint valeur) { Annoncer(u"org.freedesktop.appearance"_s, u"color-scheme"_s, valeur); }

    QProcess bus;
    std::unique_ptr<QDBusConnection> duBureau;
    std::unique_ptr<QDBusConnection> duProgramme;
    PortailDeTest portail;
};

} // namespace

TEST_F(PreferenceSombreTest, IsWhatThePortalAnswers)
{
    OuvrirPortail(1);
    const PreferenceSombre preference(*duProgramme);
    QSignalSpy changee(&preference, &PreferenceSombre::Changee);
    EXPECT_FALSE(preference.Sombre()) << "nobody waits for the answer";
    ASSERT_TRUE(changee.wait(Patience));
    EXPECT_TRUE(preference.Sombre());
    EXPECT_EQ(portail.questions, QStringList{u"org.freedesktop.appearance color-scheme"_s});
}

TEST_F(PreferenceSombreTest, FollowsEachChange)
{
    OuvrirPortail(0);
    const PreferenceSombre preference(*duProgramme);
    QSignalSpy changee(&preference, &PreferenceSombre::Changee);
    LaisserEcouter();
    for (const uint valeur : {1U, 2U, 1U, 0U}) {
        AnnoncerCouleurs(valeur);
        ASSERT_TRUE(changee.wait(Patience));
        EXPECT_EQ(preference.Sombre(), valeur == 1) << valeur;
    }
    EXPECT_EQ(changee.count(), 4);
}

TEST_F(PreferenceSombreTest, SaysNothingWhereNothingChanges)
{
    OuvrirPortail(1);
    const PreferenceSombre preference(*duProgramme);
    QSignalSpy changee(&preference, &PreferenceSombre::Changee);
    LaisserEntendre();
    ASSERT_TRUE(preference.Sombre());
    AnnoncerCouleurs(1);
    Annoncer(u"org.freedesktop.appearance"_s, u"accent-color"_s, 0);
    Annoncer(u"org.gnome.desktop.interface"_s, u"color-scheme"_s, 0);
    LaisserEntendre();
    EXPECT_EQ(changee.count(), 1);
    EXPECT_TRUE(preference.Sombre());
}

TEST_F(PreferenceSombreTest, AnAnswerThatComesAfterAChangeIsOutOfDate)
{
    OuvrirPortail(0);
    portail.retenir = true;
    const PreferenceSombre preference(*duProgramme);
    LaisserEcouter();
    while (portail.questions.isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    AnnoncerCouleurs(1);
    duBureau->send(portail.retenue.createReply(QVariant::fromValue(QDBusVariant(0U))));
    LaisserEntendre();
    EXPECT_TRUE(preference.Sombre());
}

TEST_F(PreferenceSombreTest, WithoutAPortalNothingIsPreferred)
{
    const PreferenceSombre preference(*duProgramme);
    LaisserEcouter();
    QCoreApplication::processEvents();
    EXPECT_FALSE(preference.Sombre());
}

TEST_F(PreferenceSombreTest, WithoutABusNothingIsPreferred)
{
    const PreferenceSombre preference(QDBusConnection(u"nulle part"_s));
    EXPECT_FALSE(preference.Sombre());
}

#include "PreferenceSombreTest.moc"
