#include "extensions/plugins/FaceTable.h"

#include "base/SurUneLigne.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The key of an entry that is added at the end: not that of another one, where keys have gaps.
QString CleNeuve(MyLV& table)
{
    int numero = table.ListItems.Count() + 1;
    QString cle = u"k%1"_s.arg(numero);
    while (table.ListItems(cle))
        cle = u"k%1"_s.arg(++numero);
    return cle;
}

QStringList Rangee(const QStringList& cellules, qsizetype debut, int colonnes)
{
    QStringList rangee;
    rangee.reserve(colonnes);
    for (qsizetype i = debut; i < debut + colonnes; ++i)
        rangee.append(SansSeparateurs(cellules.at(i)));
    return rangee;
}

/// The images of these entries that no other one has, in their order and each once. An image may be shared, and what
/// one entry loses by a deletion must not be lost to another.
QStringList ImagesQuiPartent(MyLV& table, const QSet<int>& positions)
{
    QSet<QString> gardees;
    for (int i = 1; i <= table.ListItems.Count(); ++i) {
        if (!positions.contains(i))
            gardees.insert(table.ListItems(i).Tag());
    }
    gardees.insert(QString());
    QStringList images;
    for (int i = 1; i <= table.ListItems.Count(); ++i) {
        const QString image = positions.contains(i) ? table.ListItems(i).Tag() : QString();
        if (gardees.contains(image))
            continue;
        images.append(image);
        gardees.insert(image);
    }
    return images;
}

} // namespace

// ---- columns

ColumnHeader* FaceColumnHeader::Colonne() const
{
    return m_table && m_table->ColumnHeaders.Existe(m_index) ? &m_table->ColumnHeaders(m_index) : nullptr;
}

QString FaceColumnHeader::Text() const
{
    return Colonne() ? Colonne()->Text() : QString();
}

void FaceColumnHeader::SetText(const QString& texte)
{
    if (Colonne())
        Colonne()->SetText(SansSeparateurs(texte));
}

double FaceColumnHeader::Width() const
{
    return Colonne() ? static_cast<double>(Colonne()->Width()) : 0;
}

void FaceColumnHeader::SetWidth(double largeur)
{
    if (Colonne())
        Colonne()->SetWidth(static_cast<float>(largeur));
}

QString FaceColumnHeader::Tag() const
{
    return Colonne() ? Colonne()->Tag() : QString();
}

void FaceColumnHeader::SetTag(const QString& marque)
{
    // A list of texts, which bars part.
    if (Colonne())
        Colonne()->SetTag(SurUneLigne(marque));
}

QString FaceColumnHeader::Icon() const
{
    return Colonne() ? Colonne()->Icon() : QString();
}

void FaceColumnHeader::SetIcon(const QString& icone)
{
    if (Colonne() && (icone.isEmpty() || icone == "up"_L1 || icone == "down"_L1))
        Colonne()->SetIcon(icone);
}

QString FaceColumnHeader::Key() const
{
    return Colonne() ? Colonne()->Key() : QString();
}

void FaceColumnHeader::SetKey(const QString& cle)
{
    if (Colonne())
        Colonne()->SetKey(cle);
}

int FaceColumnHeaders::Count() const
{
    return m_table ? m_table->ColumnHeaders.Count() : 0;
}

QObject* FaceColumnHeaders::Item(int index)
{
    return m_table && m_table->ColumnHeaders.Existe(index) ? new FaceColumnHeader(m_table, index, this) : nullptr;
}

QObject* FaceColumnHeaders::Add(int index, const QString& texte)
{
    if (!m_table)
        return nullptr;
    return Item(m_table->ColumnHeaders.Add(index, SansSeparateurs(texte)).Index());
}

bool FaceColumnHeaders::Remove(int index)
{
    return m_table && m_table->ColumnHeaders.Remove(index);
}

void FaceColumnHeaders::Clear()
{
    if (m_table)
        m_table->ColumnHeaders.Clear();
}

// ---- entries

QString FaceListItem::Text() const
{
    return EstLa() ? m_entree.Text() : QString();
}

void FaceListItem::SetText(const QString& texte)
{
    if (EstLa())
        m_entree.SetText(SansSeparateurs(texte));
}

QString FaceListItem::SubItems(int i) const
{
    return EstLa() && i >= 1 && i < m_table->ColumnHeaders.Count() ? m_entree.SubItems(i) : QString();
}

bool FaceListItem::SetSubItems(int i, const QString& texte)
{
    return EstLa() && m_entree.SetSubItems(i, SansSeparateurs(texte));
}

