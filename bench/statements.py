#!/usr/bin/python3
"""Puts a folder of bank statements through `tamba-cli bank parse` and holds what comes out against the truth beside it.

    bench/statements.py [--cli PROGRAM] [-v] [FOLDER…]      tests/data/statements when none is named

A folder's expected.json has an object for each file: "lines" (objects with date, amount in minor units, and what else of
a line is known), or "error"; "order" and "currency" as the person has set them. A file counts as
    right           all lines are there with their date and amount, no others
    reported        lines differ, and rows skipped, balances, notes or a refusal tell of it
    SILENTLY WRONG  lines differ without a word: the one thing that must not happen (exit status 1)
Texts and references that differ are counted by themselves."""

import argparse
import collections
import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def key(line):
    return (line["date"], line["amount"])


def judge(cli, path, wanted):
    """The verdict, why, and how many texts and references differ from the known ones."""
    command = [cli, "bank", "parse", "--json", path, "--order", wanted.get("order", "dmy"),
               "--currency", wanted.get("currency", "INR")]
    answer = subprocess.run(command, capture_output=True, text=True, check=False)
    try:
        result = json.loads(answer.stdout)
    except ValueError:
        return "SILENTLY WRONG", f"exit status {answer.returncode}: {answer.stderr.strip()}", 0
    if "error" in result:
        return ("right" if "lines" not in wanted else "reported"), result["error"], 0
    lines, truth = result["transactions"], wanted.get("lines", [])
    missing = collections.Counter(map(key, truth)) - collections.Counter(map(key, lines))
    extra = collections.Counter(map(key, lines)) - collections.Counter(map(key, truth))
    if not missing and not extra:
        other = sum(str(t.get(k, "")) != str(want[k]) for t, want in zip(lines, truth)
                    for k in ("text", "reference", "balance") if want.get(k) is not None)
        return "right", "", other
    said = [row["reason"] for row in result["skippedRows"]] + result["notes"]
    said += [f"row {one['row']}: balance {one['found']}, not {one['expected']}" for one in result["balanceBreaks"]]
    why = f"missing {dict(missing)}, extra {dict(extra)}; {' '.join(said[:3])}"
    return ("reported" if said else "SILENTLY WRONG"), why, 0


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--cli", default=ROOT / "build/bench/tamba-cli")
    options.add_argument("-v", "--verbose", action="store_true")
    options.add_argument("folders", nargs="*", type=pathlib.Path, default=[ROOT / "tests/data/statements"])
    chosen = options.parse_args()
    verdicts, texts = collections.Counter(), 0
    for folder in chosen.folders:
        for name, wanted in json.loads((folder / "expected.json").read_text()).items():
            verdict, why, other = judge(chosen.cli, folder / name, wanted)
            verdicts[verdict] += 1
            texts += other
            if verdict == "SILENTLY WRONG" or chosen.verbose and (verdict != "right" or other):
                print(f"{verdict:15} {name}: {why}" + (f" {other} texts differ" if other else ""))
    total = sum(verdicts.values())
    print(f"{total} files: " + ", ".join(f"{verdicts[v]} {v}" for v in ("right", "reported", "SILENTLY WRONG")) +
          f"; {texts} texts or references differ")
    return 1 if verdicts["SILENTLY WRONG"] or not total else 0


sys.exit(main())
