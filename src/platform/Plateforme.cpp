#include "platform/Plateforme.h"

#include "platform/DossierProgramme.h"

#include <QCoreApplication>
#include <QStandardPaths>

Plateforme& plateforme()
{
    static Plateforme laPlateforme;
    return laPlateforme;
}

struct PlateformeReelle::Objets
{
    explicit Objets(const QString& dossierProgramme)
        : association({QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
                       QCoreApplication::applicationFilePath(), dossierProgramme + "IcoFile.ico"})
    {
    }

    ReglagesFichier reglages;
    FichiersIniDisque ini;
    AttributsDisque attributs;
    HorlogeSysteme horloge;
    HasardSysteme hasard;
    RegionDuSysteme region;
    AssociationBureau association;
    AucunProgramme programmes;
    AucuneImprimante imprimantes;
    AucunPressePapiers pressePapiers;
};

PlateformeReelle::PlateformeReelle()
{
    const QString dossier = ChoisirDossierProgramme(LieuxProgramme::DuSysteme());
    m_objets = std::make_unique<Objets>(dossier);
    Plateforme& p = plateforme();
    p.reglages = &m_objets->reglages;
    p.ini = &m_objets->ini;
    p.attributs = &m_objets->attributs;
    p.horloge = &m_objets->horloge;
    p.hasard = &m_objets->hasard;
    p.region = &m_objets->region;
    p.association = &m_objets->association;
    p.programmes = &m_objets->programmes;
    p.imprimantes = &m_objets->imprimantes;
    p.pressePapiers = &m_objets->pressePapiers;
    p.dossierProgramme = dossier;
}

PlateformeReelle::~PlateformeReelle()
{
    plateforme() = Plateforme();
}
