"""Palettes of the sleeves: a ground, an ink that can be read on it, and three colours that get on with both."""
from typing import NamedTuple


class Palette(NamedTuple):
    fond: tuple
    encre: tuple
    accents: tuple


def _palette(fond, encre, *accents):
    rvb = [tuple(bytes.fromhex(couleur)) for couleur in (fond, encre, *accents)]
    return Palette(rvb[0], rvb[1], tuple(rvb[2:]))


PALETTES = {
    "papier": _palette("F4EBDD", "1D1D1B", "D62E2A", "1F5FA8", "F2B705"),
    "nuit": _palette("10243E", "F3E9D2", "E4572E", "F0A202", "5FA8D3"),
    "terre": _palette("EFE3CE", "2B1D14", "B5502B", "D98E32", "6B7F5A"),
    "menthe": _palette("DCEBE3", "12353A", "E76F51", "2A9D8F", "F4B942"),
    "bleu": _palette("E9EEF0", "0B1B2B", "1C6CA8", "65A9D4", "F25C3B"),
    "orange": _palette("F6E3BE", "4A1F14", "C8381E", "E88B1A", "F2C14E"),
    "rose": _palette("F7D9D5", "3A1230", "E23D6D", "7C2B8B", "F6A043"),
    "gris": _palette("E6E4DF", "141414", "8C8A84", "C9C5BC", "D93B24"),
    "neon": _palette("14121F", "F2F0FF", "FF3D81", "2DE2E6", "F9C80E"),
    "foret": _palette("17322B", "F2ECD8", "7FA650", "D9B44A", "C65D3B"),
    "glacier": _palette("E4EEF2", "1B3A4B", "7FB2C8", "B7D3DD", "E8A87C"),
    "brique": _palette("C8452D", "F7EAD3", "1E1B1A", "F0B23C", "7E1F17"),
    "lavande": _palette("E8E2F1", "2A2344", "6C5BB5", "B49FDC", "F29E4C"),
    "soleil": _palette("F7B32B", "2D1E12", "E4572E", "FFF1D0", "17756B"),
}


def melanger(a, b, part):
    """The colour on the way from a to b, `part` from 0 to 1."""
    return tuple(round(x + (y - x) * part) for x, y in zip(a, b))


def degrade(etapes, nombre):
    """`nombre` colours in even steps through the given ones."""
    resultat = []
    for i in range(nombre):
        place = i * (len(etapes) - 1) / max(1, nombre - 1)
        debut = min(int(place), len(etapes) - 2)
        resultat.append(melanger(etapes[debut], etapes[debut + 1], place - debut))
    return resultat
