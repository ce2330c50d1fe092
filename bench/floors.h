/// The least that the jobs with files need, by plain system calls. Failure: an exception.
#pragma once

#include "store/platform.h"

#include <string>
#include <string_view>
#include <vector>

namespace floors
{

/// A buffer that is kept from call to call, so that it costs nothing once it is large enough.
class Buffer
{
public:
    void clear() { size_ = 0; }
    void append(std::string_view text);
    /// Appends a file's content; `folder` is an open folder or AT_FDCWD. False when there is no such file.
    bool appendFile(int folder, const char* name);
    std::string_view text() const { return {bytes_.data(), size_}; }

private:
    void makeRoom(std::size_t count);

    std::vector<char> bytes_;
    std::size_t size_ = 0;
};

/// Puts the content into a file beside the path and renames it over it.
void replaceFile(const Path& path, std::string_view content);

/// The value of a key in INI text: lines are passed over until the section comes, then until the key does.
std::string_view valueOf(std::string_view text, std::string_view section, std::string_view key);

} // namespace floors
