#include "vue/MesuresDeVue.h"

#include "vue/VueDeTest.h"

using namespace Qt::StringLiterals;

namespace {

class MesuresDeVueTest : public VueDeTest
{
protected:
    /// Pixels that the first column needs by the measures.
    int Mesure() const { return vue.PixelsDe(MesuresDeVue(vue, vue).LargeursDuContenu().front()); }
    void Elargir()
    {
        table.ColumnHeaders(1).SetWidth(MesuresDeVue(vue, vue).LargeursDuContenu().front());
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(MesuresDeVueTest, TheWidestCellIsFoundWhereverItStands)
{
    Montrer(300);
    const int avant = Mesure();
    table.ListItems(150).SetText(u"Un titre bien plus long que tous les autres"_s);
    EXPECT_GT(Mesure(), avant);
    Elargir();
    for (const int ligne : {1, 150, 300})
        EXPECT_TRUE(vue.EstEntiere(ligne, 1)) << ligne;
    vue.setColumnWidth(0, vue.columnWidth(0) - 3);
    EXPECT_FALSE(vue.EstEntiere(150, 1)) << "no wider than needed";
}

TEST_F(MesuresDeVueTest, FewWideLettersCountMoreThanManyNarrowOnes)
{
    Montrer(2);
    table.ListItems(1).SetText(QString(20, u'i'));
    table.ListItems(2).SetText(QString(15, u'W'));
    Elargir();
    EXPECT_TRUE(vue.EstEntiere(2, 1));
}

TEST_F(MesuresDeVueTest, LettersOfOtherAlphabetsAreMeasuredToo)
{
    Montrer(2);
    table.ListItems(1).SetText(u"Cinema"_s);
    table.ListItems(2).SetText(u"Кинотеатр Россия"_s);
    Elargir();
    EXPECT_TRUE(vue.EstEntiere(2, 1));
}

TEST_F(MesuresDeVueTest, ATitleWiderThanItsCellsCounts)
{
    Montrer(1);
    table.ListItems(1).SetText(u"x"_s);
    table.ColumnHeaders(1).SetText(u"Un titre de colonne plus long que ses cellules"_s);
    EXPECT_GE(Mesure(), vue.fontMetrics().horizontalAdvance(table.ColumnHeaders(1).Text()));
}

TEST_F(MesuresDeVueTest, TitlesAreMeasuredInTheFontOfTheWindow)
{
    Montrer(1);
    QWidget fenetre;
    QFont grande = vue.font();
    grande.setPointSizeF(grande.pointSizeF() * 3);
    fenetre.setFont(grande);
    const MesuresDeVue mesures(vue, fenetre);
    const int pixels = fenetre.fontMetrics().horizontalAdvance(u"Titre"_s);
    EXPECT_NEAR(vue.PixelsDe(mesures.LargeurDuTitre(u"Titre"_s)), pixels, 1);
}
