#include "program.h"

#include "toolkit/directorylist.h"
#include "toolkit/paths.h"

#include <QTest>

using namespace Qt::StringLiterals;

class OpenProject : public Program
{
protected:
    OpenProject()
    {
        app.makeProject("beta");
        app.makeProject("Alpha");
        SetCurrentProject("");
        mainform->showOpenp();
        form = &view("openp");
        list = &control<DirectoryList>(*form, "Dir1");
    }

    int lineOf(const QString& name) const
    {
        for (int row = 0; row < list->count(); ++row) {
            if (list->item(row)->text().trimmed() == name) {
                return row;
            }
        }
        return list->count();
    }

    QWidget* form = nullptr;
    DirectoryList* list = nullptr;
};

TEST_F(OpenProject, StartsInTheFolderOfProjects)
{
    EXPECT_EQ(form->windowTitle().toStdString(), "Open");
    EXPECT_EQ(text(*form, "Command1"), "Open");
    EXPECT_EQ(list->path(), qtPath(app.at("projets")));
    EXPECT_EQ(lineOf(u"Alpha"_s) + 1, lineOf(u"beta"_s)); // as people sort, capitals or not
    EXPECT_EQ(lineOf(u"beta"_s), list->count() - 1);
}

TEST_F(OpenProject, AFolderIsEnteredByDoubleClickOrEnterAndThenOpened)
{
    doubleClickLine(*form, "Dir1", lineOf(u"beta"_s));
    EXPECT_EQ(list->path(), qtPath(app.at("projets/beta")));
    doubleClickLine(*form, "Dir1", lineOf(u"projets"_s)); // and out again
    list->setCurrentRow(lineOf(u"Alpha"_s));
    QTest::keyClick(list, Qt::Key_Return);
    click(*form, "Command1");
    settle();
    EXPECT_EQ(CurrentProject(), "Alpha");
    EXPECT_EQ(findView("openp"), nullptr);
    EXPECT_EQ(text(view("Controlpanel"), "Label5"), "Alpha");
    EXPECT_EQ(text(view("mapeditor"), "Label1"), "01");
}

TEST_F(OpenProject, AFolderWithoutANameInItsDescriptorIsNoProject)
{
    app.write("projets/nojeu/projet.ini", "[Game]\r\nnom=x\r\n");
    app.write("projets/noname/projet.ini", "[Jeu]\r\nnom=\r\n");
    app.write("projets/dir/projet.ini/file", "");
    SetCurrentProject("older");
    for (const char* folder : {"", "nojeu", "noname", "dir"}) {
        SCOPED_TRACE(folder);
        list->setPath(qtPath(app.at("projets") / folder));
        answers.message("Erreur : Projet invalide !");
        click(*form, "Command1");
        answers.allCame();
    }
    EXPECT_EQ(CurrentProject(), "older");
    EXPECT_TRUE(isShown("openp"));
    EXPECT_EQ(findView("Controlpanel"), nullptr);
}

TEST_F(OpenProject, TheNameInTheDescriptorCountsNotTheFolders)
{
    WriteIni("Jeu", "nom", "beta", app.at("projets/Alpha/projet.ini"));
    WriteIni("Jeu", "auteur", "of beta", app.at("projets/beta/projet.ini"));
    openProject("Alpha");
    EXPECT_EQ(CurrentProject(), "beta");
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "of beta");
}

TEST_F(OpenProject, ANameThatIsNoPlainFolderOpensEmptyAndWritesNothing)
{
    app.addTileset("01", "3");
    for (const char* name : {"../outside", "beta/ev", "..", "."}) {
        SCOPED_TRACE(name);
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
        for (const char* value : {"Label6", "Label7", "Label8"}) {
            EXPECT_EQ(text(view("Controlpanel"), value), "");
        }
        EXPECT_EQ(lines(view("Controlpanel"), "List1").size(), 0U);

        pressCell(view("mapeditor"), 1, 1);
        answers.question(" Are you sure you want to return the card to zero?", Reply::Yes);
        click(view("mapeditor"), "Command10");
        answers.stop("No map was made.\nNo project with a folder is open.");
        click(view("mapeditor"), "Command4");
        click(view("mapeditor"), "Command5");
        answers.allCame();
        chooseEntry(1);
        answers.message("Erreur : the number of variables in projet.ini is not a number from 0 to 32767");
        click(view("var"), "Command1");
        answers.allCame();
        EXPECT_EQ(Changes(before, app.snapshot()), "");
        mainform->showOpenp();
    }
}
