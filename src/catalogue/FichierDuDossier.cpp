#include "catalogue/FichierDuDossier.h"

#include <cstdio>
#include <unistd.h>

std::optional<QByteArray> LireFichier(const QString& chemin)
{
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return std::nullopt;
    return fichier.readAll();
}

bool ForcerFichier(const QString& chemin)
{
    QFile fichier(chemin);
    return !fichier.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || fsync(fichier.handle()) == 0;
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
        std::rename(QFile::encodeName(m_fichier.fileName()).constData(), QFile::encodeName(m_chemin).constData()) == 0;
    if (!bon)
        m_fichier.remove();
    return bon;
}
