#!/usr/bin/python3
"""Checks the tests: seeds small faults into a copy of src/, one at a time, and runs the tests.

mutate.py SEED COUNT [CTEST ARGUMENT...]: prints each fault that no test caught, with its file and
line. The same seed on the same sources gives the same faults. A fault that the compiler refuses
doesn't count. The copy stays in build/mutate, so that a second run builds less.
"""
import json
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys

COPY = pathlib.Path("build/mutate")
# What is wrong, the lines that can have it, and what it makes of the part that was found.
FAULTS = (
    ("negated condition", r"(?:if|while) \((.+)\)", lambda found: f"!({found})"),
    ("dropped statement", r"^ +((?!return|throw|co_|delete|using|const|auto)[\w.>:()-]+\(.*\);)$",
     lambda found: f"; // {found}"),
    ("changed number", r"[^\w.\"](\d+)\b(?![\w.\"])", lambda found: str(int(found) + 1)),
    ("changed constant", r"\b(true|false)\b", lambda found: str(found == "false").lower()),
    ("other comparison", r" (==|!=|<|>|<=|>=) ",
     {"==": "!=", "!=": "==", "<": "<=", ">": ">=", "<=": "<", ">=": ">"}.get),
    ("other operator", r" (&&|\|\||\+|-) ", {"&&": "||", "||": "&&", "+": "-", "-": "+"}.get),
)


def run(*words):
    """Runs a program. Returns whether it succeeded."""
    return subprocess.run(words, cwd=COPY, capture_output=True, check=False).returncode == 0


def copy_sources():
    """Takes over what has changed. The times of files stay, so only that is built again."""
    listed = subprocess.check_output(["git", "ls-files", "-co", "--exclude-standard"], text=True)
    for name in listed.splitlines():
        source, target = pathlib.Path(name), COPY / name
        if source.exists() and (not target.exists() or source.read_bytes() != target.read_bytes()):
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)


def possible_faults():
    """Gives (file, line number, what is wrong, the line with the fault) of all places."""
    commands = json.loads((COPY / "build/compile_commands.json").read_text(encoding="utf-8"))
    built = {command["file"] for command in commands}
    for path in sorted(COPY.glob("src/**/*.cpp")):
        if str(path.resolve()) not in built:
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").split("\n")):
            if line.lstrip().startswith(("//", "#", "static_assert")):
                continue
            for name, pattern, change in FAULTS:
                for found in re.finditer(pattern, line):
                    changed = line[:found.start(1)] + change(found[1]) + line[found.end(1):]
                    yield path, number, name, changed


def is_caught(path, number, changed, tests):
    """Returns None where the fault can't be built."""
    sound = path.read_text(encoding="utf-8")
    lines = sound.split("\n")
    lines[number] = changed
    path.write_text("\n".join(lines), encoding="utf-8")
    try:
        if not run("cmake", "--build", "--preset", "test"):
            return None
        return not run("ctest", "--test-dir", "build", "-j4", "--timeout", "120",
                       "--stop-on-failure", *tests)
    finally:
        path.write_text(sound, encoding="utf-8")


def main():
    seed, count, *tests = sys.argv[1:]
    os.chdir(pathlib.Path(__file__).parent.parent)
    copy_sources()
    if shutil.which("ccache"):
        os.environ.update(CMAKE_CXX_COMPILER_LAUNCHER="ccache")
    os.environ.update(PATIENCE="30")  # seconds until the tests of the process take it for stuck
    if not (run("cmake", "--preset", "test")
            and run("cmake", "--build", "--preset", "test")
            and run("ctest", "--test-dir", "build", "-j2", *tests)):
        sys.exit(f"The tests have to pass first; see {COPY}/build/Testing/Temporary.")
    faults = list(possible_faults())
    random.Random(int(seed)).shuffle(faults)
    seeded = caught = 0
    for path, number, name, changed in faults:
        if seeded == int(count):
            break
        result = is_caught(path, number, changed, tests)
        if result is None:
            continue
        seeded += 1
        caught += result
        if not result:
            print(f"{path.relative_to(COPY)}:{number + 1}: {name}: {changed.strip()}", flush=True)
    print(f"{caught} of {seeded} faults were caught.")


main()
