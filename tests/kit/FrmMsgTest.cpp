#include "kit/frmMsg.h"

#include "kit/MessagesEnFenetre.h"
#include "support/GardeModale.h"
#include "support/Impression.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QPushButton& Bouton(QWidget& boite, const char* nom)
{
    return *boite.findChild<QPushButton*>(QString::fromLatin1(nom));
}

/// Asks through the one door, answers with `geste`, and returns what the caller gets.
int Demander(int genre, const std::function<void(QWidget&)>& geste)
{
    const MessagesEnFenetre presentateur;
    const GardeModale garde(geste);
    return AfficherMsg(u"Voulez-vous continuer ?"_s, genre, u"Zelvane"_s);
}

int CliquerSur(const char* bouton, int genre)
{
    return Demander(genre, [bouton](QWidget& boite) { QTest::mouseClick(&Bouton(boite, bouton), Qt::LeftButton); });
}

int Taper(int genre, Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier)
{
    return Demander(genre, [=](QWidget& boite) { QTest::keyClick(&boite, touche, avec); });
}

/// Asks a question of three buttons whose answer by default is `defaut`, and presses Enter.
int EntreeAvecDefaut(int defaut)
{
    const MessagesEnFenetre presentateur;
    const GardeModale garde([](QWidget& boite) { QTest::keyClick(boite.focusWidget(), Qt::Key_Return); });
    return AfficherMsg(Message(u"Jeter ?"_s).ParDefaut(defaut), MsgOuiNonAnnuler, QString());
}

/// Sends a key as one that is held sends it again.
void Repeter(QWidget& cible, Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier)
{
    QTest::simulateEvent(&cible, true, touche, avec, QString(), true, -1);
}

QStringList BoutonsVisibles(int genre)
{
    const frmMsg boite(u"texte"_s, genre, QString());
    QStringList titres;
    for (const char* nom : {"btYes", "btNo", "btCancel"}) {
        const QPushButton& bouton = Bouton(const_cast<frmMsg&>(boite), nom);
        if (!bouton.isHidden())
            titres.append(bouton.text().remove(u'&'));
    }
    return titres;
}

/// Pixels in which the text is seen.
int PlaceDuTexte(const frmMsg& boite)
{
    return boite.findChild<QScrollArea*>()->viewport()->width();
}

} // namespace

TEST(FrmMsg, TheKindDecidesWhichButtonsThereAre)
{
    EXPECT_EQ(BoutonsVisibles(MsgOk), QStringList({"Oui"}));
    EXPECT_EQ(BoutonsVisibles(MsgOkAnnuler), QStringList({"Oui", "Annuler"}));
    EXPECT_EQ(BoutonsVisibles(MsgOuiNon), QStringList({"Oui", "Non"}));
    EXPECT_EQ(BoutonsVisibles(MsgOuiNonAnnuler), QStringList({"Oui", "Non", "Annuler"}));
    EXPECT_EQ(BoutonsVisibles(7), QStringList({"Oui", "Non", "Annuler"}));
}

TEST(FrmMsg, OneButtonAnswersOne)
{
    EXPECT_EQ(CliquerSur("btYes", MsgOk), 1);
}

TEST(FrmMsg, TwoButtonsAnswerOneAndTwo)
{
    EXPECT_EQ(CliquerSur("btYes", MsgOkAnnuler), 1);
    EXPECT_EQ(CliquerSur("btCancel", MsgOkAnnuler), 2);
}

TEST(FrmMsg, YesAndNoAnswerSixAndSeven)
{
    EXPECT_EQ(CliquerSur("btYes", MsgOuiNon), 6);
    EXPECT_EQ(CliquerSur("btNo", MsgOuiNon), 7);
}

TEST(FrmMsg, ThreeButtonsAnswerSixSevenAndTwo)
{
    EXPECT_EQ(CliquerSur("btYes", MsgOuiNonAnnuler), 6);
    EXPECT_EQ(CliquerSur("btNo", MsgOuiNonAnnuler), 7);
    EXPECT_EQ(CliquerSur("btCancel", MsgOuiNonAnnuler), 2);
}

TEST(FrmMsg, AnyOtherKindAnswersLikeThreeButtons)
{
    EXPECT_EQ(CliquerSur("btYes", 2), 6);
    EXPECT_EQ(CliquerSur("btNo", 2), 7);
    EXPECT_EQ(CliquerSur("btCancel", 2), 2);
}

TEST(FrmMsg, ClosingTheBoxIsTwoWhateverTheKind)
{
    for (const int genre : {0, 1, 3, 4})
        EXPECT_EQ(Demander(genre, [](QWidget& boite) { boite.close(); }), 2) << genre;
}

TEST(FrmMsg, EscapeIsTheSameAsClosing)
{
    for (const int genre : {0, 1, 3, 4})
        EXPECT_EQ(Taper(genre, Qt::Key_Escape), 2) << genre;
}

