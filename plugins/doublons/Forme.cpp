#include "Forme.h"

#include <QSet>
#include <QString>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Mot
{
    std::u16string texte;
    bool apres = false; ///< a comma or an opening bracket stands before it
};

/// Letters that have no accent to take away and are written in two ways all the same.
QStringView Remplacement(char16_t lettre)
{
    switch (lettre) {
    case u'œ':
        return u"oe";
    case u'æ':
        return u"ae";
    case u'ß':
        return u"ss";
    case u'ø':
        return u"o";
    case u'đ':
    case u'ð':
        return u"d";
    case u'ł':
        return u"l";
    case u'þ':
        return u"th";
    default:
        return {};
    }
}

/// "C++" and "C#" are not "C".
bool Compte(QChar c)
{
    return c.isLetterOrNumber() || c.isSurrogate() || c == u'+' || c == u'#';
}

std::vector<Mot> MotsDe(const QString& texte)
{
    std::vector<Mot> mots;
    bool dansUnMot = false;
    bool apres = false;
    for (const QChar c : texte) {
        if (c.isMark())
            continue;
        if (!Compte(c)) {
            dansUnMot = false;
            apres = apres || c == u',' || c == u'(' || c == u'[';
            continue;
        }
        if (!dansUnMot)
            mots.push_back({{}, apres});
        dansUnMot = true;
        apres = false;
        const QStringView autre = Remplacement(c.unicode());
        if (autre.isNull())
            mots.back().texte += c.unicode();
        else
            mots.back().texte.append(autre.utf16(), static_cast<size_t>(autre.size()));
    }
    return mots;
}

bool Parmi(const std::u16string& mot, std::initializer_list<std::u16string_view> liste)
{
    return std::find(liste.begin(), liste.end(), mot) != liste.end();
}

bool EstArticle(const std::u16string& mot)
{
    return mot.size() <= 4 && Parmi(mot, {u"le", u"la", u"les", u"l", u"un", u"une", u"des", u"the", u"a", u"an",
                                          u"der", u"die", u"das", u"ein", u"el", u"eine", u"los", u"las"});
}

/// Up to twenty, as the volumes of a work and the films of a series are numbered.
bool EstChiffreRomain(const std::u16string& mot)
{
    return mot.size() <= 5 && Parmi(mot, {u"ii", u"iii", u"iv", u"vi", u"vii", u"viii", u"ix", u"xi", u"xii", u"xiii",
                                          u"xiv", u"xv", u"xvi", u"xvii", u"xviii", u"xix", u"xx"});
}

void RetirerArticle(std::vector<Mot>& mots)
{
    if (mots.size() > 1 && mots.back().apres && EstArticle(mots.back().texte))
        mots.pop_back();
    else if (mots.size() > 1 && EstArticle(mots.front().texte))
        mots.erase(mots.begin());
}

std::u16string NombresDe(const std::vector<Mot>& mots)
{
    std::vector<std::u16string> nombres;
    for (const Mot& mot : mots) {
        // A letter at the end tells "Plan A" from "Plan B", and "Rocky V" from "Rocky".
        if (EstChiffreRomain(mot.texte) || (&mot == &mots.back() && mots.size() > 1 && mot.texte.size() == 1)) {
            nombres.push_back(mot.texte);
            continue;
        }
        std::u16string nombre;
        for (const char16_t c : mot.texte) {
            if (QChar(c).isDigit()) {
                nombre += static_cast<char16_t>(u'0' + QChar(c).digitValue());
            } else if (!nombre.empty()) {
                nombres.push_back(std::move(nombre));
                nombre.clear();
            }
        }
        if (!nombre.empty())
            nombres.push_back(std::move(nombre));
    }
    std::sort(nombres.begin(), nombres.end());
    std::u16string tous;
    for (const std::u16string& nombre : nombres)
        tous.append(nombre).push_back(u' ');
    return tous;
}

/// The distances between the beginnings of two texts, row by row. Only what lies close to the diagonal can stay within
/// the limit, so only that band of each row is kept.
class Bande
{
public:
    /// `a` is not longer than `b`, and both outlive the object.
    Bande(std::u16string_view a, std::u16string_view b, int fautes) : m_a(a), m_b(b), m_fautes(fautes)
    {
        m_avantDerniere.fill(Loin);
        m_derniere.fill(Loin);
        for (size_t d = Demi; d < m_derniere.size(); ++d)
            m_derniere[d] = static_cast<int>(d) - Demi;
    }

