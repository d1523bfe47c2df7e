#!/usr/bin/env python3
"""Checks that the docs name only what is there: README.md, CHANGELOG.md, docs/*.md and
data/README.txt, with data/help.html for its pictures.

    tools/check-docs.py [--build <the native build folder>]

- Every path in backticks, in a command or in a link that starts at the top of the tree exists
  (a <placeholder> or * stands for any name).
- Every `tools/`, `ctest` and `cmake` command, in backticks or on an indented line, parses: the
  tool exists and knows each option given to it; ctest and cmake know each option, the preset is
  one CMakePresets.json has for that step, and -R and -L match a test and a label (the test names
  of the native build come from its `ctest -N`, the others from the CMake files and the scenarios).
- The project's version is written out in no page but CHANGELOG.md: the others say <version>.
- Every picture in docs/screenshots/ is made by a command the docs name (a scenario's picture by
  its update run, or a tool that writes the file), and every picture data/help.html holds inline
  is one of them, byte for byte.

Prints each problem as file:line and exits 1 when there is one.
"""
import argparse
import base64
import glob
import os
import re
import shlex
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TOP = {"src", "tests", "docs", "data", "tools", "cmake", "benchmarks", ".ci"}
TOP_FILES = {"README.md", "CHANGELOG.md", "CMakeLists.txt", "CMakePresets.json", "LICENSE"}
HOLE = "HOLE"  # what a <placeholder> becomes while a command is split into words
problems = []


def problem(where, text):
    problems.append(f"{where}: {text}")


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8", errors="replace") as f:
        return f.read()


def run(*command):
    done = subprocess.run(command, cwd=ROOT, capture_output=True, text=True)
    return done.stdout + done.stderr


def options(text):
    return set(re.findall(r"(?<![\w-])(--?[A-Za-z][\w-]*)", text))


def presets():
    found, kind = {}, None
    for line in (run("cmake", "--list-presets=all") + run("cmake", "--workflow", "--list-presets")).splitlines():
        heading = re.match(r"Available (\w+) presets:", line)
        if heading:
            kind = heading.group(1)
        elif kind and re.match(r'\s+"', line):
            found.setdefault(kind, set()).add(line.split('"')[1])
    return found


def tests_and_labels(build):
    cmake_files = glob.glob(os.path.join(ROOT, "tests", "**", "CMakeLists.txt"), recursive=True)
    static, fuzz, labels = set(), set(), set()
    for path in cmake_files:
        text = open(path).read()
        names = set(re.findall(r"add_test\(NAME ([\w.]+)\s", text))
        (fuzz if os.sep + "fuzz" + os.sep in path else static).update(names)
        labels.update(re.findall(r"LABELS (\w+)", text))
    static.update("e2e." + name for name in re.findall(r"^\[test (.+)\]$", read("tests/e2e/scenarios.txt"), re.M))
    native = set()
    if build and os.path.exists(os.path.join(build, "CTestTestfile.cmake")):
        native = set(re.findall(r"Test +#\d+: (\S+)", run("ctest", "--test-dir", build, "-N")))
    else:
        print("check-docs: no native build given; the unit tests' names are not checked", file=sys.stderr)
    return {"unit": native or None, "fuzz": fuzz, "e2e": static - native}, labels


def check_path(where, word):
    word = word.rstrip(".,:;)")
    if word.split("/")[0] not in TOP and word not in TOP_FILES:
        return
    pattern = re.sub(r"<[^<>]*>|" + HOLE, "*", word)
    if not glob.glob(os.path.join(ROOT, pattern)):
        problem(where, f"{word} does not exist")


def words_of(command):
    """The simple commands of a shell line, each as its words, placeholders kept as HOLE."""
    line = re.sub(r"<[A-Za-z][^<>]*>", HOLE, command)
    try:
        lexer = shlex.shlex(line, posix=True, punctuation_chars=";&|")
        lexer.whitespace_split = True
        lexer.commenters = "#"
        tokens = list(lexer)
    except ValueError:
        return []
    commands, current = [], []
    for token in tokens:
        if token and set(token) <= set(";&|"):
            commands.append(current)
            current = []
        else:
            current.append(token.strip("[]"))
    return [c for c in commands + [current] if c]


def check_tool(where, words):
    script = words[0]
    path = os.path.join(ROOT, script)
    if not os.path.isfile(path):
        return
    text = open(path, encoding="utf-8", errors="replace").read()
    if text.startswith("#!") and not os.access(path, os.X_OK):
        problem(where, f"{script} is not executable")
    for word in words[1:]:
        option = word.split("=")[0]
        if option.startswith("-") and not re.search(re.escape(option) + r"(?![\w-])", text):
            problem(where, f"{script} has no option {option}")


def check_ctest(where, words, known, tests, labels, all_presets):
    preset = None
    for i, word in enumerate(words[1:], 1):
        value = words[i + 1] if i + 1 < len(words) else ""
        if word.startswith("-") and word not in known:
            problem(where, f"ctest has no option {word}")
        elif word == "--preset":
            preset = value
            if value not in all_presets.get("test", set()):
                problem(where, f"no test preset {value}")
    for i, word in enumerate(words[:-1]):
        value = words[i + 1].replace(HOLE, ".+")
        if word == "-R" and preset in tests and tests[preset] is not None:
            if not any(re.search(value, name) for name in tests[preset]):
                problem(where, f"-R {words[i + 1]} matches no test of the preset {preset}")
        if word == "-L" and not any(re.search(value, label) for label in labels):
            problem(where, f"-L {words[i + 1]} matches no label")


