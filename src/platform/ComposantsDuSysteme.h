// The component service on shared objects of the system.
#pragma once

#include "platform/Composants.h"

#include <QByteArrayView>
#include <QHash>

#include <functional>
#include <mutex>

struct ZelvaneRegistre;

class ComposantsDuSysteme : public Composants
{
public:
    using Fabrique = QObject* (*)();
    /// Waits until `finie` says so, `delai` milliseconds at most; false when that time has passed.
    using Attente = std::function<bool(const std::function<bool(int delai)>& finie, int delai)>;

    ComposantsDuSysteme();
    ~ComposantsDuSysteme() override;

    void* Charger(const QString& chemin) override;
    Entree Chercher(void* bibliotheque, const char* nom) override;
    Fin Executer(void* bibliotheque, Entree entree, int delai) override;
    void Liberer(void* bibliotheque) override;
    void FinirLeProcessus(const QString& chemin) override;
    std::unique_ptr<QObject> Creer(const QString& nom) override;

    /// Makes objects of the program's own reachable by name. From any thread.
    void Inscrire(const QString& nom, Fabrique fabrique);

    /// What Executer waits by.
    Attente attente;

private:
    std::unique_ptr<ZelvaneRegistre> m_registre;
    std::mutex m_verrou;
    QHash<QString, Fabrique> m_fabriques;
};

/// Whether nobody but this user and root can write the file or the folder in which it lies.
bool EstDeConfiance(const QString& chemin);
/// Whether a library's bytes have the mark of a plug-in for this program and for the Qt that is running.
bool AMarqueDePlugin(QByteArrayView octets);
