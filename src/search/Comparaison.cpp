#include "search/Comparaison.h"

#include "extensions/langue/modLang.h"
#include "platform/PageDeCode.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

// ---- capitals

namespace {

/// The capital of one character: two for one that has no capital of its own.
struct Capitale
{
    std::array<char16_t, 2> unites;
    uint8_t nombre;
};

std::array<Capitale, 256> FaireCapitales()
{
    std::array<Capitale, 256> capitales;
    for (size_t octet = 0; octet < capitales.size(); ++octet) {
        const QString haute = QString(QChar(PageDeCode::TableVersUnicode()[octet])).toUpper();
        Q_ASSERT(haute.size() == 1 || haute.size() == 2);
        capitales[octet] = {{haute[0].unicode(), haute.back().unicode()}, static_cast<uint8_t>(haute.size())};
    }
    return capitales;
}

const std::array<Capitale, 256>& LesCapitales()
{
    static const std::array<Capitale, 256> capitales = FaireCapitales();
    return capitales;
}

} // namespace

void Capitales::Lire(const stockage::Cellule& cellule)
{
    const std::array<Capitale, 256>& capitales = LesCapitales();
    if (m_texte.size() < 2 * static_cast<qsizetype>(cellule.taille))
        m_texte.resize(2 * static_cast<qsizetype>(cellule.taille));
    auto* const debut = reinterpret_cast<char16_t*>(m_texte.data());
    char16_t* ici = debut;
    for (uint32_t i = 0; i < cellule.taille; ++i) {
        const auto octet = static_cast<uint8_t>(cellule.debut[i]);
        if (cellule.codage == stockage::Codage::Utf8 && octet >= 0x80) {
            m_texte = cellule.Texte().toUpper();
            m_taille = m_texte.size();
            return;
        }
        const Capitale& capitale = capitales[octet];
        ici[0] = capitale.unites[0];
        ici[1] = capitale.unites[1];
        ici += capitale.nombre;
    }
    m_taille = ici - debut;
}

// ---- one table

Comparaison::Cote::Cote(MyLV& laTable, int laColonne)
    : table(laTable), colonne(laColonne), tri(laTable, laColonne), nombre(laTable.ListItems.Count())
{
    LireValeur();
}

void Comparaison::Cote::LireValeur()
{
    if (AuBout())
        return;
    tri.Annoncer(position);
    valeur.Lire(table.StockageDe(position).Champ(colonne));
}

void Comparaison::Cote::Suivante()
{
    ++position;
    LireValeur();
}

namespace {

/// The bytes of a slice without the image behind its cells.
uint32_t TailleDesCellules(const stockage::EntreeStockee& entree, int colonnes)
{
    const stockage::Cellule derniere = entree.Champ(colonnes - 1);
    if (!derniere.existe)
        return static_cast<uint32_t>(entree.Tranche().size());
    return static_cast<uint32_t>(derniere.debut - entree.Tranche().data()) + derniere.taille;
}

/// A file without columns has a cell in each line all the same.
int CellulesDe(const stockage::Source& source)
{
    return std::max(1, source.colonnes);
}

} // namespace

/// At once, while its bytes are at hand.
void Comparaison::Cote::Retenir()
{
    const stockage::EntreeStockee entree = table.StockageDe(position);
    uint64_t debut = 0;
    uint32_t longueur = 0;
    if (entree.EstTranche()) {
        debut = static_cast<uint64_t>(entree.Tranche().data() - table.TexteSource().octets.get());
        longueur = TailleDesCellules(entree, CellulesDe(table.TexteSource()));
    } else {
        editees.push_back({position, static_cast<int>(seules.debuts.size()) + 1});
    }
    seules.debuts.push_back(debut);
    seules.longueurs.push_back(longueur);
    Suivante();
}

