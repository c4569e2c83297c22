#!/usr/bin/env python3
"""Lets every call for a file fail once, in its turn: opens, saves in both forms, rescues and conversions.

    appels.py --build build/dev [--travail FOLDER] [--long] [--scenario NAME]... [--kind KIND]... [--jobs N]

A first run of each scenario counts its calls. Then comes one run for each call: the short form with one error, the long
one with each that such a call may meet, once and for good. After each the user was told or all is as it should be, the
old or the new state is whole, and nothing half written is left. Ends with 1 when one of that does not hold."""
import argparse
import collections
import concurrent.futures
import os
import sys
import time
from pathlib import Path

from appels_essais import KINDS, Fault
from appels_juge import judge
from appels_scenarios import Campaign, working_folder

ERRORS = {
    "open": ("EIO", "EACCES", "EINTR", "ENOSPC"), "read": ("EIO", "COUPE", "EINTR", "COURT"),
    "pread": ("EIO", "COUPE", "EINTR", "COURT"),
    "fread": ("EIO",), "write": ("ENOSPC", "COUPE", "EIO", "EINTR", "COURT"), "pwrite": ("ENOSPC", "COUPE", "EIO", "EINTR", "COURT"),
    "writev": ("ENOSPC", "COUPE", "EIO", "EINTR", "COURT"), "fwrite": ("ENOSPC", "EIO"), "fsync": ("EIO", "EINTR", "ENOSPC"),
    "close": ("EIO", "ENOSPC", "EINTR"), "rename": ("EIO", "EACCES", "ENOSPC"), "unlink": ("EIO", "EACCES"),
    "rmdir": ("EIO", "EACCES"), "ftruncate": ("EIO", "EINTR", "ENOSPC"),
    "fallocate": ("ENOSPC", "EIO", "EINTR", "EOPNOTSUPP"), "mkdir": ("ENOSPC", "EACCES", "EIO"),
    "link": ("EIO", "EACCES"), "copy": ("ENOSPC", "COUPE", "EIO", "EINTR", "COURT"), "flock": ("EIO", "EINTR", "ENOLCK"),
    "opendir": ("EIO", "EACCES"), "readdir": ("EIO",), "chmod": ("EIO", "EACCES"), "utimens": ("EIO", "EACCES"),
    "stat": ("EIO", "EACCES"),
}


def try_one(campaign, scenario, fault, expected):
    """The run, and what is wrong with it; nothing when the call never came, as in another order of threads."""
    place = campaign.place(scenario)
    try:
        run = campaign.execute(scenario, place, fault, expected)
        return run, judge(scenario, expected, place, run, campaign.programs, fault) if run.injected else None
    finally:
        place.remove()


def ranks(count, long):
    """All of them; in the short form a few, the first and the last ones among them."""
    few = 6
    if long or count <= few:
        return range(1, count + 1)
    return sorted({1 + i * (count - 1) // (few - 1) for i in range(few)} | {2, count - 1})


def faults(counts, kinds, long):
    """One for each call; errors take turns in the short form."""
    for kind in kinds:
        errors = ERRORS[kind]
        for rank in ranks(counts.get(kind, 0), long):
            for error in errors if long else (errors[(rank - 1) % len(errors)],):
                yield Fault(kind, rank, error)
            if long:
                yield Fault(kind, rank, errors[0], lasting=True)


def run_scenario(campaign, scenario, kinds, options, pool):
    first, expected = campaign.reference(scenario)
    planned = list(faults(first.counts, kinds, options.long))
    tally, problems, missed = collections.Counter(), [], 0
    start = time.monotonic()
    for fault, (run, wrong) in zip(planned, pool.map(lambda one: try_one(campaign, scenario, one, expected), planned)):
        if wrong is None:
            missed += 1
            continue
        tally[fault.kind] += 1
        for text in wrong:
            problems.append(f"{scenario.name}: {fault} ({Path(run.failed_path).name}): {text}")
    kinds_text = ", ".join(f"{kind} {tally[kind]}" for kind in KINDS if tally[kind])
    print(f"{scenario.name}: {sum(tally.values())} faults ({kinds_text}), {missed} not reached, {len(problems)} problems, "
          f"{time.monotonic() - start:.1f} s", flush=True)
    for problem in problems:
        print(f"  {problem}", flush=True)
    return sum(tally.values()), problems


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/dev")
    parser.add_argument("--travail", help="folder to work in; in memory where there is none given")
    parser.add_argument("--long", action="store_true")
    parser.add_argument("--scenario", action="append")
    parser.add_argument("--kind", action="append", choices=KINDS)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    options = parser.parse_args()
    kinds = options.kind or KINDS

    total, problems = 0, []
    with working_folder(options.travail) as base, \
            concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        campaign = Campaign(options.build, base)
        for scenario in campaign.scenarios():
            if options.scenario and scenario.name not in options.scenario:
                continue
            count, wrong = run_scenario(campaign, scenario, kinds, options, pool)
            total += count
            problems += wrong
    spoilt = len({problem.split("):")[0] for problem in problems})
    print(f"{total - spoilt} passed, {spoilt} failed")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
