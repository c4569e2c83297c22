#include "search/Aiguille.h"

#include "platform/PageDeCode.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

using stockage::Codage;

namespace {

// So many bytes of a text to be found are compared at each place: a longer one costs no more than that.
constexpr qsizetype TeteAuPlus = 32;

using Table = std::array<uchar, 256>;

/// Each byte of the code page in lower case; in upper case where `enCapitale`. A character whose other case the code
/// page lacks stays.
Table FaireTable(UChar32 (*casse)(UChar32))
{
    Table table{};
    for (int octet = 0; octet < 256; ++octet) {
        const UChar32 autre = casse(PageDeCode::TableVersUnicode()[static_cast<size_t>(octet)]);
        const int octetAutre = autre < 0x10000 ? PageDeCode::OctetDe(static_cast<char16_t>(autre)) : -1;
        table[static_cast<size_t>(octet)] = static_cast<uchar>(octetAutre >= 0 ? octetAutre : octet);
    }
    return table;
}

const Table& Minuscules()
{
    static const Table table = FaireTable(u_tolower);
    return table;
}

const Table& Capitales()
{
    static const Table table = FaireTable(u_toupper);
    return table;
}

void ReplierUtf8(QByteArrayView texte, QByteArray& replie)
{
    constexpr qsizetype plusLong = 4;
    replie.resize(texte.size() * plusLong);
    const auto* const octets = reinterpret_cast<const uint8_t*>(texte.data());
    auto* sortie = reinterpret_cast<uint8_t*>(replie.data());
    const size_t taille = static_cast<size_t>(texte.size());
    const Table& minuscules = Minuscules();
    size_t ecrits = 0;
    for (size_t i = 0; i < taille;) {
        if (octets[i] < 0x80) {
            sortie[ecrits++] = minuscules[octets[i++]];
            continue;
        }
        UChar32 code = 0;
        U8_NEXT_OR_FFFD(octets, i, taille, code);
        code = u_foldCase(code, U_FOLD_CASE_DEFAULT);
        U8_APPEND_UNSAFE(sortie, ecrits, code);
    }
    replie.truncate(static_cast<qsizetype>(ecrits));
}

// Sixteen bytes at a time, on any processor that compilers know such registers of.
using Seize = uint8_t __attribute__((vector_size(16)));

Seize Charger(const char* octets)
{
    Seize seize;
    std::memcpy(&seize, octets, sizeof seize);
    return seize;
}

bool AucunVrai(const Seize& seize)
{
    uint64_t moities[2];
    std::memcpy(moities, &seize, sizeof moities);
    return (moities[0] | moities[1]) == 0;
}

/// One byte in both cases.
struct DeuxCasses
{
    explicit DeuxCasses(char replie)
        : minuscule(Seize{} + static_cast<uchar>(replie)), capitale(Seize{} + Capitales()[static_cast<uchar>(replie)])
    {
    }
    auto Sont(const Seize& seize) const { return (seize == minuscule) | (seize == capitale); }

    Seize minuscule;
    Seize capitale;
};

} // namespace

Aiguille::Aiguille(const QString& texte, Codage codage) : m_codage(codage)
{
    const bool possible = codage == Codage::Utf8 ? texte.isValidUtf16() : PageDeCode::EstRepresentable(texte);
    if (possible)
        Replier(codage == Codage::Utf8 ? texte.toUtf8() : PageDeCode::VersOctets(texte), m_repliee);
    m_tete = std::min(m_repliee.size(), TeteAuPlus);
    m_rares = {0, std::max<qsizetype>(m_tete - 1, 0)};
}

bool Aiguille::EstDans(QByteArrayView replie) const
{
    // memmem takes one pass, whatever both texts are.
    return replie.size() >= m_repliee.size() && memmem(replie.data(), static_cast<size_t>(replie.size()),
                                                       m_repliee.data(), static_cast<size_t>(m_repliee.size()));
}

void Aiguille::Replier(QByteArrayView texte, QByteArray& replie) const
{
    if (m_codage == Codage::Utf8) {
        ReplierUtf8(texte, replie);
        return;
    }
    replie.resize(texte.size());
    std::transform(texte.begin(), texte.end(), replie.data(),
                   [&table = Minuscules()](char octet) { return static_cast<char>(table[static_cast<uchar>(octet)]); });
}

void Aiguille::Accorder(QByteArrayView echantillon)
{
    std::array<qsizetype, 256> nombres{};
    for (const char octet : echantillon)
        ++nombres[Minuscules()[static_cast<uchar>(octet)]];
    const auto nombre = [&](qsizetype place) { return nombres[static_cast<uchar>(m_repliee[place])]; };
    for (qsizetype place = 0; place < m_tete; ++place) {
        if (nombre(place) < nombre(m_rares[0]))
            m_rares[0] = place;
    }
    m_rares[1] = m_rares[0];
    for (qsizetype place = 0; place < m_tete; ++place) {
        const bool autre = m_repliee[place] != m_repliee[m_rares[0]];
        if (autre && (m_rares[1] == m_rares[0] || nombre(place) < nombre(m_rares[1])))
            m_rares[1] = place;
    }
}

bool Aiguille::CommenceIci(const char* place) const
{
    return std::equal(m_repliee.begin(), m_repliee.begin() + m_tete, place, [&table = Minuscules()](char a, char b) {
        return a == static_cast<char>(table[static_cast<uchar>(b)]);
    });
}

const char* Aiguille::PlacePossible(const char* debut, const char* fin) const
{
    if (m_codage == Codage::Utf8 || fin - debut < m_tete)
        return m_codage == Codage::Utf8 ? debut : fin;
    const DeuxCasses a(m_repliee[m_rares[0]]);
    const DeuxCasses b(m_repliee[m_rares[1]]);
    const char* place = debut;
    for (; fin - place >= m_tete + qsizetype(sizeof(Seize)); place += sizeof(Seize)) {
        const auto possibles = a.Sont(Charger(place + m_rares[0])) & b.Sont(Charger(place + m_rares[1]));
        if (AucunVrai(reinterpret_cast<const Seize&>(possibles)))
            continue;
        for (size_t i = 0; i < sizeof(Seize); ++i)
            if (possibles[i] && CommenceIci(place + i))
                return place + i;
    }
    for (; fin - place >= m_tete; ++place)
        if (CommenceIci(place))
            return place;
    return fin;
}
