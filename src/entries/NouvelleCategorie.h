// The command that starts a new document.
#pragma once

class Cadre;

/// Asks for the columns of a new category, and opens its window when the user validates.
void NouvelleCategorie(Cadre& cadre);

/// Shows the dialog of a new category, modal, and makes the category once it was validated.
void NouveauQrt(Cadre& cadre);
