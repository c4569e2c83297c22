#include "search/Recherche.h"

#include "catalogue/texte/ImagesDuDossier.h"
#include "catalogue/texte/LectureQrt.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// A block stays in the cache of the processor between the look for the text and the count of its lines.
constexpr qsizetype TailleBloc = qsizetype(1) << 18;
constexpr qsizetype TailleEchantillon = qsizetype(1) << 16;

const char* Saut(const char* debut, const char* fin)
{
    const void* saut = debut == fin ? nullptr : std::memchr(debut, '\n', static_cast<size_t>(fin - debut));
    return saut ? static_cast<const char*>(saut) : fin;
}

/// Looks at eight bytes at a time.
uint32_t NombreDeSauts(const char* debut, const char* fin)
{
    constexpr uint64_t uns = 0x0101010101010101U;
    constexpr uint64_t bas = 0x7F * uns;
    uint32_t nombre = 0;
    for (; fin - debut >= 8; debut += 8) {
        uint64_t huit = 0;
        std::memcpy(&huit, debut, sizeof huit);
        huit ^= '\n' * uns;
        // The high bit of each byte that is zero now.
        const uint64_t zeros = ~(((huit & bas) + bas) | huit | bas);
        nombre += static_cast<uint32_t>(((zeros >> 7) * uns) >> 56);
    }
    return nombre + static_cast<uint32_t>(std::count(debut, fin, '\n'));
}

} // namespace

PorteeDeRecherche PorteeDeRecherche::DeChoix(std::vector<bool> choix)
{
    const bool toutes = std::find(choix.begin(), choix.end(), false) == choix.end();
    return {toutes, std::move(choix)};
}

Recherche::Recherche(const QString& dossier, int colonnes, const QString& texte, PorteeDeRecherche ou)
    : m_dossier(dossier), m_colonnes(colonnes), m_ou(std::move(ou)), m_sansTexte(texte.isEmpty()), m_texte(dossier),
      m_aiguille(texte, m_texte.Codage()), m_suite(m_texte.Octets().begin()), m_fin(m_texte.Octets().end())
{
    AllerAuxEntrees();
    if (m_aiguille.EstIntrouvable())
        m_suite = m_fin;
    else
        m_aiguille.Accorder(QByteArrayView(m_suite, std::min<qsizetype>(m_fin - m_suite, TailleEchantillon)));
}

/// To the line behind the count of entries.
void Recherche::AllerAuxEntrees()
{
    while (m_suite != m_fin) {
        const char* const debut = m_suite;
        const char* const saut = Saut(debut, m_fin);
        m_suite = saut == m_fin ? m_fin : saut + 1;
        QByteArrayView ligne(debut, saut);
        if (saut != m_fin && ligne.endsWith('\r'))
            ligne.chop(1);
        if (ligne == "[ListItems]")
            break;
    }
    const char* const saut = Saut(m_suite, m_fin);
    m_suite = saut == m_fin ? m_fin : saut + 1;
}

bool Recherche::Avancer(qsizetype octets)
{
    while (m_suite != m_fin && octets > 0) {
        const char* const debut = m_suite;
        const qsizetype taille = std::min({qsizetype(m_fin - m_suite), octets, TailleBloc});
        const char* const saut = Saut(m_suite + taille - 1, m_fin);
        ExaminerBloc(saut == m_fin ? m_fin : saut + 1);
        octets -= m_suite - debut;
    }
    return m_suite != m_fin;
}

int Recherche::Pourcent() const
{
    const QByteArrayView octets = m_texte.Octets();
    return octets.isEmpty() ? 100 : static_cast<int>((m_suite - octets.begin()) * 100 / octets.size());
}

/// Reads the lines up to `fin`, where one ends.
void Recherche::ExaminerBloc(const char* fin)
{
    while (m_suite != fin) {
        const char* const place = m_aiguille.PlacePossible(m_suite, fin);
        if (place == fin) {
            m_rang += NombreDeSauts(m_suite, fin);
            m_suite = fin;
            return;
        }
        const void* avant = memrchr(m_suite, '\n', static_cast<size_t>(place - m_suite));
        const char* const debut = avant ? static_cast<const char*>(avant) + 1 : m_suite;
        const char* const saut = Saut(place, fin);
        m_rang += NombreDeSauts(m_suite, debut) + 1;
        m_suite = saut == fin ? fin : saut + 1;
        QByteArrayView ligne(debut, saut);
        if (saut != fin && ligne.endsWith('\r'))
            ligne.chop(1);
        if (const QByteArrayView valeur = ValeurEnOctets(ligne); Convient(valeur))
            Retenir(valeur);
    }
}

bool Recherche::Convient(QByteArrayView valeur)
{
    m_aiguille.Replier(valeur, m_replie);
    if (m_ou.ToutesColonnes)
        return m_aiguille.EstDans(m_replie);
    const char* debut = m_replie.cbegin();
    for (const bool choisie : m_ou.choisies) {
        const char* const barre = std::find(debut, m_replie.cend(), '|');
        if (choisie && m_aiguille.EstDans(QByteArrayView(debut, barre)))
            return true;
        if (barre == m_replie.cend())
            break;
        debut = barre + 1;
    }
    return false;
}

void Recherche::Retenir(QByteArrayView valeur)
{
    m_lignes.debuts.push_back(static_cast<uint64_t>(valeur.data() - m_texte.Octets().data()));
    m_lignes.longueurs.push_back(static_cast<uint32_t>(valeur.size()));
    m_lignes.cles.push_back(m_rang);
}

IssueDeRecherche Recherche::Issue() const
{
    if (m_sansTexte)
        return IssueDeRecherche::SansTexte;
    if (m_texte.Issue() == TexteSauve::Etat::Absent)
        return IssueDeRecherche::Absent;
    if (m_texte.Issue() == TexteSauve::Etat::Illisible)
        return IssueDeRecherche::Illisible;
    return Nombre() == 0 ? IssueDeRecherche::Rien : IssueDeRecherche::Trouve;
}

Recherche::Trouvees Recherche::Prendre()
{
    // The file may be replaced while the results are looked at: they keep their lines, in room that is counted first.
    Trouvees trouvees;
    trouvees.lignes = std::exchange(m_lignes, stockage::Lignes());
    stockage::Lignes& lignes = trouvees.lignes;
    uint64_t taille = 0;
    for (const uint32_t longueur : lignes.longueurs)
        taille += longueur;
    trouvees.source.octets = std::make_unique_for_overwrite<char[]>(taille);
    trouvees.source.taille = taille;
    trouvees.source.codage = m_texte.Codage();
    trouvees.source.colonnes = m_colonnes;

    ImagesDuDossier images(m_dossier, m_texte.Codage());
    lignes.drapeaux.reserve(lignes.debuts.size());
    uint64_t ecrits = 0;
    for (size_t i = 0; i < lignes.debuts.size(); ++i) {
        char* const ici = trouvees.source.octets.get() + ecrits;
        std::memcpy(ici, m_texte.Octets().data() + lignes.debuts[i], lignes.longueurs[i]);
        lignes.debuts[i] = ecrits;
        ecrits += lignes.longueurs[i];
        lignes.drapeaux.push_back(
            DrapeauxDeTranche(QByteArrayView(ici, qsizetype(lignes.longueurs[i])), m_colonnes, images));
    }
    return trouvees;
}
