#include "platform/PageDeCode.h"

#include <unicode/ucnv.h>

#include <algorithm>

namespace PageDeCode {

namespace {

struct Tables
{
    std::array<char16_t, 256> versUnicode{};
    std::array<int16_t, 65536> versOctet{};
};

const Tables& LesTables()
{
    static const Tables tables = [] {
        Tables t;
        t.versOctet.fill(-1);
        UErrorCode etat = U_ZERO_ERROR;
        UConverter* convertisseur = ucnv_open("windows-1252", &etat);
        for (int octet = 0; octet < 256; ++octet) {
            const char source = static_cast<char>(octet);
            char16_t unite[2] = {0, 0};
            UErrorCode erreur = U_ZERO_ERROR;
            const int32_t n = convertisseur ? ucnv_toUChars(convertisseur, unite, 2, &source, 1, &erreur) : 0;
            // An open byte comes back as U+FFFD or as the control character of its number: always take the latter.
            const bool defini = n == 1 && U_SUCCESS(erreur) && unite[0] != 0xFFFD;
            t.versUnicode[static_cast<size_t>(octet)] = defini ? unite[0] : static_cast<char16_t>(octet);
            t.versOctet[t.versUnicode[static_cast<size_t>(octet)]] = static_cast<int16_t>(octet);
        }
        if (convertisseur)
            ucnv_close(convertisseur);
        return t;
    }();
    return tables;
}

} // namespace

const std::array<char16_t, 256>& TableVersUnicode()
{
    return LesTables().versUnicode;
}

int OctetDe(char16_t unite)
{
    return LesTables().versOctet[unite];
}

QString VersTexte(QByteArrayView octets)
{
    const auto& table = TableVersUnicode();
    QString texte(octets.size(), Qt::Uninitialized);
    QChar* sortie = texte.data();
    for (const char octet : octets)
        *sortie++ = QChar(table[static_cast<uchar>(octet)]);
    return texte;
}

QByteArray VersOctets(QStringView texte)
{
    const auto& table = LesTables().versOctet;
    QByteArray octets;
    octets.reserve(texte.size());
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const QChar c = texte[i];
        const int octet = table[c.unicode()];
        octets.append(octet >= 0 ? static_cast<char>(octet) : '?');
        if (c.isHighSurrogate() && i + 1 < texte.size() && texte[i + 1].isLowSurrogate())
            ++i;
    }
    return octets;
}

bool EstRepresentable(QStringView texte)
{
    const auto& table = LesTables().versOctet;
    return std::all_of(texte.begin(), texte.end(), [&](QChar c) { return table[c.unicode()] >= 0; });
}

QByteArray ReduireUtf8(QByteArrayView utf8)
{
    return VersOctets(QString::fromUtf8(utf8));
}

} // namespace PageDeCode
