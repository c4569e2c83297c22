// Which calls are counted, and which fail; see panne_prechargee.cpp. For the preloaded library alone.
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace panne {

enum Genre {
    Ouvrir,
    Lire,
    LireA,
    LireFlux,
    Ecrire,
    EcrireA,
    EcrireEnsemble,
    EcrireFlux,
    Forcer,
    Fermer,
    Renommer,
    Supprimer,
    SupprimerDossier,
    Couper,
    Reserver,
    CreerDossier,
    Lier,
    Copier,
    Verrouiller,
    OuvrirDossier,
    LireDossier,
    Droits,
    Dates,
    Regarder,
    NombreDeGenres
};

// Errors that are none.
constexpr int Court = -1;
constexpr int Coupe = -2;
constexpr int Arret = -3;

/// Whether a path, seen from a folder, is one to be counted.
bool EstSuivi(int dossier, const char* chemin);
bool EstSuivi(int descripteur);
void Suivre(int descripteur, bool oui);
/// Follows what was opened by a path; returns it.
int Suivi(int dossier, const char* chemin, int descripteur);

/// Counts a call. 0 when it is to be left alone, else the error.
int Compter(Genre genre, const char* chemin);
int Compter(Genre genre, int descripteur);

/// How many bytes are left to a call that moves `n`; false, with the error in errno, when nothing is to be moved.
bool Permis(int erreur, size_t& n);
/// Takes the time that a write takes longer.
void Ralentir(int descripteur);

void Armer(bool oui);
void DecalerHorloge(long secondes);
long Decalage(); ///< seconds

} // namespace panne
