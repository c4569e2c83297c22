#include "search/TexteSauve.h"

#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TexteExact.h"
#include "platform/Presence.h"

#include <optional>

namespace {

/// Nothing when the file cannot be read, or is larger than a catalogue's text may be.
std::optional<QByteArrayView> Projeter(QFile& fichier, const QString& chemin)
{
    fichier.setFileName(chemin);
    if (!fichier.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    const qint64 taille = fichier.size();
    if (taille == 0)
        return QByteArrayView("");
    const uchar* octets = taille > TailleDeTexteAuPlus ? nullptr : fichier.map(0, taille);
    return octets ? std::optional(QByteArrayView(octets, taille)) : std::nullopt;
}

} // namespace

TexteSauve::TexteSauve(const QString& dossier) : m_etat(LireHuitBits(dossier))
{
    if (m_etat == Etat::Lu)
        m_etat = LireExact(dossier);
    if (m_etat != Etat::Lu)
        m_octets = {};
}

TexteSauve::Etat TexteSauve::LireHuitBits(const QString& dossier)
{
    const QString chemin = dossier + QStringLiteral("Zelvane.qrt");
    if (!PeutExister(chemin))
        return Etat::Absent;
    const std::optional<QByteArrayView> octets = Projeter(m_huitBits, chemin);
    m_octets = octets.value_or(QByteArrayView());
    return octets ? Etat::Lu : Etat::Illisible;
}

TexteSauve::Etat TexteSauve::LireExact(const QString& dossier)
{
    const QString chemin = dossier + TexteExact::NomDuFichier();
    if (!PeutExister(chemin))
        return Etat::Lu;
    // What it holds is in the table: a search that does without it would not find what is seen there.
    const std::optional<QByteArrayView> exact = Projeter(m_exact, chemin);
    if (!exact)
        return Etat::Illisible;
    if (const std::optional<qsizetype> fin = TexteExact::FinDuTexteReduit(*exact, m_octets)) {
        m_octets = exact->first(*fin);
        m_codage = stockage::Codage::Utf8;
    }
    return Etat::Lu;
}
