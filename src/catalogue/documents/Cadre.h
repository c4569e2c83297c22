// The frame as the flows see it: which documents are open, how one comes to the front, and their tabs.
#pragma once

#include "catalogue/documents/FenetreDocument.h"

#include <vector>

class Cadre
{
public:
    virtual ~Cadre() = default;

    /// The open windows, oldest first. They belong to the frame; each goes by its Decharger.
    virtual std::vector<FenetreDocument*> Documents() const = 0;
    /// The window that the user works in; null when none is open.
    virtual FenetreDocument* FenetreActive() const = 0;

    /// A new window, loaded: it has its Tag, its table and its panels, and the loading panel is on show.
    virtual FenetreDocument& NouvelleFenetre() = 0;
    virtual void AmenerDevant(FenetreDocument& fenetre) = 0;

    /// Adds the window's tab: its key is the window's Tag, its caption the window's.
    virtual void AjouterOnglet(const FenetreDocument& fenetre) = 0;
    /// Gives the window's tab, found by its Tag, a caption; a window without a tab is no matter.
    virtual void MettreTitreOnglet(const FenetreDocument& fenetre, const QString& titre) = 0;
};

/// Installs the program's frame (not owned) for who has none at hand, and returns the one before.
Cadre* InstallerCadre(Cadre* cadre);

/// The window that the user works in, as the installed frame knows it; null when there is none.
FenetreDocument* FenetreActive();

/// Unloads every document window of the installed frame, in the order of its list. One that refuses stays, and the
/// others still go.
void ToutFermer();
