#include "CodageCsv.h"

#include <ZelvanePlugin.h>

#include <QIODevice>

#include <algorithm>
#include <unicode/ucnv.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype Morceau = 1 << 20;
/// A text that is UTF-8 so far is taken for it; a disk is not read twice for certainty.
constexpr qint64 OctetsExamines = qint64{64} << 20;

/// The characters of the 256 bytes.
std::array<char16_t, 256> TableDe(const char* nom)
{
    std::array<char16_t, 256> table{};
    UErrorCode etat = U_ZERO_ERROR;
    UConverter* convertisseur = ucnv_open(nom, &etat);
    for (int octet = 0; octet < 256; ++octet) {
        const char source = static_cast<char>(octet);
        char16_t cible[2] = {};
        UErrorCode erreur = etat;
        const int nombre = ucnv_toUChars(convertisseur, cible, 2, &source, 1, &erreur);
        table[static_cast<size_t>(octet)] =
            U_SUCCESS(erreur) && nombre == 1 ? cible[0] : char16_t{QChar::ReplacementCharacter};
    }
    ucnv_close(convertisseur);
    return table;
}

const char* NomIcu(CodageCsv codage)
{
    switch (codage) {
    case CodageCsv::Latin9:
        return "ISO-8859-15";
    case CodageCsv::Cp850:
        return "ibm-850";
    case CodageCsv::MacRoman:
        return "macintosh";
    default:
        return "windows-1252";
    }
}

std::optional<QStringConverter::Encoding> EncodageQt(CodageCsv codage)
{
    switch (codage) {
    case CodageCsv::Utf8:
        return QStringConverter::Utf8;
    case CodageCsv::Utf16Le:
        return QStringConverter::Utf16LE;
    case CodageCsv::Utf16Be:
        return QStringConverter::Utf16BE;
    default:
        return std::nullopt;
    }
}

/// UTF-16 without a mark: every other byte of most texts is zero.
std::optional<CodageCsv> ParLesZeros(QByteArrayView octets)
{
    qsizetype zeros[2] = {};
    for (qsizetype i = 0; i < octets.size(); ++i)
        zeros[i % 2] += octets[i] == '\0' ? 1 : 0;
    const qsizetype beaucoup = octets.size() / 5;
    if (octets.size() >= 2 && zeros[1] > beaucoup && zeros[1] > 4 * zeros[0])
        return CodageCsv::Utf16Le;
    if (octets.size() >= 2 && zeros[0] > beaucoup && zeros[0] > 4 * zeros[1])
        return CodageCsv::Utf16Be;
    return std::nullopt;
}

/// The bytes up to the last character of UTF-8 that is whole.
QByteArrayView Entiers(QByteArrayView octets)
{
    for (qsizetype recul = 1; recul <= std::min<qsizetype>(3, octets.size()); ++recul) {
        const auto octet = static_cast<uchar>(octets[octets.size() - recul]);
        if (octet < 0x80)
            return octets;
        if (octet >= 0xC0) {
            const qsizetype longueur = octet >= 0xF0 ? 4 : octet >= 0xE0 ? 3 : 2;
            return longueur > recul ? octets.chopped(recul) : octets;
        }
    }
    return octets;
}

/// How much the bytes beyond ASCII look like letters and signs of Western languages in this encoding.
qsizetype Vraisemblance(QByteArrayView octets, CodageCsv codage)
{
    static const QString petits = u"éèêëàâäçîïìíôöòóùûüúœæñáãõßøå"_s;
    static const QString autres = u"ÉÈÊÀÂÇÔŒÆÖÜÄÑØÅ’‘“”«»…€–°"_s;
    const std::array<char16_t, 256> table = TableDe(NomIcu(codage));
    std::array<int, 256> points{};
    for (size_t i = 0x80; i < table.size(); ++i)
        points[i] = petits.contains(QChar(table[i])) ? 2 : autres.contains(QChar(table[i])) ? 1 : -1;
    qsizetype somme = 0;
    for (const char octet : octets)
        somme += points[static_cast<uchar>(octet)];
    return somme;
}

} // namespace

