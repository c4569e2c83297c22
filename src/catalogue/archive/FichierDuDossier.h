// A file of a document's folder, replaced as a whole: whoever reads it finds the old text or the new one. Nothing of
// it is forced to the disk: the archive and the rescue copy are.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

#include <optional>

/// All bytes of a file; nothing when it cannot be read.
std::optional<QByteArray> LireFichier(const QString& chemin);
/// The same; no bytes where there is no such file.
std::optional<QByteArray> LireSIlExiste(const QString& chemin);

/// Has every byte of a file, and its name, on the disk; false when the disk refuses, or there is no such file.
bool ForcerFichier(const QString& chemin);

/// Deletes a file of a document's folder because the user wants it so: it is not missed. False when it resists.
bool SupprimerDuDossier(const QString& chemin);

class FichierDuDossier
{
public:
    /// `chemin`: full path of the file. Until Valider the new text stands beside it.
    explicit FichierDuDossier(const QString& chemin) : m_chemin(chemin), m_fichier(chemin + u'~') {}
    /// Without Valider the file stays as it was.
    ~FichierDuDossier();
    FichierDuDossier(const FichierDuDossier&) = delete;
    FichierDuDossier& operator=(const FichierDuDossier&) = delete;

    bool Ouvrir() { return m_fichier.open(QIODevice::WriteOnly | QIODevice::Unbuffered); }
    QFile& Fichier() { return m_fichier; }
    /// Opens and writes all of `octets`.
    bool Preparer(QByteArrayView octets);
    /// Puts what was written in the file's place. False when something of it could not be written, or the place not be
    /// taken.
    bool Valider();

private:
    QString m_chemin;
    QFile m_fichier;
};
