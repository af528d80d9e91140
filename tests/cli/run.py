#!/usr/bin/env python3
"""Runs the transcripts *.test beside this file: what a person types and what tamba-cli answers.

A transcript is text to be read. Lines indented by four blanks are a session:

    $ tamba-cli expense list          a command, given to bash; lines beginning with > go on with it
    ID        Date …                  what it prints
    ! There are no books …            a line of standard error, after what went to standard output
    [exit 1]                          the exit status, unless it is 0

A line "books: NAME" starts afresh with data/NAME.json as the books (in the folder Books, which TAMBA_LIBRARY_DIR
names); "books: none" with none. Each transcript runs in an empty folder of its own, with data/ as $DATA, in a fixed time
zone and without any other environment. What differs from run to run is masked: ids that data/NAME.json does not hold
(xxxxxxxx), points in time (<time>), seconds (<s>) and today's date where backups are named (yyyy-mm-dd).

    run.py --cli build/dev/tamba-cli [--approve] [--kills 20] [NAME.test …]
"""

import argparse
import concurrent.futures
import datetime
import difflib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import kill

HERE = pathlib.Path(__file__).resolve().parent
INDENT = "    "
UUID = re.compile(r"\b[0-9A-F]{8}(?:-[0-9A-F]{4}){3}-[0-9A-F]{12}\b")


class Session:
    """One scratch folder with its books."""

    def __init__(self, folder, cli):
        self.folder = pathlib.Path(folder)
        self.given = ""  # the books as the transcript gave them
        programs = self.folder / ".bin"
        programs.mkdir()
        (programs / "tamba-cli").symlink_to(cli)
        (self.folder / ".home").mkdir()
        self.work = self.folder / "work"
        self.work.mkdir()
        self.environment = {
            "PATH": f"{programs}:{os.environ['PATH']}",
            "HOME": str(self.folder / ".home"),
            "DATA": str(HERE / "data"),
            "TAMBA_LIBRARY_DIR": "Books",
            "TZ": "IST-5:30",  # Indian time, also where no time zones are installed
        }

    def books(self, name):
        shutil.rmtree(self.work / "Books", ignore_errors=True)
        self.given = ""
        if name != "none":
            (self.work / "Books").mkdir()
            self.given = (HERE / "data" / f"{name}.json").read_text()
            (self.work / "Books" / "tamba.json").write_text(self.given)

    def run(self, command):
        """The lines the command answers with."""
        days = {today()}
        done = subprocess.run(["bash", "-c", command], cwd=self.work, env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300, check=False)
        days.add(today())
        lines = self.mask(done.stdout.decode("utf-8", "backslashreplace"), days).splitlines()
        errors = self.mask(done.stderr.decode("utf-8", "backslashreplace"), days).splitlines()
        lines += [f"! {line}".rstrip() for line in errors]
        if done.returncode != 0:
            lines.append(f"[exit {done.returncode}]")
        while lines and not lines[-1].strip():
            lines.pop()
        return [line.rstrip() for line in lines]

    def mask(self, text, days):
        text = text.replace(str(self.work), "<here>").replace(str(HERE / "data"), "$DATA")
        text = re.sub(r'"seconds":[0-9.]+', '"seconds":<s>', text)
        for day in days:
            kept = rf"(?<=tamba-){day}|(?<=opened-){day}|(?<=replaced-){day}-\d{{6}}"
            text = re.sub(rf"{kept}|(?<=\"day\":\"){day}", "yyyy-mm-dd", text)
            text = re.sub(rf"(?<=\.json)( +){day}", r"\1yyyy-mm-dd", text)
        known = set(UUID.findall(self.given))
        present = set()
        file = self.work / "Books" / "tamba.json"
        if file.is_file() and file.stat().st_size < 10_000_000:
            present = set(UUID.findall(file.read_text(errors="replace")))
        for fresh in (present | set(UUID.findall(text))) - known:
            text = text.replace(fresh, "xxxxxxxx").replace(fresh[:8], "xxxxxxxx")
        return re.sub(r"\b\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", lambda m: m[0] if m[0] in self.given else "<time>", text)


def today():
    """The day tamba-cli takes for today in the transcripts' time zone."""
    return (datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(hours=5, minutes=30)).date().isoformat()


def steps(lines):
    """Cuts a transcript into ("text", line), ("books", name) and ("command", lines, expected lines)."""
    i = 0
    while i < len(lines):
        line = lines[i]
        i += 1
        if line.startswith("books: "):
            yield "books", line.removeprefix("books: ").strip(), line
        elif line.startswith(INDENT + "$ "):
            command = [line]
            while i < len(lines) and lines[i].startswith(INDENT + "> "):
                command.append(lines[i])
                i += 1
            expected = []
            while i < len(lines) and (not lines[i].strip() or lines[i].startswith(INDENT)):
                if lines[i].startswith(INDENT + "$ "):
                    break
                expected.append(lines[i].removeprefix(INDENT).rstrip())
                i += 1
            blank = 0
            while expected and not expected[-1]:
                expected.pop()
                blank += 1
            yield "command", command, expected
            for _ in range(blank):
                yield "text", "", ""
        else:
            yield "text", line, ""


def run_transcript(path, cli, approve):
    """Number of commands that answered as written, and the differences of the others."""
    passed, failures, written = 0, [], []
    with tempfile.TemporaryDirectory(prefix="tamba-cli-") as folder:
        session = Session(folder, cli)
        for kind, first, second in steps(path.read_text().splitlines()):
            if kind == "books":
                session.books(first)
                written.append(second)
            elif kind == "text":
                written.append(first)
            else:
                command = "\n".join(line.removeprefix(INDENT)[2:] for line in first)
                actual = session.run(command)
                written += first + [(INDENT + line).rstrip() for line in actual]
                if actual == second:
                    passed += 1
                else:
                    difference = difflib.unified_diff(second, actual, "written", "answered", lineterm="", n=2)
                    failures.append("\n".join([f"{path.name}: {command}", *list(difference)[2:]]))
    if approve and failures:
        path.write_text("\n".join(written) + "\n")
    return passed, failures


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--cli", required=True, type=pathlib.Path)
    options.add_argument("--approve", action="store_true", help="write what was answered into the transcripts")
    options.add_argument("--kills", type=int, default=20, help="rounds of the kill -9 test; 0 leaves it out")
    options.add_argument("transcripts", nargs="*", type=pathlib.Path)
    chosen = options.parse_args()
    cli = chosen.cli.resolve()
    paths = [HERE / name.name for name in chosen.transcripts] or sorted(HERE.glob("*.test"))

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = [pool.submit(run_transcript, path, cli, chosen.approve) for path in paths]
        if chosen.kills and not chosen.transcripts:
            jobs.append(pool.submit(kill.run, cli, chosen.kills))
        results = [job.result() for job in jobs]
    passed = sum(result[0] for result in results)
    failures = [failure for result in results for failure in result[1]]
    for failure in failures:
        print(failure, end="\n\n")
    print(f"{passed} passed, {len(failures)} failed")
    return 1 if failures and not chosen.approve else 0


if __name__ == "__main__":
    sys.exit(main())
