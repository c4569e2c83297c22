#include "platform/NomsSysteme.h"

#include "platform/PageDeCode.h"
#include "platform/Presence.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr char16_t s_premierBrut = 0xDC80, s_dernierBrut = 0xDCFF;

bool EstBrut(const QString& texte, qsizetype i)
{
    const char16_t unite = texte[i].unicode();
    return unite >= s_premierBrut && unite <= s_dernierBrut && !(i > 0 && texte[i - 1].isHighSurrogate());
}

bool EstUtf8(QByteArrayView octets)
{
    QStringDecoder decodeur(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString texte = decodeur(octets);
    return !decodeur.hasError();
}

/// How many bytes from `debut` on are one character of UTF-8; 0 when they are none.
qsizetype TailleDuCaractere(QByteArrayView octets, qsizetype debut)
{
    const auto premier = static_cast<unsigned char>(octets[debut]);
    const qsizetype taille = premier < 0x80 ? 1 : premier < 0xC0 ? 0 : premier < 0xE0 ? 2 : premier < 0xF0 ? 3 : 4;
    const bool entier = taille > 0 && debut + taille <= octets.size();
    return entier && EstUtf8(octets.sliced(debut, taille)) ? taille : 0;
}

std::string Octets(const QString& chemin)
{
    return OctetsDuChemin(chemin).toStdString();
}

int Drapeaux(QIODevice::OpenMode mode)
{
    int drapeaux = O_CLOEXEC;
    if (!(mode & (QIODevice::WriteOnly | QIODevice::Append)))
        return drapeaux | O_RDONLY;
    drapeaux |= mode.testFlag(QIODevice::ReadOnly) ? O_RDWR : O_WRONLY;
    drapeaux |= mode.testFlag(QIODevice::ExistingOnly) ? 0 : O_CREAT;
    drapeaux |= mode.testFlag(QIODevice::NewOnly) ? O_EXCL : 0;
    drapeaux |= mode.testFlag(QIODevice::Append) ? O_APPEND : 0;
    // As QFile does: what is written alone begins anew.
    const bool garde = mode.testFlag(QIODevice::ReadOnly) || mode.testFlag(QIODevice::Append);
    return mode.testFlag(QIODevice::Truncate) || !garde ? drapeaux | O_TRUNC : drapeaux;
}

} // namespace

QByteArray OctetsDuChemin(const QString& chemin)
{
    if (chemin.contains(QChar(0)))
        return {};
    QByteArray octets;
    octets.reserve(chemin.size() + chemin.size() / 4);
    qsizetype debut = 0;
    for (qsizetype i = 0; i < chemin.size(); ++i) {
        if (!EstBrut(chemin, i))
            continue;
        octets += QStringView(chemin).sliced(debut, i - debut).toUtf8();
        octets += static_cast<char>(chemin[i].unicode() & 0xFFU);
        debut = i + 1;
    }
    return octets + QStringView(chemin).sliced(debut).toUtf8();
}

QString CheminDesOctets(QByteArrayView octets)
{
    if (EstUtf8(octets))
        return PageDeCode::DeUtf8(octets);
    QString chemin;
    for (qsizetype i = 0; i < octets.size();) {
        const qsizetype taille = TailleDuCaractere(octets, i);
        if (taille == 0)
            chemin += QChar(static_cast<char16_t>(0xDC00U + static_cast<unsigned char>(octets[i])));
        else
            chemin += PageDeCode::DeUtf8(octets.sliced(i, taille));
        i += qMax(taille, qsizetype(1));
    }
    return chemin;
}

bool AOctetsBruts(const QString& chemin)
{
    for (qsizetype i = 0; i < chemin.size(); ++i) {
        if (EstBrut(chemin, i))
            return true;
    }
    return false;
}

QString NomLisible(QString chemin)
{
    for (qsizetype i = 0; i < chemin.size(); ++i) {
        if (EstBrut(chemin, i))
            chemin[i] = QChar(PageDeCode::TableVersUnicode()[chemin[i].unicode() & 0xFFU]);
    }
    return chemin;
}

