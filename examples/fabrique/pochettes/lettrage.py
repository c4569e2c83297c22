"""A geometric alphabet of strokes, for the names on the sleeves. Capitals, digits, accents."""
import unicodedata

from .toile import arc


# A stroke is a list of points; the names are short for the table's sake.
def _l(*xy):
    """A line through points."""
    return list(zip(xy[::2], xy[1::2]))


def _a(cx, cy, rx, ry, debut, fin):
    """An arc."""
    return arc(cx, cy, rx, ry, debut, fin)


# Each letter: its width and its strokes. The height of a capital is 1; y points up from the base line, and angles run
# counter-clockwise.
_LETTRES = {
    "A": (0.78, [_l(0, 0, 0.39, 1, 0.78, 0), _l(0.13, 0.33, 0.65, 0.33)]),
    "B": (
        0.60,
        [
            _l(0.33, 0.53, 0, 0.53, 0, 1, 0.31, 1) + _a(0.31, 0.765, 0.235, 0.235, 90, -90) + _l(0.33, 0.53),
            _l(0.33, 0.53) + _a(0.33, 0.265, 0.27, 0.265, 90, -90) + _l(0, 0, 0, 0.53),
        ],
    ),
    "C": (0.84, [_a(0.5, 0.5, 0.5, 0.5, 47, 313)]),
    "D": (0.76, [_l(0.26, 0, 0, 0, 0, 1, 0.26, 1) + _a(0.26, 0.5, 0.5, 0.5, 90, -90)]),
    "E": (0.50, [_l(0.50, 1, 0, 1, 0, 0, 0.50, 0), _l(0, 0.52, 0.44, 0.52)]),
    "F": (0.48, [_l(0.48, 1, 0, 1, 0, 0), _l(0, 0.52, 0.42, 0.52)]),
    "G": (0.95, [_a(0.5, 0.5, 0.5, 0.5, 47, 338) + _l(0.95, 0.47, 0.58, 0.47)]),
    "H": (0.66, [_l(0, 0, 0, 1), _l(0.66, 0, 0.66, 1), _l(0, 0.52, 0.66, 0.52)]),
    "I": (0.0, [_l(0, 0, 0, 1)]),
    "J": (0.40, [_l(0.40, 1, 0.40, 0.24) + _a(0.19, 0.22, 0.21, 0.22, 0, -170)]),
    "K": (0.60, [_l(0, 0, 0, 1), _l(0.56, 1, 0, 0.40), _l(0.20, 0.61, 0.60, 0)]),
    "L": (0.45, [_l(0, 1, 0, 0, 0.45, 0)]),
    "M": (0.88, [_l(0, 0, 0.08, 1, 0.44, 0.14, 0.80, 1, 0.88, 0)]),
    "N": (0.68, [_l(0, 0, 0, 1, 0.68, 0, 0.68, 1)]),
    "O": (1.0, [_a(0.5, 0.5, 0.5, 0.5, 0, 360)]),
    "P": (0.57, [_l(0, 0, 0, 1, 0.30, 1) + _a(0.30, 0.73, 0.27, 0.27, 90, -90) + _l(0, 0.46)]),
    "Q": (1.0, [_a(0.5, 0.5, 0.5, 0.5, 0, 360), _l(0.62, 0.26, 0.94, -0.06)]),
    "R": (0.60, [_l(0, 0, 0, 1, 0.30, 1) + _a(0.30, 0.73, 0.27, 0.27, 90, -90) + _l(0, 0.46), _l(0.29, 0.46, 0.60, 0)]),
    "S": (0.55, [_a(0.28, 0.755, 0.235, 0.245, 35, 270) + _a(0.28, 0.255, 0.265, 0.255, 90, -150)]),
    "T": (0.64, [_l(0, 1, 0.64, 1), _l(0.32, 1, 0.32, 0)]),
    "U": (0.64, [_l(0, 1, 0, 0.32) + _a(0.32, 0.32, 0.32, 0.32, 180, 360) + _l(0.64, 1)]),
    "V": (0.74, [_l(0, 1, 0.37, 0, 0.74, 1)]),
    "W": (1.08, [_l(0, 1, 0.27, 0, 0.54, 0.92, 0.81, 0, 1.08, 1)]),
    "X": (0.64, [_l(0, 0, 0.64, 1), _l(0, 1, 0.64, 0)]),
    "Y": (0.66, [_l(0, 1, 0.33, 0.47, 0.66, 1), _l(0.33, 0.47, 0.33, 0)]),
    "Z": (0.60, [_l(0, 1, 0.60, 1, 0, 0, 0.60, 0)]),
    "0": (0.62, [_a(0.31, 0.5, 0.31, 0.5, 0, 360)]),
    "1": (0.24, [_l(0, 0.80, 0.24, 1, 0.24, 0)]),
    "2": (0.56, [_a(0.28, 0.73, 0.27, 0.27, 165, -38) + _l(0, 0, 0.56, 0)]),
    "3": (0.56, [_a(0.27, 0.76, 0.23, 0.24, 150, -90) + _a(0.27, 0.26, 0.28, 0.26, 90, -155)]),
    "4": (0.62, [_l(0.46, 0, 0.46, 1, 0, 0.27, 0.62, 0.27)]),
    "5": (0.56, [_l(0.50, 1, 0.10, 1, 0.05, 0.55) + _a(0.26, 0.32, 0.29, 0.32, 125, -145)]),
    "6": (0.60, [_l(0.40, 1, 0.05, 0.42), _a(0.30, 0.30, 0.29, 0.30, 0, 360)]),
    "7": (0.56, [_l(0, 1, 0.56, 1, 0.17, 0)]),
    "8": (0.58, [_a(0.29, 0.76, 0.23, 0.24, 0, 360), _a(0.29, 0.26, 0.28, 0.26, 0, 360)]),
    "9": (0.60, [_l(0.20, 0, 0.55, 0.58), _a(0.30, 0.70, 0.29, 0.30, 0, 360)]),
    "'": (0.0, [_l(0, 1, 0, 0.74)]),
    ".": (0.0, [_l(0, 0, 0, 0.01)]),
    ",": (0.06, [_l(0.06, 0.03, 0, -0.16)]),
    ":": (0.0, [_l(0, 0.12, 0, 0.13), _l(0, 0.62, 0, 0.63)]),
    "!": (0.0, [_l(0, 1, 0, 0.30), _l(0, 0, 0, 0.01)]),
    "-": (0.34, [_l(0, 0.45, 0.34, 0.45)]),
    "&": (
        0.74,
        [
            _l(0.74, 0, 0.16, 0.66)
            + _a(0.33, 0.80, 0.20, 0.20, 215, -45)
            + _l(0.20, 0.50)
            + _a(0.28, 0.26, 0.27, 0.26, 115, 330)
            + _l(0.70, 0.42)
        ],
    ),
    " ": (0.22, []),
}
# Accents, from the middle of the letter and the height of a capital.
_ACCENTS = {
    "\u0300": [_l(-0.12, 0.34, 0.06, 0.17)],
    "\u0301": [_l(0.12, 0.34, -0.06, 0.17)],
    "\u0302": [_l(-0.16, 0.17, 0, 0.33, 0.16, 0.17)],
    "\u0303": [_l(-0.20, 0.19, -0.08, 0.29, 0.08, 0.21, 0.20, 0.31)],
    "\u0308": [_l(-0.14, 0.24, -0.14, 0.25), _l(0.14, 0.24, 0.14, 0.25)],
    "\u030A": [_a(0, 0.27, 0.11, 0.11, 0, 360)],
    "\u0327": [_l(0, -1.02, 0.04, -1.15, -0.08, -1.24)],
}
_LIGATURES = {"Œ": "OE", "Æ": "AE", "…": "..."}


