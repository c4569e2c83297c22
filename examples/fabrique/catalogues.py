"""The sample catalogues: which table becomes which file, with which columns."""
import functools

from . import archive, donnees
from .images import bmp, gif, jpeg
from .pochettes.atelier import COTE, pochette
from .texte_qrt import IMAGE, PRETE, Catalogue, Colonne, distincts, octets, texte

MOT_DE_PASSE = "zelvane"
_ENCODEURS = {"bmp": bmp, "gif": gif, "jpg": jpeg}
_LABELS = ("Atlantic", "Barclay", "Blue Note", "Columbia", "Deutsche Grammophon", "ECM", "EMI", "Harmonia Mundi")
_LABELS += ("Island", "Philips", "Polydor", "Virgin", "Warner Bros.", "World Circuit")


def discotheque():
    """Compact discs by artist, with pictures for some, loans and pre-recorded texts."""
    entrees = donnees.sans_doublons(donnees.lire("discotheque.tsv"), "Artiste", "Album")
    formats = {ligne[IMAGE]: ligne["Format"] for ligne in donnees.lire("pochettes.tsv")}
    for entree in entrees:
        if entree[IMAGE]:
            entree[IMAGE] += "." + formats[entree[IMAGE]]
    colonnes = [
        Colonne("Artiste", "4100"),
        Colonne("Album", "5100"),
        Colonne("Année", "1000"),
        Colonne("Genre", "2200", distincts(entrees, "Genre")),
        Colonne("Label", "2600", _LABELS),
        Colonne("Emplacement", "1400"),
        Colonne(PRETE, "1900"),
    ]
    return Catalogue(colonnes, entrees, tri="Artiste", commentaire=donnees.lire_texte("discotheque.txt"))


def bibliotheque():
    """Books in volumes; the volumes of a cycle depend on one another."""
    entrees = donnees.sans_doublons(donnees.lire("bibliotheque.tsv"), "Cycle", "Titre")
    colonnes = [
        Colonne("Titre", "5000"),
        Colonne("Auteur", "3300", distincts(entrees, "Auteur")),
        Colonne("Cycle", "3900", distincts(entrees, "Cycle")),
        Colonne("Tome", "900"),
        Colonne("Éditeur", "2300", distincts(entrees, "Éditeur")),
        Colonne("Année", "1000"),
        Colonne(PRETE, "1900"),
    ]
    commentaire = donnees.lire_texte("bibliotheque.txt")
    return Catalogue(colonnes, entrees, tri="Cycle", dependante="Cycle", commentaire=commentaire)


def vinyles():
    """Vinyl records by title, for the bare text form, which has no comment and no pictures."""
    entrees = donnees.sans_doublons(donnees.lire("vinyles.tsv"), "Titre", "Artiste")
    # Widths with decimals, as columns that were drawn with the mouse have them.
    colonnes = [
        Colonne("Titre", "4799,811"),
        Colonne("Artiste", "3899,906"),
        Colonne("Année", "1000"),
        Colonne("Label", "2500"),
        Colonne("Format", "1700", ("33 tours", "45 tours", "Maxi 45 tours")),
        Colonne("État", "1500", ("Neuf", "Très bon", "Bon", "Moyen")),
        Colonne(PRETE, "2899,906"),
    ]
    return Catalogue(colonnes, entrees, tri="Titre")


def jazz():
    """The jazz of the disc collection: a catalogue of its own, to be locked."""
    tout = discotheque()
    choix = [entree for entree in tout.entrees if entree["Genre"] == "Jazz"]
    return tout._replace(entrees=choix, commentaire=donnees.lire_texte("protege.txt"))


def images(catalogue):
    """The picture files that the entries of a catalogue name, drawn anew."""
    albums = {entree[IMAGE]: entree for entree in catalogue.entrees if entree[IMAGE]}
    fichiers = {}
    for ligne in donnees.lire("pochettes.tsv"):
        nom = f"{ligne[IMAGE]}.{ligne['Format']}"
        if nom not in albums:
            continue
        album = albums[nom]
        mise_en_page = (ligne["Composition"], ligne["Palette"], ligne["Mise en page"])
        graine = ligne[IMAGE] + ligne["Variante"]
        fichiers[nom] = _image(ligne["Format"], graine, album["Artiste"], album["Album"], *mise_en_page)
    return fichiers


@functools.lru_cache(maxsize=None)  # two catalogues share some pictures
def _image(extension, *dessin):
    return _ENCODEURS[extension].encoder(COTE, COTE, pochette(*dessin))


def fichiers(catalogue):
    """All that the archive of a catalogue holds: {name: contents}."""
    contenu = {"Zelvane.qrt": texte(catalogue, "2"), "Zelvane.txt": octets(catalogue.commentaire)}
    if any(entree.get(IMAGE) for entree in catalogue.entrees):
        contenu.update(images(catalogue))
    return contenu


# The samples whose bytes are the same at each run, each with the routine that makes them.
CONSTANTS = {
    "discotheque.qrt": lambda: archive.construire(fichiers(discotheque())),
    "bibliotheque.qrt": lambda: archive.construire(fichiers(bibliotheque())),
    "vinyles-1.4.qrt": lambda: texte(vinyles(), "1.4"),
}
PROTEGE = "protege.qrt"
