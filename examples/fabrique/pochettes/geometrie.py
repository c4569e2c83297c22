"""Compositions of plain shapes. Each draws into a zone (x, y, width, height) of a canvas with the palette's ground."""
from .hasard import cosinus, sinus


def quarts(toile, palette, hasard, zone):
    """A tiling of quarter and half circles."""
    x, y, large, haut = zone
    colonnes = hasard.choix((3, 4, 5))
    cote = large / colonnes
    rangees = round(haut / cote)
    pas_y = haut / rangees
    teintes = [toile.aplat(c) for c in (palette.fond, palette.encre, *palette.accents)]
    motif = hasard.choix(("quart", "quart", "feuille", "arche"))
    precedent = None
    for rangee in range(rangees):
        for colonne in range(colonnes):
            gauche, sommet = x + colonne * cote, y + rangee * pas_y
            dessous, dessus = hasard.battre(teintes)[:2]
            if dessous is precedent:
                dessous, dessus = dessus, dessous
            precedent = dessous
            toile.rectangle(gauche, sommet, cote, pas_y, dessous)
            toile.borner(gauche, sommet, cote, pas_y)
            _carreau(toile, motif, gauche, sommet, min(cote, pas_y), hasard.entier(0, 3), dessus, hasard)
            toile.borner(x, y, large, haut)


def _carreau(toile, motif, x, y, cote, sens, encre, hasard):
    coins = [(x, y), (x + cote, y), (x + cote, y + cote), (x, y + cote)]
    cx, cy = coins[sens]
    if motif == "quart":
        if hasard.entier(0, 6) == 0:
            toile.disque(x + cote / 2, y + cote / 2, cote * 0.30, encre)
        else:
            toile.disque(cx, cy, cote, encre)
    elif motif == "feuille":
        # What two opposite quarter circles share.
        ox, oy = coins[(sens + 2) % 4]
        debut, autre = 90 * sens, 90 * ((sens + 2) % 4)
        contour = [(cx + cote * cosinus(a), cy + cote * sinus(a)) for a in range(debut, debut + 91, 3)]
        contour += [(ox + cote * cosinus(a), oy + cote * sinus(a)) for a in range(autre, autre + 91, 3)]
        toile.polygone(contour, encre)
    else:
        milieux = [(x + cote / 2, y), (x + cote, y + cote / 2), (x + cote / 2, y + cote), (x, y + cote / 2)]
        toile.disque(*milieux[sens], cote / 2, encre)
        toile.disque(*milieux[sens], cote / 5, toile.aplat(toile.couleurs[0]))


def contrepoint(toile, palette, hasard, zone):
    """Stripes, and a disc in which they are turned inside out."""
    x, y, large, haut = zone
    nombre = hasard.choix((11, 13, 17))
    angle = hasard.choix((0, 90, 45, -45))
    cx, cy, rayon = x + large / 2, y + haut / 2, (large + haut) * 0.75
    c, s = cosinus(angle), sinus(angle)
    clair, sombre = palette.fond, hasard.choix((palette.encre, palette.accents[0]))
    encre = toile.aplat(sombre)
    pas = 2 * min(large, haut) / (2 * nombre - 1) * (1.4 if c * s else 1)
    for i in range(-2 * nombre, 2 * nombre):
        d = (i - 0.25) * pas
        bande = [(-rayon, d), (rayon, d), (rayon, d + pas / 2), (-rayon, d + pas / 2)]
        toile.polygone([(cx + u * c - v * s, cy + u * s + v * c) for u, v in bande], encre)
    echange = toile.echange(clair, sombre)
    grand = min(large, haut) * hasard.reel(0.30, 0.36)
    gx, gy = cx + large * hasard.reel(-0.10, 0.10), cy + haut * hasard.reel(-0.10, 0.10)
    toile.disque(gx, gy, grand, echange)
    vif = palette.accents[1] if sombre == palette.accents[0] else palette.accents[0]
    sens = hasard.choix((-1, 1))
    toile.disque(gx + sens * grand * 0.72, gy + grand * 0.72, grand * 0.36, toile.aplat(vif))


def blocs(toile, palette, hasard, zone):
    """Rectangles in proportion, one of them with a circle."""
    x, y, large, haut = zone
    gouttiere = 5
    toile.rectangle(x, y, large, haut, toile.aplat(palette.encre))
    pieces = [zone]
    while len(pieces) < 8:
        pieces.sort(key=lambda p: p[2] * p[3])
        px, py, pl, ph = pieces.pop()
        part = hasard.choix((0.382, 0.618, 0.5, 0.33))
        if pl * hasard.reel(0.8, 1.25) > ph:
            pieces += [(px, py, pl * part, ph), (px + pl * part, py, pl * (1 - part), ph)]
        else:
            pieces += [(px, py, pl, ph * part), (px, py + ph * part, pl, ph * (1 - part))]
    pieces.sort(key=lambda p: -p[2] * p[3])
    suite = [palette.fond, palette.accents[0], palette.fond, palette.accents[1], palette.fond, palette.accents[2]]
    for i, (px, py, pl, ph) in enumerate(pieces):
        couleur = suite[i % len(suite)]
        toile.rectangle(px + gouttiere / 2, py + gouttiere / 2, pl - gouttiere, ph - gouttiere, toile.aplat(couleur))
    px, py, pl, ph = pieces[0]
    rayon = min(pl, ph) / 2 - gouttiere * 2.2
    toile.disque(px + pl / 2, py + ph / 2, rayon, toile.aplat(palette.encre))
    toile.disque(px + pl / 2, py + ph / 2, rayon * 0.36, toile.aplat(palette.accents[0]))


