#include "program.h"

#include <QTest>

namespace
{

const std::string failurePrefix =
    "Erreur , des données essentiels au fonctionnement du programme sont manquantes ou corrompus , veuillez "
    "réinstaller Questforge 3\n";

} // namespace

class NewProject : public Program
{
protected:
    NewProject()
    {
        mainform->showNouvprojet();
        form = &view("nouvprojet");
    }

    void create(const std::string& name) const
    {
        setText(*form, "Text1", name);
        click(*form, "Command1");
        settle();
    }

    QWidget* form = nullptr;
};

TEST_F(NewProject, OffersANameAndACreator)
{
    EXPECT_EQ(form->windowTitle().toStdString(), "Create a project");
    EXPECT_EQ(text(*form, "Text1"), "Untitled");
    EXPECT_EQ(text(*form, "Text2"), "Kestrel");
    EXPECT_EQ(text(*form, "Command1"), "Create!");
}

TEST_F(NewProject, IsMadeAndOpened)
{
    setText(*form, "Text2", "Zoë");
    create("Épée 2");
    EXPECT_EQ(CurrentProject(), "\xC9p\xE9"
                                "e 2");
    EXPECT_EQ(app.read("projets/Épée 2/projet.ini"),
              "[Jeu]\r\nnom=\xC9p\xE9"
              "e 2\r\nauteur=Zo\xEB\r\nver=3.0.0\r\ncartes=1\r\ncombats=0\r\n"
              "[Carte01]\r\ntexture=01\r\nnom=Carte 1\r\n[Variables]\r\nnombre=0\r\n");
    EXPECT_EQ(findView("nouvprojet"), nullptr);
    EXPECT_FALSE(isShown("Acc"));
    ASSERT_TRUE(isShown("Controlpanel"));
    EXPECT_EQ(text(view("Controlpanel"), "Label5"), "Épée 2");
    EXPECT_EQ(lines(view("Controlpanel"), "List1"), std::vector<std::string>{"1Carte 1"});
    ASSERT_TRUE(isShown("mapeditor"));
    EXPECT_EQ(text(view("mapeditor"), "Label1"), "01");
    EXPECT_EQ(text(view("mapeditor"), "Text1"), "Carte 1");
}

TEST_F(NewProject, EnterInAFieldCreatesToo)
{
    QTest::keyClick(&control(*form, "Text2"), Qt::Key_Return);
    settle();
    EXPECT_TRUE(app.has("projets/Untitled/projet.ini"));
    EXPECT_EQ(findView("nouvprojet"), nullptr);
}

TEST_F(NewProject, AFailureIsToldAndTheViewStays)
{
    const struct {
        const char* name;
        const char* description;
    } cases[] = {{"there", "File exists (there)"},
                 {"", "Invalid argument ()"},
                 {"a/b", "Invalid argument (a/b)"},
                 {"..", "Invalid argument (..)"}};
    app.makeProject("there");
    SetCurrentProject("older");
    const Snapshot before = app.snapshot();
    for (const auto& [name, description] : cases) {
        SCOPED_TRACE(name);
        answers.stop(failurePrefix + description);
        create(name);
        answers.allCame();
        EXPECT_EQ(text(*form, "Text1"), name);
    }
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    EXPECT_EQ(CurrentProject(), "older");
    EXPECT_EQ(findView("Controlpanel"), nullptr);
}

TEST_F(NewProject, CanBeTriedAgainUnderAnotherName)
{
    const std::string lacking = "images/personnages/perso01/mort.png";
    app.remove("data/" + lacking);
    answers.stop(failurePrefix + "No such file or directory (" + lacking + ")");
    create("first");
    EXPECT_TRUE(app.has("projets/first/images/personnages/hero/gauche3.png"));
    EXPECT_FALSE(app.has("projets/first/images/System/imgprinc.png"));

    app.write("data/" + lacking, "picture mort");
    create("second");
    EXPECT_EQ(CurrentProject(), "second");
    EXPECT_EQ(findView("nouvprojet"), nullptr);
}

TEST_F(NewProject, AnEmptyCreatorIsReportedByTheControlPanel)
{
    setText(*form, "Text2", "");
    answers.message(emptyValue);
    create("quiet");
    EXPECT_TRUE(isShown("mapeditor"));
}
