#include "player/buttons.h"

#include <algorithm>
#include <utility>

namespace player
{

void PadState::press(std::uint64_t source, Buttons buttons)
{
    release(source);
    held_.push_back({source, buttons});
    tapped_ |= buttons;
}

void PadState::release(std::uint64_t source)
{
    std::erase_if(held_, [source](const Held& held) { return held.source == source; });
}

void PadState::releaseAll()
{
    held_.clear();
}

Buttons PadState::take()
{
    return std::exchange(tapped_, button::none) | held();
}

Buttons PadState::held() const
{
    Buttons all = button::none;
    for (const Held& held : held_) {
        all |= held.buttons;
    }
    return all;
}

} // namespace player
