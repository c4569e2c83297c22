"""The archive form of a catalogue: a ZIP file of bare names."""
import io
import os
import shutil
import subprocess
import tempfile
import zipfile
from pathlib import Path

COMMENTAIRE = b"Zelvane v2.2 by Morvenal"
NIVEAU = 5
# One moment for all entries, so that the same contents give the same bytes.
DATE = (2026, 3, 21, 12, 0, 0)
EPOQUE = 1774094400  # the same moment, in seconds since 1970, UTC


def construire(fichiers):
    """The bytes of an archive of {name: contents}, in that order."""
    tampon = io.BytesIO()
    with zipfile.ZipFile(tampon, "w") as archive:
        for nom, contenu in fichiers.items():
            entree = zipfile.ZipInfo(nom, DATE)
            entree.create_system = 3  # Unix, wherever the script runs
            entree.external_attr = 0o100644 << 16
            entree.compress_type = zipfile.ZIP_DEFLATED
            archive.writestr(entree, contenu, compresslevel=NIVEAU)
        archive.comment = COMMENTAIRE
    return tampon.getvalue()


def lire(fichier, mot_de_passe=None):
    """What an archive, a path or an open file, holds: its comment, {name: contents}, and the names of its encrypted entries."""
    with zipfile.ZipFile(fichier) as archive:
        if mot_de_passe is not None:
            archive.setpassword(mot_de_passe.encode("ascii"))
        contenu = {entree.filename: archive.read(entree) for entree in archive.infolist()}
        proteges = {entree.filename for entree in archive.infolist() if entree.flag_bits & 1}
        return archive.comment, contenu, proteges


def zip_installe():
    return shutil.which("zip") is not None


def construire_protegee(fichiers, mot_de_passe, sortie):
    """Writes an archive with traditional encryption by Info-ZIP's `zip`. Its bytes differ at each run: the encryption
    begins with random ones."""
    with tempfile.TemporaryDirectory() as dossier:
        for nom, contenu in fichiers.items():
            chemin = Path(dossier, nom)
            chemin.write_bytes(contenu)
            os.utime(chemin, (EPOQUE, EPOQUE))
        resultat = Path(dossier, "resultat.zip")
        commande = ["zip", "-q", "-j", "-X", f"-{NIVEAU}", "-P", mot_de_passe, "-z", str(resultat)]
        commande += [str(Path(dossier, nom)) for nom in fichiers]
        subprocess.run(commande, input=COMMENTAIRE + b"\n", check=True, env={**os.environ, "TZ": "UTC"})
        shutil.copyfile(resultat, sortie)
