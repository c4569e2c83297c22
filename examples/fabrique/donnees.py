"""The tables in `donnees/`: UTF-8, one entry a line, cells separated by tabs, titles in the first line."""
from pathlib import Path

DOSSIER = Path(__file__).resolve().parent.parent / "donnees"


class DonneesFausses(Exception):
    """A table that cannot become a catalogue, with the line that is to blame."""


def lire(nom):
    """The entries of a table, each a dictionary from title to cell. Cells missing at the end of a line are empty."""
    chemin = DOSSIER / nom
    titres, *lignes = chemin.read_text(encoding="utf-8").splitlines()
    titres = titres.split("\t")
    entrees = []
    for numero, ligne in enumerate(lignes, start=2):
        cellules = ligne.split("\t")
        if len(cellules) > len(titres):
            raise DonneesFausses(f"{nom}, line {numero}: more cells than titles")
        if "|" in ligne:
            raise DonneesFausses(f"{nom}, line {numero}: '|' separates the values of the file and cannot stand in one")
        cellules += [""] * (len(titres) - len(cellules))
        entrees.append(dict(zip(titres, cellules)))
    return entrees


def lire_texte(nom):
    return (DOSSIER / nom).read_text(encoding="utf-8")


def sans_doublons(entrees, *titres):
    """The same entries; refuses two that agree in all the given columns."""
    vues = set()
    for entree in entrees:
        valeurs = tuple(entree[titre] for titre in titres)
        if valeurs in vues:
            raise DonneesFausses("twice in the table: " + " / ".join(valeurs))
        vues.add(valeurs)
    return entrees
