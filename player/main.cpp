#include "player/code_page.h"
#include "player/windowed_play.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc > 2) {
        std::cerr
            << "usage: luaplayer.exe [SCRIPT]\nPlays SCRIPT of the current folder, or else index.lua.\n";
        return EXIT_FAILURE;
    }
    const std::string script = player::cp1252FromUtf8(argc == 2 ? argv[1] : "index.lua");
    try {
        return player::playInWindow("Questforge", std::filesystem::current_path(), script, std::cerr);
    } catch (const std::exception& failure) {
        std::cerr << "luaplayer: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
