"""A canvas for flat shapes with smooth edges.

Each pixel has 3 × 3 samples of one byte, the number of a colour. A shape fills spans of samples; an ink either covers,
overprints (like a translucent printing ink) or swaps two colours. `pixels` averages the samples.
"""
import math

from .hasard import cosinus, sinus

FACTEUR = 3


class Encre:
    """What a shape does to the samples below: one colour everywhere, or a table from old to new colour."""

    def __init__(self, octet=None, table=None):
        self.octet = octet
        self.table = table


class Toile:
    def __init__(self, cote, fond):
        self.cote = cote
        self._n = cote * FACTEUR
        self.couleurs = [fond]
        self._rangs = {fond: 0}
        self._lignes = [bytearray(self._n) for _ in range(self._n)]
        self.borner(0, 0, cote, cote)

    # Inks

    def _rang(self, couleur):
        if couleur not in self._rangs:
            if len(self.couleurs) == 256:
                raise ValueError("a canvas holds 256 colours")
            self._rangs[couleur] = len(self.couleurs)
            self.couleurs.append(couleur)
        return self._rangs[couleur]

    def aplat(self, couleur):
        """An ink that covers."""
        return Encre(octet=self._rang(couleur))

    def surimpression(self, couleur):
        """An ink that lets through what lies below at this moment: darker on a light canvas, lighter on a dark one."""
        table = bytearray(range(256))
        clair = sum(self.couleurs[0]) > 3 * 127
        for rang, dessous in enumerate(list(self.couleurs)):
            if clair:
                melange = tuple(a * b // 255 for a, b in zip(dessous, couleur))
            else:
                melange = tuple(255 - (255 - a) * (255 - b) // 255 for a, b in zip(dessous, couleur))
            table[rang] = self._rang(melange)
        return Encre(table=bytes(table))

    def echange(self, a, b):
        """An ink that turns colour a into b and b into a, and leaves the others."""
        table = bytearray(range(256))
        table[self._rang(a)], table[self._rang(b)] = self._rang(b), self._rang(a)
        return Encre(table=bytes(table))

    # Shapes; all lengths in pixels, angles in degrees, clockwise from the right.

    def borner(self, x, y, largeur, hauteur):
        """Limits the shapes that follow to a rectangle."""
        self._gauche, self._haut = round(x * FACTEUR), round(y * FACTEUR)
        self._droite = min(self._n, round((x + largeur) * FACTEUR))
        self._bas = min(self._n, round((y + hauteur) * FACTEUR))

    def _etaler(self, y, debut, fin, encre):
        debut, fin = max(debut, self._gauche), min(fin, self._droite)
        if debut >= fin:
            return
        ligne = self._lignes[y]
        if encre.table is None:
            ligne[debut:fin] = bytes((encre.octet,)) * (fin - debut)
        else:
            ligne[debut:fin] = ligne[debut:fin].translate(encre.table)

    def rectangle(self, x, y, largeur, hauteur, encre):
        gauche, droite = round(x * FACTEUR), round((x + largeur) * FACTEUR)
        for rang in range(max(round(y * FACTEUR), self._haut), min(round((y + hauteur) * FACTEUR), self._bas)):
            self._etaler(rang, gauche, droite, encre)

    def disque(self, cx, cy, rayon, encre):
        self.anneau(cx, cy, 0, rayon, encre)

    def anneau(self, cx, cy, interieur, exterieur, encre):
        cx, cy, r0, r1 = cx * FACTEUR, cy * FACTEUR, interieur * FACTEUR, exterieur * FACTEUR
        for rang in range(max(math.ceil(cy - r1 - 0.5), self._haut), min(math.ceil(cy + r1 - 0.5), self._bas)):
            dy2 = (rang + 0.5 - cy) ** 2
            if dy2 >= r1 * r1:
                continue
            large = math.sqrt(r1 * r1 - dy2)
            debut, fin = math.ceil(cx - large - 0.5), math.ceil(cx + large - 0.5)
            if dy2 < r0 * r0:
                etroit = math.sqrt(r0 * r0 - dy2)
                self._etaler(rang, debut, math.ceil(cx - etroit - 0.5), encre)
                debut = math.ceil(cx + etroit - 0.5)
            self._etaler(rang, debut, fin, encre)

    def polygone(self, points, encre):
        """Fills by the even-odd rule."""
        croisements = {}
        points = [(x * FACTEUR, y * FACTEUR) for x, y in points]
        for (xa, ya), (xb, yb) in zip(points, points[1:] + points[:1]):
            if ya == yb:
                continue
            if ya > yb:
                xa, ya, xb, yb = xb, yb, xa, ya
            pente = (xb - xa) / (yb - ya)
            for rang in range(max(math.ceil(ya - 0.5), self._haut), min(math.ceil(yb - 0.5), self._bas)):
                croisements.setdefault(rang, []).append(xa + (rang + 0.5 - ya) * pente)
        for rang, abscisses in croisements.items():
            abscisses.sort()
            for debut, fin in zip(abscisses[::2], abscisses[1::2]):
                self._etaler(rang, math.ceil(debut - 0.5), math.ceil(fin - 0.5), encre)

    def secteur(self, cx, cy, interieur, exterieur, debut, fin, encre):
        """A piece of a ring; of a disc when `interieur` is 0."""
        contour = arc(cx, cy, exterieur, exterieur, debut, fin)
        retour = arc(cx, cy, interieur, interieur, fin, debut) if interieur else [(cx, cy)]
        self.polygone(contour + retour, encre)

    def ellipse(self, cx, cy, rx, ry, angle, encre):
        c, s = cosinus(angle), sinus(angle)
        tour = arc(0, 0, rx, ry, 0, 360)
        self.polygone([(cx + x * c - y * s, cy + x * s + y * c) for x, y in tour], encre)

    def trait(self, points, epaisseur, encre):
        """A line through points, with round ends and corners."""
        for (xa, ya), (xb, yb) in zip(points, points[1:]):
            longueur = math.sqrt((xb - xa) ** 2 + (yb - ya) ** 2)
            if longueur == 0:
                continue
            dx, dy = (yb - ya) * epaisseur / 2 / longueur, (xa - xb) * epaisseur / 2 / longueur
            self.polygone([(xa + dx, ya + dy), (xb + dx, yb + dy), (xb - dx, yb - dy), (xa - dx, ya - dy)], encre)
        for x, y in points:
            self.disque(x, y, epaisseur / 2, encre)

    # Result

    def pixels(self):
        """The picture, row by row from the top: one (red, green, blue) for each pixel."""
        resultat, connus = [], {}
        for haut in range(0, self._n, FACTEUR):
            lignes = [bytes(ligne) for ligne in self._lignes[haut : haut + FACTEUR]]
            # The samples of a pixel stand in FACTEUR rows and FACTEUR columns: one strided slice for each.
            for echantillons in zip(*(ligne[i::FACTEUR] for ligne in lignes for i in range(FACTEUR))):
                couleur = connus.get(echantillons)
                if couleur is None:
                    couleur = connus[echantillons] = self._moyenne(echantillons)
                resultat.append(couleur)
        return resultat

    def _moyenne(self, echantillons):
        # Light adds up, and a colour value is about the square root of light: averaging the squares keeps edges even.
        triplets = [self.couleurs[rang] for rang in echantillons]
        return tuple(math.isqrt(sum(t[i] * t[i] for t in triplets) // len(triplets)) for i in range(3))


def arc(cx, cy, rx, ry, debut, fin):
    """Points along an arc of an ellipse, both ends included."""
    pas = max(2, math.ceil(abs(fin - debut) / 3))
    angles = [debut + (fin - debut) * i / pas for i in range(pas + 1)]
    return [(cx + rx * cosinus(a), cy + ry * sinus(a)) for a in angles]
