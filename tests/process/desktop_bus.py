"""The session bus, and what a desktop has on it: notifications and a host of icons."""
import os
import signal
import subprocess

import dbus.lowlevel
import dbus.mainloop.glib
from gi.repository import GLib

ITEM, MENU = "org.kde.StatusNotifierItem", "com.canonical.dbusmenu"
SERVICES = {"notifications": "org.freedesktop.Notifications",
            "tray": "org.kde.StatusNotifierWatcher"}
ANSWERS = {"GetCapabilities": ("as", [["actions", "body-markup"]]), "Notify": ("u", [41]), "Get": ("v", [True]),
           "GetAll": ("a{sv}", [{"IsStatusNotifierHostRegistered": True}])}


class DesktopBus:
    def __init__(self, until):
        self.until = until
        self.bus = dbus.SessionBus(mainloop=dbus.mainloop.glib.DBusGMainLoop())
        self.bus.add_message_filter(self.answer)
        self.tray_icon, self.told = None, []
        self.silent_at, self.unanswered = (), []

    # What is done.

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

    def click_notification(self, number):
        path = "/org/freedesktop/Notifications"
        click = dbus.lowlevel.SignalMessage(path, SERVICES["notifications"], "ActionInvoked")
        click.append(int(number), "default", signature="us")
        self.bus.send_message(click)

    def forge_click(self, number):
        """Somebody who is no notification service says that its notification was clicked."""
        subprocess.run(["dbus-send", "--type=signal", "/org/freedesktop/Notifications",
                        SERVICES["notifications"] + ".ActionInvoked", f"uint32:{number}",
                        "string:default"], check=True)

    def pick(self, *label):
        """Picks an entry of the menu that the icon exports."""
        number = self.exported_entries()[" ".join(label)]
        self.ask(self.item("Menu"), MENU, "Event", "isvu", number, "clicked", "", 0)

    def ask_for_menu(self):
        self.ask("/StatusNotifierItem", ITEM, "ContextMenu", "ii", 0, 0)

    # What is seen.

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

    # What these are made of.

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
