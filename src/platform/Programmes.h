// Other programs started for the user: viewers, the browser, the mail handler, the help.
#pragma once

#include <QString>

class Programmes
{
public:
    virtual ~Programmes() = default;
    /// Shows a file or folder in the program that the desktop has for it. False when none was started.
    virtual bool OuvrirFichier(const QString& chemin) = 0;
    /// Shows an address ("https:...", "mailto:..."). False when no program was started.
    virtual bool OuvrirAdresse(const QString& adresse) = 0;
};

/// Starts nothing: for programs without a desktop.
class AucunProgramme : public Programmes
{
public:
    bool OuvrirFichier(const QString&) override { return false; }
    bool OuvrirAdresse(const QString&) override { return false; }
};
