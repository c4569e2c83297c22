"""A model of catalogues and of the actions on their columns, which shares nothing with the program.

A catalogue is read from the text of its file, changed, written and read again, as zelvane-cli does it. Cells that were
never written are None. Values of catalogues that are sorted are made of the characters in ORDRE alone, whose collation
is their place in it.
"""

import dataclasses

PRETE = "Prêté"
PAS_DEPENDANT = "- pas dependant -"
ORDRE = " _-0123456789abcdefghijklmnopqrstuvwxyz"


class Refus(Exception):
    """The key of the message by which the program refuses."""


@dataclasses.dataclass
class Colonne:
    titre: str
    largeur: float
    textes: str = ""


@dataclasses.dataclass
class Entree:
    cellules: list
    image: str = ""
    cle: str = ""

    def lire(self, i):
        """SubItems, and the text of the first column."""
        return (self.cellules[i] or "") if i < len(self.cellules) else ""

    def existe(self, i):
        return i < len(self.cellules) and self.cellules[i] is not None

    def ecrire(self, i, texte):
        self.cellules += [None] * (i + 1 - len(self.cellules))
        self.cellules[i] = texte

    def retirer(self, i):
        del self.cellules[i : i + 1]

    def inserer(self, i, texte):
        self.cellules += [None] * (i - len(self.cellules))
        self.cellules.insert(i, texte)


