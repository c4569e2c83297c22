// The start of the program, from the file association to the settings file, in one fixed order.
#pragma once

#include <QString>

/// What Main does to windows and to other instances. The windows implement it; tests record it.
class EtapesDemarrage
{
public:
    virtual ~EtapesDemarrage() = default;

    /// Loads the frame without showing it. Afterwards the questions about other instances can be asked.
    virtual void ChargerCadre() = 0;
    virtual void MontrerCadre() = 0;
    virtual void DechargerCadre() = 0;

    /// Whether another instance runs.
    virtual bool PrevInstace() = 0;
    /// Sends a text to the other instance; an empty one is not sent.
    virtual void SendTexte(const QString& texte) = 0;
    /// Brings the other instance's window to the front.
    virtual void SowPrev() = 0;
    /// Stops listening for other instances.
    virtual void Class_Terminate98() = 0;

    /// Shows the start-up window and returns when it is gone.
    virtual void MontrerPresentation() = 0;
    /// Opens a catalogue and shows messages; an empty path is a file that does not exist.
    virtual void OuvrirFichier(const QString& chemin) = 0;
    /// Brings the frame's menu of recent files up to date.
    virtual void MajMenuRecents() = 0;
    /// Offers what a killed run left behind, if there is anything, and returns when the user has chosen.
    virtual void ProposerSecours() = 0;
    /// Shows the tips and returns at once.
    virtual void MontrerAstuces() = 0;
};

enum class SuiteDemarrage {
    Vivre, ///< the frame is shown: the user's events come next
    Finir, ///< another instance has taken over
};

/// Runs the start once per process. `ligneDeCommande` is all that stands behind the program's name: one path, neither
/// split nor unquoted; empty when no file was given.
SuiteDemarrage Main(const QString& ligneDeCommande, EtapesDemarrage& etapes);

/// Creates "Zelvane.ini" in the program's folder unless it exists. A folder that cannot be written is no matter: the
/// program runs without the file.
void CreerZelvaneIni();
