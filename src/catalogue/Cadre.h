// The frame as the flows see it: which documents are open, and how one comes to the front.
#pragma once

#include "base/Fenetres.h"
#include "catalogue/FenetreDocument.h"

#include <vector>

class Cadre : public FenetresOuvertes
{
public:
    /// The open windows, oldest first. They belong to the frame; each goes by its Decharger.
    virtual std::vector<FenetreDocument*> Documents() const = 0;
    /// The window that the user works in; null when none is open.
    virtual FenetreDocument* FenetreActive() const = 0;

    /// A new window, loaded: it has its Tag, its table and its panels, and the loading panel is on show.
    virtual FenetreDocument& NouvelleFenetre() = 0;
    virtual void AmenerDevant(FenetreDocument& fenetre) = 0;

    std::vector<FenetreOuverte*> Fenetres() const final
    {
        const auto documents = Documents();
        return {documents.begin(), documents.end()};
    }
};
