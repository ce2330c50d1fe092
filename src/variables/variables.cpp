#include "variables/variables.h"

#include "store/codepage.h"
#include "store/ini.h"
#include "store/numbers.h"
#include "store/store.h"

namespace
{

std::string sectionOf(int number)
{
    return "Variable" + std::to_string(number);
}

std::string decimal(int number)
{
    return std::to_string(number);
}

std::vector<std::string> valuesIn(std::string_view descriptor, int count)
{
    return NumberedIniValues(descriptor, "Variable", decimal, "valeur", count);
}

} // namespace

std::string VariableCountText()
{
    return ReadIni("Variables", "nombre", Descriptor());
}

int VariableCount()
{
    return CountFrom(VariableCountText()).value_or(0);
}

std::vector<std::string> StartValues(int count)
{
    return valuesIn(ReadWholeFile(Descriptor()), count);
}

std::vector<std::string> StartValues()
{
    const std::string descriptor = ReadWholeFile(Descriptor());
    return valuesIn(descriptor, CountFrom(IniValue(descriptor, "Variables", "nombre")).value_or(0));
}

std::string VariableLine(int number, std::string_view startValue)
{
    return std::to_string(number).append(" | Valeur de départ : "_ansi).append(startValue);
}

std::string ConditionEntry(int number, std::string_view startValue)
{
    return "Variable " + std::to_string(number) + " de valeur initale : " + std::string(startValue);
}

NextVariable VariableAfter(std::string_view count)
{
    const auto number = CountFrom(count);
    if (!number || Descriptor().empty()) {
        return {0, BadVariableCount()};
    }
    if (!CountFrom(std::to_string(*number + 1))) {
        return {0, "the project holds as many variables as it can"};
    }
    return {*number + 1, {}};
}

std::string BadVariableCount()
{
    return Descriptor().empty() ? "no project is open"
                                : "the number of variables in projet.ini is not a number from 0 to 32767";
}

void BeginVariable(int number)
{
    WriteIni(sectionOf(number), "numero", std::to_string(number), Descriptor());
}

void FinishVariable(int number, std::string_view value)
{
    SetStartValue(number, value);
    WriteIni("Variables", "nombre", std::to_string(number), Descriptor());
}

void SetStartValue(int number, std::string_view value)
{
    WriteIni(sectionOf(number), "valeur", value, Descriptor());
}
