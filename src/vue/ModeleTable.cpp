#include "vue/ModeleTable.h"

#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "vue/TriEnMots.h"

#include <QMetaObject>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What the marker of an entry shows, for who cannot see it.
QString EnMots(const QString& marque)
{
    if (marque == u"ico")
        return LangMsg(u"msgAvecImage"_s, u"avec image"_s);
    if (marque == u"icoerror")
        return LangMsg(u"msgImageIntrouvable"_s, u"image introuvable"_s);
    return marque == u"noico" ? LangMsg(u"msgSansImage"_s, u"sans image"_s).texte : QString();
}

} // namespace

ModeleTable::ModeleTable(MyLV& table, QObject* parent) : QAbstractTableModel(parent), m_table(table)
{
    for (const QString& nom : {u"noico"_s, u"ico"_s, u"icoerror"_s, u"up"_s, u"down"_s})
        m_marques.insert(nom, Icone(nom));
    m_table.Observer(*this);
    m_lignes = m_table.ListItems.Count();
    m_colonnes = m_table.ColumnHeaders.Count();
}

ModeleTable::~ModeleTable()
{
    m_table.NePlusObserver(*this);
}

void ModeleTable::TableModifiee()
{
    if (m_enAttente)
        return;
    m_enAttente = true;
    QMetaObject::invokeMethod(this, &ModeleTable::Rafraichir, Qt::QueuedConnection);
}

void ModeleTable::Rafraichir()
{
    if (!m_enAttente)
        return;
    m_enAttente = false;
    const QScopedValueRollback garde(m_rafraichit, true);
    const ChangementsTable changements = MyLV::PrendreChangements(*this);
    if (changements.colonnes && m_table.ColumnHeaders.Count() != m_colonnes) {
        beginResetModel();
        m_lignes = m_table.ListItems.Count();
        m_colonnes = m_table.ColumnHeaders.Count();
        endResetModel();
    } else {
        if (changements.colonnes && m_colonnes > 0)
            emit headerDataChanged(Qt::Horizontal, 0, m_colonnes - 1);
        CompterLesLignes();
        if (changements.lignes)
            ValeursChangees(1, m_lignes);
        else if (changements.valeurs)
            ValeursChangees(changements.premiere, changements.derniere);
    }
    emit Rafraichi(changements);
}

void ModeleTable::ValeursChangees(int premiere, int derniere)
{
    const int debut = std::max(premiere, 1);
    const int fin = std::min(derniere, m_lignes);
    if (debut <= fin && m_colonnes > 0)
        emit dataChanged(index(debut - 1, 0), index(fin - 1, m_colonnes - 1));
}

/// The views hold nothing for a single row, so that it is enough to tell them of rows more or less at the end, and
/// that values changed.
void ModeleTable::CompterLesLignes()
{
    const int lignes = m_table.ListItems.Count();
    if (lignes > m_lignes) {
        beginInsertRows(QModelIndex(), m_lignes, lignes - 1);
        m_lignes = lignes;
        endInsertRows();
    } else if (lignes < m_lignes) {
        beginRemoveRows(QModelIndex(), lignes, m_lignes - 1);
        m_lignes = lignes;
        endRemoveRows();
    }
}

int ModeleTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_lignes;
}

int ModeleTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_colonnes;
}

QVariant ModeleTable::data(const QModelIndex& index, int role) const
{
    const ListItemLu entree = m_table.ListItems(index.row() + 1);
    const int colonne = index.column() + 1;
    if (!entree || !m_table.ColumnHeaders.Existe(colonne))
        return {};
    if (role == Qt::DisplayRole)
        return entree.Valeur(colonne);
    if (role == Qt::DecorationRole && colonne == 1)
        return Marque(entree.SmallIcon());
    if (role == Qt::AccessibleDescriptionRole && colonne == 1)
        return EnMots(entree.SmallIcon());
    return {};
}

QVariant ModeleTable::headerData(int section, Qt::Orientation sens, int role) const
{
    if (sens != Qt::Horizontal || !m_table.ColumnHeaders.Existe(section + 1))
        return {};
    const ColumnHeader& colonne = m_table.ColumnHeaders(section + 1);
    if (role == Qt::DisplayRole)
        return colonne.Text();
    if (role == Qt::DecorationRole && !colonne.Icon().isEmpty())
        return Marque(colonne.Icon());
    if (role == Qt::AccessibleDescriptionRole)
        return TriEnMots(colonne.Icon());
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

const QIcon& ModeleTable::Marque(const QString& nom) const
{
    static const QIcon aucune;
    const auto trouvee = m_marques.constFind(nom);
    return trouvee == m_marques.constEnd() ? aucune : *trouvee;
}
