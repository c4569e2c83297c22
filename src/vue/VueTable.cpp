#include "vue/VueTable.h"

#include "kit/TableDeLignes.h"
#include "kit/UnitesEcran.h"
#include "vue/DelegueEntrees.h"
#include "vue/ModeleTable.h"
#include "vue/SaisieRapide.h"
#include "vue/SelectionTable.h"

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWindow>
#include <QtMath>

#include <algorithm>

namespace {

constexpr float PresenceGrille = 0.16F; // of the text's colour in the lines

std::chrono::milliseconds DelaiDeFrappe()
{
    return std::chrono::milliseconds(QApplication::keyboardInputInterval());
}

} // namespace

VueTable::VueTable(QWidget* parent) : QTableView(parent), m_frappe(std::make_unique<SaisieRapide>())
{
    FaireTableDeLignes(*this); // its grid is drawn here: see DessinerGrille
    QHeaderView* titres = horizontalHeader();
    titres->setSectionsClickable(false);
    connect(titres, &QHeaderView::sectionResized, this,
            [this](int section, int, int pixels) { LargeurTiree(section, pixels); });
    EcouterTitres(*this, [this](int colonne) { emit EnteteCliquee(colonne); });
    AppliquerHauteur();
}

VueTable::~VueTable() = default;

void VueTable::Afficher(MyLV& table)
{
    m_modele = new ModeleTable(table, this);
    m_selection = new SelectionTable(*m_modele, this);
    setItemDelegate(new DelegueEntrees(*m_modele, this));
    setModel(m_modele);
    const std::unique_ptr<QItemSelectionModel> deQt(selectionModel());
    setSelectionModel(m_selection);
    DetacherTitres(*this);
    connect(m_modele, &ModeleTable::Rafraichi, this, &VueTable::TableChangee);
    AppliquerLargeurs();
    m_selection->Refleter();
}

int VueTable::LigneSous(const QPoint& point) const
{
    return rowAt(point.y()) + 1;
}

int VueTable::ColonneSous(const QPoint& point) const
{
    return columnAt(point.x()) + 1;
}

bool VueTable::EstEntiere(int ligne, int colonne) const
{
    const QString texte = m_modele->Table().ListItems(ligne).Valeur(colonne);
    return DelegueEntrees::TientEn(texte, colonne, columnWidth(colonne - 1), fontMetrics());
}

void VueTable::RendreVisible(int ligne)
{
    m_modele->Rafraichir();
    executeDelayedItemsLayout();
    if (ligne >= 1 && ligne <= m_modele->rowCount())
        scrollTo(m_modele->index(ligne - 1, 0));
}

int VueTable::PixelsDe(double unites) const
{
    return ::PixelsDe(*this, unites);
}

double VueTable::UnitesDe(int pixels) const
{
    return ::UnitesDe(*this, pixels);
}

// ---- what the table tells

void VueTable::TableChangee(const ChangementsTable& changements)
{
    if (changements.colonnes)
        AppliquerLargeurs();
    if (changements.lignes)
        m_ancre = 0;
    m_selection->Refleter();
    viewport()->update();
    emit TableRafraichie();
}

void VueTable::AppliquerLargeurs()
{
    const QScopedValueRollback garde(m_largeursEnCours, true);
    const ColumnHeaders& colonnes = m_modele->Table().ColumnHeaders;
    MettreLargeurs(*this, qMin(colonnes.Count(), m_modele->columnCount()),
                   [&](int colonne) { return PixelsDe(colonnes(colonne).Width()); });
}

/// The user drags: what the program sets itself, rounded to pixels, is not written back.
void VueTable::LargeurTiree(int section, int pixels)
{
    if (m_largeursEnCours || !m_modele || m_modele->Rafraichit())
        return;
    ColumnHeaders& colonnes = m_modele->Table().ColumnHeaders;
    if (colonnes.Existe(section + 1))
        colonnes(section + 1).SetWidth(static_cast<float>(UnitesDe(pixels)));
}

void VueTable::AppliquerHauteur()
{
    const int hauteur = DelegueEntrees::HauteurLigne(fontMetrics());
    verticalHeader()->setDefaultSectionSize(hauteur);
    // As high as a row, so that the titles do not move when one of them gets a marker.
    horizontalHeader()->setMinimumHeight(hauteur);
}

