#include "platform/TrameRendezvous.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

/// "ZLV1": the number is that of the form, so that a program of another version is not misunderstood.
constexpr quint32 Marque = 0x5A4C5631;

/// Numbers of 32 bits, the highest byte first.
template<size_t N> QByteArray CoderNombres(const std::array<quint32, N>& nombres)
{
    QByteArray octets(4 * N, Qt::Uninitialized);
    for (size_t i = 0; i < N; ++i)
        qToBigEndian(nombres[i], octets.data() + 4 * i);
    return octets;
}

quint32 Nombre(const QByteArray& octets, qsizetype rang)
{
    return qFromBigEndian<quint32>(octets.constData() + 4 * rang);
}

/// What is there of the mark is right.
bool DebuteBien(const QByteArray& octets)
{
    const QByteArray marque = CoderNombres<1>({Marque});
    return octets.startsWith(marque.left(std::min(octets.size(), marque.size())));
}

} // namespace

namespace TrameRendezvous {

std::optional<QByteArray> Coder(const DemandeInstance& demande)
{
    const qsizetype taille = 2 * demande.texte.size();
    if (taille > TailleMaxTexte)
        return std::nullopt;
    QByteArray octets = CoderNombres<4>({Marque, static_cast<quint32>(demande.ordre),
                                         static_cast<quint32>(demande.destinataire), static_cast<quint32>(taille)});
    const qsizetype debut = octets.size();
    octets.resize(debut + taille);
    qToBigEndian<quint16>(demande.texte.utf16(), demande.texte.size(), octets.data() + debut);
    return octets;
}

QByteArray Coder(const ReponseInstance& reponse)
{
    return CoderNombres<3>({Marque, reponse.faite ? 1U : 0U, static_cast<quint32>(reponse.poignee)});
}

Etat Lire(const QByteArray& octets, DemandeInstance& demande)
{
    constexpr qsizetype tete = 16;
    if (!DebuteBien(octets))
        return Etat::Fausse;
    if (octets.size() < tete)
        return Etat::Incomplete;
    const quint32 ordre = Nombre(octets, 1);
    const qsizetype taille = Nombre(octets, 3);
    if (ordre > static_cast<quint32>(OrdreInstance::Fermer) || taille > TailleMaxTexte || taille % 2 != 0)
        return Etat::Fausse;
    if (octets.size() < tete + taille)
        return Etat::Incomplete;

    demande.ordre = static_cast<OrdreInstance>(ordre);
    demande.destinataire = static_cast<qint32>(Nombre(octets, 2));
    demande.texte = QString(taille / 2, Qt::Uninitialized);
    qFromBigEndian<quint16>(octets.constData() + tete, taille / 2, demande.texte.data());
    return Etat::Complete;
}

Etat Lire(const QByteArray& octets, ReponseInstance& reponse)
{
    if (!DebuteBien(octets))
        return Etat::Fausse;
    if (octets.size() < 12)
        return Etat::Incomplete;
    if (Nombre(octets, 1) > 1)
        return Etat::Fausse;
    reponse = {Nombre(octets, 1) == 1, static_cast<qint32>(Nombre(octets, 2))};
    return Etat::Complete;
}

} // namespace TrameRendezvous
