#include "output/ImagesDePage.h"

#include "platform/NomsSysteme.h"

#include <sys/stat.h>

void ImagesDePage::CreerDossier() const
{
    // Where that fails, the copies do.
    mkdir(OctetsDuChemin(m_cible).constData(), 0777);
}

void ImagesDePage::Copier(const QString& nom)
{
    // A name that holds a separator, of this system or of the other one, names no file here.
    if (nom.contains(u'/') || nom.contains(u'\\') || !EstFichier(m_source + nom))
        return;
    if (!CopierParChemin(m_source + nom, m_cible + nom) && !EstFichier(m_cible + nom))
        ++m_perdues;
}
