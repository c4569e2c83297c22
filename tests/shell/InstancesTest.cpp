// Several processes on one rendezvous.
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <vector>

namespace {

QByteArray EnHexadecimal(const QString& texte)
{
    return QByteArray(reinterpret_cast<const char*>(texte.utf16()), 2 * texte.size()).toHex();
}

using Environnement = QList<std::pair<QString, QString>>;

/// One start of the program.
class Depart
{
public:
    Depart(const DossierDeTest& dossier, const QString& texte, const Environnement& variables = {})
    {
        QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
        environnement.insert("XDG_RUNTIME_DIR", dossier.Chemin());
        environnement.insert("DISPLAY", ":7");
        environnement.insert("TMPDIR", dossier.Chemin()); // what it leaves when it is killed goes with the test
        for (const char* nom : {"WAYLAND_DISPLAY", "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
            environnement.remove(nom);
        for (const auto& [nom, valeur] : variables)
            environnement.insert(nom, valeur);
        m_processus.setProcessEnvironment(environnement);
        m_processus.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_processus.start(QStringLiteral(INSTANCE_ESSAI), {dossier.Chemin(), EnHexadecimal(texte)});
        EXPECT_TRUE(m_processus.waitForStarted(20000));
    }
    /// Ends it as a user does, unless it has ended.
    ~Depart()
    {
        m_processus.closeWriteChannel();
        if (!m_processus.waitForFinished(20000))
            m_processus.kill();
    }

    const QStringList& Lignes()
    {
        m_lignes += QString::fromUtf8(m_processus.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        return m_lignes;
    }
    bool Dit(const QString& ligne)
    {
        return QTest::qWaitFor([&] { return Lignes().contains(ligne); }, 20000);
    }
    bool Recoit(const QString& texte) { return Dit("recu " + EnHexadecimal(texte)); }
    bool EstLePremier() { return Dit("premier"); }

    bool EstFini() const { return m_processus.state() == QProcess::NotRunning; }
    bool SeTermine()
    {
        return QTest::qWaitFor([this] { return EstFini(); }, 20000) &&
               m_processus.exitStatus() == QProcess::NormalExit && m_processus.exitCode() == 0;
    }
    void Tuer()
    {
        m_processus.kill();
        m_processus.waitForFinished();
    }
    void Signaler(int signal) const { kill(static_cast<pid_t>(Pid()), signal); }
    qint64 Pid() const { return m_processus.processId(); }

private:
    QProcess m_processus;
    QStringList m_lignes;
};

class InstancesTest : public testing::Test
{
protected:
    QByteArray Reglage() const { return m_dossier.Lire("reglages.ini"); }
    static QByteArray ReglageDe(qint64 pid) { return "[hwndinstance]\nhwnd=" + QByteArray::number(pid) + "\n"; }
    QString Prise() const
    {
        QDirIterator fichiers(m_dossier.Chemin(), {"instance"}, QDir::Files | QDir::System,
                              QDirIterator::Subdirectories);
        return fichiers.hasNext() ? fichiers.next() : QString();
    }

    DossierDeTest m_dossier;
};

TEST_F(InstancesTest, ASecondStartHandsItsPathOverShowsTheFirstAndEnds)
{
    Depart premier(m_dossier, "/a.qrt");
    ASSERT_TRUE(premier.EstLePremier());
    const qint64 pid = premier.Pid();

    Depart second(m_dossier, "/b c.qrt", {{"XDG_ACTIVATION_TOKEN", "jeton-2"}});

    EXPECT_TRUE(second.SeTermine());
    EXPECT_TRUE(premier.Dit("montre jeton-2"));
    EXPECT_EQ(second.Lignes(), QStringList{"remis"});
    EXPECT_EQ(premier.Lignes(), (QStringList{"premier", "ouvert " + EnHexadecimal("/a.qrt"),
                                             "recu " + EnHexadecimal("/b c.qrt"), "traite", "montre jeton-2"}));
    EXPECT_EQ(Reglage(), ReglageDe(pid));
}

TEST_F(InstancesTest, ASecondStartWithoutAPathJustShowsTheFirst)
{
    Depart premier(m_dossier, "");
    ASSERT_TRUE(premier.EstLePremier());

    Depart second(m_dossier, "", {{"DESKTOP_STARTUP_ID", "id_TIME2"}});

    EXPECT_TRUE(second.SeTermine());
    EXPECT_TRUE(premier.Dit("montre id_TIME2"));
    EXPECT_EQ(second.Lignes(), QStringList{"pas remis"});
    EXPECT_EQ(premier.Lignes(), (QStringList{"premier", "montre id_TIME2"}));
}

TEST_F(InstancesTest, ASecondStartLastsUntilItsFileIsOpen)
{
    Depart premier(m_dossier, "", {{"ESSAI_PAUSE", "600"}});
    ASSERT_TRUE(premier.EstLePremier());

    Depart second(m_dossier, "/a.qrt");
    ASSERT_TRUE(premier.Recoit("/a.qrt"));
    EXPECT_FALSE(premier.Lignes().contains("traite"));
    EXPECT_FALSE(second.EstFini());

    EXPECT_TRUE(second.SeTermine());
    EXPECT_TRUE(premier.Dit("traite"));
}

TEST_F(InstancesTest, PathsArriveWhole)
{
    const QStringList textes = {"/a b  c.qrt", "/a\nb.qrt", QStringLiteral("/a") + QChar(0) + "b.qrt",
                                QStringLiteral("/") + QChar(0xDCE9) + ".qrt", "/é\U0001F4BF.qrt"};
    Depart premier(m_dossier, "");
    ASSERT_TRUE(premier.EstLePremier());

    for (const QString& texte : textes) {
        Depart second(m_dossier, texte);
        EXPECT_TRUE(second.SeTermine());
        EXPECT_TRUE(premier.Recoit(texte));
    }
}

TEST_F(InstancesTest, AStartAfterTheFirstHasEndedIsAFirstOne)
{
    {
        Depart premier(m_dossier, "");
        ASSERT_TRUE(premier.EstLePremier());
        ASSERT_NE(Prise(), "");
    }
    EXPECT_EQ(Prise(), "");

    Depart suivant(m_dossier, "/a.qrt");

    EXPECT_TRUE(suivant.Dit("ouvert " + EnHexadecimal("/a.qrt")));
    EXPECT_EQ(Reglage(), ReglageDe(suivant.Pid()));
}

TEST_F(InstancesTest, TheSocketOfAKilledProcessIsTakenOver)
{
    Depart tue(m_dossier, "");
    ASSERT_TRUE(tue.EstLePremier());
    tue.Tuer();
    ASSERT_NE(Prise(), "");

    Depart premier(m_dossier, "/a.qrt");
    EXPECT_TRUE(premier.Dit("ouvert " + EnHexadecimal("/a.qrt")));
    Depart second(m_dossier, "/b.qrt");

    EXPECT_TRUE(second.SeTermine());
    EXPECT_TRUE(premier.Recoit("/b.qrt"));
    EXPECT_EQ(Reglage(), ReglageDe(premier.Pid()));
}

TEST_F(InstancesTest, ASettingThatIsOutOfDateLosesTheTextAndTheSecondEndsAllTheSame)
{
    Depart premier(m_dossier, "");
    ASSERT_TRUE(premier.EstLePremier());
    m_dossier.Ecrire("reglages.ini", "[HwndInstance]\nhwnd=1\n");

    Depart second(m_dossier, "/a.qrt");

    EXPECT_TRUE(second.SeTermine());
    EXPECT_EQ(second.Lignes(), QStringList{"pas remis"});
    EXPECT_TRUE(premier.Dit("montre ")) << "the window is found without the setting";
    EXPECT_FALSE(premier.Lignes().contains("traite"));
}

TEST_F(InstancesTest, SessionsOfOneUserAreApart)
{
    Depart premier(m_dossier, "");
    ASSERT_TRUE(premier.EstLePremier());

    Depart ailleurs(m_dossier, "", {{"DISPLAY", ":8"}});

    EXPECT_TRUE(ailleurs.EstLePremier());
}

TEST_F(InstancesTest, SimultaneousStartsAllSurviveAndNoneLosesItsText)
{
    constexpr int combien = 6;
    for (int tour = 0; tour < 4; ++tour) {
        std::vector<std::unique_ptr<Depart>> departs;
        for (int i = 0; i < combien; ++i)
            departs.push_back(std::make_unique<Depart>(m_dossier, QString("/%1.qrt").arg(i)));

        Depart* premier = nullptr;
        const auto tousDecides = [&] {
            return std::all_of(departs.begin(), departs.end(),
                               [](const auto& d) { return d->EstFini() || d->Lignes().contains("premier"); });
        };
        ASSERT_TRUE(QTest::qWaitFor(tousDecides, 60000));
        for (const auto& depart : departs) {
            if (depart->Lignes().contains("premier")) {
                EXPECT_EQ(premier, nullptr) << "two count as first";
                premier = depart.get();
            } else {
                EXPECT_TRUE(depart->SeTermine());
            }
        }
        ASSERT_NE(premier, nullptr);
        for (int i = 0; i < combien; ++i) {
            const QString texte = EnHexadecimal(QString("/%1.qrt").arg(i));
            const bool leSien = departs[static_cast<size_t>(i)].get() == premier;
            EXPECT_TRUE(premier->Dit((leSien ? "ouvert " : "recu ") + texte)) << tour << ' ' << i;
        }
        EXPECT_EQ(Reglage(), ReglageDe(premier->Pid()));
    }
}

TEST_F(InstancesTest, SimultaneousStartsTakeOverADeadSocketOnce)
{
    Depart tue(m_dossier, "");
    ASSERT_TRUE(tue.EstLePremier());
    tue.Tuer();

    Depart a(m_dossier, "/a.qrt");
    Depart b(m_dossier, "/b.qrt");

    ASSERT_TRUE(QTest::qWaitFor([&] { return a.EstFini() || b.EstFini(); }, 20000));
    Depart& premier = a.EstFini() ? b : a;
    EXPECT_TRUE(premier.EstLePremier());
    EXPECT_TRUE(premier.Recoit(a.EstFini() ? "/a.qrt" : "/b.qrt"));
}

TEST_F(InstancesTest, AFirstThatIsBusyTakesTheTextLater)
{
    Depart premier(m_dossier, "");
    ASSERT_TRUE(premier.EstLePremier());
    premier.Signaler(SIGSTOP);

    Depart second(m_dossier, "/a.qrt");
    QTest::qWait(400);
    EXPECT_FALSE(second.EstFini());
    premier.Signaler(SIGCONT);

    EXPECT_TRUE(second.SeTermine());
    EXPECT_TRUE(premier.Recoit("/a.qrt"));
}

TEST_F(InstancesTest, AFirstThatDiesInTheMiddleLetsTheSecondEnd)
{
    Depart premier(m_dossier, "", {{"ESSAI_PAUSE", "60000"}});
    ASSERT_TRUE(premier.EstLePremier());
    Depart second(m_dossier, "/a.qrt");
    ASSERT_TRUE(premier.Recoit("/a.qrt"));

    premier.Tuer();

    EXPECT_TRUE(second.SeTermine());
    EXPECT_EQ(second.Lignes(), QStringList{"pas remis"});
}

TEST_F(InstancesTest, ASecondStartCanEndByItself)
{
    Depart premier(m_dossier, "");
    ASSERT_TRUE(premier.EstLePremier());

    Depart second(m_dossier, "/a.qrt", {{"ESSAI_ACTION", "1"}});

    EXPECT_TRUE(second.SeTermine());
    EXPECT_TRUE(premier.Dit("montre "));
    EXPECT_EQ(second.Lignes(), QStringList{"fini"});
    EXPECT_EQ(premier.Lignes(), (QStringList{"premier", "montre "})) << "its text is not set yet then";
}

TEST_F(InstancesTest, ASecondStartCanReplaceTheFirst)
{
    Depart premier(m_dossier, "");
    ASSERT_TRUE(premier.EstLePremier());

    // As the other one it hands its text over, to nobody, and ends: who replaces does not go through the usual start.
    Depart second(m_dossier, "/a.qrt", {{"ESSAI_ACTION", "2"}});

    EXPECT_TRUE(premier.Dit("ferme"));
    EXPECT_TRUE(premier.SeTermine());
    EXPECT_TRUE(second.SeTermine());
}

} // namespace
