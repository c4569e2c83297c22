"""Compositions that repeat: dots, waves, rings, bands. Each draws into a zone (x, y, width, height) of a canvas."""
import math

from .hasard import cosinus, sinus
from .palettes import degrade, melanger
from .toile import arc


def horizon(toile, palette, hasard, zone):
    """A sun that sets behind hills."""
    x, y, large, haut = zone
    ciel = degrade([palette.accents[1], melanger(palette.accents[1], palette.fond, 0.8), palette.fond], 9)
    for i, couleur in enumerate(ciel):
        toile.rectangle(x, y + i * haut * 0.66 / 9, large, haut * 0.66 / 9 + 1, toile.aplat(couleur))
    cx, cy = x + large * hasard.choix((0.36, 0.5, 0.66)), y + haut * hasard.reel(0.44, 0.54)
    rayon = min(large, haut) * hasard.reel(0.24, 0.30)
    soleil = toile.aplat(palette.accents[0])
    toile.disque(cx, cy, rayon, soleil)
    fentes = hasard.pile()
    nombre = hasard.choix((4, 5))
    collines = degrade([melanger(palette.accents[2], palette.fond, 0.25), palette.accents[2], palette.encre], nombre)
    if fentes:
        for k in range(5):
            epaisseur = 1.5 + k * 1.3
            bord = cy + rayon * (0.05 + 0.19 * k)
            rang = min(8, int((bord - y) / (haut * 0.66 / 9)))
            toile.rectangle(cx - rayon - 1, bord, 2 * rayon + 2, epaisseur, toile.aplat(ciel[rang]))
    for i, couleur in enumerate(collines):
        base = y + haut * (0.60 + 0.40 * i / nombre)
        ampleur, longueur, phase = haut * hasard.reel(0.025, 0.06), hasard.reel(0.7, 1.3), hasard.entier(0, 359)
        crete = [
            (x + large * k / 60, base + ampleur * sinus(phase + 360 * longueur * k / 60)) for k in range(61)
        ]
        toile.polygone(crete + [(x + large, y + haut), (x, y + haut)], toile.aplat(couleur))


def bombe(toile, palette, hasard, zone):
    """A sheet of dots with a ball under it."""
    x, y, large, haut = zone
    nombre = hasard.choix((15, 17, 19))
    pas = large / nombre
    cx, cy = x + large * hasard.reel(0.40, 0.60), y + haut * hasard.reel(0.40, 0.60)
    rayon = min(large, haut) * hasard.reel(0.36, 0.42)
    sombre = hasard.pile()
    if sombre:
        toile.rectangle(x, y, large, haut, toile.aplat(palette.encre))
    plat = toile.aplat(palette.fond if sombre else palette.encre)
    tons = [toile.aplat(c) for c in degrade([palette.accents[1], palette.accents[0], palette.accents[2]], 24)]
    rangees = math.ceil(haut / pas)
    boule = []
    for rangee in range(-1, rangees + 2):
        for colonne in range(-1, nombre + 2):
            px, py = x + (colonne + 0.5) * pas, y + (rangee + 0.5) * pas
            dx, dy = (px - cx) / rayon, (py - cy) / rayon
            d = math.sqrt(dx * dx + dy * dy)
            if d >= 1:
                toile.disque(px, py, pas * 0.20, plat)
                continue
            # The sheet is drawn out at the top of the ball and pressed together at its edge.
            force = 0.60 + 0.40 * d * d
            gros = pas * (0.20 + 0.30 * math.sqrt(1 - d * d))
            ton = tons[min(23, max(0, int((dx + dy + 1.4) / 2.8 * 24)))]
            boule.append((cx + dx * rayon / force * 0.82, cy + dy * rayon / force * 0.82, gros, ton))
    fond = toile.aplat(palette.encre if sombre else palette.fond)
    toile.disque(cx, cy, rayon * 0.995, fond)
    for px, py, gros, ton in boule:
        toile.disque(px, py, gros, ton)


