// Requests of other instances: any bytes can be read, a request that was read is written back as the same bytes, and
// nothing larger than the limit is waited for.
#include "platform/TrameRendezvous.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void Verifier(bool vrai, const char* quoi)
{
    if (vrai)
        return;
    std::fprintf(stderr, "fuzz_rendezvous: %s\n", quoi);
    std::abort();
}

void EssayerDemande(const QByteArray& octets)
{
    DemandeInstance demande;
    switch (TrameRendezvous::Lire(octets, demande)) {
    case TrameRendezvous::Etat::Complete: {
        const auto ecrite = TrameRendezvous::Coder(demande);
        Verifier(ecrite && octets.startsWith(*ecrite), "a request is not written as it was read");
        DemandeInstance tot;
        Verifier(TrameRendezvous::Lire(ecrite->chopped(1), tot) == TrameRendezvous::Etat::Incomplete,
                 "a request is complete before its end");
        return;
    }
    case TrameRendezvous::Etat::Incomplete:
        Verifier(octets.size() < TrameRendezvous::TailleMaxDemande, "more is waited for than the limit allows");
        break;
    case TrameRendezvous::Etat::Fausse:
        break;
    }
    Verifier(demande == DemandeInstance(), "a request that is not complete was filled in");
}

void EssayerReponse(const QByteArray& octets)
{
    ReponseInstance reponse;
    if (TrameRendezvous::Lire(octets, reponse) == TrameRendezvous::Etat::Complete)
        Verifier(octets.startsWith(TrameRendezvous::Coder(reponse)), "an answer is not written as it was read");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    const QByteArray lus(reinterpret_cast<const char*>(octets), static_cast<qsizetype>(taille));
    EssayerDemande(lus);
    EssayerReponse(lus);
    return 0;
}
