#!/usr/bin/env python3
"""Saves onto disks that are full, turn read-only, go away or are slow, with the clock set back, and with a temporary
folder that somebody clears.

    disques.py --build build/dev [--long]

The disks are small ones in memory, mounted where no other process sees them; where that is not allowed, the cases that
need one are named and left out. Ends with 1 when something was lost."""
import argparse
import ctypes
import os
import shutil
import sys
import time
from dataclasses import replace
from pathlib import Path

import appels_etat as etat
from appels_essais import BALLAST, Fault
from appels_juge import judge, told, whole
from appels_scenarios import Campaign, working_folder

LIBC = ctypes.CDLL(None, use_errno=True)
CLONE_NEWNS, MS_RDONLY, MS_REMOUNT, MS_REC, MS_PRIVATE, MNT_DETACH = 0x20000, 1, 32, 16384, 1 << 18, 2
DISK = Fault("disk", 1, "EIO")
DAY = 86400


def call(name, *arguments):
    if getattr(LIBC, name)(*arguments) != 0:
        error = ctypes.get_errno()
        raise OSError(error, f"{name}: {os.strerror(error)}")


def own_mounts():
    """Why nothing can be mounted; nothing when it can."""
    try:
        call("unshare", CLONE_NEWNS)
        call("mount", b"none", b"/", None, ctypes.c_ulong(MS_REC | MS_PRIVATE), None)
    except OSError as error:
        return str(error)
    return None


class Disk:
    """A small disk in memory at a folder, which keeps what the folder holds, and its dates."""

    def __init__(self, folder, kilobytes):
        self.folder = folder
        kept = folder.with_name("garde")
        shutil.copytree(folder, kept)
        call("mount", b"tmpfs", bytes(folder), b"tmpfs", ctypes.c_ulong(0), f"size={kilobytes}k".encode())
        shutil.copytree(kept, folder, dirs_exist_ok=True)

    def read_only(self):
        call("mount", b"tmpfs", bytes(self.folder), b"tmpfs", ctypes.c_ulong(MS_REMOUNT | MS_RDONLY), None)

    def detach(self):
        call("umount2", bytes(self.folder), MNT_DETACH)


def fill(folder):
    """Not one more byte."""
    with open(folder / BALLAST, "wb", buffering=0) as file:
        for size in (65536, 4096, 1):
            try:
                while file.write(b"x" * size) == size:
                    pass
            except OSError:
                pass


class Case:
    """One disk, one scenario. `prepare` is called with the place and returns what `stage_action` may use."""

    def __init__(self, name, scenario, act=None, at="modifie", prepare=None, extra=None, mounts=True, verdict=None):
        self.name, self.scenario, self.act, self.at = name, scenario, act, at
        self.prepare, self.extra, self.mounts, self.verdict = prepare, extra, mounts, verdict

    def execute(self, campaign):
        scenario = campaign.named(self.scenario)
        _, expected = campaign.reference(scenario)
        place = campaign.place(scenario)
        disk = self.prepare(place) if self.prepare else None
        try:
            def before(stage, run):
                return self.act(place, run, disk) if self.act and stage == self.at else None
            run = campaign.execute(scenario, place, None, expected, before, extra=self.extra)
            wrong = (self.verdict or judge)(scenario, expected, place, run, campaign.programs, DISK)
            return [one for one in wrong if one], run
        finally:
            if disk:
                try:
                    disk.detach()
                except OSError:
                    pass  # it went while the program ran
            place.remove()


# ---- What happens while the program waits

def add_large_image(place, run, disk):
    """More than the target's disk can take."""
    (Path(run.value("DOSSIER")) / "enorme.png").write_bytes(etat.noise(1_500_000, 77))


def fill_disk(place, run, disk):
    fill(disk.folder)


def turn_read_only(place, run, disk):
    disk.read_only()


def detach(place, run, disk):
    disk.detach()


def remove_target(place, run, disk):
    shutil.rmtree(place.target)


def clear_image(place, run, disk):
    (Path(run.value("DOSSIER")) / "grande.png").unlink()


def clear_all(place, run, disk):
    shutil.rmtree(run.value("DOSSIER"))


def set_clock_back(place, run, disk):
    """What was written so far is of tomorrow then."""
    later = time.time() + DAY
    for folder in (place.target, Path(run.value("DOSSIER"))):
        for file in folder.iterdir():
            os.utime(file, (later, later))
    return f"HORLOGE -{DAY}"


# ---- Where less can be asked for

def old_or_offered(scenario, expected, place, run, programs, fault):
    """The new state needs what is gone. The old one stands, or the new one does; and it was told."""
    there = etat.of_file(place.target / scenario.target, scenario.form)
    if whole(there, expected.after):
        return [run.ended_badly()]
    return [run.ended_badly(), None if told(run, expected) else "nothing was said",
            None if whole(there, expected.before) else "LOST: the target is neither the old nor the new state"]


