// The file rules that only this system has.
#include "wholefile.h"

#include "store/leftovers.h"

#include <windows.h>

#include <sddl.h>

#include <algorithm>
#include <array>
#include <thread>

namespace fs = std::filesystem;

namespace
{

/// A file in the hands of another program. `share` is what others may do with it, besides reading and
/// writing.
HANDLE opened(const Path& path, DWORD access, DWORD share)
{
    const HANDLE file = ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | share,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    return file;
}

/// Waits for the file beside that holds the new bytes.
void awaitFileBeside(const Path& folder)
{
    const auto isBeside = [](const fs::path& path) { return path.extension() == ".tmp"; };
    while (std::none_of(fs::directory_iterator(folder), fs::directory_iterator(), isBeside)) {
    }
}

/// Who may do what with a file, as the system writes it down.
std::string rightsOf(const Path& path)
{
    std::array<char, 4096> rights = {};
    DWORD size = 0;
    ::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(), rights.size(), &size);
    return {rights.data(), size};
}

} // namespace

TEST_F(WholeFile, ThatAnotherProgramHoldsOpenStays)
{
    const HANDLE reader = opened(app.at("file"), GENERIC_READ, 0);
    expectRefused(app.at("file"));
    ::CloseHandle(reader);
}

TEST_F(WholeFile, IsWrittenOnceAnotherProgramLetsGoOfIt)
{
    const HANDLE reader = opened(app.at("file"), GENERIC_READ, 0);
    std::jthread scanner([this, reader] {
        awaitFileBeside(app.path());
        ::Sleep(50); // until the first refusal; were it later, the test would hold all the same
        ::CloseHandle(reader);
    });
    WriteWholeFile("new", app.at("file"));
    EXPECT_EQ(app.read("file"), "new\r\n");
}

TEST_F(WholeFile, IsReadWhileOthersWriteIt)
{
    const HANDLE writer = opened(app.at("file"), GENERIC_WRITE | DELETE, FILE_SHARE_DELETE);
    EXPECT_EQ(ReadWholeFile(app.at("file")), oldBytes);
    ::CloseHandle(writer);
}

TEST_F(WholeFile, KeepsItsAttributesItsAccessRightsAndTheCaseOfItsName)
{
    PSECURITY_DESCRIPTOR onlyAdministrators = nullptr;
    ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;BA)", SDDL_REVISION_1,
                                                                       &onlyAdministrators, nullptr));
    const auto attributes = [this] { return ::GetFileAttributesW(app.at("file").c_str()); };
    for (const auto& [name, write] : waysToWrite) {
        app.write("file", oldBytes);
        const std::string usual = rightsOf(app.at("file"));
        ASSERT_TRUE(
            ::SetFileSecurityW(app.at("file").c_str(), DACL_SECURITY_INFORMATION, onlyAdministrators));
        const std::string rights = rightsOf(app.at("file"));
        EXPECT_NE(rights, usual);
        ::SetFileAttributesW(app.at("file").c_str(), FILE_ATTRIBUTE_HIDDEN);
        write(app.at("FILE"));
        EXPECT_NE(app.read("file"), oldBytes) << name;
        EXPECT_EQ(attributes() & FILE_ATTRIBUTE_HIDDEN, DWORD{FILE_ATTRIBUTE_HIDDEN}) << name;
        EXPECT_EQ(rightsOf(app.at("file")), rights) << name;
        EXPECT_FALSE(app.snapshot().contains("FILE")) << name;
        ::SetFileAttributesW(app.at("file").c_str(), FILE_ATTRIBUTE_NORMAL);
        app.remove("file");
    }
    ::LocalFree(onlyAdministrators);
}

TEST_F(WholeFile, ADeviceIsNeitherReadNorReplaced)
{
    for (const std::string_view name : {"NUL", "CON"}) {
        expectNoFile(app.at(name));
    }
}

TEST_F(WholeFile, EventFilesAreListedInSmallLetters)
{
    app.write("ev/EV11", "x");
    std::vector<std::string> names;
    EXPECT_FALSE(platform::Folder(app.at("ev")).list(names));
    EXPECT_EQ(std::count(names.begin(), names.end(), "ev11"), 1);
    const platform::Folder none(app.at("ev/EV11"));
    EXPECT_FALSE(none.isOpen());
    EXPECT_TRUE(none.list(names)); // and not the names of whatever folder the program is in
    EXPECT_EQ(names.size(), 0U);
}

TEST_F(WholeFile, WritersOfOneIniFileLoseNoKey)
{
    constexpr int keys = 30;
    const auto writeKeys = [this](const std::string& section) {
        for (int i = 0; i < keys; ++i) {
            WriteIni(section, std::to_string(i), "v", app.at("x.ini"));
        }
    };
    {
        const std::jthread one(writeKeys, "one");
        const std::jthread other(writeKeys, "other");
    }
    const std::string text = app.read("x.ini");
    EXPECT_EQ(std::count(text.begin(), text.end(), '='), 2 * keys);
}

TEST_F(WholeFile, LeftBesideIsSweptOnceItsProgramIsGone)
{
    std::array<wchar_t, MAX_PATH> program = {};
    ::GetModuleFileNameW(nullptr, program.data(), program.size());
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION child = {};
    ASSERT_TRUE(::CreateProcessW(program.data(), nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                                 nullptr, &start, &child));
    const std::string left = LeftoverName(static_cast<int>(child.dwProcessId), 1);
    app.write("é €", "");
    const Snapshot expected = app.snapshot();
    app.write(left, "");

    SweepLeftovers(app.path(), 0);
    EXPECT_TRUE(app.has(left));
    ::TerminateProcess(child.hProcess, 0);
    ::WaitForSingleObject(child.hProcess, INFINITE);
    SweepLeftovers(app.path(), 0);
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
    ::CloseHandle(child.hThread);
    ::CloseHandle(child.hProcess);
}
