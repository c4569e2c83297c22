"""Proves that the samples in the folder are what the script makes, and that the documented reader reads them."""
import io
import re
import zipfile
from pathlib import Path

from . import archive, catalogues
from .texte_qrt import IMAGE, PRETE

_FORMAT = Path(__file__).resolve().parent.parent.parent / "docs" / "format.md"


def verifier(dossier):
    """What is wrong with the samples in a folder, one sentence each; nothing when all is well."""
    erreurs = []
    for nom, fabriquer in catalogues.CONSTANTS.items():
        erreurs += _comparer(dossier / nom, fabriquer())
    erreurs += _verifier_protege(dossier / catalogues.PROTEGE)
    return erreurs or _verifier_lecteur(dossier)


def _comparer(chemin, attendu):
    if not chemin.is_file():
        return [f"{chemin.name} is missing"]
    if chemin.read_bytes() == attendu:
        return []
    # Another version of zlib packs the same bytes in another way: then the contents decide.
    if zipfile.is_zipfile(chemin) and zipfile.is_zipfile(io.BytesIO(attendu)):
        if _resume(chemin) == _resume(io.BytesIO(attendu)):
            return []
    return [f"{chemin.name} is not what the script makes: run faire_exemples.py, and commit the result"]


def _resume(fichier):
    """All of an archive but how its bytes are packed."""
    with zipfile.ZipFile(fichier) as zip_:
        entrees = [(entree.filename, entree.date_time, entree.compress_type) for entree in zip_.infolist()]
    return archive.lire(fichier), entrees


def _verifier_protege(chemin):
    if not chemin.is_file():
        return [f"{chemin.name} is missing"]
    if not protege_est_a_jour(chemin):
        return [f"{chemin.name} is not locked with {catalogues.MOT_DE_PASSE!r}, or holds something else"]
    return []


def protege_est_a_jour(chemin):
    """True when the locked sample holds what it should: its own bytes are others at each run."""
    attendu = catalogues.fichiers(catalogues.jazz())
    try:
        commentaire, contenu, proteges = archive.lire(chemin, catalogues.MOT_DE_PASSE)
    except (OSError, RuntimeError, zipfile.BadZipFile):
        return False
    return commentaire == archive.COMMENTAIRE and contenu == attendu and proteges == set(attendu)


def _verifier_lecteur(dossier):
    """Runs the sample reader of the documentation on every sample."""
    [programme] = re.findall(r"```python\n(.*?)```", _FORMAT.read_text(encoding="utf-8"), re.DOTALL)
    espace = {"__name__": "format"}
    exec(compile(programme, _FORMAT.name, "exec"), espace)
    attendus = {
        "discotheque.qrt": catalogues.discotheque(),
        "bibliotheque.qrt": catalogues.bibliotheque(),
        "vinyles-1.4.qrt": catalogues.vinyles(),
        catalogues.PROTEGE: catalogues.jazz(),
    }
    erreurs = []
    for nom, catalogue in attendus.items():
        colonnes, entrees = espace["lire"](dossier / nom, catalogues.MOT_DE_PASSE.encode("ascii"))
        titres = [colonne.titre for colonne in catalogue.colonnes]
        if [colonne["titre"] for colonne in colonnes] != titres or titres[-1] != PRETE:
            erreurs.append(f"the documented reader finds other columns in {nom}")
        voulues = {tuple(e[titre] for titre in titres) + (e.get(IMAGE, ""),) for e in catalogue.entrees}
        lues = [tuple(entree["valeurs"]) + (entree["image"],) for entree in entrees]
        if len(lues) != len(catalogue.entrees) or set(lues) != voulues:
            erreurs.append(f"the documented reader finds other entries in {nom}")
    return erreurs
