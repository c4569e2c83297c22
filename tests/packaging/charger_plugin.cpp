// charger_plugin KIND... FILE: whether the program takes a library for a plug-in whose object, named after the file, is
// of these kinds and of no others: "autre", "ouvreur", "exporteur".
#include "extensions/plugins/mPlugin.h"
#include "platform/ComposantsDuSysteme.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    ComposantsDuSysteme composants;
    plateforme().composants = &composants;
    QStringList genres = QCoreApplication::arguments().mid(1);
    const QString fichier = genres.takeLast();
    const QString nom = NomDePlugin(QFileInfo(fichier).fileName());
    const bool pris = EnregistrerDll(fichier, true) && PluginEstAutre(nom) == genres.contains(u"autre"_s) &&
                      PluginEstOuvreur(nom) == genres.contains(u"ouvreur"_s) &&
                      PluginEstExporteur(nom) == genres.contains(u"exporteur"_s);
    plateforme().composants = nullptr;
    return pris ? 0 : 1;
}
