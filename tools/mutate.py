#!/usr/bin/env python3
"""Plants each mutant of a list in a scratch copy of the tree, one at a time, and runs the tests
that should catch it: the score is the share of mutants that make a test fail.

    tools/mutate.py [--list tests/mutation/mutants.txt] [--only REGEX] [--min PERCENT]

A mutant is a section of the list:

    [name]
    file = src/benchmark/logs.cpp
    from = exact text, found exactly once in the file
    to = what it becomes
    run = unit e2e              the CTest presets whose tests may catch it, tried in turn
                                until one fails (unit, then e2e, if not given)

A text of several lines goes on in the lines that follow its key, each as it stands in the file.

A mutant whose text is no longer found once is stale, and so is the run: the list must follow
the code. One that no longer compiles is invalid and left out of the score. The copy is made
once, its builds are kept from mutant to mutant, and the tree itself is never changed. Prints a
line per mutant, then the score and the survivors; exits 1 when the score is below --min or
a mutant is stale.
"""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CONFIGURE = {"unit": "native", "e2e": "mingw-i686"}


def read_list(path):
    mutants, last = [], None
    with open(path, encoding="utf-8") as f:
        for number, line in enumerate(f, 1):
            line = line.rstrip("\n")
            if not line.strip() or line.startswith("#"):
                continue
            if line.startswith("[") and line.endswith("]"):
                mutants.append({"name": line[1:-1], "run": "unit e2e", "line": number})
                last = None
                continue
            key, sep, value = line.partition(" = ")
            if sep and key in ("file", "from", "to", "run") and mutants:
                mutants[-1][key] = value
                last = key
            elif mutants and last in ("from", "to"):  # the next line of a text of several
                mutants[-1][last] += "\n" + line
            else:
                sys.exit(f"{path}:{number}: neither a [name] nor a file, from, to or run line")
    for m in mutants:
        missing = {"file", "from", "to"} - m.keys()
        if missing or not m["run"].split() or set(m["run"].split()) - CONFIGURE.keys():
            sys.exit(f"{path}:{m['line']}: [{m['name']}] lacks {', '.join(sorted(missing)) or 'a known run'}")
    return mutants


def run(command, cwd, log):
    with open(log, "a") as out:
        out.write("$ " + " ".join(command) + "\n")
        out.flush()
        return subprocess.run(command, cwd=cwd, stdout=out, stderr=subprocess.STDOUT).returncode == 0


def build_and_test(copy, presets, log):
    for preset in presets:
        if not run(["cmake", "--build", "--preset", CONFIGURE[preset]], copy, log):
            return "invalid"
        if not run(["ctest", "--preset", preset, "--timeout", "300", "--stop-on-failure"], copy, log):
            return "killed"
    return "survived"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--list", default=os.path.join(ROOT, "tests", "mutation", "mutants.txt"))
    parser.add_argument("--only", default="", help="only the mutants whose name matches")
    parser.add_argument("--min", type=float, default=0.0, help="the lowest score, in per cent, that passes")
    args = parser.parse_args()
    mutants = [m for m in read_list(args.list) if re.search(args.only, m["name"])]

    stale = []
    for m in mutants:
        with open(os.path.join(ROOT, m["file"]), encoding="utf-8") as f:
            if f.read().count(m["from"]) != 1:
                stale.append(m["name"])
    for name in stale:
        print(f"stale     {name}: its text is not found exactly once")
    if stale:
        return 1

    work = tempfile.mkdtemp(prefix="mutate-")
    copy, log = os.path.join(work, "tree"), os.path.join(work, "log")
    shutil.copytree(ROOT, copy, symlinks=True, ignore=shutil.ignore_patterns("build", "out", ".git"))
    print(f"scratch copy and its log in {work}")
    for preset in sorted({p for m in mutants for p in m["run"].split()}):
        if not run(["cmake", "--preset", CONFIGURE[preset]], copy, log) or \
                build_and_test(copy, [preset], log) != "survived":
            print(f"the tests of {preset} do not pass on the tree as it is; see the log")
            return 1

    results = {"killed": [], "survived": [], "invalid": []}
    for m in mutants:
        path = os.path.join(copy, m["file"])
        with open(path, encoding="utf-8") as f:
            original = f.read()
        started = time.monotonic()
        with open(path, "w", encoding="utf-8") as f:
            f.write(original.replace(m["from"], m["to"]))
        try:
            outcome = build_and_test(copy, m["run"].split(), log)
        finally:
            with open(path, "w", encoding="utf-8") as f:
                f.write(original)
        results[outcome].append(m["name"])
        print(f"{outcome:9} {m['name']} ({m['run']}, {time.monotonic() - started:.0f} s)", flush=True)

    counted = len(results["killed"]) + len(results["survived"])
    score = 100.0 * len(results["killed"]) / counted if counted else 0.0
    print(f"score: {len(results['killed'])} of {counted} killed, {score:.1f} %"
          f" ({len(results['invalid'])} invalid, left out)")
    for name in results["survived"]:
        print(f"survivor: {name}")
    if score < args.min:
        print(f"below {args.min:g} %; the scratch copy and its log stay in {work}")
        return 1
    shutil.rmtree(work)
    return 0


if __name__ == "__main__":
    sys.exit(main())
