#include "shell/EtapesEnFenetres.h"

#include "catalogue/OuvrirFichiersQrt.h"
#include "shell/MDIForm1.h"

EtapesEnFenetres::EtapesEnFenetres() = default;

EtapesEnFenetres::~EtapesEnFenetres() = default;

void EtapesEnFenetres::ChargerCadre()
{
    m_cadre = std::make_unique<MDIForm1>();
}

void EtapesEnFenetres::MontrerCadre()
{
    m_cadre->show();
}

void EtapesEnFenetres::DechargerCadre()
{
    m_cadre.reset();
}

void EtapesEnFenetres::OuvrirFichier(const QString& chemin)
{
    ::OuvrirFichier(*m_cadre, chemin, TypeQrt2, true);
}

void EtapesEnFenetres::MajMenuRecents()
{
    ::MajMenuRecents(*m_cadre);
}
