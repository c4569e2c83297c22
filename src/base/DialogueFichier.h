// The one door for file dialogs. What shows them is a presenter: the system's dialogs in the program, a queue of
// prepared answers in tests.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// A line of a dialog's list of file types: "Zelvane 1.4" with "*.qrt". Patterns are separated by ";".
struct TypeDeFichier
{
    QString libelle;
    QString motifs;
};

/// What a file dialog is asked to show.
struct DemandeFichier
{
    QString titre;
    QString depart; ///< folder to start in, or a file to propose; the system's choice when empty
    QList<TypeDeFichier> types;
    int type = 1; ///< 1-based: the type chosen at first
    bool plusieurs = false;
};

/// What the user chose: full paths, in the order of the dialog, and the 1-based type.
struct ReponseFichier
{
    QStringList fichiers;
    int type = 1;
};

/// Takes labels and patterns in turn, separated by "|": "(*.*)|*.*|Zelvane 2/1.5|*.qrt".
QList<TypeDeFichier> TypesDuFiltre(const QString& filtre);

class PresentateurFichiers
{
public:
    virtual ~PresentateurFichiers() = default;

    /// Files that exist. Nothing when the user cancels.
    virtual std::optional<ReponseFichier> Ouvrir(const DemandeFichier& demande) = 0;
    /// One path, exactly as the user typed or chose it, made whole; it may exist: the caller asks. Nothing when the
    /// user cancels.
    virtual std::optional<ReponseFichier> Enregistrer(const DemandeFichier& demande) = 0;
    /// A folder that exists; empty when the user cancels.
    virtual QString Dossier(const QString& depart, const QString& titre) = 0;
};

/// Installs the presenter (not owned) and returns the one before. Without any, every dialog is cancelled.
PresentateurFichiers* InstallerPresentateur(PresentateurFichiers* presentateur);

std::optional<ReponseFichier> DialogueOuvrir(const DemandeFichier& demande);
std::optional<ReponseFichier> DialogueEnregistrer(const DemandeFichier& demande);
/// The folder that the user chose, from `depart` on; empty when nothing was chosen.
QString ChoisirDossier(const QString& depart, const QString& titre);
