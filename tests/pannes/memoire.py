#!/usr/bin/env python3
"""Opens, saves, rescues and converts a large category with less and less memory.

    memoire.py --build build/dev [--travail FOLDER] [--long]

What each scenario needs is found first; then it runs with ten sizes below that, in the long form a hundred and more
scenarios. It ends with a message or as it should, and never in the middle of a write. Ends with 1 when one of that does
not hold."""
import argparse
import collections
import concurrent.futures
import os
import resource
import subprocess
import sys
import time

from appels_essais import Fault
from appels_juge import judge, told
from appels_scenarios import Campaign, working_folder

SHORT = ("ouvrir", "enregistrer", "secours", "convert")
SCENARIOS = ("ouvrir", "enregistrer", "enregistrer14", "sous", "secours", "laisses", "list", "convert", "convert14")
MEBIBYTE = 1 << 20
#: What a foreign library says that ends the process while it is loaded, before the program begins.
WHILE_LOADING = "GSlice: failed to allocate"
LITTLE = Fault("memory", 1, "ENOMEM")


def execute(campaign, scenario, place, expected, kibibytes):
    """The subject bounds itself beyond what it has when its work begins; a command is bounded from outside."""
    size = kibibytes * 1024
    if scenario.judge != "cli":
        return campaign.execute(scenario, place, None, expected, extra={"APPELS_MEMOIRE": str(size)})

    def bound():
        resource.setrlimit(resource.RLIMIT_AS, (size, size))
    return campaign.execute(scenario, place, None, expected, preexec=bound)


def try_one(campaign, scenario, expected, kibibytes):
    place = campaign.place(scenario)
    try:
        run = execute(campaign, scenario, place, expected, kibibytes)
        return run, judge(scenario, expected, place, run, campaign.programs, LITTLE)
    finally:
        place.remove()


def suffices(campaign, scenario, expected, kibibytes):
    run, wrong = try_one(campaign, scenario, expected, kibibytes)
    return run.status == 0 and not wrong and not told(run, expected) and run.value("SECOURS") != "0"


def need(campaign, scenario, expected):
    """In KiB, to a sixteenth."""
    high = 1024
    while not suffices(campaign, scenario, expected, high):
        high *= 2
        if high > 16 << 20:
            raise SystemExit(f"{scenario.name}: does not end in 16 GiB")
    low = high // 2
    while high - low > high // 16:
        middle = (low + high) // 2
        low, high = (low, middle) if suffices(campaign, scenario, expected, middle) else (middle, high)
    return high


def to_begin(campaign):
    """In KiB, what the command needs until it does anything at all. With less, the system and foreign libraries end it
    while they load: how is not the program's to say."""
    def begins(kibibytes):
        size = kibibytes * 1024
        return subprocess.run([campaign.programs.cli, "--version"], capture_output=True, check=False, preexec_fn=lambda:
                              resource.setrlimit(resource.RLIMIT_AS, (size, size))).returncode == 0
    low, high = 1024, 1 << 20
    while high - low > 128:
        middle = (low + high) // 2
        low, high = (low, middle) if begins(middle) else (middle, high)
    return high


def run_scenario(campaign, scenario, steps, pool):
    start = time.monotonic()
    _, expected = campaign.reference(scenario)
    most = need(campaign, scenario, expected)
    least = to_begin(campaign) if scenario.judge == "cli" else 0
    sizes = [least + (most - least) * i // steps for i in range(1, steps + 1)]
    outcomes, problems = collections.Counter(), []
    for size, (run, wrong) in zip(sizes, pool.map(lambda one: try_one(campaign, scenario, expected, one), sizes)):
        if WHILE_LOADING in run.errors and all(one.startswith("ended by") for one in wrong):
            outcomes["not begun"] += 1
            continue
        well = run.status == 0 and not told(run, expected) and run.value("SECOURS") != "0"
        outcomes["spoilt" if wrong else "done" if well else "told"] += 1
        problems += [f"{scenario.name} in {size} KiB of {most}: {one} [{' '.join(run.errors.split())[:200]}]" for one in wrong]
    print(f"{scenario.name}: {steps} sizes up to {most / 1024:.1f} MiB: {outcomes['done']} done, {outcomes['told']} told, "
          f"{outcomes['not begun']} not begun, {outcomes['spoilt']} spoilt, {time.monotonic() - start:.1f} s", flush=True)
    for problem in problems:
        print(f"  {problem}", flush=True)
    return outcomes["done"] + outcomes["told"], outcomes["spoilt"]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/dev")
    parser.add_argument("--travail")
    parser.add_argument("--long", action="store_true")
    parser.add_argument("--scenario", action="append", choices=SCENARIOS)
    options = parser.parse_args()

    good = bad = 0
    with working_folder(options.travail) as base, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        campaign = Campaign(options.build, base, images=8, entries=20_000 if options.long else 5_000,
                            size=3 * MEBIBYTE)
        for name in options.scenario or (SCENARIOS if options.long else SHORT):
            passed, failed = run_scenario(campaign, campaign.named(name), 100 if options.long else 10, pool)
            good, bad = good + passed, bad + failed
    print(f"{good} passed, {bad} failed")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