def _signes(texte):
    """The signs of a text: width, strokes."""
    texte = "".join(_LIGATURES.get(signe, signe) for signe in texte.upper().replace("’", "'").replace("–", "-"))
    for signe in unicodedata.normalize("NFC", texte):
        base, *accents = unicodedata.normalize("NFD", signe)
        if base not in _LETTRES:
            raise ValueError(f"the alphabet of the sleeves lacks {base!r}, wanted for {texte!r}")
        largeur, traits = _LETTRES[base]
        marques = [[(x + largeur / 2, y + 1) for x, y in trait] for a in accents for trait in _ACCENTS[a]]
        yield largeur, traits + marques


def largeur(texte, corps, approche):
    """The width of a text whose capitals are `corps` high, with `approche` between letters, in pixels."""
    return sum(large * corps + approche for large, _ in _signes(texte)) - approche


def ecrire(toile, texte, x, y, corps, encre, graisse, approche, vertical=False):
    """Writes from (x, y), the left end of the base line; upwards when `vertical`."""
    for large, traits in _signes(texte):
        for trait in traits:
            if vertical:
                points = [(x - ty * corps, y - tx * corps) for tx, ty in trait]
            else:
                points = [(x + tx * corps, y - ty * corps) for tx, ty in trait]
            toile.trait(points, graisse, encre)
        if vertical:
            y -= large * corps + approche
        else:
            x += large * corps + approche
