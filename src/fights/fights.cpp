#include "fights/fights.h"

#include "store/numbers.h"
#include "store/store.h"

std::optional<int> FightCount()
{
    return CountFrom(ReadIni("Jeu", "Combats", Descriptor()));
}

std::string FightName(int number)
{
    return ReadIni("Combat" + std::to_string(number), "nom", Descriptor());
}
