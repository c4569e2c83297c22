#include "vue/VueDeListe.h"

#include "catalogue/table/MyLV.h"
#include "kit/TableDeLignes.h"
#include "kit/UnitesEcran.h"
#include "vue/PlusLarge.h"

#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int AirEnHauteur = 7;
constexpr qsizetype LongueurVisible = 2000; // characters; no column shows more
// A highlight of more runs than this is not carried along by a sort: every row drawn looks through all of them.
constexpr size_t PlagesMax = 4096;

/// The rest of a very long text need not be laid out.
QString PartieVisible(const QString& texte)
{
    return texte.left(LongueurVisible);
}

class DelegueDeListe : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& valeur, const QLocale&) const override
    {
        return PartieVisible(valeur.toString());
    }

protected:
    /// The view draws the focus, around the whole row.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state &= ~QStyle::State_HasFocus;
    }
};

/// Runs of true, counted from 1.
std::vector<std::pair<int, int>> PlagesDe(const std::vector<bool>& oui)
{
    std::vector<std::pair<int, int>> plages;
    for (size_t i = 0; i < oui.size(); ++i) {
        const int ligne = static_cast<int>(i) + 1;
        if (oui[i] && (i == 0 || !oui[i - 1]))
            plages.emplace_back(ligne, ligne);
        else if (oui[i])
            plages.back().second = ligne;
    }
    return plages;
}

} // namespace

VueDeListe::VueDeListe(QWidget* parent) : QTableView(parent)
{
    setItemDelegate(new DelegueDeListe(this));
    FaireTableDeLignes(*this);
    QHeaderView* titres = horizontalHeader();
    titres->setSectionsClickable(true);
    connect(titres, &QHeaderView::sectionResized, this,
            [this](int section, int, int pixels) { LargeurTiree(section, pixels); });
    EcouterTitres(*this, [this](int colonne) { emit EnteteCliquee(colonne); });
    AppliquerHauteur();
}

void VueDeListe::Afficher(QAbstractItemModel& modele, ColumnHeaders& colonnes)
{
    m_colonnes = &colonnes;
    setModel(&modele);
    DetacherTitres(*this);
    connect(&modele, &QAbstractItemModel::modelReset, this, &VueDeListe::AppliquerLargeurs);
    AppliquerLargeurs();
}

// ---- widths

void VueDeListe::AppliquerLargeurs()
{
    const QScopedValueRollback garde(m_largeursEnCours, true);
    MettreLargeurs(*this, qMin(m_colonnes->Count(), model()->columnCount()),
                   [this](int colonne) { return PixelsDe(*this, (*m_colonnes)(colonne).Width()); });
}

/// The user drags: what the program sets itself, rounded to pixels, is not written back.
void VueDeListe::LargeurTiree(int section, int pixels)
{
    if (!m_largeursEnCours && m_colonnes && m_colonnes->Existe(section + 1))
        (*m_colonnes)(section + 1).SetWidth(static_cast<float>(UnitesDe(*this, pixels)));
}

/// What a cell holds beside its text: margins, a check box.
int VueDeListe::AutourDuTexte(int colonne) const
{
    const QModelIndex premiere = model()->index(0, colonne - 1);
    if (!premiere.isValid())
        return 0;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return itemDelegate()->sizeHint(option, premiere).width() -
           fontMetrics().horizontalAdvance(PartieVisible(premiere.data().toString()));
}

std::vector<float> VueDeListe::LargeursDuContenu() const
{
    const int colonnes = m_colonnes->Count();
    PlusLarge plusLarge(fontMetrics(), colonnes);
    for (int ligne = 0; ligne < model()->rowCount(); ++ligne) {
        for (int colonne = 1; colonne <= colonnes; ++colonne)
            plusLarge.Voir(colonne, PartieVisible(model()->index(ligne, colonne - 1).data().toString()));
    }
    std::vector<float> largeurs;
    largeurs.reserve(static_cast<size_t>(colonnes));
    for (int colonne = 1; colonne <= colonnes; ++colonne) {
        plusLarge.Voir(colonne, (*m_colonnes)(colonne).Text());
        largeurs.push_back(
            static_cast<float>(UnitesDe(*this, plusLarge.Largeur(colonne) + AutourDuTexte(colonne) + 1)));
    }
    return largeurs;
}

