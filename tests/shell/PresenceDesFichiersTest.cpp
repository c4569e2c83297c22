#include "shell/PresenceDesFichiers.h"

#include "support/DossierDeTest.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PresenceDesFichiersTest : public testing::Test
{
protected:
    QString Present(const QString& nom) const { return dossier.Ecrire(nom, "x"), dossier.Fichier(nom); }

    DossierDeTest dossier;
    PresenceDesFichiers presence;
    QSignalSpy reponses{&presence, &PresenceDesFichiers::Absents};
};

} // namespace

TEST_F(PresenceDesFichiersTest, TellsThoseThatAreNoFiles)
{
    const QString absent = dossier.Fichier(u"absent"_s);
    presence.Regarder({Present(u"a"_s), absent, dossier.Chemin(), Present(u"b"_s)});
    ASSERT_TRUE(reponses.wait());
    EXPECT_EQ(reponses.first().first().toStringList(), QStringList({absent, dossier.Chemin()}));
}

TEST_F(PresenceDesFichiersTest, TellsOnlyOfWhatWasAskedForLast)
{
    const QString absent = dossier.Fichier(u"absent"_s);
    const QString autre = dossier.Fichier(u"autre"_s);
    presence.Regarder({absent});
    presence.Regarder({Present(u"a"_s)});
    presence.Regarder({autre});
    ASSERT_TRUE(reponses.wait());
    QTest::qWait(0);
    ASSERT_EQ(reponses.size(), 1);
    EXPECT_EQ(reponses.first().first().toStringList(), QStringList(autre));
}

TEST_F(PresenceDesFichiersTest, AnAnswerThatComesTooLateReachesNobody)
{
    for (int i = 0; i < 200; ++i) {
        PresenceDesFichiers courte;
        courte.Regarder({dossier.Fichier(u"absent"_s)});
    }
    QTest::qWait(0);
    presence.Regarder({dossier.Chemin()});
    ASSERT_TRUE(reponses.wait());
    EXPECT_EQ(reponses.size(), 1);
}
