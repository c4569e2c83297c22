// The commands behind the tool bars and most pop-up menus, by their keys, and the buttons of the tool bars.
#pragma once

#include <QString>
#include <QStringView>

#include <span>

class Cadre;
class FenetreDocument;

/// Runs the command `cle` on the window that is active at this moment. Without one, only "addcat", "apropos", "aide"
/// and "ouvrir" do something. Keys are compared exactly; an unknown one, with a window active, shows "Rien".
void Commande(Cadre& cadre, const QString& cle);

/// Whether the command `cle` works on the active window.
bool VeutUnDocument(QStringView cle);
/// Whether what the command `cle` calls is there yet. Buttons and menu items of the others are shown disabled.
bool CommandeDisponible(QStringView cle);

/// Saves the window's document; window and tab then show the name of its file, and menus the recent files. `sous` asks
/// for a path.
void EnregistrerEtTitrer(Cadre& cadre, FenetreDocument& fenetre, bool sous);

/// A button of the tool bars; `image` is a key of Icone.
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
