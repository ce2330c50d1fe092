/// What the library that is loaded ahead of all others offers to the random user.
#pragma once

using WriteListener = void (*)(const char* path);

extern "C" {

/// Names the one function that is told of every write, with the absolute path; null for none.
void listenToWrites(WriteListener newListener);
}
