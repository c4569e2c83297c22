#include "support/ArchiveDeTest.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <csignal>

namespace {

QByteArray Nombre(uint64_t valeur, int octets)
{
    QByteArray petitBoutiste;
    for (int i = 0; i < octets; ++i)
        petitBoutiste.append(static_cast<char>(valeur >> (8 * i)));
    return petitBoutiste;
}

constexpr uint64_t Plein32 = 0xFFFFFFFF;
constexpr uint64_t Plein16 = 0xFFFF;

struct Ecrite
{
    const EntreeZip& entree;
    QByteArray donnees;
    uint64_t position;

    uint64_t Taille() const { return entree.taille.value_or(static_cast<uint64_t>(entree.contenu.size())); }
    /// The 64-bit sizes, where they are needed.
    QByteArray Extra() const
    {
        if (Taille() < Plein32)
            return QByteArray();
        return Nombre(1, 2) + Nombre(16, 2) + Nombre(Taille(), 8) + Nombre(static_cast<uint64_t>(donnees.size()), 8);
    }
    /// What local header and directory have in common.
    QByteArray Commun() const
    {
        const auto* octets = reinterpret_cast<const Bytef*>(entree.contenu.constData());
        const auto crc = static_cast<uint32_t>(crc32(0, octets, static_cast<uInt>(entree.contenu.size())));
        const bool grand = Taille() >= Plein32;
        const uint64_t heure = 12 << 11;
        const uint64_t jour = (2001 - 1980) << 9 | 7 << 5 | 14;
        return Nombre(grand ? 45 : 20, 2) + Nombre(entree.drapeaux, 2) +
               Nombre(entree.methode.value_or(entree.comprime ? 8 : 0), 2) + Nombre(heure, 2) + Nombre(jour, 2) +
               Nombre(entree.crc.value_or(crc), 4) +
               Nombre(grand ? Plein32 : static_cast<uint64_t>(donnees.size()), 4) +
               Nombre(grand ? Plein32 : Taille(), 4) + Nombre(static_cast<uint64_t>(entree.nom.size()), 2) +
               Nombre(static_cast<uint64_t>(Extra().size()), 2);
    }
    QByteArray Locale() const { return "PK\3\4" + Commun() + entree.nom + Extra() + donnees; }
    QByteArray Repertoire() const
    {
        const uint64_t faitParUnix = 3 << 8 | 45;
        return "PK\1\2" + Nombre(faitParUnix, 2) + Commun() + Nombre(0, 6) + Nombre(entree.attributs, 4) +
               Nombre(position, 4) + entree.nom + Extra();
    }
};

/// The end record, behind its 64-bit form where there are too many entries for it.
QByteArray Fin(uint64_t nombre, uint64_t debut, uint64_t taille, const QByteArray& commentaire)
{
    QByteArray fin;
    if (nombre >= Plein16) {
        fin += "PK\6\6" + Nombre(44, 8) + Nombre(45, 2) + Nombre(45, 2) + Nombre(0, 8) + Nombre(nombre, 8) +
               Nombre(nombre, 8) + Nombre(taille, 8) + Nombre(debut, 8);
        fin += "PK\6\7" + Nombre(0, 4) + Nombre(debut + taille, 8) + Nombre(1, 4);
    }
    const uint64_t court = std::min(nombre, Plein16);
    return fin + "PK\5\6" + Nombre(0, 4) + Nombre(court, 2) + Nombre(court, 2) + Nombre(taille, 4) + Nombre(debut, 4) +
           Nombre(static_cast<uint64_t>(commentaire.size()), 2) + commentaire;
}

} // namespace

QByteArray FaireArchive(const QList<EntreeZip>& entrees, const QByteArray& commentaire)
{
    QByteArray archive;
    QByteArray repertoire;
    for (const EntreeZip& entree : entrees) {
        const QByteArray donnees = entree.donnees.value_or(entree.comprime ? Deflate(entree.contenu) : entree.contenu);
        const Ecrite ecrite{entree, donnees, static_cast<uint64_t>(archive.size())};
        archive += ecrite.Locale();
        repertoire += ecrite.Repertoire();
    }
    const auto debut = static_cast<uint64_t>(archive.size());
    return archive + repertoire +
           Fin(static_cast<uint64_t>(entrees.size()), debut, static_cast<uint64_t>(repertoire.size()), commentaire);
}

QByteArray Deflate(const QByteArray& octets)
{
    z_stream flux{};
    EXPECT_EQ(deflateInit2(&flux, 9, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY), Z_OK);
    const auto taille = static_cast<uLong>(octets.size());
    QByteArray comprime(static_cast<qsizetype>(deflateBound(&flux, taille)), Qt::Uninitialized);
    flux.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(octets.constData()));
    flux.avail_in = static_cast<uInt>(taille);
    flux.next_out = reinterpret_cast<Bytef*>(comprime.data());
    flux.avail_out = static_cast<uInt>(comprime.size());
    EXPECT_EQ(deflate(&flux, Z_FINISH), Z_STREAM_END);
    comprime.truncate(static_cast<qsizetype>(flux.total_out));
    deflateEnd(&flux);
    return comprime;
}

QByteArray Lancer(const QString& programme, const QStringList& arguments, const QString& dossier)
{
    QProcess processus;
    QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
    environnement.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    processus.setProcessEnvironment(environnement);
    processus.setWorkingDirectory(dossier);
    processus.start(programme, arguments);
    EXPECT_TRUE(processus.waitForFinished(60000)) << programme.toStdString();
    const QByteArray sortie = processus.readAllStandardOutput();
    EXPECT_EQ(processus.exitCode(), 0) << sortie.toStdString() << processus.readAllStandardError().toStdString();
    return sortie;
}

int DansUnEnfant(const std::function<int()>& action)
{
    const pid_t enfant = fork();
    if (enfant == 0)
        _exit(action());
    int etat = 0;
    EXPECT_EQ(waitpid(enfant, &etat, 0), enfant);
    EXPECT_TRUE(WIFEXITED(etat)) << "the child was killed by signal " << WTERMSIG(etat);
    return WEXITSTATUS(etat);
}

int SansAcces(const QString& parent, const QString& ferme, const std::function<int()>& action)
{
    const QByteArray dehors = QFile::encodeName(parent), dedans = QFile::encodeName(ferme);
    const int resultat = DansUnEnfant([&] {
        if (chmod(dehors.constData(), 0711) != 0 || chmod(dedans.constData(), 0) != 0)
            return 100;
        if (geteuid() == 0 && setuid(65534) != 0) // root may look everywhere
            return 101;
        return action();
    });
    EXPECT_EQ(chmod(dedans.constData(), 0700), 0);
    return resultat;
}

void LimiterTailleDesFichiers(uint64_t octets)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{octets, octets};
    setrlimit(RLIMIT_FSIZE, &limite);
}
