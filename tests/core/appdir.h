/// A tool folder of its own for each test: laid out with tiny templates and made AppDir.
#pragma once

#include "tempfolder.h"

#include "project/creation.h"
#include "store/store.h"

#include <array>

/// Names on disk are found whatever their case there, "\\" separates them too and their end may be cut.
constexpr bool onWindows = Path::preferred_separator == '\\';

class TemporaryAppDir : public TempFolder
{
public:
    TemporaryAppDir()
    {
        std::filesystem::create_directory(at("projets"));
        writeTemplates();
        SetAppDir(path());
        SetCurrentProject("");
    }
    ~TemporaryAppDir() { SetCurrentProject(""); }

    /// A tileset's descriptor and its sheet, "sheet NN"; the pictures of its tiles are left to the test.
    void addTileset(std::string_view number, std::string_view tiles) const
    {
        const std::string folder = "data/images/terrains/terrain" + std::string(number);
        write(folder + "/texture.ini", "[texture]\r\nnbimg=" + std::string(tiles) + "\r\n");
        write(folder + "/terrain01.png", "sheet " + std::string(number));
    }

    /// Creates a project and leaves it current. Its folder is "projets/" and the name.
    void makeProject(const std::string& name = "demo", std::string_view author = "Kestrel") const
    {
        if (const auto failure = CreateProject(name, author)) {
            throw std::runtime_error(*failure);
        }
    }

    static constexpr std::array heroPictures = {"dos1",    "dos2",    "dos3",    "face1",   "face2",
                                                "face3",   "droite1", "droite2", "droite3", "gauche1",
                                                "gauche2", "gauche3", "mort"};
    static constexpr std::array systemPictures = {"imgprinc", "menuingame", "menuprinc", "parler"};

private:
    /// Each template holds its own name, so that a mistaken one shows; map and blocks are a map's.
    void writeTemplates() const
    {
        for (const std::string name : heroPictures) {
            write("data/images/personnages/perso01/" + name + ".png", "picture " + name);
        }
        for (const std::string name : systemPictures) {
            write("data/images/system/theme01/" + name + ".png", "picture " + name);
        }
        for (const std::string name : {"ftgr", "ftgm", "ftgi", "ftgms", "ftgev"}) {
            write("data/" + name + ".dat", "-- " + name);
        }
        addTileset("01", "9");
        std::string rows;
        for (int row = 1; row <= 8; ++row) {
            rows += std::string(17, '0') + "\r\n";
        }
        write("data/ftgmev.dat", rows);
        write("data/ftgmma.dat", "0101\r\n" + rows);
    }
};
