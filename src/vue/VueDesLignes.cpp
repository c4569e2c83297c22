#include "vue/VueDesLignes.h"

#include "kit/UnitesEcran.h"
#include "vue/DelegueDeListe.h"
#include "vue/DelegueEntrees.h"
#include "vue/LignesChoisies.h"
#include "vue/MesuresDeVue.h"
#include "vue/ModeleTable.h"
#include "vue/SaisieRapide.h"
#include "vue/SelectionDesLignes.h"
#include "vue/TableDeLignes.h"
#include "vue/TitresDeLignes.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWindow>
#include <QtMath>

namespace {

constexpr float PresenceGrille = 0.16F; // of the text's colour in the lines
constexpr int AutourDeLaCoche = 2;      // pixels

} // namespace

VueDesLignes::VueDesLignes(QWidget* parent) : QTableView(parent), m_frappe(std::make_unique<SaisieRapide>())
{
    FaireTableDeLignes(*this); // its grid is drawn here: see DessinerGrille
    m_titres = static_cast<TitresDeLignes*>(horizontalHeader());
    BrancherTitres();
    AppliquerHauteur();
}

VueDesLignes::~VueDesLignes() = default;

void VueDesLignes::Afficher(MyLV& table)
{
    m_colonnes = &table.ColumnHeaders;
    m_modele = new ModeleTable(table, this);
    m_choix = std::make_unique<ChoixDansTable>(*m_modele);
    setItemDelegate(new DelegueEntrees(*m_modele, this));
    connect(m_modele, &ModeleTable::Rafraichi, this, &VueDesLignes::TableChangee);
    Installer(*m_modele);
}

void VueDesLignes::Afficher(QAbstractItemModel& modele, ColumnHeaders& colonnes)
{
    m_colonnes = &colonnes;
    auto choix = std::make_unique<ChoixDansListe>();
    m_choixDeListe = choix.get();
    m_choix = std::move(choix);
    setItemDelegate(new DelegueDeListe(*m_choix, this));
    Installer(modele);
    const auto remplie = [this] {
        m_ancre = 0;
        m_choixDeListe->Vider(model()->rowCount());
        AppliquerLargeurs();
    };
    connect(&modele, &QAbstractItemModel::modelReset, this, remplie);
    connect(&modele, &QAbstractItemModel::rowsInserted, this, remplie);
    connect(&modele, &QAbstractItemModel::rowsRemoved, this, remplie);
    connect(m_choixDeListe, &ChoixDansListe::Change, this, [this] {
        m_selection->Refleter();
        viewport()->update();
    });
    m_choixDeListe->Vider(modele.rowCount());
}

void VueDesLignes::Installer(QAbstractItemModel& modele)
{
    AppliquerHauteur(); // with no rows yet: it goes through all of them
    setModel(&modele);
    const std::unique_ptr<QItemSelectionModel> deQt(selectionModel());
    m_selection = new SelectionDesLignes(modele, *m_choix, this);
    setSelectionModel(m_selection);
    DetacherTitres(*this);
    AppliquerLargeurs();
    m_selection->Refleter();
}

int VueDesLignes::LigneSous(const QPoint& point) const
{
    return rowAt(point.y()) + 1;
}

int VueDesLignes::ColonneSous(const QPoint& point) const
{
    return columnAt(point.x()) + 1;
}

void VueDesLignes::RendreVisible(int ligne)
{
    MettreAJour();
    executeDelayedItemsLayout();
    if (ligne >= 1 && ligne <= model()->rowCount())
        scrollTo(model()->index(ligne - 1, 0));
}

int VueDesLignes::PixelsDe(double unites) const
{
    return ::PixelsDe(*this, unites);
}

double VueDesLignes::UnitesDe(int pixels) const
{
    return ::UnitesDe(*this, pixels);
}

// ---- what the table tells

/// Entries that were added or moved a moment ago are there for the user too.
void VueDesLignes::MettreAJour()
{
    if (m_modele)
        m_modele->Rafraichir();
}

void VueDesLignes::TableChangee(const ChangementsTable& changements)
{
    if (changements.colonnes)
        AppliquerLargeurs();
    if (changements.lignes)
        m_ancre = 0;
    m_selection->Refleter();
    viewport()->update();
}

// ---- widths and heights

void VueDesLignes::AppliquerLargeurs()
{
    const QScopedValueRollback garde(m_largeursEnCours, true);
    MettreLargeurs(*this, qMin(m_colonnes->Count(), model()->columnCount()),
                   [this](int colonne) { return PixelsDe((*m_colonnes)(colonne).Width()); });
}

/// The user drags: what the program sets itself, rounded to pixels, is not written back.
void VueDesLignes::LargeurTiree(int section, int pixels)
{
    if (m_largeursEnCours || !m_colonnes || (m_modele && m_modele->Rafraichit()))
        return;
    if (m_colonnes->Existe(section + 1))
        (*m_colonnes)(section + 1).SetWidth(static_cast<float>(UnitesDe(pixels)));
}

