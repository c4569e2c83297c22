"""Judges a run in which a call failed: was it told, is the old or the new state whole, is nothing left half written."""
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

import appels_etat as etat

REMOVALS = ("unlink", "rmdir", "opendir", "readdir", "open", "stat", "rename")


@dataclass(frozen=True)
class Scenario:
    """One thing that a user does. `before` and `after`: what the target's file holds before and after it, where nothing
    fails; `form` is that of the target, `shown` what is to be seen once all is open."""
    name: str
    command: Callable  # of a place: the words of the command
    files: dict        # in the target's folder: name and what it is copied from
    target: str = ""   # name of the file that is written
    form: str = "2"
    judge: str = "save"
    source: str = "essai.qrt"
    left: str = ""  # the scenario whose temporary folders a killed program left


@dataclass(frozen=True)
class Expected:
    before: object
    after: object
    shown: object = None
    output: tuple = ()
    messages: tuple = ()  # those of a run in which nothing fails


def told(run, expected):
    """Whether the user was told anything beside what he is told anyway."""
    return any(message not in expected.messages for message in run.messages())


def whole(state, *wanted):
    return state is not None and any(state == one for one in wanted)


def comparable(state, form):
    """What a file of that form can hold of a state."""
    return state.narrowed() if state and form != "2" else state


def look_at_save(scenario, expected, place):
    """While the program waits behind its save: what is wrong with what lies on the disk."""
    def look(stage, run):
        if stage != "enregistre":
            return None
        wrong = []
        path = place.target / scenario.target
        there = etat.of_file(path, scenario.form)
        done = run.value("ENREGISTRE") == "1"
        if not whole(there, expected.after) and not told(run, expected):
            wrong.append("the save " + ("claims success" if done else "fails") + " without a word, and the file is not "
                         "the new one")
        refused = not done and run.value("MODIFIE") == "1"  # all is in the window still
        taken_away = not expected.before or not path.parent.exists()
        if whole(there, expected.before, expected.after) or (refused and taken_away and not path.exists()):
            return wrong
        if older_text_opened(run):
            return wrong
        inside = comparable(etat.of_folder(run.value("DOSSIER")), scenario.form)
        if not whole(inside, expected.after):
            wrong.append("after the save neither file nor folder is whole")
        if path.exists():
            wrong.append("after the save half a file stands at the target")
        return wrong
    return look


def older_text_opened(run):
    """The user was told that the last changes could not be read: he works on what had been saved before, and they stay
    where they were."""
    return any("msgSecoursAncien" in line for line in run.messages())


def backup_is_whole(scenario, expected, place):
    path = place.target / (scenario.target + ".bak")
    return not path.exists() or whole(etat.of_file(path, scenario.form), expected.before, expected.after)


def strays(place, run, *names):
    """What lies beside the target that must not. What could not be deleted is no fault of the program's."""
    return place.others(*names, Path(run.failed_path).name)


def judge_save(scenario, expected, place, run, programs, fault):
    wrong = list(run.seen.get("enregistre") or [])
    there = etat.of_file(place.target / scenario.target, scenario.form)
    if run.value("OUVERT") == "0" and told(run, expected) and (there == expected.before):
        return wrong  # so there is nothing to save
    left = place.left()
    if not backup_is_whole(scenario, expected, place):
        wrong.append("the backup is not whole")
    if extra := strays(place, run, *scenario.files, scenario.target, scenario.target + ".bak"):
        wrong.append(f"left beside the target: {', '.join(extra)}")
    if whole(there, expected.after):
        if left and not told(run, expected) and fault.kind not in REMOVALS:
            wrong.append(f"left without a word in the temporary folder: {', '.join(left)}")
        return wrong
    if not told(run, expected) and run.value("LAISSES") != "0":
        wrong.append("nothing was said, and the file is not the new one")
    states, second = programs.offered(place)
    if any(whole(comparable(state, scenario.form), expected.after) for state in states):
        return wrong
    # A disk that takes nothing more: the window stays, and with it all that it holds.
    nothing_new = expected.before is None and not (place.target / scenario.target).exists()
    untouched = nothing_new or whole(there, expected.before)
    kept_open = run.value("FERME") == "0" and run.value("SECOURS") == "0" and untouched
    if not kept_open:
        wrong.append(f"LOST: neither the file nor what the next start offers is the new state ({len(states)} offered, "
                     f"{second.messages()})")
    return wrong


def judge_open(scenario, expected, place, run, programs, fault):
    wrong = []
    if run.value("OUVERT") != "1":
        return [] if told(run, expected) else ["nothing opens, and nothing is said"]
    if told(run, expected):
        return []
    if run.seen.get("ouvert") != expected.shown:
        wrong.append("opened without a word, and not all is there")
    if place.left() and fault.kind not in REMOVALS:
        wrong.append(f"left in the temporary folder: {', '.join(place.left())}")
    return wrong


def judge_rescue(scenario, expected, place, run, programs, fault):
    """Killed behind its rescue copy, or while it opened what was left."""
    if scenario.name == "secours" and run.value("SECOURS") != "1":
        return []  # tried again half a minute later, and the file is as it was
    if scenario.left and run.value("OUVERT") == "0" and not told(run, expected):
        return ["nothing opens, and nothing is said"]
    states, second = programs.offered(place)
    if any(whole(state, expected.after) for state in states):
        return []
    return [f"LOST: what the next start offers is not the changed state ({len(states)} offered, {second.messages()})"]


def judge_cli(scenario, expected, place, run, programs, fault):
    wrong = []
    done = run.status == 0
    if not done and not run.errors.strip():
        wrong.append(f"status {run.status} without a word")
    if scenario.target:
        there = etat.of_file(place.target / scenario.target, scenario.form)
        if not whole(there, expected.after if done else expected.before, expected.after):
            wrong.append("claims success, and the file is not the new one" if done else
                         "fails, and the file is neither the old nor the new one")
    elif done and tuple(line.replace(str(place.base), "") for line in run.lines) != expected.output:
        wrong.append("claims success, and the output is not whole")
    if extra := strays(place, run, *scenario.files, scenario.target):
        wrong.append(f"left beside the target: {', '.join(extra)}")
    if place.left() and fault.kind not in REMOVALS:
        wrong.append(f"left in the temporary folder: {', '.join(place.left())}")
    return wrong


JUDGES = {"save": judge_save, "open": judge_open, "rescue": judge_rescue, "cli": judge_cli}


def judge(scenario, expected, place, run, programs, fault):
    """All that is wrong; empty when nothing is."""
    wrong = []
    if bad := run.ended_badly():
        wrong.append(bad)
    wrong += JUDGES[scenario.judge](scenario, expected, place, run, programs, fault)
    source = place.target / scenario.source
    if scenario.source != scenario.target and scenario.source in scenario.files:
        if source.parent.exists() and (not source.exists() or source.read_bytes() != open(scenario.files[scenario.source], "rb").read()):
            wrong.append("the file that was opened is not as it was")
    return wrong
