"""A copy of the runnable folder whose program is started without a display and with a player that ends at once."""

import shutil

from stage import Stage


class Offscreen(Stage):
    def __init__(self, app_dir, plugins, library):
        """library: stands between the program and its calls that change the disk."""
        super().__init__(app_dir, plugins)
        self._library = library

    def _open_display(self):
        player = self.app_dir / "luaplayer.exe"
        player.unlink()
        player.symlink_to("/bin/true")  # what is played is no matter here

    def start(self, plugin, **more):
        """Starts the program with one of the plugins; the environment is `more` as well."""
        self.socket.unlink(missing_ok=True)
        shutil.rmtree(self.folder / "home", ignore_errors=True)
        self.start_program(QT_QPA_PLATFORM="offscreen", QT_QPA_GENERIC_PLUGINS=plugin, LD_PRELOAD=self._library, **more)
