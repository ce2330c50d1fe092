#include "inproject.h"

#include "maps/maplist.h"
#include "maps/mapmodel.h"
#include "maps/tileset.h"

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

std::string at(const MapModel::Slots& slots, int row, int column)
{
    return slots[static_cast<std::size_t>(slotOf(row, column))].value_or("never set");
}

using Maps = InProject;

} // namespace

TEST(MapModel, IsReadByPosition)
{
    MapModel map;
    map.tiles[136] = map.blocks[200] = "kept";
    map.read("0305\r\n" + letterRows() + "row nine is not read", letterRows());
    EXPECT_EQ(map.tiles[136], "kept");
    EXPECT_EQ(map.blocks[136], std::nullopt);
    EXPECT_EQ(map.blocks[200], "kept");
    map.read("0305\n" + letterRows("\n"),
             letterRows("\n")); // LF alone shifts each row by one, and the header
    EXPECT_EQ(at(map.tiles, 1, 16) + at(map.tiles, 1, 17) + at(map.tiles, 2, 15), "A\nB");
    EXPECT_EQ(at(map.blocks, 1, 17) + at(map.blocks, 2, 16) + at(map.blocks, 2, 17), "AB\n");
}

TEST(MapModel, EveryTruncationLeavesTheCellsPastTheEndEmpty)
{
    const std::string whole = "0305\r\n" + letterRows();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string text = whole.substr(0, length);
        MapModel map;
        map.reset();
        map.read(text, text);
        for (std::size_t cell = 0; cell < 8 * 17; ++cell) {
            const std::size_t position = cell / 17 * 19 + cell % 17;
            ASSERT_EQ(map.tiles[cell], position + 6 < length ? text.substr(position + 6, 1) : "");
            ASSERT_EQ(map.blocks[cell], position < length ? text.substr(position, 1) : "");
        }
        ASSERT_EQ(HeroStartColumn(text), text.substr(0, 2));
        ASSERT_EQ(HeroStartRow(text), length < 2 ? "" : text.substr(2, 2));
    }
}

TEST(MapModel, WritesHeaderNineRowsAndWhatWasReadComesBack)
{
    MapModel map;
    map.read("0305\r\n2" + zeroRows(8).substr(1), "1" + zeroRows(8).substr(1));
    EXPECT_EQ(MapFileText(map, 9, 10), "0910\r\n2" + zeroRows(8).substr(1) + "\r\n");
    EXPECT_EQ(BlockFileText(map), "1" + zeroRows(8).substr(1) + "\r\n");
    MapModel never;
    EXPECT_EQ(BlockFileText(never), "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
    never.tiles[1] = "10";
    never.tiles[2] = "";
    never.tiles[136] = "7"; // the ninth row
    never.tiles[152] = "8";
    never.tiles[153] = "beyond";
    EXPECT_EQ(MapFileText(never, 1, 1), "0101\r\n10\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n78\r\n");
    map.tiles[153] = "beyond";
    map.reset();
    EXPECT_EQ(map.tiles[153], "0");
    EXPECT_EQ(MapFileText(map, 1, 1) + BlockFileText(map), "0101\r\n" + zeroRows(18));
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

TEST(MapModel, APlaceOnThePictureBelongsToOneCell)
{
    struct Case {
        int x;
        int y;
        Cell cell;
    };
    const std::vector<Case> cases = {{0, 0, {1, 1}},        {419, 434, {1, 1}}, {420, 435, {2, 2}},
                                     {7139, 3479, {8, 17}}, {0, 3480, {9, 1}},  {7139, 3914, {9, 17}},
                                     {7140, 0, {0, 0}},     {-1, 0, {0, 0}},    {0, -1, {0, 0}},
                                     {0, 3915, {0, 0}}};
    for (const auto& [x, y, cell] : cases) {
        EXPECT_EQ(cellAt(x, y), cell) << x << ", " << y;
    }
}

TEST_F(Maps, ANewMapIsOneMoreThanTheCountOrSaysWhyAndDoesNothing)
{
    const std::vector<std::pair<std::string_view, std::string>> cases = {
        {"0", "01"},   {"02", "03"}, {"9", "10"}, {"99", "100"}, {"32766", "32767"}, {"32767", ""},
        {"32768", ""}, {"", ""},     {"x", ""},   {"-1", ""},    {"1.5", ""}};
    for (const auto& [count, number] : cases) {
        WriteIni("Jeu", "cartes", count, Descriptor());
        const Snapshot before = app.snapshot();
        const NewMapResult result = NewMap();
        EXPECT_EQ(result.mapNumber, number);
        EXPECT_EQ(result.failure.empty(), !number.empty()) << count;
        EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), number.empty() ? count : number);
        EXPECT_EQ(app.snapshot() == before, number.empty()) << count;
    }
}

