// The start of the program with its real windows.
#pragma once

#include "shell/Main.h"

#include <memory>

class MDIForm1;
class VeilleSecours;

class EtapesEnFenetres : public EtapesDemarrage
{
public:
    EtapesEnFenetres();
    ~EtapesEnFenetres() override;

    void ChargerCadre() override;
    void MontrerCadre() override;
    void DechargerCadre() override;

    bool PrevInstace() override;
    void SendTexte(const QString& texte) override;
    void SowPrev() override;
    void Class_Terminate98() override;

    void MontrerPresentation() override;
    void ProposerSecours() override;
    void MontrerAstuces() override;

    void OuvrirFichier(const QString& chemin) override;
    void MajMenuRecents() override;

private:
    std::unique_ptr<MDIForm1> m_cadre;
    std::unique_ptr<VeilleSecours> m_veille;
};
