#include "fights/fights.h"

#include "store/numbers.h"
#include "store/store.h"

std::optional<int> FightCount()
{
    return CountFrom(ReadIni("Jeu", "Combats", Descriptor()));
}

std::string FightTitle(int number)
{
    if (FightCount().value_or(0) == 0) {
        return "Nouveau combat";
    }
    return ReadIni("Combat" + std::to_string(number), "nom", Descriptor());
}
