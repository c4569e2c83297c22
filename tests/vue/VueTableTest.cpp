// What only a document's table has.
#include "VueDeTest.h"

#include "support/Glissement.h"
#include "support/Impression.h"

#include <QDialog>
#include <QSignalSpy>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

class VueTableTest : public VueDeTest
{
protected:
    int Largeur(int colonne) const { return vue.columnWidth(colonne - 1); }
    /// Moves the pointer with the left button held.
    void Tirer(const QPoint& point)
    {
        QMouseEvent mouvement(QEvent::MouseMove, point, vue.viewport()->mapToGlobal(point), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(vue.viewport(), &mouvement);
    }
    bool Deposer(Glissement& glissement) { return glissement.Deposer(*vue.viewport(), Milieu(1)); }

    QSignalSpy emportees{&vue, &VueTable::LignesEmportees};
    QSignalSpy deposes{&vue, &VueTable::TexteDepose};
};

/// How well the ink that stands out most can be told from the ground: 1 to 21.
double Contraste(const QImage& image, const QColor& fond)
{
    const auto lineaire = [](double ton) {
        return ton <= 0.04045 ? ton / 12.92 : std::pow((ton + 0.055) / 1.055, 2.4);
    };
    const auto clarte = [&](const QColor& couleur) {
        return 0.2126 * lineaire(couleur.redF()) + 0.7152 * lineaire(couleur.greenF()) +
               0.0722 * lineaire(couleur.blueF()) + 0.05;
    };
    double plus = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double rapport = clarte(image.pixelColor(x, y)) / clarte(fond);
            plus = std::max({plus, rapport, 1 / rapport});
        }
    }
    return plus;
}

} // namespace

// ---- without entries

TEST_F(VueTableTest, AnEmptyTableInvitesInInkThatCanBeReadOnLightAndDarkGround)
{
    vue.Invitation = [] { return u"Ctrl+E ajoute une entrée"_s; };
    Montrer(0);
    for (const auto& [encre, fond] : {std::pair(Qt::black, Qt::white), std::pair(Qt::white, Qt::black)}) {
        QPalette couleurs = vue.palette();
        couleurs.setColor(QPalette::Text, encre);
        couleurs.setColor(QPalette::Base, fond);
        vue.setPalette(couleurs);
        const double contraste = Contraste(vue.viewport()->grab().toImage(), fond);
        EXPECT_GE(contraste, 4.5);
        EXPECT_LT(contraste, 20) << "quieter than an entry";
    }
}

TEST_F(VueTableTest, AnEmptyTableWithoutAnInvitationIsPlain)
{
    Montrer(0);
    EXPECT_EQ(Contraste(vue.viewport()->grab().toImage(), vue.palette().color(QPalette::Base)), 1);
}

TEST_F(VueTableTest, TheInvitationGoesWithTheFirstEntryAndComesBackAfterTheLast)
{
    int demandes = 0;
    vue.Invitation = [&demandes] {
        ++demandes;
        return u"Ctrl+E ajoute une entrée"_s;
    };
    Montrer(1);
    vue.viewport()->grab();
    EXPECT_EQ(demandes, 0);
    table.ListItems.Remove(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return demandes > 0; }));
}

