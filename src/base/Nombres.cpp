#include "base/Nombres.h"

#include <QByteArray>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <system_error>

namespace {

bool EstChiffre(QChar c)
{
    return c >= u'0' && c <= u'9';
}
bool EstBlanc(QChar c)
{
    return c == u' ' || c == u'\t';
}

QStringView SansBlancs(QStringView texte)
{
    while (!texte.isEmpty() && EstBlanc(texte.front()))
        texte = texte.mid(1);
    while (!texte.isEmpty() && EstBlanc(texte.back()))
        texte.chop(1);
    return texte;
}

/// Copies what a number is made of, from left to right, into a form that every reader of the C locale takes.
class Copie
{
public:
    explicit Copie(QStringView texte) : m_texte(texte) {}

    bool AuBout() const { return m_position == m_texte.size(); }
    const QByteArray& Nombre() const { return m_nombre; }

    void Signe()
    {
        // std::from_chars takes no "+".
        if (Est(u'-'))
            m_nombre += '-';
        if (Est(u'-') || Est(u'+'))
            ++m_position;
    }

    /// Returns how many there were.
    qsizetype Chiffres()
    {
        const qsizetype debut = m_position;
        for (; !AuBout() && EstChiffre(m_texte[m_position]); ++m_position)
            m_nombre += static_cast<char>(m_texte[m_position].unicode());
        return m_position - debut;
    }

    bool Separateur(bool virguleAussi)
    {
        if (!Est(u'.') && !(virguleAussi && Est(u',')))
            return false;
        m_nombre += '.';
        ++m_position;
        return true;
    }

    bool Exposant()
    {
        if (!Est(u'e') && !Est(u'E'))
            return false;
        m_nombre += 'e';
        ++m_position;
        return true;
    }

private:
    bool Est(char16_t c) const { return !AuBout() && m_texte[m_position] == c; }

    QStringView m_texte;
    qsizetype m_position = 0;
    QByteArray m_nombre;
};

/// The whole text in the C locale's form; empty when it is no number.
QByteArray FormeC(QStringView texte)
{
    Copie copie(SansBlancs(texte));
    copie.Signe();
    qsizetype chiffres = copie.Chiffres();
    if (copie.Separateur(true))
        chiffres += copie.Chiffres();
    if (chiffres == 0)
        return QByteArray();
    if (copie.Exposant()) {
        copie.Signe();
        if (copie.Chiffres() == 0)
            return QByteArray();
    }
    return copie.AuBout() ? copie.Nombre() : QByteArray();
}

/// Whether a number in the C locale's form that does not fit is too large; it is too small otherwise. Looks at the
/// power of ten of its first digit that is not 0.
bool EstTropGrand(std::string_view forme)
{
    const size_t e = std::min(forme.find('e'), forme.size());
    const std::string_view mantisse = forme.substr(0, e);
    const auto premier = static_cast<qint64>(mantisse.find_first_of("123456789"));
    const auto point = static_cast<qint64>(std::min(mantisse.find('.'), mantisse.size()));
    const qint64 rang = point > premier ? point - premier - 1 : point - premier;
    if (e == forme.size())
        return rang >= 0;
    qint64 exposant = 0;
    const std::from_chars_result lu = std::from_chars(forme.data() + e + 1, forme.data() + forme.size(), exposant);
    return lu.ec == std::errc() ? exposant >= -rang : forme[e + 1] != '-';
}

/// Reads a number in the C locale's form: nothing when it is too large, 0 when it is too small.
template<class Flottant> std::optional<Flottant> LireFormeC(const QByteArray& forme)
{
    if (forme.isEmpty())
        return std::nullopt;
    Flottant nombre = 0;
    const std::from_chars_result lu = std::from_chars(forme.begin(), forme.end(), nombre);
    if (lu.ec == std::errc())
        return nombre;
    return EstTropGrand(std::string_view(forme.constData(), static_cast<size_t>(forme.size())))
               ? std::nullopt
               : std::optional(Flottant(0));
}

template<class Entier> std::optional<Entier> Arrondir(double nombre)
{
    // The rounding mode of the process is "nearest, halves to even" unless somebody changes it; nobody here does.
    const double rond = std::nearbyint(nombre);
    if (!(rond >= std::numeric_limits<Entier>::min() && rond <= std::numeric_limits<Entier>::max()))
        return std::nullopt;
    return static_cast<Entier>(rond);
}

template<class Entier> std::optional<Entier> VersEntier(QStringView texte)
{
    const std::optional<double> nombre = VersDouble(texte);
    return nombre ? Arrondir<Entier>(*nombre) : std::nullopt;
}

} // namespace

double Val(QStringView texte)
{
    Copie copie(SansBlancs(texte));
    copie.Signe();
    qsizetype chiffres = copie.Chiffres();
    if (copie.Separateur(false))
        chiffres += copie.Chiffres();
    if (chiffres == 0)
        return 0;
    return LireFormeC<double>(copie.Nombre()).value_or(std::numeric_limits<double>::infinity());
}

std::optional<double> VersDouble(QStringView texte)
{
    return LireFormeC<double>(FormeC(texte));
}

// Read as a float at once: by way of a double some texts would be rounded twice.
std::optional<float> VersSimple(QStringView texte)
{
    return LireFormeC<float>(FormeC(texte));
}

std::optional<int16_t> VersEntier16(QStringView texte)
{
    return VersEntier<int16_t>(texte);
}

std::optional<int32_t> VersEntier32(QStringView texte)
{
    return VersEntier<int32_t>(texte);
}

std::optional<int16_t> ArrondirEntier16(double nombre)
{
    return Arrondir<int16_t>(nombre);
}

std::optional<int32_t> ArrondirEntier32(double nombre)
{
    return Arrondir<int32_t>(nombre);
}

QString SimpleVersTexte(float nombre)
{
    if (!std::isfinite(nombre) || nombre == 0)
        return QStringLiteral("0");
    const float grandeur = std::abs(nombre);
    const bool ordinaire = grandeur >= 1e-4f && grandeur < 1e15f;
    char tampon[64];
    const std::to_chars_result ecrit =
        std::to_chars(std::begin(tampon), std::end(tampon), nombre,
                      ordinaire ? std::chars_format::fixed : std::chars_format::scientific);
    QString texte = QString::fromLatin1(tampon, ecrit.ptr - tampon);
    return texte.replace(u'.', u',').replace(u'e', u'E');
}
