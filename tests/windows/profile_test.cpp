// The store's INI files and the system's own profile functions, on the same bytes.
#include "appdir.h"

#include "store/ini.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <optional>
#include <vector>

namespace
{

const std::string descriptor = "[Jeu]\r\nnom=demo\r\nauteur=Kestrel\r\nver=3.0.0\r\ncartes=1\r\ncombats=0\r\n"
                               "[Carte01]\r\ntexture=01\r\nnom=Carte 1\r\n[Variables]\r\nnombre=0\r\n";

/// Sets a key of a text, or reads it when there is no value.
struct Call {
    std::string text, section, key;
    std::optional<std::string> value;
};

Call readingOf(const std::string& value)
{
    return {"[s]\r\nk=" + value + "\r\n", "s", "k", {}};
}

class Profile : public testing::Test
{
protected:
    /// What is read, or the text that it leads to.
    std::string ours(const Call& call) const
    {
        app.write("x.ini", call.text);
        if (!call.value) {
            return ReadIni(call.section, call.key, app.at("x.ini"));
        }
        WriteIni(call.section, call.key, *call.value, app.at("x.ini"));
        return app.read("x.ini");
    }

    /// The same by the system's functions.
    std::string theirs(const Call& call) const
    {
        app.write("x.ini", call.text);
        const std::string file = app.at("x.ini").string();
        if (!call.value) {
            char value[longestIniValue + 1] = {};
            ::GetPrivateProfileStringA(call.section.c_str(), call.key.c_str(), "", value, sizeof value,
                                       file.c_str());
            return value;
        }
        ::WritePrivateProfileStringA(call.section.c_str(), call.key.c_str(), call.value->c_str(),
                                     file.c_str());
        ::WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str()); // what it holds back
        return app.read("x.ini");
    }

    void expectAgreement(const std::vector<Call>& calls) const
    {
        for (const Call& call : calls) {
            EXPECT_EQ(ours(call), theirs(call)) << call.text << call.section << "." << call.key;
        }
    }

    TemporaryAppDir app;
};

} // namespace

TEST_F(Profile, ReadsAsTheSystemDoes)
{
    expectAgreement({
        {descriptor, "carte01", "nom", {}},
        {descriptor, "Jeu", "Auteur", {}},
        {descriptor, "Jeu", "missing", {}},
        {descriptor, "missing", "nom", {}},
        {"[a]\nk=v", "a", "k", {}},
        {"\r\n; c\r\n[a]\r\n\r\n;k=1\r\nk=2\r\n", "a", "k", {}},
        {"[a]\r\n;k=1\r\nk=2\r\n", "a", ";k", {}},
        {"[a]\r\nk=1\r\nk=2\r\n[a]\r\nj=3\r\n", "a", "k", {}},
        {"[a]\r\nk=1\r\n[a]\r\nj=3\r\n", "a", "j", {}},
        {"  [ a ] ; c\r\n  k  =  1  \r\n", "a", "k", {}},
        {"[a]\r\nk=1\x1A\r\nj=2\r\n", "a", "j", {}},
        {"[\xC9]\r\nk=1\r\n", "\xE9", "k", {}}, // no case but that of ASCII letters
        {"[a]\r\n\xC9=1\r\n", "a", "\xE9", {}},
    });
    for (const char* value :
         {"", "  a b  ", "\x0b 1\t ", "1\xA0", "\xC9\xE9\x80\x81", "a=b", "\"a\"", "'a'", " \" a \" ",
          "\"\"a\"\"", "\"\"", "\"", "\"a'", "say \"a\"", "\"a\" b", "a ; b", "\"a\" ; b"}) {
        expectAgreement({readingOf(value)});
    }
    for (const std::size_t length : {253U, 254U, 255U, 300U}) {
        const std::string value(length, 'v');
        expectAgreement({readingOf(value), readingOf(value.substr(1) + " v")});
        if (length != longestIniValue) {
            expectAgreement({readingOf('"' + value + '"')});
        }
    }
}

TEST_F(Profile, WritesAsTheSystemDoes)
{
    expectAgreement({
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
    });
}

TEST_F(Profile, DiffersOnlyWhereItMeansTo)
{
    const std::string longest(longestIniValue, 'v');
    const struct {
        const char* where;
        Call call;
        std::string ours, theirs;
    } differences[] = {
        {"quotes at the limit", readingOf('"' + longest + '"'), longest, longest.substr(1)},
        {"blanks around a name asked for", {descriptor, " Jeu ", " nom ", {}}, "", "demo"},
        {"CR alone", {"[a]\rk=v\r", "a", "k", {}}, "", "v"},
        {"a key's line without =", {"[a]\r\nk\r\nk=1\r\n", "a", "k", {}}, "1", ""},
        {"a section's line cut off", {"[a\r\nk=1\r\n", "a", "k", {}}, "1", ""},
        {"brackets behind a section's", {"[a] ; [b]\r\nk=1\r\n", "a", "k", {}}, "1", ""},
        {"case of a key", {"[a]\r\nk=1\r\n", "a", "K", "2"}, "[a]\r\nK=2\r\n", "[a]\r\nk=2\r\n"},
        {"blanks before a value", {"", "a", "k", "  v"}, "[a]\r\nk=  v\r\n", "[a]\r\nk=v\r\n"},
        {"line break in a value", {"", "a", "k", "1\r\n2"}, "[a]\r\nk=1 2\r\n", "[a]\r\nk=1\r\n2\r\n"},
        {"other lines",
         {"[a]\r\n j = 1\r\n\r\n[b]\r\n", "a", "k", "v"},
         "[a]\r\n j = 1\r\nk=v\r\n\r\n[b]\r\n",
         "[a]\r\nj=1\r\nk=v\r\n[b]\r\n"},
    };
    for (const auto& difference : differences) {
        EXPECT_EQ(ours(difference.call), difference.ours) << difference.where;
        EXPECT_EQ(theirs(difference.call), difference.theirs) << difference.where;
    }
}
