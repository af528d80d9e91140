#pragma once

#include <cstddef>

/// Of a hundred megabytes of books, much of the time to read them is the system handing out memory in small pages. To
/// ask for large ones is advice: what the system does not follow costs nothing.
namespace tamba::LargePages {

/// For the memory from `begin` on.
void ask(void* begin, std::size_t size);
/// For what this thread allocates next.
void askForHeap();

}  // namespace tamba::LargePages
