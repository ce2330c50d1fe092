// Views that list many things, and the script of many variables, beside one pass over the descriptor.
#include "app/Mainform.h"
#include "build/scripts.h"
#include "contest.h"
#include "contests.h"
#include "floors.h"
#include "project/Controlpanel.h"
#include "store/store.h"
#include "toolfolder.h"
#include "variables/var.h"

#include <fcntl.h>
#include <memory>
#include <QApplication>
#include <QListView>
#include <QStringListModel>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

/// A project with so many variables and maps in its descriptor.
struct LongProject {
    ToolFolder folder;
    Mainform window;
    Path descriptor;
    Path least;
    floors::Buffer buffer;

    LongProject(int variables, int maps)
    {
        folder.makeProject();
        descriptor = Descriptor();
        least = ProjectFile("least.lua");
        WriteIni("Jeu", "cartes", std::to_string(maps), descriptor);
        WriteIni("Variables", "nombre", std::to_string(variables), descriptor);
        std::string text = ReadWholeFile(descriptor);
        for (int map = 3; map <= maps; ++map) {
            text += "[Carte" + MapNumberText(map) + "]\r\ntexture=01\r\nnom=Carte 1\r\n";
        }
        for (int variable = 1; variable <= variables; ++variable) {
            const std::string number = std::to_string(variable);
            text += "[Variable" + number + "]\r\nnumero=" + number + "\r\nvaleur=" + number + "\r\n";
        }
        text.resize(text.size() - 2); // every whole write ends with a line end of its own
        WriteWholeFile(text, descriptor);
        window.show();
    }

    /// Calls `visit` with the value of every line that begins with `key`, in one pass.
    template <class Visit> int forEachValue(std::string_view key, Visit visit)
    {
        buffer.clear();
        buffer.appendFile(AT_FDCWD, descriptor.c_str());
        int number = 0;
        std::string_view rest = buffer.text();
        for (std::size_t end = 0; (end = rest.find('\n')) != std::string_view::npos;) {
            const std::string_view line = rest.substr(0, end - 1);
            rest.remove_prefix(end + 1);
            if (line.starts_with(key)) {
                visit(++number, line.substr(key.size()));
            }
        }
        return number;
    }
};

/// The plainest list that can show so many lines.
struct PlainList {
    QListView view;
    QStringListModel model;

    PlainList()
    {
        view.setUniformItemSizes(true);
        view.setModel(&model);
        view.show();
    }

    void show(LongProject& project, std::string_view key, QLatin1StringView between)
    {
        QStringList lines;
        project.forEachValue(key, [&](int number, std::string_view value) {
            lines.append(QString::number(number) + between + QLatin1StringView(value));
        });
        model.setStringList(lines);
    }
};

/// Filling a list, until it has been drawn anew.
template <class Job> double secondsShown(Job job)
{
    return secondsOf(1, [&] {
        job();
        for (int round = 0; round < 3;
             ++round) { // a list lays its lines out in one and draws them in the next
            QApplication::processEvents();
        }
    });
}

Contestants variablesView(int variables)
{
    const auto project = std::make_shared<LongProject>(variables, 2);
    const auto plain = std::make_shared<PlainList>();
    project->window.showVar();
    auto* view = project->window.findChild<var*>();
    return {[=] { return secondsShown([&] { view->activated(); }); }, {[=] {
                return secondsShown([&] { plain->show(*project, "valeur=", " | Valeur de depart : "_L1); });
            }}};
}

void writeLeast(LongProject& project)
{
    std::string script = "--Variables du jeu\r\nvar = {}\r\n";
    project.forEachValue("valeur=", [&](int number, std::string_view value) {
        script.append("var[").append(std::to_string(number)).append("] = \"").append(value).append("\"\r\n");
    });
    floors::replaceFile(project.least, script.append("\r\n"));
}

Contestants variablesScript(int variables)
{
    const auto project = std::make_shared<LongProject>(variables, 2);
    WriteVariablesScript();
    writeLeast(*project);
    if (ReadWholeFile(project->least) != ReadWholeFile(ProjectFile("variables.lua"))) {
        throw std::runtime_error("the floor writes another script");
    }
    return {[] { return secondsOf(1, WriteVariablesScript); },
            {[=] { return secondsOf(1, [&] { writeLeast(*project); }); }}};
}

Contestants panelActivation(int maps)
{
    const auto project = std::make_shared<LongProject>(0, maps);
    const auto plain = std::make_shared<PlainList>();
    project->window.showControlpanel();
    auto* panel = project->window.findChild<Controlpanel*>();
    return {[=] { return secondsShown([&] { panel->activated(); }); },
            {[=] { return secondsShown([&] { plain->show(*project, "nom=", ""_L1); }); }}};
}

} // namespace

void addLists()
{
    for (const int variables : {1000, 10000, 32767}) {
        const std::string count = std::to_string(variables) + " variables";
        addContest("variables view, " + count, 21, [=] { return variablesView(variables); });
        addContest("variables.lua, " + count, 51, [=] { return variablesScript(variables); });
    }
    for (const int maps : {10, 100, 1000}) {
        addContest("control panel activation, " + std::to_string(maps) + " maps", 51,
                   [=] { return panelActivation(maps); });
    }
}
