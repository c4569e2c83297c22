#include "shell/EtapesEnFenetres.h"

#include "base/DossiersDeCommande.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "extensions/dialogues/frmPresent2.h"
#include "extensions/dialogues/frmTip.h"
#include "shell/MDIForm1.h"
#include "shell/VeilleSecours.h"
#include "shell/frmSecours.h"

#include <utility>
#include <vector>

EtapesEnFenetres::EtapesEnFenetres() = default;

EtapesEnFenetres::~EtapesEnFenetres() = default;

void EtapesEnFenetres::ChargerCadre()
{
    m_cadre = std::make_unique<MDIForm1>();
}

void EtapesEnFenetres::MontrerCadre()
{
    m_cadre->show();
    m_veille = std::make_unique<VeilleSecours>(*m_cadre);
}

void EtapesEnFenetres::DechargerCadre()
{
    m_cadre.reset();
}

bool EtapesEnFenetres::PrevInstace()
{
    return m_cadre->My_Instance.PrevInstace();
}

void EtapesEnFenetres::SendTexte(const QString& texte)
{
    m_cadre->My_Instance.SendTexte(texte);
}

void EtapesEnFenetres::SowPrev()
{
    m_cadre->My_Instance.SowPrev();
}

void EtapesEnFenetres::Class_Terminate98()
{
    m_cadre->My_Instance.Class_Terminate98();
}

void EtapesEnFenetres::MontrerPresentation()
{
    frmPresent2(m_cadre.get()).exec();
}

void EtapesEnFenetres::ProposerSecours()
{
    SupprimerDossiersDeCommande();
    std::vector<DossierLaisse> laisses = ChercherLaisses();
    if (!laisses.empty())
        frmSecours(*m_cadre, std::move(laisses), m_cadre.get()).exec();
}

void EtapesEnFenetres::MontrerAstuces()
{
    frmTip::Montrer(*m_cadre);
}

void EtapesEnFenetres::OuvrirFichier(const QString& chemin)
{
    ::OuvrirFichier(*m_cadre, chemin, TypeQrt2, true);
}

void EtapesEnFenetres::MajMenuRecents()
{
    ::MajMenuRecents(*m_cadre);
}