TEST(FrmMsg, EnterPressesTheFirstButton)
{
    EXPECT_EQ(Taper(MsgOk, Qt::Key_Return), 1);
    EXPECT_EQ(Taper(MsgOuiNonAnnuler, Qt::Key_Enter), 6);
}

TEST(FrmMsg, AKeyThatIsHeldAnswersNothing)
{
    const QList<std::pair<Qt::Key, Qt::KeyboardModifiers>> touches{
        {Qt::Key_Return, Qt::NoModifier}, {Qt::Key_Enter, Qt::KeypadModifier}, {Qt::Key_Space, Qt::NoModifier},
        {Qt::Key_Escape, Qt::NoModifier}, {Qt::Key_O, Qt::NoModifier},         {Qt::Key_O, Qt::AltModifier},
        {Qt::Key_N, Qt::AltModifier}};
    for (const auto& [touche, avec] : touches) {
        EXPECT_EQ(Demander(MsgOuiNon,
                           [touche, avec](QWidget& boite) {
                               for (QWidget* cible : {boite.focusWidget(), &boite}) {
                                   Repeter(*cible, touche, avec);
                                   QTest::keyRelease(cible, touche, avec);
                                   EXPECT_TRUE(boite.isVisible()) << touche;
                                   for (const char* nom : {"btYes", "btNo"})
                                       EXPECT_FALSE(Bouton(boite, nom).isDown()) << "it clicks in a moment";
                               }
                               QTest::keyClick(boite.focusWidget(), Qt::Key_N, Qt::AltModifier);
                           }),
                  RepNon)
            << touche;
    }
}

TEST(FrmMsg, AKeyThatIsHeldStillMovesTheFocus)
{
    EXPECT_EQ(Demander(MsgOuiNon,
                       [](QWidget& boite) {
                           Repeter(*boite.focusWidget(), Qt::Key_Tab);
                           QTest::keyClick(boite.focusWidget(), Qt::Key_Return);
                       }),
              RepNon);
}

TEST(FrmMsg, AMessageMayNameTheAnswerOfEnter)
{
    EXPECT_EQ(EntreeAvecDefaut(RepNon), RepNon);
    EXPECT_EQ(EntreeAvecDefaut(RepAnnuler), RepAnnuler);
    EXPECT_EQ(EntreeAvecDefaut(RepOui), RepOui);
    EXPECT_EQ(EntreeAvecDefaut(0), RepOui);
    EXPECT_EQ(EntreeAvecDefaut(RepOk), RepOui) << "no button returns it";
}

TEST(FrmMsg, TheButtonOfEnterIsDrawnAsTheOne)
{
    frmMsg boite(u"Jeter ?"_s, MsgOuiNon, QString());
    boite.ChoisirDefaut(RepAnnuler);
    EXPECT_TRUE(Bouton(boite, "btYes").isDefault()) << "hidden ones do not count";
    boite.ChoisirDefaut(RepNon);
    boite.show();
    EXPECT_TRUE(Bouton(boite, "btNo").isDefault());
    EXPECT_FALSE(Bouton(boite, "btYes").isDefault());
}

TEST(FrmMsg, TheLetterOfAButtonIsSeenAndReadOut)
{
    const frmMsg boite(u"Voulez-vous continuer ?"_s, MsgOuiNonAnnuler, QString());
    for (const auto& [nom, caption, touche] :
         {std::tuple{u"btYes"_s, u"&Oui"_s, u"Alt+O"_s}, std::tuple{u"btNo"_s, u"&Non"_s, u"Alt+N"_s},
          std::tuple{u"btCancel"_s, u"&Annuler"_s, u"Alt+A"_s}}) {
        auto* bouton = boite.findChild<QPushButton*>(nom);
        EXPECT_EQ(bouton->text(), caption);
        QAccessibleActionInterface* actions = QAccessible::queryAccessibleInterface(bouton)->actionInterface();
        EXPECT_EQ(actions->keyBindingsForAction(QAccessibleActionInterface::pressAction()), QStringList(touche));
    }
}

TEST(FrmMsg, AltAndTheFirstLetterPressAButton)
{
    EXPECT_EQ(Taper(MsgOuiNonAnnuler, Qt::Key_O, Qt::AltModifier), 6);
    EXPECT_EQ(Taper(MsgOuiNonAnnuler, Qt::Key_N, Qt::AltModifier), 7);
    EXPECT_EQ(Taper(MsgOkAnnuler, Qt::Key_A, Qt::AltModifier), 2);
}

