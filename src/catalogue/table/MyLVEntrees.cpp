// Entries: cells, keys, adding and removing.
#include "catalogue/table/MyLV.h"

#include <algorithm>
#include <unordered_set>

using stockage::Cellule;
using stockage::Drapeau;
using stockage::Icone;
using stockage::Rangee;

namespace {

constexpr int ColonnesEtroites = 32;
constexpr size_t PlacesGardees = 256; // more than the rows on a screen

const char* PointeurDe(uint64_t reference)
{
    return reinterpret_cast<const char*>(reference);
}

Icone IconeDeNom(const QString& nom)
{
    if (nom == u"noico")
        return Icone::NoIco;
    if (nom == u"ico")
        return Icone::Ico;
    return nom == u"icoerror" ? Icone::IcoError : Icone::Aucune;
}

} // namespace

// ---- Storage of one entry

stockage::EntreeStockee MyLV::StockageDuRang(uint32_t rang, stockage::Place place) const
{
    const uint8_t drapeaux = m_drapeaux[rang];
    const char* octets = drapeaux & Drapeau::EnBloc ? PointeurDe(m_refs[rang]) : m_source.octets.get() + m_refs[rang];
    return {octets, m_longueurs[rang], m_source.codage, m_source.colonnes, drapeaux, place};
}

stockage::EntreeStockee MyLV::StockageDe(int index) const
{
    return StockageDuRang(m_ordre[static_cast<size_t>(index - 1)]);
}

Cellule MyLV::Cellule(uint32_t rang, int cellule) const
{
    // In a narrow table looking is quicker than remembering.
    if (m_source.colonnes <= ColonnesEtroites)
        return StockageDuRang(rang).Champ(cellule);
    m_places.resize(PlacesGardees);
    PlaceGardee& gardee = m_places[rang % PlacesGardees];
    const stockage::EntreeStockee entree = StockageDuRang(rang, gardee.rang == rang ? gardee.place : stockage::Place());
    const stockage::Cellule champ = entree.Champ(cellule);
    gardee = {rang, entree.PlaceLue()};
    return champ;
}

void MyLV::LibererBloc(uint32_t rang)
{
    if (!(m_drapeaux[rang] & Drapeau::EnBloc))
        return;
    auto* bloc = reinterpret_cast<char*>(m_refs[rang]);
    m_octetsEnBlocs -= stockage::TailleBloc(bloc);
    stockage::LibererBloc(bloc);
    m_drapeaux[rang] = static_cast<uint8_t>(m_drapeaux[rang] & ~Drapeau::EnBloc);
}

void MyLV::Reecrire(uint32_t rang, const Rangee& rangee)
{
    PoserBloc(rang, stockage::NouveauBloc(rangee));
}

void MyLV::PoserBloc(uint32_t rang, char* bloc)
{
    LibererBloc(rang);
    m_refs[rang] = reinterpret_cast<uint64_t>(bloc);
    m_longueurs[rang] = 0;
    m_octetsEnBlocs += stockage::TailleBloc(bloc);
    m_drapeaux[rang] = static_cast<uint8_t>((m_drapeaux[rang] | Drapeau::EnBloc) & ~Drapeau::Reguliere);
    ChangeLigne(rang, &ChangementsTable::valeurs);
}

void MyLV::EcrireCellule(uint32_t rang, int cellule, QByteArrayView utf8)
{
    PoserBloc(rang, stockage::BlocAvecCellule(StockageDuRang(rang), cellule, utf8));
}

uint32_t MyLV::NouveauRang()
{
    if (!m_libres.empty()) {
        const uint32_t rang = m_libres.back();
        m_libres.pop_back();
        return rang;
    }
    m_refs.push_back(0);
    m_longueurs.push_back(0);
    m_drapeaux.push_back(0);
    if (m_positionsValides)
        m_positions.push_back(0);
    return static_cast<uint32_t>(m_refs.size() - 1);
}

void MyLV::ViderEntrees()
{
    if (m_octetsEnBlocs > 0)
        for (uint32_t rang = 0; rang < m_refs.size(); ++rang)
            LibererBloc(rang);
    m_source = {};
    m_places.clear();
    m_refs = {};
    m_longueurs = {};
    m_drapeaux = {};
    m_libres = {};
    m_ordre = {};
    m_positions = {};
    m_positionsValides = false;
    m_aPlacer.clear();
    m_cles.Vider();
    m_focus = {};
    Change(&ChangementsTable::lignes);
}

// ---- ListItemLu, ListItem

QString ListItemLu::Text() const
{
    return m_table->Cellule(m_rang, 0).Texte();
}

void ListItem::SetText(const QString& texte)
{
    m_table->EcrireCellule(m_rang, 0, texte.toUtf8());
}

QString ListItemLu::SubItems(int i) const
{
    return ListSubItems(i).value_or(QString());
}

bool ListItem::SetSubItems(int i, const QString& texte)
{
    if (i < 1 || i >= m_table->ColumnHeaders.Count())
        return false;
    m_table->EcrireCellule(m_rang, i, texte.toUtf8());
    return true;
}

