#include "inproject.h"

#include "build/scripts.h"
#include "events/eventstore.h"
#include "maps/maplist.h"
#include "store/codepage.h"
#include "variables/variables.h"

namespace
{

using Store = InProject;

} // namespace

TEST_F(Store, OnlyAPlainComponentNamesAProjectsFolderByTheCharactersOfItsBytes)
{
    EXPECT_EQ(ProjectFolder("Épée à 5 €"_ansi), app.at(u8"projets/Épée à 5 €"));
    EXPECT_EQ(DiskName("\xE9\x81"), Path(u8"\u00E9\u0081"));
    for (const std::string_view name : {"a b", "..a", ".hidden", "*?"}) {
        EXPECT_EQ(ProjectFolder(name).parent_path(), app.at("projets")) << name;
    }
    // Windows finds another folder by these.
    for (const std::string_view name : {" ", "...", ". .", "a\\b", "\\a", "C:", "C:a"}) {
        EXPECT_EQ(ProjectFolder(name).empty(), onWindows) << name;
    }
    for (const std::string_view name : {"", ".", "..", "/a", "a/", "a/b"}) {
        EXPECT_EQ(ProjectFolder(name), Path()) << name;
    }
    EXPECT_EQ(ProjectFolder(std::string_view("a\0b", 3)), Path());
}

TEST_F(Store, AProjectWithoutAFolderReadsEmptyAndIsNotWritten)
{
    // What a mistaken path would find: the same files where an empty folder or the folder of projects leads.
    for (const std::string place : {"", "projets/", "projets/demo/"}) {
        app.write(place + "projet.ini", "[Jeu]\r\ncartes=3\r\n[Variables]\r\nnombre=1\r\n");
        app.write(place + "ev/map01/ev11", "\r\nx\r\n");
    }
    const Path home = std::filesystem::current_path();
    std::filesystem::current_path(app.path());
    const Snapshot before = app.snapshot();
    for (const std::string name : {"", ".", "..", "demo/", "../projets/demo"}) {
        SetCurrentProject(name);
        EXPECT_EQ(MapCount(), std::nullopt) << name;
        EXPECT_EQ(VariableCountText(), "") << name;
        EXPECT_TRUE(loadevent(eventpath("01", 1, 1)).empty()) << name;
        EXPECT_EQ(EventScript(1).find('x'), std::string::npos) << name;
        WriteIni("Jeu", "nom", "new", Descriptor());
        WriteWholeFile("new", MapFile("01"));
        CopyWholeFile(app.at("data/ftgi.dat"), MapSheet("01"));
        saveevent(eventpath("01", 1, 1), {"new"});
        ClearEvents("01");
        SetStartValue(1, "new");
        WriteEventScript(1);
        WriteVariablesScript();
        EXPECT_FALSE(NewMap().failure.empty()) << name;
        EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
    }
    std::filesystem::current_path(home);
}

TEST_F(Store, AnIniFileInUtf16IsLeftAlone)
{
    const std::string utf16("\xFF\xFE[\0a\0]\0", 8);
    app.write("x.ini", utf16);
    WriteIni("a", "k", "v", app.at("x.ini"));
    EXPECT_EQ(app.read("x.ini"), utf16);
}

TEST(CodePage, KeepsEveryByteThroughUtf8AndReplacesWhatItLacks)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    EXPECT_EQ(AnsiFromUtf8(Utf8FromAnsi(bytes)), bytes);
    EXPECT_EQ("é ÿ € Ÿ œ “” …"_ansi, "\xE9 \xFF \x80 \x9F \x9C \x93\x94 \x85");
    EXPECT_EQ(Utf8FromAnsi("é ÿ € Ÿ œ “” …"_ansi), "é ÿ € Ÿ œ “” …");
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"aδb日\U0001F600", "a?b??"},
        {"\xE9z", "?z"},
        {"\xF5\x80", "??"},
        {"\xE0\x80\xAF", "???"},                    // "/" spelled too long
        {std::string_view("€").substr(0, 2), "??"}, // whatever follows the text
    };
    for (const auto& [utf8, ansi] : cases) {
        EXPECT_EQ(AnsiFromUtf8(utf8), ansi);
    }
}
