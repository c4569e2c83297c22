// The names of an archive's entries.
#include "catalogue/archive/ccZipInterne.h"
#include "catalogue/archive/ccZipRepertoire.h"

#include "platform/PageDeCode.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace zipinterne {

// The library shows a zero byte in a name as a blank. Which blanks are zero bytes can only be seen in the archive's
// directory itself.
namespace {

/// Where the first zero byte of each name is, -1 for none; nothing when this is no directory of so many entries.
std::optional<std::vector<qsizetype>> ChercherZeros(QByteArrayView repertoire, size_t nombre)
{
    std::vector<qsizetype> zeros(nombre);
    for (qsizetype& zero : zeros) {
        const EntreeDeRepertoire entree = LireEntree(repertoire);
        if (entree.taille == 0)
            return std::nullopt;
        zero = entree.nom.indexOf('\0');
        repertoire = repertoire.sliced(entree.taille);
    }
    return zeros;
}

std::vector<qsizetype> ZerosDesNoms(const QString& chemin, size_t nombre)
{
    std::vector<qsizetype> zeros;
    ChercherRepertoire(chemin, [&](const Repertoire& repertoire) {
        std::optional<std::vector<qsizetype>> trouves = ChercherZeros(repertoire.octets, nombre);
        if (trouves)
            zeros = std::move(*trouves);
        return trouves.has_value();
    });
    return zeros;
}

/// A name that the library refuses, marked as UTF-8. Bytes that are none are read in the code page, mark or not.
QString NomRefuse(QByteArrayView brut)
{
    QStringDecoder decodeur(QStringDecoder::Utf8);
    const QString nom = decodeur(brut);
    return decodeur.hasError() ? PageDeCode::VersTexte(brut) : nom;
}

/// The name up to the zero byte that the library shows as a blank.
NomLu Couper(const NomLu& lu, QByteArrayView brut, qsizetype zero)
{
    if (zero < 0 || zero >= brut.size() || brut[zero] != ' ')
        return lu;
    const QString utf8 = PageDeCode::DeUtf8(brut.first(zero));
    return {lu.nom.startsWith(utf8) ? utf8 : lu.nom.left(zero), true};
}

} // namespace

std::vector<NomLu> LireNoms(zip_t* archive, const QString& chemin, const NomsRefuses& refuses)
{
    const auto nombre = static_cast<size_t>(zip_get_num_entries(archive, 0));
    std::vector<NomLu> noms(nombre);
    std::vector<size_t> avecBlanc;
    for (size_t i = 0; i < nombre; ++i) {
        noms[i].nom = PageDeCode::DeUtf8(zip_get_name(archive, i, ZIP_FL_ENC_STRICT));
        if (noms[i].nom.contains(u' '))
            avecBlanc.push_back(i);
    }
    for (const uint64_t i : refuses.entrees)
        noms[i].nom = NomRefuse(zip_get_name(archive, i, ZIP_FL_ENC_RAW));
    if (avecBlanc.empty())
        return noms;
    const std::vector<qsizetype> zeros = ZerosDesNoms(chemin, nombre);
    for (const size_t i : avecBlanc)
        if (i < zeros.size())
            noms[i] = Couper(noms[i], zip_get_name(archive, i, ZIP_FL_ENC_RAW), zeros[i]);
    return noms;
}

bool EstNomPossible(const QString& nom)
{
    return std::none_of(nom.begin(), nom.end(),
                        [](QChar c) { return (c < u' ' && c != u'\t' && c != u'\r' && c != u'\n') || c == u'\\'; });
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
