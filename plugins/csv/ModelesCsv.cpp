#include "ModelesCsv.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

using namespace Qt::StringLiterals;
using zelvane::LangMsg;

namespace {

constexpr UsageCsv Usages[] = {UsageCsv::Prendre, UsageCsv::Laisser, UsageCsv::Image};
/// What a cell shows of a long value: a view lays all of it out.
constexpr qsizetype CaracteresMontres = 500;

QString Montree(const QString& valeur)
{
    QString montree = valeur.left(CaracteresMontres);
    RemplacesCsv remplaces;
    TenirEnCellule(montree, remplaces);
    return valeur.size() > CaracteresMontres ? montree + u'…' : montree;
}

/// A tip shows it in lines, and takes none of its signs for HTML.
QString EnBulle(const QString& texte)
{
    return u"<qt>%1</qt>"_s.arg(texte.toHtmlEscaped());
}

} // namespace

QString TexteDUsage(UsageCsv usage)
{
    switch (usage) {
    case UsageCsv::Prendre:
        return LangMsg(u"plugCsvPrendre"_s, u"Prendre"_s);
    case UsageCsv::Laisser:
        return LangMsg(u"plugCsvLaisser"_s, u"Laisser de côté"_s);
    case UsageCsv::Image:
        return LangMsg(u"plugCsvImage"_s, u"Chemin de l'image"_s);
    }
    return {};
}

// ---- columns

void ModeleColonnesCsv::Mettre(const QList<ColonneCsv>& colonnes)
{
    beginResetModel();
    m_colonnes = colonnes;
    endResetModel();
}

bool ModeleColonnesCsv::EstUtile() const
{
    return std::ranges::any_of(m_colonnes, [](const ColonneCsv& c) { return c.usage == UsageCsv::Prendre; });
}

int ModeleColonnesCsv::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_colonnes.size());
}

int ModeleColonnesCsv::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant ModeleColonnesCsv::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    const ColonneCsv& colonne = m_colonnes[index.row()];
    if (index.column() == Titre)
        return colonne.titre;
    return role == Qt::EditRole ? QVariant(static_cast<int>(colonne.usage)) : QVariant(TexteDUsage(colonne.usage));
}

bool ModeleColonnesCsv::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    if (index.column() == Usage)
        return MettreUsage(index.row(), static_cast<UsageCsv>(valeur.toInt()));
    const QString titre = TitreTenable(valeur.toString());
    const bool pris = std::ranges::any_of(m_colonnes, [&](const ColonneCsv& c) { return c.titre == titre; });
    if (titre.isEmpty() || (pris && titre != m_colonnes[index.row()].titre))
        return false;
    m_colonnes[index.row()].titre = titre;
    emit dataChanged(index, index);
    return true;
}

bool ModeleColonnesCsv::MettreUsage(qsizetype rang, UsageCsv usage)
{
    // An entry has one image.
    for (ColonneCsv& colonne : m_colonnes) {
        if (usage == UsageCsv::Image && colonne.usage == UsageCsv::Image)
            colonne.usage = UsageCsv::Prendre;
    }
    m_colonnes[rang].usage = usage;
    emit dataChanged(index(0, Usage), index(rowCount() - 1, Usage));
    return true;
}

QVariant ModeleColonnesCsv::headerData(int section, Qt::Orientation sens, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (sens == Qt::Vertical)
        return section + 1;
    return section == Titre ? LangMsg(u"plugCsvColonneTitre"_s, u"Titre"_s)
                            : LangMsg(u"plugCsvColonneUsage"_s, u"Usage"_s);
}

Qt::ItemFlags ModeleColonnesCsv::flags(const QModelIndex& index) const
{
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

QWidget* DelegueUsageCsv::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* liste = new QComboBox(parent);
    for (const UsageCsv usage : Usages)
        liste->addItem(TexteDUsage(usage), static_cast<int>(usage));
    auto* delegue = const_cast<DelegueUsageCsv*>(this); // signals are sent by what is not const
    // What is chosen counts at once; the list stays until the keys go elsewhere.
    connect(liste, &QComboBox::activated, delegue, [delegue, liste] { emit delegue->commitData(liste); });
    return liste;
}

