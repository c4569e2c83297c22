#include "catalogue/archive/FichierDuDossier.h"

#include "base/ActesDuDossier.h"
#include "catalogue/archive/PlaceDuFichier.h"
#include "catalogue/archive/ccZipDescripteur.h"
#include "platform/NomsSysteme.h"
#include "platform/Presence.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

using zipinterne::Descripteur;

std::optional<QByteArray> LireFichier(const QString& chemin)
{
    QFile fichier;
    if (!OuvrirParChemin(fichier, chemin, QIODevice::ReadOnly))
        return std::nullopt;
    // What was read before an error is not the file.
    QByteArray octets = fichier.readAll();
    return fichier.error() == QFileDevice::NoError ? std::optional(std::move(octets)) : std::nullopt;
}

std::optional<QByteArray> LireSIlExiste(const QString& chemin)
{
    return PeutExister(chemin) ? LireFichier(chemin) : QByteArray();
}

bool ForcerFichier(const QString& chemin)
{
    const Descripteur fichier(open(OctetsDuChemin(chemin).constData(), O_RDONLY | O_CLOEXEC));
    if (!fichier || fsync(fichier.Numero()) != 0)
        return false;
    // Its name too. Not every file system can do that for a folder, or needs it.
    const Descripteur dossier(
        open(OctetsDuChemin(DossierDuChemin(CibleDesLiens(chemin))).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dossier)
        fsync(dossier.Numero());
    return true;
}

bool SupprimerDuDossier(const QString& chemin)
{
    if (!QFile::remove(chemin))
        return false;
    NoterSuppression(chemin);
    return true;
}

FichierDuDossier::~FichierDuDossier()
{
    if (m_fichier.isOpen())
        m_fichier.remove();
}

bool FichierDuDossier::Preparer(QByteArrayView octets)
{
    return Ouvrir() && m_fichier.write(octets.data(), octets.size()) == octets.size() && m_fichier.flush();
}

bool FichierDuDossier::Valider()
{
    if (!m_fichier.flush() || m_fichier.error() != QFileDevice::NoError)
        return false;
    m_fichier.close();
    const bool bon =
        std::rename(OctetsDuChemin(m_fichier.fileName()).constData(), OctetsDuChemin(m_chemin).constData()) == 0;
    if (bon)
        NoterEcriture(m_chemin);
    else
        m_fichier.remove();
    return bon;
}
