#include "platform/TrameRendezvous.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

using TrameRendezvous::Etat;

namespace {

QByteArray Coder(const QString& texte)
{
    return *TrameRendezvous::Coder(DemandeInstance{OrdreInstance::Texte, 12, texte});
}

TEST(TrameRendezvous, ReadsEveryTextBackAsItIs)
{
    const QString solitaire = QStringLiteral("/x") + QChar(0xDC80) + QStringLiteral(".qrt") + QChar(0xD800);
    const QString nul = QStringLiteral("/a") + QChar(0) + u'b';
    for (const QString& texte : {QString(), QString("/a b.qrt"), QString("a\nb\r\n\tc"), QString("/été/\U0001F4BF.qrt"),
                                 nul, solitaire, QString(100000, u'x')}) {
        const DemandeInstance demande{OrdreInstance::Texte, 2147483647, texte};
        DemandeInstance lue;

        ASSERT_EQ(TrameRendezvous::Lire(*TrameRendezvous::Coder(demande), lue), Etat::Complete);

        EXPECT_EQ(lue, demande);
    }
}

TEST(TrameRendezvous, ReadsEveryOrderBack)
{
    for (const auto ordre :
         {OrdreInstance::Presence, OrdreInstance::Texte, OrdreInstance::Montrer, OrdreInstance::Fermer}) {
        const DemandeInstance demande{ordre, -1, "jeton"};
        DemandeInstance lue;

        ASSERT_EQ(TrameRendezvous::Lire(*TrameRendezvous::Coder(demande), lue), Etat::Complete);

        EXPECT_EQ(lue, demande);
    }
}

TEST(TrameRendezvous, WaitsForTheWholeRequest)
{
    const QByteArray octets = Coder("/a.qrt");
    for (qsizetype n = 0; n < octets.size(); ++n) {
        DemandeInstance lue;
        EXPECT_EQ(TrameRendezvous::Lire(octets.left(n), lue), Etat::Incomplete) << n;
        EXPECT_EQ(lue, DemandeInstance());
    }
}

TEST(TrameRendezvous, DoesNotCountWhatComesBehind)
{
    DemandeInstance lue;

    EXPECT_EQ(TrameRendezvous::Lire(Coder("/a.qrt") + "encore", lue), Etat::Complete);

    EXPECT_EQ(lue.texte, "/a.qrt");
}

TEST(TrameRendezvous, RefusesAnotherMarkFromItsFirstWrongByteOn)
{
    for (qsizetype n = 0; n < 4; ++n) {
        QByteArray octets = Coder("/a.qrt");
        octets[n] = '?';
        DemandeInstance lue;
        EXPECT_EQ(TrameRendezvous::Lire(octets, lue), Etat::Fausse) << n;
        EXPECT_EQ(TrameRendezvous::Lire(octets.left(n + 1), lue), Etat::Fausse) << n;
        EXPECT_EQ(lue, DemandeInstance());
    }
}

TEST(TrameRendezvous, RefusesUnknownOrders)
{
    for (const qsizetype octet : {4, 7}) {
        QByteArray octets = Coder("/a.qrt");
        octets[octet] = 4;
        DemandeInstance lue;
        EXPECT_EQ(TrameRendezvous::Lire(octets, lue), Etat::Fausse);
    }
}

TEST(TrameRendezvous, TakesTheLongestTextAndRefusesOneMore)
{
    const QString leplusLong(TrameRendezvous::TailleMaxTexte / 2, u'x');
    DemandeInstance lue;

    EXPECT_EQ(TrameRendezvous::Lire(Coder(leplusLong), lue), Etat::Complete);
    EXPECT_EQ(lue.texte, leplusLong);
    EXPECT_EQ(Coder(leplusLong).size(), TrameRendezvous::TailleMaxDemande);
    EXPECT_EQ(TrameRendezvous::Coder(DemandeInstance{OrdreInstance::Texte, 12, leplusLong + u'x'}), std::nullopt);
}

TEST(TrameRendezvous, RefusesAWrongSizeAsSoonAsItIsTold)
{
    for (const char* taille : {"00100002", "00A00000", "FFFFFFFF", "80000000", "00000001"}) {
        const QByteArray octets = Coder("").left(12) + QByteArray::fromHex(taille);
        DemandeInstance lue;
        EXPECT_EQ(TrameRendezvous::Lire(octets, lue), Etat::Fausse) << taille;
    }
}

TEST(TrameRendezvous, ReadsAnswersBack)
{
    for (const ReponseInstance reponse : {ReponseInstance{true, 12}, ReponseInstance{false, 1}}) {
        const QByteArray octets = TrameRendezvous::Coder(reponse);
        ReponseInstance lue;
        EXPECT_EQ(TrameRendezvous::Lire(octets, lue), Etat::Complete);
        EXPECT_EQ(lue, reponse);
        EXPECT_EQ(TrameRendezvous::Lire(octets.chopped(1), lue), Etat::Incomplete);
    }
}

TEST(TrameRendezvous, RefusesWhatIsNoAnswer)
{
    ReponseInstance lue;
    EXPECT_EQ(TrameRendezvous::Lire(QByteArray("HTTP/1.1 400"), lue), Etat::Fausse);
    EXPECT_EQ(TrameRendezvous::Lire(Coder("/a.qrt").left(4) + QByteArray::fromHex("000000020000000C"), lue),
              Etat::Fausse);
    EXPECT_EQ(lue, ReponseInstance());
}

} // namespace
