"""One sleeve: a composition, a palette, a layout and the two names."""
from . import geometrie, lettrage, motifs
from .hasard import Hasard
from .palettes import PALETTES, melanger
from .toile import Toile

COTE = 300

COMPOSITIONS = {
    fonction.__name__: fonction
    for fonction in (
        geometrie.quarts,
        geometrie.contrepoint,
        geometrie.blocs,
        geometrie.surimpression,
        geometrie.rayons,
        geometrie.cubes,
        geometrie.pliage,
        motifs.horizon,
        motifs.bombe,
        motifs.trame,
        motifs.ondes,
        motifs.moire,
        motifs.virage,
        motifs.mobile,
        motifs.phases,
    )
}


def _ligne(toile, texte, x, y, corps, place, encre, graisse, vertical=False):
    """One line of lettering, made smaller where it would be longer than `place`."""
    approche = corps * 0.26
    longueur = lettrage.largeur(texte, corps, approche)
    if longueur > place:
        corps, approche, graisse = corps * place / longueur, approche * place / longueur, graisse * place / longueur
    lettrage.ecrire(toile, texte, x, y, corps, encre, max(graisse, 0.9), approche, vertical)


def _bandeau(toile, palette, artiste, titre):
    encre = toile.aplat(palette.encre)
    _ligne(toile, artiste, 14, 26, 11, 272, encre, 2.1)
    _ligne(toile, titre, 14, 44, 8, 272, toile.aplat(melanger(palette.encre, palette.fond, 0.2)), 1.1)
    return (0, 58, COTE, COTE - 58)


def _marge(toile, palette, artiste, titre):
    encre = toile.aplat(palette.encre)
    _ligne(toile, artiste, 18, 270, 10, 264, encre, 1.9)
    _ligne(toile, titre, 18, 286, 7.5, 264, encre, 1.0)
    return (18, 18, COTE - 36, 232)


def _colonne(toile, palette, artiste, titre):
    encre = toile.aplat(palette.encre)
    _ligne(toile, artiste, 31, 284, 13, 268, encre, 2.4, vertical=True)
    _ligne(toile, titre, 50, 284, 8, 268, encre, 1.1, vertical=True)
    return (64, 0, COTE - 64, COTE)


def _nu(toile, palette, artiste, titre):
    return (0, 0, COTE, COTE)


MISES_EN_PAGE = {"bandeau": _bandeau, "marge": _marge, "colonne": _colonne, "nu": _nu}


def pochette(graine, artiste, titre, composition, palette, mise_en_page):
    """The pixels of a sleeve of COTE × COTE. The same arguments give the same picture."""
    couleurs = PALETTES[palette]
    toile = Toile(COTE, couleurs.fond)
    zone = MISES_EN_PAGE[mise_en_page](toile, couleurs, artiste, titre)
    toile.borner(*zone)
    COMPOSITIONS[composition](toile, couleurs, Hasard(graine), zone)
    return toile.pixels()
