"""The screen that the program is on, worked and seen as its user does."""
import subprocess

from Xlib import X, display, error

# Places in the main window's inner area, in twips, and the size of that.
PLACES = {"add": (10500, 320), "remove": (10500, 830), "check": (10500, 5100)}
WIDTH, HEIGHT, LAMPS = 11190, 5445, 130
COLOURS = {b"\x00\xff\x00": "green", b"\x00\x00\xff": "red"}
# Short names of windows, by title and kind.
WINDOWS = {"Kestrava normal": "main", "Kestrava dialog": "message", "utility": "icon",
           "Kestrava Preferences dialog": "preferences", "Add New Connection dialog": "new",
           "popup_menu": "menu", "dropdown_menu": "menu", "tooltip": "balloon",
           "normal": "menu", "_kde_net_wm_window_type_override": "tray"}


class Screen:
    def __init__(self, until, pause):
        self.until, self.pause = until, pause
        self.screen, self.pictures = display.Display(), {}

    # What is done.

    def keys(self, *keys):
        run("xdotool", "key", *keys)

    def type(self, *words):
        run("xdotool", "type", " ".join(words))

    def click(self, place):
        self.press("1", *self.place(*PLACES[place]))

    def click_window(self, button, name):
        left, top, width, height = self.resting(lambda: self.area(name))
        self.press(button, left + width // 2, top + height // 2)

    def minimize(self, name):
        run("xdotool", "windowminimize", str(self.window(name).id))

    def keyboard(self, layout):
        run("setxkbmap", layout)

    def embed(self):
        self.tray = subprocess.Popen(["trayer", "--edge", "top"], stderr=subprocess.DEVNULL)

    def unembed(self):
        self.tray.kill()

    # What is seen.

    def at(self, *title):
        """The window of this title has the focus."""
        self.until(lambda: self.name(self.screen.get_input_focus().focus) == " ".join(title))

    def up(self, *names):
        """These windows are up, and no others of the program."""
        self.until(lambda: sorted(self.windows()) == sorted(names))

    def lamps(self, *colours):
        self.until(lambda: self.lamp_colours() == list(colours))

    def look(self, name):
        """Keeps what the main window's place on the screen shows."""
        self.painted("main")
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

    # What these are made of.

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
        run("xdotool", "mousemove", str(x), str(y), "click", button)

    def grab(self, left, top, width, height):
        root = self.screen.screen().root
        return root.get_image(left, top, width, height, X.ZPixmap, 0xFFFFFFFF).data

    def picture(self):
        return self.resting(lambda: self.grab(*self.area("main")))

    def resting(self, look):
        """What is seen once it has come to rest."""
        seen = [look()]
        while len(seen) < 3 or seen[-3] != seen[-1] or seen[-2] != seen[-1]:
            self.pause(150)
            seen.append(look())
        return seen[-1]

    def lamp_colours(self):
        """The colours in the lamps' column from top to bottom."""
        (left, top), (_, bottom) = self.place(LAMPS, 30), self.place(LAMPS, 5300)
        colours = [COLOURS.get(pixel) for pixel in pixels(self.grab(left, top, 1, bottom - top))]
        return [now for before, now in zip([None] + colours, colours) if now and now != before]


def pixels(image):
    return [image[start:start + 3] for start in range(0, len(image), 4)]


def run(*words):
    subprocess.run(words, check=True, stdout=subprocess.DEVNULL)
