#include "program.h"

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
    void awaitFailure(const std::string& description)
    {
        answers.stop("Erreur , des données essentiels au fonctionnement du programme sont manquantes ou "
                     "corrompus , veuillez réinstaller Questforge 3\n" +
                     description);
    }

    QWidget* form = nullptr;
};

TEST_F(NewProject, IsMadeByTheNamesInItsFieldsAndOpened)
{
    EXPECT_EQ(text(*form, "Text1"), "Untitled");
    EXPECT_EQ(text(*form, "Text2"), "Kestrel");
    setText(*form, "Text2", "Zoë");
    create("Épée 2");
    EXPECT_TRUE(app.read("projets/Épée 2/projet.ini")
                    .starts_with("[Jeu]\r\nnom=\xC9p\xE9\x65 2\r\nauteur=Zo\xEB\r\n"));
    EXPECT_EQ(findView("nouvprojet"), nullptr);
    EXPECT_FALSE(isShown("Acc"));
    EXPECT_EQ(text(view("Controlpanel"), "Label5"), "Épée 2");
    EXPECT_EQ(text(view("mapeditor"), "Text1"), "Carte 1");
}

TEST_F(NewProject, EnterInAFieldCreatesToo)
{
    keys(control(*form, "Text2"), {Qt::Key_Return});
    settle();
    EXPECT_EQ(CurrentProject(), "Untitled");
}

TEST_F(NewProject, AFailureIsToldAndAnotherNameCanBeTried)
{
    app.makeProject("there");
    SetCurrentProject("older");
    const std::string lacking = "images/personnages/perso01/mort.png";
    app.remove("data/" + lacking);
    awaitFailure("File exists (there)");
    create("there");
    awaitFailure("Invalid argument (a/b)");
    create("a/b");
    awaitFailure("No such file or directory (" + lacking + ")");
    create("first");
    answers.allCame();
    EXPECT_EQ(CurrentProject(), "older");
    EXPECT_EQ(findView("Controlpanel"), nullptr);
    app.write("data/" + lacking, "picture mort");
    create("second");
    EXPECT_EQ(CurrentProject(), "second");
}
