// Feeds a target with the inputs kept in a folder, with every beginning of each, and with copies of each in
// which a fixed run of chance has changed some bytes.
#include "target.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

namespace
{

constexpr int copiesOfEach = 200;

void feed(const std::string& input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
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
    for (int i = 0; i < copiesOfEach && !input.empty(); ++i) {
        std::string changed = input;
        for (auto changes = 1 + chance() % 4; changes > 0; --changes) {
            const std::string piece = chance() % 2 == 0
                                          ? std::string(chance() % 2, static_cast<char>(chance()))
                                          : input.substr(chance() % input.size(), 8);
            changed.replace(chance() % (changed.size() + 1), chance() % 4, piece);
        }
        feed(changed);
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        return 2;
    }
    const std::filesystem::directory_iterator folder(arguments[1]);
    const std::set<std::filesystem::path> paths(begin(folder), end(folder)); // in order
    for (const auto& path : paths) {
        feedFile(path);
    }
    return paths.empty() ? 2 : 0;
}
