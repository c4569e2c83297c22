"""Baseline JPEG pictures without colour subsampling, all in integers. The tables are the examples of the standard."""
import struct

_LUMINANCE = [
    16, 11, 10, 16, 24, 40, 51, 61, 12, 12, 14, 19, 26, 58, 60, 55, 14, 13, 16, 24, 40, 57, 69, 56, 14, 17, 22, 29,
    51, 87, 80, 62, 18, 22, 37, 56, 68, 109, 103, 77, 24, 35, 55, 64, 81, 104, 113, 92, 49, 64, 78, 87, 103, 121,
    120, 101, 72, 92, 95, 98, 112, 100, 103, 99,
]
_CHROMINANCE = [
    17, 18, 24, 47, 99, 99, 99, 99, 18, 21, 26, 66, 99, 99, 99, 99, 24, 26, 56, 99, 99, 99, 99, 99, 47, 66, 99, 99,
    99, 99, 99, 99, *([99] * 32),
]
_ZIGZAG = sorted(
    range(64),
    key=lambda i: (i // 8 + i % 8, i // 8 if (i // 8 + i % 8) % 2 else i % 8),
)
# Huffman tables: how many codes there are of each length from 1 to 16 bits, and their symbols in order.
_DC = (
    (bytes([0, 1, 5, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0]), bytes(range(12))),
    (bytes([0, 3, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0]), bytes(range(12))),
)
_AC = (
    (
        bytes([0, 2, 1, 3, 3, 2, 4, 3, 5, 5, 4, 4, 0, 0, 1, 125]),
        bytes.fromhex(
            "01020300041105122131410613516107227114328191a1082342b1c11552d1f02433627282090a161718191a25262728292a3435"
            "363738393a434445464748494a535455565758595a636465666768696a737475767778797a838485868788898a92939495969798"
            "999aa2a3a4a5a6a7a8a9aab2b3b4b5b6b7b8b9bac2c3c4c5c6c7c8c9cad2d3d4d5d6d7d8d9dae1e2e3e4e5e6e7e8e9eaf1f2f3f4"
            "f5f6f7f8f9fa"
        ),
    ),
    (
        bytes([0, 2, 1, 2, 4, 4, 3, 4, 7, 5, 4, 4, 0, 1, 2, 119]),
        bytes.fromhex(
            "000102031104052131061241510761711322328108144291a1b1c109233352f0156272d10a162434e125f11718191a262728292a"
            "35363738393a434445464748494a535455565758595a636465666768696a737475767778797a82838485868788898a9293949596"
            "9798999aa2a3a4a5a6a7a8a9aab2b3b4b5b6b7b8b9bac2c3c4c5c6c7c8c9cad2d3d4d5d6d7d8d9dae2e3e4e5e6e7e8e9eaf2f3f4"
            "f5f6f7f8f9fa"
        ),
    ),
)


def encoder(largeur, hauteur, pixels, qualite=82):
    tables = [_table(base, qualite) for base in (_LUMINANCE, _CHROMINANCE)]
    sortie = bytearray(b"\xff\xd8")
    sortie += _segment(0xE0, b"JFIF\0\x01\x01\x01\x00\x48\x00\x48\0\0")
    for numero, table in enumerate(tables):
        sortie += _segment(0xDB, bytes((numero,)) + bytes(table[i] for i in _ZIGZAG))
    composantes = bytes((1, 0x11, 0, 2, 0x11, 1, 3, 0x11, 1))
    sortie += _segment(0xC0, struct.pack(">BHHB", 8, hauteur, largeur, 3) + composantes)
    for numero in (0, 1):
        sortie += _segment(0xC4, bytes((numero,)) + b"".join(_DC[numero]))
        sortie += _segment(0xC4, bytes((0x10 | numero,)) + b"".join(_AC[numero]))
    sortie += _segment(0xDA, bytes((3, 1, 0, 2, 0x11, 3, 0x11, 0, 63, 0)))
    sortie += _balayage(largeur, hauteur, pixels, tables)
    return bytes(sortie + b"\xff\xd9")


def _segment(marque, contenu):
    return struct.pack(">BBH", 0xFF, marque, len(contenu) + 2) + contenu


def _table(base, qualite):
    echelle = 5000 // qualite if qualite < 50 else 200 - 2 * qualite
    return [min(255, max(1, (valeur * echelle + 50) // 100)) for valeur in base]


def _codes(table):
    """For each symbol its code and the code's length."""
    longueurs, symboles = table
    codes, code, suivant = {}, 0, iter(symboles)
    for longueur, nombre in enumerate(longueurs, start=1):
        for _ in range(nombre):
            codes[next(suivant)] = (code, longueur)
            code += 1
        code <<= 1
    return codes


def _ycc(pixel):
    """Brightness and two colour differences around 128, reckoned in the fixed point of 16 bits."""
    r, v, b = pixel
    return (
        19595 * r + 38470 * v + 7471 * b + 32768 >> 16,
        min(255, 128 + (-11059 * r - 21709 * v + 32768 * b + 32768 >> 16)),
        min(255, 128 + (32768 * r - 27439 * v - 5329 * b + 32768 >> 16)),
    )


def _plans(largeur, hauteur, pixels):
    """Three planes as lists of rows of bytes, filled up to whole blocks with the last column and row."""
    connus = {pixel: _ycc(pixel) for pixel in set(pixels)}
    convertis = [connus[pixel] for pixel in pixels]
    plans = []
    for composante in range(3):
        lignes = []
        for y in range(hauteur):
            ligne = bytes(t[composante] for t in convertis[y * largeur : (y + 1) * largeur])
            lignes.append(ligne + ligne[-1:] * (-largeur % 8))
        lignes += [lignes[-1]] * (-hauteur % 8)
        plans.append(lignes)
    return plans


def _balayage(largeur, hauteur, pixels, tables):
    plans = _plans(largeur, hauteur, pixels)
    codes = [(_codes(_DC[i]), _codes(_AC[i])) for i in (0, 1)]
    precedents = [0, 0, 0]
    bits, accu, longueur = bytearray(), 0, 0
    connus = ({}, {})
    for haut in range(0, len(plans[0]), 8):
        for gauche in range(0, len(plans[0][0]), 8):
            for composante, plan in enumerate(plans):
                genre = 1 if composante else 0
                bloc = b"".join([ligne[gauche : gauche + 8] for ligne in plan[haut : haut + 8]])
                if bloc not in connus[genre]:
                    connus[genre][bloc] = _coefficients(bloc, tables[genre], codes[genre][1])
                continu, code, taille = connus[genre][bloc]
                ecart = continu - precedents[composante]
                precedents[composante] = continu
                prefixe, combien = codes[genre][0][abs(ecart).bit_length()]
                valeur, place = _signe(ecart)
                accu = ((accu << combien | prefixe) << place | valeur) << taille | code
                longueur += combien + place + taille
            while longueur >= 8:
                longueur -= 8
                bits.append(accu >> longueur)
                accu &= (1 << longueur) - 1
    if longueur:
        bits.append(accu << 8 - longueur | (1 << 8 - longueur) - 1)
    return bytes(bits).replace(b"\xff", b"\xff\0")


def _signe(valeur):
    """The bits that tell a value from the others of its size, and their number."""
    taille = abs(valeur).bit_length()
    return (valeur if valeur > 0 else valeur + (1 << taille) - 1), taille


def _coefficients(bloc, table, codes):
    """The mean value of a block, and the bits of all its other coefficients."""
    frequences = _dct([valeur - 128 for valeur in bloc])
    quantifies = [_diviser(frequences[i], table[i] << 2) for i in _ZIGZAG]
    accu = longueur = zeros = 0
    for valeur in quantifies[1:]:
        if valeur == 0:
            zeros += 1
            continue
        while zeros > 15:
            prefixe, combien = codes[0xF0]
            accu, longueur, zeros = accu << combien | prefixe, longueur + combien, zeros - 16
        chiffres, taille = _signe(valeur)
        prefixe, combien = codes[zeros << 4 | taille]
        accu = (accu << combien | prefixe) << taille | chiffres
        longueur, zeros = longueur + combien + taille, 0
    if zeros:
        prefixe, combien = codes[0]
        accu, longueur = accu << combien | prefixe, longueur + combien
    return quantifies[0], accu, longueur


def _diviser(valeur, diviseur):
    """The nearest integer."""
    return (valeur + diviseur // 2) // diviseur if valeur >= 0 else -((-valeur + diviseur // 2) // diviseur)


def _dct(bloc):
    """The cosine transform of 64 values, four times too large; the rows keep two bits more for the columns."""
    lignes = [_dct8(bloc[i : i + 8], 11) for i in range(0, 64, 8)]
    colonnes = [_dct8(colonne, 15) for colonne in zip(*lignes)]
    return [colonnes[x][y] for y in range(8) for x in range(8)]


def _dct8(v, decalage):
    # The factors are cos(k·π/16) in 13 bits.
    s0, s1, s2, s3 = v[0] + v[7], v[1] + v[6], v[2] + v[5], v[3] + v[4]
    d0, d1, d2, d3 = v[0] - v[7], v[1] - v[6], v[2] - v[5], v[3] - v[4]
    a, b, c, d = s0 + s3, s1 + s2, s0 - s3, s1 - s2
    demi = 1 << decalage - 1
    return (
        (a + b) * 5793 + demi >> decalage,
        d0 * 8035 + d1 * 6811 + d2 * 4551 + d3 * 1598 + demi >> decalage,
        c * 7568 + d * 3135 + demi >> decalage,
        d0 * 6811 - d1 * 1598 - d2 * 8035 - d3 * 4551 + demi >> decalage,
        (a - b) * 5793 + demi >> decalage,
        d0 * 4551 - d1 * 8035 + d2 * 1598 + d3 * 6811 + demi >> decalage,
        c * 3135 - d * 7568 + demi >> decalage,
        d0 * 1598 - d1 * 4551 + d2 * 6811 - d3 * 8035 + demi >> decalage,
    )
