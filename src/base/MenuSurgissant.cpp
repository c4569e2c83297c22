#include "base/MenuSurgissant.h"

#include <utility>

namespace {
PresentateurMenus* s_presentateur = nullptr;
}

PresentateurMenus* InstallerPresentateur(PresentateurMenus* presentateur)
{
    return std::exchange(s_presentateur, presentateur);
}

QString ChoisirDansMenu(const QString& menu, const QPoint& endroit)
{
    return s_presentateur ? s_presentateur->Choisir(menu, endroit) : QString();
}
