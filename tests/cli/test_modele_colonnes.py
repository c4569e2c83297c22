"""zelvane-cli column on random catalogues, beside a model of its own."""

import json
import os
import pathlib
import random
import subprocess
import tempfile
import unittest

from modele_colonnes import ORDRE, PRETE, Catalogue, Colonne, Refus

CLI = os.environ["ZELVANE_CLI"]
CATALOGUES = 300
MORCEAUX_TRIES = ["", "a", "bc", "_-_", "d_-_e", "x_-_", "_-", "007", "z y"]
MORCEAUX_LIBRES = MORCEAUX_TRIES + ["Été", "ŒUVRE", "€", "_-_Ça", "Prêté", "a;b", '"', "=", "\\"]
TITRES = ["Titre", "Artiste", "titre", "Année", "prêté", "Prete", PRETE, "x"]
SEPARATEURS = ["_-_", " - ", "_", "-", "é", "|", ";", ""]


def catalogue_au_hasard(h):
    """Short entries, fields too many, empty tables, one column, titles twice or none at all."""
    colonnes = [Colonne("" if h.random() < 0.04 else h.choice(TITRES), h.choice([1000, 600.5, 33, 0]),
                        h.choice(["", "rock|jazz", "vide"])) for _ in range(h.choice([1, 1, 2, 3, 4, 5, 6]))]
    trie = h.random() < 0.5
    morceaux = MORCEAUX_TRIES if trie else MORCEAUX_LIBRES
    entrees = []
    for _ in range(h.choice([0, 1, 2, 5, 12])):
        champs = [h.choice(morceaux) + h.choice(morceaux) for _ in range(h.randint(1, len(colonnes)))]
        if h.random() < 0.6:
            champs += [h.choice(morceaux) for _ in range(len(colonnes) - len(champs))]
            champs += h.choice([[], [""], ["image.jpg"], ["image.jpg", "de trop"]])
        entrees.append(champs)
    tri = h.randrange(len(colonnes) + 1) if trie else 99
    return Catalogue(colonnes, [], tri, h.randrange(2), h.randint(0, len(colonnes) + 2)), entrees


def texte_du_fichier(catalogue, colonnes, entrees):
    """The file as somebody wrote it, with lines of any number of fields and perhaps without a loan column."""
    lignes = Catalogue.texte(catalogue).split("\r\n")
    place = next(i for i, ligne in enumerate(lignes) if ligne == "[ListItems]")
    lignes[place + 1] = f"Count={len(entrees)}"
    debut = lignes.index("[ColumHeaders]") + 1
    ecrites = lignes[debut + 1 : place - 2]
    lignes[debut] = f"Count={colonnes}"
    lignes[debut + 1 : place - 2] = ecrites[:colonnes]
    place = lignes.index("[ListItems]")
    return "\r\n".join(lignes[: place + 2] + [f"It{i}=" + "|".join(e) for i, e in enumerate(entrees, 1)] + [""])


def action_au_hasard(h, catalogue):
    n = h.randint(1, len(catalogue.colonnes))
    titre = h.choice(TITRES + ["neuve", "neuve", ""])
    separateur = h.choice(SEPARATEURS)
    if catalogue.tri != 99 and any(c not in ORDRE for c in separateur):
        separateur = "_-_"
    return h.choice([
        ("add", titre), ("delete", n), ("delete", n), ("rename", n, titre),
        ("move", n, "left"), ("move", n, "left"), ("move", n, "right"), ("dependant", h.randint(0, n)),
        ("merge", n, h.randint(1, len(catalogue.colonnes)), separateur),
        ("merge", n, h.randint(1, len(catalogue.colonnes)), separateur),
        ("split", n, titre, separateur), ("split", n, "neuve", "_-_"), ("duplicate", n, titre)])


class Colonnes(unittest.TestCase):
    def setUp(self):
        dossier = tempfile.TemporaryDirectory()
        self.addCleanup(dossier.cleanup)
        self.dossier = pathlib.Path(dossier.name)
        self.environnement = dict(os.environ, ZELVANE_DOSSIER=str(self.dossier / "programme"),
                                  XDG_CONFIG_HOME=str(self.dossier / "config"),
                                  XDG_DATA_HOME=str(self.dossier / "donnees"))

    def lancer(self, *arguments):
        return subprocess.run([CLI, *map(str, arguments)], capture_output=True, env=self.environnement, check=False)

    def comparer(self, fichier, modele, histoire):
        liste = self.lancer("list", "--json", fichier)
        self.assertEqual(liste.returncode, 0, histoire)
        lu = json.loads(liste.stdout)
        for cle, attendu in modele.json().items():
            self.assertEqual(lu[cle], attendu, f"{cle}: {histoire}")

    def essayer(self, graine):
        h = random.Random(graine)
        ecrit, entrees = catalogue_au_hasard(h)
        # The model adds the loan column as a reader does; the file has what stands before it.
        colonnes = len(ecrit.colonnes) - ecrit.modifie
        texte = texte_du_fichier(ecrit, colonnes, entrees)
        entree = self.dossier / "entree.qrt"
        entree.write_bytes(texte.encode("cp1252"))
        modele = Catalogue([Colonne(c.titre, c.largeur, c.textes) for c in ecrit.colonnes[:colonnes]], entrees,
                           ecrit.tri, ecrit.descendant, ecrit.dependante)
        histoire = f"graine {graine}\n{texte}"
        self.comparer(entree, modele, histoire)
        for etape in range(h.randint(1, 2)):
            action = action_au_hasard(h, modele)
            histoire += f"\n{action}"
            sortie = self.dossier / f"sortie{etape}.qrt"
            sortie.unlink(missing_ok=True)
            resultat = self.lancer("column", action[0], entree, sortie, "--", *action[1:])
            try:
                getattr(modele, action[0])(*action[1:])
            except Refus as refus:
                self.assertEqual(resultat.returncode, 1, histoire)
                self.assertTrue(resultat.stderr.startswith(f"{refus}: ".encode()), (resultat.stderr, histoire))
                self.assertFalse(sortie.exists(), histoire)
                return str(refus)
            self.assertEqual((resultat.returncode, resultat.stdout, resultat.stderr), (0, b"", b""), histoire)
            modele = modele.relu()
            self.comparer(sortie, modele, histoire)
            entree = sortie
        return action[0]

    def test_random_catalogues_become_what_the_model_says(self):
        issues = [self.essayer(graine) for graine in range(CATALOGUES)]
        # All that can come of it did.
        for issue in ["add", "delete", "rename", "move", "dependant", "merge", "split", "duplicate", "msg4", "msg5",
                      "msg6", "msg7", "msg9", "msg10", "msg11", "msg16", "msg17", "msg19", "msg21", "msg22"]:
            self.assertIn(issue, issues)


if __name__ == "__main__":
    unittest.main()
