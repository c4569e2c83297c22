// zelvane [PATH]: the program with its windows. All that stands behind the program's name is one path.
#include "extensions/dialogues/AideDesFenetres.h"
#include "extensions/plugins/QrtScript.h"
#include "kit/Couleurs.h"
#include "kit/DialoguesDansLEcran.h"
#include "kit/DialoguesEnFenetre.h"
#include "kit/MessagesEnFenetre.h"
#include "kit/RepriseDuFocus.h"
#include "platform/ComposantsDuSysteme.h"
#include "platform/ImprimantesBureau.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "platform/PreferenceSombre.h"
#include "platform/Presence.h"
#include "platform/PressePapiersBureau.h"
#include "platform/ProgrammesBureau.h"
#include "platform/RendezvousLocal.h"
#include "shell/EtapesEnFenetres.h"

#include <QApplication>
#include <QLocale>

#include <span>

using namespace Qt::StringLiterals;

namespace {

/// The shell has split the line at its blanks; a path keeps them. A path below the current folder is made whole: the
/// list of recent files outlives the folder.
QString LigneDeCommande(std::span<char* const> arguments)
{
    QByteArrayList mots;
    for (const char* mot : arguments)
        mots.append(mot);
    const QString ligne = CheminDesOctets(mots.join(' '));
    return !ligne.isEmpty() && !ligne.startsWith(u'/') && PeutExister(ligne) ? CheminAbsolu(ligne) : ligne;
}

} // namespace

int main(int argc, char** argv)
{
    // The application takes it out of the environment.
    const QString jeton = RendezvousLocal::JetonDuLancement();
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"zelvane"_s);
    QApplication::setDesktopFileName(u"zelvane"_s);

    // Numbers are written as in France, whatever the language.
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));

    const PreferenceSombre preference(QDBusConnection::sessionBus());
    QObject::connect(&preference, &PreferenceSombre::Changee, &MettreCouleurs);

    const PlateformeReelle plateformeReelle;
    ProgrammesBureau programmes;
    plateforme().programmes = &programmes;
    ImprimantesBureau imprimantes;
    plateforme().imprimantes = &imprimantes;
    PressePapiersBureau pressePapiers;
    plateforme().pressePapiers = &pressePapiers;
    ComposantsDuSysteme composants;
    InscrireScripts(composants);
    plateforme().composants = &composants;
    RendezvousLocal rendezvous(RendezvousLocal::Lieu::DuSysteme(), jeton);
    plateforme().rendezvous = &rendezvous;
    const MessagesEnFenetre messages;
    const DialoguesEnFenetre dialogues;
    const RepriseDuFocus reprise;
    const AideDesFenetres aide;
    const DialoguesDansLEcran dansLEcran;
    EtapesEnFenetres etapes;
    if (Main(LigneDeCommande(std::span(argv, static_cast<size_t>(argc)).subspan(1)), etapes) == SuiteDemarrage::Finir)
        return 0;
    return QApplication::exec();
}
