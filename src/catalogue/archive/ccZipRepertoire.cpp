#include "catalogue/archive/ccZipRepertoire.h"

#include "catalogue/archive/ccZipInterne.h"
#include "platform/NomsSysteme.h"

#include <QFile>

#include <algorithm>

namespace zipinterne {

namespace {

/// A number of `octets` bytes at `position`, lowest first; negative when it is beyond what a file can hold.
qint64 Nombre(QByteArrayView donnees, qsizetype position, int octets)
{
    quint64 valeur = 0;
    for (int i = octets - 1; i >= 0; --i)
        valeur = valeur << 8 | static_cast<uchar>(donnees[position + i]);
    return static_cast<qint64>(valeur);
}

/// Part of the file; empty when it does not lie in it whole.
QByteArray LireA(QFile& fichier, qint64 debut, qint64 taille)
{
    if (debut < 0 || taille < 0 || debut > fichier.size() || taille > fichier.size() - debut || !fichier.seek(debut))
        return QByteArray();
    return fichier.read(taille);
}

/// The directory that an end record at `fin` of the file's tail announces; empty when it announces none.
Repertoire LireRepertoire(QFile& fichier, const QByteArray& queue, qsizetype fin)
{
    constexpr qsizetype tailleLocalisateur = 20;
    constexpr qsizetype tailleFin64 = 56;
    qint64 nombre = Nombre(queue, fin + 10, 2);
    qint64 taille = Nombre(queue, fin + 12, 4);
    qint64 debut = Nombre(queue, fin + 16, 4);
    const QByteArray localisateur = queue.mid(std::max<qsizetype>(0, fin - tailleLocalisateur), tailleLocalisateur);
    if (localisateur.startsWith("PK\6\7")) {
        const QByteArray fin64 = LireA(fichier, Nombre(localisateur, 8, 8), tailleFin64);
        if (fin64.size() != tailleFin64 || !fin64.startsWith("PK\6\6"))
            return {};
        nombre = Nombre(fin64, 32, 8);
        taille = Nombre(fin64, 40, 8);
        debut = Nombre(fin64, 48, 8);
    }
    return {LireA(fichier, debut, taille), static_cast<uint64_t>(debut), nombre};
}

/// As the library has it: printable, line ends and tabs among it, and UTF-8. It takes a zero byte for a blank.
bool EstTexteUtf8(QByteArrayView octets)
{
    const bool imprimable = std::ranges::all_of(octets, [](char c) {
        return static_cast<uchar>(c) >= ' ' || c == '\0' || c == '\t' || c == '\r' || c == '\n';
    });
    return imprimable && octets.isValidUtf8();
}

std::optional<NomsRefuses> ChercherRefuses(const Repertoire& repertoire)
{
    constexpr uint16_t marque = 0x800;
    constexpr uint64_t octetDeLaMarque = 9;
    NomsRefuses refuses;
    QByteArrayView reste = repertoire.octets;
    for (qint64 i = 0; i < repertoire.nombre; ++i) {
        const EntreeDeRepertoire entree = LireEntree(reste);
        if (entree.taille == 0)
            return std::nullopt;
        if ((entree.drapeaux & marque) && !(EstTexteUtf8(entree.nom) && EstTexteUtf8(entree.commentaire))) {
            const auto place = static_cast<uint64_t>(repertoire.octets.size() - reste.size());
            const auto drapeaux = static_cast<uint16_t>(entree.drapeaux & ~marque);
            refuses.entrees.push_back(static_cast<uint64_t>(i));
            refuses.retouches.push_back({repertoire.place + place + octetDeLaMarque, static_cast<char>(drapeaux >> 8)});
        }
        reste = reste.sliced(entree.taille);
    }
    return refuses;
}

} // namespace

EntreeDeRepertoire LireEntree(QByteArrayView octets)
{
    constexpr qsizetype tailleEnTete = 46;
    if (octets.size() < tailleEnTete || !octets.startsWith("PK\1\2"))
        return {};
    const qsizetype nom = Nombre(octets, 28, 2);
    const qsizetype extra = Nombre(octets, 30, 2);
    const qsizetype commentaire = Nombre(octets, 32, 2);
    const qsizetype taille = tailleEnTete + nom + extra + commentaire;
    if (octets.size() < taille)
        return {};
    return {static_cast<uint16_t>(Nombre(octets, 8, 2)), octets.sliced(tailleEnTete, nom),
            octets.sliced(tailleEnTete + nom + extra, commentaire), taille};
}

void ChercherRepertoire(const QString& chemin, const std::function<bool(const Repertoire&)>& prendre)
{
    constexpr qsizetype tailleFin = 22;
    constexpr qint64 plusLongueQueue = 20 + tailleFin + 65535;
    QFile fichier;
    if (!OuvrirParChemin(fichier, chemin, QIODevice::ReadOnly))
        return;
    const qint64 debut = std::max<qint64>(0, fichier.size() - plusLongueQueue);
    const QByteArray queue = LireA(fichier, debut, fichier.size() - debut);
    for (qsizetype fin = queue.size() - tailleFin; fin >= 0; --fin) {
        fin = queue.lastIndexOf("PK\5\6", fin);
        if (fin < 0 || prendre(LireRepertoire(fichier, queue, fin)))
            return;
    }
}

NomsRefuses ChercherNomsRefuses(const QString& chemin)
{
    NomsRefuses refuses;
    ChercherRepertoire(chemin, [&refuses](const Repertoire& repertoire) {
        std::optional<NomsRefuses> trouves = ChercherRefuses(repertoire);
        if (trouves)
            refuses = std::move(*trouves);
        return trouves.has_value();
    });
    return refuses;
}

} // namespace zipinterne
