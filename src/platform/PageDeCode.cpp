#include "platform/PageDeCode.h"

#include <QStringDecoder>

#include <unicode/ucnv.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace PageDeCode {

namespace {

struct Utf8
{
    std::array<char, 3> octets{};
    uint8_t taille = 0;
};

struct Tables
{
    std::array<Utf8, 256> enUtf8{};
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
            const char16_t caractere = t.versUnicode[static_cast<size_t>(octet)];
            t.versOctet[caractere] = static_cast<int16_t>(octet);
            const QByteArray utf8 = QStringView(&caractere, 1).toUtf8();
            Utf8& ecrit = t.enUtf8[static_cast<size_t>(octet)];
            ecrit.taille = static_cast<uint8_t>(utf8.size());
            std::copy(utf8.begin(), utf8.end(), ecrit.octets.begin());
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

void AjouterEnUtf8(QByteArray& sortie, QByteArrayView octets)
{
    constexpr qsizetype plusLong = 3; // no character of the code page takes more
    const qsizetype avant = sortie.size();
    sortie.resize(avant + octets.size() * plusLong);
    char* ici = sortie.data() + avant;
    const auto& enUtf8 = LesTables().enUtf8;
    for (const char octet : octets) {
        const Utf8& utf8 = enUtf8[static_cast<uchar>(octet)];
        // Always as many bytes: those behind the character's own are written over by the next one.
        std::memcpy(ici, utf8.octets.data(), plusLong);
        ici += utf8.taille;
    }
    sortie.truncate(ici - sortie.constData());
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
