#include "inproject.h"

#include "maps/maplist.h"
#include "maps/mapmodel.h"
#include "maps/tileset.h"

#include <algorithm>
#include <vector>

namespace
{

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
    std::string text; // longer than a map, and another one at every position
    for (int byte = 255; byte > 0; --byte) {
        text += static_cast<char>(byte);
    }
    for (; !text.empty(); text.pop_back()) {
        MapModel map;
        map.tiles[136] = "kept"; // the first of the ninth row
        map.read(text, text);
        for (std::size_t cell = 0; cell < 8 * 17; ++cell) {
            const std::size_t position = cell / 17 * 19 + cell % 17;
            ASSERT_EQ(map.tiles[cell], position + 6 < text.size() ? text.substr(position + 6, 1) : "");
            ASSERT_EQ(map.blocks[cell], position < text.size() ? text.substr(position, 1) : "");
        }
        ASSERT_EQ(map.tiles[136], "kept");
        ASSERT_EQ(HeroStartColumn(text), text.substr(0, 2));
        ASSERT_EQ(HeroStartRow(text), text.size() < 2 ? "" : text.substr(2, 2));
    }
}

TEST(MapModel, WritesHeaderNineRowsAndWhatWasReadComesBack)
{
    std::string rest(16, '0'); // of the first row, and the others
    for (int row = 2; row <= 8; ++row) {
        rest += "\r\n" + std::string(17, '0');
    }
    MapModel map;
    map.read("0305\r\n2" + rest, "1" + rest);
    EXPECT_EQ(MapFileText(map, 9, 10), "0910\r\n2" + rest + "\r\n\r\n");
    EXPECT_EQ(BlockFileText(map), "1" + rest + "\r\n\r\n");
    map.reset();
    EXPECT_EQ(map.tiles, map.blocks);
    EXPECT_EQ(std::count(map.tiles.begin(), map.tiles.end(), "0"), MapModel::slots);
    MapModel never;
    never.tiles[1] = "10";
    never.tiles[2] = "";
    never.tiles[136] = "7"; // the ninth row
    never.tiles[152] = "8";
    never.tiles[153] = "beyond";
    EXPECT_EQ(MapFileText(never, 1, 1), "0101\r\n10\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n78\r\n");
}

TEST(MapModel, APlaceOnThePictureBelongsToOneCell)
{
    EXPECT_EQ(cellAt(419, 434), (Cell{1, 1}));
    EXPECT_EQ(cellAt(420, 435), (Cell{2, 2}));
    EXPECT_EQ(cellAt(7139, 3914), (Cell{9, 17}));
    for (const auto& [x, y] : {std::pair(7140, 0), {0, 3915}, {-1, 0}, {0, -1}}) {
        EXPECT_EQ(cellAt(x, y), Cell{}) << x << ", " << y;
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

TEST_F(Maps, TilesetsAreCountedUpToTheFirstGapAndOfferTheTilesThatTheirDescriptorsTell)
{
    for (const int number : {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13}) {
        app.addTileset(MapNumberText(number), "010");
    }
    EXPECT_EQ(TilesetCount(), 11);
    EXPECT_EQ(TileCount("02"), 10);
    app.addTileset("02", "not a number"); // known by its text, whatever it says
    app.addTileset("03", "-4");
    app.addTileset("04", "");
    EXPECT_EQ(TilesetCount(), 3);
    for (const std::string_view number : {"02", "03", "12"}) {
        EXPECT_EQ(TileCount(number), 0) << number;
    }
    EXPECT_EQ(TilePicture("02", 9), app.at("data/images/terrains/terrain02/terrain09.JPG"));
    EXPECT_EQ(TilePicture("02", 10), app.at("data/images/terrains/terrain02/terrain010.JPG"));
}
