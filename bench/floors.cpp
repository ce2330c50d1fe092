#include "floors.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <strings.h>
#include <unistd.h>

namespace floors
{
namespace
{

constexpr std::size_t readRoom = 4096; // so much is asked for at least in one read

std::string_view takeLine(std::string_view& rest)
{
    const auto* end = static_cast<const char*>(std::memchr(rest.data(), '\n', rest.size()));
    const std::size_t length = end == nullptr ? rest.size() : static_cast<std::size_t>(end - rest.data());
    const std::string_view line = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    return line;
}

bool startsWith(std::string_view text, std::string_view start, char next)
{
    return text.size() > start.size() && text[start.size()] == next &&
           ::strncasecmp(text.data(), start.data(), start.size()) == 0;
}

} // namespace

void Buffer::append(std::string_view text)
{
    makeRoom(text.size());
    std::memcpy(bytes_.data() + size_, text.data(), text.size());
    size_ += text.size();
}

bool Buffer::appendFile(int folder, const char* name)
{
    const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    for (;;) {
        makeRoom(readRoom);
        const std::size_t room = bytes_.size() - size_;
        const ssize_t count = ::read(file, bytes_.data() + size_, room);
        size_ += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        if (count < static_cast<ssize_t>(room)) {
            break; // a regular file gives less than was asked for at its end only
        }
    }
    ::close(file);
    return true;
}

void Buffer::makeRoom(std::size_t count)
{
    if (bytes_.size() - size_ < count) {
        bytes_.resize(std::max(bytes_.size() * 2, size_ + count));
    }
}

void replaceFile(const Path& path, std::string_view content)
{
    const std::string beside = path.native() + ".tmp";
    const int file = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    const ssize_t written = ::write(file, content.data(), content.size());
    ::close(file);
    if (written != static_cast<ssize_t>(content.size()) || ::rename(beside.c_str(), path.c_str()) != 0) {
        throw std::runtime_error("the floor cannot write " + path.string());
    }
}

std::string_view valueOf(std::string_view text, std::string_view section, std::string_view key)
{
    bool within = false;
    while (!text.empty()) {
        std::string_view line = takeLine(text);
        if (line.starts_with('[')) {
            within = startsWith(line.substr(1), section, ']');
        } else if (within && startsWith(line, key, '=')) {
            line.remove_prefix(key.size() + 1);
            return line.substr(0, line.find('\r'));
        }
    }
    return {};
}

} // namespace floors
