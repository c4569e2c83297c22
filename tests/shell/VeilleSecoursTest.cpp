#include "shell/VeilleSecours.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "shell/CadreEnFenetre.h"

#include <QFile>
#include <QFileInfo>
#include <QSessionManager>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class Veille : public CadreEnFenetre
{
protected:
    Form1& OuvrirEtVeiller()
    {
        Montrer();
        veille = std::make_unique<VeilleSecours>(*cadre);
        return Ouvrir(u"disques.qrt"_s);
    }
    static bool Ecrit(const Categorie& doc)
    {
        const auto identite = LireIdentite(FichierDeSecours(doc.TmpFolder));
        return identite && identite->texte;
    }

    std::unique_ptr<VeilleSecours> veille;
};

/// The desktop's side of the end of a session: what it was told, in order.
struct SessionDeTest
{
    bool permetDesQuestions;
    QStringList recus;

    bool allowsInteraction()
    {
        recus.append(u"allowsInteraction"_s);
        return permetDesQuestions;
    }
    void release() { recus.append(u"release"_s); }
    void cancel() { recus.append(u"cancel"_s); }
};

} // namespace

TEST_F(Veille, WritesUnsavedChangesWhileTheUserPauses)
{
    Montrer();
    qint64 heure = 0; // a machine that stands still for a moment is no user who pauses
    veille = std::make_unique<VeilleSecours>(*cadre, [&heure] { return heure; });
    Form1& fenetre = Ouvrir(u"disques.qrt"_s);
    fenetre.myqrt.MyLV->ListItems(1).SetText(u"Dummy"_s);
    fenetre.myqrt.IlFautSauver = true;
    for (int i = 0; i < 60; ++i) {
        heure += 400;
        QTest::mouseMove(&fenetre.ListView1(), QPoint(i % 50, 5));
        QTest::qWait(50);
        ASSERT_FALSE(Ecrit(fenetre.myqrt)) << "the user is at work";
    }
    heure += 10000;
    EXPECT_TRUE(QTest::qWaitFor([&] { return Ecrit(fenetre.myqrt); }, 10000));

    fenetre.myqrt.IlFautSauver = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Ecrit(fenetre.myqrt); }, 5000)) << "what is saved needs none";
    const QString copie = FichierDeSecours(fenetre.myqrt.TmpFolder);
    fenetre.Decharger();
    Laisser();
    EXPECT_FALSE(QFileInfo::exists(copie));
}

TEST_F(Veille, OfAMillionEntriesTheUserFeelsNothing)
{
    Form1& fenetre = OuvrirEtVeiller();
    {
        fenetre.myqrt.MyLV->SetSorted(false);
        for (int i = 1; i <= 1'000'000; ++i)
            fenetre.myqrt.MyLV->ListItems.Add(0, QString(), u"Titre de l'album numéro %1"_s.arg(i));
    }
    Laisser();
    fenetre.myqrt.IlFautSauver = true;

    // All else that waits has its turn between two pieces, of which none is longer than half a frame of the screen.
    const QString enCours = FichierDeSecours(fenetre.myqrt.TmpFolder) + u'~';
    qint64 vu = 0, plusLong = 0;
    QTimer battement;
    QObject::connect(&battement, &QTimer::timeout, [&] {
        const qint64 taille = QFileInfo(enCours).size();
        plusLong = std::max(plusLong, taille - vu);
        vu = std::max(vu, taille);
    });
    battement.start(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Ecrit(fenetre.myqrt); }, 60000));
    EXPECT_GT(vu, qint64(20) << 20) << "was seen to grow";
    EXPECT_LT(plusLong, qint64(4) << 20);
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Veille, KeepsTheFoldersFresh)
{
    constexpr time_t jadis = 1'000'000'000;
    Montrer();
    const Form1& fenetre = Ouvrir(u"disques.qrt"_s);
    const QByteArray texte = QFile::encodeName(fenetre.myqrt.TmpFolder + u"Zelvane.qrt"_s);
    const timespec dates[2] = {{jadis, 0}, {0, UTIME_OMIT}};
    ASSERT_EQ(utimensat(AT_FDCWD, texte.constData(), dates, 0), 0);
    veille = std::make_unique<VeilleSecours>(*cadre);
    const auto acces = [&texte] {
        struct stat etat = {};
        return stat(texte.constData(), &etat) == 0 ? etat.st_atim.tv_sec : 0;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return acces() > jadis; }, 10000));
}

TEST_F(Veille, TheEndOfTheSessionMayBeRefused)
{
    Form1& fenetre = OuvrirEtVeiller();
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    EXPECT_FALSE(veille->FinirLaSession(true));
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    EXPECT_TRUE(veille->FinirLaSession(false));
    EXPECT_TRUE(Ecrit(fenetre.myqrt));
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Veille, ASessionThatGoesOnKeepsTheChangesThatWereGivenUp)
{
    Form1& fenetre = OuvrirEtVeiller();
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepNon);
    EXPECT_TRUE(veille->FinirLaSession(true));
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Down);
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Veille, TheDesktopIsToldWhenTheQuestionsAreOver)
{
    Form1& fenetre = OuvrirEtVeiller();
    fenetre.myqrt.IlFautSauver = true;
    SessionDeTest session{true, {}};
    reponses.Preparer(RepNon);
    veille->Repondre(session);
    EXPECT_EQ(session.recus, QStringList({"allowsInteraction", "release"}));
    EXPECT_EQ(reponses.Affiches().size(), 1);

    fenetre.myqrt.IlFautSauver = true;
    session.recus.clear();
    reponses.Preparer(RepAnnuler);
    veille->Repondre(session);
    EXPECT_EQ(session.recus, QStringList({"allowsInteraction", "release", "cancel"})) << "the user goes on";
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Veille, ADesktopThatAllowsNoQuestionIsHeldUpByNone)
{
    Form1& fenetre = OuvrirEtVeiller();
    fenetre.myqrt.IlFautSauver = true;
    SessionDeTest session{false, {}};
    veille->Repondre(session);
    EXPECT_EQ(session.recus, QStringList("allowsInteraction"));
    EXPECT_TRUE(Ecrit(fenetre.myqrt));
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Veille, TheEndOfTheSessionIsAnsweredWhereQtTellsOfIt)
{
    Form1& fenetre = OuvrirEtVeiller();
    fenetre.myqrt.IlFautSauver = true;
    auto* session = qApp->findChild<QSessionManager*>();
    ASSERT_NE(session, nullptr);
    ASSERT_FALSE(session->allowsInteraction()) << "there is no desktop here";
    emit qApp->commitDataRequest(*session);
    EXPECT_TRUE(Ecrit(fenetre.myqrt));
    fenetre.myqrt.IlFautSauver = false;
}
