#include "entries/ModeleASupprimer.h"

#include "catalogue/texte/TriDeTable.h"
#include "kit/Icones.h"
#include "kit/frmAvancement.h"
#include "vue/TriEnMots.h"

ModeleASupprimer::ModeleASupprimer(ListeASupprimer& liste, const ColumnHeaders& colonnes, QObject* parent)
    : QAbstractTableModel(parent), m_liste(liste), m_colonnes(colonnes)
{
}

void ModeleASupprimer::Remplir(bool avecDependantes)
{
    // Events may run meanwhile: the views see the rows of before until the new ones are complete.
    AvancementEnFenetre avancement;
    ListeASupprimer nouvelle = m_liste;
    nouvelle.Remplir(avecDependantes, avancement);
    beginResetModel();
    m_liste = std::move(nouvelle);
    endResetModel();
    emit CochesChangees();
}

void ModeleASupprimer::Cocher(int premiere, int derniere, bool cochees)
{
    m_liste.Cocher(premiere, derniere, cochees);
    LignesChangees(premiere, derniere);
}

void ModeleASupprimer::Inverser()
{
    m_liste.Inverser();
    LignesChangees(1, m_liste.Count());
}

std::vector<int> ModeleASupprimer::Trier(int colonne)
{
    std::vector<int> avant = m_liste.Trier(colonne);
    LignesChangees(1, m_liste.Count());
    emit headerDataChanged(Qt::Horizontal, 0, m_colonnes.Count() - 1);
    return avant;
}

void ModeleASupprimer::Supprimer(QrtClass& doc, const std::function<void(const QString& fichier)>& supprimerImage)
{
    AvancementEnFenetre avancement;
    SupprimerCochees(doc, m_liste, supprimerImage, avancement);
    // At once: the rows name entries that are gone.
    beginResetModel();
    m_liste.Vider();
    endResetModel();
}

void ModeleASupprimer::LignesChangees(int premiere, int derniere)
{
    if (premiere <= derniere && columnCount() > 0)
        emit dataChanged(index(premiere - 1, 0), index(derniere - 1, columnCount() - 1));
    emit CochesChangees();
}

int ModeleASupprimer::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_liste.Count();
}

int ModeleASupprimer::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_colonnes.Count();
}

QVariant ModeleASupprimer::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int ligne = index.row() + 1;
    if (role == Qt::DisplayRole)
        return m_liste.Entree(ligne).Valeur(index.column() + 1);
    if (role == Qt::CheckStateRole && index.column() == 0)
        return m_liste.EstCochee(ligne) ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool ModeleASupprimer::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid() || index.column() != 0)
        return false;
    Cocher(index.row() + 1, index.row() + 1, valeur.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags ModeleASupprimer::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags drapeaux = QAbstractTableModel::flags(index);
    return index.column() == 0 ? drapeaux | Qt::ItemIsUserCheckable : drapeaux;
}

QVariant ModeleASupprimer::headerData(int section, Qt::Orientation sens, int role) const
{
    if (sens != Qt::Horizontal || !m_colonnes.Existe(section + 1))
        return {};
    if (role == Qt::DisplayRole)
        return m_colonnes(section + 1).Text();
    const QString tri = m_liste.ColonneDeTri() == section + 1 ? MarqueDeTri(m_liste.EstDecroissant()) : QString();
    if (role == Qt::DecorationRole && !tri.isEmpty())
        return Icone(tri);
    if (role == Qt::AccessibleDescriptionRole)
        return TriEnMots(tri);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}
