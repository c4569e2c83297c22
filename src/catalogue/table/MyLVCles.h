// The keys of a table's entries. Part of MyLV.
#pragma once

#include <QHash>
#include <QString>

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

/// Keys by rank and ranks by key. A key "k" and a number is kept as the number; others as text. As long as every entry
/// in position n has the key "k" and n (after reading a file, after renumbering), nothing is indexed at all.
class ClesDeTable
{
public:
    /// The number in "k" and a number from 1 without leading zeros; 0 for any other key.
    static uint32_t Numero(const QString& cle);
    static QString CleDeNumero(uint32_t numero) { return QLatin1Char('k') + QString::number(numero); }

    void Vider();
    /// `nombre` entries in positions and ranks 1 to n, keys "k1" to "kn".
    void Numeroter(uint32_t nombre);
    /// Entries in positions and ranks 1 to n, with these numbers, no two alike, in their keys.
    void Prendre(std::vector<uint32_t>&& numeros);
    /// The same for entries that stand in `ordre`. Keys that are texts must be gone.
    void Renumeroter(const std::vector<uint32_t>& ordre);
    bool EstCanonique() const { return m_canonique; }
    bool ATextes() const { return !m_textes.isEmpty(); }
    /// Positions and keys go apart from now on.
    void OrdreChange() { m_canonique = false; }

    QString CleDe(uint32_t rang) const;
    /// The rank with the key; `ordre` is the display order.
    std::optional<uint32_t> Rang(const QString& cle, const std::vector<uint32_t>& ordre) const;
    /// Gives a free key to a rank. `enPosition`: the entry's position when it was just added there, else 0.
    void Donner(uint32_t rang, const QString& cle, uint32_t enPosition);
    void Oublier(uint32_t rang);

    size_t Memoire() const;

private:
    void Indexer(const std::vector<uint32_t>& ordre) const;
    void Inscrire(uint32_t numero, uint32_t rang) const;

    std::vector<uint32_t> m_numeros; // by rank; 0: none, or a text
    QHash<uint32_t, QString> m_textes;
    QHash<QString, uint32_t> m_rangParTexte;
    bool m_canonique = true;

    // Ranks by number, made when first asked for: dense for the numbers of a well-kept table, a map beyond.
    mutable bool m_indexe = false;
    mutable std::vector<uint32_t> m_rangParNumero;
    mutable std::unordered_map<uint32_t, uint32_t> m_rangLointain;
};
