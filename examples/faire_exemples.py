#!/usr/bin/env python3
"""Builds the sample catalogues of this folder from the tables in donnees/, and large ones for benchmarks.

    faire_exemples.py                                     rebuild the samples
    faire_exemples.py --verifier                          compare the samples with what would be built
    faire_exemples.py --entrees N FICHIER [--desordre]    write a bare text catalogue of N entries

Needs Python 3.8 or later, and Info-ZIP's `zip` for protege.qrt alone. Gives the same bytes at each run, but for
protege.qrt: its encryption begins with random bytes, so it is rebuilt only when its contents change.
"""
import argparse
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # the folder of the samples stays as it is

from fabrique import archive, catalogues, grand_catalogue, verification  # noqa: E402

DOSSIER = Path(__file__).resolve().parent


def construire(dossier):
    for nom, fabriquer in catalogues.CONSTANTS.items():
        contenu = fabriquer()
        (dossier / nom).write_bytes(contenu)
        print(f"{nom}: {len(contenu)} bytes")
    protege = dossier / catalogues.PROTEGE
    if verification.protege_est_a_jour(protege):
        print(f"{protege.name}: unchanged")
    elif archive.zip_installe():
        archive.construire_protegee(catalogues.fichiers(catalogues.jazz()), catalogues.MOT_DE_PASSE, protege)
        print(f"{protege.name}: {protege.stat().st_size} bytes")
    else:
        print(f"{protege.name}: not built, as Info-ZIP's zip is not installed", file=sys.stderr)


def nombre_d_entrees(texte):
    nombre = int(texte)
    if not 0 <= nombre < 2**31:
        raise ValueError
    return nombre


def lire_arguments():
    analyse = argparse.ArgumentParser(description="Build the sample catalogues.", allow_abbrev=False)
    analyse.add_argument("--dossier", type=Path, default=DOSSIER, help="where the samples stand (default: %(default)s)")
    analyse.add_argument("--verifier", action="store_true", help="build nothing; compare; exit with 1 on a difference")
    analyse.add_argument("--entrees", nargs=2, metavar=("N", "FICHIER"), help="write one catalogue of N entries")
    analyse.add_argument("--desordre", action="store_true", help="with --entrees: shuffle the entries")
    arguments = analyse.parse_args()
    if arguments.desordre and not arguments.entrees:
        analyse.error("--desordre goes with --entrees")
    if arguments.verifier and arguments.entrees:
        analyse.error("--verifier and --entrees exclude each other")
    if arguments.entrees:
        try:
            arguments.entrees[0] = nombre_d_entrees(arguments.entrees[0])
        except ValueError:
            analyse.error(f"no number of entries: {arguments.entrees[0]}")
    return arguments


def main():
    arguments = lire_arguments()
    if arguments.entrees:
        nombre, fichier = arguments.entrees
        grand_catalogue.ecrire(nombre, fichier, arguments.desordre)
        return 0
    if arguments.verifier:
        erreurs = verification.verifier(arguments.dossier)
        for erreur in erreurs:
            print(erreur, file=sys.stderr)
        return 1 if erreurs else 0
    construire(arguments.dossier)
    return 0


if __name__ == "__main__":
    sys.exit(main())
