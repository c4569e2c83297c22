// Selection and keyboard in a list of rows.
#include "vue/LignesChoisies.h"
#include "vue/ModeleTable.h"
#include "vue/SaisieRapide.h"
#include "vue/SelectionDesLignes.h"
#include "vue/TableDeLignes.h"
#include "vue/TitresDeLignes.h"
#include "vue/VueDesLignes.h"

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace {

std::chrono::milliseconds DelaiDeFrappe()
{
    return std::chrono::milliseconds(QApplication::keyboardInputInterval());
}

} // namespace

// ---- selection

VueDesLignes::Geste VueDesLignes::GesteDeSouris(Qt::KeyboardModifiers touches)
{
    if (touches & Qt::ShiftModifier)
        return touches & Qt::ControlModifier ? Geste::Ajouter : Geste::Etendre;
    return touches & Qt::ControlModifier ? Geste::Basculer : Geste::Choisir;
}

VueDesLignes::Geste VueDesLignes::GesteDeClavier(Qt::KeyboardModifiers touches)
{
    const Geste geste = GesteDeSouris(touches);
    return geste == Geste::Basculer ? Geste::Aller : geste;
}

void VueDesLignes::Faire(Geste geste, int ligne)
{
    const int derniere = m_choix->Count();
    if (geste == Geste::Choisir || geste == Geste::Etendre)
        m_choix->Choisir(1, derniere, false);
    if (ligne < 1 || ligne > derniere)
        return;
    switch (geste) {
    case Geste::Choisir:
        m_choix->Choisir(ligne, ligne, true);
        m_ancre = ligne;
        break;
    case Geste::Etendre:
    case Geste::Ajouter:
        if (m_ancre == 0)
            m_ancre = LigneCourante() > 0 ? LigneCourante() : ligne;
        m_choix->Choisir(qMin(m_ancre, ligne), qMax(m_ancre, ligne), true);
        break;
    case Geste::Basculer:
        m_choix->Choisir(ligne, ligne, !m_choix->EstChoisie(ligne));
        m_ancre = ligne;
        break;
    case Geste::Aller:
        break;
    }
    selectionModel()->setCurrentIndex(model()->index(ligne - 1, qMax(currentIndex().column(), 0)),
                                      QItemSelectionModel::NoUpdate);
    // Also when the focus stands there already: an entry that has it by being the first only gets it for good.
    m_selection->EcrireCourante();
    viewport()->update();
}

void VueDesLignes::selectAll()
{
    m_choix->Choisir(1, m_choix->Count(), true);
}

int VueDesLignes::LigneCourante() const
{
    return currentIndex().row() + 1;
}

std::vector<std::pair<int, int>> VueDesLignes::PlagesChoisies() const
{
    std::vector<std::pair<int, int>> plages;
    const int premiere = m_choix->PremiereChoisie();
    for (int ligne = premiere; premiere > 0 && ligne <= m_choix->Count(); ++ligne) {
        if (!m_choix->EstChoisie(ligne))
            continue;
        const int fin = m_choix->FinDePlage(ligne);
        plages.emplace_back(ligne, fin);
        ligne = fin;
    }
    return plages;
}

void VueDesLignes::SuivreOrdre(const std::vector<int>& avant)
{
    m_ancre = 0;
    m_choixDeListe->SuivreOrdre(avant);
    m_selection->Refleter();
}

/// Qt's own handling moves the focus and scrolls; the selection is Faire's.
QItemSelectionModel::SelectionFlags VueDesLignes::selectionCommand(const QModelIndex&, const QEvent*) const
{
    return QItemSelectionModel::NoUpdate;
}

// ---- keyboard

int VueDesLignes::DerniereVisible() const
{
    const int ligne = LigneSous(QPoint(0, viewport()->height() - 1));
    return ligne > 0 ? ligne : model()->rowCount();
}

int VueDesLignes::LignesParPage() const
{
    return qMax(viewport()->height() / qMax(verticalHeader()->defaultSectionSize(), 1) - 1, 1);
}

