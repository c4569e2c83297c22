// What a cell of the table shows is what a painter would draw of its text, cut where it does not fit.
#include "vue/DelegueEntrees.h"
#include "support/TableDeTest.h"
#include "vue/ModeleTable.h"

#include <QImage>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Hauteur = 24;
constexpr int Marge = 3; // between the cell's edge and its text

QImage Toile(int largeur)
{
    QImage toile(largeur, Hauteur, QImage::Format_ARGB32_Premultiplied);
    toile.fill(Qt::white);
    return toile;
}

class DelegueEntreesTest : public testing::TestWithParam<QString>
{
protected:
    QStyleOptionViewItem Option(int largeur) const
    {
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, largeur, Hauteur);
        option.palette.setColor(QPalette::Text, Qt::black);
        option.fontMetrics = QFontMetrics(option.font);
        option.state = QStyle::State_Enabled | QStyle::State_Active;
        return option;
    }
    /// The second column: it has no icon.
    QImage Cellule(const QString& texte, int largeur)
    {
        MettreColonnes(table, {"Titre", "Artiste"});
        AjouterEntrees(table, {{"x", texte}});
        const ModeleTable modele(table);
        const DelegueEntrees delegue(modele);
        QImage toile = Toile(largeur);
        QPainter painter(&toile);
        painter.setFont(Option(largeur).font);
        delegue.paint(&painter, Option(largeur), modele.index(0, 1));
        return toile;
    }
    QImage Attendu(const QString& texte, int largeur) const
    {
        const QStyleOptionViewItem option = Option(largeur);
        const QRect place = option.rect.adjusted(Marge, 0, -Marge, 0);
        QImage toile = Toile(largeur);
        QPainter painter(&toile);
        painter.setFont(option.font);
        painter.setPen(Qt::black);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         option.fontMetrics.elidedText(texte, Qt::ElideRight, place.width()));
        return toile;
    }

    MyLV table;
};

TEST_P(DelegueEntreesTest, ATextIsDrawnWhole)
{
    const QImage cellule = Cellule(GetParam(), 400);
    EXPECT_NE(cellule, Toile(400));
    EXPECT_EQ(cellule, Attendu(GetParam(), 400));
}

TEST_P(DelegueEntreesTest, ATextThatDoesNotFitIsCut)
{
    const QImage cellule = Cellule(GetParam().repeated(3), 40);
    EXPECT_EQ(cellule, Attendu(GetParam().repeated(3), 40));
    EXPECT_NE(cellule, Attendu(GetParam(), 400).copy(0, 0, 40, Hauteur)) << "it ends with an ellipsis";
}

INSTANTIATE_TEST_SUITE_P(Textes, DelegueEntreesTest,
                         testing::Values(u"Kind of Blue"_s, u"Œuvre d'été à Noël"_s, u"fi ffl AVATAR"_s,
                                         u"deux\nlignes"_s, u"avec\ttabulation"_s, u"fin de ligne\u2028suite"_s,
                                         u"& esperluette"_s, u"עברית ועוד מילה"_s, u"Пластинка и книга"_s,
                                         u"blancs derrière    "_s, u"courant\u009Cvariante"_s));

TEST_F(DelegueEntreesTest, AnEmptyTextDrawsNothing)
{
    EXPECT_EQ(Cellule(QString(), 400), Toile(400));
}

} // namespace
