#include "ModeleDeGroupes.h"

#include <ZelvanePlugin.h>

#include <algorithm>

using namespace Qt::StringLiterals;

ModeleDeGroupes::ModeleDeGroupes(const QStringList& titres, LireLigne lire, QObject* parent)
    : QAbstractItemModel(parent), m_titres(titres), m_lire(std::move(lire))
{
}

void ModeleDeGroupes::Montrer(Groupes groupes)
{
    beginResetModel();
    m_groupes = std::move(groupes);
    m_lues.clear();
    m_montres = std::min(m_groupes.Count(), Tranche);
    m_montrees.resize(static_cast<size_t>(m_groupes.Count()));
    for (int groupe = 0; groupe < m_groupes.Count(); ++groupe)
        m_montrees[static_cast<size_t>(groupe)] = std::min(m_groupes.Taille(groupe), Tranche);
    endResetModel();
    emit CochesChangees();
}

void ModeleDeGroupes::CocherSauf(Groupes::Gardee gardee)
{
    m_groupes.CocherSauf(gardee);
    ToutAChange();
}

void ModeleDeGroupes::ToutDecocher()
{
    m_groupes.ToutDecocher();
    ToutAChange();
}

void ModeleDeGroupes::RetirerCochees()
{
    Groupes groupes = m_groupes;
    groupes.RetirerCochees();
    Montrer(std::move(groupes));
}

void ModeleDeGroupes::ToutAChange()
{
    for (int groupe = 0; groupe < m_montres; ++groupe) {
        const QModelIndex parent = index(groupe, 0);
        emit dataChanged(index(0, 0, parent), index(rowCount(parent) - 1, 0, parent), {Qt::CheckStateRole});
    }
    emit CochesChangees();
}

void ModeleDeGroupes::Basculer(const QModelIndex& index)
{
    if (index.isValid() && !EstGroupe(index)) {
        const bool cochee = m_groupes.EstCochee(GroupeDe(index), index.row());
        setData(index.siblingAtColumn(0), cochee ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
}

QModelIndex ModeleDeGroupes::index(int ligne, int colonne, const QModelIndex& parent) const
{
    if (!hasIndex(ligne, colonne, parent))
        return {};
    return createIndex(ligne, colonne, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
}

QModelIndex ModeleDeGroupes::parent(const QModelIndex& index) const
{
    return !index.isValid() || EstGroupe(index) ? QModelIndex() : createIndex(GroupeDe(index), 0, quintptr{0});
}

int ModeleDeGroupes::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_montres;
    return EstGroupe(parent) && parent.column() == 0 ? m_montrees[static_cast<size_t>(parent.row())] : 0;
}

int ModeleDeGroupes::columnCount(const QModelIndex&) const
{
    return static_cast<int>(m_titres.size()) + 1;
}

bool ModeleDeGroupes::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

bool ModeleDeGroupes::AEncore(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_montres < m_groupes.Count();
    return EstGroupe(parent) && rowCount(parent) < m_groupes.Taille(parent.row());
}

void ModeleDeGroupes::Etendre(const QModelIndex& parent)
{
    if (!AEncore(parent))
        return;
    int& montrees = parent.isValid() ? m_montrees[static_cast<size_t>(parent.row())] : m_montres;
    const int toutes = parent.isValid() ? m_groupes.Taille(parent.row()) : m_groupes.Count();
    const int ensuite = std::min(toutes, montrees + Tranche);
    beginInsertRows(parent, montrees, ensuite - 1);
    montrees = ensuite;
    endInsertRows();
}

QVariant ModeleDeGroupes::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return EstGroupe(index) ? TexteDuGroupe(index.row(), index.column()) : TexteDeLEntree(index);
    if (role == Qt::CheckStateRole && !EstGroupe(index) && index.column() == 0)
        return m_groupes.EstCochee(GroupeDe(index), index.row()) ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool ModeleDeGroupes::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid() || EstGroupe(index) || index.column() != 0)
        return false;
    m_groupes.Cocher(GroupeDe(index), index.row(), valeur.toInt() == Qt::Checked);
    emit dataChanged(index, index, {Qt::CheckStateRole});
    emit CochesChangees();
    return true;
}

QVariant ModeleDeGroupes::headerData(int section, Qt::Orientation sens, int role) const
{
    if (sens != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == 0 ? zelvane::LangMsg(u"plugDoublonsColEntree"_s, u"Entrée"_s) : m_titres.value(section - 1);
}

Qt::ItemFlags ModeleDeGroupes::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags tous = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (EstGroupe(index))
        return tous;
    return tous | Qt::ItemNeverHasChildren | (index.column() == 0 ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

/// A group has the values of its first entry, so that it tells something while it is closed.
QString ModeleDeGroupes::TexteDuGroupe(int groupe, int colonne) const
{
    if (colonne > 0)
        return Cellule(m_groupes.Ligne(groupe, 0), colonne);
    return zelvane::LangMsg(u"plugDoublonsGroupe"_s, u"Groupe %1 : %2 entrées"_s)
        .arg(groupe + 1)
        .arg(m_groupes.Taille(groupe));
}

QString ModeleDeGroupes::TexteDeLEntree(const QModelIndex& index) const
{
    const int ligne = m_groupes.Ligne(GroupeDe(index), index.row());
    if (index.column() > 0)
        return Cellule(ligne, index.column());
    if (!m_groupes.EstPretee(GroupeDe(index), index.row()))
        return QString::number(ligne);
    return zelvane::LangMsg(u"plugDoublonsPretee"_s, u"%1 (prêtée)"_s).arg(ligne);
}

QString ModeleDeGroupes::Cellule(int ligne, int colonne) const
{
    QStringList* cellules = m_lues.object(ligne);
    if (!cellules) {
        cellules = new QStringList(m_lire(ligne));
        for (QString& cellule : *cellules) {
            if (cellule.size() > LettresMax)
                cellule = cellule.left(LettresMax) + u'…';
        }
        m_lues.insert(ligne, cellules);
    }
    return cellules->value(colonne - 1);
}