int VueDesLignes::AutourDuTexte(int colonne) const
{
    if (m_modele)
        return DelegueEntrees::AutourDuTexte(colonne);
    const QModelIndex premiere = model()->index(0, colonne - 1);
    if (!premiere.isValid())
        return 0;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return itemDelegate()->sizeHint(option, premiere).width() -
           fontMetrics().horizontalAdvance(DelegueDeListe::PartieVisible(premiere.data().toString()));
}

void VueDesLignes::AjusterColonnes(const QWidget& fenetre)
{
    ::AjusterColonnes(*m_colonnes, MesuresDeVue(*this, fenetre));
    AppliquerLargeurs();
}

void VueDesLignes::RedimensionnerColonnes()
{
    ::RedimensionnerColonnes(*m_colonnes, m_choix->Count(), UnitesDe(width()));
    AppliquerLargeurs();
}

void VueDesLignes::AppliquerHauteur()
{
    const int coche = m_modele ? 0 : style()->pixelMetric(QStyle::PM_IndicatorHeight) + AutourDeLaCoche;
    const int hauteur = qMax(DelegueEntrees::HauteurLigne(fontMetrics()), coche);
    verticalHeader()->setDefaultSectionSize(hauteur);
    // As high as a row, so that the titles do not move when one of them gets a marker.
    horizontalHeader()->setMinimumHeight(hauteur);
}

void VueDesLignes::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        AppliquerHauteur();
}

/// On another screen a width is another number of pixels.
void VueDesLignes::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    if (m_colonnes && window()->windowHandle())
        connect(window()->windowHandle(), &QWindow::screenChanged, this, &VueDesLignes::AppliquerLargeurs,
                Qt::UniqueConnection);
}

/// Printing keeps the proportions that the columns have here.
void VueDesLignes::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    if (m_modele)
        m_modele->Table().SetWidth(UnitesDe(width()));
}

// ---- display

void VueDesLignes::scrollTo(const QModelIndex& index, ScrollHint ou)
{
    const int x = horizontalScrollBar()->value();
    QTableView::scrollTo(index, ou);
    horizontalScrollBar()->setValue(x);
}

void VueDesLignes::paintEvent(QPaintEvent* event)
{
    const QRect zone = event->rect();
    const std::vector<PlageDeColonnes> plages = ColonnesVues(*horizontalHeader(), zone.left(), zone.right());
    for (const PlageDeColonnes& plage : plages) {
        QPaintEvent partie = PartieDe(*event, plage);
        QTableView::paintEvent(&partie);
    }
    if (!m_choix)
        return;
    QPainter painter(viewport());
    if (m_modele && m_modele->Table().GridLines())
        DessinerGrille(painter, plages);
    if (hasFocus() && currentIndex().isValid())
        DessinerFocus(painter, *this, LigneCourante(), m_choix->EstChoisie(LigneCourante()));
}

/// Lines a little off the background in light and dark themes alike. The base takes a colour that dark themes swallow.
/// They are filled: what is drawn with a pen the painter shares out among threads, and waits for them.
void VueDesLignes::DessinerGrille(QPainter& painter, const std::vector<PlageDeColonnes>& plages) const
{
    const int premiere = rowAt(0);
    if (premiere < 0)
        return;
    QColor trait = palette().color(QPalette::Text);
    trait.setAlphaF(PresenceGrille);

    // All lines equally thick, also where a unit is one point and a half of the screen.
    const double points = devicePixelRatioF();
    const double epaisseur = qFloor(points) / points;
    const auto surUnPoint = [points](int place) { return qRound(place * points) / points; };
    const int hauteur = verticalHeader()->defaultSectionSize();
    const int droite = qMin(columnViewportPosition(0) + horizontalHeader()->length(), viewport()->width()) - 1;
    int bas = rowViewportPosition(premiere) - 1;
    for (int ligne = premiere; ligne < model()->rowCount() && bas < viewport()->height(); ++ligne) {
        bas += hauteur;
        painter.fillRect(QRectF(0, surUnPoint(bas), droite + 1, epaisseur), trait);
    }
    for (const PlageDeColonnes& plage : plages) {
        for (int colonne = plage.premiere; colonne <= plage.derniere; ++colonne) {
            const int bord = columnViewportPosition(colonne - 1) + columnWidth(colonne - 1) - 1;
            painter.fillRect(QRectF(surUnPoint(bord), 0, epaisseur, bas + 1), trait);
        }
    }
}

/// The base draws one cell anew, and the focus is the row's.
void VueDesLignes::currentChanged(const QModelIndex& courante, const QModelIndex& quittee)
{
    QTableView::currentChanged(courante, quittee);
    viewport()->update();
}

/// Not the base's, which makes an index of every cell that was selected.
void VueDesLignes::selectionChanged(const QItemSelection&, const QItemSelection&)
{
    viewport()->update();
    QAccessibleEvent evenement(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&evenement);
}
