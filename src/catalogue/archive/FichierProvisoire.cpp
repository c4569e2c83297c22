#include "catalogue/archive/FichierProvisoire.h"

#include "platform/NomsSysteme.h"

#include <QFile>
#include <QRandomGenerator>

#include <unistd.h>

FichierProvisoire::FichierProvisoire(const QString& definitif) : m_definitif(definitif)
{
    const QString hasard = QString::number(QRandomGenerator::system()->generate64(), 36);
    m_chemin = DossierDuChemin(definitif) + QStringLiteral("/.zelvane-") + hasard;
}

FichierProvisoire::~FichierProvisoire()
{
    SupprimerParChemin(m_chemin);
}

bool FichierProvisoire::Deposer() const
{
    QFile fichier;
    return OuvrirParChemin(fichier, m_chemin, QIODevice::ReadOnly) && fsync(fichier.handle()) == 0 &&
           RenommerParChemin(m_chemin, m_definitif);
}
