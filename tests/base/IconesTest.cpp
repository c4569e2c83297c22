#include "base/Icones.h"

#include <QApplication>
#include <QImage>
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
    u"import export "
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