    bool EstProche()
    {
        for (int i = 1; i <= static_cast<int>(m_a.size()); ++i) {
            const Ligne ligne = LigneSuivante(i);
            if (*std::min_element(ligne.begin(), ligne.end()) > m_fautes)
                return false;
            m_avantDerniere = m_derniere;
            m_derniere = ligne;
        }
        return m_derniere[m_b.size() - m_a.size() + size_t{Demi}] <= m_fautes;
    }

private:
    static constexpr int Demi = 2;
    static constexpr int Loin = 9;
    using Ligne = std::array<int, 2 * Demi + 1>; // at [d]: the distance in column i - Demi + d

    Ligne LigneSuivante(int i) const
    {
        Ligne ligne;
        ligne.fill(Loin);
        for (size_t d = 0; d < ligne.size(); ++d) {
            const int j = i - Demi + static_cast<int>(d);
            if (j == 0)
                ligne[d] = i;
            else if (j > 0 && j <= static_cast<int>(m_b.size()))
                ligne[d] = Cout(ligne, i, j, d);
        }
        return ligne;
    }

    int Cout(const Ligne& ligne, int i, int j, size_t d) const
    {
        const char16_t ca = m_a[static_cast<size_t>(i - 1)];
        const char16_t cb = m_b[static_cast<size_t>(j - 1)];
        int cout = m_derniere[d] + (ca == cb ? 0 : 1);
        if (d + 1 < ligne.size())
            cout = std::min(cout, m_derniere[d + 1] + 1);
        if (d > 0)
            cout = std::min(cout, ligne[d - 1] + 1);
        if (i > 1 && j > 1 && ca == m_b[static_cast<size_t>(j - 2)] && cb == m_a[static_cast<size_t>(i - 2)])
            cout = std::min(cout, m_avantDerniere[d] + 1);
        return cout;
    }

    std::u16string_view m_a;
    std::u16string_view m_b;
    int m_fautes;
    Ligne m_avantDerniere;
    Ligne m_derniere;
};

} // namespace

Forme FormeDe(QStringView texte)
{
    const QString simple = texte.toString().normalized(QString::NormalizationForm_KD).toCaseFolded();
    std::vector<Mot> mots = MotsDe(simple);
    Forme forme;
    if (mots.empty()) {
        forme.suite = simple.trimmed().toStdU16String();
        forme.triee = forme.suite;
        return forme;
    }
    RetirerArticle(mots);
    forme.nombres = NombresDe(mots);
    for (const Mot& mot : mots)
        forme.suite += mot.texte;
    std::sort(mots.begin(), mots.end(), [](const Mot& a, const Mot& b) { return a.texte < b.texte; });
    for (const Mot& mot : mots)
        forme.triee += mot.texte;
    return forme;
}

int FautesPermises(qsizetype a, qsizetype b)
{
    const auto [court, grand] = std::minmax(a, b);
    if (court < AvecFaute || grand > LongueurMax)
        return 0;
    return court < AvecDeux ? 1 : 2;
}

bool AFautesPres(std::u16string_view a, std::u16string_view b, int fautes)
{
    if (a.size() > b.size())
        std::swap(a, b);
    if (b.size() - a.size() > static_cast<size_t>(fautes))
        return false;
    while (!a.empty() && a.front() == b.front()) {
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    while (!a.empty() && a.back() == b.back()) {
        a.remove_suffix(1);
        b.remove_suffix(1);
    }
    if (b.size() <= 1 || fautes == 0)
        return b.size() <= static_cast<size_t>(fautes);
    return Bande(a, b, fautes).EstProche();
}

bool PresqueEgales(const Forme& a, const Forme& b)
{
    if (a.nombres != b.nombres)
        return false;
    const int fautes = FautesPermises(static_cast<qsizetype>(a.suite.size()), static_cast<qsizetype>(b.suite.size()));
    return AFautesPres(a.suite, b.suite, fautes) || AFautesPres(a.triee, b.triee, fautes);
}