float VueDeListe::LargeurDuTitre(const QString& titre) const
{
    return static_cast<float>(UnitesDe(*this, window()->fontMetrics().horizontalAdvance(titre)));
}

void VueDeListe::AppliquerHauteur()
{
    const int hauteur = qMax(fontMetrics().height(), style()->pixelMetric(QStyle::PM_IndicatorHeight)) + AirEnHauteur;
    verticalHeader()->setDefaultSectionSize(hauteur);
    // As high as a row, so that the titles do not move when one of them gets a marker.
    horizontalHeader()->setMinimumHeight(hauteur);
}

void VueDeListe::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        AppliquerHauteur();
}

void VueDeListe::paintEvent(QPaintEvent* event)
{
    for (const PlageDeColonnes& plage :
         ColonnesVues(*horizontalHeader(), event->rect().left(), event->rect().right())) {
        QPaintEvent partie = PartieDe(*event, plage);
        QTableView::paintEvent(&partie);
    }
    if (!hasFocus() || !currentIndex().isValid())
        return;
    QPainter painter(viewport());
    DessinerFocus(painter, *this, currentIndex().row() + 1, selectionModel()->isSelected(currentIndex()));
}

// ---- keys

void VueDeListe::keyPressEvent(QKeyEvent* event)
{
    const bool controle = event->modifiers() == Qt::ControlModifier;
    if (controle && event->key() == Qt::Key_R) {
        AjusterColonnes(*m_colonnes, *this);
        AppliquerLargeurs();
    } else if (controle && event->key() == Qt::Key_D) {
        RedimensionnerColonnes(*m_colonnes, model()->rowCount(), UnitesDe(*this, width()));
        AppliquerLargeurs();
    } else if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        BasculerCoche();
    } else {
        QTableView::keyPressEvent(event);
    }
}

void VueDeListe::BasculerCoche()
{
    const QModelIndex coche = currentIndex().siblingAtColumn(0);
    if (!coche.isValid() || !(coche.flags() & Qt::ItemIsUserCheckable))
        return;
    const bool cochee = coche.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model()->setData(coche, cochee ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

// ---- highlights

std::vector<std::pair<int, int>> VueDeListe::Surlignees() const
{
    std::vector<std::pair<int, int>> plages;
    for (const QItemSelectionRange& plage : selectionModel()->selection())
        plages.emplace_back(plage.top() + 1, plage.bottom() + 1);
    return plages;
}

void VueDeListe::SuivreOrdre(const std::vector<int>& avant)
{
    std::vector<bool> avantSurlignees(avant.size() + 1);
    for (const auto& [premiere, derniere] : Surlignees())
        std::fill(avantSurlignees.begin() + premiere, avantSurlignees.begin() + derniere + 1, true);
    std::vector<bool> surlignees(avant.size());
    std::transform(avant.begin(), avant.end(), surlignees.begin(),
                   [&](int ligne) { return avantSurlignees[static_cast<size_t>(ligne)]; });

    const auto focus = std::find(avant.begin(), avant.end(), currentIndex().row() + 1);
    if (focus != avant.end())
        selectionModel()->setCurrentIndex(
            model()->index(static_cast<int>(focus - avant.begin()), currentIndex().column()),
            QItemSelectionModel::NoUpdate);
    Surligner(PlagesDe(surlignees));
}

void VueDeListe::Surligner(const std::vector<std::pair<int, int>>& plages)
{
    QItemSelection selection;
    if (plages.size() <= PlagesMax)
        for (const auto& [premiere, derniere] : plages)
            selection.append(
                {model()->index(premiere - 1, 0), model()->index(derniere - 1, model()->columnCount() - 1)});
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

/// The base draws one cell anew, and the focus is the row's.
void VueDeListe::currentChanged(const QModelIndex& courante, const QModelIndex& quittee)
{
    QTableView::currentChanged(courante, quittee);
    viewport()->update();
}

/// Not the base's, which makes an index of every cell that was highlighted.
void VueDeListe::selectionChanged(const QItemSelection&, const QItemSelection&)
{
    viewport()->update();
    QAccessibleEvent evenement(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&evenement);
}
