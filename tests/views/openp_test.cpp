#include "program.h"

#include "toolkit/directorylist.h"
#include "toolkit/paths.h"

using namespace Qt::StringLiterals;

class OpenProject : public Program
{
protected:
    OpenProject()
    {
        for (const char* name : {"Beta", ".hidden", "alpha"}) {
            app.makeProject(name);
        }
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
    EXPECT_EQ(list->path(), qtPath(app.at("projets")));
    EXPECT_EQ(lineOf(u"alpha"_s) + 1, lineOf(u"Beta"_s)); // as people sort, capitals or not
    EXPECT_EQ(lineOf(u"Beta"_s), list->count() - 1);
    EXPECT_LT(lineOf(u".hidden"_s), list->count());
    doubleClickLine(*form, "Dir1", lineOf(u"Beta"_s));
    EXPECT_EQ(list->path(), qtPath(app.at("projets/Beta")));
    doubleClickLine(*form, "Dir1", lineOf(u"projets"_s)); // and out again
    list->setCurrentRow(lineOf(u"alpha"_s));
    keys(*list, {Qt::Key_Return});
    click(*form, "Command1");
    EXPECT_EQ(CurrentProject(), "alpha");
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
}
