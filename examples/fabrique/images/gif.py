"""GIF pictures, one frame, with the format's own LZW compression."""
import struct

from .palette import reduire


def encoder(largeur, hauteur, pixels):
    couleurs, rangs = reduire(pixels)
    bits = max(2, (len(couleurs) - 1).bit_length())
    table = b"".join(bytes(couleur) for couleur in couleurs).ljust(3 << bits, b"\0")
    entete = b"GIF89a" + struct.pack("<HHBBB", largeur, hauteur, 0xF0 | bits - 1, 0, 0) + table
    image = b"," + struct.pack("<HHHHB", 0, 0, largeur, hauteur, 0)
    donnees = _lzw(rangs, bits)
    blocs = b"".join(
        bytes((len(bloc),)) + bloc for bloc in (donnees[i : i + 255] for i in range(0, len(donnees), 255))
    )
    return entete + image + bytes((bits,)) + blocs + b"\0;"


def _lzw(rangs, bits):
    effacer, fin = 1 << bits, (1 << bits) + 1
    sortie = bytearray()
    accu = place = 0

    def ecrire(code):
        nonlocal accu, place
        accu |= code << place
        place += taille
        while place >= 8:
            sortie.append(accu & 255)
            accu >>= 8
            place -= 8

    taille, suivant, codes = bits + 1, fin + 1, {}
    ecrire(effacer)
    prefixe = rangs[0]
    for rang in rangs[1:]:
        code = codes.get((prefixe, rang))
        if code is not None:
            prefixe = code
            continue
        ecrire(prefixe)
        if suivant < 4096:
            codes[prefixe, rang] = suivant
            # The reader's table is one entry behind: codes grow a bit when the new one no longer fits.
            if suivant == 1 << taille:
                taille += 1
            suivant += 1
        else:
            ecrire(effacer)
            taille, suivant, codes = bits + 1, fin + 1, {}
        prefixe = rang
    ecrire(prefixe)
    # The reader adds an entry for the last code too before it meets the end.
    if suivant == 1 << taille and taille < 12:
        taille += 1
    ecrire(fin)
    if place:
        sortie.append(accu & 255)
    return bytes(sortie)
