// The values of one column, each once, and which of them are nearly equal.
//
// Two values within their typing errors share a piece: one of them less a letter is the other less a letter, or, where
// two errors are allowed, their beginnings or their ends do so. Values are therefore compared only with those that
// share such a piece. Where very many do, each is compared with its neighbours in alphabetic order alone, and a value
// that has many near ones keeps the first of them: so the work grows with the values, not with their square, and in
// such crowds some are missed.
#pragma once

#include "Forme.h"
#include "Regroupeur.h"

#include <span>
#include <vector>

class Suivi;

class ValeursProches
{
public:
    explicit ValeursProches(const Hachage& hachage) : m_hachage(&hachage) {}

    /// The number of a value: 0, 1, 2 ... Values that differ in nothing that is compared have the same number.
    uint32_t Numero(QStringView texte);
    uint32_t Count() const { return m_regroupeur.Count(); }

    /// Finds the near ones of all values, and forgets their texts. False when it was given up: `fait` to `fait` + 1 of
    /// `total` steps of the whole work are its part.
    bool Comparer(Suivi& suivi, double fait, double total);
    /// The numbers of the values near to that one; after Comparer.
    std::span<const uint32_t> Voisins(uint32_t numero) const;

    static constexpr size_t VoisinsMax = 32; ///< of one value
    static constexpr size_t FouleMax = 48;   ///< of values that share a piece, and are all compared with each other
    static constexpr size_t Fenetre = 16;    ///< of those that follow in a larger crowd

private:
    struct Texte
    {
        size_t debut;
        uint16_t suite;   ///< its length; 0 for one that has no errors to look for
        uint16_t triee;   ///< 0: as `suite`
        uint64_t nombres; ///< a hash
    };
    /// A piece of a value's text: all of it, its first or its last letters, whole or less one letter.
    struct Morceau
    {
        uint64_t hache;
        uint32_t numero;
        uint8_t fin;     ///< counted from the end
        uint8_t trie;    ///< of the sorted text
        uint8_t ampute;  ///< less a letter
        uint8_t lettres; ///< before that
    };
    class Decoupeur;

    std::u16string_view Suite(uint32_t numero) const;
    std::u16string_view Triee(uint32_t numero) const;
    std::u16string_view Fragment(const Morceau& morceau) const;
    size_t NombreDeMorceaux() const;
    void Rapprocher(std::vector<Morceau>& morceaux);
    void RapprocherFoule(std::span<Morceau> foule);
    void RapprocherDeux(const Morceau& un, const Morceau& deux);
    bool SontProches(uint32_t un, uint32_t deux) const;

    const Hachage* m_hachage;
    Regroupeur m_regroupeur;
    std::u16string m_lettres;
    std::vector<Texte> m_textes;
    std::vector<std::vector<uint32_t>> m_voisins;
};
