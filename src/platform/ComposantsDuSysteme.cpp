#include "platform/ComposantsDuSysteme.h"

#include "platform/NomsSysteme.h"
#include "platform/ZelvanePlugin.h"

#include <QFile>
#include <QLibraryInfo>
#include <QVersionNumber>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <string_view>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view Marque = "ZelvanePlugin;interface=1;qt=";

/// Of an entry point that was started. The thread shares it, and may outlive who waits.
struct Deroulement
{
    std::mutex verrou;
    std::condition_variable fini;
    bool estFini = false;
    bool aLeve = false;
};

void Derouler(const std::shared_ptr<Deroulement>& deroulement, Composants::Entree entree)
{
    bool leve = false;
    try {
        entree();
    } catch (...) {
        leve = true;
    }
    const std::lock_guard garde(deroulement->verrou);
    deroulement->aLeve = leve;
    deroulement->estFini = true;
    deroulement->fini.notify_all();
}

bool EstAMoiSeul(const QString& chemin)
{
    const auto etat = EtatDuChemin(chemin);
    return etat && (etat->st_uid == getuid() || etat->st_uid == 0) && (etat->st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

bool AMarque(const QString& chemin)
{
    QFile fichier;
    if (!EstFichier(chemin) || !OuvrirParChemin(fichier, chemin, QIODevice::ReadOnly) || fichier.size() == 0)
        return false;
    const uchar* octets = fichier.map(0, fichier.size());
    return octets && AMarqueDePlugin(QByteArrayView(octets, fichier.size()));
}

} // namespace

bool EstDeConfiance(const QString& chemin)
{
    // Where a link leads, others may be able to put another file in the place of this one.
    const QByteArray octets = OctetsDuChemin(chemin);
    const std::unique_ptr<char, decltype(&std::free)> vrai(realpath(octets.constData(), nullptr), &std::free);
    return vrai && EstAMoiSeul(chemin) && EstAMoiSeul(DossierDuChemin(chemin)) &&
           EstAMoiSeul(DossierDuChemin(CheminDesOctets(vrai.get())));
}

bool AMarqueDePlugin(QByteArrayView octets)
{
    const std::string_view tout(octets.data(), static_cast<size_t>(octets.size()));
    if (!tout.starts_with("\177ELF"))
        return false;
    const size_t place = tout.find(Marque);
    if (place == std::string_view::npos)
        return false;
    const std::string_view suite = tout.substr(place + Marque.size(), 32);
    const auto version = QVersionNumber::fromString(
        QString::fromLatin1(suite.data(), static_cast<qsizetype>(std::min(suite.find(';'), suite.size()))));
    const QVersionNumber courante = QLibraryInfo::version();
    // A library runs with the Qt that it was built for and with later ones of the same kind.
    return version.majorVersion() == courante.majorVersion() && version.minorVersion() <= courante.minorVersion();
}

ComposantsDuSysteme::ComposantsDuSysteme() : m_registre(std::make_unique<ZelvaneRegistre>())
{
    attente = [](const std::function<bool(int)>& finie, int delai) { return finie(delai); };
    m_registre->taille = sizeof(ZelvaneRegistre);
    m_registre->contexte = this;
    m_registre->inscrire = [](void* contexte, const char* nom, Fabrique fabrique) {
        static_cast<ComposantsDuSysteme*>(contexte)->Inscrire(QString::fromUtf8(nom), fabrique);
    };
    m_registre->creer = [](void* contexte, const char* nom) {
        return static_cast<ComposantsDuSysteme*>(contexte)->Creer(QString::fromUtf8(nom)).release();
    };
}

ComposantsDuSysteme::~ComposantsDuSysteme() = default;

void* ComposantsDuSysteme::Charger(const QString& chemin)
{
    if (!EstDeConfiance(chemin) || !AMarque(chemin))
        return nullptr;
    // It stays for good: objects, and a thread that hangs, may still run in it. What it misses is found out now.
    void* bibliotheque = dlopen(OctetsDuChemin(chemin).constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!bibliotheque)
        return nullptr;
    if (auto* registre = static_cast<const ZelvaneRegistre**>(dlsym(bibliotheque, "ZelvaneRegistreDuProgramme")))
        *registre = m_registre.get();
    return bibliotheque;
}

Composants::Entree ComposantsDuSysteme::Chercher(void* bibliotheque, const char* nom)
{
    return reinterpret_cast<Entree>(dlsym(bibliotheque, nom));
}

Composants::Fin ComposantsDuSysteme::Executer(void*, Entree entree, int delai)
{
    const auto deroulement = std::make_shared<Deroulement>();
    try {
        std::thread(Derouler, deroulement, entree).detach();
    } catch (const std::system_error&) {
        return Fin::Levee; // no room for a thread
    }
    const auto finie = [&deroulement](int millisecondes) {
        std::unique_lock garde(deroulement->verrou);
        return deroulement->fini.wait_for(garde, std::chrono::milliseconds(millisecondes),
                                          [&deroulement] { return deroulement->estFini; });
    };
    if (!attente(finie, delai))
        return Fin::EnCours;
    const std::lock_guard garde(deroulement->verrou);
    return deroulement->aLeve ? Fin::Levee : Fin::Finie;
}

void ComposantsDuSysteme::Liberer(void* bibliotheque)
{
    dlclose(bibliotheque);
}

void ComposantsDuSysteme::FinirLeProcessus(const QString& chemin)
{
    if (AvantLaFin)
        AvantLaFin();
    std::fprintf(stderr, "zelvane: le plug-in %s ne répond pas, le programme se termine\n",
                 OctetsDuChemin(chemin).constData());
    // No destructors: the library's thread still runs.
    _exit(EXIT_FAILURE);
}

std::unique_ptr<QObject> ComposantsDuSysteme::Creer(const QString& nom)
{
    Fabrique fabrique = nullptr;
    {
        const std::lock_guard garde(m_verrou);
        fabrique = m_fabriques.value(nom);
    }
    if (!fabrique)
        return nullptr;
    try {
        return std::unique_ptr<QObject>(fabrique());
    } catch (...) {
        return nullptr;
    }
}

void ComposantsDuSysteme::Inscrire(const QString& nom, Fabrique fabrique)
{
    const std::lock_guard garde(m_verrou);
    m_fabriques.insert(nom, fabrique);
}
