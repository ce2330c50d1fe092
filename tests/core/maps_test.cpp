#include "inproject.h"

#include "maps/maplist.h"
#include "maps/mapmodel.h"
#include "maps/tileset.h"

#include <vector>

namespace
{

/// Eight rows of seventeen cells, each row its own letter, ended by `lineEnd`.
std::string letterRows(std::string_view lineEnd)
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

class Maps : public InProject
{
protected:
    /// The files once map 02 is counted; `keys`: what its making adds to the descriptor.
    Snapshot withSecondMap(const std::string& keys) const
    {
        Snapshot files = app.snapshot();
        std::string& descriptor = files["projets/demo/projet.ini"];
        descriptor.replace(descriptor.find("cartes=1"), 8, "cartes=02");
        descriptor += keys;
        return files;
    }
};

} // namespace

TEST(MapModel, IsReadByPositionAndWhatLiesPastTheEndIsEmpty)
{
    for (const std::string lineEnd : {"\r\n", "\n"}) { // the second shifts each row by one
        const std::string whole = "0305" + lineEnd + letterRows(lineEnd) + "row nine is not read";
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            const std::string text = whole.substr(0, length);
            MapModel map;
            map.tiles[136] = "kept";
            map.read(text, text);
            for (std::size_t cell = 0; cell < 8 * 17; ++cell) {
                const std::size_t position = cell / 17 * 19 + cell % 17;
                ASSERT_EQ(map.tiles[cell], position + 6 < length ? text.substr(position + 6, 1) : "");
                ASSERT_EQ(map.blocks[cell], position < length ? text.substr(position, 1) : "");
            }
            ASSERT_EQ(map.tiles[136], "kept");
            ASSERT_EQ(HeroStartColumn(text), text.substr(0, 2));
            ASSERT_EQ(HeroStartRow(text), length < 2 ? "" : text.substr(2, 2));
        }
    }
}

TEST(MapModel, WritesHeaderNineRowsAndWhatWasReadComesBack)
{
    MapModel map;
    map.read("0305\r\n2" + zeroRows(8).substr(1), "1" + zeroRows(8).substr(1));
    EXPECT_EQ(MapFileText(map, 9, 10), "0910\r\n2" + zeroRows(8).substr(1) + "\r\n");
    EXPECT_EQ(BlockFileText(map), "1" + zeroRows(8).substr(1) + "\r\n");
    map.reset();
    EXPECT_EQ(MapFileText(map, 1, 1) + BlockFileText(map), "0101\r\n" + zeroRows(18));
    MapModel never;
    never.tiles[1] = "10";
    never.tiles[2] = "";
    never.tiles[136] = "7"; // the ninth row
    never.tiles[152] = "8";
    never.tiles[153] = "beyond";
    EXPECT_EQ(MapFileText(never, 1, 1), "0101\r\n10\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n78\r\n");
}

TEST(MapModel, OnlyOneBlocksACellAndATogglingTurnsTheRestIntoOne)
{
    MapModel map;
    for (const std::optional<std::string>& flag :
         {std::optional<std::string>(), {"0"}, {""}, {"2"}, {"11"}}) {
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
    const std::vector<std::pair<Cell, Cell>> cases = {
        // a place's y and x, and its cell
        {{434, 419}, {1, 1}}, {{435, 420}, {2, 2}}, {{3914, 7139}, {9, 17}}, {{0, 7140}, {0, 0}},
        {{0, -1}, {0, 0}},    {{-1, 0}, {0, 0}},    {{3915, 0}, {0, 0}}};
    for (const auto& [place, cell] : cases) {
        EXPECT_EQ(cellAt(place.column, place.row), cell) << place.column << ", " << place.row;
    }
}

TEST_F(Maps, ANewMapIsOneMoreThanTheCountOrSaysWhyAndDoesNothing)
{
    const std::vector<std::pair<std::string_view, std::string>> cases = {
        {"0", "01"},   {"02", "03"}, {"9", "10"}, {"99", "100"}, {"32766", "32767"},
        {"32767", ""}, {"", ""},     {"x", ""},   {"-1", ""}};
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
    Snapshot expected = withSecondMap("[Carte02]\r\ntexture=01\r\nnom=Carte 1\r\n");
    expected["projets/demo/images/map02"] = "folder";
    expected["projets/demo/images/map02/terrain.png"] = "sheet 01";
    expected["projets/demo/ev/map02"] = "folder";
    expected["projets/demo/map02.ev"] = "blocks\r\n";
    expected["projets/demo/map02.map"] = "\r\n";
    EXPECT_EQ(NewMap().mapNumber, "02");
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}

TEST_F(Maps, FilesOfANewMapThatLieThereAreKept)
{
    for (const std::string name : {"map02.map", "map02.ev", "ev/map02/ev11", "images/map02/terrain.png"}) {
        app.write("projets/demo/" + name, "mine");
    }
    WriteIni("Carte02", "texture", "03", Descriptor());
    const Snapshot expected = withSecondMap("nom=Carte 1\r\n");
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

TEST_F(Maps, TilesetsAreCountedUpToTheFirstGap)
{
    for (const int number : {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13}) {
        app.addTileset(MapNumberText(number), "4");
    }
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
}
