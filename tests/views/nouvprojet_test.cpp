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

TEST_F(NewProject, IsMadeByTheNamesInItsFieldsAtEnterToo)
{
    EXPECT_EQ(text(*form, "Text1"), "Untitled");
    EXPECT_EQ(text(*form, "Text2"), "Kestrel");
    setText(*form, "Text1", "Épée 2");
    keys(control(*form, "Text2"), {Qt::Key_Return});
    EXPECT_TRUE(app.read("projets/Épée 2/projet.ini")
                    .starts_with("[Jeu]\r\nnom=\xC9p\xE9\x65 2\r\nauteur=Kestrel\r\n"));
    EXPECT_FALSE(isShown("Acc"));
}

TEST_F(NewProject, AFailureIsToldAndAnotherNameCanBeTried)
{
    app.makeProject("there");
    SetCurrentProject("older");
    const std::string lacking = "images/personnages/perso01/mort.png";
    app.remove("data/" + lacking);
    awaitFailure("File exists (there)");
    create("there");
    awaitFailure("No such file or directory (" + lacking + ")");
    create("first");
    answers.allCame();
    EXPECT_EQ(CurrentProject(), "older");
    EXPECT_EQ(findView("Controlpanel"), nullptr);
    app.write("data/" + lacking, "picture mort");
    create("second");
    EXPECT_EQ(CurrentProject(), "second");
}
