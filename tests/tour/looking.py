"""The stations at the views of which there is only the look."""


def fights(tour):
    program = tour.program
    program.click("Controlpanel/Label9_0")
    program.await_caption("combateditor/Strip/Text1", "")
    program.step_forward("combateditor/Strip/HScroll1")
    program.await_caption("combateditor/Strip/Text1", "Nouveau combat")
    tour.take_picture("fight-editor")
    tour.document("fight-editor", "combateditor")
    program.press_close_button("combateditor")
    program.await_gone("combateditor")


def game_setup(tour):
    program = tour.program
    program.click("Controlpanel/Label9_2")
    program.await_usable("gameoptions")
    tour.document("game-setup", "gameoptions")
    program.press_close_button("gameoptions")
    program.await_gone("gameoptions")


def publishing(tour):
    program = tour.program
    program.click("Controlpanel/Label9_4")
    program.await_caption("QMessageBox/qt_msgbox_label", "Creation ...")
    tour.document("publish", "QMessageBox")
    program.dismiss("Creation ...", "OK")
