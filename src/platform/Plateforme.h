// What the operating system gives, behind small interfaces. A program's main fills this object; tests swap members.
#pragma once

#include "platform/Association.h"
#include "platform/Attributs.h"
#include "platform/Composants.h"
#include "platform/FichiersIni.h"
#include "platform/Imprimantes.h"
#include "platform/PressePapiers.h"
#include "platform/Programmes.h"
#include "platform/Region.h"
#include "platform/Reglages.h"
#include "platform/Temps.h"

#include <QString>

#include <memory>

class Rendezvous;

/// Not owned; none is null once the object is filled, but for those that say so.
struct Plateforme
{
    Reglages* reglages = nullptr;
    FichiersIni* ini = nullptr;
    AttributsFichier* attributs = nullptr;
    Horloge* horloge = nullptr;
    Hasard* hasard = nullptr;
    Region* region = nullptr;
    Association* association = nullptr;
    Programmes* programmes = nullptr;
    Imprimantes* imprimantes = nullptr;
    PressePapiers* pressePapiers = nullptr;
    Composants* composants = nullptr; ///< null in programs without plug-ins
    Rendezvous* rendezvous = nullptr; ///< null in programs that have no window to be found by

    QString dossierProgramme;                         ///< with a trailing separator
    QString nomProgramme = QStringLiteral("zelvane"); ///< base name of the executable
};

/// The platform of this process.
Plateforme& plateforme();

/// The real platform. Fills plateforme() for as long as it lives; needs the application object. Programs are not
/// started, and there are no printers and no clipboard: the windows' main puts a ProgrammesBureau, an ImprimantesBureau
/// and a PressePapiersBureau in.
class PlateformeReelle
{
public:
    PlateformeReelle();
    ~PlateformeReelle();
    PlateformeReelle(const PlateformeReelle&) = delete;
    PlateformeReelle& operator=(const PlateformeReelle&) = delete;

private:
    struct Objets;
    std::unique_ptr<Objets> m_objets;
};
