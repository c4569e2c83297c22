// Lending entries and taking them back. The commands are not there yet.
#pragma once

class FenetreDocument;

/// Marks the selected entries as lent to somebody.
void MarquerPrete(FenetreDocument& fenetre);
/// Marks the selected entries as returned.
void MarquerRendu(FenetreDocument& fenetre);