def with_large_image(scenario, expected, place, run, programs, fault):
    images = dict(expected.after.images) | {"enorme.png": etat.noise(1_500_000, 77)}
    wanted = replace(expected, after=replace(expected.after, images=tuple(sorted(images.items()))))
    run.seen.pop("enregistre", None)  # was measured by the state without it
    return judge(scenario, wanted, place, run, programs, fault)


def refused(scenario, expected, place, run, programs, fault):
    return judge(scenario, expected, place, run, programs, fault) + [
        None if told(run, expected) else "it should have been refused", None if run.value("OUVERT") == "0" else "opened"]


def target(kilobytes):
    return lambda place: Disk(place.target, kilobytes)


def temporary(kilobytes):
    return lambda place: Disk(place.temporary, kilobytes)


def left_then_full(kilobytes):
    """What a killed program left, on a disk that has no more room."""
    def prepare(place):
        disk = Disk(place.temporary, kilobytes)
        fill(place.temporary)
        return disk
    return prepare


CASES = [
    Case("full target, save", "enregistrer", add_large_image, prepare=target(3200), verdict=with_large_image),
    Case("full target, save as", "sous", fill_disk, prepare=target(2800)),
    Case("full target, bare text", "sous14", fill_disk, prepare=target(2800)),
    Case("full target, conversion", "convert", prepare=target(2000)),
    Case("full temporary folder, opening", "ouvrir", prepare=temporary(1000), verdict=refused),
    Case("full temporary folder, save", "enregistrer", fill_disk, prepare=temporary(4000)),
    Case("full temporary folder, rescue", "secours", fill_disk, prepare=temporary(4000)),
    Case("full temporary folder, coming back", "laisses", prepare=left_then_full(4000)),
    Case("full temporary folder, conversion", "convert", prepare=lambda place: Disk(place.program, 1000)),
    Case("read-only target, save", "enregistrer", turn_read_only, prepare=target(4000)),
    Case("read-only target, save as", "sous", turn_read_only, prepare=target(4000)),
    Case("read-only target, bare text", "enregistrer14", turn_read_only, prepare=target(4000)),
    Case("read-only temporary folder, save", "enregistrer", turn_read_only, prepare=temporary(4000)),
    Case("target gone, save", "enregistrer", detach, prepare=target(4000)),
    Case("target's folder deleted, save", "enregistrer", remove_target, mounts=False),
    Case("target's folder deleted, bare text", "enregistrer14", remove_target, mounts=False),
    Case("temporary folder gone, save", "enregistrer", detach, prepare=temporary(4000), verdict=old_or_offered),
    Case("slow disks, save", "enregistrer", extra={"PANNE_LENTEUR": "20000"}, mounts=False),
    Case("slow disks, bare text", "enregistrer14", extra={"PANNE_LENTEUR": "20000"}, mounts=False),
    Case("slow disks, rescue", "secours", extra={"PANNE_LENTEUR": "20000"}, mounts=False),
    Case("clock set back, save", "enregistrer", set_clock_back, mounts=False),
    Case("clock set back, bare text", "enregistrer14", set_clock_back, mounts=False),
    Case("clock set back, rescue", "secours", set_clock_back, mounts=False),
    Case("an image cleared away, save", "enregistrer", clear_image, mounts=False, verdict=old_or_offered),
    Case("the document's folder cleared away, save", "enregistrer", clear_all, mounts=False, verdict=old_or_offered),
]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/dev")
    parser.add_argument("--travail")
    parser.add_argument("--long", action="store_true", help="each case five times, slow disks ten times as slow")
    parser.add_argument("--case", action="append")
    options = parser.parse_args()

    reason = own_mounts()
    bad, good = 0, 0
    with working_folder(options.travail) as base:
        campaign = Campaign(options.build, base)
        for case in CASES:
            if options.case and case.name not in options.case:
                continue
            if case.mounts and reason:
                print(f"{case.name}: left out, {reason}")
                continue
            if options.long and case.extra:
                case.extra = {"PANNE_LENTEUR": "200000"}
            wrong, run = [], None
            for _ in range(5 if options.long else 1):
                found, run = case.execute(campaign)
                wrong += found
            said = ", ".join(message.split(" ")[1] for message in run.messages()) or run.errors.split(":")[0] or "nothing"
            print(f"{case.name}: {'; '.join(wrong) or 'nothing lost'} (said: {said})", flush=True)
            good, bad = (good, bad + 1) if wrong else (good + 1, bad)
    print(f"{good} passed, {bad} failed")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
