// Ini files on the disk. See TexteIni.h for their syntax. Each call answers from what the file holds then: a file is
// kept as it was read only while nothing about it tells that it could be another one.
#pragma once

#include "platform/TexteIni.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <functional>
#include <memory>
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

    /// Hands over the keys of a section: see TexteIni::Parcourir. False when there is a file that cannot be read.
    bool ParcourirSection(const QString& fichier, const QString& section,
                          const std::function<void(QByteArrayView cle, QByteArrayView valeur)>& visiter) const;

    /// Writes a key; creates file and section as needed. False when the text cannot be held by an ini file (see
    /// TexteIni::Ecrire) or the file cannot be written, because another program holds it for instance; it is then as it
    /// was.
    bool Ecrire(const QString& fichier, const QString& section, const QString& cle, const QString& valeur);
    /// Several keys at once: all of them are written or none.
    bool EcrireCles(const QString& fichier, const QString& section, const TexteIni::Cles& cles);
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
    /// What a file cannot change without.
    struct Empreinte
    {
        quint64 volume = 0;
        quint64 noeud = 0;
        qint64 taille = 0;
        qint64 modifie = 0; ///< nanoseconds
        qint64 change = 0;  ///< of the file or of its attributes, nanoseconds
        bool operator==(const Empreinte&) const = default;
    };
    /// Nothing where there is no file, or where it could change and look the same.
    virtual std::optional<Empreinte> Regarder(const QString& fichier) const = 0;
    virtual Contenu Charger(const QString& fichier) const = 0;
    /// Holds a file against other programs that write it, for as long as the result lives: between reading and
    /// replacing it nobody's change may come in between and be lost. Null when another one holds it and does not let
    /// go.
    virtual std::shared_ptr<const void> Tenir(const QString& fichier) const = 0;
    /// Puts `octets` in the file's place, whole or not at all.
    virtual bool Remplacer(const QString& fichier, const QByteArray& octets) = 0;

private:
    struct Retenu
    {
        Empreinte empreinte;
        Contenu contenu;
    };
    Contenu Actuel(const QString& fichier) const;
    bool Changer(const QString& fichier, const std::function<std::optional<QByteArray>(QByteArrayView)>& faire);

    mutable QHash<QString, Retenu> m_retenus;
};

/// The files of the file system. One with the read-only attribute is not written. A write goes into a new file that
/// then takes the old one's place, so nobody ever sees half a file. Locks are the system's, of either kind; on file
/// systems without any a file is written all the same.
class FichiersIniDisque : public FichiersIni
{
protected:
    std::optional<Empreinte> Regarder(const QString& fichier) const override;
    Contenu Charger(const QString& fichier) const override;
    std::shared_ptr<const void> Tenir(const QString& fichier) const override;
    bool Remplacer(const QString& fichier, const QByteArray& octets) override;
};