TEST_F(Maps, ANewMapAddsItsFilesAndKeysAndNothingElse)
{
    app.write("data/ftgmev.dat", "blocks");
    app.remove("data/ftgmma.dat");
    Snapshot expected = app.snapshot();
    expected["projets/demo/images/map02"] = "folder";
    expected["projets/demo/images/map02/terrain.png"] = "sheet 01";
    expected["projets/demo/ev/map02"] = "folder";
    expected["projets/demo/map02.ev"] = "blocks\r\n";
    expected["projets/demo/map02.map"] = "\r\n";
    std::string& descriptor = expected["projets/demo/projet.ini"];
    descriptor.replace(descriptor.find("cartes=1"), 8, "cartes=02");
    descriptor += "[Carte02]\r\ntexture=01\r\nnom=Carte 1\r\n";
    EXPECT_EQ(NewMap().mapNumber, "02");
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}

TEST_F(Maps, FilesOfANewMapThatLieThereAreKept)
{
    for (const std::string name : {"map02.map", "map02.ev", "ev/map02/ev11", "images/map02/terrain.png"}) {
        app.write("projets/demo/" + name, "mine");
    }
    WriteIni("Carte02", "texture", "03", Descriptor());
    Snapshot expected = app.snapshot();
    std::string& descriptor = expected["projets/demo/projet.ini"];
    descriptor.replace(descriptor.find("cartes=1"), 8, "cartes=02");
    descriptor += "nom=Carte 1\r\n"; // what is missing is added
    EXPECT_EQ(NewMap().mapNumber, "02");
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}

TEST_F(Maps, ANewMapThatFailsLeavesTheDescriptorAndSaysWhy)
{
    const std::string descriptor = app.read("projets/demo/projet.ini");
    const auto expectFailure = [&](const std::string& named) {
        const NewMapResult result = NewMap();
        EXPECT_EQ(result.mapNumber, "");
        EXPECT_NE(result.failure.find(named), std::string::npos) << result.failure;
        EXPECT_EQ(app.read("projets/demo/projet.ini"), descriptor);
    };
    for (const std::string folder : {"projets/demo/images/map02", "projets/demo/ev/map02"}) {
        app.write(folder, "a file where a folder belongs");
        expectFailure("map02");
        app.remove(folder);
    }
    const std::string sheet = "data/images/terrains/terrain01/terrain01.png";
    app.remove(sheet);
    expectFailure("terrain01.png");
    app.write(sheet, "sheet");
    std::filesystem::permissions(Descriptor(), std::filesystem::perms::owner_read);
    expectFailure("projet.ini");
}

TEST_F(Maps, AreNamedByTheirNumber)
{
    WriteIni("CARTE03", "nom", "Cave", Descriptor());
    WriteIni("Carte10", "nom", "Roof", Descriptor());
    EXPECT_EQ(MapNames(3), (std::vector<std::string>{"Carte 1", "", "Cave"}));
    EXPECT_EQ(MapNames(10).back(), "Roof");
    EXPECT_EQ(MapFile("07"), app.at("projets/demo/map07.map"));
    EXPECT_EQ(BlockFile("10"), app.at("projets/demo/map10.ev"));
    EXPECT_EQ(MapSheet("07"), app.at("projets/demo/images/map07/terrain.png"));
}

TEST_F(Maps, TilesetsAreCountedUpToTheFirstGap)
{
    for (int number = 2; number <= 12; ++number) {
        app.addTileset(MapNumberText(number), "4");
    }
    app.remove("data/images/terrains/terrain12");
    app.addTileset("13", "4");
    EXPECT_EQ(TilesetCount(), 11);
    app.addTileset("02", "not a number"); // known by its text, whatever it says
    app.addTileset("04", "");
    EXPECT_EQ(TilesetCount(), 3);
}

TEST_F(Maps, ATilesetOffersTheTilesThatItsDescriptorTells)
{
    for (const auto& [text, count] : {std::pair("010", 10), std::pair("x", 0), std::pair("-4", 0)}) {
        app.addTileset("02", text);
        EXPECT_EQ(TileCount("02"), count) << text;
    }
    EXPECT_EQ(TileCount("03"), 0);
    EXPECT_EQ(TilePicture("02", 9), app.at("data/images/terrains/terrain02/terrain09.JPG"));
    EXPECT_EQ(TilePicture("02", 10), app.at("data/images/terrains/terrain02/terrain010.JPG"));
    EXPECT_EQ(TilesetSheet("10"), app.at("data/images/terrains/terrain10/terrain01.png"));
}

TEST_F(Maps, ATilesetNumberCannotLeadOutOfTheFolderOfTilesets)
{
    app.write("data/texture.ini", "[texture]\r\nnbimg=5\r\n");
    std::filesystem::create_directory(app.at("data/images/terrains/terrain"));
    for (const std::string_view number : {std::string_view("/../../.."), std::string_view("01/"),
                                          std::string_view("01/../terrain01"), std::string_view("01\0", 3)}) {
        EXPECT_EQ(TilePicture(number, 1), Path()) << number;
        EXPECT_EQ(TilesetSheet(number), Path()) << number;
        EXPECT_EQ(TileCount(number), 0) << number;
    }
}
