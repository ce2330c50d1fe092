"""Spoils and mends files under the running program, as other programs, failing disks and curious authors do."""

import shutil

_KEYS = (("Jeu", "cartes"), ("Jeu", "combats"), ("Jeu", "nom"), ("Variables", "nombre"), ("Carte01", "texture"),
         ("Carte01", "nom"), ("Variable1", "valeur"), ("Combat1", "nom"))
_VALUES = ("", *'0 1 2 -1 007 12 300 32768 x 1,5 02 04 ../02 ../../outside Untitled .. 9999999999 "é"té"'.split(),
           "é" * 300)
_FEW_BYTES = 40


def _set_value(file, section, key, value):
    """Of keys with one name the first counts."""
    content = file.read_bytes() if file.exists() else b""
    head = f"[{section}]\r\n".encode()
    before, found, after = content.partition(head)
    file.write_bytes(before + head + f"{key}={value}\r\n".encode("latin-1") + after)
    return f"{key}={value[:_FEW_BYTES]}"


def _remove(path):
    if path.is_dir():
        shutil.rmtree(path)
    else:
        path.unlink(missing_ok=True)


class Vandal:
    def __init__(self, app_dir, data):
        """data: an unspoilt copy of the folder that is shipped."""
        self._app_dir, self._projects, self._data = app_dir, app_dir / "projets", data

    def start_over(self):
        """Brings back the shipped files and removes all projects."""
        for project in self._projects.glob("*"):
            _remove(project)
        self._bring_back()

    def spoil_something(self, rng, project):
        """Does one thing to a project, mostly to the one that is open, or to the shipped files; tells what it did."""
        self._random = rng
        try:
            return self._choose(self._projects / project)()
        except OSError as failure:
            return f"nothing: {failure.strerror}"

    def _choose(self, current):
        projects = sorted(self._projects.glob("*")) if self._projects.is_dir() else []
        if self._chance(15):
            return self._bring_back
        if not projects or self._chance(15):
            return self._damage_shipped
        project = current if current in projects and self._chance(70) else self._random.choice(projects)
        deed = self._random.choices((self._set_key, self._damage_file, self._remove_folder, self._mend), (8, 8, 1, 12))
        return lambda: f"{project.name}: {deed[0](project)}"

    def _chance(self, percent):
        return self._random.randrange(100) < percent

    def _below(self, folder, are_folders):
        return sorted(path for path in folder.rglob("*") if path.is_dir() == are_folders)

    def _bring_back(self):
        shutil.rmtree(self._app_dir / "data", ignore_errors=True)
        shutil.copytree(self._data, self._app_dir / "data")
        player = self._app_dir / "luaplayer.exe"
        player.unlink(missing_ok=True)
        player.symlink_to("/bin/true")
        return "all shipped files are back"

    def _damage_shipped(self):
        if self._chance(20):
            (self._app_dir / "luaplayer.exe").unlink(missing_ok=True)
            return "removed luaplayer.exe"
        if self._chance(40):
            tileset = f"data/images/terrains/terrain0{self._random.randrange(1, 6)}/texture.ini"
            return _set_value(self._app_dir / tileset, "texture", "nbimg", self._random.choice(_VALUES))
        return self._damage_one_of(self._below(self._app_dir / "data", self._chance(5)))

    def _set_key(self, project):
        return _set_value(project / "projet.ini", *self._random.choice(_KEYS), self._random.choice(_VALUES))

    def _damage_file(self, project):
        """Of the files that the program reads: pictures are the game's."""
        files = [path for path in self._below(project, False) if path.suffix != ".png"]
        return self._damage_one_of([project / "projet.ini"] if self._chance(40) else files)

    def _damage_one_of(self, paths):
        """Spoils one of some files, removes it, makes it read-only or puts a folder in its place."""
        if not paths:
            return "nothing there"
        path, kind = self._random.choice(paths), self._random.randrange(12)
        if kind < 7:
            self._spoil(path)
        elif kind == 7:
            path.chmod(0o444)
        else:
            _remove(path)
        if kind == 11:
            path.mkdir()
        return f"damaged {path.name}"

    def _spoil(self, file):
        """Cuts the content anywhere, puts some bytes there, many at times, and may leave out the rest."""
        content = file.read_bytes() if file.exists() else b""
        cut = self._random.randrange(len(content) + 1)
        count = 100000 if self._chance(15) else self._random.randrange(_FEW_BYTES)
        some = self._random.randbytes(count) if self._chance(50) else b"x" * count
        file.write_bytes(content[:cut] + some + (content[cut:] if self._chance(50) else b""))

    def _remove_folder(self, project):
        shutil.rmtree(self._random.choice([project, *self._below(project, True)]))
        return "removed a folder"

    def _mend(self, project):
        """A descriptor and maps as they should be, whatever there was."""
        _remove(project / "projet.ini")
        text = f"[Jeu]\r\nnom={project.name}\r\ncartes=3\r\ncombats=2\r\n[Variables]\r\nnombre=3\r\n"
        for number in ("01", "02", "03"):
            text += f"[Carte{number}]\r\ntexture=0{self._random.randrange(1, 5)}\r\n"
            for folder in ("ev", "images"):
                (project / folder / f"map{number}").mkdir(parents=True, exist_ok=True)
            for kind, template in (("map", "ftgmma"), ("ev", "ftgmev")):
                file = project / f"map{number}.{kind}"
                file.write_bytes((self._app_dir / f"data/{template}.dat").read_bytes())
        (project / "projet.ini").write_bytes(text.encode("latin-1", "replace"))
        return "mended"
