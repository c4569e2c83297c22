// The list view on rows of a dialog's own.
#include "catalogue/table/MyLV.h"
#include "support/Impression.h"
#include "vue/SelectionDesLignes.h"
#include "vue/VueDesLignes.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include <gtest/gtest.h>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

using Plages = std::vector<std::pair<int, int>>;

/// A million rows that are nowhere.
class ModeleImmense : public QAbstractTableModel
{
public:
    static constexpr int Lignes = 1'000'000;
    int rowCount(const QModelIndex&) const override { return Lignes; }
    int columnCount(const QModelIndex&) const override { return 2; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        ++demandes;
        return role == Qt::DisplayRole ? QVariant(u"Ligne %1"_s.arg(index.row() + 1)) : QVariant();
    }
    mutable int demandes = 0;
};

class VueDesLignesListe : public testing::Test
{
protected:
    void Montrer(const QStringList& textes)
    {
        Remplir(textes);
        MontrerModele(modele);
    }
    void MontrerModele(QAbstractItemModel& lignes)
    {
        colonnes.ColumnHeaders.Add(0, u"Départ"_s).SetWidth(2880);
        colonnes.ColumnHeaders.Add(0, u"Arrivée"_s).SetWidth(1440);
        vue.Afficher(lignes, colonnes.ColumnHeaders);
        vue.resize(600, 400);
        vue.show();
        vue.activateWindow();
        vue.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&vue));
    }
    void Remplir(const QStringList& textes)
    {
        modele.setColumnCount(2);
        for (const QString& texte : textes)
            modele.appendRow({new QStandardItem(texte), new QStandardItem(u"x"_s)});
    }
    void RendreCochables()
    {
        for (int i = 0; i < modele.rowCount(); ++i) {
            modele.item(i)->setCheckable(true);
            modele.item(i)->setCheckState(Qt::Checked);
        }
    }
    QString Coches() const
    {
        QString coches;
        for (int i = 0; i < modele.rowCount(); ++i)
            coches += modele.item(i)->checkState() == Qt::Checked ? u'x' : u'-';
        return coches;
    }
    void Cliquer(int ligne, Qt::KeyboardModifiers avec = Qt::NoModifier)
    {
        const QPoint point = vue.visualRect(vue.model()->index(ligne - 1, 1)).center();
        QTest::mouseClick(vue.viewport(), Qt::LeftButton, avec, point);
    }
    void Taper(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier) { QTest::keyClick(&vue, touche, avec); }
    QImage Image() { return vue.viewport()->grab().toImage(); }

    MyLV colonnes;
    QStandardItemModel modele;
    VueDesLignes vue;
};

} // namespace

TEST_F(VueDesLignesListe, ClicksSelectRunsAndSingleRows)
{
    Montrer({"a", "b", "c", "d", "e", "f"});
    Cliquer(2);
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{2, 2}}));
    Cliquer(4, Qt::ShiftModifier);
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{2, 4}}));
    Cliquer(6, Qt::ControlModifier);
    Cliquer(3, Qt::ControlModifier);
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{2, 2}, {4, 4}, {6, 6}}));
    Taper(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{1, 6}}));
}

TEST_F(VueDesLignesListe, LettersLeadToARow)
{
    Montrer({"Nom", "Prénom", "Adresse", "Pays"});
    Cliquer(1);
    QTest::keyClicks(&vue, u"pa"_s);
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{4, 4}}));
    EXPECT_EQ(vue.currentIndex().row(), 3);
}

TEST_F(VueDesLignesListe, TheSpaceBarChecksWhereThereIsSomethingToCheck)
{
    Montrer({"a", "b", "c"});
    Cliquer(2);
    Taper(Qt::Key_Down, Qt::ControlModifier);
    Taper(Qt::Key_Space);
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{3, 3}})) << "nothing to check";
    RendreCochables();
    Taper(Qt::Key_Up, Qt::ControlModifier);
    Taper(Qt::Key_Space);
    EXPECT_EQ(Coches(), "x-x");
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{3, 3}}));
    Taper(Qt::Key_Space);
    EXPECT_EQ(Coches(), "xxx");
}

