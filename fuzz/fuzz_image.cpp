// Heads of pictures: any bytes are read, and what is let through to the decoders is within the limits.
#include "images/EnteteImage.h"

#include <QBuffer>
#include <QByteArray>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

void Verifier(bool vrai, const char* quoi)
{
    if (vrai)
        return;
    std::fprintf(stderr, "fuzz_image: %s\n", quoi);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    QByteArray texte(reinterpret_cast<const char*>(octets), static_cast<qsizetype>(taille));
    QBuffer fichier(&texte);
    Verifier(fichier.open(QIODevice::ReadOnly), "a buffer cannot be opened");
    const std::optional<EnteteImage> entete = LireEntete(fichier);
    if (!entete)
        return 0;
    Verifier(!entete->taille.isEmpty(), "a picture of no size");
    Verifier(entete->memoire >= 0 && entete->passages >= 1, "a cost that cannot be");
    const qint64 points = qint64(entete->taille.width()) * entete->taille.height();
    const bool enUnPassage = entete->format == "jpeg" && entete->memoire == 0;
    Verifier(enUnPassage || entete->memoire >= points, "a picture that is held whole costs too little");
    Verifier(!EstSupportable(*entete) || points <= PointsAuPlus, "too many points are let through");
    return 0;
}
