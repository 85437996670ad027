#!/usr/bin/env python3
"""Compares two results files of zelm_bench.

    compare.py OLD.json NEW.json

For every row of both files: the library's time in each, old over new (above 1 is faster), and its
ratio to the best SSE4.2-built peer in each. The ratio holds across machines and days, the time does
not. Rows whose time and ratio both got worse by more than 5 % are marked.
"""
import json
import sys

NOISE = 0.05


def load(path):
    with open(path, encoding="utf-8") as file:
        results = json.load(file)
    return results, {row["name"]: row for row in results["rows"]}


def fastest(row, build):
    return min((time["min"] for time in row["times"] if time["build"] == build), default=None)


def ratio(row):
    """How many times as fast as the best SSE4.2-built peer, else as the reference."""
    other = fastest(row, "sse4.2") or fastest(row, "reference")
    return other / fastest(row, "library") if other else None


def main(paths):
    if len(paths) != 2:
        sys.exit(__doc__)
    (old_results, old), (new_results, new) = map(load, paths)
    for what in ("processor", "compiler"):
        if old_results[what] != new_results[what]:
            print(f"{what} differs: {old_results[what]}, now {new_results[what]}")
    print(f"{'row':54} {'old ns':>9} {'new ns':>9} {'old/new':>8} {'x peer':>8} {'now':>8}")
    slower = 0
    for name in (name for name in new if name in old):
        before, after = fastest(old[name], "library"), fastest(new[name], "library")
        held_before, held_after = ratio(old[name]), ratio(new[name])
        peers = "" if held_before is None or held_after is None else (
            f"{held_before:8.2f} {held_after:8.2f}")
        worse = before / after < 1 - NOISE and (
            not peers or held_after / held_before < 1 - NOISE)
        slower += worse
        print(f"{name:54} {before:9.2f} {after:9.2f} {before / after:8.2f} {peers:17}"
              f"{' slower' if worse else ''}")
    for title, names in (("only old", old.keys() - new.keys()), ("only new", new.keys() - old.keys())):
        for name in sorted(names):
            print(f"{title}: {name}")
    print(f"{slower} rows slower")


main(sys.argv[1:])
