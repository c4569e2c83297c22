// What the frame does when the program is started again.
#include "CadreEnFenetre.h"

#include <QDialog>

using namespace Qt::StringLiterals;

namespace {

class MDIForm1InstanceTest : public CadreEnFenetre
{
protected:
    /// The frame as the first instance, which others find.
    void MontrerPremier()
    {
        Montrer();
        ASSERT_FALSE(cadre->My_Instance.PrevInstace());
    }
    /// Another start of the program sends its command line, brings the frame to the front, or asks it to close.
    static void Recevoir(const QString& texte)
    {
        Services().recevoir(texte);
        Laisser();
    }
    static const ServicesInstance& Services() { return PlateformeDeTest::Courante().rendezvous.services; }
};

/// Looks at a window whenever a message is shown.
struct Temoin : FileDeReponses
{
    explicit Temoin(const QWidget& vue) : fenetre(vue) {}
    int Afficher(const Message& message, int genre, const QString& titre) override
    {
        reduit.append(fenetre.isMinimized());
        return FileDeReponses::Afficher(message, genre, titre);
    }

    const QWidget& fenetre;
    QList<bool> reduit;
};

} // namespace

TEST_F(MDIForm1InstanceTest, TheFrameTakesNoStepByItselfWhenItFindsAnother)
{
    Montrer();
    EXPECT_EQ(cadre->My_Instance.ActionCmd, ActionInstance::Rien);
    EXPECT_EQ(InstanceModule::APrevenir(), &cadre->My_Instance);
    cadre.reset();
    EXPECT_EQ(InstanceModule::APrevenir(), nullptr);
}

TEST_F(MDIForm1InstanceTest, TheFileOfAnotherStartOpensHere)
{
    MontrerPremier();
    Ouvrir(u"a.qrt"_s);
    const QString b = Fichier(u"mes  disques & livres.qrt"_s);
    Recevoir(b);
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"mes  disques & livres.qrt"_s}));
    EXPECT_EQ(cadre->FenetreActive()->myqrt.CheminReel(), b);
    EXPECT_EQ(Onglets().currentIndex(), 1);
    EXPECT_EQ(Recent(0).data().toString(), b);
}

TEST_F(MDIForm1InstanceTest, TheFrameIsSeenBeforeTheFileThatComesHasSomethingToSay)
{
    MontrerPremier();
    cadre->showMinimized();
    ASSERT_TRUE(cadre->isMinimized());
    const Temoin temoin(*cadre);
    Recevoir(u"/nulle/part.qrt"_s);
    EXPECT_EQ(temoin.reduit, QList<bool>{false});
}

TEST_F(MDIForm1InstanceTest, ARecentFileThatIsGoneLeavesTheMenuAtOnce)
{
    EcrireOption(u"FRecent1"_s, u"/parti.qrt"_s);
    MontrerPremier();
    ASSERT_TRUE(Recent(0).isVisible());
    Recevoir(u"/parti.qrt"_s);
    EXPECT_FALSE(Recent(0).isVisible());
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg49"_s});
}

TEST_F(MDIForm1InstanceTest, AFileThatIsOpenAlreadyComesToTheFront)
{
    MontrerPremier();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    Recevoir(a.myqrt.CheminReel());
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg48"_s});
    EXPECT_EQ(cadre->FenetreActive(), &a);
    EXPECT_EQ(Onglets().currentIndex(), 0);
}

TEST_F(MDIForm1InstanceTest, ATextThatIsNoFileIsToldWhateverItIs)
{
    MontrerPremier();
    const QStringList textes{u"/nulle/part.qrt"_s, QString(), QString(500000, u'x'), u"\n\t%1\0"_s,
                             QString(QChar(0xDCE9)) + u".qrt"_s};
    for (const QString& texte : textes)
        Recevoir(texte);
    EXPECT_EQ(reponses.Cles(), QStringList(textes.size(), u"msg49"_s));
    EXPECT_TRUE(cadre->Documents().empty());
}

TEST_F(MDIForm1InstanceTest, AFileThatComesWhileADialogIsOpenIsOpenedBehindIt)
{
    MontrerPremier();
    QDialog dialogue(cadre.get());
    dialogue.setModal(true);
    dialogue.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialogue));
    Recevoir(Fichier(u"a.qrt"_s));
    EXPECT_EQ(Titres(), QStringList{u"a.qrt"_s});
    EXPECT_EQ(QApplication::activeModalWidget(), &dialogue);
    EXPECT_TRUE(dialogue.isActiveWindow()) << "what the user types still goes there";
}

TEST_F(MDIForm1InstanceTest, TheFrameComesToTheFrontEvenFromAnIcon)
{
    MontrerPremier();
    cadre->showMinimized();
    ASSERT_TRUE(cadre->isMinimized());
    Services().montrer(QString());
    EXPECT_FALSE(cadre->isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
}

TEST_F(MDIForm1InstanceTest, AskedToCloseTheFrameAsksTheUser)
{
    MontrerPremier();
    Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    Services().fermer();
    EXPECT_TRUE(cadre->isVisible());
    EXPECT_TRUE(a.myqrt.IlFautSauver);
    reponses.Preparer(RepNon);
    Services().fermer();
    EXPECT_FALSE(cadre->isVisible());
}

TEST_F(MDIForm1InstanceTest, AskedToCloseTheFrameStaysWhileADialogIsOpen)
{
    MontrerPremier();
    Ouvrir(u"a.qrt"_s);
    QDialog dialogue(cadre.get());
    dialogue.setModal(true);
    dialogue.show();
    Services().fermer();
    EXPECT_TRUE(cadre->isVisible());
    dialogue.close();
    Services().fermer();
    EXPECT_FALSE(cadre->isVisible());
}
