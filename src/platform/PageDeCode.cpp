#include "platform/PageDeCode.h"

#include <QStringDecoder>

#include <unicode/ucnv.h>

#include <algorithm>
#include <cstdint>

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
    const char16_t* const table = LesTables().versUnicode.data();
    QString texte(octets.size(), Qt::Uninitialized);
    std::transform(octets.begin(), octets.end(), reinterpret_cast<char16_t*>(texte.data()),
                   [table](char octet) { return table[static_cast<uchar>(octet)]; });
    return texte;
}

QByteArray VersOctets(QStringView texte)
{
    const int16_t* const table = LesTables().versOctet.data();
    QByteArray octets(texte.size(), Qt::Uninitialized);
    char* sortie = octets.data();
    const char16_t* unite = texte.utf16();
    const char16_t* const fin = unite + texte.size();
    while (unite < fin) {
        const int octet = table[*unite];
        *sortie++ = octet >= 0 ? static_cast<char>(octet) : '?';
        const bool paire =
            octet < 0 && fin - unite > 1 && QChar::isHighSurrogate(*unite) && QChar::isLowSurrogate(unite[1]);
        unite += paire ? 2 : 1;
    }
    octets.truncate(sortie - octets.constData());
    return octets;
}

bool EstRepresentable(QStringView texte)
{
    const int16_t* const table = LesTables().versOctet.data();
    return std::all_of(texte.utf16(), texte.utf16() + texte.size(), [&](char16_t unite) { return table[unite] >= 0; });
}

QString DeUtf8(QByteArrayView utf8)
{
    if (!utf8.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(utf8); // which drops the mark
    using Convertisseur = QStringConverter;
    QStringDecoder decodeur(Convertisseur::Utf8,
                            Convertisseur::Flag::Stateless | Convertisseur::Flag::ConvertInitialBom);
    return decodeur(utf8);
}

QByteArray ReduireUtf8(QByteArrayView utf8)
{
    return VersOctets(DeUtf8(utf8));
}

} // namespace PageDeCode
