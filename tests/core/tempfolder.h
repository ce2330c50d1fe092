/// A folder of its own for each test, removed with everything below it at the end. What goes wrong is thrown.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

/// Everything below a folder: its relative name and its bytes, or a word for what has none.
using Snapshot = std::map<std::string, std::string>;

/// What differs between two snapshots, one line for each name; empty when nothing does.
inline std::string Changes(const Snapshot& from, const Snapshot& to)
{
    const auto shown = [](const Snapshot& files, const std::string& name) {
        const auto found = files.find(name);
        return found == files.end() ? "missing" : '"' + found->second + '"';
    };
    Snapshot all = from;
    all.insert(to.begin(), to.end());
    std::string lines;
    for (const auto& [name, bytes] : all) {
        const std::string was = shown(from, name);
        const std::string is = shown(to, name);
        lines += was == is ? "" : name + ": " + was + " -> " + is + "\n";
    }
    return lines;
}

/// Names below the folder are in UTF-8.
class TempFolder
{
public:
    using Path = std::filesystem::path;

    TempFolder()
    {
        std::random_device random;
        const Path parent = std::filesystem::canonical(std::filesystem::temp_directory_path());
        do {
            folder_ = parent / ("questforge-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder_));
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const Path& path() const { return folder_; }
    Path at(const Path& name) const { return folder_ / name; }
    bool has(const Path& name) const { return std::filesystem::exists(at(name)); }
    void remove(const Path& name) const { std::filesystem::remove_all(at(name)); }

    /// Writes the bytes as they are; folders above the file are made.
    void write(const Path& name, std::string_view bytes) const
    {
        std::filesystem::create_directories(at(name).parent_path());
        std::ofstream file(at(name), std::ios::binary);
        if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
            throw std::runtime_error("cannot write " + name.string());
        }
    }

    /// The bytes of a file, which must be there.
    std::string read(const Path& name) const
    {
        std::ifstream file(at(name), std::ios::binary);
        if (!file) {
            throw std::runtime_error("cannot read " + name.string());
        }
        return {std::istreambuf_iterator<char>(file), {}};
    }

    Snapshot snapshot() const
    {
        Snapshot result;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
            const auto name = entry.path().lexically_relative(folder_).generic_u8string();
            result[std::string(name.begin(), name.end())] = contentOf(entry);
        }
        return result;
    }

private:
    std::string contentOf(const std::filesystem::directory_entry& entry) const
    {
        if (entry.is_symlink()) {
            return "link to " + std::filesystem::read_symlink(entry.path()).string();
        }
        if (entry.is_directory()) {
            return "folder";
        }
        return entry.is_regular_file() ? read(entry.path()) : "neither file nor folder";
    }

    Path folder_;
};
