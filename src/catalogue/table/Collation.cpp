#include "catalogue/table/Collation.h"

#include "platform/PageDeCode.h"

#include <QByteArray>
#include <QString>

#include <unicode/ucol.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

constexpr size_t TailleDeLot = 256;

} // namespace

struct Collation::Prive
{
    UCollator* collateur = nullptr;
    std::vector<char16_t> texteA;
    std::vector<char16_t> texteB;

    ~Prive() { ucol_close(collateur); }

    // Turns a cell into UTF-16 in a buffer that is used again and again.
    static std::u16string_view Texte(const stockage::Cellule& cellule, std::vector<char16_t>& tampon)
    {
        if (tampon.size() < cellule.taille)
            tampon.resize(cellule.taille + TailleDeLot);
        if (cellule.codage == stockage::Codage::Utf8) {
            const QString texte = cellule.Texte();
            std::copy_n(reinterpret_cast<const char16_t*>(texte.utf16()), texte.size(), tampon.begin());
            return {tampon.data(), static_cast<size_t>(texte.size())};
        }
        const auto& table = PageDeCode::TableVersUnicode();
        for (uint32_t i = 0; i < cellule.taille; ++i)
            tampon[i] = table[static_cast<uint8_t>(cellule.debut[i])];
        return {tampon.data(), cellule.taille};
    }
};

Collation::Collation() : m_prive(std::make_unique<Prive>())
{
    UErrorCode etat = U_ZERO_ERROR;
    m_prive->collateur = ucol_open("fr", &etat);
    if (U_FAILURE(etat)) {
        etat = U_ZERO_ERROR;
        m_prive->collateur = ucol_open("", &etat);
    }
    if (U_FAILURE(etat) || !m_prive->collateur)
        qFatal("No collation data: the ICU installation is broken");
    ucol_setStrength(m_prive->collateur, UCOL_SECONDARY);
    ucol_setAttribute(m_prive->collateur, UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &etat);
}

Collation::~Collation() = default;

Collation& Collation::Francaise()
{
    static Collation collation;
    return collation;
}

int Collation::Comparer(QStringView a, QStringView b) const
{
    return ucol_strcoll(m_prive->collateur, a.utf16(), static_cast<int32_t>(a.size()), b.utf16(),
                        static_cast<int32_t>(b.size()));
}

int Collation::Comparer(const stockage::Cellule& a, const stockage::Cellule& b)
{
    if (a.codage == b.codage && a.octets() == b.octets())
        return 0;
    const std::u16string_view texteA = Prive::Texte(a, m_prive->texteA);
    const std::u16string_view texteB = Prive::Texte(b, m_prive->texteB);
    return ucol_strcoll(m_prive->collateur, texteA.data(), static_cast<int32_t>(texteA.size()), texteB.data(),
                        static_cast<int32_t>(texteB.size()));
}

void Collation::AjouterCle(const stockage::Cellule& cellule, std::vector<uint8_t>& arene)
{
    const std::u16string_view texte = Prive::Texte(cellule, m_prive->texteA);
    const size_t debut = arene.size();
    size_t place = texte.size() * 2 + 16;
    for (;;) {
        arene.resize(debut + place);
        // The length counts a zero byte at the end, which the arena does not keep.
        const int32_t longueur = ucol_getSortKey(m_prive->collateur, texte.data(), static_cast<int32_t>(texte.size()),
                                                 arene.data() + debut, static_cast<int32_t>(place));
        if (static_cast<size_t>(longueur) <= place) {
            arene.resize(debut + static_cast<size_t>(std::max(longueur, 1)) - 1);
            return;
        }
        place = static_cast<size_t>(longueur);
    }
}

ClesDeTri::ClesDeTri(size_t nombre)
{
    m_arene.reserve(nombre * 24);
    m_fins.reserve(nombre);
}

void ClesDeTri::Ajouter(const stockage::Cellule& cellule)
{
    Collation::Francaise().AjouterCle(cellule, m_arene);
    m_fins.push_back(m_arene.size());
}

namespace {

/// One key while it is being sorted: eight of its bytes, and whose they are. In halves, so that it takes no more room
/// than it needs: there are as many as entries.
struct Element
{
    uint32_t haut;
    uint32_t bas;
    uint32_t numero;

    uint64_t Tete() const { return static_cast<uint64_t>(haut) << 32 | bas; }
    void Mettre(uint64_t tete)
    {
        haut = static_cast<uint32_t>(tete >> 32);
        bas = static_cast<uint32_t>(tete);
    }
};

/// Elements whose keys are equal up to `profondeur`.
struct Groupe
{
    size_t debut;
    size_t fin;
    uint64_t profondeur;
};

/// The order of elements by the bytes in hand. What is equal in them stays in the order of adding.
struct Avant
{
    bool descendant;
    bool operator()(const Element& a, const Element& b) const
    {
        if (a.Tete() != b.Tete())
            return descendant ? a.Tete() > b.Tete() : a.Tete() < b.Tete();
        return a.numero < b.numero;
    }
};

} // namespace

uint64_t ClesDeTri::Tete(uint32_t numero, uint64_t profondeur) const
{
    // Zero bytes fill up a key that ends: right as an order, since a key holds none.
    const uint64_t debut = (numero == 0 ? 0 : m_fins[numero - 1]) + profondeur;
    uint8_t octets[8] = {};
    if (debut < m_fins[numero])
        std::memcpy(octets, m_arene.data() + debut, std::min<uint64_t>(8, m_fins[numero] - debut));
    uint64_t tete = 0;
    for (const uint8_t octet : octets)
        tete = tete << 8 | octet;
    return tete;
}

std::vector<uint32_t> ClesDeTri::Ordre(bool descendant)
{
    // Eight bytes at a time, and deeper only among the keys that are equal so far: many entries with one value cost a
    // pass over their keys, not a comparison of whole keys for each step of the sort.
    const Avant avant{descendant};
    std::vector<Element> elements(m_fins.size());
    for (uint32_t i = 0; i < elements.size(); ++i)
        elements[i].numero = i;
    std::vector<Groupe> groupes{{0, elements.size(), 0}};
    while (!groupes.empty()) {
        const Groupe groupe = groupes.back();
        groupes.pop_back();
        const auto debut = elements.begin() + static_cast<std::ptrdiff_t>(groupe.debut);
        const auto fin = elements.begin() + static_cast<std::ptrdiff_t>(groupe.fin);
        for (auto it = debut; it != fin; ++it)
            it->Mettre(Tete(it->numero, groupe.profondeur));
        if (!std::is_sorted(debut, fin, avant))
            std::sort(debut, fin, avant);
        for (auto it = debut; it != fin;) {
            const uint64_t tete = it->Tete();
            const auto suite = std::find_if(it, fin, [tete](const Element& e) { return e.Tete() != tete; });
            const bool fini = (tete & 0xFF) == 0;
            if (suite - it > 1 && !fini)
                groupes.push_back({static_cast<size_t>(it - elements.begin()),
                                   static_cast<size_t>(suite - elements.begin()), groupe.profondeur + 8});
            it = suite;
        }
    }

    m_arene = {};
    m_fins = {};
    std::vector<uint32_t> ordre(elements.size());
    std::transform(elements.begin(), elements.end(), ordre.begin(), [](const Element& e) { return e.numero; });
    return ordre;
}
