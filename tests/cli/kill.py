#!/usr/bin/env python3
"""Kills tamba-cli with SIGKILL at random moments while it adds an expense to large books, and looks each time whether
tamba.json is the old one or the new one, whole. Every other moment is drawn from the whole run; those between close in
on the moment at which the new books take the old ones' place.

    kill.py --cli build/dev/tamba-cli [--rounds 20] [--seed N]
"""

import argparse
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time
import uuid

EXPENSES = 4000
#: All that may be seen in the folder of the books, whatever was killed.
VISIBLE = {"tamba.json", "Receipts", "Invoices", "Assets", "Backups"}


def run(cli, rounds, seed=None):
    """Number of rounds that left whole books, and what was wrong with the others."""
    seed = random.randrange(1 << 32) if seed is None else seed
    dice = random.Random(seed)
    failures = []
    with tempfile.TemporaryDirectory(prefix="tamba-kill-") as scratch:
        books = pathlib.Path(scratch) / "Books"
        environment = {"PATH": os.environ["PATH"], "HOME": scratch, "TAMBA_LIBRARY_DIR": str(books), "TZ": "UTC"}

        def cli_run(*words, **options):
            return subprocess.run([cli, *words], env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  check=False, text=True, **options)

        def add(vendor):
            return [cli, "expense", "add", "--vendor", vendor, "--amount", "118.00", "--tax", "18.00"]

        fill(cli_run, books)
        start = time.monotonic()
        subprocess.run(add("Unhurried"), env=environment, stdout=subprocess.DEVNULL, check=True)
        whole_run = time.monotonic() - start
        before = vendors(books)
        saving, step = 0.8 * whole_run, 0.1 * whole_run
        for number in range(rounds):
            vendor = f"Round {number}"
            process = subprocess.Popen(add(vendor), env=environment, stdout=subprocess.DEVNULL)
            time.sleep(dice.uniform(0, whole_run) if number % 2 == 0 else max(0, saving + dice.uniform(-step, step)))
            process.kill()
            process.wait()
            problem = damage(cli_run, books, before, vendor)
            if problem:
                failures.append(f"kill -9, round {number} of seed {seed}: {problem}")
                break
            after = vendors(books)
            if number % 2 == 1:
                saving += -step if len(after) > len(before) else step
                step = max(0.8 * step, 0.02 * whole_run)
            before = after
        done = cli_run("expense", "add", "--vendor", "After all", "--amount", "1")
        if not failures and done.returncode != 0:
            failures.append(f"kill -9, seed {seed}: adding afterwards was refused: {done.stderr}")
    return (0, failures) if failures else (1, [])


def fill(cli_run, books):
    """Books of some thousand expenses: a new one, and the first expense again and again."""
    for words in (["new", "--name", "Kill Test"], ["expense", "add", "--vendor", "First", "--amount", "118.00"]):
        done = cli_run(*words)
        if done.returncode != 0:
            raise RuntimeError(done.stderr)
    library = json.loads((books / "tamba.json").read_text())
    first = library["expenses"][0]
    library["expenses"] += [
        {**first, "id": str(uuid.uuid4()).upper(), "vendor": f"Vendor {n}", "ocrText": "Thank you, come again. " * 20}
        for n in range(EXPENSES)
    ]
    (books / "tamba.json").write_text(json.dumps(library, indent=2, sort_keys=True, ensure_ascii=False))


def vendors(books):
    return [expense["vendor"] for expense in json.loads((books / "tamba.json").read_text())["expenses"]]


def damage(cli_run, books, before, vendor):
    """What a killed run has spoilt, or nothing."""
    checked = cli_run("check")
    if checked.returncode != 0:
        return f"check says: {checked.stdout}{checked.stderr}"
    if vendors(books) not in (before, before + [vendor]):
        return "the books are neither the old ones nor the new ones"
    for name in os.listdir(books):
        if name not in VISIBLE and not name.startswith("."):
            return f"{name} was left in the folder"
    hidden = [name for folder in (books, books / "Backups") for name in os.listdir(folder) if name.startswith(".")]
    if len(hidden) > 3:
        return f"hidden files pile up: {hidden}"
    return None


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--cli", required=True, type=pathlib.Path)
    options.add_argument("--rounds", type=int, default=20)
    options.add_argument("--seed", type=int)
    chosen = options.parse_args()
    passed, failures = run(chosen.cli.resolve(), chosen.rounds, chosen.seed)
    for failure in failures:
        print(failure)
    print(f"{passed} passed, {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
