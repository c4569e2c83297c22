// Components in shared libraries: a library is loaded, its entry point registers objects by name, and they are made by
// that name.
#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

class Composants
{
public:
    virtual ~Composants() = default;

    using Entree = int32_t (*)();
    enum class Fin {
        Finie, ///< it ran to its end
        Levee, ///< it threw
        EnCours,
    };

    /// The library, ready to be asked for its exports; null when it is not trusted, of another kind, made for another
    /// Qt or broken. Only of one that passes all that is any code run.
    virtual void* Charger(const QString& chemin) = 0;
    /// An export of the library; null when there is none.
    virtual Entree Chercher(void* bibliotheque, const char* nom) = 0;
    /// Runs an entry point of the library on a thread of its own and waits for it, `delai` milliseconds at most.
    virtual Fin Executer(void* bibliotheque, Entree entree, int delai) = 0;
    /// The library's code stays in memory, for the objects that it registered.
    virtual void Liberer(void* bibliotheque) = 0;
    /// Calls AvantLaFin and ends the process, with a library that hangs in its entry point.
    virtual void FinirLeProcessus(const QString& chemin) = 0;

    /// Saves what would be lost with the process.
    std::function<void()> AvantLaFin;

    /// A new object of that name; null when no library has registered it, or its making failed.
    virtual std::unique_ptr<QObject> Creer(const QString& nom) = 0;
};
