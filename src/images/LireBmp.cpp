#include "images/LireBmp.h"

#include "images/EnteteImage.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

constexpr int LongueurEntete = 54;
constexpr int CoteAuPlus = 1 << 16;

/// The head of a bitmap that can be read line by line.
struct TeteBmp
{
    qint64 debut = 0; ///< of the first line, in bytes from the start of the file
    int largeur = 0;
    int hauteur = 0;
    bool deBasEnHaut = true;
    int octetsParPoint = 0;

    qint64 OctetsParLigne() const { return (qint64(largeur) * octetsParPoint + 3) / 4 * 4; }
};

std::optional<TeteBmp> LireTete(QIODevice& fichier)
{
    fichier.seek(0);
    const QByteArray octets = fichier.read(LongueurEntete);
    if (octets.size() < LongueurEntete || !octets.startsWith("BM"))
        return std::nullopt;
    const auto mot = [&](int ou) { return qFromLittleEndian<qint32>(octets.constData() + ou); };
    const qint64 hauteur = mot(22);
    const int bits = qFromLittleEndian<quint16>(octets.constData() + 28);
    const TeteBmp tete{mot(10), mot(18), static_cast<int>(std::min<qint64>(qAbs(hauteur), CoteAuPlus + 1)), hauteur > 0,
                       bits / 8};
    constexpr int sansCompression = 0;
    const bool lisible = tete.debut >= LongueurEntete && tete.largeur > 0 && tete.largeur <= CoteAuPlus &&
                         tete.hauteur > 0 && tete.hauteur <= CoteAuPlus &&
                         qint64(tete.largeur) * tete.hauteur <= PointsAuPlus && (bits == 24 || bits == 32) &&
                         mot(30) == sansCompression;
    if (!lisible || fichier.size() < tete.debut + tete.OctetsParLigne() * tete.hauteur)
        return std::nullopt;
    return tete;
}

/// Adds up squares of `pas` by `pas` points to one point each, a line of squares at a time.
class Reduction
{
public:
    Reduction(const TeteBmp& tete, int pas)
        : m_octetsParPoint(tete.octetsParPoint), m_pas(pas), m_sommes(static_cast<size_t>(tete.largeur / pas))
    {
    }

    void Ajouter(const QByteArray& ligne)
    {
        const auto* point = reinterpret_cast<const uchar*>(ligne.constData());
        for (Somme& somme : m_sommes) {
            for (int i = 0; i < m_pas; ++i, point += m_octetsParPoint) {
                somme.bleu += point[0];
                somme.vert += point[1];
                somme.rouge += point[2];
            }
        }
    }

    void Deposer(QRgb* ligne)
    {
        const quint64 nombre = quint64(m_pas) * m_pas;
        for (Somme& somme : m_sommes) {
            *ligne++ = qRgb(static_cast<int>(somme.rouge / nombre), static_cast<int>(somme.vert / nombre),
                            static_cast<int>(somme.bleu / nombre));
            somme = {};
        }
    }

private:
    struct Somme
    {
        quint64 rouge = 0, vert = 0, bleu = 0;
    };

    int m_octetsParPoint;
    int m_pas;
    std::vector<Somme> m_sommes;
};

} // namespace

QImage LireBmpReduit(QIODevice& fichier, const QSize& place)
{
    const std::optional<TeteBmp> tete = LireTete(fichier);
    if (!tete)
        return {};
    // The longer way decides, as the proportions are kept; but no side may vanish.
    const int pas = std::clamp(std::max(tete->largeur / place.width(), tete->hauteur / place.height()), 1,
                               std::min(tete->largeur, tete->hauteur));
    QImage image(tete->largeur / pas, tete->hauteur / pas, QImage::Format_RGB32);
    Reduction reduction(*tete, pas);
    fichier.seek(tete->debut);
    for (int y = 0; y < image.height(); ++y) {
        for (int i = 0; i < pas; ++i) {
            const QByteArray ligne = fichier.read(tete->OctetsParLigne());
            if (ligne.size() < tete->OctetsParLigne())
                return {};
            reduction.Ajouter(ligne);
        }
        reduction.Deposer(reinterpret_cast<QRgb*>(image.scanLine(tete->deBasEnHaut ? image.height() - 1 - y : y)));
    }
    return image;
}