/// Slices of the same bytes as those of the table; entries that were edited are written again.
void Comparaison::Cote::Remplir(MyLV& liste)
{
    stockage::Source source = table.TexteSource();
    source.colonnes = CellulesDe(source);
    if (!source.octets)
        source.octets = std::make_unique<char[]>(1); // no entry was read from a file: empty slices lie somewhere too
    seules.debuts.shrink_to_fit();
    seules.longueurs.shrink_to_fit();
    seules.drapeaux.resize(seules.debuts.size());
    // A list that the user has sorted gets its order when all values are there.
    const bool triee = liste.Sorted();
    liste.SetSorted(false);
    liste.Remplir(std::move(source), std::move(seules));
    for (const auto& [positionDEditee, ligne] : editees)
        liste.ListItems(ligne).EcrireValeurs(std::as_const(table).ListItems(positionDEditee).Valeurs());
    liste.SetSorted(triee);
}

// ---- both

Comparaison::Comparaison(MyLV& a, int colonneA, MyLV& b, int colonneB) : m_a(a, colonneA), m_b(b, colonneB) {}

Comparaison::Etape Comparaison::Ou() const
{
    return m_a.tri.EstIntacte() && m_b.tri.EstIntacte() ? m_etape : Etape::Rompue;
}

Comparaison::Etape Comparaison::Avancer(int entrees)
{
    if (Ou() == Etape::Rompue)
        return Etape::Rompue;
    switch (m_etape) {
    case Etape::Fusion:
        for (; entrees > 0 && !m_a.AuBout() && !m_b.AuBout(); --entrees)
            Comparer();
        if (m_a.AuBout() || m_b.AuBout())
            m_etape = Etape::ResteDeB;
        break;
    case Etape::ResteDeB:
        for (; entrees > 0 && !m_b.AuBout(); --entrees)
            m_b.Retenir();
        if (m_b.AuBout())
            m_etape = Etape::ResteDeA;
        break;
    case Etape::ResteDeA:
        for (; entrees > 0 && !m_a.AuBout(); --entrees)
            m_a.Retenir();
        if (m_a.AuBout())
            m_etape = Etape::Finie;
        break;
    case Etape::Finie:
    case Etape::Rompue:
        break;
    }
    return m_etape;
}

void Comparaison::Comparer()
{
    const int ordre = m_a.valeur.Texte().compare(m_b.valeur.Texte());
    if (ordre == 0) {
        m_a.Suivante();
        m_b.Suivante();
    } else if (ordre < 0) {
        m_a.Retenir();
    } else {
        m_b.Retenir();
    }
}

void Comparaison::Remplir(MyLV& seulesDeA, MyLV& seulesDeB)
{
    m_a.Remplir(seulesDeA);
    m_b.Remplir(seulesDeB);
}

// ---- what is told

void CopierColonnes(MyLV& liste, const MyLV& table)
{
    liste.ListItems.Clear();
    liste.ColumnHeaders.Clear();
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i) {
        const ColumnHeader& colonne = table.ColumnHeaders(i);
        ColumnHeader& copie = liste.ColumnHeaders.Add(0, colonne.Text());
        copie.SetKey(colonne.Key());
        copie.SetWidth(colonne.Width());
    }
}

Message RefusDeComparer(const MyLV& a, const MyLV& b)
{
    const auto refus = [](const QString& debut) { return Message(debut + u"\nIl n'y a pas de comparaison à faire"_s); };
    if (a.ListItems.Count() == 0)
        return refus(u"La première catégorie ne contient pas d'entrée."_s);
    if (b.ListItems.Count() == 0)
        return refus(u"La deuxième catégorie ne contient pas d'entrée."_s);
    return {};
}

QString Verdict(int seulesDeA, int seulesDeB, const QString& a, const QString& b)
{
    // The names stand the other way round than the sense would have them. It is meant.
    const auto phrase = [](const QString& premier, const QString& second) {
        return u"Toutes les entrees du fichier \""_s + premier + u"\"  sont presentes dans le fichier \""_s + second +
               u'"';
    };
    if (seulesDeA == 0 && seulesDeB == 0)
        return u"Aucune difference ! les fichiers sont identiques"_s;
    if (seulesDeB == 0)
        return phrase(a, b);
    return seulesDeA == 0 ? phrase(b, a) : QString();
}

QString TitreDesResultats(int seulesDeA, int seulesDeB)
{
    return LangMsg(u"msgResultats"_s, u"Resultats: 2>1: %1 - 1>2: %2"_s).texte.arg(seulesDeB).arg(seulesDeA);
}
