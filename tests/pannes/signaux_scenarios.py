"""What a user does in one round, drawn from a seed: documents, steps, the step that is hit, and the signals."""
import dataclasses
import signal

import signaux_modele as modele

SIGNALS = {signal.SIGTERM: 30, signal.SIGHUP: 25, signal.SIGINT: 15, signal.SIGQUIT: 5, signal.SIGKILL: 25}
#: Those that the program hears of before they end it.
POLITE = {signal.SIGTERM, signal.SIGHUP, signal.SIGINT}

#: Kind of catalogue -> how often it is drawn. The number is that of its images; the bare text has none.
KINDS = {"1": 35, "50": 40, "2000": 15, "texte": 10}

#: Step that is hit -> how often.
TARGETS = {"sauver": 36, "sauver-sous": 20, "sauver-tout": 8, "secours": 8, "secours-entier": 4, "reprendre": 8,
           "editer": 5, "appliquer": 5, "ouvrir": 5, "fermer": 6, "quitter": 3}


@dataclasses.dataclass
class Scenario:
    kind: str
    steps: list          # lines of the guinea pig
    target: int          # the step that is hit, from 0
    signals: list        # one, or two in a row
    fraction: float      # when the first comes, as a part of what the step takes
    gap: float           # when the second comes after it, likewise
    second: bool = False  # a second document is open
    replaced: bool = False  # Save As finds a file at its target
    before: tuple = ()      # what a run did that was killed before this one

    @property
    def name(self):
        return "+".join(sig.name[3:] for sig in self.signals)

    @property
    def polite(self):
        """Whether the program has the time to write a last copy. A second signal does not take it away."""
        return set(self.signals) <= POLITE


def drawn(chance, weights):
    return chance.choices(list(weights), list(weights.values()))[0]


def change(chance, kind, document, prefix, number):
    """A step that changes a document, other than the two that change every entry."""
    if kind == "texte":
        return f"inscrire {document} {prefix}Z{number}"
    images = int(kind)
    one = f"{prefix}{chance.randint(1, images):05d}"
    return chance.choice([
        f"inscrire {document} {prefix}Z{number}",
        f"image {document} {one} {one}.jpg @source{chance.randint(0, 9)}@",
        f"sans-image {document} {one}",
        f"image {document} {prefix}{chance.randint(1, 60):05d} neuf{number}.png @source{chance.randint(0, 9)}@",
    ])


def seed_text(chance, kind, number):
    """A text for all entries; the archive also takes one that its code page does not hold."""
    return f"v{number}é" + ("Ж日" if kind != "texte" and chance.random() < 0.15 else "")


def draw(chance):
    kind = drawn(chance, KINDS)
    target = drawn(chance, TARGETS)
    # The command that saves all is there from two documents on.
    second = target == "sauver-tout" or chance.random() < 0.2
    steps = ["ouvrir @A@"] + (["ouvrir @B@"] if second else [])
    if target == "ouvrir":
        position = len(steps) - 1
        return finish(chance, Scenario(kind, steps + ["editer 1 v9"], position, [], 0, 0, second))
    if target == "reprendre":
        return finish(chance, recovery(chance, kind))
    if chance.random() < 0.3:
        steps.append(f"lenteur {chance.randint(1, 40)}")
    dirty = target in ("secours", "secours-entier") or chance.random() < 0.7
    for number in range(chance.randint(1, 3) if dirty else 0):
        document, prefix = (2, "b") if second and chance.random() < 0.4 else (1, "a")
        draws = chance.random()
        if draws < 0.4:
            steps.append(f"editer {document} {seed_text(chance, kind, number)}")
        elif draws < 0.55:
            steps.append(f"appliquer {document} {seed_text(chance, kind, number)}")
        else:
            steps.append(change(chance, kind if document == 1 else "1", document, prefix, number))
        if chance.random() < 0.25:
            steps.append(f"secours {document}")
    if not dirty and chance.random() < 0.2:
        steps += ["editer 1 v0", "sauver 1"]
    replaced = False
    if target == "sauver-sous":
        form = modele.TEXT if kind == "texte" or chance.random() < 0.25 else modele.ARCHIVE
        replaced = chance.random() < 0.4
        where = "@A@" if form == modele.ARCHIVE and chance.random() < 0.2 else "@C@"
        if form == modele.TEXT:
            steps = [step.replace("Ж日", "") for step in steps]
        line = f"sauver-sous 1 {form} {where}"
    else:
        line = {"sauver": "sauver 1", "sauver-tout": "sauver-tout", "secours": "secours 1",
                "secours-entier": "secours-entier 1", "editer": "editer 1 v7", "appliquer": "appliquer 1 v7",
                "fermer": f"fermer 1 {chance.choice(['oui', 'oui', 'non'])}",
                "quitter": f"quitter {chance.choice(['oui', 'oui', 'non'])}"}[target]
    position = len(steps)
    steps.append(line)
    # What goes on behind the step that is hit: the signal may come a little later.
    if target in ("sauver", "sauver-tout", "secours", "editer") and chance.random() < 0.4:
        steps += ["editer 1 v8", "sauver 1"]
    return finish(chance, Scenario(kind, steps, position, [], 0, 0, second, replaced))


def recovery(chance, kind):
    """A run was killed when its last changes were in a copy; the next one takes them over, and is hit in its turn."""
    before = ["ouvrir @A@", f"editer 1 {seed_text(chance, kind, 1)}"]
    before += [change(chance, kind, 1, "a", number) for number in range(chance.randint(0, 2))] + ["secours 1"]
    steps = ["reprendre"]
    if chance.random() < 0.5:
        steps.append("editer 1 v5")
    # A document that was taken over has no file until it is given one. What was a bare text becomes an archive.
    steps.append(f"sauver-sous 1 {modele.ARCHIVE} " + chance.choice(["@A@", "@C@"] if kind != "texte" else ["@C@"]))
    hit = chance.choice([0, 0, len(steps) - 1])
    return Scenario(kind, steps, hit, [], 0, 0, replaced=chance.random() < 0.3, before=tuple(before))


def finish(chance, scenario):
    scenario.signals = [drawn(chance, SIGNALS)]
    if chance.random() < 0.2:
        scenario.signals.append(drawn(chance, SIGNALS))
    scenario.fraction = chance.uniform(0, 1)
    scenario.gap = chance.uniform(0, 0.5)
    return scenario