TEST_F(VueDesLignesListe, AClickOnAMarkChecksTheRow)
{
    Remplir({"a", "b", "c"});
    RendreCochables();
    MontrerModele(modele);
    const QRect place = vue.visualRect(modele.index(1, 0));
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(place.left() + 10, place.center().y()));
    EXPECT_EQ(Coches(), "x-x");
}

TEST_F(VueDesLignesListe, SelectionAndFocusGoWithTheirRowsHoweverManyRunsThereAre)
{
    ModeleImmense immense;
    MontrerModele(immense);
    Cliquer(2);
    for (int ligne = 4; ligne <= 20; ligne += 2)
        vue.selectionModel()->select(immense.index(ligne - 1, 0), QItemSelectionModel::Select);
    for (int ligne = 102; ligne <= 20'000; ligne += 2)
        vue.selectionModel()->select(immense.index(ligne - 1, 0), QItemSelectionModel::Select);
    std::vector<int> avant(ModeleImmense::Lignes);
    std::iota(avant.rbegin(), avant.rend(), 1);
    vue.SuivreOrdre(avant);
    const Plages plages = vue.PlagesChoisies();
    ASSERT_EQ(plages.size(), 10U + 9950U);
    EXPECT_EQ(plages.back(), std::pair(ModeleImmense::Lignes - 1, ModeleImmense::Lignes - 1));
    EXPECT_EQ(vue.currentIndex().row() + 1, ModeleImmense::Lignes - 1);
}

TEST_F(VueDesLignesListe, ASelectionInManyPiecesIsSeenWhole)
{
    ModeleImmense immense;
    MontrerModele(immense);
    for (int ligne = 1; ligne <= 2000; ligne += 2)
        vue.selectionModel()->select(immense.index(ligne - 1, 0), QItemSelectionModel::Select);
    vue.RendreVisible(2000);
    QCoreApplication::processEvents();
    EXPECT_EQ(vue.selectionModel()->selection().size(), SelectionDesLignes::PlagesAuPlus);
    const QImage image = Image();
    const auto couleur = [&](int ligne) {
        const QRect cellule = vue.visualRect(immense.index(ligne - 1, 1));
        return image.pixel(cellule.right() - 3, cellule.center().y());
    };
    EXPECT_EQ(couleur(1999), vue.palette().color(QPalette::Highlight).rgb());
    EXPECT_EQ(couleur(1998), vue.palette().color(QPalette::Base).rgb());
}

TEST_F(VueDesLignesListe, OnlyRowsOnTheScreenAreAskedFor)
{
    ModeleImmense immense;
    MontrerModele(immense);
    vue.RendreVisible(500'000);
    Image();
    Taper(Qt::Key_End);
    Image();
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{ModeleImmense::Lignes, ModeleImmense::Lignes}}));
    EXPECT_LT(immense.demandes, 20'000);
}

TEST_F(VueDesLignesListe, AFilledListHasNoSelection)
{
    Montrer({"a", "b", "c"});
    Cliquer(2);
    modele.clear();
    Remplir({"d", "e", "f", "g"});
    EXPECT_EQ(vue.PlagesChoisies(), Plages());
    Cliquer(4);
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{4, 4}})) << "the rows that it has now";
}

TEST_F(VueDesLignesListe, WidthsAreThoseOfTheColumnsAndGoBackThere)
{
    Montrer({"a", "b"});
    EXPECT_EQ(vue.columnWidth(0), 2 * vue.logicalDpiX());
    QWidget* titres = vue.horizontalHeader()->viewport();
    const QPoint bord(vue.columnWidth(0) - 1, titres->height() / 2);
    QTest::mousePress(titres, Qt::LeftButton, Qt::NoModifier, bord);
    QTest::mouseMove(titres, bord + QPoint(20, 0));
    QTest::mouseMove(titres, bord + QPoint(48, 0));
    QTest::mouseRelease(titres, Qt::LeftButton, Qt::NoModifier, bord + QPoint(48, 0));
    EXPECT_FLOAT_EQ(colonnes.ColumnHeaders(1).Width(), static_cast<float>(2880 + vue.UnitesDe(48)));
}

