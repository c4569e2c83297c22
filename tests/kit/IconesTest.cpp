#include "kit/Icones.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QImage Dessin(const QString& nom, int cote, QIcon::Mode mode = QIcon::Normal)
{
    return Icone(nom).pixmap(QSize(cote, cote), 1.0, mode).toImage();
}

bool ADesPoints(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 40)
                return true;
        }
    }
    return false;
}

/// A dark theme for as long as it lives.
class ThemeSombre
{
public:
    ThemeSombre()
    {
        QPalette sombre = m_avant;
        sombre.setColor(QPalette::Text, Qt::white);
        sombre.setColor(QPalette::Base, Qt::black);
        QApplication::setPalette(sombre);
    }
    ~ThemeSombre() { QApplication::setPalette(m_avant); }
    ThemeSombre(const ThemeSombre&) = delete;
    ThemeSombre& operator=(const ThemeSombre&) = delete;

private:
    QPalette m_avant = QApplication::palette();
};

/// The keys that toolbars, menus and dialogs ask for.
const QStringList Noms =
    u"noico ico icoerror up down information question zelvane "
    u"addentree editentree delentree addcat editcat open save print prete rendu rechercher grille image showtexte "
    u"apropos help aide first left right last annuler ok del copy paste refresh close closeall quit saveas saveall "
    u"import export parcourir inverser "
    u"options langue web mail stats compare voir largeur cascade mosaiqueh mosaiquev reduire restaurer"_s.split(u' ');

} // namespace

TEST(Icones, EveryIconIsDrawnInEverySize)
{
    for (const QString& nom : Noms) {
        for (const int cote : {16, 24, 48}) {
            const QImage dessin = Dessin(nom, cote);
            EXPECT_EQ(dessin.size(), QSize(cote, cote)) << nom.toStdString();
            EXPECT_TRUE(ADesPoints(dessin)) << nom.toStdString() << " at " << cote;
        }
    }
}

TEST(Icones, AnUnknownNameIsNoIcon)
{
    EXPECT_TRUE(Icone(u"nulle-part"_s).isNull());
    EXPECT_TRUE(Icone(QString()).isNull());
}

TEST(Icones, AFineScreenGetsMorePoints)
{
    const QPixmap fin = Icone(u"ico"_s).pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(fin.size(), QSize(32, 32));
    EXPECT_EQ(fin.devicePixelRatio(), 2.0);
}

TEST(Icones, PaintedOnAFineScreenItHasAllItsPoints)
{
    QImage ecran(32, 32, QImage::Format_ARGB32_Premultiplied);
    ecran.fill(Qt::transparent);
    ecran.setDevicePixelRatio(2.0);
    QPainter painter(&ecran);
    Icone(u"ico"_s).paint(&painter, QRect(0, 0, 16, 16));
    painter.end();
    ecran.setDevicePixelRatio(1.0);
    EXPECT_EQ(ecran, Dessin(u"ico"_s, 32).convertToFormat(ecran.format()));
}

TEST(Icones, PaintedEnlargedItIsDrawnAnew)
{
    // Paper has many more points than the screen that the rectangle was meant for.
    QImage papier(64, 64, QImage::Format_ARGB32_Premultiplied);
    papier.fill(Qt::transparent);
    QPainter painter(&papier);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(4, 4);
    Icone(u"ico"_s).paint(&painter, QRect(0, 0, 16, 16));
    painter.end();
    EXPECT_EQ(papier, Dessin(u"ico"_s, 64).convertToFormat(papier.format()));
}

TEST(Icones, TheInkIsTheTextsAlsoWhenTheThemeChanges)
{
    const QIcon icone = Icone(u"down"_s);
    const QColor clair = icone.pixmap(48).toImage().pixelColor(24, 20);
    const ThemeSombre sombre;
    const QColor fonce = icone.pixmap(48).toImage().pixelColor(24, 20);
    EXPECT_LT(clair.lightness(), 100);
    EXPECT_GT(fonce.lightness(), 200);
}

TEST(Icones, ASelectedOrDisabledIconLooksDifferent)
{
    EXPECT_NE(Dessin(u"noico"_s, 16, QIcon::Selected), Dessin(u"noico"_s, 16));
    EXPECT_NE(Dessin(u"ico"_s, 16, QIcon::Disabled), Dessin(u"ico"_s, 16));
}