def surimpression(toile, palette, hasard, zone):
    """Three translucent shapes, printed one over the other."""
    x, y, large, haut = zone
    cote = min(large, haut)
    cx, cy = x + large / 2, y + haut / 2
    depart = hasard.entier(0, 359)
    anguleuse, autre = hasard.choix(("carre", "bandes")), hasard.choix(("triangle", "anneau", "disque"))
    formes = hasard.battre(["disque", anguleuse, autre])
    for i, (forme, couleur) in enumerate(zip(formes, palette.accents)):
        angle = depart + 120 * i + hasard.entier(-15, 15)
        px, py = cx + cosinus(angle) * cote * 0.17, cy + sinus(angle) * cote * 0.17
        encre = toile.surimpression(couleur)
        r = cote * hasard.reel(0.27, 0.33)
        if forme == "disque":
            toile.disque(px, py, r, encre)
        elif forme == "anneau":
            toile.anneau(px, py, r * 0.55, r * 1.05, encre)
        elif forme == "carre":
            toile.rectangle(px - r * 0.9, py - r * 0.9, r * 1.8, r * 1.8, encre)
        elif forme == "bandes":
            for k in range(5):
                toile.rectangle(px - r, py - r + k * r * 0.42, r * 2, r * 0.25, encre)
        else:
            toile.polygone([(px - r, py + r * 0.85), (px + r, py + r * 0.85), (px, py - r)], encre)


def rayons(toile, palette, hasard, zone):
    """Rays from a point, and rings around it."""
    x, y, large, haut = zone
    cx = x + large * hasard.choix((0.5, 0.28, 0.72))
    cy = y + haut * hasard.choix((0.5, 0.68, 1.0))
    nombre = hasard.choix((16, 20, 24))
    pas = 360 / nombre
    depart = hasard.reel(0, pas)
    teintes = [toile.aplat(palette.accents[0]), toile.aplat(palette.accents[1])]
    toile.rectangle(x, y, large, haut, toile.aplat(palette.accents[2] if hasard.pile() else palette.fond))
    for i in range(nombre):
        if i % 2 == 0:
            toile.secteur(cx, cy, 0, 500, depart + i * pas, depart + (i + 1) * pas, teintes[i // 2 % 2])
    rayon = min(large, haut) * hasard.reel(0.22, 0.30)
    cible = ((1.0, palette.encre), (0.80, palette.fond), (0.60, palette.encre), (0.28, palette.accents[0]))
    for part, couleur in cible:
        toile.disque(cx, cy, rayon * part, toile.aplat(couleur))


def cubes(toile, palette, hasard, zone):
    """Cubes without a floor: three lozenges of three tones, again and again."""
    x, y, large, haut = zone
    colonnes = hasard.choix((4, 5, 6))
    a = large / colonnes / 2
    h = a / 1.7320508
    lumiere = [palette.fond, palette.accents[0], palette.encre]
    vif = [palette.accents[2], palette.accents[1], palette.encre]
    rangees = int(haut / (3 * h)) + 2
    for rangee in range(-1, rangees * 2):
        for colonne in range(-1, colonnes + 1):
            cx = x + (2 * colonne + (rangee % 2)) * a + a
            cy = y + rangee * 3 * h
            tons = vif if hasard.entier(0, 6) == 0 else lumiere
            dessus = [(cx, cy - 2 * h), (cx + a, cy - h), (cx, cy), (cx - a, cy - h)]
            gauche = [(cx - a, cy - h), (cx, cy), (cx, cy + 2 * h), (cx - a, cy + h)]
            droite = [(cx, cy), (cx + a, cy - h), (cx + a, cy + h), (cx, cy + 2 * h)]
            for face, ton in zip((dessus, gauche, droite), tons):
                toile.polygone(face, toile.aplat(ton))


def pliage(toile, palette, hasard, zone):
    """A ribbon folded to and fro, light on one side and shaded on the other."""
    x, y, large, haut = zone
    plis = hasard.choix((4, 5, 6))
    pas = haut / plis
    gauche, droite = x + large * 0.12, x + large * 0.88 - large * 0.28
    if hasard.pile():
        toile.rectangle(x, y, large, haut, toile.aplat(palette.accents[1]))
    clair, ombre = toile.aplat(palette.accents[0]), toile.aplat(palette.encre)
    for i in range(plis):
        y0, y1 = y + i * pas, y + (i + 1) * pas
        a, b = (gauche, droite) if i % 2 == 0 else (droite, gauche)
        face = [(a, y0), (a + large * 0.28, y0), (b + large * 0.28, y1), (b, y1)]
        toile.polygone(face, clair if i % 2 == 0 else ombre)
    lune = min(large, haut) * 0.10
    toile.disque(x + large * 0.18, y + haut * hasard.choix((0.35, 0.6, 0.8)), lune, toile.aplat(palette.accents[2]))
