// The store's INI files and the system's own profile functions, on the same bytes.
#include "appdir.h"

#include "store/ini.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

namespace
{

const std::string descriptor = "[Jeu]\r\nnom=demo\r\nauteur=Kestrel\r\nver=3.0.0\r\ncartes=1\r\ncombats=0\r\n"
                               "[Carte01]\r\ntexture=01\r\nnom=Carte 1\r\n[Variables]\r\nnombre=0\r\n";

std::string afterNames(const std::string& value)
{
    return "[s]\r\nk=" + value + "\r\n";
}

class Profile : public testing::Test
{
protected:
    std::string ours(const std::string& text, const std::string& section, const std::string& key) const
    {
        app.write("x.ini", text);
        return ReadIni(section, key, app.at("x.ini"));
    }

    std::string theirs(const std::string& text, const std::string& section, const std::string& key) const
    {
        app.write("x.ini", text);
        char value[longestIniValue + 1] = {};
        ::GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value, sizeof value, file().c_str());
        return value;
    }

    std::string oursWritten(const std::string& text, const std::string& section, const std::string& key,
                            const std::string& value) const
    {
        app.write("x.ini", text);
        WriteIni(section, key, value, app.at("x.ini"));
        return app.read("x.ini");
    }

    std::string theirsWritten(const std::string& text, const std::string& section, const std::string& key,
                              const std::string& value) const
    {
        app.write("x.ini", text);
        ::WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file().c_str());
        ::WritePrivateProfileStringA(nullptr, nullptr, nullptr, file().c_str()); // what it holds back
        return app.read("x.ini");
    }

    TemporaryAppDir app;

private:
    std::string file() const { return app.at("x.ini").string(); }
};

struct Read {
    std::string text, section, key;
};

struct Write {
    std::string text, section, key, value;
};

struct Difference {
    std::string what, ours, theirs;
};

} // namespace

TEST_F(Profile, ReadsAsTheSystemDoes)
{
    std::vector<Read> cases = {
        {descriptor, "carte01", "nom"},
        {descriptor, "Jeu", "Auteur"},
        {descriptor, "Jeu", "missing"},
        {descriptor, "missing", "nom"},
        {"[a]\nk=v", "a", "k"},
        {"\r\n; c\r\n[a]\r\n\r\n;k=1\r\nk=2\r\n", "a", "k"},
        {"[a]\r\n;k=1\r\nk=2\r\n", "a", ";k"},
        {"[a]\r\nk=1\r\nk=2\r\n[a]\r\nj=3\r\n", "a", "k"},
        {"[a]\r\nk=1\r\n[a]\r\nj=3\r\n", "a", "j"},
        {"  [ a ] ; c\r\n  k  =  1  \r\n", "a", "k"},
        {"[a]\r\nk=\x0b 1\t \r\n", "a", "k"},
        {"[a]\r\nk=1\xA0\r\n", "a", "k"},
        {"[a]\r\nk=1\x1A\r\nj=2\r\n", "a", "j"},
        {"[\xC9]\r\nk=1\r\n", "\xE9", "k"}, // no case but that of ASCII letters
        {"[a]\r\n\xC9=1\r\n", "a", "\xE9"},
        {"[a]\r\nk=\xC9\xE9\x80\x81\r\n", "a", "k"},
    };
    for (const char* value : {"", "  a b  ", "a=b", "\"a\"", "'a'", " \" a \" ", "\"\"a\"\"", "\"\"", "\"",
                              "\"a'", "say \"a\"", "\"a\" b", "a ; b", "\"a\" ; b"}) {
        cases.push_back({afterNames(value), "s", "k"});
    }
    for (const std::size_t length : {253U, 254U, 255U, 300U}) {
        const std::string value(length, 'v');
        cases.push_back({afterNames(value), "s", "k"});
        if (length != longestIniValue) {
            cases.push_back({afterNames('"' + value + '"'), "s", "k"});
        }
        cases.push_back({afterNames(value.substr(1) + " v"), "s", "k"});
    }
    for (const Read& c : cases) {
        EXPECT_EQ(ours(c.text, c.section, c.key), theirs(c.text, c.section, c.key)) << c.text;
    }
}

