// One document window as the flows see it: the open and save flows work on this, the shell shows it, tests stand in.
#pragma once

#include "catalogue/documents/SecoursDuDocument.h"
#include "catalogue/texte/Categorie.h"

#include <QString>

/// The window of one open category. It owns the document, with its table and its folder, and the panels.
class FenetreDocument
{
public:
    /// The folder stays where the rescue copy holds what was being typed.
    virtual ~FenetreDocument();
    /// Asks its questions and goes, unless an answer keeps it.
    virtual void Decharger() = 0;

    Categorie myqrt;
    QString Tag; ///< key of the window, drawn when it is loaded: see NouveauTag
    SecoursDuDocument Secours;

    /// Lets the document's folder go, as the window does: unless it holds what is nowhere else.
    void FermerDossier();

    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& titre) = 0;

    /// Shows the counts, the picture of the entry with the focus and the states of the view anew; with `miseEnPage`
    /// also the panels and the font.
    virtual void RedrawAll(bool miseEnPage = false) = 0;
    /// Shows a picture file in the images panel; an empty path clears it. A file that cannot be loaded leaves it as it
    /// was.
    virtual void MontrerImage(const QString& fichier) = 0;
    /// Scrolls the table to an entry (from 1), also to one just added.
    virtual void RendreVisible(int ligne) = 0;

    /// Turns the images panel on or off. A window comes with it on.
    virtual void mAfficherImages_Click() = 0;
    /// Opens the dialog of the columns.
    virtual void mModifierCategorie_Click() = 0;
    /// Opens the comments of the category.
    virtual void mModifierCommentaires_Click() = 0;
    /// Opens the search.
    virtual void mRechercher_Click() = 0;
};

/// A key for a window: "a" and a number drawn from the time of day and chance.
QString NouveauTag();
