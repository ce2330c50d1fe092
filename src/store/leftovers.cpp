#include "store/leftovers.h"

#include <charconv>
#include <chrono>
#include <optional>
#include <type_traits>

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view nameBegin = ".questforge-";

/// Reads a number off the front of the text; nothing when there is none.
template <class Number> std::optional<Number> takeNumber(std::string_view& text)
{
    Number number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return failure == std::errc() ? std::optional(number) : std::nullopt;
}

/// A path's name, "?" for all but ASCII: a whole conversion would throw for what is no text at all.
std::string asciiName(const Path& path)
{
    const Path file = path.filename();
    std::string name;
    for (const auto character : file.native()) {
        const auto number = static_cast<std::make_unsigned_t<Path::value_type>>(character);
        name += number < 0x80 ? static_cast<char>(number) : '?';
    }
    return name;
}

/// Whose file a path's name of exactly that form tells; nothing for any other name.
std::optional<int> processOf(const Path& path)
{
    const std::string name = asciiName(path);
    std::string_view rest = name;
    if (!rest.starts_with(nameBegin)) {
        return std::nullopt;
    }
    rest.remove_prefix(nameBegin.size());
    const auto process = takeNumber<int>(rest);
    rest.remove_prefix(rest.starts_with('-') ? 1 : 0);
    const auto number = takeNumber<unsigned>(rest);
    const bool exact = process && number && *process > 0 && name == LeftoverName(*process, *number);
    return exact ? process : std::nullopt;
}

/// Longer than any write takes: by then another program has the number.
bool isOld(const fs::directory_entry& entry)
{
    std::error_code failure;
    const fs::file_time_type written = entry.last_write_time(failure);
    return !failure && fs::file_time_type::clock::now() - written > std::chrono::hours(1);
}

/// This program writes nothing while it sweeps: what bears its number is of one that had it before.
bool isLeftover(const fs::directory_entry& entry)
{
    std::error_code ignored;
    const auto process = processOf(entry.path());
    return process && entry.symlink_status(ignored).type() == fs::file_type::regular &&
           (*process == platform::ownProcess() || !platform::isRunning(*process) || isOld(entry));
}

} // namespace

std::string LeftoverName(int process, unsigned number)
{
    std::string name(nameBegin);
    return name.append(std::to_string(process)).append("-").append(std::to_string(number)).append(".tmp");
}

void SweepLeftovers(const Path& folder, int depth)
{
    std::error_code failure;
    std::error_code ignored;
    fs::recursive_directory_iterator entries(folder, fs::directory_options::skip_permission_denied, failure);
    for (; !failure && entries != fs::recursive_directory_iterator(); entries.increment(failure)) {
        if (entries.depth() >= depth) {
            entries.disable_recursion_pending();
        }
        if (isLeftover(*entries)) {
            fs::remove(entries->path(), ignored);
        }
    }
}
