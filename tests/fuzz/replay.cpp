// Feeds a target with the inputs kept in a folder, with every beginning of each, and with copies of each in
// which a fixed run of chance has changed some bytes.
#include "target.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr int copiesOfEach = 200;

void feed(const std::string& input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

void feedChanged(std::string input, std::minstd_rand& chance)
{
    for (auto changes = 1 + chance() % 4; changes > 0 && !input.empty(); --changes) {
        const std::size_t place = chance() % input.size();
        const std::size_t other = chance() % input.size();
        switch (chance() % 3) {
        case 0:
            input[place] = static_cast<char>(chance() % 256);
            break;
        case 1:
            input.erase(place, 1 + chance() % 4);
            break;
        default:
            input.insert(place, input.substr(other, 1 + chance() % 8));
        }
    }
    feed(input);
}

void feedFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(file), {}};
    std::fprintf(stderr, "%s\n", path.c_str());
    for (std::size_t length = 0; length <= input.size(); ++length) {
        feed(input.substr(0, length));
    }
    std::minstd_rand chance(1);
    for (int i = 0; i < copiesOfEach; ++i) {
        feedChanged(input, chance);
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2 || !std::filesystem::is_directory(arguments[1])) {
        std::fprintf(stderr, "Usage: %s FOLDER\n", arguments[0]);
        return 2;
    }
    const std::filesystem::directory_iterator folder(arguments[1]);
    std::vector<std::filesystem::path> paths(begin(folder), end(folder));
    std::sort(paths.begin(), paths.end());
    for (const auto& path : paths) {
        feedFile(path);
    }
    return paths.empty() ? 2 : 0;
}