void DelegueUsageCsv::setEditorData(QWidget* editeur, const QModelIndex& index) const
{
    auto* liste = qobject_cast<QComboBox*>(editeur);
    liste->setCurrentIndex(liste->findData(index.data(Qt::EditRole)));
}

void DelegueUsageCsv::setModelData(QWidget* editeur, QAbstractItemModel* modele, const QModelIndex& index) const
{
    modele->setData(index, qobject_cast<QComboBox*>(editeur)->currentData());
}

// ---- the first rows

void ModeleApercuCsv::Mettre(const ApercuCsv& apercu, bool entete)
{
    beginResetModel();
    m_apercu = apercu;
    m_entete = entete && !apercu.lignes.isEmpty();
    endResetModel();
}

void ModeleApercuCsv::MettreColonnes(const QList<ColonneCsv>& colonnes)
{
    m_colonnes = colonnes;
    if (columnCount() > 0) {
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
        if (rowCount() > 0)
            emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

int ModeleApercuCsv::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_apercu.lignes.size()) - (m_entete ? 1 : 0);
}

int ModeleApercuCsv::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_apercu.colonnes);
}

LigneSignalee ModeleApercuCsv::Signalee(const LigneCsv& ligne) const
{
    LigneSignalee signalee{ligne.numero, 0, ligne.defauts, {}};
    if (ligne.nombre < m_apercu.colonnes)
        signalee.defauts |= TropPeuDeChamps;
    if (ligne.nombre > m_apercu.colonnes)
        signalee.defauts |= TropDeChamps;
    return signalee;
}

QVariant ModeleApercuCsv::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const LigneCsv& ligne = m_apercu.lignes[index.row() + (m_entete ? 1 : 0)];
    if (role == Qt::DisplayRole)
        return Montree(ligne.champs.value(index.column()));
    const bool laissee = m_colonnes.value(index.column()).usage == UsageCsv::Laisser;
    if (role == Qt::ForegroundRole && laissee)
        return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    if (role == Qt::ToolTipRole) {
        const QString raison = RaisonDe(Signalee(ligne));
        return raison.isEmpty() ? QVariant() : QVariant(EnBulle(raison));
    }
    return {};
}

QVariant ModeleApercuCsv::headerData(int section, Qt::Orientation sens, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (sens == Qt::Horizontal)
        return m_colonnes.value(section).titre;
    const LigneCsv& ligne = m_apercu.lignes[section + (m_entete ? 1 : 0)];
    const QString numero = QString::number(ligne.numero);
    return Signalee(ligne).defauts == SansDefaut ? numero : u"! "_s + numero;
}

// ---- what was told

ModeleSignaleesCsv::ModeleSignaleesCsv(const std::vector<LigneSignalee>& lignes, const zelvane::Table& table,
                                       QObject* parent)
    : QAbstractTableModel(parent), m_lignes(lignes), m_table(table)
{
}

int ModeleSignaleesCsv::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lignes.size());
}

int ModeleSignaleesCsv::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 3;
}

QString ModeleSignaleesCsv::Cellule(qsizetype ligne, int colonne) const
{
    const LigneSignalee& signalee = m_lignes[static_cast<size_t>(ligne)];
    if (colonne == 0)
        return QString::number(signalee.numero);
    return colonne == 1 ? RaisonDe(signalee) : m_table.LireLignes(signalee.position, 1).join(u" | "_s);
}

QVariant ModeleSignaleesCsv::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const QString texte = Cellule(index.row(), index.column()).left(CaracteresMontres);
    return role == Qt::ToolTipRole ? EnBulle(texte) : texte;
}

QVariant ModeleSignaleesCsv::headerData(int section, Qt::Orientation sens, int role) const
{
    if (role != Qt::DisplayRole || sens != Qt::Horizontal)
        return {};
    if (section == 0)
        return LangMsg(u"plugCsvLigne"_s, u"Ligne"_s);
    return section == 1 ? LangMsg(u"plugCsvRaison"_s, u"Raison"_s) : LangMsg(u"plugCsvValeurs"_s, u"Valeurs"_s);
}

QString ModeleSignaleesCsv::Texte() const
{
    QString texte;
    for (qsizetype i = 0; i < rowCount(); ++i)
        texte += Cellule(i, 0) + u'\t' + Cellule(i, 1) + u'\t' + Cellule(i, 2) + u'\n';
    return texte;
}
