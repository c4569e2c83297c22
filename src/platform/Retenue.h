// Work that nothing from outside may cut through: while a file is being replaced, no signal, no other program's request
// and no end of the session is acted on.
#pragma once

#include <functional>

class QObject;

/// As long as one lives, events may be let through and the following waits all the same: what arrives at sockets and
/// pipes of the user-interface thread (signals, the session manager, other programs), the end of the program, and what
/// was given to Apres. Timers, painting and queued calls go on. One within another is one. To be made and ended by the
/// user-interface thread.
class Retenue
{
public:
    Retenue();
    ~Retenue();
    Retenue(const Retenue&) = delete;
    Retenue& operator=(const Retenue&) = delete;

    static bool EnCours();
    /// Calls `suite` at once when nothing is held back, else from the event loop after that, in the order in which it
    /// was asked for. Never when `contexte` has gone before.
    static void Apres(QObject* contexte, std::function<void()> suite);
    /// The sockets of `objet` and of its children are served all the same: what they do is harmless, or waits by
    /// itself.
    static void Excepter(QObject* objet);
};