TEST(FrmMsg, TextAndTitleAreTheCallers)
{
    Demander(MsgOk, [](QWidget& boite) {
        EXPECT_EQ(boite.windowTitle(), "Zelvane");
        EXPECT_EQ(boite.findChild<QLabel*>(u"Label1"_s)->text(), "Voulez-vous continuer ?");
        boite.close();
    });
}

TEST(FrmMsg, WithoutATitleItIsTheProgramThatSpeaks)
{
    EXPECT_EQ(frmMsg(u"Oui ou non ?"_s, MsgOuiNon, QString()).windowTitle(), "Zelvane");
    EXPECT_EQ(frmMsg(u"Oui ou non ?"_s, MsgOuiNon, u"Question"_s).windowTitle(), "Question");
}

TEST(FrmMsg, ATextThatLooksLikeMarkupIsShownAsItStands)
{
    const frmMsg boite(u"<b>A</b> & <i>B</i>"_s, MsgOk, QString());
    EXPECT_EQ(boite.findChild<QLabel*>(u"Label1"_s)->textFormat(), Qt::PlainText);
}

TEST(FrmMsg, AShortTextIsSeenWhole)
{
    frmMsg boite(u"Le fichier est deja ouvert :\n/home/moi/musique/discotheque.qrt"_s, MsgOk, QString());
    boite.show();
    EXPECT_EQ(boite.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    EXPECT_LT(boite.height(), 200);
}

TEST(FrmMsg, AWordAloneLeavesRoomForTheTitle)
{
    frmMsg boite(u"Rien"_s, MsgOk, u"Zelvane"_s);
    boite.show();
    EXPECT_GE(boite.width(), 250);
}

TEST(FrmMsg, TheBoxIsAsWideAsItsLongestWord)
{
    QString nom = u"Inventaire"_s;
    while (QFontMetrics(QApplication::font()).horizontalAdvance(nom) < 450)
        nom += u"_complet"_s;
    const QString message = u"Le fichier "_s + nom + u" est deja ouvert."_s;
    frmMsg boite(message, MsgOk, QString());
    boite.show();
    const auto* texte = boite.findChild<QLabel*>(u"Label1"_s);
    EXPECT_GE(PlaceDuTexte(boite), texte->fontMetrics().horizontalAdvance(nom));
    EXPECT_EQ(texte->text(), message);
}

TEST(FrmMsg, AWordThatIsTooLongIsBrokenAndReadOutWhole)
{
    const QString mot = u"mot"_s.repeated(80);
    frmMsg boite(u"Le fichier "_s + mot, MsgOk, QString());
    boite.show();
    const auto* texte = boite.findChild<QLabel*>(u"Label1"_s);
    EXPECT_LE(texte->minimumSizeHint().width(), PlaceDuTexte(boite));
    EXPECT_LT(boite.width(), 700);
    EXPECT_EQ(boite.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(boite.accessibleDescription(), u"Le fichier "_s + mot);
}

TEST(FrmMsg, TheButtonsStandInTheMiddle)
{
    for (const int genre : {MsgOk, MsgOkAnnuler, MsgOuiNonAnnuler, MsgOuiNon}) {
        frmMsg boite(u"Voulez-vous enregistrer les modifications avant de fermer ?"_s, genre, QString());
        boite.show();
        int gauche = boite.width();
        int droite = 0;
        for (const auto* bouton : boite.findChildren<QPushButton*>()) {
            if (!bouton->isVisible())
                continue;
            gauche = qMin(gauche, bouton->x());
            droite = qMax(droite, bouton->x() + bouton->width());
        }
        EXPECT_NEAR(gauche, boite.width() - droite, 1) << genre;
    }
}

TEST(FrmMsg, ALongTextScrollsAndTheButtonsStayOnTheScreen)
{
    frmMsg boite(u"Une ligne de plus\n"_s.repeated(2000), MsgOuiNon, QString());
    boite.show();
    EXPECT_GT(boite.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    EXPECT_LT(boite.height(), boite.screen()->availableSize().height());
    EXPECT_TRUE(Bouton(boite, "btYes").isVisible());
    EXPECT_EQ(boite.focusWidget(), &Bouton(boite, "btYes"));
}

TEST(FrmMsg, TheResultIsTwoFromTheStart)
{
    const frmMsg boite(u"texte"_s, MsgOk, QString());
    EXPECT_EQ(boite.Resultat, 2);
}

TEST(MessagesEnFenetre, ThePresenterBeforeComesBack)
{
    struct Muet : PresentateurMessages
    {
        int Afficher(const Message&, int, const QString&) override { return 42; }
        QString DemanderMotDePasse(const QString&, const QString&) override { return QString(); }
    } muet;
    PresentateurMessages* avant = InstallerPresentateur(&muet);
    {
        const MessagesEnFenetre presentateur;
    }
    EXPECT_EQ(AfficherMsg(u"texte"_s, MsgOk, QString()), 42);
    InstallerPresentateur(avant);
}
