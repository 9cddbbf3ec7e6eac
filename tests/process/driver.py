#!/usr/bin/python3
"""Works the real program as its user and the user's desktop do. Arguments: program, scenario.

A line of a scenario is "what is done | what is then seen", each of them steps with ";" between. A
step is the name of a method of `Stage`, its screen or its bus, and its words; "~" is the user's
folder. Whatever is to be seen is waited for.
"""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time

import scenarios
from desktop_bus import DesktopBus
from screen import Screen, run

HOME = os.environ["HOME"]
SETTINGS = pathlib.Path(HOME, "config/Kestrava/Kestrava.conf")
PATIENCE = float(os.environ.get("PATIENCE", "60"))  # seconds
# Rows of a list by name: a machine that answers, one that can't be, and one that is silent.
ROWS = {"here": "H,127.0.0.1,x,Enabled,y", "dead": "a<b,0.0.0.0,x,Enabled,y",
        "silent": "S,192.0.2.3,x,Enabled,y"}


class Stage:
    def __init__(self, program):
        pathlib.Path(HOME, "program/Lists").mkdir(parents=True)
        SETTINGS.parent.mkdir()
        SETTINGS.touch()
        browser = pathlib.Path(HOME, "browser")
        browser.write_text(f'#!/bin/sh\necho "$#" "$*" >>{HOME}/opened\n', encoding="ascii")
        browser.chmod(0o700)
        os.environ["BROWSER"] = str(browser)
        self.program = shutil.copy(program, HOME + "/program")
        self.bus = DesktopBus(self.until)
        self.screen = Screen(self.until, self.bus.pause)
        self.patience = PATIENCE

    # What is done.

    def list(self, name, *rows):
        with open(name.encode("latin-1"), "wb") as file:
            file.write(list_text(rows))

    def settings(self, *lines):
        SETTINGS.write_text("\n".join(["[Preferences]", *lines]), encoding="ascii")

    def start(self, *arguments):
        with open(HOME + "/said", "wb") as said:
            words = [self.program, *arguments]
            self.process = subprocess.Popen(words, stdout=said, stderr=subprocess.STDOUT)

    def avoid_end_of_minute(self):
        """Lets no tick that is due a minute later fall into the minute after. It is waited for."""
        self.until(lambda: time.time() % 60 < 40)
        self.patience += 60

    def hold_pass(self):
        # A pass stays at each silent machine for seconds.
        run("ip", "route", "replace", "192.0.2.3", "dev", "lo")

    def release_pass(self):
        run("ip", "route", "replace", "unreachable", "192.0.2.3")

    def signal(self, name):
        self.process.send_signal(signal.Signals["SIG" + name])

    # What is seen.

    def setting(self, line):
        self.until(lambda: line in SETTINGS.read_text(encoding="ascii").splitlines())

    def file(self, name, *rows):
        path = pathlib.Path(name)
        self.until(lambda: path.exists() and path.read_bytes() == list_text(rows))

    def opened(self, *lines):
        # All that the browser was started with: how many words, and which.
        said = pathlib.Path(HOME, "opened")
        self.until(lambda: said.exists() and said.read_text(encoding="ascii").split() == list(lines))

    def ends(self, status, *words):
        self.until(lambda: self.process.poll() is not None)
        said = pathlib.Path(HOME, "said").read_text(encoding="utf-8")
        assert (self.process.returncode, said.split()) == (int(status), list(words)), said

    # What these are made of.

    def until(self, condition):
        deadline = time.monotonic() + self.patience
        while not condition():
            assert time.monotonic() < deadline, (list(self.screen.windows()), self.bus.told)
            self.bus.pause(30)


def list_text(rows):
    lines = ("ZR_Kestrava_ConnectionList", *rows)
    return "".join(ROWS.get(line, line) + "\r\n" for line in lines).encode("latin-1")


def main():
    stage = Stage(sys.argv[1])
    for line in scenarios.SCENARIOS[sys.argv[2]].strip().splitlines():
        for step in re.split(r"\|\s|;\s", line):
            verb, *words = step.replace("~", HOME).split()
            try:
                steps = (getattr(part, verb, None) for part in (stage, stage.screen, stage.bus))
                next(filter(None, steps))(*words)
            except AssertionError as problem:
                sys.exit(f"In vain: {step.strip()}, in {line.strip()}\n{problem}")


main()
