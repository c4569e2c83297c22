#include "TexteUtf8.h"

#include <QLatin1StringView>

#include <cstring>

namespace {

constexpr char32_t Remplacement = 0xFFFD;

/// Writes into room that was made ahead, at most `ParUnite` bytes for each unit of UTF-16.
class Plume
{
public:
    static constexpr qsizetype ParUnite = 6;

    Plume(QByteArray& sortie, qsizetype unites) : m_sortie(sortie)
    {
        const qsizetype debut = sortie.size();
        sortie.resize(debut + unites * ParUnite);
        m_place = sortie.data() + debut;
    }
    ~Plume() { m_sortie.truncate(m_place - m_sortie.constData()); }
    Plume(const Plume&) = delete;
    Plume& operator=(const Plume&) = delete;

    void Octet(char32_t octet) { *m_place++ = static_cast<char>(octet); }
    void Texte(QLatin1StringView texte)
    {
        std::memcpy(m_place, texte.data(), static_cast<size_t>(texte.size()));
        m_place += texte.size();
    }
    /// A character from U+0080 on.
    void Caractere(char32_t c)
    {
        if (c < 0x800) {
            Octet(0xC0U | (c >> 6U));
        } else if (c < 0x10000) {
            Octet(0xE0U | (c >> 12U));
            Octet(0x80U | ((c >> 6U) & 0x3FU));
        } else {
            Octet(0xF0U | (c >> 18U));
            Octet(0x80U | ((c >> 12U) & 0x3FU));
            Octet(0x80U | ((c >> 6U) & 0x3FU));
        }
        Octet(0x80U | (c & 0x3FU));
    }
    /// "\uXXXX"
    void Echappement(char16_t unite)
    {
        Texte(QLatin1StringView("\\u"));
        for (unsigned decalage = 12; decalage <= 12; decalage -= 4)
            Octet(static_cast<unsigned char>("0123456789abcdef"[(unite >> decalage) & 0xFU]));
    }

private:
    QByteArray& m_sortie;
    char* m_place;
};

bool EstPaire(QStringView texte, qsizetype i)
{
    return texte[i].isHighSurrogate() && i + 1 < texte.size() && texte[i + 1].isLowSurrogate();
}

/// The letter behind the backslash of those that have one; 0 for others.
char LettreJson(char16_t c)
{
    switch (c) {
    case u'"':
    case u'\\':
        return static_cast<char>(c);
    case u'\b':
        return 'b';
    case u'\f':
        return 'f';
    case u'\n':
        return 'n';
    case u'\r':
        return 'r';
    case u'\t':
        return 't';
    default:
        return 0;
    }
}

void EchapperJson(Plume& plume, char16_t c)
{
    if (const char lettre = LettreJson(c)) {
        plume.Octet('\\');
        plume.Octet(static_cast<unsigned char>(lettre));
    } else {
        plume.Echappement(c);
    }
}

/// One character other than a letter of ASCII; how many units it took.
int CaractereXml(Plume& plume, QStringView texte, qsizetype i)
{
    const char16_t c = texte[i].unicode();
    if (EstPaire(texte, i)) {
        plume.Caractere(QChar::surrogateToUcs4(c, texte[i + 1].unicode()));
        return 2;
    }
    switch (c) {
    case u'&':
        plume.Texte(QLatin1StringView("&amp;"));
        break;
    case u'<':
        plume.Texte(QLatin1StringView("&lt;"));
        break;
    case u'>':
        plume.Texte(QLatin1StringView("&gt;"));
        break;
    case u'"':
        plume.Texte(QLatin1StringView("&quot;"));
        break;
    default:
        plume.Caractere(c < 0x20 || QChar::isSurrogate(c) || c >= 0xFFFE ? Remplacement : c);
    }
    return 1;
}

bool EstOrdinaire(char16_t c)
{
    return c >= 0x20 && c < 0x80 && c != u'&' && c != u'<' && c != u'>' && c != u'"';
}

constexpr QByteArrayView DebutDeParagraphe("<text:p>");
constexpr QByteArrayView FinDeParagraphe("</text:p>");

/// Whether the paragraph holds the text as it is, a byte for each unit: so it is with most cells of most tables.
bool EstSimple(QStringView texte)
{
    char16_t avant = u' ';
    for (const QChar c : texte) {
        if (!EstOrdinaire(c.unicode()) || (c == u' ' && avant == u' '))
            return false;
        avant = c.unicode();
    }
    return avant != u' ' || texte.isEmpty();
}

void AjouterBlancs(QByteArray& sortie, qsizetype nombre)
{
    if (nombre == 1)
        sortie += "<text:s/>";
    else if (nombre > 1)
        sortie += "<text:s text:c=\"" + QByteArray::number(nombre) + "\"/>";
}

/// One line of a cell: the first of several blanks between words may stand as it is.
void AjouterLigne(QByteArray& sortie, QStringView ligne)
{
    qsizetype debut = 0;
    for (qsizetype i = 0; i < ligne.size();) {
        if (ligne[i] == u'\t') {
            AjouterXml(sortie, ligne.sliced(debut, i - debut));
            sortie += "<text:tab/>";
            debut = ++i;
            continue;
        }
        qsizetype fin = i;
        while (fin < ligne.size() && ligne[fin] == u' ')
            ++fin;
        if (fin == i) {
            ++i;
            continue;
        }
        const bool entreMots = i > debut && fin < ligne.size();
        if (!entreMots || fin - i > 1) {
            AjouterXml(sortie, ligne.sliced(debut, i - debut + (entreMots ? 1 : 0)));
            AjouterBlancs(sortie, fin - i - (entreMots ? 1 : 0));
            debut = fin;
        }
        i = fin;
    }
    AjouterXml(sortie, ligne.sliced(debut));
}

void AjouterLignes(QByteArray& sortie, QStringView texte)
{
    qsizetype debut = 0;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        if (texte[i] != u'\n' && texte[i] != u'\r')
            continue;
        AjouterLigne(sortie, texte.sliced(debut, i - debut));
        sortie += FinDeParagraphe;
        sortie += DebutDeParagraphe;
        if (texte[i] == u'\r' && i + 1 < texte.size() && texte[i + 1] == u'\n')
            ++i;
        debut = i + 1;
    }
    AjouterLigne(sortie, texte.sliced(debut));
}

} // namespace

