// Where the instances of the program meet: a new process finds the one that runs and asks it to do something.
#pragma once

#include <QString>

#include <functional>

/// What an instance does when another one asks. An empty member does nothing.
struct ServicesInstance
{
    std::function<void(const QString& texte)> recevoir; ///< a text has arrived; the sender waits until this returns
    std::function<void(const QString& jeton)> montrer;  ///< to the front; the token entitles to it, empty for none
    std::function<void()> fermer;                       ///< asked to close; nobody waits for it
};

/// Instances of one user and one session. A handle names an instance: its process id, from 1 up.
class Rendezvous
{
public:
    virtual ~Rendezvous() = default;

    /// The handle of this process.
    virtual qint32 Poignee() const = 0;
    /// Says what others may ask of this process. They can from the moment on when Chercher finds nobody.
    virtual void Servir(ServicesInstance services) = 0;

    /// Looks for another instance that runs under exactly this title and returns its handle. When there is none, this
    /// process becomes the one that is found, `publier` is called before anybody else can look, and the result is 0.
    /// Where no meeting is possible every process is the first one.
    virtual qint32 Chercher(const QString& titre, const std::function<void()>& publier) = 0;
    /// Makes this process the one that is found, whoever it was before.
    virtual void PrendreLaPlace(const QString& titre, const std::function<void()>& publier) = 0;
    /// Is found no longer and serves nobody.
    virtual void Quitter() = 0;

    // To the instance found under the title that was last looked for. False, and nothing happens, when it is not the
    // one that the handle names or does not answer.

    /// Sends one text, of at most 524288 characters, and returns when it was handled or a generous time has gone by.
    virtual bool Envoyer(qint32 poignee, const QString& texte) = 0;
    virtual bool Montrer(qint32 poignee) = 0;
    /// Asks it to close and does not wait until it has: it may have a question for the user first. It is no longer the
    /// one that is found, even where the user makes it stay.
    virtual bool Fermer(qint32 poignee) = 0;
};
