// Clicks and resets taken back, and done again.
#include "maps/mapeditor.h"

#include "events/eventstore.h"
#include "maps/maplist.h"
#include "toolkit/text.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>

using namespace Qt::StringLiterals;

void mapeditor::connectUndo()
{
    const auto onKeys = [this](const char* keys, void (mapeditor::*handler)()) {
        auto* shortcut = new QShortcut(QKeySequence(QLatin1StringView(keys)), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, handler] {
            if (QApplication::activeModalWidget() == nullptr) { // keys can be faster than a box
                (this->*handler)();
            }
        });
    };
    onKeys("Ctrl+Z", &mapeditor::undo);
    onKeys("Ctrl+Y", &mapeditor::redo);
    onKeys("Ctrl+Shift+Z", &mapeditor::redo);
}

HeroStart mapeditor::heroStart() const
{
    return {typed(Label4->text()), typed(Label5->text())};
}

std::string mapeditor::historyKey() const
{
    return project_ + '/' + currentMap_;
}

StepRecorder mapeditor::recordClick() const
{
    return {map_, heroStart(), {BlockFile(currentMap_), MapFile(currentMap_)}, MapSection(currentMap_)};
}

StepRecorder mapeditor::recordReset() const
{
    std::vector<Path> files;
    for (int row = 1; row <= MapModel::rows; ++row) {
        for (int column = 1; column <= MapModel::columns; ++column) {
            files.push_back(eventpath(currentMap_, row, column));
        }
    }
    return {map_, heroStart(), files};
}

void mapeditor::keepStep(const StepRecorder& recorder, std::string name)
{
    showChange();
    std::optional<UndoStep> step = recorder.finish(map_, heroStart());
    if (!step) {
        return;
    }
    step->map = historyKey();
    step->name = std::move(name);
    sayRemembered(history_.add(std::move(*step)));
}

void mapeditor::sayRemembered(Remembered remembered)
{
    if (remembered == Remembered::Nothing) {
        say(u"This cannot be undone: there is too much to remember."_s);
    } else if (remembered == Remembered::NotTheOldest && !toldForgetting_) {
        toldForgetting_ = true; // each further step drops one, too
        say(u"The oldest steps can no longer be undone."_s);
    }
}

void mapeditor::saveEvent(int row, int column, const std::vector<std::string>& lines)
{
    const Path file = eventpath(currentMap_, row, column);
    const StepRecorder before(map_, heroStart(), {file});
    saveevent(file, lines);
    events_.reset();
    keepStep(before, "Event of row " + std::to_string(row) + ", column " + std::to_string(column));
}

void mapeditor::undo()
{
    takeStep(&UndoHistory::undo, u"undone"_s);
}

void mapeditor::redo()
{
    takeStep(&UndoHistory::redo, u"done again"_s);
}

/// word: what became of the step, for the author.
void mapeditor::takeStep(UndoResult (UndoHistory::*take)(std::string_view, MapModel&, HeroStart&),
                         const QString& word)
{
    if (isForeign(word)) {
        return;
    }
    if (!Frame6->isHidden()) {
        return say(u"Not %1: save or cancel the event first."_s.arg(word));
    }
    HeroStart start = heroStart();
    const UndoResult result = (history_.*take)(historyKey(), map_, start);
    Label4->setText(shown(start.column));
    Label5->setText(shown(start.row));
    if (result.mapName) {
        Text1->setText(shown(*result.mapName));
    }
    drawmap();
    events_.reset();
    showChange();
    sayOutcome(result, word);
}

bool mapeditor::showsItsFiles() const
{
    MapModel loaded = map_;
    loaded.read(ReadWholeFile(MapFile(currentMap_)), ReadWholeFile(BlockFile(currentMap_)));
    return loaded == map_;
}

void mapeditor::sayOutcome(const UndoResult& result, const QString& word)
{
    switch (result.outcome) {
    case UndoOutcome::Nothing:
        return say(u"There is nothing to be %1."_s.arg(word));
    case UndoOutcome::Done:
        return say(
            u"%1: %2."_s.arg(shown(result.name), word) +
            (showsItsFiles() ? u""_s : u" The map's files hold something else. \"Load map\" shows it."_s));
    case UndoOutcome::ChangedElsewhere:
        return say(u"Not %1: this map's files were changed elsewhere. "
                   "\"Load map\" shows what they hold."_s.arg(word));
    case UndoOutcome::NotWritten:
        return say(u"Not wholly %1: a file cannot be written."_s.arg(word));
    }
}
