/// What the fuzz targets share. A target is one function that gets any bytes there are; a fuzzer calls it, or
/// replay.cpp with the kept inputs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// Takes a line off the front of the input, without its LF: inputs of several parts are files of lines.
inline std::string_view TakeLine(std::string_view& input)
{
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
    return line;
}

/// Ends the run, naming the rule, when it does not hold.
inline void Require(bool holds, std::string_view rule)
{
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %.*s\n", static_cast<int>(rule.size()), rule.data());
        std::abort();
    }
}