def check_cmake(where, words, known, all_presets):
    mode = "configure"
    for i, word in enumerate(words[1:], 1):
        value = words[i + 1] if i + 1 < len(words) else ""
        if word == "-E":
            return
        if word in ("--build", "--workflow"):
            mode = word[2:]
        elif word == "--preset" and value not in all_presets.get(mode, set()):
            problem(where, f"no {mode} preset {value}")
        elif word.startswith("-") and word.split("=")[0] not in known and word[:2] not in known:
            problem(where, f"cmake has no option {word}")
        if word == "-P":
            check_path(where, value)


def commands_in(path, text):
    """Each command of the page with its line: spans in backticks, and indented lines."""
    for match in re.finditer(r"`([^`]+)`", text):
        yield text.count("\n", 0, match.start()) + 1, match.group(1).replace("\n", " ")
    lines = text.split("\n")
    n = 0
    while n < len(lines):
        line, start = lines[n], n
        while line.endswith("\\") and n + 1 < len(lines):
            n += 1
            line = line[:-1] + lines[n]
        if line.startswith("    ") and path.endswith(".md"):
            yield start + 1, line.strip()
        n += 1


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", default=os.path.join(ROOT, "build", "native"))
    build = parser.parse_args().build
    pages = ["README.md", "CHANGELOG.md", "data/README.txt"] + sorted(
        os.path.relpath(p, ROOT) for p in glob.glob(os.path.join(ROOT, "docs", "*.md")))
    all_presets = presets()
    tests, labels = tests_and_labels(build)
    ctest_options = options(run("ctest", "--help"))
    cmake_options = options(run("cmake", "--help") + run("cmake", "--build") + run("cmake", "--workflow"))
    version = re.search(r"project\(\w+ VERSION ([\d.]+)", read("CMakeLists.txt")).group(1)
    run_commands = []  # every command the docs name, as words, for the pictures below

    for page in pages:
        text = read(page)
        for number, line in enumerate(text.split("\n"), 1):
            if page != "CHANGELOG.md" and re.search(r"(?<![\d.])" + re.escape(version) + r"(?![\d.])", line):
                problem(f"{page}:{number}", f"the version {version} written out: say <version>")
        for match in re.finditer(r"(!?)\[[^\]]*\]\(([^)#\s]+)\)", text):
            where = f"{page}:{text.count(chr(10), 0, match.start()) + 1}"
            target = os.path.normpath(os.path.join(os.path.dirname(page), match.group(2)))
            if "://" not in target:
                check_path(where, target)
            if match.group(1) and not target.startswith("docs/screenshots/"):
                problem(where, f"{target}: a picture the docs show is one of docs/screenshots/, which commands make")
        for number, span in commands_in(page, text):
            where = f"{page}:{number}"
            for words in words_of(span):
                run_commands.append(words)
                for word in words:
                    check_path(where, word)
                while words and re.match(r"^[A-Z_]+=", words[0]):
                    words = words[1:]
                if len(words) > 1 and words[0] in ("node", "python3") and words[1].split("/")[0] in TOP:
                    words = words[1:]
                if words and words[0].split("/")[0] in ("tools", "benchmarks"):
                    check_tool(where, words)
                elif len(words) > 1 and words[0] == "ctest" and words[1].startswith("-"):
                    check_ctest(where, words, ctest_options, tests, labels, all_presets)
                elif len(words) > 1 and words[0] == "cmake" and words[1].startswith("-"):
                    check_cmake(where, words, cmake_options, all_presets)

    check_pictures(run_commands)
    for line in problems:
        print(line)
    print(f"check-docs: {len(pages)} pages, {len(problems)} problems")
    return 1 if problems else 0


def check_pictures(run_commands):
    scenarios = re.findall(r"^\[test ([^\]]+)\]\n((?:(?!\[).*\n)*)", read("tests/e2e/scenarios.txt"), re.M)
    pictures = {}
    for path in sorted(glob.glob(os.path.join(ROOT, "docs", "screenshots", "*.png"))):
        name = os.path.relpath(path, ROOT)
        stem = os.path.basename(path)[:-4]
        makers = []
        for test, body in scenarios:
            if re.search(r"^picture = " + re.escape(stem) + r"$", body, re.M):
                makers += [w for w in run_commands if "KELVARNITE_E2E_UPDATE=1" in w and "-R" in w[:-1]
                           and HOLE not in w[w.index("-R") + 1] and re.search(w[w.index("-R") + 1], "e2e." + test)]
        for tool in glob.glob(os.path.join(ROOT, "tools", "*")):
            if name in open(tool, encoding="utf-8", errors="replace").read():
                makers += [w for w in run_commands if os.path.relpath(tool, ROOT) in w]
        if not makers:
            problem(name, "no command the docs name makes this picture")
        with open(path, "rb") as f:
            pictures[f.read()] = name
    help_page = read("data/help.html")
    for match in re.finditer(r'SRC="data:image/png;base64,([^"]*)"', help_page):
        if base64.b64decode(match.group(1)) not in pictures:
            problem(f"data/help.html:{help_page.count(chr(10), 0, match.start()) + 1}",
                    "the picture it holds is none of docs/screenshots/ (node tools/compare-picture.mjs puts it there)")


if __name__ == "__main__":
    sys.exit(main())
