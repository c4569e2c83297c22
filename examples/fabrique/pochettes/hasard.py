"""Chance and circle functions that give the same numbers on every machine and in every version of Python."""
import math
import zlib


class Hasard:
    """A xorshift generator, sown with a text."""

    def __init__(self, graine):
        self._etat = zlib.crc32(graine.encode("utf-8")) << 32 | 0x9E3779B9
        for _ in range(8):
            self._suivant()

    def _suivant(self):
        x = self._etat
        x ^= x << 13 & 0xFFFFFFFFFFFFFFFF
        x ^= x >> 7
        x ^= x << 17 & 0xFFFFFFFFFFFFFFFF
        self._etat = x
        return x >> 11

    def entier(self, debut, fin):
        """An integer from `debut` to `fin`, both included."""
        return debut + self._suivant() % (fin - debut + 1)

    def reel(self, debut, fin):
        return debut + (fin - debut) * self._suivant() / (1 << 53)

    def choix(self, suite):
        return suite[self.entier(0, len(suite) - 1)]

    def battre(self, suite):
        """A shuffled copy."""
        melange = list(suite)
        for i in range(len(melange) - 1, 0, -1):
            j = self.entier(0, i)
            melange[i], melange[j] = melange[j], melange[i]
        return melange

    def pile(self):
        return self.entier(0, 1) == 1


# The last bit of a sine depends on the mathematical library; nine decimals do not, and are plenty for a picture.
def cosinus(degres):
    return round(math.cos(math.radians(degres)), 9)


def sinus(degres):
    return round(math.sin(math.radians(degres)), 9)