void AjouterJson(QByteArray& sortie, QStringView texte)
{
    Plume plume(sortie, texte.size() + 1);
    plume.Octet('"');
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const char16_t c = texte[i].unicode();
        if (c >= 0x20 && c < 0x7F && c != u'"' && c != u'\\') {
            plume.Octet(c);
        } else if (EstPaire(texte, i)) {
            plume.Caractere(QChar::surrogateToUcs4(c, texte[i + 1].unicode()));
            ++i;
        } else if (c < 0xA0 || QChar::isSurrogate(c) || c == 0x2028 || c == 0x2029) {
            EchapperJson(plume, c);
        } else {
            plume.Caractere(c);
        }
    }
    plume.Octet('"');
}

void AjouterXml(QByteArray& sortie, QStringView texte)
{
    Plume plume(sortie, texte.size());
    for (qsizetype i = 0; i < texte.size();) {
        const char16_t c = texte[i].unicode();
        if (EstOrdinaire(c)) {
            plume.Octet(c);
            ++i;
        } else {
            i += CaractereXml(plume, texte, i);
        }
    }
}

void AjouterParagraphes(QByteArray& sortie, QStringView texte)
{
    sortie += DebutDeParagraphe;
    if (EstSimple(texte)) {
        Plume plume(sortie, texte.size());
        for (const QChar c : texte)
            plume.Octet(c.unicode());
    } else {
        AjouterLignes(sortie, texte);
    }
    sortie += FinDeParagraphe;
}

qsizetype OctetsDesParagraphes(QStringView texte)
{
    if (EstSimple(texte))
        return DebutDeParagraphe.size() + texte.size() + FinDeParagraphe.size();
    QByteArray sortie;
    AjouterParagraphes(sortie, texte);
    return sortie.size();
}