def trame(toile, palette, hasard, zone):
    """A ball seen through the screen of a printer."""
    x, y, large, haut = zone
    cx, cy = x + large * 0.5, y + haut * 0.52
    rayon = min(large, haut) * 0.40
    vif = toile.aplat(palette.accents[0])
    decale = rayon * hasard.reel(0.10, 0.18)
    toile.disque(cx - decale, cy - decale, rayon, vif)
    pas, angle = hasard.choix((7.0, 8.5)), hasard.choix((15, 45, 30))
    c, s = cosinus(angle), sinus(angle)
    lx, ly = hasard.choix(((-0.55, -0.55), (0.5, -0.6), (-0.2, -0.7)))
    encre = toile.aplat(palette.encre)
    portee = int((large + haut) / pas)
    for i in range(-portee, portee):
        for j in range(-portee, portee):
            u, v = i * pas, j * pas
            px, py = cx + u * c - v * s, cy + u * s + v * c
            dx, dy = (px - cx) / rayon, (py - cy) / rayon
            d2 = dx * dx + dy * dy
            if d2 < 1:
                eclat = (dx * lx + dy * ly + math.sqrt(1 - d2) * 0.62)
                ombre = min(1.0, max(0.0, 0.95 - 1.05 * eclat))
                if ombre > 0.04:
                    toile.disque(px, py, pas * 0.66 * math.sqrt(ombre), encre)


def ondes(toile, palette, hasard, zone):
    """Bands that swing together."""
    x, y, large, haut = zone
    nombre = hasard.choix((14, 18, 22))
    teintes = degrade([palette.accents[0], palette.accents[2], palette.accents[1], palette.encre], nombre)
    phase, tours = hasard.entier(0, 359), hasard.reel(0.8, 1.6)
    derive = hasard.choix((-1, 1)) * hasard.reel(7, 14)
    ampleur = haut * hasard.reel(0.06, 0.10)
    points = 64
    toile.rectangle(x, y, large, haut, toile.aplat(palette.fond))
    for i, couleur in enumerate(teintes):
        base = y + haut * (0.10 + 0.95 * i / nombre)
        crete = []
        for k in range(points + 1):
            part = k / points
            onde = sinus(phase + derive * i + 360 * tours * part) * (0.35 + 0.65 * sinus(180 * part))
            crete.append((x + large * part, base + ampleur * onde))
        toile.polygone(crete + [(x + large, y + haut), (x, y + haut)], toile.aplat(couleur))
        if i % 2 == 0:
            filet = melanger(couleur, palette.fond, 0.65)
            toile.polygone(crete + [(px, py + 1.4) for px, py in reversed(crete)], toile.aplat(filet))


def moire(toile, palette, hasard, zone):
    """Two sets of rings that disturb each other."""
    x, y, large, haut = zone
    sombre = hasard.choix((palette.encre, palette.accents[0]))
    echange = toile.echange(palette.fond, sombre)
    toile.aplat(sombre)
    angle, ecart = hasard.entier(0, 179), min(large, haut) * hasard.reel(0.09, 0.16)
    pas = hasard.choix((9.0, 11.0, 13.0))
    for sens in (-1, 1):
        cx = x + large / 2 + sens * ecart * cosinus(angle)
        cy = y + haut / 2 + sens * ecart * sinus(angle)
        for k in range(int((large + haut) / pas)):
            toile.anneau(cx, cy, k * pas, k * pas + pas / 2, echange)
    rayon = min(large, haut) * 0.13
    toile.disque(x + large / 2, y + haut / 2, rayon, toile.aplat(palette.accents[2]))


