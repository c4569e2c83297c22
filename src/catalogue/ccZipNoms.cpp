// The names of an archive's entries.
#include "catalogue/ccZipInterne.h"

#include <QFile>

#include <algorithm>
#include <optional>

namespace zipinterne {

// The library shows a zero byte in a name as a blank. Which blanks are zero bytes can only be seen in the archive's
// directory itself.
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
QByteArray LireRepertoire(QFile& fichier, const QByteArray& queue, qsizetype fin)
{
    constexpr qsizetype tailleLocalisateur = 20;
    constexpr qsizetype tailleFin64 = 56;
    qint64 taille = Nombre(queue, fin + 12, 4);
    qint64 debut = Nombre(queue, fin + 16, 4);
    const QByteArray localisateur = queue.mid(std::max<qsizetype>(0, fin - tailleLocalisateur), tailleLocalisateur);
    if (localisateur.startsWith("PK\6\7")) {
        const QByteArray fin64 = LireA(fichier, Nombre(localisateur, 8, 8), tailleFin64);
        if (fin64.size() != tailleFin64 || !fin64.startsWith("PK\6\6"))
            return QByteArray();
        taille = Nombre(fin64, 40, 8);
        debut = Nombre(fin64, 48, 8);
    }
    return LireA(fichier, debut, taille);
}

/// Where the first zero byte of each name is, -1 for none; nothing when this is no directory of so many entries.
std::optional<std::vector<qsizetype>> ChercherZeros(QByteArrayView repertoire, size_t nombre)
{
    constexpr qsizetype tailleEnTete = 46;
    std::vector<qsizetype> zeros(nombre);
    for (qsizetype& zero : zeros) {
        if (repertoire.size() < tailleEnTete || !repertoire.startsWith("PK\1\2"))
            return std::nullopt;
        const qsizetype longueur = Nombre(repertoire, 28, 2);
        const qsizetype entree = tailleEnTete + longueur + Nombre(repertoire, 30, 2) + Nombre(repertoire, 32, 2);
        if (repertoire.size() < entree)
            return std::nullopt;
        zero = repertoire.sliced(tailleEnTete, longueur).indexOf('\0');
        repertoire = repertoire.sliced(entree);
    }
    return zeros;
}

std::vector<qsizetype> ZerosDesNoms(const QString& chemin, size_t nombre)
{
    constexpr qsizetype tailleFin = 22;
    constexpr qint64 plusLongueQueue = 20 + tailleFin + 65535;
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return {};
    const qint64 debut = std::max<qint64>(0, fichier.size() - plusLongueQueue);
    const QByteArray queue = LireA(fichier, debut, fichier.size() - debut);
    for (qsizetype fin = queue.size() - tailleFin; fin >= 0; --fin) {
        fin = queue.lastIndexOf("PK\5\6", fin);
        if (fin < 0)
            break;
        if (const auto zeros = ChercherZeros(LireRepertoire(fichier, queue, fin), nombre))
            return *zeros;
    }
    return {};
}

/// The name up to the zero byte that the library shows as a blank.
NomLu Couper(const NomLu& lu, QByteArrayView brut, qsizetype zero)
{
    if (zero < 0 || zero >= brut.size() || brut[zero] != ' ')
        return lu;
    const QString utf8 = QString::fromUtf8(brut.first(zero));
    return {lu.nom.startsWith(utf8) ? utf8 : lu.nom.left(zero), true};
}

} // namespace

std::vector<NomLu> LireNoms(zip_t* archive, const QString& chemin)
{
    const auto nombre = static_cast<size_t>(zip_get_num_entries(archive, 0));
    std::vector<NomLu> noms(nombre);
    std::vector<size_t> avecBlanc;
    for (size_t i = 0; i < nombre; ++i) {
        noms[i].nom = QString::fromUtf8(zip_get_name(archive, i, ZIP_FL_ENC_STRICT));
        if (noms[i].nom.contains(u' '))
            avecBlanc.push_back(i);
    }
    if (avecBlanc.empty())
        return noms;
    const std::vector<qsizetype> zeros = ZerosDesNoms(chemin, nombre);
    for (const size_t i : avecBlanc)
        if (i < zeros.size())
            noms[i] = Couper(noms[i], zip_get_name(archive, i, ZIP_FL_ENC_RAW), zeros[i]);
    return noms;
}

QString NomNu(const QString& nom)
{
    const qsizetype separateur = std::max(nom.lastIndexOf(u'/'), nom.lastIndexOf(u'\\'));
    return nom.mid(separateur + 1);
}

bool CorrespondAuMasque(QStringView nom, QStringView masque)
{
    qsizetype n = 0;
    qsizetype m = 0;
    qsizetype etoile = -1; // the last * and how far into the name it reaches
    qsizetype atteint = 0;
    while (n < nom.size()) {
        if (m < masque.size() && masque[m] == u'*') {
            etoile = m++;
            atteint = n;
        } else if (m < masque.size() && (masque[m] == u'?' || masque[m] == nom[n])) {
            ++m;
            ++n;
        } else if (etoile >= 0) {
            m = etoile + 1;
            n = ++atteint;
        } else {
            return false;
        }
    }
    while (m < masque.size() && masque[m] == u'*')
        ++m;
    return m == masque.size();
}

} // namespace zipinterne
