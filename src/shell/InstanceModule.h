// What the process keeps for being found by other instances: its handle, and the object that hears from them.
#pragma once

#include <QString>

#include <functional>

class InstanceClass;

/// The window that owns an InstanceClass, as other instances see it. An empty member does nothing.
struct ProprietaireInstance
{
    /// Comes to the front; the token, where there is one, tells the desktop that the user wants it.
    std::function<void(const QString& jeton)> montrer;
    /// Closes, which may ask the user first.
    std::function<void()> fermer;
    /// Ends the process. Only ActionCmd 1 does that.
    std::function<void()> finir;
};

namespace InstanceModule {

/// From now on `instance` hears what other instances send, and its owner does what they ask.
void Accrocher(InstanceClass& instance, const ProprietaireInstance& proprietaire);
/// Nobody hears any more, and this process is no longer found.
void Decrocher();

/// The handle under which texts reach this process; 0 while nobody hears.
qint32 Poignee();
/// The object that hears; null when none does.
InstanceClass* APrevenir();

} // namespace InstanceModule
