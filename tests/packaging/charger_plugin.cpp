// charger_plugin FILE: whether the program takes a library for a plug-in and makes its object "Modele".
#include "extensions/plugins/mPlugin.h"
#include "platform/ComposantsDuSysteme.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    ComposantsDuSysteme composants;
    plateforme().composants = &composants;
    const bool pris = EnregistrerDll(QCoreApplication::arguments().value(1), true) && PluginEstAutre(u"Modele"_s) &&
                      PluginEstOuvreur(u"Modele"_s) && PluginEstExporteur(u"Modele"_s);
    plateforme().composants = nullptr;
    return pris ? 0 : 1;
}
