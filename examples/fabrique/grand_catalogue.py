"""A bare text catalogue of any number of made-up entries, for benchmarks. About 65 bytes an entry."""
import random

from .texte_qrt import PAGE_DE_CODE, PRETE, Colonne, entete

COLONNES = [
    Colonne("Cote", "1600"),
    Colonne("Titre", "5400"),
    Colonne("Artiste", "4200"),
    Colonne("Année", "1200"),
    Colonne("Genre", "2700"),
    Colonne(PRETE, "3200"),
]
_PAR_LOT = 50_000

_FEMININS = (
    "forêt mer nuit maison rivière étoile rue chanson fenêtre lumière pluie colère fête route île saison clé prière "
    "marée voix fièvre ombre lettre danse vallée tempête mémoire frontière neige poussière"
).split()
_MASCULINS = (
    "rêve été château frère soleil théâtre désert bateau cœur train métier silence chêne hôtel orage siècle manège "
    "goût fleuve jardin matin voilier phare écho nuage géant royaume miroir échange hiver"
).split()
_ADJECTIFS = (
    "bleu/bleue perdu/perdue secret/secrète léger/légère dernier/dernière éternel/éternelle brisé/brisée vert/verte "
    "profond/profonde oublié/oubliée doux/douce étrange/étrange gelé/gelée noir/noire discret/discrète doré/dorée "
    "lointain/lointaine clair/claire amer/amère pâle/pâle inachevé/inachevée blanc/blanche voilé/voilée vif/vive "
    "muet/muette sévère/sévère rebelle/rebelle cuivré/cuivrée fêlé/fêlée naïf/naïve"
).split()
_PRENOMS = (
    "Zoé André Hélène Noël Chloé René Aïcha Éric Léa Gaël Maïté Jérôme Inès Loïc Ève Rémi Agnès Théo Cécile Hervé "
    "Anaïs Luc Irène Joël Maëlle Hugo Flora Jules Rose Paul"
).split()
_NOMS = (
    "Lefèvre Müller Besançon Dubois Régnier Lacôte Faÿ Hébert Roux Gautier Nuñez Pénicaud Sébille Mâcon Vidal Chénier "
    "Benoît Ozanne Kéradec Thévenet Marchal Péguy Brême Château Cœurdoux Lévêque Garçon Noyer Guérin Petit"
).split()
_GENRES = (
    "Rock Jazz Chanson Classique Électro Folk Blues Musette Rap Variété Opéra Soul Reggae Punk Slam Poésie"
).split()
_PRETS = ("Camille - 12/03/2026", "Hélène - 05/01/2026", "Loïc - 30/01/2026")


def _titres():
    paires = [adjectif.split("/") for adjectif in _ADJECTIFS]
    titres = []
    for nom in _FEMININS:
        mon = "Mon" if nom[0] in "aeéiîou" else "Ma"
        titres += [f"{debut}{nom} {feminin}" for debut in (f"{mon} ", "Une ") for _, feminin in paires]
        titres += [f"{nom.capitalize()} {feminin}" for _, feminin in paires]
    for nom in _MASCULINS:
        titres += [f"{debut}{nom} {masculin}" for debut in ("Mon ", "Un ") for masculin, _ in paires]
        titres += [f"{nom.capitalize()} {masculin}" for masculin, _ in paires]
    return titres


def _melange(rang):
    """32 bits drawn from the number of an entry: each bit of the number changes about half of them."""
    h = rang * 2654435761 & 0xFFFFFFFF
    h = (h ^ h >> 15) * 2246822519 & 0xFFFFFFFF
    return h ^ h >> 13


def ecrire(nombre, chemin, desordre):
    """Writes the catalogue. The entries stand in the order of the sort column, or in a shuffled one that is the same at
    each run; entry by entry the values are the same in both."""
    # Digits of one length: their order as bytes is their alphabetical order.
    chiffres = max(7, len(str(nombre)))
    titres = _titres()
    artistes = [f"{prenom} {nom}" for prenom in _PRENOMS for nom in _NOMS]
    rangs = range(1, nombre + 1)
    if desordre:
        tirage = random.Random(1952).random  # the one generator whose numbers never change between versions
        cles = [tirage() for _ in rangs]
        rangs = sorted(rangs, key=lambda rang: cles[rang - 1])
    debut = entete(COLONNES, "Cote", "", "1.4") + [f"Count={nombre}"]
    with open(chemin, "wb") as sortie:
        lot = debut
        for place, rang in enumerate(rangs, start=1):
            h = _melange(rang)
            titre, artiste = titres[(h >> 8) % len(titres)], artistes[h % len(artistes)]
            pret = _PRETS[h % 3] if h >> 28 == 0 else ""
            annee, genre = 1950 + (h >> 4) % 76, _GENRES[h >> 20 & 15]
            lot.append(f"It{place}=CD {rang:0{chiffres}d}|{titre}|{artiste}|{annee}|{genre}|{pret}|")
            if len(lot) >= _PAR_LOT:
                sortie.write(("\r\n".join(lot) + "\r\n").encode(PAGE_DE_CODE))
                lot = []
        if lot:
            sortie.write(("\r\n".join(lot) + "\r\n").encode(PAGE_DE_CODE))
