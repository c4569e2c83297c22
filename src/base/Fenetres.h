// The open document windows, as far as general routines need them. The frame knows them and installs itself here.
#pragma once

#include <vector>

/// One window of an open category.
class FenetreOuverte
{
public:
    virtual ~FenetreOuverte() = default;
    /// Asks its questions and goes, unless an answer keeps it.
    virtual void Decharger() = 0;
};

class FenetresOuvertes
{
public:
    virtual ~FenetresOuvertes() = default;
    /// The windows in the order of the window list, not owned.
    virtual std::vector<FenetreOuverte*> Fenetres() const = 0;
};

/// Installs the list (not owned) and returns the one before. Without any, no window is open.
FenetresOuvertes* InstallerFenetres(FenetresOuvertes* fenetres);
/// The installed list; null without any.
FenetresOuvertes* FenetresInstallees();

/// Unloads every document window, in the order of the window list. One that refuses stays, and the others still go.
void ToutFermer();