def virage(toile, palette, hasard, zone):
    """Five coloured lanes that come in at one side and turn."""
    x, y, large, haut = zone
    couleurs = [palette.encre, *palette.accents]
    if hasard.pile():
        couleurs.reverse()
    bande = min(large, haut) * 0.088
    epais = bande * len(couleurs)
    # The lanes come from the left, turn round (cx, cy) and leave downwards; a mirror gives the other seven roads.
    miroir_x, miroir_y = hasard.pile(), hasard.pile()
    centre = (large * hasard.reel(0.36, 0.46), haut * hasard.reel(0.56, 0.66))
    interieur = bande * 1.1

    def poser(points):
        return [
            (x + (large - px if miroir_x else px), y + (haut - py if miroir_y else py)) for px, py in points
        ]

    cx, cy = centre
    for i, couleur in enumerate(couleurs):
        r0, r1 = interieur + epais - (i + 1) * bande, interieur + epais - i * bande
        encre = toile.aplat(couleur)
        toile.polygone(poser([(-2, cy - r1), (cx, cy - r1), (cx, cy - r0), (-2, cy - r0)]), encre)
        toile.polygone(poser(arc(cx, cy, r1, r1, -90, 0) + arc(cx, cy, r0, r0, 0, -90)), encre)
        toile.polygone(poser([(cx + r0, cy), (cx + r1, cy), (cx + r1, haut + 2), (cx + r0, haut + 2)]), encre)
    if hasard.pile():
        [(dx, dy)] = poser([(large * 0.82, haut * 0.20)])
        toile.disque(dx, dy, bande * 1.15, toile.aplat(couleurs[1]))


def mobile(toile, palette, hasard, zone):
    """Leaves and discs that hang from wires."""
    x, y, large, haut = zone
    fil = toile.aplat(palette.encre)
    couleurs = [toile.aplat(c) for c in hasard.battre([*palette.accents, palette.encre])]
    sens = hasard.choix((-1, 1))
    px, py = x + large * (0.5 - sens * 0.04), y + haut * 0.15
    toile.trait([(px, y - 4), (px, py)], 1.5, fil)
    for etage in range(4):
        # Each wire carries a leaf at its long end and the next wire at its short one.
        bras = large * (0.28 - 0.03 * etage)
        ax, ay = px - sens * bras, py + haut * 0.035
        bx, by = px + sens * large * hasard.reel(0.10, 0.14), py + haut * 0.02
        toile.trait(
            [(ax + (bx - ax) * k / 16, ay + (by - ay) * k / 16 - haut * 0.05 * sinus(11.25 * k)) for k in range(17)],
            1.7,
            fil,
        )
        taille = large * (0.13 - 0.016 * etage)
        if (etage + (1 if sens > 0 else 0)) % 3 == 0:
            toile.trait([(ax, ay), (ax, ay + 9)], 1.3, fil)
            toile.disque(ax, ay + 9 + taille * 0.68, taille * 0.68, couleurs[etage])
        else:
            toile.ellipse(ax, ay + taille * 0.30, taille, taille * 0.46, -sens * hasard.entier(8, 30), couleurs[etage])
        descente = haut * 0.15
        toile.trait([(bx, by), (bx, by + descente)], 1.3, fil)
        px, py, sens = bx, by + descente, -sens
    toile.disque(px, py + large * 0.045, large * 0.045, couleurs[0])


def phases(toile, palette, hasard, zone):
    """Rows of the same beat, each a little later than the one above."""
    x, y, large, haut = zone
    rangees, coups = hasard.choix((12, 14, 16)), hasard.choix((10, 12))
    pas_y, pas_x = haut / rangees, large / coups
    glisse = hasard.choix((1, -1)) * hasard.reel(0.10, 0.22)
    couleurs = degrade([palette.encre, palette.accents[0], palette.accents[2]], rangees)
    accent = toile.aplat(palette.accents[1])
    solo = hasard.entier(3, coups - 4)
    for rangee in range(rangees):
        encre = toile.aplat(couleurs[rangee])
        for coup in range(-coups, 2 * coups):
            decale = glisse * rangee * (1 + rangee / rangees)
            gauche = x + (coup + decale) * pas_x
            couleur = accent if coup == solo else encre
            toile.rectangle(gauche, y + rangee * pas_y + pas_y * 0.12, pas_x * 0.5, pas_y * 0.76, couleur)