QList<CodageCsv> CodagesCsv()
{
    return {CodageCsv::Utf8,   CodageCsv::Utf16Le, CodageCsv::Utf16Be, CodageCsv::Windows1252,
            CodageCsv::Latin9, CodageCsv::Cp850,   CodageCsv::MacRoman};
}

QString NomDuCodage(CodageCsv codage)
{
    switch (codage) {
    case CodageCsv::Utf8:
        return u"UTF-8"_s;
    case CodageCsv::Utf16Le:
        return u"UTF-16 LE"_s;
    case CodageCsv::Utf16Be:
        return u"UTF-16 BE"_s;
    case CodageCsv::Windows1252:
        return u"Windows-1252"_s;
    case CodageCsv::Latin9:
        return u"ISO-8859-15 (Latin-9)"_s;
    case CodageCsv::Cp850:
        return u"CP850 (DOS)"_s;
    case CodageCsv::MacRoman:
        return u"Mac Roman"_s;
    }
    return {};
}

CodageCsv DevinerCodage(QIODevice& texte)
{
    texte.seek(0);
    QByteArray octets = texte.read(Morceau);
    if (octets.startsWith("\xFF\xFE"))
        return texte.seek(0), CodageCsv::Utf16Le;
    if (octets.startsWith("\xFE\xFF"))
        return texte.seek(0), CodageCsv::Utf16Be;
    if (octets.startsWith("\xEF\xBB\xBF"))
        return texte.seek(0), CodageCsv::Utf8;
    if (const auto utf16 = ParLesZeros(octets))
        return texte.seek(0), *utf16;

    QByteArray reste;
    for (qint64 examines = 0; !octets.isEmpty() && examines < OctetsExamines; octets = reste + texte.read(Morceau)) {
        const QByteArrayView entiers = texte.atEnd() ? QByteArrayView(octets) : Entiers(octets);
        if (!entiers.isValidUtf8()) {
            texte.seek(0);
            const auto candidats = CodagesCsv().mid(3);
            return *std::ranges::max_element(candidats, {},
                                             [&](CodageCsv codage) { return Vraisemblance(octets, codage); });
        }
        examines += entiers.size();
        reste = octets.mid(entiers.size());
        if (texte.atEnd())
            break;
    }
    texte.seek(0);
    return CodageCsv::Utf8;
}

DecodeurCsv::DecodeurCsv(CodageCsv codage) : m_codage(codage)
{
    if (const auto encodage = EncodageQt(codage))
        m_unicode.emplace(*encodage);
    else
        m_table = TableDe(NomIcu(codage));
}

void DecodeurCsv::Compter(QStringView texte)
{
    m_illisibles += std::ranges::count(texte, QChar(QChar::ReplacementCharacter));
}

QString DecodeurCsv::Decoder(QByteArrayView octets)
{
    if (m_unicode) {
        // The library's decoder is never left within a character: it drops what follows one that is cut short.
        m_reste.append(octets);
        const QByteArrayView entiers =
            m_codage == CodageCsv::Utf8 ? Entiers(m_reste) : QByteArrayView(m_reste).chopped(m_reste.size() % 2);
        const QString texte = m_unicode->decode(entiers);
        if (m_unicode->hasError())
            Compter(texte);
        m_reste.remove(0, entiers.size());
        return texte;
    }
    QString texte(octets.size(), Qt::Uninitialized);
    QChar* cible = texte.data();
    for (const char octet : octets)
        *cible++ = QChar(m_table[static_cast<uchar>(octet)]);
    Compter(texte);
    return texte;
}

QString DecodeurCsv::Finir()
{
    const QString texte(m_reste.isEmpty() ? 0 : 1, QChar(QChar::ReplacementCharacter));
    Compter(texte);
    return texte;
}
