// Messages and passwords without a window.
#pragma once

#include "base/AfficherMsg.h"

#include <QString>

#include <optional>

/// Shows messages on standard error as "KEY: text", or bare without a key. A question takes the answer that changes
/// nothing. A password comes from a file or a variable, or is asked for on a terminal; otherwise it is empty.
class Console : public PresentateurMessages
{
public:
    Console();
    ~Console() override;

    /// Takes the first line of a file as the password; false when the file cannot be read.
    bool LireMotDePasse(const QString& fichier);

    int Afficher(const Message& message, int genre, const QString& titre) override;
    QString DemanderMotDePasse(const QString& titre, const QString& invite) override;

private:
    PresentateurMessages* m_precedent;
    std::optional<QString> m_motDePasse;
};

/// A line on standard error.
void DireErreur(const QString& texte);

/// Buffered standard output. False when a byte could not be written (a full disk, a closed pipe).
class SortieStandard
{
public:
    void Ecrire(QByteArrayView octets);
    bool Finir();

private:
    void Vider();

    QByteArray m_tampon;
    bool m_bon = true;
};
