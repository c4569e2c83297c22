#!/usr/bin/python3
"""A table of what the tests reach, by rooms and in all: couverture.py ROOMS.txt FILES.json

The rooms are those of src/rooms.txt, the files those of gcovr --json-summary."""
import json
import sys


def room_names(path):
    """The rooms of a list, lowest floor first."""
    with open(path, encoding="utf-8") as lines:
        return [room for line in lines if not line.startswith("#") for room in line.split()]


def counts(files):
    """Lines reached, lines, branches taken and branches of some files together."""
    return [sum(file[key] for file in files) for key in ("line_covered", "line_total", "branch_covered", "branch_total")]


def row(name, files):
    """One line of the table."""
    lines, all_lines, branches, all_branches = counts(files)
    share = lambda part, whole: f"{100 * part / whole:5.1f} %" if whole else "      -"
    return f"{name:24}{lines:7} of {all_lines:6}{share(lines, all_lines):>9}{branches:8} of {all_branches:6}" \
           f"{share(branches, all_branches):>9}"


def main(rooms, report):
    with open(report, encoding="utf-8") as summary:
        files = json.load(summary)["files"]
    print(f"{'room':24}{'lines reached':>26}{'branches taken':>27}")
    for room in room_names(rooms):
        print(row(room, [file for file in files if file["filename"].rpartition("/")[0] == f"src/{room}"]))
    print(row("in all", files))


if __name__ == "__main__":
    main(*sys.argv[1:])
