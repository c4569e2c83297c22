// The commands of the tool bars by their keys, and the buttons.
#pragma once

#include <QString>
#include <QStringView>

#include <span>

class MDIForm1;

/// Runs the command of the button `cle`, or "commentaire", on the window that is active at this moment. Keys are
/// compared exactly. Without a window, what needs one does nothing; with one, any other text shows "Rien".
void Commande(MDIForm1& cadre, const QString& cle);

/// A button of the tool bars. `cle` is that of its row in the table of commands, `image` a key of Icone.
struct BoutonDeBarre
{
    const char16_t* cle;
    const char16_t* infoBulle;
    const char16_t* image;
};

/// The buttons of Toolbar1 (small icons) or Toolbar2 (large icons), in order.
std::span<const BoutonDeBarre> BoutonsDeToolbar1();
std::span<const BoutonDeBarre> BoutonsDeToolbar2();

/// What a button shows of a state.
enum ValeurBouton { BoutonRelache = 0, BoutonEnfonce = 1 };
constexpr ValeurBouton EtatBouton(bool etat)
{
    return etat ? BoutonEnfonce : BoutonRelache;
}