TEST_F(VueTableTest, AClickOnATitleIsToldOnceTitlesAreClickable)
{
    Montrer(3);
    QSignalSpy cliquee(&vue, &VueTable::EnteteCliquee);
    const QPoint second(Largeur(1) + 30, 8);
    QTest::mouseClick(vue.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_EQ(cliquee.count(), 0);
    vue.horizontalHeader()->setSectionsClickable(true);
    QTest::mouseClick(vue.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, second);
    ASSERT_EQ(cliquee.count(), 1);
    EXPECT_EQ(cliquee[0][0].toInt(), 2);
    EXPECT_EQ(table.NombreDeSelectionnees(), 0);
}

TEST_F(VueTableTest, EachOfTwoQuickClicksOnATitleIsTold)
{
    Montrer(3);
    QSignalSpy cliquee(&vue, &VueTable::EnteteCliquee);
    QWidget* titres = vue.horizontalHeader()->viewport();
    const QPoint premier(30, 8);
    QTest::mouseDClick(titres, Qt::LeftButton, Qt::NoModifier, premier);
    EXPECT_EQ(cliquee.count(), 0);
    vue.horizontalHeader()->setSectionsClickable(true);
    QTest::mouseClick(titres, Qt::LeftButton, Qt::NoModifier, premier);
    QTest::mouseDClick(titres, Qt::LeftButton, Qt::NoModifier, premier);
    EXPECT_EQ(cliquee.count(), 2);
}

TEST_F(VueTableTest, KeysOfCommandsAreToldAndGoNoFurther)
{
    Montrer(3);
    QSignalSpy tapee(&vue, &VueTable::ToucheDeCommande);
    using Touche = VueTable::Touche;
    const QList<std::tuple<Qt::Key, Qt::KeyboardModifiers, Touche>> touches = {
        {Qt::Key_Return, Qt::NoModifier, Touche::Editer},
        {Qt::Key_Enter, Qt::KeypadModifier, Touche::Editer},
        {Qt::Key_Return, Qt::ShiftModifier, Touche::Voir},
        {Qt::Key_Delete, Qt::NoModifier, Touche::Supprimer},
        {Qt::Key_Delete, Qt::ControlModifier, Touche::Supprimer},
        {Qt::Key_Delete, Qt::ShiftModifier, Touche::Supprimer},
        {Qt::Key_Plus, Qt::KeypadModifier, Touche::Ajouter},
    };
    for (const auto& [touche, avec, commande] : touches) {
        tapee.clear();
        QKeyEvent appui(QEvent::KeyPress, touche, avec);
        QCoreApplication::sendEvent(&vue, &appui);
        ASSERT_EQ(tapee.count(), 1);
        EXPECT_EQ(tapee[0][0].value<Touche>(), commande);
        EXPECT_TRUE(appui.isAccepted());
    }
}

TEST_F(VueTableTest, InAnEmptyTableEnterIsTakenAndTellsNothing)
{
    Montrer(0);
    QSignalSpy tapee(&vue, &VueTable::ToucheDeCommande);
    QKeyEvent appui(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&vue, &appui);
    EXPECT_TRUE(appui.isAccepted());
    EXPECT_EQ(tapee.count(), 0);
}

TEST_F(VueTableTest, OtherModifiersMakeOtherKeys)
{
    Montrer(3);
    QSignalSpy tapee(&vue, &VueTable::ToucheDeCommande);
    Taper(Qt::Key_Return, Qt::ControlModifier);
    Taper(Qt::Key_Plus);
    Taper(Qt::Key_Plus, Qt::KeypadModifier | Qt::ShiftModifier);
    EXPECT_EQ(tapee.count(), 0);
}

TEST_F(VueTableTest, ACellIsWholeWhenItsTextIsDrawnToItsEnd)
{
    Montrer(1);
    const QString texte = u"Un titre"_s;
    table.ListItems(1).SetText(texte);
    QCoreApplication::processEvents();
    vue.resizeColumnToContents(0);
    EXPECT_TRUE(vue.EstEntiere(1, 1));
    vue.setColumnWidth(0, vue.columnWidth(0) - 3);
    EXPECT_FALSE(vue.EstEntiere(1, 1));
}

// ---- dragging entries out

TEST_F(VueTableTest, SelectedEntriesAreTakenAlongByThePointer)
{
    Montrer(8);
    Cliquer(2);
    Cliquer(4, Qt::ShiftModifier);
    QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(3));
    Tirer(Milieu(3) + QPoint(QApplication::startDragDistance() - 1, 0));
    EXPECT_EQ(emportees.count(), 0) << "an unsteady hand";
    Tirer(Milieu(5));
    Tirer(Milieu(7));
    Tirer(QPoint(50, vue.viewport()->height() + 30));
    EXPECT_EQ(emportees.count(), 1);
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(7));
    EXPECT_EQ(Choisies(), std::vector<int>({2, 3, 4})) << "the selection stays";
    EXPECT_EQ(Focus(), 3);
}

