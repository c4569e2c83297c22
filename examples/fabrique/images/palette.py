"""At most 256 colours for a picture."""
from collections import Counter


def reduire(pixels, nombre=256):
    """The colours, the most frequent first, and for each pixel the number of its colour or of the nearest one."""
    compte = Counter(pixels)
    # The colour itself breaks ties, so that the choice does not depend on the order of the pixels.
    couleurs = sorted(compte, key=lambda couleur: (-compte[couleur], couleur))
    gardees = couleurs[:nombre]
    rangs = {couleur: rang for rang, couleur in enumerate(gardees)}
    for couleur in couleurs[nombre:]:
        proche = min(gardees, key=lambda autre: sum((a - b) ** 2 for a, b in zip(couleur, autre)))
        rangs[couleur] = rangs[proche]
    return gardees, [rangs[pixel] for pixel in pixels]
