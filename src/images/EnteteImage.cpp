#include "images/EnteteImage.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr qint64 MemoireAuPlus = qint64(256) << 20;
// Of one picture; those that cameras and programs write have some ten.
constexpr int PassagesAuPlus = 64;
constexpr int TailleEntete = 64;

EnteteImage Entete(const char* format, qint64 largeur, qint64 hauteur)
{
    // Longer sides are beyond all limits as well; products of these stay inside 64 bits.
    constexpr qint64 coteAuPlus = qint64(1) << 28;
    const qint64 l = std::clamp<qint64>(largeur, 0, coteAuPlus);
    const qint64 h = std::clamp<qint64>(hauteur, 0, coteAuPlus);
    return {format, QSize(static_cast<int>(l), static_cast<int>(h)), 4 * l * h};
}

template<class Entier> Entier Petit(const QByteArray& octets, qsizetype ou)
{
    return qFromLittleEndian<Entier>(octets.constData() + ou);
}

template<class Entier> Entier Grand(const QByteArray& octets, qsizetype ou)
{
    return qFromBigEndian<Entier>(octets.constData() + ou);
}

std::optional<EnteteImage> LireBmp(const QByteArray& debut)
{
    constexpr quint32 ancienne = 12; // size of the head of the first kind, which has sides of 16 bits
    if (debut.size() < 54)
        return std::nullopt;
    if (Petit<quint32>(debut, 14) == ancienne)
        return Entete("bmp", Petit<quint16>(debut, 18), Petit<quint16>(debut, 20));
    // Lines that stand from top to bottom have a negative height.
    return Entete("bmp", Petit<qint32>(debut, 18), qAbs<qint64>(Petit<qint32>(debut, 22)));
}

std::optional<EnteteImage> LireGif(const QByteArray& debut)
{
    if (debut.size() < 10)
        return std::nullopt;
    return Entete("gif", Petit<quint16>(debut, 6), Petit<quint16>(debut, 8));
}

std::optional<EnteteImage> LirePng(const QByteArray& debut)
{
    if (debut.size() < 26)
        return std::nullopt;
    EnteteImage entete = Entete("png", Grand<quint32>(debut, 16), Grand<quint32>(debut, 20));
    constexpr int profond = 16; // bits of each of the four channels
    if (debut.at(24) == profond)
        entete.memoire *= 2;
    return entete;
}

/// Walks over the parts of a JPEG file up to its first scan.
class LecteurJpeg
{
public:
    explicit LecteurJpeg(QIODevice& fichier) : m_fichier(fichier) {}

    std::optional<EnteteImage> Lire()
    {
        m_fichier.seek(2);
        while (const std::optional<uchar> marque = Marque()) {
            if (SansLongueur(*marque))
                continue;
            const QByteArray deux = m_fichier.read(2);
            const int longueur = deux.size() == 2 ? Grand<quint16>(deux, 0) - 2 : -1;
            const qint64 suite = m_fichier.pos() + longueur;
            if (longueur < 0 || *marque == FinDImage)
                return std::nullopt;
            if (*marque == DebutDePassage)
                return m_entete && Estimer(longueur) ? m_entete : std::nullopt;
            if (EstCadre(*marque) && !LireCadre(*marque, longueur))
                return std::nullopt;
            const qint64 reste = suite - m_fichier.pos();
            if (m_fichier.skip(reste) != reste)
                return std::nullopt;
        }
        return std::nullopt;
    }

private:
    static constexpr uchar FinDImage = 0xD9;
    static constexpr uchar DebutDePassage = 0xDA;

    /// The next marker: what follows an FF, other than FF and 0. Decoders pass over what stands before it.
    std::optional<uchar> Marque()
    {
        constexpr int auPlus = 1 << 16;
        bool apresFF = false;
        char octet = 0;
        for (int i = 0; i < auPlus && m_fichier.getChar(&octet); ++i) {
            if (apresFF && uchar(octet) != 0xFF && octet != 0)
                return uchar(octet);
            apresFF = uchar(octet) == 0xFF;
        }
        return std::nullopt;
    }

    static bool SansLongueur(uchar marque) { return marque == 0x01 || (marque >= 0xD0 && marque <= 0xD8); }

