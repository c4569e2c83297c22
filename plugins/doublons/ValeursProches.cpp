#include "ValeursProches.h"

#include "Suivi.h"

#include <algorithm>
#include <array>

namespace {

/// From this length on the ends are looked at instead of the whole.
constexpr size_t EnDeux = AvecDeux;
constexpr size_t EnFaute = AvecFaute;
/// Pieces that are sorted together: 64 MB of them.
constexpr size_t MorceauxEnsemble = 4 << 20;
/// Values between two words about how far it has come.
constexpr uint32_t Pas = 4096;

/// How many letters are taken from either end of texts of `de` to `a` letters. Two texts that are near differ by two
/// letters in length at most, so that they have one of these in common; the ends of a text do not overlap.
struct Bout
{
    size_t lettres;
    size_t de;
    size_t a;
};
constexpr Bout Bouts[] = {{8, EnDeux, 21}, {10, 20, 29}, {14, 28, static_cast<size_t>(LongueurMax)}};

size_t MorceauxDuneForme(size_t n)
{
    size_t nombre = n >= EnFaute && n <= EnDeux ? n + 1 : 1;
    for (const Bout& bout : Bouts)
        nombre += n >= bout.de && n <= bout.a ? 2 * (bout.lettres + 1) : 0;
    return nombre;
}

} // namespace

/// Makes the pieces whose hash belongs to one of `parts` parts.
class ValeursProches::Decoupeur
{
public:
    Decoupeur(uint64_t base, size_t parts, std::vector<Morceau>& morceaux)
        : m_base(base | 1), m_parts(parts), m_morceaux(morceaux)
    {
        m_puissances[0] = 1;
        for (size_t i = 1; i < m_puissances.size(); ++i)
            m_puissances[i] = m_puissances[i - 1] * m_base;
    }
    void Choisir(size_t part) { m_part = part; }

    void Decouper(uint32_t numero, std::u16string_view texte, bool trie, uint64_t nombres)
    {
        m_modele = {0, numero, 0, static_cast<uint8_t>(trie), 0, 0};
        m_nombres = nombres;
        m_prefixes[0] = 0;
        for (size_t i = 0; i < texte.size(); ++i)
            m_prefixes[i + 1] = m_prefixes[i] * m_base + texte[i] + 1;
        const size_t n = texte.size();
        Emettre(0, n, 0, n >= EnFaute && n <= EnDeux);
        for (const Bout& bout : Bouts) {
            if (n < bout.de || n > bout.a)
                continue;
            Emettre(0, bout.lettres, 1, true);
            Emettre(n - bout.lettres, n, 2, true);
        }
    }

private:
    uint64_t Hache(size_t i, size_t j) const { return m_prefixes[j] - m_prefixes[i] * m_puissances[j - i]; }

    /// The piece from `i` to `j`, and those less one letter.
    void Emettre(size_t i, size_t j, uint64_t genre, bool amputes)
    {
        m_modele.fin = static_cast<uint8_t>(genre == 2);
        m_modele.lettres = static_cast<uint8_t>(j - i);
        // A whole that lacks a letter meets one that lacks none; ends of one length meet each other.
        const uint64_t sel = Hachage::Melanger(m_nombres + genre * 1024 + (genre == 0 ? 0 : j - i));
        m_modele.ampute = 0;
        Garder(Hachage::Melanger(Hache(i, j) ^ sel));
        if (!amputes)
            return;
        m_modele.ampute = 1;
        const uint64_t selAmpute = genre == 0 ? sel : ~sel;
        for (size_t p = i; p < j; ++p)
            Garder(Hachage::Melanger((Hache(i, p) * m_puissances[j - p - 1] + Hache(p + 1, j)) ^ selAmpute));
    }
    void Garder(uint64_t hache)
    {
        if (hache % m_parts != m_part)
            return;
        m_modele.hache = hache;
        m_morceaux.push_back(m_modele);
    }

    uint64_t m_base;
    size_t m_parts;
    size_t m_part = 0;
    std::vector<Morceau>& m_morceaux;
    std::array<uint64_t, LongueurMax + 1> m_puissances{};
    std::array<uint64_t, LongueurMax + 1> m_prefixes{};
    Morceau m_modele{};
    uint64_t m_nombres = 0;
};

uint32_t ValeursProches::Numero(QStringView texte)
{
    const Forme forme = FormeDe(texte);
    const auto hacher = [this](const std::u16string& t) {
        return m_hachage->De(t.data(), t.size() * sizeof(char16_t));
    };
    const Empreinte nombres = hacher(forme.nombres);
    const uint32_t numero = m_regroupeur.Numero(Hachage::Joindre(hacher(forme.triee), nombres));
    if (numero < m_textes.size())
        return numero;
    Texte place{m_lettres.size(), 0, 0, nombres.a};
    if (forme.suite.size() <= static_cast<size_t>(LongueurMax)) {
        place.suite = static_cast<uint16_t>(forme.suite.size());
        m_lettres += forme.suite;
        if (forme.triee != forme.suite) {
            place.triee = place.suite;
            m_lettres += forme.triee;
        }
    }
    m_textes.push_back(place);
    return numero;
}