TEST_F(Profile, WritesAsTheSystemDoes)
{
    const std::vector<Write> cases = {
        {"", "Jeu", "nom", "x"},
        {descriptor, "jeu", "cartes", "02"},
        {descriptor, "Variable1", "valeur", "a b"},
        {descriptor, "Variable1", "valeur", ""},
        {descriptor, "Jeu", "auteur", "\xC9\xE9\x80"},
        {descriptor, "Jeu", "new", "x=y"},
        {descriptor, "Variables", "new", "x  "},
        {descriptor, "Variables", "nombre", "\"x\""},
        {descriptor, "Variables", "nombre", std::string(300, 'v')},
        {"; top\r\n[a]\r\n; c\r\nx=1\r\n[b]\r\n", "a", "x", "v"},
        {"[a]\r\n[b]\r\n", "a", "k", "v"},
        {"[a]\nx=1", "a", "k", "v"},
        {"[a]\r\nx=1", "b", "k", "v"},
        {"[a]\r\n[a]\r\nk=1\r\n", "a", "k", "v"},
        {"[\xC9]\r\nk=1\r\n", "\xE9", "k", "v"},
        {"[a]\r\nno equals\r\nk=1\r\n", "a", "k", "v"},
    };
    for (const Write& c : cases) {
        EXPECT_EQ(oursWritten(c.text, c.section, c.key, c.value),
                  theirsWritten(c.text, c.section, c.key, c.value))
            << c.text;
    }
}

TEST_F(Profile, DiffersOnlyWhereItMeansTo)
{
    const std::string longest(longestIniValue, 'v');
    const std::vector<std::pair<Read, Difference>> reads = {
        {{afterNames('"' + longest + '"'), "s", "k"}, {"quotes at the limit", longest, longest.substr(1)}},
        {{descriptor, " Jeu ", " nom "}, {"blanks around a name asked for", "", "demo"}},
        {{"[a]\rk=v\r", "a", "k"}, {"CR alone", "", "v"}},
        {{"[a]\r\nk\r\nk=1\r\n", "a", "k"}, {"a key's line without =", "1", ""}},
        {{"[a\r\nk=1\r\n", "a", "k"}, {"a section's line cut off", "1", ""}},
        {{"[a] ; [b]\r\nk=1\r\n", "a", "k"}, {"brackets behind a section's", "1", ""}},
    };
    for (const auto& [c, difference] : reads) {
        EXPECT_EQ(ours(c.text, c.section, c.key), difference.ours) << difference.what;
        EXPECT_EQ(theirs(c.text, c.section, c.key), difference.theirs) << difference.what;
    }
    const std::vector<std::pair<Write, Difference>> writes = {
        {{"[a]\r\nk=1\r\n", "a", "K", "2"}, {"case of a key", "[a]\r\nK=2\r\n", "[a]\r\nk=2\r\n"}},
        {{"", "a", "k", "  v"}, {"blanks before a value", "[a]\r\nk=  v\r\n", "[a]\r\nk=v\r\n"}},
        {{"", "a", "k", "1\r\n2"}, {"line break in a value", "[a]\r\nk=1 2\r\n", "[a]\r\nk=1\r\n2\r\n"}},
        {{"[a]\r\n j = 1\r\n\r\n[b]\r\n", "a", "k", "v"},
         {"other lines", "[a]\r\n j = 1\r\nk=v\r\n\r\n[b]\r\n", "[a]\r\nj=1\r\nk=v\r\n[b]\r\n"}},
    };
    for (const auto& [c, difference] : writes) {
        EXPECT_EQ(oursWritten(c.text, c.section, c.key, c.value), difference.ours) << difference.what;
        EXPECT_EQ(theirsWritten(c.text, c.section, c.key, c.value), difference.theirs) << difference.what;
    }
}
