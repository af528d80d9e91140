#pragma once

#include <cstddef>

namespace tamba {

/// Asks the system for large pages behind memory that is about to be filled: of a hundred megabytes, half the time goes
/// to handing them out in small ones. Memory of less than some megabytes is left as it is. Gives the part that large
/// pages cover, which may be empty.
struct LargePages {
    void* begin = nullptr;
    std::size_t size = 0;
};
LargePages askForLargePages(char* begin, std::size_t size);

}  // namespace tamba
