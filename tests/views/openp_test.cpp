#include "program.h"

#include "toolkit/directorylist.h"
#include "toolkit/paths.h"

using namespace Qt::StringLiterals;

class OpenProject : public Program
{
protected:
    OpenProject()
    {
        app.makeProject("beta");
        app.makeProject(".hidden");
        app.makeProject("Alpha");
        SetCurrentProject("older");
        mainform->showOpenp();
        form = &view("openp");
        list = &control<DirectoryList>(*form, "Dir1");
    }

    int lineOf(const QString& name) const
    {
        int row = 0;
        while (row < list->count() && list->item(row)->text().trimmed() != name) {
            ++row;
        }
        return row;
    }

    QWidget* form = nullptr;
    DirectoryList* list = nullptr;
};

TEST_F(OpenProject, AFolderIsEnteredByDoubleClickOrEnterAndThenOpened)
{
    EXPECT_EQ(text(*form, "Command1"), "Open");
    EXPECT_EQ(list->path(), qtPath(app.at("projets")));
    EXPECT_EQ(lineOf(u"Alpha"_s) + 1, lineOf(u"beta"_s)); // as people sort, capitals or not
    EXPECT_EQ(lineOf(u"beta"_s), list->count() - 1);
    EXPECT_LT(lineOf(u".hidden"_s), list->count());
    doubleClickLine(*form, "Dir1", lineOf(u"beta"_s));
    EXPECT_EQ(list->path(), qtPath(app.at("projets/beta")));
    doubleClickLine(*form, "Dir1", lineOf(u"projets"_s)); // and out again
    list->setCurrentRow(lineOf(u"Alpha"_s));
    keys(*list, {Qt::Key_Return});
    click(*form, "Command1");
    settle();
    EXPECT_EQ(CurrentProject(), "Alpha");
    EXPECT_EQ(findView("openp"), nullptr);
    EXPECT_EQ(text(view("Controlpanel"), "Label5"), "Alpha");
    EXPECT_EQ(text(view("mapeditor"), "Label1"), "01");
}

TEST_F(OpenProject, AFolderWithoutANameInItsDescriptorIsNoProject)
{
    app.write("projets/noname/projet.ini", "[Jeu]\r\nnom=\r\n");
    app.write("projets/dir/projet.ini/file", "");
    for (const char* folder : {"", "noname", "dir"}) {
        SCOPED_TRACE(folder);
        list->setPath(qtPath(app.at("projets") / folder));
        answers.message("Erreur : Projet invalide !");
        click(*form, "Command1");
        answers.allCame();
    }
    EXPECT_EQ(CurrentProject(), "older");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(findView("Controlpanel"), nullptr);
}

TEST_F(OpenProject, ANameThatIsNoPlainFolderOpensEmptyAndWritesNothing)
{
    const std::string name = "../outside"; // the descriptor's, which counts, not the folder's
    WriteIni("Jeu", "nom", name, app.at("projets/Alpha/projet.ini"));
    app.write("outside/projet.ini", "[Jeu]\r\nnom=x\r\nauteur=x\r\ncartes=1\r\ncombats=1\r\n");
    const Snapshot before = app.snapshot();
    answers.message(emptyValue);
    for (int load = 0; load < 3; ++load) {
        answers.stop(invalidMap);
    }
    openProject("Alpha");
    answers.allCame();
    EXPECT_EQ(text(view("Controlpanel"), "Label5"), name);
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "");
    pressCell(view("mapeditor"), 1, 1);
    answers.stop("No map was made.\nNo project with a folder is open.");
    click(view("mapeditor"), "Command4");
    click(view("mapeditor"), "Command5");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}
