#include "entries/MenuSupprimer.h"

#include <QPoint>

#include <utility>

namespace {

MenuSupprimer s_menu;

} // namespace

MenuSupprimer InstallerMenuSupprimer(MenuSupprimer menu)
{
    return std::exchange(s_menu, std::move(menu));
}

ChoixSupprimer DemanderMenuSupprimer(const QPoint& place)
{
    return s_menu ? s_menu(place) : ChoixSupprimer::Aucun;
}