QVariant FaceListItem::ListSubItems(int i) const
{
    if (!EstLa() || i < 1 || i >= m_table->ColumnHeaders.Count())
        return {};
    const std::optional<QString> cellule = m_entree.ListSubItems(i);
    return cellule ? QVariant(*cellule) : QVariant();
}

QString FaceListItem::Key() const
{
    return EstLa() ? m_entree.Key() : QString();
}

void FaceListItem::SetKey(const QString& cle)
{
    if (EstLa())
        m_entree.SetKey(cle);
}

QString FaceListItem::Tag() const
{
    return EstLa() ? m_entree.Tag() : QString();
}

void FaceListItem::SetTag(const QString& marque)
{
    if (!EstLa())
        return;
    m_entree.SetTag(SansSeparateurs(marque));
    m_entree.SetSmallIcon(m_table.icone(m_entree.Tag()));
}

QString FaceListItem::SmallIcon() const
{
    return EstLa() ? m_entree.SmallIcon() : QString();
}

bool FaceListItem::Selected() const
{
    return EstLa() && m_entree.Selected();
}

void FaceListItem::SetSelected(bool choisie)
{
    if (EstLa())
        m_entree.SetSelected(choisie);
}

int FaceListItem::Index() const
{
    return EstLa() ? m_entree.Index() : 0;
}

int FaceListItems::Count() const
{
    return m_table ? m_table->ListItems.Count() : 0;
}

QObject* FaceListItems::Face(const ListItem& entree)
{
    return entree ? new FaceListItem(m_table, entree, this) : nullptr;
}

QObject* FaceListItems::Item(int index)
{
    return m_table ? Face(m_table->ListItems(index)) : nullptr;
}

QObject* FaceListItems::Item(const QString& cle)
{
    return m_table ? Face(m_table->ListItems(cle)) : nullptr;
}

QObject* FaceListItems::Add(int index, const QString& cle, const QString& texte)
{
    if (!m_table)
        return nullptr;
    return Face(m_table->ListItems.Add(index, cle.isEmpty() ? CleNeuve(*m_table) : cle, SansSeparateurs(texte)));
}

bool FaceListItems::Remove(int index)
{
    if (!m_table || !m_table->ListItems.Existe(index))
        return false;
    Retirer({index});
    return true;
}

bool FaceListItems::Remove(const QString& cle)
{
    const ListItem entree = m_table ? m_table->ListItems(cle) : ListItem();
    return entree && Remove(entree.Index());
}

void FaceListItems::Clear()
{
    for (auto* face : findChildren<FaceListItem*>(QString(), Qt::FindDirectChildrenOnly))
        face->Oublier();
    if (m_table)
        m_table->ListItems.Clear();
}

void FaceListItems::Retirer(const QList<int>& positions)
{
    if (!m_table)
        return;
    // The place of an entry that has gone is another one's later.
    const QSet<int> parties(positions.begin(), positions.end());
    for (auto* face : findChildren<FaceListItem*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (face->Entree() && parties.contains(face->Index()))
            face->Oublier();
    }
    m_table->ListItems.Retirer({positions.begin(), positions.end()});
}

// ---- the table

FaceTable::FaceTable(const TableVue& table, QObject* parent)
    : QObject(parent), m_table(table), m_colonnes(new FaceColumnHeaders(m_table, this)),
      m_entrees(new FaceListItems(m_table, this))
{
}

QObject* FaceTable::ColumnHeaders() const
{
    return m_colonnes;
}

QObject* FaceTable::ListItems() const
{
    return m_entrees;
}

void FaceTable::SetSorted(bool trie)
{
    if (m_table)
        m_table->SetSorted(trie);
}

void FaceTable::SetSortKey(int cle)
{
    if (m_table)
        m_table->SetSortKey(cle);
}

void FaceTable::SetSortOrder(int sens)
{
    if (m_table)
        m_table->SetSortOrder(sens);
}

void FaceTable::SetGridLines(bool grille)
{
    if (m_table)
        m_table->SetGridLines(grille);
}

QObject* FaceTable::SelectedItem()
{
    return m_table ? m_entrees->Face(m_table->SelectedItem()) : nullptr;
}

void FaceTable::SetSelectedItem(QObject* entree)
{
    const auto* face = qobject_cast<FaceListItem*>(entree);
    if (m_table && face && face->Index() > 0 && face->parent() == m_entrees)
        m_table->SetSelectedItem(face->Entree());
}

int FaceTable::ColonnesCount() const
{
    return m_colonnes->Count();
}

int FaceTable::LignesCount() const
{
    return m_entrees->Count();
}

