// A folder held against other processes, without a file of its own in it.
#pragma once

#include <QString>

#include <optional>

/// The hold on a folder; it ends with the object or the process.
class VerrouDossier
{
public:
    VerrouDossier() = default;
    ~VerrouDossier() { Rendre(); }
    VerrouDossier(VerrouDossier&& autre) noexcept;
    VerrouDossier& operator=(VerrouDossier&& autre) noexcept;

    /// Takes hold of a folder. Nothing when somebody else holds it. Where a folder cannot be held at all (it does not
    /// exist, or its file system knows no locks) the result holds nothing.
    static std::optional<VerrouDossier> Prendre(const QString& dossier);

    /// Whether the folder is really held: nobody else has it then.
    bool Tient() const { return m_tient; }
    /// Whether the folder at this path is the one that was taken hold of, and not another one in its place. One that
    /// cannot be looked at is, as long as it was not deleted.
    bool EstCelui(const QString& dossier) const;

private:
    void Rendre();
    int m_descripteur = -1;
    bool m_tient = false;
};
