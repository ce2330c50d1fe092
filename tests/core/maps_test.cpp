#include "appdir.h"

#include "maps/maplist.h"
#include "maps/mapmodel.h"
#include "maps/tileset.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

/// Eight rows of seventeen cells, each row its own letter, ended by `lineEnd`.
std::string letterRows(std::string_view lineEnd = "\r\n")
{
    std::string text;
    for (char letter = 'a'; letter <= 'h'; ++letter) {
        text += std::string(16, letter) + static_cast<char>(letter - 'a' + 'A');
        text += lineEnd;
    }
    return text;
}

std::string zeroRows(int rows)
{
    std::string text;
    for (int row = 0; row < rows; ++row) {
        text += std::string(17, '0') + "\r\n";
    }
    return text;
}

std::string tileAt(const MapModel& map, int row, int column)
{
    return map.tiles[static_cast<std::size_t>(slotOf(row, column))].value_or("never set");
}

std::string blockAt(const MapModel& map, int row, int column)
{
    return map.blocks[static_cast<std::size_t>(slotOf(row, column))].value_or("never set");
}

class Maps : public testing::Test
{
protected:
    Maps() { app.makeProject(); }

    void setCount(std::string_view count) const { WriteIni("Jeu", "cartes", count, Descriptor()); }

    TemporaryAppDir app;
};

} // namespace

TEST(MapModel, IsReadByPosition)
{
    MapModel map;
    map.tiles[136] = "kept";
    map.blocks[200] = "kept";
    map.read("0305\r\n" + letterRows() + "row nine is not read", letterRows());
    EXPECT_EQ(tileAt(map, 1, 1), "a");
    EXPECT_EQ(tileAt(map, 1, 17), "A");
    EXPECT_EQ(tileAt(map, 2, 1), "b");
    EXPECT_EQ(tileAt(map, 8, 17), "H");
    EXPECT_EQ(blockAt(map, 1, 1), "a");
    EXPECT_EQ(blockAt(map, 8, 17), "H");
    EXPECT_EQ(map.tiles[136], "kept");
    EXPECT_EQ(map.blocks[136], std::nullopt);
    EXPECT_EQ(map.blocks[200], "kept");
}

TEST(MapModel, LinesThatEndInLfAloneAreMisread)
{
    MapModel map;
    map.read("0305\n" + letterRows("\n"), letterRows("\n"));
    EXPECT_EQ(tileAt(map, 1, 1), "a");
    EXPECT_EQ(tileAt(map, 1, 16), "A"); // its header is one short too
    EXPECT_EQ(tileAt(map, 1, 17), "\n");
    EXPECT_EQ(tileAt(map, 2, 1), "b");
    EXPECT_EQ(tileAt(map, 2, 15), "B");
    EXPECT_EQ(blockAt(map, 1, 17), "A");
    EXPECT_EQ(blockAt(map, 2, 16), "B");
    EXPECT_EQ(blockAt(map, 2, 17), "\n");
}

TEST(MapModel, EveryTruncationLeavesTheCellsPastTheEndEmpty)
{
    const std::string text = "0305\r\n" + letterRows();
    for (std::size_t length = 0; length <= text.size(); ++length) {
        MapModel map;
        map.reset();
        map.read(text.substr(0, length), text.substr(0, length));
        for (int row = 1; row <= 8; ++row) {
            for (int column = 1; column <= 17; ++column) {
                const auto position = static_cast<std::size_t>((row - 1) * 19 + column - 1);
                EXPECT_EQ(tileAt(map, row, column),
                          position + 6 < length ? text.substr(position + 6, 1) : "");
                EXPECT_EQ(blockAt(map, row, column), position < length ? text.substr(position, 1) : "");
            }
        }
        EXPECT_EQ(HeroStartColumn(text.substr(0, length)), std::string("03").substr(0, length));
        EXPECT_EQ(HeroStartRow(text.substr(0, length)),
                  length < 2 ? "" : std::string("05").substr(0, length - 2));
        if (HasFailure()) {
            return;
        }
    }
}

