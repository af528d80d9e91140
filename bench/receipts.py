#!/usr/bin/env python3
"""Reads a folder of receipts with tamba-cli and prints how many totals, dates and vendors come out right.

    bench/receipts.py --cli build/release/tamba-cli [--mode text|picture] [--misses] FOLDER

FOLDER holds  img/ID.jpg   the picture
              box/ID.csv   a line of print a row: x1,y1,x2,y2,x3,y3,x4,y4,text
              key/ID.json  "company", "date" and "total" as printed

`text` reads the true lines of box/, `picture` the pictures with our own recognition. Today is the day after the
printed date. A total is right when the amount is equal (RM and $ taken off), a date when the day is equal, a vendor
when the names are equal in upper case, white space collapsed, white space and punctuation at the ends dropped.
"""

import argparse
import datetime
import json
import pathlib
import re
import statistics
import subprocess

MONTHS = ["jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"]


def joined_rows(path):
    """Boxes into printed lines: one joins the row whose first box's centre is nearer than 0.55 of the larger height."""
    boxes = []
    for line in path.read_text(encoding="utf-8", errors="replace").splitlines():
        cells = line.split(",", 8)
        if len(cells) < 9:
            continue
        xs, ys = [int(x) for x in cells[0:8:2]], [int(y) for y in cells[1:8:2]]
        boxes.append((min(xs), min(ys), max(ys), cells[8]))
    rows = []
    for box in sorted(boxes, key=lambda b: b[1] + b[2]):
        if rows:
            first = rows[-1][0]
            height = max(first[2] - first[1], box[2] - box[1])
            if abs((first[1] + first[2]) - (box[1] + box[2])) / 2 < 0.55 * height:
                rows[-1].append(box)
                continue
        rows.append([box])
    return ["  ".join(b[3] for b in sorted(row, key=lambda b: b[0])) for row in rows]


def printed_day(text):
    """The date of a key, day first."""
    text = text.strip("() ").lower()
    if found := re.search(r"(\d{4})[-/.](\d{1,2})[-/.](\d{1,2})", text):
        year, month, day = map(int, found.groups())
    elif found := re.search(r"(\d{1,2})[-/. ]+(\d{1,2})[-/. ]+(\d{2,4})", text):
        day, month, year = map(int, found.groups())
    elif found := re.search(r"(\d{1,2})[-/. ]*([a-z]{3})[a-z]*[-/.', ]*(\d{2,4})", text):
        day, month, year = int(found[1]), MONTHS.index(found[2]) + 1, int(found[3])
    elif found := re.search(r"([a-z]{3})[a-z]*[ .]+(\d{1,2})[ ,]+(\d{4})", text):
        day, month, year = int(found[2]), MONTHS.index(found[1]) + 1, int(found[3])
    else:
        return None
    try:
        return datetime.date(year + 2000 if year < 100 else year, month, day)
    except ValueError:
        return None


def printed_total(text):
    digits = re.sub(r"[^0-9.]", "", text)
    whole, _, cents = digits.partition(".")
    return int(whole or 0) * 100 + int((cents + "00")[:2])


def comparable(name):
    name = re.sub(r"\s+", " ", name.upper())
    return re.sub(r"^\W+|\W+$", "", name)


def read(cli, mode, folder, name, today):
    base = [cli, "receipt", "parse" if mode == "text" else "scan", "--json", "--order", "dmy", "--today", today]
    if mode == "text":
        lines = "\n".join(joined_rows(folder / "box" / f"{name}.csv"))
        done = subprocess.run(base + ["-"], input=lines, capture_output=True, text=True, check=False)
    else:
        done = subprocess.run(base + [str(folder / "img" / f"{name}.jpg")], capture_output=True, text=True, check=False)
    if not done.stdout.strip():
        raise SystemExit(f"{name}: {done.stderr.strip()}")
    return json.loads(done.stdout)


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--cli", required=True)
    arguments.add_argument("--mode", choices=["text", "picture"], default="text")
    arguments.add_argument("--misses", action="store_true", help="print each field that is not right")
    arguments.add_argument("folder", type=pathlib.Path)
    given = arguments.parse_args()

    right = {"total": 0, "date": 0, "vendor": 0}
    seconds, count = [], 0
    for key_file in sorted((given.folder / "key").glob("*.json")):
        key = json.loads(key_file.read_text(encoding="utf-8"))
        day = printed_day(key["date"])
        if day is None:
            print(f"{key_file.stem}: the key's date is unreadable: {key['date']}")
            continue
        today = (day + datetime.timedelta(days=1)).isoformat()
        guess = read(given.cli, given.mode, given.folder, key_file.stem, today)
        count += 1
        if "seconds" in guess and guess["seconds"] is not None:
            seconds.append(float(guess["seconds"]))
        wanted = {"total": printed_total(key["total"]), "date": day.isoformat(), "vendor": comparable(key["company"])}
        got = {"total": guess.get("total"), "date": guess.get("date"), "vendor": comparable(guess.get("vendor") or "")}
        for field, value in wanted.items():
            if got[field] == value:
                right[field] += 1
            elif given.misses:
                print(f"{key_file.stem} {field}: {got[field]!r}, printed {value!r}")
    for field, number in right.items():
        print(f"{field:7}{number:4} of {count}")
    if seconds:
        print(f"seconds  median {statistics.median(seconds):.2f}, most {max(seconds):.2f}")


if __name__ == "__main__":
    main()
