/// A tool folder of its own for each test: laid out with tiny templates, made AppDir, removed with everything
/// below it at the end. Whatever goes wrong while it is laid out is thrown.
#pragma once

#include "project/creation.h"
#include "store/store.h"

#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

/// Names on disk are found whatever their case there, "\\" separates them too and their end may be cut.
constexpr bool onWindows = Path::preferred_separator == '\\';

/// Everything below a folder: its relative name and its bytes, or a word for what has none.
using Snapshot = std::map<std::string, std::string>;

/// What differs between two snapshots, one line for each name; empty when nothing does.
inline std::string Changes(const Snapshot& from, const Snapshot& to)
{
    std::string lines;
    const auto add = [&lines](const std::string& name, const std::string& was, const std::string& is) {
        lines.append(name).append(": ").append(was).append(" -> ").append(is).append("\n");
    };
    const auto quoted = [](const std::string& bytes) { return '"' + bytes + '"'; };
    for (const auto& [name, bytes] : to) {
        const auto old = from.find(name);
        if (old == from.end() || old->second != bytes) {
            add(name, old == from.end() ? "missing" : quoted(old->second), quoted(bytes));
        }
    }
    for (const auto& [name, bytes] : from) {
        if (!to.contains(name)) {
            add(name, quoted(bytes), "missing");
        }
    }
    return lines;
}

class TemporaryAppDir
{
public:
    TemporaryAppDir()
    {
        std::random_device random;
        do {
            folder_ =
                std::filesystem::temp_directory_path() / ("questforge-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder_));
        std::filesystem::create_directory(folder_ / "projets");
        writeTemplates();
        SetAppDir(folder_);
        SetCurrentProject("");
    }
    ~TemporaryAppDir()
    {
        SetCurrentProject("");
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TemporaryAppDir(const TemporaryAppDir&) = delete;
    TemporaryAppDir& operator=(const TemporaryAppDir&) = delete;

    const Path& path() const { return folder_; }

    /// A path below the folder; `relative` is UTF-8.
    Path at(std::string_view relative) const
    {
        return folder_ / std::u8string(relative.begin(), relative.end());
    }

    /// Writes the bytes as they are; folders above the file are made.
    void write(std::string_view relative, std::string_view bytes) const
    {
        std::filesystem::create_directories(at(relative).parent_path());
        std::ofstream file(at(relative), std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush()) {
            throw std::runtime_error("cannot write " + std::string(relative));
        }
    }

    /// The bytes of a file, which must be there.
    std::string read(std::string_view relative) const { return bytesOf(at(relative)); }

    bool has(std::string_view relative) const { return std::filesystem::exists(at(relative)); }

    void remove(std::string_view relative) const { std::filesystem::remove_all(at(relative)); }

    Snapshot snapshot() const
    {
        Snapshot result;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
            const auto name = entry.path().lexically_relative(folder_).generic_u8string();
            result[std::string(name.begin(), name.end())] = contentOf(entry);
        }
        return result;
    }

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
    static std::string contentOf(const std::filesystem::directory_entry& entry)
    {
        if (entry.is_symlink()) {
            return "link to " + std::filesystem::read_symlink(entry.path()).string();
        }
        if (entry.is_directory()) {
            return "folder";
        }
        return entry.is_regular_file() ? bytesOf(entry.path()) : "neither file nor folder";
    }

    static std::string bytesOf(const Path& path)
    {
        std::ifstream file(path, std::ios::binary);
        if (!file) {
            throw std::runtime_error("cannot read " + path.string());
        }
        return {std::istreambuf_iterator<char>(file), {}};
    }

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
        write("data/ftgmev.dat", rows());
        write("data/ftgmma.dat", "0101\r\n" + rows());
    }

    static std::string rows()
    {
        std::string text;
        for (int row = 1; row <= 8; ++row) {
            text += std::string(17, '0') + "\r\n";
        }
        return text;
    }

    Path folder_;
};