TEST(MapModel, WritesHeaderNineRowsAndWhatWasReadComesBack)
{
    MapModel map;
    map.read("0305\r\n2" + zeroRows(8).substr(1), "1" + zeroRows(8).substr(1));
    EXPECT_EQ(MapFileText(map, 3, 5), "0305\r\n2" + zeroRows(8).substr(1) + "\r\n");
    EXPECT_EQ(BlockFileText(map), "1" + zeroRows(8).substr(1) + "\r\n");
    MapModel again;
    again.read(MapFileText(map, 3, 5), BlockFileText(map));
    EXPECT_EQ(again.tiles, map.tiles);
    EXPECT_EQ(again.blocks, map.blocks);
}

TEST(MapModel, HeroStartIsWrittenInTwoDigits)
{
    EXPECT_TRUE(MapFileText({}, 9, 1).starts_with("0901\r\n"));
    EXPECT_TRUE(MapFileText({}, 17, 10).starts_with("1710\r\n"));
}

TEST(MapModel, SlotsNeverSetOrEmptyWriteNothing)
{
    MapModel map;
    EXPECT_EQ(BlockFileText(map), "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
    map.tiles[1] = "10";
    map.tiles[2] = "";
    map.tiles[136] = "7"; // the ninth row
    map.tiles[152] = "8";
    map.tiles[153] = "beyond";
    EXPECT_EQ(MapFileText(map, 1, 1), "0101\r\n10\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n78\r\n");
}

TEST(MapModel, ResetSetsEverySlotToZero)
{
    MapModel map;
    map.tiles[200] = "x";
    map.reset();
    for (std::size_t slot = 0; slot < map.tiles.size(); ++slot) {
        EXPECT_EQ(map.tiles[slot], "0");
        EXPECT_EQ(map.blocks[slot], "0");
    }
    EXPECT_EQ(MapFileText(map, 1, 1), "0101\r\n" + zeroRows(9));
}

TEST(MapModel, OnlyOneBlocksACellAndATogglingTurnsTheRestIntoOne)
{
    MapModel map;
    for (const std::optional<std::string>& flag :
         {std::optional<std::string>(), {"0"}, {""}, {"2"}, {"11"}, {"01"}}) {
        map.blocks[20] = flag;
        EXPECT_FALSE(map.isBlocked(20));
        map.toggleBlock(20);
        EXPECT_TRUE(map.isBlocked(20));
        map.toggleBlock(20);
        EXPECT_EQ(map.blocks[20], "0");
    }
    EXPECT_EQ(map.blocks[19], std::nullopt);
}

TEST_F(Maps, ANewMapIsOneMoreThanTheCount)
{
    struct Case {
        std::string_view count;
        std::string number;
    };
    for (const Case& c : std::vector<Case>{
             {"0", "01"}, {"1", "02"}, {"02", "03"}, {"9", "10"}, {"99", "100"}, {"32766", "32767"}}) {
        setCount(c.count);
        const NewMapResult result = NewMap();
        EXPECT_EQ(result.mapNumber, c.number);
        EXPECT_EQ(result.failure, "");
        EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), c.number);
    }
}

TEST_F(Maps, ANewMapAddsItsFilesAndKeysAndNothingElse)
{
    app.write("data/ftgmev.dat", "blocks");
    app.write("data/ftgmma.dat", "tiles");
    Snapshot expected = app.snapshot();
    expected["projets/demo/images/map02"] = "folder";
    expected["projets/demo/images/map02/terrain.png"] = "sheet 01";
    expected["projets/demo/ev/map02"] = "folder";
    expected["projets/demo/map02.ev"] = "blocks\r\n";
    expected["projets/demo/map02.map"] = "tiles\r\n";
    std::string& descriptor = expected["projets/demo/projet.ini"];
    descriptor.replace(descriptor.find("cartes=1"), 8, "cartes=02");
    descriptor += "[Carte02]\r\ntexture=01\r\nnom=Carte 1\r\n";
    EXPECT_EQ(NewMap().mapNumber, "02");
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}

