#include "catalogue/table/MyLVStockage.h"

#include "platform/PageDeCode.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace stockage {

namespace {

// A block: number of cells, then the start of each cell, of the image and of the end, then the text. The mark on a
// start tells a cell that was never written.
constexpr uint32_t JamaisEcrite = 0x80000000U;

// Room made at once for what most entries have; others grow.
constexpr int ColonnesUsuelles = 16;
constexpr qsizetype OctetsUsuels = 256;

uint32_t NombreDeCellules(const char* bloc)
{
    uint32_t nombre;
    std::memcpy(&nombre, bloc, sizeof nombre);
    return nombre;
}

uint32_t Debut(const char* bloc, uint32_t champ)
{
    uint32_t debut;
    std::memcpy(&debut, bloc + sizeof(uint32_t) * (1 + champ), sizeof debut);
    return debut;
}

size_t TailleEntete(uint32_t cellules)
{
    return sizeof(uint32_t) * (cellules + 3);
}

Cellule ChampDeBloc(const char* bloc, uint32_t champ)
{
    const uint32_t debut = Debut(bloc, champ);
    if (debut & JamaisEcrite)
        return {};
    const uint32_t fin = Debut(bloc, champ + 1) & ~JamaisEcrite;
    const char* texte = bloc + TailleEntete(NombreDeCellules(bloc));
    return {texte + debut, fin - debut, Codage::Utf8, true};
}

char* Allouer(size_t taille)
{
    auto* bloc = static_cast<char*>(std::malloc(taille));
    if (!bloc)
        throw std::bad_alloc();
    return bloc;
}

/// A block as another one is, but for one of its cells: what stands around that is copied as it lies.
char* CopieAvecCellule(const char* bloc, uint32_t cellule, QByteArrayView utf8)
{
    const uint32_t nombre = NombreDeCellules(bloc);
    const uint32_t debut = Debut(bloc, cellule) & ~JamaisEcrite;
    const uint32_t fin = Debut(bloc, cellule + 1) & ~JamaisEcrite;
    const uint32_t total = Debut(bloc, nombre + 1);
    const auto taille = static_cast<uint32_t>(utf8.size());
    const size_t entete = TailleEntete(nombre);

    char* copie = Allouer(entete + total - (fin - debut) + taille);
    std::memcpy(copie, bloc, entete + debut);
    for (uint32_t champ = cellule; champ <= nombre + 1; ++champ) {
        const uint32_t deplace = champ == cellule ? debut : Debut(bloc, champ) - (fin - debut) + taille;
        std::memcpy(copie + sizeof deplace * (1 + champ), &deplace, sizeof deplace);
    }
    char* texte = copie + entete + debut;
    std::copy(utf8.begin(), utf8.end(), texte);
    std::memcpy(texte + taille, bloc + entete + fin, total - fin);
    return copie;
}

/// A block while its cells are put together.
class Ebauche
{
public:
    explicit Ebauche(size_t cellules)
    {
        m_texte.reserve(OctetsUsuels);
        m_debuts.reserve(cellules + 2);
    }

    void Ajouter(QByteArrayView utf8)
    {
        m_debuts.push_back(static_cast<uint32_t>(m_texte.size()));
        m_texte.append(utf8);
    }
    void Ajouter(const Cellule& cellule)
    {
        m_debuts.push_back(static_cast<uint32_t>(m_texte.size()) | (cellule.existe ? 0 : JamaisEcrite));
        cellule.AjouterEnUtf8(m_texte);
    }
    /// A cell that was never written.
    void Sauter() { m_debuts.push_back(static_cast<uint32_t>(m_texte.size()) | JamaisEcrite); }

    template<class Image> char* Finir(const Image& image)
    {
        const auto nombre = static_cast<uint32_t>(m_debuts.size());
        Ajouter(image);
        m_debuts.push_back(static_cast<uint32_t>(m_texte.size()));
        const size_t entete = TailleEntete(nombre);
        char* bloc = Allouer(entete + static_cast<size_t>(m_texte.size()));
        std::memcpy(bloc, &nombre, sizeof nombre);
        std::memcpy(bloc + sizeof nombre, m_debuts.data(), entete - sizeof nombre);
        std::memcpy(bloc + entete, m_texte.constData(), static_cast<size_t>(m_texte.size()));
        return bloc;
    }

private:
    QByteArray m_texte;
    std::vector<uint32_t> m_debuts;
};

} // namespace

QString Cellule::Texte() const
{
    if (!existe)
        return QString();
    return codage == Codage::Utf8 ? PageDeCode::DeUtf8(octets()) : PageDeCode::VersTexte(octets());
}

bool Cellule::EstAscii() const
{
    return std::none_of(debut, debut + taille, [](char c) { return c & 0x80; });
}

void Cellule::AjouterEnUtf8(QByteArray& sortie) const
{
    if (!existe)
        return;
    if (codage == Codage::Cp1252)
        PageDeCode::AjouterEnUtf8(sortie, octets());
    else if (QByteArray::fromRawData(debut, static_cast<qsizetype>(taille)).isValidUtf8())
        sortie.append(debut, static_cast<qsizetype>(taille));
    else
        sortie.append(Texte().toUtf8()); // a file may hold anything
}

/// The "|" that ends the field at hand; null where none does.
const char* EntreeStockee::ChercherBarre() const
{
    return static_cast<const char*>(
        std::memchr(m_octets + m_place.debut, '|', static_cast<size_t>(m_longueur - m_place.debut)));
}

