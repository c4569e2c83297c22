#include "shell/PresenceDesFichiers.h"

#include "platform/NomsSysteme.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

struct PresenceDesFichiers::Lien
{
    std::mutex verrou;
    PresenceDesFichiers* demandeur; ///< null once it is gone
};

PresenceDesFichiers::PresenceDesFichiers(QObject* parent) : QObject(parent), m_lien(std::make_shared<Lien>())
{
    m_lien->demandeur = this;
}

PresenceDesFichiers::~PresenceDesFichiers()
{
    const std::lock_guard garde(m_lien->verrou);
    m_lien->demandeur = nullptr;
}

void PresenceDesFichiers::Regarder(const QStringList& chemins)
{
    m_demandes = chemins;
    m_encore = m_regarde;
    if (!m_regarde && !chemins.isEmpty())
        Partir();
}

void PresenceDesFichiers::Partir()
{
    const auto regarder = [lien = m_lien, chemins = m_demandes] {
        QStringList absents;
        std::ranges::remove_copy_if(chemins, std::back_inserter(absents), EstFichier);
        const std::lock_guard garde(lien->verrou);
        if (PresenceDesFichiers* demandeur = lien->demandeur)
            QMetaObject::invokeMethod(demandeur, [demandeur, absents] { demandeur->Recevoir(absents); });
    };
    try {
        // The end of the program does not wait for it either.
        std::thread(regarder).detach();
        m_regarde = true;
    } catch (const std::system_error&) {
        m_regarde = false; // no room for a thread: it is not told
    }
}

void PresenceDesFichiers::Recevoir(const QStringList& absents)
{
    m_regarde = false;
    if (std::exchange(m_encore, false))
        return Regarder(m_demandes);
    emit Absents(absents);
}