/// The row that a key of movement leads to; 0 for any other key.
int VueDesLignes::CibleDe(const QKeyEvent& event) const
{
    const int derniere = model()->rowCount();
    const int courante = LigneCourante();
    if (derniere == 0 || event.modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        return 0;
    const bool fleche = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    if (fleche && event.modifiers() == Qt::NoModifier && courante > 0 && m_choix->PremiereChoisie() == 0)
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

void VueDesLignes::keyPressEvent(QKeyEvent* event)
{
    MettreAJour();
    if (const int cible = CibleDe(*event); cible > 0) {
        Faire(GesteDeClavier(event->modifiers()), cible);
        return;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return;
    }
    if (ToucheDeColonnes(*event))
        return;
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
        event->ignore(); // the base would copy one cell; copying rows is a command of the window
    else
        QTableView::keyPressEvent(event);
}

bool VueDesLignes::ToucheDeColonnes(const QKeyEvent& event)
{
    if (event.modifiers() != Qt::ControlModifier || (event.key() != Qt::Key_R && event.key() != Qt::Key_D))
        return false;
    if (event.key() == Qt::Key_R)
        AjusterColonnes(*window());
    else
        RedimensionnerColonnes();
    return true;
}

/// A blank belongs to a text being typed; otherwise it checks the row with the focus, or selects it where there is
/// nothing to check.
void VueDesLignes::ToucheEspace(const QKeyEvent& event)
{
    const bool seule = event.modifiers() == Qt::NoModifier;
    if (seule && m_frappe->EnCours(std::chrono::steady_clock::now(), DelaiDeFrappe()))
        keyboardSearch(event.text());
    else if (!seule || !BasculerCoche())
        Faire(GesteDeSouris(event.modifiers()), LigneCourante());
}

/// False where there is nothing to check.
bool VueDesLignes::BasculerCoche()
{
    const QModelIndex coche = currentIndex().siblingAtColumn(0);
    if (!coche.isValid() || !(coche.flags() & Qt::ItemIsUserCheckable))
        return false;
    const bool cochee = coche.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model()->setData(coche, cochee ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

int VueDesLignes::ChercherDebut(const QString& debut, int apres) const
{
    return m_modele ? ::ChercherDebut(m_modele->Table(), debut, apres) : ::ChercherDebut(*model(), debut, apres);
}

void VueDesLignes::keyboardSearch(const QString& saisie)
{
    const auto chercher = [this](const QString& debut, int apres) { return ChercherDebut(debut, apres); };
    const int ligne =
        m_frappe->Taper(chercher, saisie, LigneCourante(), std::chrono::steady_clock::now(), DelaiDeFrappe());
    if (ligne > 0)
        Faire(Geste::Choisir, ligne);
}

// ---- titles

void VueDesLignes::BrancherTitres()
{
    m_titres->setSectionsClickable(true);
    connect(m_titres, &QHeaderView::sectionResized, this,
            [this](int section, int, int pixels) { LargeurTiree(section, pixels); });
    EcouterTitres(*this, [this](int colonne) { emit EnteteCliquee(colonne); });
    connect(m_titres, &TitresDeLignes::TitreAtteint, this, &VueDesLignes::AllerAuTitre);
    connect(m_titres, &TitresDeLignes::TitreChoisi, this, [this](int colonne) {
        emit EnteteCliquee(colonne);
        MettreAJour();
        DireTitre(colonne);
    });
    connect(m_titres, &TitresDeLignes::Quitte, this, [this](bool versLaListe) {
        setFocus(versLaListe ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        if (!versLaListe)
            QTableView::focusNextPrevChild(false);
    });
}

/// The titles stand above the rows, so they come before them.
bool VueDesLignes::focusNextPrevChild(bool suivant)
{
    return (!suivant && m_titres->PrendreLesTouches()) || QTableView::focusNextPrevChild(suivant);
}

void VueDesLignes::AllerAuTitre(int colonne)
{
    QScrollBar& barre = *horizontalScrollBar();
    const int gauche = columnViewportPosition(colonne - 1);
    const int depasse = gauche + columnWidth(colonne - 1) - viewport()->width();
    // The beginning of a title that is wider than the view counts more than its end.
    barre.setValue(barre.value() + (gauche < 0 ? gauche : qBound(0, depasse, gauche)));
    DireTitre(colonne);
}

/// To assistive technologies the titles are cells of the table.
void VueDesLignes::DireTitre(int colonne)
{
    QAccessibleEvent evenement(this, QAccessible::Focus);
    evenement.setChild(colonne); // the corner above the numbers of rows, hidden as they are, is cell 0
    QAccessible::updateAccessibility(&evenement);
}
