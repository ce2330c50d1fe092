#include "commands.h"

#include "events/eventlines.h"

#include <map>

namespace
{

using Lines = std::vector<std::string>;

/// The words of a command that takes exactly so many.
std::vector<std::string> exactly(std::size_t count, const SourceLine& line)
{
    auto words = wordsOf(line.rest);
    if (words.size() != count) {
        line.fail("\"" + line.word + "\" is followed by " + std::to_string(count) + " words");
    }
    return words;
}

void text(Lines& lines, const SourceLine& line)
{
    if (line.rest.find_first_of("\"\\") != std::string::npos) {
        line.fail("a text must do without double quotes and backslashes");
    }
    lines.push_back(DisplayTextLine(line.rest));
}

void pause(Lines& lines, const SourceLine& line)
{
    lines.push_back(PauseLine(numberIn(line, line.rest)));
}

void hp(Lines& lines, const SourceLine& line)
{
    static const std::map<std::string, HpChange> changes = {
        {"remove", HpChange::Remove}, {"add", HpChange::Add}, {"replace", HpChange::Replace}};
    const auto words = exactly(2, line);
    const auto change = changes.find(words[0]);
    if (change == changes.end()) {
        line.fail("life is changed by remove, add or replace");
    }
    lines.push_back(HpLine(change->second, std::to_string(numberIn(line, words[1]))));
}

void hero(Lines& lines, const SourceLine& line)
{
    const Cell cell = cellIn(line, line.rest);
    for (const std::string& moved : HeroMoveLines(cell.column, cell.row)) {
        lines.push_back(moved);
    }
}

void map(Lines& lines, const SourceLine& line)
{
    lines.push_back(ChangeMapLine(line.rest));
}

void condition(Lines& lines, const SourceLine& line)
{
    const auto words = exactly(3, line);
    if (words[1] != "=" && words[1] != "!") {
        line.fail("a condition compares with = or !");
    }
    const auto comparison = words[1] == "=" ? Comparison::Equal : Comparison::Different;
    lines.push_back(ConditionLine(numberIn(line, words[0]), comparison, words[2]));
}

void close(Lines& lines, const SourceLine& line)
{
    exactly(0, line);
    lines.push_back(CloseConditionLine());
}

void set(Lines& lines, const SourceLine& line)
{
    const auto words = exactly(2, line);
    lines.push_back(AssignLine(numberIn(line, words[0]), words[1]));
}

} // namespace

void appendCommand(Lines& lines, const SourceLine& line)
{
    static const std::map<std::string, void (*)(Lines&, const SourceLine&)> commands = {
        {"text", text}, {"pause", pause},  {"hp", hp},       {"hero", hero},
        {"map", map},   {"if", condition}, {"close", close}, {"set", set}};
    const auto command = commands.find(line.word);
    if (command == commands.end()) {
        line.fail("no such command: " + line.word);
    }
    command->second(lines, line);
}
