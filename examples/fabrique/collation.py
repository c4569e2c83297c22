"""French alphabetical order, as the program sorts its tables: case ignored, accents told apart after the letters,
punctuation counted and standing before digits and letters.

Covers the characters of Windows-1252 that occur in names and titles; any other one is an error, so that a sample is
never sorted by guesswork.
"""
import unicodedata

_PONCTUATION = " _-–—,;:!¡?¿.·'‘’‚‹›\"“”„«»()[]{}§¶@*/\\&#%‰†‡•`´^¯¨¸°©®+±÷×<=>¬|¦~¤¢$£¥€"
_RANGS = {signe: rang for rang, signe in enumerate(_PONCTUATION + "0123456789abcdefghijklmnopqrstuvwxyzþ")}

# Combining marks in the order in which they tell two equal words apart; the stroke and the ligature are letters for
# Unicode's decomposition, and marks for the order.
_BARRE, _LIGATURE = "\u0338", "ligature"
_ACCENTS = {
    accent: rang
    for rang, accent in enumerate(
        ["\u0301", "\u0300", "\u0302", "\u030C", "\u030A", "\u0308", "\u0303", _BARRE, "\u0327", _LIGATURE], start=1
    )
}
_LETTRES_A_PART = {
    "œ": ["o", _LIGATURE, "e"],
    "æ": ["a", _LIGATURE, "e"],
    "ß": ["s", _LIGATURE, "s"],
    "ø": ["o", _BARRE],
    "ð": ["d", _BARRE],
    "…": [".", ".", "."],
}


def _elements(texte):
    for caractere in texte.lower():
        yield from _LETTRES_A_PART.get(caractere) or unicodedata.normalize("NFD", caractere)


def cle(texte):
    """The sort key of a text: all letters first, then all accents."""
    lettres, accents = [], []
    for element in _elements(texte):
        if element in _ACCENTS:
            accents.append(_ACCENTS[element])
        elif element in _RANGS:
            lettres.append(_RANGS[element])
            accents.append(0)
        else:
            raise ValueError(f"no place in the alphabetical order for {element!r} in {texte!r}")
    return lettres, accents