TEST_F(Maps, WithoutACountANewMapSaysWhyAndDoesNothing)
{
    for (const std::string_view count : {"", "x", "-1", "1.5", "32767", "32768"}) {
        setCount(count);
        const Snapshot before = app.snapshot();
        const NewMapResult result = NewMap();
        EXPECT_EQ(result.mapNumber, "") << count;
        EXPECT_NE(result.failure, "") << count;
        EXPECT_EQ(Changes(before, app.snapshot()), "") << count;
    }
}

TEST_F(Maps, FilesOfANewMapThatLieThereAreKept)
{
    app.write("projets/demo/map02.map", "my map");
    app.write("projets/demo/map02.ev", "my blocks");
    app.write("projets/demo/ev/map02/ev11", "my event");
    app.write("projets/demo/images/map02/terrain.png", "my sheet");
    WriteIni("Carte02", "texture", "03", Descriptor());
    EXPECT_EQ(NewMap().mapNumber, "02");
    EXPECT_EQ(app.read("projets/demo/images/map02/terrain.png"), "my sheet");
    EXPECT_EQ(ReadIni("Carte02", "texture", Descriptor()), "03");
    EXPECT_EQ(ReadIni("Carte02", "nom", Descriptor()), "Carte 1") << "what is missing is added";
    EXPECT_EQ(app.read("projets/demo/map02.map"), "my map");
    EXPECT_EQ(app.read("projets/demo/map02.ev"), "my blocks");
    EXPECT_EQ(app.read("projets/demo/ev/map02/ev11"), "my event");
}

TEST_F(Maps, ANewMapThatFailsLeavesTheDescriptor)
{
    const std::string descriptor = app.read("projets/demo/projet.ini");
    const std::vector<std::pair<std::string, std::string>> obstacles = {
        {"projets/demo/images/map02", "map02"}, {"projets/demo/ev/map02", "map02"}};
    for (const auto& [file, named] : obstacles) {
        app.write(file, "a file where a folder belongs");
        const NewMapResult result = NewMap();
        EXPECT_EQ(result.mapNumber, "");
        EXPECT_NE(result.failure.find(named), std::string::npos) << result.failure;
        EXPECT_EQ(app.read("projets/demo/projet.ini"), descriptor);
        app.remove(file);
    }
    app.remove("data/images/terrains/terrain01/terrain01.png");
    EXPECT_NE(NewMap().failure.find("terrain01.png"), std::string::npos);
    EXPECT_EQ(app.read("projets/demo/projet.ini"), descriptor);
}

TEST_F(Maps, ANewMapThatCannotBeCountedIsNoMap)
{
    std::filesystem::permissions(Descriptor(), std::filesystem::perms::owner_read);
    EXPECT_EQ(NewMap().mapNumber, "");
    EXPECT_NE(NewMap().failure.find("projet.ini"), std::string::npos);
}

TEST_F(Maps, ANewMapWithoutTemplatesHoldsJustCrLf)
{
    app.remove("data/ftgmev.dat");
    app.remove("data/ftgmma.dat");
    EXPECT_EQ(NewMap().mapNumber, "02");
    EXPECT_EQ(app.read("projets/demo/map02.map"), "\r\n");
    EXPECT_EQ(app.read("projets/demo/map02.ev"), "\r\n");
}