bool ListItem::EcrireUtf8(int colonne, QByteArrayView utf8)
{
    if (!m_table->ColumnHeaders.Existe(colonne))
        return false;
    m_table->EcrireCellule(m_rang, colonne - 1, utf8);
    return true;
}

std::optional<QString> ListItemLu::ListSubItems(int i) const
{
    if (i < 1)
        return std::nullopt;
    const Cellule cellule = m_table->Cellule(m_rang, i);
    return cellule.existe ? std::optional<QString>(cellule.Texte()) : std::nullopt;
}

QString ListItemLu::Valeur(int colonne) const
{
    return m_table->Cellule(m_rang, colonne - 1).Texte();
}

QStringList ListItemLu::Valeurs() const
{
    const Rangee rangee = m_table->StockageDuRang(m_rang).Lire();
    QStringList valeurs;
    const auto colonnes = static_cast<size_t>(m_table->ColumnHeaders.Count());
    for (size_t i = 0; i < colonnes; ++i)
        valeurs.append(i < rangee.cellules.size() ? rangee.cellules[i].value_or(QString()) : QString());
    return valeurs;
}

void ListItem::EcrireCellules(std::span<const Cellule> cellules, const Cellule& image)
{
    m_table->PoserBloc(m_rang, stockage::NouveauBloc(cellules, image));
}

void ListItem::EcrireValeurs(const QStringList& valeurs)
{
    Rangee rangee = m_table->StockageDuRang(m_rang).Lire();
    if (rangee.cellules.size() < static_cast<size_t>(valeurs.size()))
        rangee.cellules.resize(static_cast<size_t>(valeurs.size()));
    std::copy(valeurs.begin(), valeurs.end(), rangee.cellules.begin());
    m_table->Reecrire(m_rang, rangee);
}

void ListItem::Modifier(const std::vector<std::optional<QString>>& valeurs, const std::optional<QString>& image)
{
    Rangee rangee = m_table->StockageDuRang(m_rang).Lire();
    for (size_t i = 0; i < valeurs.size(); ++i) {
        if (!valeurs[i])
            continue;
        if (rangee.cellules.size() <= i)
            rangee.cellules.resize(i + 1);
        rangee.cellules[i] = valeurs[i];
    }
    rangee.image = image.value_or(rangee.image);
    m_table->Reecrire(m_rang, rangee);
}

QString ListItemLu::Key() const
{
    return m_table->m_cles.CleDe(m_rang);
}

bool ListItem::SetKey(const QString& cle)
{
    return m_table->DonnerCle(m_rang, cle, 0);
}

QString ListItemLu::Tag() const
{
    return m_table->StockageDuRang(m_rang).Image().Texte();
}

void ListItem::SetTag(const QString& marque)
{
    Rangee rangee = m_table->StockageDuRang(m_rang).Lire();
    if (rangee.image == marque)
        return;
    rangee.image = marque;
    m_table->Reecrire(m_rang, rangee);
}

QString ListItemLu::SmallIcon() const
{
    switch (stockage::IconeDe(m_table->m_drapeaux[m_rang])) {
    case Icone::NoIco:
        return QStringLiteral("noico");
    case Icone::Ico:
        return QStringLiteral("ico");
    case Icone::IcoError:
        return QStringLiteral("icoerror");
    case Icone::Aucune:
        break;
    }
    return QString();
}

void ListItem::SetSmallIcon(const QString& icone)
{
    uint8_t& drapeaux = m_table->m_drapeaux[m_rang];
    drapeaux = stockage::AvecIcone(drapeaux, IconeDeNom(icone));
    m_table->ChangeLigne(m_rang, &ChangementsTable::valeurs);
}

bool ListItemLu::Selected() const
{
    return (m_table->m_drapeaux[m_rang] & Drapeau::Choisie) != 0;
}

void ListItem::SetSelected(bool choisie)
{
    uint8_t& drapeaux = m_table->m_drapeaux[m_rang];
    if (choisie == ((drapeaux & Drapeau::Choisie) != 0))
        return;
    drapeaux ^= Drapeau::Choisie;
    m_table->ChangeLigne(m_rang, &ChangementsTable::selection);
}

int ListItemLu::Index() const
{
    return m_table->Position(m_rang);
}

// ---- ListItems

int ListItems::Count() const
{
    return static_cast<int>(m_table.m_ordre.size());
}

