#!/usr/bin/python3
"""Works the real program as its user and the user's desktop do. Arguments: program, scenario.

A line of a scenario is "what is done | what is then seen", each of them steps with ";" between. A
step is the name of a method of `Stage` and its words; "~" is the user's folder. Whatever is to be
seen is waited for.
"""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time

import dbus
import dbus.lowlevel
import dbus.mainloop.glib
from gi.repository import GLib
from Xlib import X, display, error

import scenarios

HOME = os.environ["HOME"]
SETTINGS = pathlib.Path(HOME, "config/Kestrava/Kestrava.conf")
MAGIC = "ZR_Kestrava_ConnectionList"
PATIENCE = float(os.environ.get("PATIENCE", "60"))  # seconds
# Rows of a list by name: a machine that answers, one that can't be, and one that is silent.
ROWS = {"here": "H,127.0.0.1,x,Enabled,y", "dead": "a<b,0.0.0.0,x,Enabled,y",
        "silent": "S,192.0.2.3,x,Enabled,y"}
# Places in the main window's inner area, in twips, and the size of that.
PLACES = {"add": (10500, 320), "remove": (10500, 830), "check": (10500, 5100)}
WIDTH, HEIGHT, LAMPS = 11190, 5445, 130
COLOURS = {b"\x00\xff\x00": "green", b"\x00\x00\xff": "red"}
# Short names of windows, by title and kind.
WINDOWS = {"Kestrava normal": "main", "Kestrava dialog": "message", "utility": "icon",
           "Kestrava Preferences dialog": "preferences", "Add New Connection dialog": "new",
           "popup_menu": "menu", "dropdown_menu": "menu", "tooltip": "balloon",
           "normal": "menu", "_kde_net_wm_window_type_override": "tray"}

ITEM, MENU = "org.kde.StatusNotifierItem", "com.canonical.dbusmenu"
SERVICES = {"notifications": "org.freedesktop.Notifications",
            "tray": "org.kde.StatusNotifierWatcher"}
