// Named settings: per-user texts under a section and a key. Both are the same in any case.
#pragma once

#include <QString>

#include <memory>
#include <optional>

class QSettings;

class Reglages
{
public:
    virtual ~Reglages() = default;
    /// Nothing when the key was never written.
    virtual std::optional<QString> Lire(const QString& section, const QString& cle) const = 0;
    virtual void Ecrire(const QString& section, const QString& cle, const QString& valeur) = 0;
    /// Stores at once what was written.
    virtual void Deposer() {}
    /// The value as any process stored it last, not counting what this one has yet to store.
    virtual std::optional<QString> LireDepose(const QString& section, const QString& cle) const
    {
        return Lire(section, cle);
    }
};

/// Settings in one ini file of the user's. Sections and keys are found there in any case of letters and stored in lower
/// case; one that stands there in two spellings is what the program stored. Values reach the disk when the event loop
/// is idle and at the end; a file that cannot be read or written goes unnoticed.
class ReglagesFichier : public Reglages
{
public:
    explicit ReglagesFichier(const QString& fichier = FichierParDefaut());
    ~ReglagesFichier() override;

    /// "zelvane/zelvane.ini" in the user's folder for settings ($XDG_CONFIG_HOME).
    static QString FichierParDefaut();

    std::optional<QString> Lire(const QString& section, const QString& cle) const override;
    void Ecrire(const QString& section, const QString& cle, const QString& valeur) override;
    void Deposer() override;
    std::optional<QString> LireDepose(const QString& section, const QString& cle) const override;

private:
    std::unique_ptr<QSettings> m_fichier;
};