ListItem ListItems::Add(int index, const QString& cle, const QString& texte)
{
    if (index < 0 || index > Count() + 1)
        return {};
    if (!cle.isEmpty() && m_table.m_cles.Rang(cle, m_table.m_ordre))
        return {};
    const uint32_t rang = m_table.NouveauRang();
    const bool aLaFin = index == 0 || index == Count() + 1;
    m_table.m_drapeaux[rang] = Drapeau::Vivante;
    m_table.m_ordre.insert(aLaFin ? m_table.m_ordre.end() : m_table.m_ordre.begin() + (index - 1), rang);
    m_table.m_cles.Donner(rang, cle, aLaFin ? static_cast<uint32_t>(Count()) : 0);
    if (aLaFin && m_table.m_positionsValides)
        m_table.m_positions[rang] = static_cast<uint32_t>(Count() - 1);
    else
        m_table.m_positionsValides = false;
    m_table.Reecrire(rang, {{texte}, QString()});
    m_table.Change(&ChangementsTable::lignes);
    if (m_table.m_trie) {
        m_table.m_aPlacer.push_back(rang);
        if (m_table.m_ajoutsOuverts == 0)
            m_table.PlacerAjouts();
    }
    return ListItem(&m_table, rang);
}

bool ListItems::Remove(int index)
{
    if (!Existe(index))
        return false;
    Retirer({index});
    return true;
}

bool ListItems::Remove(const QString& cle)
{
    const ListItem entree = (*this)(cle);
    return entree && Remove(entree.Index());
}

void ListItems::Retirer(const std::vector<int>& positions)
{
    std::vector<uint32_t>& ordre = m_table.m_ordre;
    const int premiereOtee = positions.empty() ? 0 : *std::min_element(positions.begin(), positions.end());
    bool focusOte = false;
    for (const int position : positions) {
        if (!Existe(position))
            continue;
        const uint32_t rang = ordre[static_cast<size_t>(position - 1)];
        if (!(m_table.m_drapeaux[rang] & Drapeau::Vivante))
            continue;
        focusOte = focusOte || (m_table.m_focus && m_table.m_focus.m_rang == rang);
        m_table.LibererBloc(rang);
        m_table.m_cles.Oublier(rang);
        m_table.m_drapeaux[rang] = 0;
        m_table.m_longueurs[rang] = 0;
        m_table.m_libres.push_back(rang);
    }
    const auto morte = [this](uint32_t rang) { return !(m_table.m_drapeaux[rang] & Drapeau::Vivante); };
    const auto debut = ordre.begin() + std::clamp(premiereOtee - 1, 0, Count());
    const auto reste = std::remove_if(debut, ordre.end(), morte);
    if (reste == ordre.end())
        return;
    ordre.erase(reste, ordre.end());
    std::erase_if(m_table.m_aPlacer, morte);
    if (static_cast<int>(ordre.size()) >= premiereOtee)
        m_table.m_cles.OrdreChange();
    m_table.m_positionsValides = false;
    if (focusOte)
        m_table.m_focus = ordre.empty() ? ListItem() : (*this)(std::clamp(premiereOtee, 1, Count()));
    m_table.Change(&ChangementsTable::lignes);
}

void ListItems::Clear()
{
    m_table.ViderEntrees();
}

std::optional<uint32_t> ListItems::Rang(int index) const
{
    return Existe(index) ? std::optional(m_table.m_ordre[static_cast<size_t>(index - 1)]) : std::nullopt;
}

ListItem ListItems::operator()(int index)
{
    const std::optional<uint32_t> rang = Rang(index);
    return rang ? ListItem(&m_table, *rang) : ListItem();
}

ListItemLu ListItems::operator()(int index) const
{
    const std::optional<uint32_t> rang = Rang(index);
    return rang ? ListItemLu(&m_table, *rang) : ListItemLu();
}

ListItem ListItems::operator()(const QString& cle)
{
    const std::optional<uint32_t> rang = m_table.m_cles.Rang(cle, m_table.m_ordre);
    return rang ? ListItem(&m_table, *rang) : ListItem();
}

ListItemLu ListItems::operator()(const QString& cle) const
{
    const std::optional<uint32_t> rang = m_table.m_cles.Rang(cle, m_table.m_ordre);
    return rang ? ListItemLu(&m_table, *rang) : ListItemLu();
}

// ---- Keys

bool MyLV::DonnerCle(uint32_t rang, const QString& cle, uint32_t enPosition)
{
    if (!cle.isEmpty()) {
        const std::optional<uint32_t> holder = m_cles.Rang(cle, m_ordre);
        if (holder)
            return *holder == rang;
    }
    m_cles.Donner(rang, cle, enPosition);
    return true;
}

void MyLV::RenumeroterCles()
{
    if (m_cles.EstCanonique())
        return;
    if (m_cles.ATextes())
        RenumeroterPasAPas();
    else
        m_cles.Renumeroter(m_ordre);
}

void MyLV::RenumeroterPasAPas()
{
    // With foreign keys about, a "z" key may be taken, and a step then fails and is passed over.
    for (int n = 1; n <= ListItems.Count(); ++n) {
        const QString cle = ClesDeTable::CleDeNumero(static_cast<uint32_t>(n));
        if (ListItem occupante = ListItems(cle))
            occupante.SetKey(QLatin1Char('z') + QString::number(n));
        ListItems(n).SetKey(cle);
    }
}

void RecalculerCles(MyLV& table)
{
    table.RenumeroterCles();
}
