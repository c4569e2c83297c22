// Folders that must be gone when the command ends, also after an error or an interrupt.
#pragma once

#include <QString>

#include <functional>

/// Deletes its folder when it goes, or when SIGINT or SIGTERM ends the process.
class DossierPassager
{
public:
    /// `creer` makes the folder and returns its path, empty when it cannot; no interrupt comes in between.
    explicit DossierPassager(const std::function<QString()>& creer);
    ~DossierPassager();
    DossierPassager(const DossierPassager&) = delete;
    DossierPassager& operator=(const DossierPassager&) = delete;

    const QString& Chemin() const { return m_chemin; }

private:
    QString m_chemin;
};

/// Starts watching for SIGINT and SIGTERM; before any other thread, once.
void GuetterLesInterruptions();