class Catalogue:
    def __init__(self, colonnes, entrees, tri=99, descendant=0, dependante=0):
        """As the file tells it: columns, and entries as lists of fields, the image behind a whole one."""
        self.colonnes = colonnes
        self.tri = tri
        self.descendant = descendant
        self.trie = True
        self.dependante = dependante
        self.modifie = False
        self.entrees = []
        largeur = len(colonnes)
        for numero, champs in enumerate(entrees, 1):
            image = champs[largeur] if len(champs) > largeur else ""
            self.entrees.append(Entree(list(champs[:largeur]), image, f"k{numero}"))
        if all(c.titre != PRETE for c in colonnes):
            colonnes.append(Colonne(PRETE, 600))
            self.modifie = True
        self.trier()

    # ---- the file

    def texte(self):
        lignes = ["[FileInfo]", "Type=QRT FILE", "Version=1.4", "", "[ListView]", "GridLines=1", "Sorted=1",
                  f"SortKey={self.tri}", f"SortOrder={self.descendant}", "View=3", "", "[ColumHeaders]",
                  f"Count={len(self.colonnes)}"]
        for i, c in enumerate(self.colonnes, 1):
            lignes.append(f"Colum{i}={c.titre}|{c.largeur:.10g}|{c.textes}".replace(".", ","))
        lignes += [f"Dependant={self.dependante}", "", "[ListItems]", f"Count={len(self.entrees)}"]
        for i, e in enumerate(self.entrees, 1):
            champs = [e.lire(c) for c in range(len(self.colonnes))] + [e.image]
            lignes.append(f"It{i}=" + "|".join(champs))
        return "\r\n".join(lignes + [""])

    def relu(self):
        """What a reader finds once this was written."""
        champs = [[e.lire(c) for c in range(len(self.colonnes))] + [e.image] for e in self.entrees]
        return Catalogue(list(self.colonnes), champs, self.tri, self.descendant, self.dependante)

    def trier(self):
        if self.trie and self.tri < len(self.colonnes):
            self.entrees.sort(key=lambda e: [ORDRE.index(c) for c in e.lire(self.tri)], reverse=self.descendant == 1)

    def json(self):
        marque = self.tri if self.descendant == 0 else self.tri - 1
        icone = "down" if self.descendant == 0 else "up"
        colonnes = [{"title": c.titre, "width": c.largeur, "icon": icone if i == marque else "", "texts": c.textes}
                    for i, c in enumerate(self.colonnes)]
        entrees = [{"key": e.cle, "values": [e.lire(i) for i in range(len(self.colonnes))], "image": e.image,
                    "icon": "icoerror" if e.image else "noico"} for e in self.entrees]
        pretes = [i for i, c in enumerate(self.colonnes, 1) if c.titre == PRETE]
        return {"sorted": self.trie, "sortKey": self.tri, "sortOrder": self.descendant,
                "dependantColumn": self.dependante, "loanColumn": pretes[-1], "modified": self.modifie,
                "columns": colonnes, "entries": entrees}

    # ---- the actions; columns are counted from 1, as on the command line

    def titres(self):
        return [c.titre for c in self.colonnes]

    def suivre(self, nouveau):
        cle = nouveau(self.tri)
        if cle is None:
            self.trie, cle, self.descendant = False, 0, 0
        self.tri = cle

    def add(self, titre):
        if titre == "":
            raise Refus("msg4")
        if titre.lower() in [t.lower() for t in self.titres()]:
            raise Refus("msg5")
        self.colonnes.append(Colonne(titre, 800))

    def oter_colonne(self, p):
        del self.colonnes[p]
        self.suivre(lambda k: None if k == p else k - (k > p))

    def delete(self, n):
        p = n - 1
        titre = self.titres()[p]
        if titre == "":
            raise Refus("msg6")
        if titre == PRETE:
            raise Refus("msg7")
        for e in self.entrees:
            if p == 0:
                e.ecrire(0, e.lire(1))
                e.retirer(1)
            else:
                e.retirer(p)
        self.oter_colonne(p)

    def rename(self, n, titre):
        if self.titres()[n - 1] == PRETE:
            raise Refus("msg9")
        if titre == "":
            raise Refus("msg10")
        if "" in self.titres():
            raise Refus("msg11")
        self.colonnes[n - 1].titre = titre

    def move(self, n, sens):
        p = n - 1
        autre = p - 1 if sens == "left" else p + 1
        if not 0 <= autre < len(self.colonnes):
            return
        lignes = [PAS_DEPENDANT] + self.titres()
        nom = lignes[self.dependante] if self.dependante < len(lignes) else ""
        lu = ""
        for e in self.entrees:
            if sens == "left":
                if e.existe(p):
                    lu = e.cellules[p]
                e.ecrire(p, e.lire(p - 1))
                e.ecrire(p - 1, lu)
            else:
                valeur = e.lire(p)
                e.ecrire(p, e.lire(p + 1))
                e.ecrire(p + 1, valeur)
        a, b = self.colonnes[p], self.colonnes[autre]
        a.titre, b.titre = b.titre, a.titre
        a.largeur, b.largeur = b.largeur, a.largeur
        self.suivre(lambda k: autre if k == p else p if k == autre else k)
        if self.dependante != 0:
            lignes = [PAS_DEPENDANT] + self.titres() + [""]
            self.dependante = max((i for i, ligne in enumerate(lignes) if ligne == nom), default=-1)

    def dependant(self, n):
        self.dependante = n

    def merge(self, n, m, separateur):
        a, b = n - 1, m - 1
        if self.titres()[a] == self.titres()[b]:
            raise Refus("msg16")
        if "|" in separateur:
            raise Refus("msg17")
        for e in self.entrees:
            e.ecrire(a, e.lire(a) + separateur + e.lire(b))
            if b == 0:
                e.ecrire(0, e.lire(1))
                e.retirer(1)
            else:
                e.retirer(b)
        self.oter_colonne(b)

    def inserer_colonne(self, p, titre):
        self.colonnes.insert(p + 1, Colonne(titre, self.colonnes[p].largeur))
        self.suivre(lambda k: k + (k > p))

    def source(self, n, titre):
        if self.titres()[n - 1] == "":
            raise Refus("msg19")
        if titre == "":
            raise Refus("msg21")
        return n - 1

    def split(self, n, titre, separateur):
        p = self.source(n, titre)
        if separateur == "":
            raise Refus("msg22")
        self.colonnes[p].largeur /= 2
        for e in self.entrees:
            avant, _, reste = e.lire(p).partition(separateur)
            e.ecrire(p, avant)
            e.inserer(p + 1, reste)
        self.inserer_colonne(p, titre)

    def duplicate(self, n, titre):
        p = self.source(n, titre)
        for e in self.entrees:
            e.inserer(p + 1, e.lire(p))
        self.inserer_colonne(p, titre)