    /// A head with the size; C4, C8 and CC between them are tables.
    static bool EstCadre(uchar marque)
    {
        return marque >= 0xC0 && marque <= 0xCF && marque != 0xC4 && marque != 0xC8 && marque != 0xCC;
    }

    bool LireCadre(uchar marque, int longueur)
    {
        constexpr int fixe = 6;
        const QByteArray cadre = m_fichier.read(fixe);
        if (cadre.size() < fixe || longueur != fixe + 3 * uchar(cadre.at(5)))
            return false;
        m_entete = Entete("jpeg", Grand<quint16>(cadre, 3), Grand<quint16>(cadre, 1));
        m_composantes = uchar(cadre.at(5));
        m_progressif = (marque & 0x03) == 2;
        return LireComposantes(m_fichier.read(qint64(3) * m_composantes));
    }

    /// How many values a point has: colours often have a quarter of the points.
    bool LireComposantes(const QByteArray& octets)
    {
        constexpr int auPlus = 4;
        const auto permis = [](int facteur) { return facteur >= 1 && facteur <= auPlus; };
        int largeur = 1;
        int hauteur = 1;
        int somme = 0;
        for (qsizetype i = 1; i < octets.size(); i += 3) {
            const int horizontal = uchar(octets.at(i)) >> 4;
            const int vertical = uchar(octets.at(i)) & 0x0F;
            if (!permis(horizontal) || !permis(vertical))
                return false;
            largeur = std::max(largeur, horizontal);
            hauteur = std::max(hauteur, vertical);
            somme += horizontal * vertical;
        }
        m_valeursParPoint = double(somme) / (largeur * hauteur);
        return m_composantes > 0 && octets.size() == qsizetype(3) * m_composantes;
    }

    /// A picture in one scan is decoded line by line, already reduced. One in several scans is held whole, two bytes a
    /// value, and every scan goes over it.
    bool Estimer(int longueur)
    {
        char composantes = 0;
        if (longueur < 1 || !m_fichier.getChar(&composantes))
            return false;
        m_entete->memoire = 0;
        if (!m_progressif && uchar(composantes) >= m_composantes)
            return true;
        const double points = double(m_entete->taille.width()) * m_entete->taille.height();
        m_entete->memoire = static_cast<qint64>(2 * m_valeursParPoint * points);
        m_entete->passages = 1 + CompterPassages();
        return true;
    }

    /// Counts the scans in the rest of the file, no further than matters. In the coded bytes an FF is never followed by
    /// a marker that is none.
    int CompterPassages()
    {
        constexpr qint64 morceau = 1 << 16;
        int nombre = 0;
        bool apresFF = false;
        for (QByteArray octets = m_fichier.read(morceau); !octets.isEmpty() && nombre <= PassagesAuPlus;
             octets = m_fichier.read(morceau)) {
            for (const char octet : octets) {
                nombre += apresFF && uchar(octet) == DebutDePassage;
                apresFF = uchar(octet) == 0xFF;
            }
        }
        return nombre;
    }

    QIODevice& m_fichier;
    std::optional<EnteteImage> m_entete;
    int m_composantes = 0;
    double m_valeursParPoint = 1;
    bool m_progressif = false;
};

std::optional<EnteteImage> LireSelonGenre(QIODevice& fichier)
{
    fichier.seek(0);
    const QByteArray debut = fichier.read(TailleEntete);
    if (debut.startsWith("BM"))
        return LireBmp(debut);
    if (debut.startsWith("GIF8"))
        return LireGif(debut);
    if (debut.startsWith("\x89PNG\r\n\x1a\n"))
        return LirePng(debut);
    if (debut.startsWith("\xFF\xD8\xFF"))
        return LecteurJpeg(fichier).Lire();
    return std::nullopt;
}

} // namespace

std::optional<EnteteImage> LireEntete(QIODevice& fichier)
{
    std::optional<EnteteImage> entete = LireSelonGenre(fichier);
    return entete && !entete->taille.isEmpty() ? entete : std::nullopt;
}

bool EstSupportable(const EnteteImage& entete)
{
    const qint64 points = qint64(entete.taille.width()) * entete.taille.height();
    return points <= PointsAuPlus && entete.memoire <= MemoireAuPlus && entete.passages <= PassagesAuPlus;
}