TEST_F(VueTableTest, ASecondDragIsToldToo)
{
    Montrer(8);
    Cliquer(2);
    for (int fois = 1; fois <= 2; ++fois) {
        QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(2));
        Tirer(Milieu(5)); // the drag takes the release
        EXPECT_EQ(emportees.count(), fois);
    }
}

TEST_F(VueTableTest, FromAnEntryThatIsNotSelectedThePointerSelects)
{
    Montrer(8);
    Cliquer(7);
    QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(2));
    for (const int ligne : {3, 4})
        Tirer(Milieu(ligne));
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(4));
    EXPECT_EQ(emportees.count(), 0);
    EXPECT_EQ(Choisies(), std::vector<int>({2, 3, 4}));
}

TEST_F(VueTableTest, WithAKeyHeldThePointerSelects)
{
    Montrer(8);
    Cliquer(2);
    Cliquer(4, Qt::ShiftModifier);
    QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::ControlModifier, Milieu(3));
    Tirer(Milieu(6));
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, Qt::ControlModifier, Milieu(6));
    EXPECT_EQ(emportees.count(), 0);
}

// ---- texts dropped on it

TEST_F(VueTableTest, ATextThatIsDroppedIsToldAsACopy)
{
    Montrer(3);
    Glissement glissement(u"a\0b"_s);
    glissement.actions = Qt::CopyAction | Qt::MoveAction;
    glissement.touches = Qt::ShiftModifier; // asks for a move
    EXPECT_TRUE(Deposer(glissement));
    EXPECT_EQ(glissement.action, Qt::CopyAction);
    ASSERT_EQ(deposes.count(), 1);
    EXPECT_EQ(deposes[0][0].toString(), u"a\0b"_s);
}

TEST_F(VueTableTest, NothingIsDroppedWhereItsOwnEntriesComeFrom)
{
    Montrer(3);
    vue.Tag = "SourceDrag";
    Glissement glissement(u"texte"_s);
    EXPECT_FALSE(Deposer(glissement));
    EXPECT_FALSE(glissement.Lacher(*vue.viewport(), Milieu(1)));
    EXPECT_EQ(deposes.count(), 0);
    vue.Tag.clear();
    EXPECT_TRUE(Deposer(glissement));
}

TEST_F(VueTableTest, FilesAndWhatMayOnlyMoveAreNoTexts)
{
    Montrer(3);
    Glissement fichier(u"/tmp/a.qrt"_s);
    fichier.donnees.setUrls({QUrl::fromLocalFile("/tmp/a.qrt")});
    EXPECT_FALSE(Deposer(fichier));
    Glissement image(u""_s);
    image.donnees.clear();
    image.donnees.setData("image/png", "x");
    EXPECT_FALSE(Deposer(image));
    Glissement mouvement(u"texte"_s);
    mouvement.actions = Qt::MoveAction;
    EXPECT_FALSE(Deposer(mouvement)) << "it would be gone where it comes from";
    Glissement adresse(u"https://exemple.fr"_s);
    adresse.donnees.setUrls({QUrl("https://exemple.fr")});
    EXPECT_TRUE(Deposer(adresse));
    EXPECT_EQ(deposes.count(), 1);
}

TEST_F(VueTableTest, WhileADialogIsOpenNothingCanBeDropped)
{
    Montrer(3);
    Glissement glissement(u"texte"_s);
    ASSERT_TRUE(glissement.Entrer(*vue.viewport(), Milieu(1)));
    QDialog dialogue;
    dialogue.setModal(true);
    dialogue.show();
    EXPECT_FALSE(glissement.Bouger(*vue.viewport(), Milieu(2)));
    EXPECT_FALSE(glissement.Lacher(*vue.viewport(), Milieu(2)));
    dialogue.close();
    EXPECT_TRUE(Deposer(glissement));
    EXPECT_EQ(deposes.count(), 1);
}