bool ValeursProches::Comparer(Suivi& suivi, double fait, double total)
{
    m_voisins.assign(m_textes.size(), {});
    const size_t parts = NombreDeMorceaux() / MorceauxEnsemble + 1;
    std::vector<Morceau> morceaux;
    Decoupeur decoupeur(m_hachage->Graine(), parts, morceaux);
    for (size_t part = 0; part < parts; ++part) {
        morceaux.clear();
        decoupeur.Choisir(part);
        for (uint32_t numero = 0; numero < Count(); ++numero) {
            if (numero % Pas == 0 &&
                !suivi.Avancer(fait + (double(part) + double(numero) / Count()) / double(parts), total))
                return false;
            const Texte& texte = m_textes[numero];
            if (texte.suite > 0)
                decoupeur.Decouper(numero, Suite(numero), false, texte.nombres);
            if (texte.triee > 0)
                decoupeur.Decouper(numero, Triee(numero), true, texte.nombres);
        }
        Rapprocher(morceaux);
    }
    m_textes = {};
    m_lettres = {};
    return true;
}

std::span<const uint32_t> ValeursProches::Voisins(uint32_t numero) const
{
    return m_voisins[numero];
}

std::u16string_view ValeursProches::Suite(uint32_t numero) const
{
    const Texte& texte = m_textes[numero];
    return std::u16string_view(m_lettres).substr(texte.debut, texte.suite);
}

std::u16string_view ValeursProches::Triee(uint32_t numero) const
{
    const Texte& texte = m_textes[numero];
    return texte.triee == 0 ? Suite(numero)
                            : std::u16string_view(m_lettres).substr(texte.debut + texte.suite, texte.triee);
}

std::u16string_view ValeursProches::Fragment(const Morceau& morceau) const
{
    const std::u16string_view texte = morceau.trie ? Triee(morceau.numero) : Suite(morceau.numero);
    return morceau.fin ? texte.substr(texte.size() - morceau.lettres) : texte.substr(0, morceau.lettres);
}

size_t ValeursProches::NombreDeMorceaux() const
{
    size_t nombre = 0;
    for (const Texte& texte : m_textes)
        nombre += MorceauxDuneForme(texte.suite) + (texte.triee > 0 ? MorceauxDuneForme(texte.triee) : 0);
    return nombre;
}

void ValeursProches::Rapprocher(std::vector<Morceau>& morceaux)
{
    std::sort(morceaux.begin(), morceaux.end(), [](const Morceau& un, const Morceau& deux) {
        return un.hache != deux.hache ? un.hache < deux.hache : un.numero < deux.numero;
    });
    // "aa" less either letter is the same piece of one value.
    const auto meme = [](const Morceau& un, const Morceau& deux) {
        return un.hache == deux.hache && un.numero == deux.numero;
    };
    morceaux.erase(std::unique(morceaux.begin(), morceaux.end(), meme), morceaux.end());
    for (size_t debut = 0; debut < morceaux.size();) {
        size_t fin = debut + 1;
        while (fin < morceaux.size() && morceaux[fin].hache == morceaux[debut].hache)
            ++fin;
        const std::span<Morceau> ensemble(&morceaux[debut], fin - debut);
        if (ensemble.size() > FouleMax) {
            RapprocherFoule(ensemble);
        } else {
            for (size_t i = 0; i < ensemble.size(); ++i) {
                for (size_t j = i + 1; j < ensemble.size(); ++j)
                    RapprocherDeux(ensemble[i], ensemble[j]);
            }
        }
        debut = fin;
    }
}

void ValeursProches::RapprocherFoule(std::span<Morceau> foule)
{
    size_t fenetre = 2; // most of them share a whole piece, too
    if (!foule.front().ampute) {
        fenetre = Fenetre;
        std::sort(foule.begin(), foule.end(), [this](const Morceau& un, const Morceau& deux) {
            const std::u16string_view a = un.trie ? Triee(un.numero) : Suite(un.numero);
            const std::u16string_view b = deux.trie ? Triee(deux.numero) : Suite(deux.numero);
            // From the side that they do not share.
            return un.fin ? std::lexicographical_compare(a.rbegin(), a.rend(), b.rbegin(), b.rend()) : a < b;
        });
    }
    for (size_t i = 0; i < foule.size(); ++i) {
        for (size_t j = i + 1; j < std::min(foule.size(), i + 1 + fenetre); ++j)
            RapprocherDeux(foule[i], foule[j]);
    }
}

void ValeursProches::RapprocherDeux(const Morceau& un, const Morceau& deux)
{
    std::vector<uint32_t>& voisinsUn = m_voisins[un.numero];
    std::vector<uint32_t>& voisinsDeux = m_voisins[deux.numero];
    if (un.numero == deux.numero || voisinsUn.size() >= VoisinsMax || voisinsDeux.size() >= VoisinsMax)
        return;
    // They meet by the piece with its letter, and need not by each one without.
    if (un.ampute && deux.ampute && Fragment(un) == Fragment(deux))
        return;
    if (std::find(voisinsUn.begin(), voisinsUn.end(), deux.numero) != voisinsUn.end() ||
        !SontProches(un.numero, deux.numero))
        return;
    voisinsUn.push_back(deux.numero);
    voisinsDeux.push_back(un.numero);
}

bool ValeursProches::SontProches(uint32_t un, uint32_t deux) const
{
    if (m_textes[un].nombres != m_textes[deux].nombres)
        return false;
    const int fautes = FautesPermises(m_textes[un].suite, m_textes[deux].suite);
    return AFautesPres(Suite(un), Suite(deux), fautes) || AFautesPres(Triee(un), Triee(deux), fautes);
}
