// What instances of the program say to each other, as bytes: one request and one answer, each with a mark in front.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

enum class OrdreInstance : quint32 {
    Presence = 0, ///< who is there; goes to whoever listens
    Texte = 1,
    Montrer = 2,
    Fermer = 3,
};

struct DemandeInstance
{
    OrdreInstance ordre = OrdreInstance::Presence;
    qint32 destinataire = 0; ///< the handle of the instance that is meant
    QString texte;           ///< the text; for Montrer the token

    bool operator==(const DemandeInstance&) const = default;
};

struct ReponseInstance
{
    bool faite = false;
    qint32 poignee = 0; ///< the handle of the instance that answers

    bool operator==(const ReponseInstance&) const = default;
};

namespace TrameRendezvous {

/// Longest text, in bytes of UTF-16. Whoever announces more is not listened to.
inline constexpr qsizetype TailleMaxTexte = 1 << 20;
/// Longest request.
inline constexpr qsizetype TailleMaxDemande = 16 + TailleMaxTexte;

/// Nothing when the text is too long. Any other text, also one that is no valid Unicode, reads back as it is.
std::optional<QByteArray> Coder(const DemandeInstance& demande);
QByteArray Coder(const ReponseInstance& reponse);

enum class Etat {
    Incomplete, ///< good so far
    Complete,   ///< bytes behind the end do not count
    Fausse,     ///< nothing that could follow makes it good
};

/// Reads the request at the start of `octets` into `demande`, which changes only when it is complete.
Etat Lire(const QByteArray& octets, DemandeInstance& demande);
Etat Lire(const QByteArray& octets, ReponseInstance& reponse);

} // namespace TrameRendezvous
