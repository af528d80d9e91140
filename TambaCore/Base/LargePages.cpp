#include "TambaCore/Base/LargePages.h"

#include <sys/mman.h>

#include <cstdint>

namespace tamba {

LargePages askForLargePages(char* begin, std::size_t size) {
    constexpr std::uintptr_t page = 2 << 20;
    const auto from = (reinterpret_cast<std::uintptr_t>(begin) + page - 1) / page * page;
    const auto to = (reinterpret_cast<std::uintptr_t>(begin) + size) / page * page;
    if (to < from + 8 * page) return {};
    const LargePages pages{reinterpret_cast<void*>(from), to - from};
    (void)::madvise(pages.begin, pages.size, MADV_HUGEPAGE);
    return pages;
}

}  // namespace tamba
