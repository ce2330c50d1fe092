"""The random user: chooses what to do next from what there is to see, and tells it to hands in the program."""

# Numbers at and beyond their limits, accents, quotes, Lua, INI and path syntax.
TEXTS = ("| |0|7|-1|1,5|1e3|32767|32768|99999999999999999999|La forêt de l'été : « où ? »|e\u0301le\u0300ve|"
         "\u20AC \u0153 \u2026 \u6F22 \U0001F600 \u202E|\"|'\"]]) os.exit() --|\\\" \\n \\0 %s%n|[Jeu]|nom=;#|"
         "<b>&amp;</b>|../../outside|/tmp/outside|..|con.").split("|")
LETTERS = "aeiou éèçàü\"'\\=[];:/.,|0123456789€"
# A few, so that projects are met again.
PROJECT_NAMES = 'Untitled|Vallée|Désert du "Nord"|a|Île [2] = ; x'.split("|")
KEYS = ("Tab Backtab Space Return Enter Esc Left Right Up Down PgUp PgDown Home End Del F4 Backspace Menu Alt A V Z X "
        "F10").split()
INTERESTS = {"mapeditor": 12, "Controlpanel": 6, "var": 4, "combateditor": 2,
             "CarteImg": 12, "listev": 4, "Option1_2": 5, "List1": 4}
MANY_VIEWS = 8
LEFT, RIGHT, MIDDLE = 1, 2, 4
LONG, SHORT = 1000, 50  # pauses in ms
MIDDLE_OF_IT = (-1, 0.5, 0.5)  # row if any, and place from 0 to 1


class User:
    def __init__(self, tell):
        self._tell = tell

    def act(self, rng, scenes):
        """Does one thing and answers what, for the log."""
        self._rng, self._scenes = rng, scenes
        if "box" in scenes and self._chance(60):
            return self._answer_box()
        if len(scenes["views"]) > MANY_VIEWS and self._chance(30):
            return self._close_view()
        acts = {self._click: 50, self._drag: 10, self._press_key: 10, self._type: 6, self._resize: 3,
                self._arrange_view: 3, self._close_view: 2, self._create_project: 2, self._open_project: 3}
        return self._rng.choices(list(acts), acts.values())[0]()

    def _chance(self, percent):
        return self._rng.randrange(100) < percent

    def _some_control(self):
        """A control of what the person looks at, mostly brought into sight. That itself when it has none."""
        scene = self._some_scene()
        controls = scene["controls"] or [(scene["number"], "window", scene["name"], "", 0)]
        weights = [6 if group == "Frame6" else self._interest_in(name) for _, _, name, group, _ in controls]
        control = self._rng.choices(controls, weights)[0]
        if self._chance(80):
            self._tell("reach", control[0])
        return control

    @staticmethod
    def _interest_in(name):
        return INTERESTS.get(name, 2 if name else 1)

    def _some_scene(self):
        for name, percent in (("popup", 90), ("box", 80)):
            if name in self._scenes and self._chance(percent):
                return self._scenes[name]
        views = self._scenes["views"]
        if not views or self._chance(2):
            return self._scenes["main"]
        weights = [self._interest_in(view["name"]) for view in views]
        return views[-1] if self._chance(40) else self._rng.choices(views, weights)[0]

    def _press(self, control, place=MIDDLE_OF_IT, button=LEFT, pause=LONG):
        self._tell("push", control, *place, button, pause)
        self._tell("release", button)

    def _some_place(self, rows):
        row = self._rng.randrange(rows) if rows and self._chance(80) else -1
        return row, self._rng.random(), self._rng.random()

    def _some_button(self):
        return self._rng.choices((LEFT, RIGHT, MIDDLE), (88, 8, 4))[0]

    def _click(self):
        number, kind, name, _, rows = self._some_control()
        place, button = self._some_place(rows), self._some_button()
        self._press(number, place, button)
        if self._chance(20):
            self._press(number, place, button, SHORT)
        return f"click {kind} {name} {place}"

    def _drag(self):
        number, kind, name, *_ = self._some_control()
        button, distance = self._some_button(), (self._rng.randrange(-75, 76), self._rng.randrange(-50, 51))
        self._tell("push", number, *self._some_place(0), button, LONG)
        for _ in range(4):
            self._tell("move", *distance)
        self._tell("release", button)
        return f"drag {kind} {name} four times by {distance}"

    def _press_key(self):
        key = self._rng.choices(("", "Shift+", "Ctrl+", "Alt+"), (57, 14, 14, 14))[0] + self._rng.choice(KEYS)
        times = 1 if self._chance(80) else 10
        for _ in range(times):
            self._tell("key", key, " " if key == "Space" else "")
        return f"key {key} × {times}"

    def _any_text(self):
        if self._chance(80):
            return self._rng.choice(TEXTS)
        return "".join(self._rng.choices(LETTERS, k=self._rng.randrange(1, 300)))

    def _write(self, text):
        for character in text:
            self._tell("type", character)

    def _type(self):
        text = self._any_text()
        if self._chance(30):
            self._tell("key", "Ctrl+A", "")
        if self._chance(30):
            self._tell("copy", text + "\r\nline\t2")
            self._tell("key", "Ctrl+V", "")
        else:
            self._write(text)
        return f"type {text}"

    def _resize(self):
        size = self._rng.randrange(100, 1600), self._rng.randrange(60, 1000)
        self._tell("resize", *size)
        return f"resize {size}"

    def _arrange_view(self):
        """0: as it was, 1: at its smallest, 2: at its largest."""
        return self._to_some_view("arrange", self._rng.randrange(3))

    def _close_view(self):
        return self._to_some_view("close")

    def _to_some_view(self, deed, *words):
        if not self._scenes["views"]:
            return f"{deed} no view"
        view = self._rng.choice(self._scenes["views"])
        self._tell(deed, view["number"], *words)
        return f"{deed} {view['name']} {words}"

    def _create_project(self):
        name = self._rng.choice(PROJECT_NAMES) if self._chance(80) else self._any_text()
        for control in ("menu", "Acc/Label2", "nouvprojet/Text1"):
            self._press(control)
        self._tell("key", "Ctrl+A", "")
        self._write(name)
        self._press("nouvprojet/Command1")
        return f"create project {name}"

    def _open_project(self):
        """A new view of the projects starts among them."""
        number = self._rng.randrange(1, len(PROJECT_NAMES) + 1)
        self._tell("close", "openp")
        for control in ("menu", "Acc/Label3"):
            self._press(control)
        for key in ["Down"] * number + ["Return"]:
            self._tell("key", key, "")
        self._press("openp/Command1")
        return f"open project {number}"

    def _answer_box(self):
        controls = self._scenes["box"]["controls"]
        text = self._type() if self._chance(80) and any(kind == "QLineEdit" for _, kind, *_ in controls) else ""
        buttons = [(number, name) for number, kind, name, *_ in controls if kind == "QAbstractButton"]
        if not buttons or self._chance(20):
            self._tell("key", self._rng.choice(("Esc", "Return")), "")
            return f"answer by key {text}"
        number, name = self._rng.choice(buttons)
        self._press(number)
        return f"answer by button {name} {text}"
