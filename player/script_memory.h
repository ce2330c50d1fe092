#pragma once

#include <cstddef>

namespace player
{

/// The memory of one script, counted and limited.
class ScriptMemory
{
public:
    static constexpr std::size_t limit = 64U << 20U;

    /// Called when a request is refused; must not throw.
    using Refused = void (*)(void* context);

    void onRefusal(Refused refused, void* context)
    {
        refused_ = refused;
        context_ = context;
    }

    /// True when much was taken since the last collection and the limit comes near. Lua itself would rather
    /// fail than collect in time.
    bool needsCollection() const { return used_ > limit / 2 && used_ > keptByCollection_ + limit / 16; }
    void noteCollection() { keptByCollection_ = used_; }

    /// Lua's allocation function; `memory` is a ScriptMemory. Null for a growth beyond the limit.
    static void* allocate(void* memory, void* block, std::size_t oldSize, std::size_t newSize);

private:
    void* resize(void* block, std::size_t oldSize, std::size_t newSize);

    std::size_t used_ = 0;
    std::size_t keptByCollection_ = 0;
    Refused refused_ = nullptr;
    void* context_ = nullptr;
};

} // namespace player