TEST_F(Maps, APlaceOnThePictureBelongsToOneCell)
{
    struct Case {
        int x;
        int y;
        Cell cell;
    };
    for (const Case& c : std::vector<Case>{{0, 0, {1, 1}},
                                           {419, 434, {1, 1}},
                                           {420, 435, {2, 2}},
                                           {850, 100, {1, 3}},
                                           {7139, 3479, {8, 17}},
                                           {0, 3480, {9, 1}},
                                           {7139, 3734, {9, 17}},
                                           {7140, 0, {0, 0}},
                                           {-1, 0, {0, 0}},
                                           {0, -1, {0, 0}},
                                           {0, 3915, {0, 0}}}) {
        EXPECT_EQ(cellAt(c.x, c.y).row, c.cell.row) << c.x << ", " << c.y;
        EXPECT_EQ(cellAt(c.x, c.y).column, c.cell.column) << c.x << ", " << c.y;
    }
}

TEST_F(Maps, NamesAreListedByNumber)
{
    WriteIni("CARTE03", "nom", "Cave", Descriptor());
    WriteIni("Carte10", "nom", "Roof", Descriptor());
    EXPECT_EQ(MapNames(3), (std::vector<std::string>{"Carte 1", "", "Cave"}));
    EXPECT_EQ(MapNames(10).back(), "Roof");
    EXPECT_TRUE(MapNames(0).empty());
}

TEST_F(Maps, FilesAreNamedByTheMapsNumber)
{
    EXPECT_EQ(MapFile("07"), app.at("projets/demo/map07.map"));
    EXPECT_EQ(BlockFile("10"), app.at("projets/demo/map10.ev"));
    EXPECT_EQ(MapSheet("07"), app.at("projets/demo/images/map07/terrain.png"));
}

TEST_F(Maps, TilesetsAreCountedUpToTheFirstGap)
{
    EXPECT_EQ(TilesetCount(), 1);
    for (int number = 2; number <= 12; ++number) {
        app.addTileset(MapNumberText(number), "4");
    }
    app.remove("data/images/terrains/terrain12");
    app.addTileset("13", "4");
    EXPECT_EQ(TilesetCount(), 11);
    app.addTileset("04", "");
    EXPECT_EQ(TilesetCount(), 3);
    app.addTileset("02", "not a number"); // known by its text, whatever it says
    EXPECT_EQ(TilesetCount(), 3);
    app.remove("data/images/terrains/terrain01/texture.ini");
    EXPECT_EQ(TilesetCount(), 0);
}

TEST_F(Maps, TilesetFilesAreNamedByTheirNumber)
{
    EXPECT_EQ(TilePicture("02", 9), app.at("data/images/terrains/terrain02/terrain09.JPG"));
    EXPECT_EQ(TilePicture("02", 10), app.at("data/images/terrains/terrain02/terrain010.JPG"));
    EXPECT_EQ(TilesetSheet("10"), app.at("data/images/terrains/terrain10/terrain01.png"));
}

TEST_F(Maps, ATilesetOffersTheTilesThatItsDescriptorTells)
{
    EXPECT_EQ(TileCount("01"), 9);
    EXPECT_EQ(TileCount("02"), 0);
    for (const auto& [text, count] : {std::pair("010", 10), std::pair("x", 0), std::pair("-4", 0)}) {
        app.addTileset("02", text);
        EXPECT_EQ(TileCount("02"), count) << text;
    }
}

TEST_F(Maps, ATilesetNumberCannotLeadOutOfTheFolderOfTilesets)
{
    app.write("data/texture.ini", "[texture]\r\nnbimg=5\r\n");
    std::filesystem::create_directory(app.at("data/images/terrains/terrain"));
    for (const std::string_view number : {std::string_view("/../../.."), std::string_view("01/"),
                                          std::string_view("01/../terrain01"), std::string_view("01\0", 3)}) {
        EXPECT_EQ(TilesetFolder(number), Path()) << number;
        EXPECT_EQ(TilePicture(number, 1), Path()) << number;
        EXPECT_EQ(TilesetSheet(number), Path()) << number;
        EXPECT_EQ(TileCount(number), 0) << number;
    }
}
