// Makes the game of a sample source in a runnable folder, where no folder of its name is yet.
#include "making.h"

#include "store/store.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fputs("usage: make_sample SOURCE APPDIR\n", stderr);
        return 2;
    }
    try {
        SetAppDir(std::filesystem::absolute(arguments[2]));
        MakeSample(ReadSample(arguments[1]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "make_sample: %s\n", failure.what());
        return 1;
    }
    return 0;
}
