/// Stands between a program and its calls that change the disk: tells of them, and kills the program at a
/// chosen one or lets that fail. Linked into a test, or taken into an unchanged program by LD_PRELOAD.
#pragma once

#include <array>
#include <cstdint>

/// Shared between the program that is struck and the one that plans it; bench.py knows the layout, too. All
/// calls count that change something below one folder: opening for writing, write, fchmod, close,
/// rename and mkdir. A write is struck when half of its bytes are written.
struct Faults {
    enum Kind : std::int32_t {
        Kill,    ///< the program ends before the call
        FailOne, ///< this call fails
        FailAll, ///< this call fails and all after it, as on a full disk
    };

    std::int32_t strikeAt = 0; ///< which call from now on, counted from 1; 0: none
    std::int32_t kind = Kill;
    std::int32_t error = 0; ///< the errno of a call that fails
    std::int32_t calls = 0; ///< counts up to strikeAt and beyond
    std::array<char, 512> below = {};
};

/// Puts the plan into force. Without it the file counts that the environment names in TORTURE_FAULTS, which
/// holds a plan; without that nothing is struck.
void follow(Faults* plan);

using WriteListener = void (*)(const char* path);

/// Names the one function that is told of each file and folder once it was opened for writing, made, renamed
/// or removed, with the path that the program gave; null for none.
extern "C" void listenToWrites(WriteListener listener);
