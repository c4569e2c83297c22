#include "catalogue/texte/ImagesDuDossier.h"

#include "base/NomsDuDossier.h"
#include "platform/PageDeCode.h"

#include <QFileInfo>

#include <cstring>

using stockage::Codage;
using stockage::Drapeau;
using stockage::Icone;

Icone ImagesDuDossier::IconeDe(QByteArrayView nom)
{
    if (nom.isEmpty())
        return Icone::NoIco;
    if (!m_lus)
        LireNoms();
    const bool la = m_illisible ? EstFichier(nom) : m_noms.contains(QByteArray::fromRawData(nom.data(), nom.size()));
    return la ? Icone::Ico : Icone::IcoError;
}

void ImagesDuDossier::LireNoms()
{
    m_lus = true;
    const std::optional<QStringList> noms = FichiersDuDossier(m_dossier);
    m_illisible = !noms;
    if (m_illisible)
        return;
    m_noms.reserve(noms->size());
    for (const QString& nom : *noms) {
        // A name that holds the other system's separator names no file here.
        if (nom.contains(u'\\'))
            continue;
        if (m_codage == Codage::Utf8)
            m_noms.insert(nom.toUtf8());
        else if (PageDeCode::EstRepresentable(nom))
            m_noms.insert(PageDeCode::VersOctets(nom));
    }
}

/// Asks for one; a name that holds a separator names no file here.
bool ImagesDuDossier::EstFichier(QByteArrayView nom) const
{
    const QString texte = m_codage == Codage::Utf8 ? PageDeCode::DeUtf8(nom) : PageDeCode::VersTexte(nom);
    return !texte.contains(u'/') && !texte.contains(u'\\') && QFileInfo(m_dossier + texte).isFile();
}

uint8_t DrapeauxDeTranche(QByteArrayView valeur, int colonnes, ImagesDuDossier& images)
{
    const char* debut = valeur.data();
    const char* const fin = debut + valeur.size();
    for (int champ = 0; champ < colonnes; ++champ) {
        const void* barre = debut == fin ? nullptr : std::memchr(debut, '|', static_cast<size_t>(fin - debut));
        if (!barre)
            return stockage::AvecIcone(0, Icone::NoIco);
        debut = static_cast<const char*>(barre) + 1;
    }
    const void* barre = debut == fin ? nullptr : std::memchr(debut, '|', static_cast<size_t>(fin - debut));
    const char* finImage = barre ? static_cast<const char*>(barre) : fin;
    const uint8_t drapeaux = barre || colonnes == 0 ? 0 : Drapeau::Reguliere;
    return stockage::AvecIcone(drapeaux, images.IconeDe(QByteArrayView(debut, finImage)));
}
