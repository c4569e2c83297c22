// The rescue copy: a file beside a document's folder (FichierDeSecours) that tells whose folder it is and, when the
// document has unsaved changes, holds the catalogue's text with them.
//
// It begins with lines of names and values, of which those that may hold anything are percent-encoded. Behind
// "Texte=1" follows the text of "Zelvane.qrt" in UTF-8 and, as a sign that it is whole, a last line. The file is
// replaced as a whole: whoever reads it finds the last copy or the one before.
#pragma once

#include "catalogue/archive/FichierDuDossier.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/TexteQrt.h"

#include <QByteArray>
#include <QString>

#include <future>
#include <memory>
#include <optional>

/// What the first lines tell.
struct IdentiteDeSecours
{
    QString nom;                           ///< the window's caption
    QString chemin;                        ///< the document's file, as CheminConnu
    QString type;                          ///< its form, as FileType
    qint64 processus = 0;                  ///< the process that wrote it
    QByteArray base;                       ///< EmpreinteDuTexte when the text was written
    bool texte = false;                    ///< a whole text follows
    bool tus = false;                      ///< its changes are such that nobody is asked about: Categorie::SeTait
    std::optional<TraceDeFichier> fichier; ///< the document's file, as Categorie::FichierVu
};

/// Nothing when there is no such file, or it is none of ours, or the text that it announces is not whole.
std::optional<IdentiteDeSecours> LireIdentite(const QString& fichier);
/// The text, in UTF-8; nothing when it has none that is whole.
std::optional<QByteArray> LireTexteDeSecours(const QString& fichier);

/// Tells the folder's "Zelvane.qrt" from those before and after a save; empty when there is none, nothing when it
/// cannot be looked at.
std::optional<QByteArray> EmpreinteDuTexte(const QString& dossier);

/// Writes a copy without a text: whose folder it is. False when that fails; the copy before stays then.
bool EcrireIdentite(const Categorie& doc, const QString& nom);

/// One copy with its text, written piece by piece. The pieces are made between two events, since a table belongs to one
/// thread and a copy of all of it would take as long as the table is large; a helper thread, which knows nothing but
/// bytes and a file, waits for the disk.
class EcritureDeSecours : private Puits
{
public:
    enum class Etat { EnCours, Faite, Manquee };

    /// Not to be continued once the document has changed. `saisie`: what is being typed, as if it were validated.
    EcritureDeSecours(const Categorie& doc, const QString& nom, std::optional<SaisieEnCours> saisie = std::nullopt);
    /// A copy that is not done is forgotten; the one before stays. Waits for the disk while it is busy.
    ~EcritureDeSecours() override;
    EcritureDeSecours(const EcritureDeSecours&) = delete;
    EcritureDeSecours& operator=(const EcritureDeSecours&) = delete;

    /// Goes on for a few milliseconds at most; does nothing while the disk is busy with the piece before.
    Etat Avancer();
    /// Writes all the rest.
    Etat Achever();
    /// Whether the disk still has a piece to write.
    bool DisqueOccupe() const;

private:
    bool Recevoir(const char* octets, size_t taille) override;
    void Rediger();
    void Confier();

    FichierDuDossier m_fichier;
    QByteArray m_piece; ///< what the helper thread writes
    QByteArray m_tampon;
    RedacteurQrt m_redacteur; // behind the buffer, which it fills from its first line on
    std::future<bool> m_disque;
    Etat m_etat = Etat::EnCours;
    bool m_redige = false;
};
