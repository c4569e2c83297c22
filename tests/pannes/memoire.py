#!/usr/bin/env python3
"""Opens, saves, rescues and converts a large category with less and less memory.

    memoire.py --build build/dev [--travail FOLDER] [--long]

What each scenario needs is found first; then it runs with ten sizes below that, in the long form a hundred and more
scenarios. It ends with
a message or as it should, and never in the middle of a write. Ends with 1 when one of that does not hold."""
import argparse
import collections
import concurrent.futures
import os
import resource
import sys
import time

from appels_essais import Fault
from appels_juge import judge, told
from appels_scenarios import Campaign, working_folder

SHORT = ("ouvrir", "enregistrer", "secours", "convert")
SCENARIOS = ("ouvrir", "enregistrer", "enregistrer14", "sous", "secours", "laisses", "list", "convert", "convert14")
MEBIBYTE = 1 << 20
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


def run_scenario(campaign, scenario, steps, pool):
    start = time.monotonic()
    _, expected = campaign.reference(scenario)
    most = need(campaign, scenario, expected)
    sizes = [most * i // steps for i in range(1, steps + 1)]
    outcomes, problems = collections.Counter(), []
    for size, (run, wrong) in zip(sizes, pool.map(lambda one: try_one(campaign, scenario, expected, one), sizes)):
        well = run.status == 0 and not told(run, expected) and run.value("SECOURS") != "0"
        outcomes["spoilt" if wrong else "done" if well else "told"] += 1
        problems += [f"{scenario.name} in {size} KiB of {most}: {one} [{' '.join(run.errors.split())[:200]}]" for one in wrong]
    print(f"{scenario.name}: {steps} sizes up to {most / 1024:.1f} MiB: {outcomes['done']} done, {outcomes['told']} told, "
          f"{outcomes['spoilt']} spoilt, {time.monotonic() - start:.1f} s", flush=True)
    for problem in problems:
        print(f"  {problem}", flush=True)
    return steps - outcomes["spoilt"], outcomes["spoilt"]


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