// ---- selection

VueTable::Geste VueTable::GesteDeSouris(Qt::KeyboardModifiers touches)
{
    if (touches & Qt::ShiftModifier)
        return touches & Qt::ControlModifier ? Geste::Ajouter : Geste::Etendre;
    return touches & Qt::ControlModifier ? Geste::Basculer : Geste::Choisir;
}

VueTable::Geste VueTable::GesteDeClavier(Qt::KeyboardModifiers touches)
{
    const Geste geste = GesteDeSouris(touches);
    return geste == Geste::Basculer ? Geste::Aller : geste;
}

void VueTable::Faire(Geste geste, int ligne)
{
    MyLV& table = m_modele->Table();
    const int derniere = table.ListItems.Count();
    if (geste == Geste::Choisir || geste == Geste::Etendre)
        table.Selectionner(1, derniere, false);
    if (ligne < 1 || ligne > derniere)
        return;
    switch (geste) {
    case Geste::Choisir:
        table.Selectionner(ligne, ligne, true);
        m_ancre = ligne;
        break;
    case Geste::Etendre:
    case Geste::Ajouter:
        if (m_ancre == 0)
            m_ancre = LigneCourante() > 0 ? LigneCourante() : ligne;
        table.Selectionner(qMin(m_ancre, ligne), qMax(m_ancre, ligne), true);
        break;
    case Geste::Basculer:
        table.Selectionner(ligne, ligne, !table.EstSelectionnee(ligne));
        m_ancre = ligne;
        break;
    case Geste::Aller:
        break;
    }
    selectionModel()->setCurrentIndex(m_modele->index(ligne - 1, qMax(currentIndex().column(), 0)),
                                      QItemSelectionModel::NoUpdate);
    // Also when the focus stands there already: an entry that has it by being the first only gets it for good.
    m_selection->EcrireEntreeCourante();
    viewport()->update();
}

void VueTable::selectAll()
{
    MyLV& table = m_modele->Table();
    table.Selectionner(1, table.ListItems.Count(), true);
}

int VueTable::LigneCourante() const
{
    return currentIndex().row() + 1;
}

/// Qt's own handling moves the focus and scrolls; the selection is Faire's.
QItemSelectionModel::SelectionFlags VueTable::selectionCommand(const QModelIndex&, const QEvent*) const
{
    return QItemSelectionModel::NoUpdate;
}

/// Not the base's, which makes an index of every cell that was selected.
void VueTable::selectionChanged(const QItemSelection&, const QItemSelection&)
{
    viewport()->update();
    QAccessibleEvent evenement(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&evenement);
}

// ---- keyboard

int VueTable::DerniereVisible() const
{
    const int ligne = LigneSous(QPoint(0, viewport()->height() - 1));
    return ligne > 0 ? ligne : m_modele->rowCount();
}

int VueTable::LignesParPage() const
{
    return qMax(viewport()->height() / qMax(verticalHeader()->defaultSectionSize(), 1) - 1, 1);
}

