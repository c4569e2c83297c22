// Folders that must be gone when the command ends, also after an error or an interrupt.
#pragma once

#include <QString>

/// Deletes its folder when it goes, or when SIGINT or SIGTERM ends the process.
class DossierPassager
{
public:
    explicit DossierPassager(const QString& chemin);
    ~DossierPassager();
    DossierPassager(const DossierPassager&) = delete;
    DossierPassager& operator=(const DossierPassager&) = delete;

    const QString& Chemin() const { return m_chemin; }

private:
    QString m_chemin;
};

/// Starts watching for SIGINT and SIGTERM; before any other thread, once.
void GuetterLesInterruptions();
