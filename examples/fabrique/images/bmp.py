"""Windows bitmaps of 8 bits a pixel, not compressed."""
import struct

from .palette import reduire


def encoder(largeur, hauteur, pixels):
    couleurs, rangs = reduire(pixels)
    table = b"".join(bytes((bleu, vert, rouge, 0)) for rouge, vert, bleu in couleurs)
    bourrage = bytes(-largeur % 4)
    # Rows stand from the bottom to the top, each filled up to four bytes.
    lignes = b"".join(
        bytes(rangs[y * largeur : (y + 1) * largeur]) + bourrage for y in range(hauteur - 1, -1, -1)
    )
    debut = 14 + 40 + len(table)
    entete = struct.pack("<2sIHHI", b"BM", debut + len(lignes), 0, 0, debut)
    pixels_par_metre = 2835  # 72 dots an inch
    description = struct.pack(
        "<IiiHHIIiiII", 40, largeur, hauteur, 1, 8, 0, len(lignes), pixels_par_metre, pixels_par_metre, len(couleurs), 0
    )
    return entete + description + table + lignes