/// The entry that a key of movement leads to; 0 for any other key.
int VueTable::CibleDe(const QKeyEvent& event) const
{
    const int derniere = m_modele->rowCount();
    const int courante = LigneCourante();
    if (derniere == 0 || event.modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        return 0;
    const bool fleche = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    if (fleche && event.modifiers() == Qt::NoModifier && courante > 0 && m_modele->Table().PremiereSelection() == 0)
        return courante; // nothing is selected yet: what has the focus comes first
    switch (event.key()) {
    case Qt::Key_Up:
        return std::clamp(courante - 1, 1, derniere);
    case Qt::Key_Down:
        return std::clamp(courante + 1, 1, derniere);
    case Qt::Key_PageUp:
        return std::clamp(courante - LignesParPage(), 1, derniere);
    case Qt::Key_PageDown:
        return std::clamp(courante + LignesParPage(), 1, derniere);
    case Qt::Key_Home:
        return 1;
    case Qt::Key_End:
        return derniere;
    default:
        return 0;
    }
}

/// The keys of commands go to the window, and nowhere else.
bool VueTable::TouchePourLaFenetre(const QKeyEvent& event)
{
    const bool pave = event.modifiers() & Qt::KeypadModifier;
    const Qt::KeyboardModifiers avec = event.modifiers() & ~Qt::KeypadModifier;
    const bool entree = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const auto dire = [this](Touche touche, bool siEntrees) {
        if (!siEntrees || m_modele->Table().ListItems.Count() > 0)
            emit ToucheDeCommande(touche);
        return true;
    };
    if (entree && avec == Qt::NoModifier)
        return dire(Touche::Editer, true);
    if (entree && avec == Qt::ShiftModifier)
        return dire(Touche::Voir, true);
    if (event.key() == Qt::Key_Delete)
        return dire(Touche::Supprimer, false);
    if (event.key() == Qt::Key_Plus && pave && avec == Qt::NoModifier)
        return dire(Touche::Ajouter, false);
    return false;
}

void VueTable::keyReleaseEvent(QKeyEvent* event)
{
    QTableView::keyReleaseEvent(event);
    emit ToucheRelachee();
}

void VueTable::keyPressEvent(QKeyEvent* event)
{
    m_modele->Rafraichir();
    if (TouchePourLaFenetre(*event))
        return;
    if (const int cible = CibleDe(*event); cible > 0) {
        Faire(GesteDeClavier(event->modifiers()), cible);
        return;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Left:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return;
    case Qt::Key_Right:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return;
    case Qt::Key_Space:
        ToucheEspace(*event);
        return;
    default:
        break;
    }
    if (event->matches(QKeySequence::Copy))
        event->ignore(); // the base would copy one cell; copying entries is a command of the window
    else
        QTableView::keyPressEvent(event);
}

/// A blank belongs to a text being typed; otherwise it selects the entry with the focus.
void VueTable::ToucheEspace(const QKeyEvent& event)
{
    if (event.modifiers() == Qt::NoModifier && m_frappe->EnCours(std::chrono::steady_clock::now(), DelaiDeFrappe()))
        keyboardSearch(event.text());
    else
        Faire(GesteDeSouris(event.modifiers()), LigneCourante());
}

void VueTable::keyboardSearch(const QString& saisie)
{
    const int ligne =
        m_frappe->Taper(m_modele->Table(), saisie, LigneCourante(), std::chrono::steady_clock::now(), DelaiDeFrappe());
    if (ligne > 0)
        Faire(Geste::Choisir, ligne);
}

// ---- display

void VueTable::scrollTo(const QModelIndex& index, ScrollHint ou)
{
    const int x = horizontalScrollBar()->value();
    QTableView::scrollTo(index, ou);
    horizontalScrollBar()->setValue(x);
}

void VueTable::paintEvent(QPaintEvent* event)
{
    const QRect zone = event->rect();
    const std::vector<PlageDeColonnes> plages = ColonnesVues(*horizontalHeader(), zone.left(), zone.right());
    for (const PlageDeColonnes& plage : plages) {
        QPaintEvent partie = PartieDe(*event, plage);
        QTableView::paintEvent(&partie);
    }
    if (!m_modele)
        return;
    QPainter painter(viewport());
    if (m_modele->Table().GridLines())
        DessinerGrille(painter, plages);
    if (hasFocus() && currentIndex().isValid())
        DessinerFocus(painter, *this, LigneCourante(), m_modele->Table().EstSelectionnee(LigneCourante()));
}

/// Lines a little off the background in light and dark themes alike. The base takes a colour that dark themes swallow.
/// They are filled: what is drawn with a pen the painter shares out among threads, and waits for them.
void VueTable::DessinerGrille(QPainter& painter, const std::vector<PlageDeColonnes>& plages) const
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
    for (int ligne = premiere; ligne < m_modele->rowCount() && bas < viewport()->height(); ++ligne) {
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

void VueTable::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        AppliquerHauteur();
}

/// On another screen a width is another number of pixels.
void VueTable::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    if (m_modele && window()->windowHandle())
        connect(window()->windowHandle(), &QWindow::screenChanged, this, &VueTable::AppliquerLargeurs,
                Qt::UniqueConnection);
}