ANSWERS = {"GetCapabilities": ("as", [["actions", "body-markup"]]), "Notify": ("u", [41]), "Get": ("v", [True]),
           "GetAll": ("a{sv}", [{"IsStatusNotifierHostRegistered": True}])}


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
        self.screen = display.Display()
        self.bus = dbus.SessionBus(mainloop=dbus.mainloop.glib.DBusGMainLoop())
        self.bus.add_message_filter(self.answer)
        self.tray = self.tray_icon = None
        self.patience = PATIENCE
        self.pictures, self.told = {}, []
        self.silent_at, self.unanswered = (), []

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

    def run(self, *words):
        subprocess.run(words, check=True, stdout=subprocess.DEVNULL)

    def serve(self, *names):
        for name in names:
            self.bus.request_name(SERVICES[name])

    def leave(self, name):
        self.bus.release_name(SERVICES[name])

    def silent(self, *calls):
        """Leaves these calls unanswered from now on."""
        self.silent_at = calls
        self.unanswered = []

    def answer_late(self):
        self.silent_at = ()
        for message in self.unanswered:
            self.answer_one(message)

    def freeze_bus(self):
        os.kill(int(os.environ["BUS"]), signal.SIGSTOP)

    def thaw_bus(self):
        os.kill(int(os.environ["BUS"]), signal.SIGCONT)

    def hold_pass(self):
        """Keeps a pass at each silent machine for seconds."""
        self.run("ip", "route", "replace", "192.0.2.3", "dev", "lo")

    def release_pass(self):
        self.run("ip", "route", "replace", "unreachable", "192.0.2.3")

    def embed(self):
        self.tray = subprocess.Popen(["trayer", "--edge", "top"], stderr=subprocess.DEVNULL)

    def unembed(self):
        self.tray.kill()

    def keys(self, *keys):
        self.run("xdotool", "key", *keys)

    def type(self, *words):
        self.run("xdotool", "type", " ".join(words))

    def click(self, place):
        self.press("1", *self.place(*PLACES[place]))

    def click_window(self, button, name):
        left, top, width, height = self.area(name)
        self.press(button, left + width // 2, top + height // 2)

    def minimize(self, name):
        self.run("xdotool", "windowminimize", str(self.window(name).id))

    def signal(self, name):
        self.process.send_signal(signal.Signals["SIG" + name])

    def click_notification(self, number):
        path = "/org/freedesktop/Notifications"
        click = dbus.lowlevel.SignalMessage(path, SERVICES["notifications"], "ActionInvoked")
        click.append(int(number), "default", signature="us")
        self.bus.send_message(click)

    def pick(self, *label):
        """Picks an entry of the menu that the icon exports."""
        number = self.exported_entries()[" ".join(label)]
        self.ask(self.item("Menu"), MENU, "Event", "isvu", number, "clicked", "", 0)

    def ask_for_menu(self):
        self.ask("/StatusNotifierItem", ITEM, "ContextMenu", "ii", 0, 0)

    # What is seen.

    def at(self, *title):
        """The window of this title has the focus."""
        self.until(lambda: self.name(self.screen.get_input_focus().focus) == " ".join(title))

    def up(self, *names):
        """These windows are up, and no others of the program."""
        self.until(lambda: sorted(self.windows()) == sorted(names))

    def lamps(self, *colours):
        self.until(lambda: self.lamp_colours() == list(colours))

    def setting(self, line):
        self.until(lambda: line in SETTINGS.read_text(encoding="ascii").splitlines())

    def file(self, name, *rows):
        path = pathlib.Path(name)
        self.until(lambda: path.exists() and path.read_bytes() == list_text(rows))

    def opened(self, *lines):
        """All that the browser was started with: how many words, and which."""
        said = pathlib.Path(HOME, "opened")
        self.until(lambda: said.exists() and said.read_text(encoding="ascii").split() == list(lines))

    def look(self, name):
        """Keeps what the main window's place on the screen shows."""
        self.pictures[name] = self.picture()

    def same(self, name):
        self.until(lambda: self.picture() == self.pictures[name])

    def differs(self, name):
        self.until(lambda: self.picture() != self.pictures[name])

    def has_icon(self, name):
        icon = self.screen.get_atom("_NET_WM_ICON")
        self.until(lambda: self.window(name).get_full_property(icon, X.AnyPropertyType))

    def painted(self, name):
        """The window shows a picture of some colours."""
        self.until(lambda: len(set(pixels(self.grab(*self.area(name))))) > 8)

    def notified(self, *words):
        """All that the notification service was told."""
        self.until(lambda: self.told == " ".join(words).split(", "))

    def offered(self, *labels):
        """All that the exported menu offers."""
        self.until(lambda: list(self.exported_entries()) == " ".join(labels).split(", "))

    def tip(self, *words):
        """What the icon in the tray says under the pointer."""
        self.until(lambda: self.item("ToolTip")[2] == " ".join(words))

    def item(self, name):
        """A property of the icon in the tray, that comes when the program has done all before."""
        return self.ask("/StatusNotifierItem", dbus.PROPERTIES_IFACE, "Get", "ss", ITEM, name)

    def ends(self, status, *words):
        self.until(lambda: self.process.poll() is not None)
        said = pathlib.Path(HOME, "said").read_text(encoding="utf-8")
        assert (self.process.returncode, said.split()) == (int(status), list(words)), said

    # What these are made of.

    def until(self, condition):
        deadline = time.monotonic() + self.patience
        while not condition():
            assert time.monotonic() < deadline, (list(self.windows()), self.told)
            self.pause(30)

    def pause(self, milliseconds):
        """Serves the bus for that time."""
        over = []
        GLib.timeout_add(milliseconds, over.append, True)
        while not over:
            GLib.MainContext.default().iteration()

    def answer(self, _, message):
        """Answers as a notification service, and as a watcher that is a host of icons."""
        member = message.get_member()
        if message.get_type() != 1 or not message.get_destination().startswith("org."):
            return dbus.lowlevel.HANDLER_RESULT_NOT_YET_HANDLED
        if member == "Notify":
            report = message.get_args_list()[4].split("\n")[0]
            self.told.append(report.removeprefix("Kestrava failed to communicate with "))
        elif member == "CloseNotification":
            self.told.append("closed")
        elif member == "RegisterStatusNotifierItem":
            self.tray_icon = message.get_sender()
        if member in self.silent_at:
            self.unanswered.append(message)
        else:
            self.answer_one(message)
        return dbus.lowlevel.HANDLER_RESULT_HANDLED

    def answer_one(self, call):
        answer = dbus.lowlevel.MethodReturnMessage(call)
        signature, values = ANSWERS.get(call.get_member(), ("", []))
        answer.append(*values, signature=signature)
        self.bus.send_message(answer)

    def ask(self, path, interface, method, signature, *arguments):
        """Calls the program, and gives its answer."""
        answers = []
        self.until(lambda: self.tray_icon)
        self.bus.call_async(self.tray_icon, path, interface, method, signature, arguments,
                            lambda *values: answers.append(values), answers.append)
        self.until(lambda: answers)
        return answers[0][0] if len(answers[0]) == 1 else answers[0]

    def exported_entries(self):
        """The numbers of the entries by label."""
        layout = self.ask(self.item("Menu"), MENU, "GetLayout", "iias", 0, -1, [])[1]
        return {str(shown["label"]): number for number, shown, _ in layout[2]
                if shown.get("visible", True) and "label" in shown}

    def windows(self):
        """The program's windows that are up, by name."""
        search = ["xdotool", "search", "--onlyvisible", "--class", "kestrava"]
        found = subprocess.run(search, capture_output=True, check=False).stdout.split()
        windows = [self.screen.create_resource_object("window", int(number)) for number in found]
        named = {self.name(window): window for window in windows}
        named.pop(None, None)
        return named

    def window(self, name):
        found = {}
        self.until(lambda: found.update(self.windows()) or name in found)
        return found[name]

    def name(self, window):
        """None if it has just gone."""
        kind_atom = self.screen.get_atom("_NET_WM_WINDOW_TYPE")
        try:
            kinds = window.get_full_property(kind_atom, X.AnyPropertyType)
            title = window.get_wm_name() or ""
        except (error.XError, AttributeError):
            return None
        kind = self.screen.get_atom_name(kinds.value[0]) if kinds else ""
        kind = kind.removeprefix("_NET_WM_WINDOW_TYPE_").lower()
        return WINDOWS.get(f"{title} {kind}".strip(), title or kind)

    def area(self, name):
        """A window's left, top, width and height on the screen."""
        window = self.window(name)
        size = window.get_geometry()
        origin = window.translate_coords(self.screen.screen().root, 0, 0)
        return -origin.x, -origin.y, size.width, size.height

    def place(self, x, y):
        left, top, width, height = self.area("main")
        return left + x * width // WIDTH, top + height - (HEIGHT - y) * width // WIDTH

    def press(self, button, x, y):
        self.run("xdotool", "mousemove", str(x), str(y), "click", button)

    def grab(self, left, top, width, height):
        root = self.screen.screen().root
        return root.get_image(left, top, width, height, X.ZPixmap, 0xFFFFFFFF).data

    def picture(self):
        """Of what has come to rest."""
        area = self.area("main")
        before, now = None, self.grab(*area)
        while before != now:
            self.pause(200)
            before, now = now, self.grab(*area)
        return now

    def lamp_colours(self):
        """The colours in the lamps' column from top to bottom."""
        (left, top), (_, bottom) = self.place(LAMPS, 30), self.place(LAMPS, 5300)
        colours = [COLOURS.get(pixel) for pixel in pixels(self.grab(left, top, 1, bottom - top))]
        return [now for before, now in zip([None] + colours, colours) if now and now != before]


def list_text(rows):
    return "".join(ROWS.get(row, row) + "\r\n" for row in (MAGIC,) + rows).encode("latin-1")


def pixels(image):
    return [image[start:start + 3] for start in range(0, len(image), 4)]


def main():
    stage = Stage(sys.argv[1])
    for line in scenarios.SCENARIOS[sys.argv[2]].strip().splitlines():
        for step in re.split(r"\|\s|;\s", line):
            verb, *words = step.replace("~", HOME).split()
            try:
                getattr(stage, verb)(*words)
            except AssertionError as problem:
                sys.exit(f"In vain: {step.strip()}, in {line.strip()}\n{problem}")


main()
