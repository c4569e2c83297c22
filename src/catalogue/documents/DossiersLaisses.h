// Documents that a killed run left behind: their folders and rescue copies, found at the next start.
#pragma once

#include "base/TraceDeFichier.h"
#include "platform/VerrouDossier.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

class Cadre;

/// One of them. While it lives no other process can take it.
struct DossierLaisse
{
    QString dossier;                       ///< with a trailing separator
    QString nom;                           ///< as its window's caption was; the folder's own name when nothing tells it
    QString chemin;                        ///< the document's file; empty when it was never saved or nothing tells it
    std::optional<TraceDeFichier> fichier; ///< that file as the document knew it
    QDateTime date;                        ///< when something of it was last written
    std::optional<qint64> entrees;
    bool modifie = false;     ///< unsaved changes are in its rescue copy
    bool tus = false;         ///< and nobody was to be asked about them
    bool enregistree = false; ///< its file is there and whole; without that it may be nowhere else
    VerrouDossier verrou;
};

/// Finds them below TempFolder and in its default place, the latest first; those that hold nothing are deleted. A
/// folder that a living process holds, that is another user's, or of which that cannot be told, is left alone.
std::vector<DossierLaisse> ChercherLaisses();

/// Opens one as an unsaved document, with its images and comments, in a new window and a folder of its own. Then it is
/// gone. False, with a message, when it cannot be read ("msgSecoursIllisible") or copied ("msgSecoursCopie"): it stays.
/// True also when its last changes could not be read ("msgSecoursAncien"): the document is as it was saved then, and
/// what was left stays, too.
bool OuvrirLaisse(Cadre& cadre, const DossierLaisse& laisse);

/// Deletes it for good.
void JeterLaisse(const DossierLaisse& laisse);