QString RetrouverChemin(const QString& chemin)
{
    if (!chemin.contains(QChar::ReplacementCharacter) || PeutExister(chemin))
        return chemin;
    const qsizetype barre = chemin.lastIndexOf(u'/');
    const QString dossier = barre < 0 ? QString() : RetrouverChemin(chemin.first(barre)) + u'/';
    const QString nom = chemin.sliced(barre + 1);
    if (PeutExister(dossier + nom))
        return dossier + nom;
    QStringList semblables;
    std::error_code erreur;
    for (fs::directory_iterator it(dossier.isEmpty() ? "." : Octets(dossier), erreur), fin; !erreur && it != fin;
         it.increment(erreur)) {
        const std::string octets = it->path().filename().native();
        if (QString::fromUtf8(octets) == nom)
            semblables.append(CheminDesOctets(octets));
    }
    return semblables.size() == 1 ? dossier + semblables.first() : chemin;
}

QString CheminAbsolu(const QString& chemin)
{
    if (chemin.startsWith(u'/'))
        return QDir::cleanPath(chemin);
    std::error_code erreur;
    return QDir::cleanPath(CheminDesOctets(fs::current_path(erreur).native()) + u'/' + chemin);
}

QString DossierDuChemin(const QString& chemin)
{
    const QString absolu = CheminAbsolu(chemin);
    return absolu.first(qMax<qsizetype>(absolu.lastIndexOf(u'/'), 1));
}

std::optional<struct stat> EtatDuChemin(const QString& chemin)
{
    struct stat etat;
    return stat(OctetsDuChemin(chemin).constData(), &etat) == 0 ? std::optional(etat) : std::nullopt;
}

bool EstFichier(const QString& chemin)
{
    const auto etat = EtatDuChemin(chemin);
    return etat && S_ISREG(etat->st_mode);
}

bool EstDossier(const QString& chemin)
{
    const auto etat = EtatDuChemin(chemin);
    return etat && S_ISDIR(etat->st_mode);
}

bool EstLien(const QString& chemin)
{
    struct stat etat;
    return lstat(OctetsDuChemin(chemin).constData(), &etat) == 0 && S_ISLNK(etat.st_mode);
}

bool OuvrirParChemin(QFile& fichier, const QString& chemin, QIODevice::OpenMode mode)
{
    const int descripteur = open(OctetsDuChemin(chemin).constData(), Drapeaux(mode), 0666);
    if (descripteur < 0)
        return false;
    struct stat etat;
    const bool ouvrable = fstat(descripteur, &etat) == 0 && !S_ISDIR(etat.st_mode);
    // What the flags tell the system is done; the rest of the mode is Qt's.
    const QIODevice::OpenMode reste = mode & ~(QIODevice::NewOnly | QIODevice::ExistingOnly);
    if (ouvrable && fichier.open(descripteur, reste, QFileDevice::AutoCloseHandle))
        return true;
    close(descripteur);
    errno = ouvrable ? EIO : EISDIR;
    return false;
}

bool SupprimerParChemin(const QString& chemin)
{
    return unlink(OctetsDuChemin(chemin).constData()) == 0;
}

bool RenommerParChemin(const QString& de, const QString& vers)
{
    return std::rename(OctetsDuChemin(de).constData(), OctetsDuChemin(vers).constData()) == 0;
}

bool CopierParChemin(const QString& de, const QString& vers)
{
    std::error_code erreur;
    if (EstLien(vers) || PeutExister(vers) || !fs::copy_file(Octets(de), Octets(vers), erreur)) {
        if (erreur)
            SupprimerParChemin(vers);
        return false;
    }
    return true;
}

bool LierParChemin(const QString& de, const QString& vers)
{
    return symlink(OctetsDuChemin(de).constData(), OctetsDuChemin(vers).constData()) == 0;
}
