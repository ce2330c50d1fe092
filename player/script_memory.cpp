#include "player/script_memory.h"

#include <cstdlib>

namespace player
{

void* ScriptMemory::allocate(void* memory, void* block, std::size_t oldSize, std::size_t newSize)
{
    return static_cast<ScriptMemory*>(memory)->resize(block, oldSize, newSize);
}

void* ScriptMemory::resize(void* block, std::size_t oldSize, std::size_t newSize)
{
    if (newSize == 0) {
        std::free(block);
        used_ -= oldSize;
        return nullptr;
    }
    const bool grows = newSize > oldSize;
    void* const moved = grows && newSize - oldSize > limit - used_ ? nullptr : std::realloc(block, newSize);
    if (moved != nullptr) {
        used_ = used_ - oldSize + newSize;
    } else if (grows && refused_ != nullptr) {
        refused_(context_);
    }
    return moved;
}

} // namespace player
