#include "output/frmApercu.h"

#include "output/VuePage.h"
#include "support/Accessibilite.h"
#include "support/Impression.h"

#include <QComboBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

template<class T> T& De(const QWidget& form, const char* nom)
{
    return *form.findChild<T*>(QString::fromLatin1(nom));
}

/// Three pages; on page n a box stands n x 50 mm from the top.
class FrmApercuTest : public testing::Test
{
protected:
    FrmApercuTest() { form.show(); }
    static PagesComposees TroisPages()
    {
        PagesComposees pages;
        pages.pages.resize(3);
        for (size_t i = 0; i < 3; ++i)
            pages.pages[i].boites.push_back({20, static_cast<float>(50 * (i + 1)), 170, 40});
        return pages;
    }
    VuePage& Page() { return *form.findChild<VuePage*>(); }
    int Numero() { return De<QSpinBox>(form, "NumeroDePage").value(); }
    /// The page whose box is seen; 0 for none.
    int PageVue()
    {
        const QImage image = Page().grab().toImage();
        const double echelle = (Page().width() - 2. * VuePage::Bordure) / 210;
        for (int i = 1; i <= 3; ++i) {
            const int x = VuePage::Bordure + qRound(100 * echelle);
            const int y = VuePage::Bordure + qRound(50 * i * echelle);
            for (int dy = -1; dy <= 1; ++dy) {
                if (image.pixelColor(x, y + dy).lightness() < 250)
                    return i;
            }
        }
        return 0;
    }
    void Cliquer(const char* nom) { QTest::mouseClick(&De<QPushButton>(form, nom), Qt::LeftButton); }

    PagesComposees pages = TroisPages();
    frmApercu form{pages, QImage()};
};

} // namespace

TEST_F(FrmApercuTest, BeginsWithTheFirstPageWhole)
{
    EXPECT_EQ(Numero(), 1);
    EXPECT_EQ(PageVue(), 1);
    EXPECT_EQ(De<QSpinBox>(form, "NumeroDePage").suffix(), " / 3");
    EXPECT_FALSE(De<QPushButton>(form, "btPrecedente").isEnabled());
    const auto& zone = De<QScrollArea>(form, "Zone");
    EXPECT_EQ(zone.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(zone.horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(Page().height(), zone.viewport()->height() * 9 / 10) << "as large as there is room";
    EXPECT_NEAR((Page().height() - 2. * VuePage::Bordure) / (Page().width() - 2. * VuePage::Bordure), 297. / 210, 0.01);
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST_F(FrmApercuTest, ButtonsAndTheNumberTurnPages)
{
    Cliquer("btSuivante");
    EXPECT_EQ(PageVue(), 2);
    EXPECT_TRUE(De<QPushButton>(form, "btPrecedente").isEnabled());
    Cliquer("btSuivante");
    EXPECT_EQ(PageVue(), 3);
    EXPECT_FALSE(De<QPushButton>(form, "btSuivante").isEnabled());
    Cliquer("btPrecedente");
    EXPECT_EQ(PageVue(), 2);
    auto& numero = De<QSpinBox>(form, "NumeroDePage");
    numero.selectAll();
    QTest::keyClicks(&numero, "1");
    QTest::keyClick(&numero, Qt::Key_Tab);
    EXPECT_EQ(PageVue(), 1);
}

TEST_F(FrmApercuTest, KeysTurnPages)
{
    auto& zone = De<QScrollArea>(form, "Zone");
    EXPECT_EQ(form.focusWidget(), &zone);
    QTest::keyClick(&zone, Qt::Key_PageDown);
    EXPECT_EQ(Numero(), 2);
    QTest::keyClick(&zone, Qt::Key_End);
    EXPECT_EQ(Numero(), 3);
    QTest::keyClick(&zone, Qt::Key_PageUp);
    EXPECT_EQ(Numero(), 2);
    QTest::keyClick(&zone, Qt::Key_Home);
    EXPECT_EQ(Numero(), 1);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmApercuTest, ALargePageIsScrolledBeforeItIsTurned)
{
    auto& zone = De<QScrollArea>(form, "Zone");
    De<QComboBox>(form, "Taille").setCurrentText(u"200 %"_s);
    ASSERT_GT(zone.verticalScrollBar()->maximum(), 0);
    QTest::keyClick(&zone, Qt::Key_PageDown);
    EXPECT_EQ(Numero(), 1);
    EXPECT_GT(zone.verticalScrollBar()->value(), 0);
    zone.verticalScrollBar()->setValue(zone.verticalScrollBar()->maximum());
    QTest::keyClick(&zone, Qt::Key_PageDown);
    EXPECT_EQ(Numero(), 2);
    EXPECT_EQ(zone.verticalScrollBar()->value(), 0) << "a page begins at its top";
}

TEST_F(FrmApercuTest, SizesAreOfThePapersOwn)
{
    auto& taille = De<QComboBox>(form, "Taille");
    const auto largeur = [this] { return Page().width() - 2 * VuePage::Bordure; };
    taille.setCurrentText(u"100 %"_s);
    EXPECT_NEAR(largeur(), 210 / 25.4 * form.logicalDpiX(), 1);
    taille.setCurrentText(u"50 %"_s);
    EXPECT_NEAR(largeur(), 105 / 25.4 * form.logicalDpiX(), 1);
    taille.setCurrentText(u"Largeur de la page"_s);
    auto& zone = De<QScrollArea>(form, "Zone");
    EXPECT_EQ(zone.horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(Page().width(), zone.viewport()->width() * 9 / 10);
    form.resize(form.width() + 200, form.height());
    QCoreApplication::processEvents();
    EXPECT_GT(Page().width(), zone.viewport()->width() * 9 / 10) << "it follows the window";
}

TEST_F(FrmApercuTest, KeysAndTheWheelWithCtrlChangeTheSize)
{
    auto& taille = De<QComboBox>(form, "Taille");
    auto& zone = De<QScrollArea>(form, "Zone");
    taille.setCurrentText(u"100 %"_s);
    QTest::keyClick(&zone, Qt::Key_Plus);
    EXPECT_EQ(taille.currentText(), "150 %");
    QTest::keyClick(&zone, Qt::Key_Minus);
    QTest::keyClick(&zone, Qt::Key_Minus);
    EXPECT_EQ(taille.currentText(), "75 %");
    const auto tourner = [&zone](int pas) {
        QWheelEvent roue(QPointF(10, 10), zone.viewport()->mapToGlobal(QPointF(10, 10)), {}, QPoint(0, pas),
                         Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(zone.viewport(), &roue);
    };
    tourner(120);
    EXPECT_EQ(taille.currentText(), "100 %");
    tourner(-120);
    EXPECT_EQ(taille.currentText(), "75 %");
    for (int i = 0; i < 10; ++i)
        tourner(120);
    EXPECT_EQ(taille.currentText(), "400 %");
    for (int i = 0; i < 10; ++i)
        tourner(-120);
    EXPECT_EQ(taille.currentText(), "25 %");
}
