#include "events/eventlines.h"

#include "store/codepage.h"

namespace
{

std::string joined(std::initializer_list<std::string_view> pieces)
{
    std::string line;
    for (const std::string_view piece : pieces) {
        line += piece;
    }
    return line;
}

} // namespace

std::string DisplayTextLine(std::string_view text)
{
    return joined({"affichertexte(\"", text, "\")"});
}

std::string PauseLine(int frames)
{
    return joined({"screen.waitVblankStart(", std::to_string(frames), ")"});
}

std::string HpLine(HpChange change, std::string_view amount)
{
    switch (change) {
    case HpChange::Remove:
        return joined({"hero.vie = hero.vie - ", amount, " -- Retrait de ", amount, " de vie au héro"_ansi});
    case HpChange::Add:
        return joined({"hero.vie = hero.vie + ", amount, " -- Ajout de ", amount, " de vie au héro"_ansi});
    case HpChange::Replace:
        break;
    }
    return joined({"hero.vie = ", amount, " -- Changement de la vie du héro"_ansi});
}

std::array<std::string, 2> HeroMoveLines(int column, int row)
{
    return {joined({"hero.x = ", std::to_string(column), " -- Déplacement du héro(vertical)"_ansi}),
            joined({"hero.y = ", std::to_string(row), " -- Déplacelement du héro(horizontal)"_ansi})};
}

std::string ChangeMapLine(std::string_view mapNumber)
{
    return joined({"runmap(\"", mapNumber, "\")"});
}

std::string ConditionLine(int variable, Comparison comparison, std::string_view value)
{
    const std::string number = std::to_string(variable);
    return comparison == Comparison::Equal ? joined({"if var[", number, "] == \"", value, "\" then"})
                                           : joined({"if var[", number, "] ~= ", value, " then"});
}

std::string CloseConditionLine()
{
    return "end";
}

std::string AssignLine(int variable, std::string_view value)
{
    return joined({"var[", std::to_string(variable), "] = \"", value, "\""});
}
