#include "catalogue/texte/TexteExact.h"

#include "catalogue/archive/FichierDuDossier.h"
#include "platform/PageDeCode.h"
#include "platform/Presence.h"

namespace TexteExact {

namespace {

struct Caractere
{
    char32_t code;
    int octets; // 0: not UTF-8
};

// Strict decoding: no overlong forms, no surrogates, nothing beyond U+10FFFF.
Caractere Decoder(const uchar* p, const uchar* fin)
{
    if (*p < 0x80)
        return {*p, 1};
    const int octets = *p >= 0xF0 ? 4 : *p >= 0xE0 ? 3 : 2;
    if (*p < 0xC2 || *p > 0xF4 || fin - p < octets)
        return {0, 0};
    char32_t code = *p & (0xFF >> (octets + 1));
    for (int i = 1; i < octets; ++i) {
        if ((p[i] & 0xC0) != 0x80)
            return {0, 0};
        code = code << 6 | (p[i] & 0x3F);
    }
    static constexpr char32_t plusPetit[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < plusPetit[octets] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
        return {0, 0};
    return {code, octets};
}

} // namespace

QString NomDuFichier()
{
    return QStringLiteral("Zelvane.utf8");
}

QByteArray Separateur()
{
    return QByteArrayLiteral("[Zelvane.txt]\r\n");
}

std::optional<qsizetype> FinDuTexteReduit(QByteArrayView utf8, QByteArrayView huitBits)
{
    const auto* const debut = reinterpret_cast<const uchar*>(utf8.data());
    const auto* const fin = debut + utf8.size();
    const auto* p = debut;
    for (const char attendu : huitBits) {
        if (p == fin)
            return std::nullopt;
        const Caractere caractere = Decoder(p, fin);
        if (caractere.octets == 0)
            return std::nullopt;
        const int octet = caractere.code < 0x10000 ? PageDeCode::OctetDe(static_cast<char16_t>(caractere.code)) : -1;
        if (static_cast<char>(octet >= 0 ? octet : '?') != attendu)
            return std::nullopt;
        p += caractere.octets;
    }
    return p - debut;
}

Contenu Lire(const QString& dossier, QByteArrayView catalogue, QByteArrayView commentaire)
{
    Contenu contenu;
    const QString chemin = dossier + NomDuFichier();
    if (!PeutExister(chemin))
        return contenu;
    const std::optional<QByteArray> exact = LireFichier(chemin);
    contenu.illisible = !exact;
    if (!exact)
        return contenu;
    contenu.octets = *exact;
    const std::optional<qsizetype> fin = FinDuTexteReduit(*exact, catalogue);
    if (!fin)
        return contenu;
    contenu.catalogue = exact->first(*fin);
    const QByteArrayView suite = QByteArrayView(*exact).sliced(*fin);
    if (!suite.startsWith(Separateur()))
        return contenu;
    const QByteArrayView texte = suite.sliced(Separateur().size());
    if (FinDuTexteReduit(texte, commentaire) == texte.size())
        contenu.commentaire = texte.toByteArray();
    return contenu;
}

std::optional<QString> LireCommentaire(const QString& dossier)
{
    const std::optional<QByteArray> huitBits = LireFichier(dossier + QStringLiteral("Zelvane.txt"));
    if (!huitBits)
        return std::nullopt;
    const QByteArray catalogue = LireFichier(dossier + QStringLiteral("Zelvane.qrt")).value_or(QByteArray());
    const Contenu contenu = Lire(dossier, catalogue, *huitBits);
    return contenu.commentaire ? PageDeCode::DeUtf8(*contenu.commentaire) : PageDeCode::VersTexte(*huitBits);
}

} // namespace TexteExact
