// Ini files on the disk. See TexteIni.h for their syntax. Nothing is cached: each call reads the file.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class FichiersIni
{
public:
    virtual ~FichiersIni() = default;

    struct Lecture
    {
        std::optional<QString> valeur; ///< nothing when file, section or key is missing or the file cannot be opened
        QString erreur;                ///< set when the file was opened and could not be read
    };
    Lecture Lire(const QString& fichier, const QString& section, const QString& cle) const;

    /// Writes a key; creates file and section as needed. False when the text cannot be held by an ini file (see
    /// TexteIni::Ecrire) or the file cannot be written; it is then as it was.
    bool Ecrire(const QString& fichier, const QString& section, const QString& cle, const QString& valeur);
    /// Removes a key. True also when there was none; false when the file cannot be written.
    bool SupprimerCle(const QString& fichier, const QString& section, const QString& cle);
    /// Removes a section with its keys, as SupprimerCle.
    bool SupprimerSection(const QString& fichier, const QString& section);

protected:
    struct Contenu
    {
        enum Etat { Lu, Absent, Ferme, Casse } etat = Absent; ///< Ferme: no right to open it; Casse: reading failed
        QByteArray octets;
        QString erreur;
    };
    virtual Contenu Charger(const QString& fichier) const = 0;
    /// Puts `octets` in the file's place, whole or not at all.
    virtual bool Remplacer(const QString& fichier, const QByteArray& octets) = 0;

private:
    bool Conclure(const QString& fichier, const Contenu& avant, const QByteArray& apres);
};

/// The files of the file system. One with the read-only attribute is not written. A write goes into a new file that
/// then takes the old one's place, so nobody ever sees half a file.
class FichiersIniDisque : public FichiersIni
{
protected:
    Contenu Charger(const QString& fichier) const override;
    bool Remplacer(const QString& fichier, const QByteArray& octets) override;
};
