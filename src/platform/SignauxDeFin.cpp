#include "platform/SignauxDeFin.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int s_signaux[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> s_entree = -1;

/// All that may be done here is to write a byte.
void Transmettre(int signal)
{
    const int erreur = errno;
    const auto octet = static_cast<unsigned char>(signal);
    [[maybe_unused]] const ssize_t ecrit = write(s_entree, &octet, 1);
    errno = erreur;
}

bool EstIgnore(int signal)
{
    struct sigaction actuelle
    {
    };
    return sigaction(signal, nullptr, &actuelle) == 0 && actuelle.sa_handler == SIG_IGN;
}

void Installer(void (*traitement)(int))
{
    struct sigaction action
    {
    };
    action.sa_handler = traitement;
    action.sa_flags = SA_RESTART;
    for (const int signal : s_signaux) {
        if (!EstIgnore(signal))
            sigaction(signal, &action, nullptr);
    }
}

} // namespace

SignauxDeFin::SignauxDeFin(std::function<void()> avant) : m_avant(std::move(avant))
{
    if (pipe2(m_tube, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_guetteur = std::make_unique<QSocketNotifier>(m_tube[0], QSocketNotifier::Read);
    QObject::connect(m_guetteur.get(), &QSocketNotifier::activated, m_guetteur.get(), [this] { Entendre(); });
    s_entree = m_tube[1];
    Installer(Transmettre);
}

SignauxDeFin::~SignauxDeFin()
{
    if (!m_guetteur)
        return;
    Installer(SIG_DFL);
    s_entree = -1;
    m_guetteur.reset();
    close(m_tube[0]);
    close(m_tube[1]);
}

void SignauxDeFin::Entendre()
{
    unsigned char octet = 0;
    if (read(m_tube[0], &octet, 1) != 1)
        return;
    m_avant();
    std::signal(octet, SIG_DFL);
    std::raise(octet);
}
