// A file that is written beside another one and takes its place once it is whole.
#pragma once

#include <QString>

class FichierProvisoire
{
public:
    /// A name of its own in the folder of `definitif`; nothing is made yet.
    explicit FichierProvisoire(const QString& definitif);
    /// What was made under that name goes, unless it has taken its place.
    ~FichierProvisoire();
    FichierProvisoire(const FichierProvisoire&) = delete;
    FichierProvisoire& operator=(const FichierProvisoire&) = delete;

    const QString& Chemin() const { return m_chemin; }
    /// Has every byte on the disk, then renames it. False when either fails: the old file stands then.
    bool Deposer() const;

private:
    QString m_definitif;
    QString m_chemin;
};