/// False when there is no such field: the last one is at hand then.
bool EntreeStockee::AllerAu(int champ) const
{
    if (champ < m_place.champ - champ)
        m_place = {}; // nearer from the left end
    while (m_place.champ > champ) {
        const void* barre = memrchr(m_octets, '|', m_place.debut - 1);
        m_place = {m_place.champ - 1,
                   barre ? static_cast<uint32_t>(static_cast<const char*>(barre) - m_octets) + 1 : 0};
    }
    while (m_place.champ < champ && !m_place.dernier) {
        const char* barre = ChercherBarre();
        m_place.dernier = !barre;
        if (barre)
            m_place = {m_place.champ + 1, static_cast<uint32_t>(barre - m_octets) + 1};
    }
    return m_place.champ == champ;
}

Cellule EntreeStockee::ChampDeTranche(int champ) const
{
    if (!AllerAu(champ))
        return {};
    const char* barre = m_place.dernier ? nullptr : ChercherBarre();
    m_place.dernier = !barre;
    const auto fin = barre ? static_cast<uint32_t>(barre - m_octets) : m_longueur;
    return {m_octets + m_place.debut, fin - m_place.debut, m_codage, true};
}

Cellule EntreeStockee::Champ(int cellule) const
{
    if (cellule < 0)
        return {};
    if (EstTranche()) {
        // The first cell is there also in a file without columns.
        if (cellule > 0 && cellule >= m_colonnes)
            return {};
        return ChampDeTranche(cellule);
    }
    if (static_cast<uint32_t>(cellule) >= NombreDeCellules(m_octets))
        return {};
    return ChampDeBloc(m_octets, static_cast<uint32_t>(cellule));
}

Cellule EntreeStockee::Image() const
{
    if (EstTranche())
        return ChampDeTranche(m_colonnes);
    return ChampDeBloc(m_octets, NombreDeCellules(m_octets));
}

int EntreeStockee::Places() const
{
    return EstTranche() ? std::max(1, m_colonnes) : static_cast<int>(NombreDeCellules(m_octets));
}

Rangee EntreeStockee::Lire() const
{
    Rangee rangee;
    const int nombre = Places();
    rangee.cellules.reserve(static_cast<size_t>(std::min(nombre, ColonnesUsuelles))); // a file may claim any number
    for (int i = 0; i < nombre; ++i) {
        const Cellule cellule = Champ(i);
        if (EstTranche() && !cellule.existe)
            break; // the fields behind are missing too
        rangee.cellules.push_back(cellule.existe ? std::optional<QString>(cellule.Texte()) : std::nullopt);
    }
    rangee.image = Image().Texte();
    return rangee;
}

Cellule EntreeStockee::LireTranche(std::vector<Cellule>& cellules) const
{
    const char* debut = m_octets;
    const char* const fin = m_octets + m_longueur;
    const int nombre = std::max(1, m_colonnes);
    for (int i = 0;; ++i) {
        const auto* barre = static_cast<const char*>(std::memchr(debut, '|', static_cast<size_t>(fin - debut)));
        const Cellule champ{debut, static_cast<uint32_t>((barre ? barre : fin) - debut), m_codage, true};
        if (i < nombre)
            cellules.push_back(champ);
        if (i == m_colonnes)
            return champ;
        if (!barre)
            return {};
        debut = barre + 1;
    }
}

Cellule EntreeStockee::LireSurPlace(std::vector<Cellule>& cellules) const
{
    cellules.clear();
    if (EstTranche())
        return LireTranche(cellules);
    const uint32_t nombre = NombreDeCellules(m_octets);
    for (uint32_t i = 0; i < nombre; ++i)
        cellules.push_back(ChampDeBloc(m_octets, i));
    while (!cellules.empty() && !cellules.back().existe)
        cellules.pop_back();
    return Image();
}

char* NouveauBloc(const Rangee& rangee)
{
    Ebauche ebauche(rangee.cellules.size());
    for (const std::optional<QString>& cellule : rangee.cellules) {
        if (cellule)
            ebauche.Ajouter(cellule->toUtf8());
        else
            ebauche.Sauter();
    }
    return ebauche.Finir(rangee.image.toUtf8());
}

char* BlocAvecCellule(const EntreeStockee& entree, int cellule, QByteArrayView utf8)
{
    const int nombre = entree.Places();
    if (!entree.EstTranche() && cellule < nombre)
        return CopieAvecCellule(entree.Bloc(), static_cast<uint32_t>(cellule), utf8);
    Ebauche ebauche(static_cast<size_t>(std::min(std::max(nombre, cellule + 1), ColonnesUsuelles)));
    QByteArray texte;
    texte.reserve(OctetsUsuels);
    bool aLaFin = false; // the fields behind are missing too, and get no place
    for (int i = 0; i < nombre || i <= cellule; ++i) {
        const Cellule la = aLaFin || i >= nombre ? Cellule() : entree.Champ(i);
        aLaFin = aLaFin || (entree.EstTranche() && !la.existe);
        if (aLaFin && i > cellule)
            break;
        if (i == cellule) {
            ebauche.Ajouter(utf8);
        } else if (la.existe) {
            texte.resize(0);
            la.AjouterEnUtf8(texte);
            ebauche.Ajouter(texte);
        } else {
            ebauche.Sauter();
        }
    }
    texte.resize(0);
    entree.Image().AjouterEnUtf8(texte);
    return ebauche.Finir(texte);
}

char* NouveauBloc(std::span<const Cellule> cellules, const Cellule& image)
{
    Ebauche ebauche(cellules.size());
    for (const Cellule& cellule : cellules)
        ebauche.Ajouter(cellule);
    return ebauche.Finir(image);
}

void LibererBloc(char* bloc)
{
    std::free(bloc);
}

size_t TailleBloc(const char* bloc)
{
    const uint32_t nombre = NombreDeCellules(bloc);
    return TailleEntete(nombre) + Debut(bloc, nombre + 1);
}

} // namespace stockage
