#include "catalogue/documents/SecoursDuDocument.h"

#include "base/DossiersTemp.h"
#include "catalogue/texte/Categorie.h"

#include <QFile>

#include <chrono>
#include <new>
#include <utility>

SecoursDuDocument::Etat SecoursDuDocument::EtatDe(const Categorie& doc, const QString& nom)
{
    return {doc.MyLV->Generation(), doc.dependantcol, doc.CheminReel(), doc.FileType, nom, doc.FichierVu, doc.SeTait()};
}

/// Drops what is being written. While the disk is busy with it, that would mean to wait: it goes later then.
void SecoursDuDocument::Oublier()
{
    m_perimee = m_ecriture && m_ecriture->DisqueOccupe();
    if (!m_perimee)
        m_ecriture.reset();
}

bool SecoursDuDocument::Avancer(const Categorie& doc, const QString& nom, const MomentDeSecours& moment)
{
    // What was typed is in no table: the copy is all there is of it, until the user touches a key again.
    if (m_tientSaisie)
        return false;
    Etat etat = EtatDe(doc, nom);
    const bool change = etat != m_vu;
    if (change) {
        m_vu = std::move(etat);
        m_vuDepuis = moment.maintenant;
    }
    if (change || m_perimee)
        Oublier();
    if (doc.TmpFolder.isEmpty() || m_perimee)
        return false;
    if (!doc.AChange()) {
        Oublier();
        // While a save runs, the changes count as saved before they are.
        if (!doc.EnEcriture && EstSurLeDisque(doc))
            TenirIdentite(doc, nom);
        return false;
    }
    const bool occupe = moment.maintenant - moment.derniereTouche < Pause || moment.maintenant - m_vuDepuis < Pause;
    return m_copie != m_vu && !occupe && Continuer(doc, nom, moment.maintenant);
}

/// Whether all that is new is that nobody will be asked about the changes: the user may close the window any moment.
bool SecoursDuDocument::CopieParleEncore() const
{
    if (!m_copie || !m_vu.tus || m_copie->tus)
        return false;
    Etat copie = *m_copie;
    copie.tus = true;
    return copie == m_vu;
}

bool SecoursDuDocument::Continuer(const Categorie& doc, const QString& nom, qint64 maintenant)
{
    if (!m_ecriture) {
        if (m_derniere && maintenant - *m_derniere < Intervalle && !CopieParleEncore())
            return false;
        m_ecriture = std::make_unique<EcritureDeSecours>(doc, nom);
    }
    const EcritureDeSecours::Etat issue = m_ecriture->Avancer();
    if (issue == EcritureDeSecours::Etat::EnCours)
        return true;
    m_derniere = maintenant;
    Finir(issue);
    return false;
}

void SecoursDuDocument::Finir(EcritureDeSecours::Etat issue)
{
    m_ecriture.reset();
    if (issue != EcritureDeSecours::Etat::Faite)
        return;
    m_copie = m_vu;
    m_identite.reset();
}

/// Whether what was saved is on the disk, to which a helper thread sees. Before that the copy stays: a power cut may
/// take the old file, which is deleted, and the new one.
bool SecoursDuDocument::EstSurLeDisque(const Categorie& doc)
{
    const auto occupe = [this] {
        return m_forcage.valid() && m_forcage.wait_for(std::chrono::seconds(0)) == std::future_status::timeout;
    };
    const Depot depot{doc.AForcer, doc.Archive};
    if (!depot.chemin.isEmpty() && m_depot != depot && !occupe()) {
        m_depot = depot;
        // Where no thread can be had, closing the document sees to it.
        m_forcage = std::async(std::launch::async | std::launch::deferred, ForcerFichier, depot.chemin);
    }
    return !occupe();
}

/// What is saved needs no copy. Where not even a few lines can be written, there is none at all.
void SecoursDuDocument::TenirIdentite(const Categorie& doc, const QString& nom)
{
    m_copie.reset();
    const Etat identite{0, 0, doc.CheminReel(), doc.FileType, nom, doc.FichierVu};
    if (m_identite == identite)
        return;
    m_identite = identite;
    if (!EcrireIdentite(doc, nom))
        QFile::remove(FichierDeSecours(doc.TmpFolder));
}

bool SecoursDuDocument::EcrireMaintenant(const Categorie& doc, const QString& nom)
try {
    if (doc.TmpFolder.isEmpty())
        return true;
    if (std::optional<SaisieEnCours> saisie = SaisieDe(doc))
        return EcrireAvecSaisie(doc, nom, *std::move(saisie));
    Etat etat = EtatDe(doc, nom);
    if (!doc.AChange() || m_copie == etat)
        return true;
    if (!m_ecriture || m_perimee || etat != m_vu) {
        m_ecriture.reset();
        m_vu = std::move(etat);
        m_ecriture = std::make_unique<EcritureDeSecours>(doc, nom);
    }
    m_perimee = false;
    const EcritureDeSecours::Etat issue = m_ecriture->Achever();
    Finir(issue);
    return issue == EcritureDeSecours::Etat::Faite;
} catch (const std::bad_alloc&) {
    m_ecriture.reset();
    return false;
}

std::optional<SaisieEnCours> SecoursDuDocument::SaisieDe(const Categorie& doc) const
{
    return doc.Saisie && !m_saisieAbandonnee ? doc.Saisie() : std::nullopt;
}

bool SecoursDuDocument::SaisieADemander(const Categorie& doc) const
{
    return !m_tientSaisie && SaisieDe(doc).has_value();
}

bool SecoursDuDocument::EcrireAvecSaisie(const Categorie& doc, const QString& nom, SaisieEnCours saisie)
{
    m_ecriture.reset();
    m_perimee = false;
    if (EcritureDeSecours(doc, nom, std::move(saisie)).Achever() != EcritureDeSecours::Etat::Faite)
        return false;
    // Of no state of the table: once the session goes on, another one takes its place.
    m_copie.reset();
    m_identite.reset();
    m_tientSaisie = true;
    return true;
}

void SecoursDuDocument::Abandonner(bool changements)
{
    m_tientSaisie = false;
    m_saisieAbandonnee = true;
    m_changementsAbandonnes = changements;
}

bool SecoursDuDocument::Reprendre()
{
    m_tientSaisie = false;
    m_saisieAbandonnee = false;
    return std::exchange(m_changementsAbandonnes, false);
}