QStringList FaceTable::Titres() const
{
    QStringList titres;
    titres.reserve(ColonnesCount());
    for (int i = 1; i <= ColonnesCount(); ++i)
        titres.append(m_table->ColumnHeaders(i).Text());
    return titres;
}

bool FaceTable::AjouterColonnes(const QStringList& titres)
{
    if (!m_table)
        return false;
    for (const QString& titre : titres)
        m_table->ColumnHeaders.Add(0, SansSeparateurs(titre));
    return true;
}

bool FaceTable::AjouterLignes(const QStringList& cellules)
{
    const int colonnes = ColonnesCount();
    if (colonnes == 0 || cellules.size() % colonnes != 0)
        return false;
    const AjoutsDansTable ajouts(*m_table);
    const QString icone = m_table.icone(QString());
    for (qsizetype i = 0; i < cellules.size(); i += colonnes) {
        ListItem entree = m_table->ListItems.Add(0, CleNeuve(*m_table), QString());
        entree.EcrireValeurs(Rangee(cellules, i, colonnes));
        entree.SetSmallIcon(icone);
    }
    return true;
}

int FaceTable::Reste(int premiere, int nombre) const
{
    return premiere < 1 || nombre < 1 ? 0 : std::min(nombre, std::max(0, LignesCount() - premiere + 1));
}

QStringList FaceTable::LireLignes(int premiere, int nombre) const
{
    QStringList cellules;
    const int lues = Reste(premiere, nombre);
    cellules.reserve(qsizetype{lues} * ColonnesCount());
    for (int ligne = premiere; ligne < premiere + lues; ++ligne)
        cellules.append(m_table->ListItems(ligne).Valeurs());
    return cellules;
}

QStringList FaceTable::LireImages(int premiere, int nombre) const
{
    QStringList images;
    const int lues = Reste(premiere, nombre);
    images.reserve(lues);
    for (int ligne = premiere; ligne < premiere + lues; ++ligne)
        images.append(m_table->ListItems(ligne).Tag());
    return images;
}

bool FaceTable::EcrireImages(int premiere, const QStringList& images)
{
    const auto nombre = static_cast<int>(std::min<qsizetype>(images.size(), std::numeric_limits<int>::max()));
    if (Reste(premiere, nombre) != images.size())
        return false;
    // Many entries may share an image, whose file is looked for once.
    QHash<QString, QString> icones;
    int ligne = premiere;
    for (const QString& image : images) {
        const QString tenable = SansSeparateurs(image);
        auto icone = icones.find(tenable);
        if (icone == icones.end())
            icone = icones.insert(tenable, m_table.icone(tenable));
        ListItem entree = m_table->ListItems(ligne++);
        entree.SetTag(tenable);
        entree.SetSmallIcon(*icone);
    }
    return true;
}

bool FaceTable::EcrireLignes(int premiere, const QStringList& cellules)
{
    const int colonnes = ColonnesCount();
    if (colonnes == 0 || cellules.size() % colonnes != 0 || premiere < 1 ||
        cellules.size() / colonnes > std::max(0, LignesCount() - premiere + 1))
        return false;
    int ligne = premiere;
    for (qsizetype i = 0; i < cellules.size(); i += colonnes)
        m_table->ListItems(ligne++).EcrireValeurs(Rangee(cellules, i, colonnes));
    return true;
}

void FaceTable::RetirerLignes(const QList<int>& positions)
{
    m_entrees->Retirer(positions);
}

QStringList FaceTable::LireColonnes(const QList<int>& colonnes, int premiere, int nombre) const
{
    QStringList cellules;
    if (premiere < 1 || nombre < 1 || !m_table ||
        !std::all_of(colonnes.begin(), colonnes.end(), [this](int c) { return m_table->ColumnHeaders.Existe(c); }))
        return cellules;
    const int lues = std::min(nombre, std::max(0, LignesCount() - premiere + 1));
    cellules.reserve(colonnes.size() * lues);
    for (int ligne = premiere; ligne < premiere + lues; ++ligne) {
        for (const int colonne : colonnes)
            cellules.append(m_table->ListItems(ligne).Valeur(colonne));
    }
    return cellules;
}

int FaceTable::SupprimerLignes(const QList<int>& positions)
{
    QSet<int> parties;
    for (const int position : positions) {
        if (m_table && m_table->ListItems.Existe(position))
            parties.insert(position);
    }
    if (parties.isEmpty())
        return 0;
    m_table.supprimees(ImagesQuiPartent(*m_table, parties));
    // Events ran while the user was asked.
    const int avant = LignesCount();
    m_entrees->Retirer({parties.begin(), parties.end()});
    return avant - LignesCount();
}
