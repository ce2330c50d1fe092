"""The views of which there is mostly the look."""

_ENTRIES = (("variables", "var", 1), ("fights", "combateditor", 0), ("options", "gameoptions", 2))
_PICTURES = {"fights": "fight-editor", "options": "game-setup"}  # of the tour, where they have other names


def each_view(program):
    """Opens the control panel's views one by one; names each, and a path to it, while it is shown."""
    for view, path, entry in _ENTRIES:
        program.click(f"Controlpanel/Label9_{entry}")
        program.await_usable(path)
        yield view, path
        program.close(path)
    program.click("Controlpanel/Label9_4")
    program.await_caption("QMessageBox/qt_msgbox_label", "Creation ...")
    program.await_usable("QMessageBox/=OK")
    yield "publish", "QMessageBox"
    program.dismiss("Creation ...", "OK")


def look_around(tour):
    for view, path in each_view(tour.program):
        if view == "fights":
            tour.program.await_caption("combateditor/Strip/Text1", "")
            tour.program.step_forward("combateditor/Strip/HScroll1")
            tour.program.await_caption("combateditor/Strip/Text1", "Nouveau combat")
        tour.show(_PICTURES.get(view, view), path)
