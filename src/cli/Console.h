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
    bool m_motDePasseManque = false; ///< it was asked for, and nobody is there to answer
};

/// A line on standard error.
void DireErreur(const QString& texte);

/// Buffered standard output.
class SortieStandard
{
public:
    enum class Etat {
        Ouverte,
        SansLecteur, ///< whoever read it has gone away, as "head" does once it has its lines
        Cassee,      ///< a byte could not be written, as on a full disk
    };

    void Ecrire(QByteArrayView octets);
    /// False once nothing more can be written: what follows need not be made.
    bool EstOuverte() const { return m_etat == Etat::Ouverte; }
    Etat Finir();

private:
    void Vider();

    QByteArray m_tampon;
    Etat m_etat = Etat::Ouverte;
};
