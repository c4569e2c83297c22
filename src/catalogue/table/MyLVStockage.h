// How the table keeps its entries: slices of the file's bytes and blocks of edited entries. For the table, the reader,
// the writer and scans that go over all entries; everybody else uses MyLV.h.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace stockage {

/// The encoding of an entry's bytes.
enum class Codage : uint8_t { Cp1252, Utf8 };

/// Flags of an entry, one byte.
enum Drapeau : uint8_t {
    Choisie = 1,
    IconeBit0 = 2, // two bits: see Icone
    IconeBit1 = 4,
    EnBloc = 8,     // edited: the reference is a block of its own
    Reguliere = 16, // a slice with exactly as many "|" as the source has columns: it can be written as it stands
    Vivante = 32,
};

/// The row's marker.
enum class Icone : uint8_t { Aucune = 0, NoIco = 1, Ico = 2, IcoError = 3 };

inline Icone IconeDe(uint8_t drapeaux)
{
    return static_cast<Icone>((drapeaux >> 1) & 3);
}
inline uint8_t AvecIcone(uint8_t drapeaux, Icone icone)
{
    return static_cast<uint8_t>((drapeaux & ~(IconeBit0 | IconeBit1)) | (static_cast<uint8_t>(icone) << 1));
}

/// The bytes that slices point into: the catalogue text as it was read. Tables with slices of one text share its bytes,
/// which nobody writes any more.
struct Source
{
    std::shared_ptr<char[]> octets;
    size_t taille = 0;
    Codage codage = Codage::Cp1252;
    int colonnes = 0; ///< field number of the image in a slice, and number of its cells
};

/// Slices in file order. A slice is what stands behind "=" in an entry's line: fields separated by "|".
struct Lignes
{
    std::vector<uint64_t> debuts;
    std::vector<uint32_t> longueurs;
    std::vector<uint8_t> drapeaux;
    std::vector<uint32_t> cles = {}; ///< numbers of the keys "k1" ..., no two alike; none: from 1 on
};

/// One field's bytes. `existe` is false for a cell that was never written.
struct Cellule
{
    const char* debut = nullptr;
    uint32_t taille = 0;
    Codage codage = Codage::Cp1252;
    bool existe = false;

    QByteArrayView octets() const { return QByteArrayView(debut, static_cast<qsizetype>(taille)); }
    QString Texte() const;
    /// Whether its bytes are the same in every encoding.
    bool EstAscii() const;
    /// Appends what Texte().toUtf8() would give, without the text in between.
    void AjouterEnUtf8(QByteArray& sortie) const;
};

/// The cells of an edited entry: written ones hold a text. The image is kept beside them.
struct Rangee
{
    std::vector<std::optional<QString>> cellules;
    QString image;
};

/// A field of a slice that was found, from which others are looked for.
struct Place
{
    int champ = 0;
    uint32_t debut = 0;   ///< where it begins
    bool dernier = false; ///< no field stands behind it
};

/// Reads an entry where it is stored. Field after field, from the left or from the right, costs one look at each byte,
/// however many there are: the reader remembers where it is.
class EntreeStockee
{
public:
    /// `place`: what an earlier reader of the same slice remembered.
    EntreeStockee(const char* octets, uint32_t longueur, Codage codage, int colonnes, uint8_t drapeaux,
                  Place place = {})
        : m_octets(octets), m_longueur(longueur), m_codage(codage), m_colonnes(colonnes), m_drapeaux(drapeaux),
          m_place(place)
    {
    }

    bool EstTranche() const { return !(m_drapeaux & EnBloc); }
    bool EstReguliere() const { return m_drapeaux & Reguliere; }
    uint8_t Drapeaux() const { return m_drapeaux; }
    /// The bytes of a slice, all its fields.
    QByteArrayView Tranche() const { return QByteArrayView(m_octets, static_cast<qsizetype>(m_longueur)); }
    /// The same, to be decoded as one: all fields and the "|" between them.
    Cellule ToutesEnUne() const { return {m_octets, m_longueur, m_codage, true}; }
    /// Cell 0 to ...; one that is not there does not exist.
    Cellule Champ(int cellule) const;
    /// The image name.
    Cellule Image() const;
    /// All cells there are room for, and the image.
    Rangee Lire() const;
    /// The block of an entry that is no slice.
    const char* Bloc() const { return m_octets; }
    /// How many cells Lire reads at most.
    int Places() const;
    /// The same cells where they lie, up to the last one written, in place of what `cellules` holds; returns the image.
    Cellule LireSurPlace(std::vector<Cellule>& cellules) const;

    /// For the next reader of this slice.
    Place PlaceLue() const { return m_place; }

private:
    Cellule ChampDeTranche(int champ) const;
    Cellule LireTranche(std::vector<Cellule>& cellules) const;
    bool AllerAu(int champ) const;
    const char* ChercherBarre() const;

    const char* m_octets;
    uint32_t m_longueur;
    Codage m_codage;
    int m_colonnes;
    uint8_t m_drapeaux;
    mutable Place m_place;
};

/// Blocks of edited entries: one allocation an entry, UTF-8 inside.
char* NouveauBloc(const Rangee& rangee);
/// The block of the entry with another text, in UTF-8, in one cell. Cheap: no text of the others is decoded.
char* BlocAvecCellule(const EntreeStockee& entree, int cellule, QByteArrayView utf8);
char* NouveauBloc(std::span<const Cellule> cellules, const Cellule& image);
void LibererBloc(char* bloc);
size_t TailleBloc(const char* bloc);

} // namespace stockage
