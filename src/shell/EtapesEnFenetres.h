// The start of the program with its real windows.
#pragma once

#include "shell/Main.h"

#include <memory>

class MDIForm1;

class EtapesEnFenetres : public EtapesDemarrage
{
public:
    EtapesEnFenetres();
    ~EtapesEnFenetres() override;

    void ChargerCadre() override;
    void MontrerCadre() override;
    void DechargerCadre() override;

    // Instances do not find each other yet: every one is the first.
    bool PrevInstace() override { return false; }
    void SendTexte(const QString&) override {}
    void SowPrev() override {}
    void Class_Terminate98() override {}

    // There is no start-up window and no tip to show yet.
    void MontrerPresentation() override {}
    void MontrerAstuces() override {}

    void OuvrirFichier(const QString& chemin) override;
    void MajMenuRecents() override;

private:
    std::unique_ptr<MDIForm1> m_cadre;
};
