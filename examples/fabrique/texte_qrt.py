"""The text of a catalogue: what "Zelvane.qrt" holds, or all of a file of form 1.4."""
from typing import NamedTuple

from .collation import cle

PAGE_DE_CODE = "cp1252"
PRETE = "Prêté"
IMAGE = "Image"


class Colonne(NamedTuple):
    titre: str
    largeur: str  # units of 1/1440 inch; a comma stands before decimals
    textes: tuple = ()  # pre-recorded texts


class Catalogue(NamedTuple):
    colonnes: list
    entrees: list  # dictionaries from title to cell; the key IMAGE names the picture
    tri: str  # title of the sort column
    dependante: str = ""  # title of the dependant column
    commentaire: str = ""


def distincts(entrees, titre):
    """The values of a column, each once, in alphabetical order."""
    return tuple(sorted({entree[titre] for entree in entrees}, key=cle))


def octets(texte):
    """A text as the program stores it."""
    return texte.replace("\n", "\r\n").encode(PAGE_DE_CODE)


def entete(colonnes, tri, dependante, version):
    """The lines before those of the entries, but for the count."""
    titres = [colonne.titre for colonne in colonnes]
    return [
        "[FileInfo]",
        "Type=QRT FILE",
        f"Version={version}",
        "",
        "[ListView]",
        "GridLines=1",
        "Sorted=1",
        f"SortKey={titres.index(tri)}",
        "SortOrder=0",
        "View=3",
        "",
        "[ColumHeaders]",
        f"Count={len(colonnes)}",
        *(
            f"Colum{numero}={colonne.titre}|{colonne.largeur}|{'|'.join(colonne.textes)}"
            for numero, colonne in enumerate(colonnes, start=1)
        ),
        f"Dependant={titres.index(dependante) + 1 if dependante else 0}",
        "",
        "[ListItems]",
    ]


def texte(catalogue, version):
    """The catalogue's text as bytes, the entries in the order of the sort column; equal ones stay as they come."""
    titres = [colonne.titre for colonne in catalogue.colonnes]
    entrees = sorted(catalogue.entrees, key=lambda entree: cle(entree[catalogue.tri]))
    lignes = entete(catalogue.colonnes, catalogue.tri, catalogue.dependante, version)
    lignes.append(f"Count={len(entrees)}")
    for numero, entree in enumerate(entrees, start=1):
        champs = [entree[titre] for titre in titres] + [entree.get(IMAGE, "")]
        lignes.append(f"It{numero}=" + "|".join(champs))
    return octets("\n".join(lignes) + "\n")
