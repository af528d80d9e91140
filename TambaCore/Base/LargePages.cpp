#include "TambaCore/Base/LargePages.h"

#include <sys/mman.h>

#include <cstdint>
#include <memory>

namespace tamba::LargePages {

void ask(void* begin, std::size_t size) {
    constexpr std::uintptr_t page = 2 << 20;
    const auto address = reinterpret_cast<std::uintptr_t>(begin);
    const std::uintptr_t from = (address + page - 1) / page * page, to = (address + size) / page * page;
    if (from < to) (void)::madvise(reinterpret_cast<void*>(from), to - from, MADV_HUGEPAGE);
}

void askForHeap() {
    // A heap grows upwards from where it gives now.
    constexpr std::size_t room = 64 << 20;
    const auto here = std::make_unique<char>();
    ask(here.get(), room);
}

}  // namespace tamba::LargePages
