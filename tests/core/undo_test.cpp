#include "inproject.h"

#include "events/eventmarks.h"
#include "events/eventstore.h"
#include "maps/undo.h"

#include <functional>

namespace
{

using Content = std::optional<std::string>; ///< nothing for a file that is missing

class Undo : public InProject
{
protected:
    Undo()
    {
        put("a", "one");
        put("b", "two");
    }

    void put(const std::string& name, const Content& content) const
    {
        if (content) {
            app.write("projets/demo/" + name, *content);
        } else {
            app.remove("projets/demo/" + name);
        }
    }

    /// Does a click that may change the files a and b.
    void click(const std::function<void()>& change, const std::string& mapName = "01")
    {
        const StepRecorder recorder(map, start, {ProjectFile("a"), ProjectFile("b")}, "Carte01");
        change();
        if (auto step = recorder.finish(map, start)) {
            step->map = mapName;
            history.add(std::move(*step));
        }
    }
    UndoOutcome undo(const std::string& mapName = "01") { return history.undo(mapName, map, start).outcome; }
    UndoOutcome redo(const std::string& mapName = "01") { return history.redo(mapName, map, start).outcome; }

    MapModel map;
    HeroStart start{"01", "1"};
    UndoHistory history;
};

} // namespace

TEST_F(Undo, GoesBackAndForthByteForByte)
{
    const std::string odd("\0\r\n\xFF", 4);
    const std::vector<std::pair<Content, Content>> cases = {{"aXc", "aYc"},   {"", "new"},   {"gone", {}},
                                                            {odd, odd + odd}, {"aaa", "aa"}, {{}, ""}};
    for (const auto& [before, after] : cases) {
        put("a", before);
        const Snapshot old = app.snapshot();
        click([&, &content = after] { put("a", content); });
        const Snapshot now = app.snapshot();
        EXPECT_EQ(undo(), UndoOutcome::Done);
        EXPECT_EQ(Changes(old, app.snapshot()), "") << before.value_or("missing");
        EXPECT_EQ(redo(), UndoOutcome::Done);
        EXPECT_EQ(Changes(now, app.snapshot()), "") << before.value_or("missing");
    }
}

TEST_F(Undo, BringsBackTheNameOfAMapByItsKeyAlone)
{
    const auto valueOf = [](const char* section, const char* key) {
        return ReadIni(section, key, Descriptor());
    };
    const auto setName = [](const std::string& value) { WriteIni("Carte01", "nom", value, Descriptor()); };
    for (const std::string old : {"", " blanks ", "'quoted'"}) {
        setName('"' + old + '"');
        click([&] { setName("Lake"); });
        WriteIni("Jeu", "cartes", "7", Descriptor()); // a map was made meanwhile
        EXPECT_EQ(undo(), UndoOutcome::Done);
        EXPECT_EQ(valueOf("Carte01", "nom"), old);
        EXPECT_EQ(redo(), UndoOutcome::Done);
        EXPECT_EQ(valueOf("Carte01", "nom"), "Lake");
        EXPECT_EQ(valueOf("Jeu", "cartes"), "7");
        setName("Forest");
        EXPECT_EQ(undo(), UndoOutcome::ChangedElsewhere);
        EXPECT_EQ(valueOf("Carte01", "nom"), "Forest");
    }
}

TEST_F(Undo, AFileThatIsNotWhatTheStepLeftRefusesIt)
{
    click([&] {
        map.tiles[0] = "1";
        put("a", "ONE");
    });
    const MapModel after = map;
    const std::vector<std::pair<std::string, Content>> others = {
        {"a", "onE"}, {"a", "ONE "}, {"a", {}}, {"b", "Two"}, {"b", {}}};
    for (const auto& [name, content] : others) {
        put(name, content);
        const Snapshot found = app.snapshot();
        EXPECT_EQ(undo(), UndoOutcome::ChangedElsewhere) << name;
        EXPECT_EQ(Changes(found, app.snapshot()), "");
        EXPECT_EQ(map, after);
        put("a", "ONE");
        put("b", "two");
    }
    EXPECT_EQ(undo(), UndoOutcome::Done); // once it is again, the step is still there
}

TEST_F(Undo, TriesAgainWhatCouldNotBeWritten)
{
    app.write("projets/demo/folder/c", "three");
    const StepRecorder recorder(map, start, {ProjectFile("a"), ProjectFile("folder/c")});
    put("a", "ONE");
    app.remove("projets/demo/folder");
    history.add(*recorder.finish(map, start));
    EXPECT_EQ(undo(""), UndoOutcome::NotWritten); // there is no folder for it
    EXPECT_EQ(app.read("projets/demo/a"), "one");
    std::filesystem::create_directory(app.at("projets/demo/folder"));
    EXPECT_EQ(undo(""), UndoOutcome::Done);
    EXPECT_EQ(app.read("projets/demo/folder/c"), "three");
}

TEST_F(Undo, BringsBackTheMapAndTheHerosStartOneStepAtATimeOfEachMapAlone)
{
    const MapModel before = map;
    click([] {}); // changes nothing, so it is no step
    click([&] { map.reset(); }, "01");
    click([&] { start = {"17", "9"}; }, "01");
    click([&] { map.tiles[1] = "2"; }, "02");
    EXPECT_EQ(undo("01"), UndoOutcome::Done);
    EXPECT_EQ(start, (HeroStart{"01", "1"}));
    EXPECT_EQ(map.tiles[1], "2");
    EXPECT_EQ(undo("02"), UndoOutcome::Done);
    EXPECT_EQ(undo("01"), UndoOutcome::Done);
    EXPECT_EQ(map, before);
    EXPECT_EQ(undo("01"), UndoOutcome::Nothing);
    click([&] { map.tiles[200] = "3"; }, "02");
    EXPECT_EQ(redo("01"), UndoOutcome::Done); // a step on another map does not end it
    EXPECT_EQ(map.tiles[5], "0");
    click([&] { map.tiles[3] = "4"; }, "01");
    EXPECT_EQ(redo("01"), UndoOutcome::Nothing);
}

TEST_F(Undo, ACellHasAnEventWhenItsFileHoldsAnEntry)
{
    int column = 0;
    for (const std::string text : {"", "\r\n", "\r\n\r\n", "a\r\n", "abc\r\n", "\r\na\r\n", "\r\nno end"}) {
        put("ev/map01/ev9" + std::to_string(++column), text);
        const bool marked = CellsWithEvents("01")[static_cast<std::size_t>(slotOf(9, column))];
        EXPECT_EQ(marked, !loadevent(eventpath("01", 9, column)).empty()) << text;
    }
    EXPECT_EQ(CellsWithEvents("01").count(), 3U);
    EXPECT_TRUE(CellsWithEvents("77").none());
}
