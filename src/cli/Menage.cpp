#include "cli/Menage.h"

#include "platform/NomsSysteme.h"

#include <QStringList>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>

#include <unistd.h>

namespace {

std::mutex s_verrou;
QStringList s_dossiers;

void SupprimerSousVerrou(const QString& dossier)
{
    // Under another name nothing can be put into the folder any more while it is being emptied.
    const QString sansBarre = dossier.endsWith(u'/') ? dossier.chopped(1) : dossier;
    const QString ecarte = sansBarre + QStringLiteral(".fin");
    // An empty one needs no list of what it holds.
    if (rmdir(OctetsDuChemin(sansBarre).constData()) == 0)
        return;
    const bool renomme = std::rename(OctetsDuChemin(sansBarre).constData(), OctetsDuChemin(ecarte).constData()) == 0;
    std::error_code erreur;
    std::filesystem::remove_all(OctetsDuChemin(renomme ? ecarte : sansBarre).constData(), erreur);
}

[[noreturn]] void Attendre(sigset_t signaux)
{
    int signal = 0;
    while (sigwait(&signaux, &signal) != 0) {
    }
    // The lock stays taken: nobody may begin a folder any more.
    s_verrou.lock();
    for (const QString& dossier : std::as_const(s_dossiers))
        SupprimerSousVerrou(dossier);
    _exit(128 + signal);
}

} // namespace

DossierPassager::DossierPassager(const std::function<QString()>& creer)
{
    const std::scoped_lock verrou(s_verrou);
    m_chemin = creer();
    if (!m_chemin.isEmpty())
        s_dossiers.append(m_chemin);
}

DossierPassager::~DossierPassager()
{
    if (m_chemin.isEmpty())
        return;
    const std::scoped_lock verrou(s_verrou);
    SupprimerSousVerrou(m_chemin);
    s_dossiers.removeOne(m_chemin);
}

void GuetterLesInterruptions()
{
    sigset_t signaux;
    sigemptyset(&signaux);
    sigaddset(&signaux, SIGINT);
    sigaddset(&signaux, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signaux, nullptr);
    // A reader of our output that goes away is an error of the write, not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        std::thread(Attendre, signaux).detach();
    } catch (const std::system_error&) {
        // Without a thread a signal ends the program at once; the next start tidies up.
        pthread_sigmask(SIG_UNBLOCK, &signaux, nullptr);
    }
}
