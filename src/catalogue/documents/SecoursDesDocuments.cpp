#include "catalogue/documents/SecoursDesDocuments.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/Categorie.h"

#include <deque>
#include <utility>

bool AvancerLesSecours(const Cadre& cadre, const MomentDeSecours& moment)
{
    bool encore = false;
    for (FenetreDocument* fenetre : cadre.Documents())
        encore = fenetre->Secours.Avancer(fenetre->myqrt, fenetre->Caption(), moment) || encore;
    return encore;
}

void LaisserAuSecours(const Cadre& cadre)
{
    const auto fenetres = cadre.Documents();
    for (FenetreDocument* fenetre : fenetres)
        fenetre->Secours.EcrireMaintenant(fenetre->myqrt, fenetre->Caption());
    // Then what may take its time: a folder goes once what was saved is on the disk.
    for (FenetreDocument* fenetre : fenetres) {
        Categorie& doc = fenetre->myqrt;
        const bool aGarder = doc.AChange() || doc.EnEcriture || fenetre->Secours.TientSaisie();
        if (!aGarder && doc.Forcer())
            doc.FermerDossier();
    }
}

namespace {

/// What is being typed in a document without changes counts as one while the user is asked; then the document is again
/// as it was.
class SaisieComptee
{
public:
    explicit SaisieComptee(FenetreDocument& fenetre)
        : m_doc(fenetre.myqrt), m_seule(!m_doc.IlFautSauver && fenetre.Secours.SaisieADemander(m_doc))
    {
        m_doc.IlFautSauver = m_doc.IlFautSauver || m_seule;
    }
    ~SaisieComptee() { m_doc.IlFautSauver = m_doc.IlFautSauver && !m_seule; }
    SaisieComptee(const SaisieComptee&) = delete;
    SaisieComptee& operator=(const SaisieComptee&) = delete;

    bool EstSeule() const { return m_seule; }

private:
    Categorie& m_doc;
    bool m_seule;
};

/// Lets go of what the user has given up. What was being typed when the rest was saved waits in the copy.
void Conclure(FenetreDocument& fenetre, bool saisieSeule)
{
    Categorie& doc = fenetre.myqrt;
    if (std::exchange(doc.IlFautSauver, false)) {
        doc.ChangementsTus = false;
        fenetre.Secours.Abandonner(!saisieSeule);
    } else {
        fenetre.Secours.EcrireMaintenant(doc, fenetre.Caption());
    }
}

bool DemanderAuxDocuments(Cadre& cadre, const std::vector<FenetreDocument*>& fenetres)
{
    std::deque<SaisieComptee> saisies;
    for (FenetreDocument* fenetre : fenetres) {
        saisies.emplace_back(*fenetre);
        if (!PeutFermer(cadre, *fenetre))
            return false;
    }
    for (size_t i = 0; i < fenetres.size(); ++i)
        Conclure(*fenetres[i], saisies[i].EstSeule());
    return true;
}

} // namespace

bool PeutFinirLaSession(Cadre& cadre, bool questions)
{
    const auto fenetres = cadre.Documents();
    if (!questions) {
        for (FenetreDocument* fenetre : fenetres)
            fenetre->Secours.EcrireMaintenant(fenetre->myqrt, fenetre->Caption());
        return true;
    }
    if (DemanderAuxDocuments(cadre, fenetres))
        return true;
    ReprendreLaSession(cadre);
    return false;
}

void ReprendreLaSession(const Cadre& cadre)
{
    for (FenetreDocument* fenetre : cadre.Documents()) {
        if (fenetre->Secours.Reprendre())
            fenetre->myqrt.IlFautSauver = true;
    }
}