TEST_F(VueDesLignesListe, AClickOnATitleIsTold)
{
    Montrer({"a"});
    QSignalSpy cliquee(&vue, &VueDesLignes::EnteteCliquee);
    QTest::mouseClick(vue.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(vue.columnWidth(0) + 20, 8));
    ASSERT_EQ(cliquee.count(), 1);
    EXPECT_EQ(cliquee[0][0].toInt(), 2);
}

TEST_F(VueDesLignesListe, CtrlRFitsCheckBoxesToo)
{
    Remplir({QString(40, u'm')});
    MontrerModele(modele);
    Taper(Qt::Key_R, Qt::ControlModifier);
    const int sansCoche = vue.columnWidth(0);
    RendreCochables();
    Taper(Qt::Key_R, Qt::ControlModifier);
    EXPECT_GE(vue.columnWidth(0), sansCoche + vue.style()->pixelMetric(QStyle::PM_IndicatorWidth));
}

TEST_F(VueDesLignesListe, TheFocusIsALineAroundTheWholeRowAndNoHighlight)
{
    Montrer({"a", "b", "c"});
    Cliquer(1);
    const QRect rangee(0, vue.rowViewportPosition(2), vue.horizontalHeader()->length(), vue.rowHeight(2));
    const QRect dedans = rangee.adjusted(1, 1, -1, -1);
    const QImage avant = Image();
    Taper(Qt::Key_Down, Qt::ControlModifier);
    Taper(Qt::Key_Down, Qt::ControlModifier);
    ASSERT_EQ(vue.currentIndex().row(), 2);
    const QImage apres = Image();
    EXPECT_EQ(apres.copy(dedans), avant.copy(dedans));
    const QRgb trait = vue.palette().color(QPalette::Highlight).rgb();
    for (const QPoint& point :
         {rangee.topLeft(), rangee.topRight(), rangee.bottomLeft(), QPoint(rangee.center().x(), rangee.top())})
        EXPECT_EQ(apres.pixel(point), trait) << point.x() << ' ' << point.y();
}

TEST_F(VueDesLignesListe, TheFocusIsDrawnAnewWhereItWasAndWhereItIs)
{
    Montrer({"a", "b", "c"});
    Cliquer(1);
    QCoreApplication::processEvents();
    struct Peint : QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Paint)
                zone += static_cast<QPaintEvent*>(event)->region();
            return false;
        }
        QRegion zone;
    } peint;
    vue.viewport()->installEventFilter(&peint);
    vue.setCurrentIndex(modele.index(1, 0));
    QCoreApplication::processEvents();
    for (const int ligne : {0, 1})
        for (int colonne = 0; colonne < 2; ++colonne)
            EXPECT_TRUE(peint.zone.contains(vue.visualRect(modele.index(ligne, colonne)) & vue.viewport()->rect()));
}

TEST_F(VueDesLignesListe, AnAssistiveTechnologySelectsRows)
{
    Montrer({"a", "b", "c"});
    QAccessibleInterface* acces = QAccessible::queryAccessibleInterface(&vue);
    ASSERT_TRUE(acces && acces->tableInterface());
    EXPECT_TRUE(acces->tableInterface()->selectRow(2));
    EXPECT_EQ(vue.PlagesChoisies(), Plages({{3, 3}}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(acces->tableInterface()->cellAt(2, 0)->state().selected);
    EXPECT_FALSE(acces->tableInterface()->cellAt(1, 0)->state().selected);
}
