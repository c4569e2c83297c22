#include "catalogue/SecoursDuDocument.h"

#include "base/Const_Vrac.h"
#include "catalogue/QrtClass.h"

#include <QFile>

SecoursDuDocument::Etat SecoursDuDocument::EtatDe(const QrtClass& doc, const QString& nom)
{
    return {doc.MyLV->Generation(), doc.dependantcol, doc.CheminReel(), doc.FileType, nom};
}

/// Drops what is being written. While the disk is busy with it, that would mean to wait: it goes later then.
void SecoursDuDocument::Oublier()
{
    m_perimee = m_ecriture && m_ecriture->DisqueOccupe();
    if (!m_perimee)
        m_ecriture.reset();
}

bool SecoursDuDocument::Avancer(const QrtClass& doc, const QString& nom, const MomentDeSecours& moment)
{
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
    if (!doc.IlFautSauver) {
        Oublier();
        TenirIdentite(doc, nom);
        return false;
    }
    const bool occupe = moment.maintenant - moment.derniereTouche < Pause || moment.maintenant - m_vuDepuis < Pause;
    return m_copie != m_vu && !occupe && Continuer(doc, nom, moment.maintenant);
}

bool SecoursDuDocument::Continuer(const QrtClass& doc, const QString& nom, qint64 maintenant)
{
    if (!m_ecriture) {
        if (m_derniere && maintenant - *m_derniere < Intervalle)
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

/// What is saved needs no copy. Where not even a few lines can be written, there is none at all.
void SecoursDuDocument::TenirIdentite(const QrtClass& doc, const QString& nom)
{
    m_copie.reset();
    const Etat identite{0, 0, doc.CheminReel(), doc.FileType, nom};
    if (m_identite == identite)
        return;
    m_identite = identite;
    if (!EcrireIdentite(doc, nom))
        QFile::remove(FichierDeSecours(doc.TmpFolder));
}

bool SecoursDuDocument::EcrireMaintenant(const QrtClass& doc, const QString& nom)
{
    Etat etat = EtatDe(doc, nom);
    if (doc.TmpFolder.isEmpty() || !doc.IlFautSauver || m_copie == etat)
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
}
