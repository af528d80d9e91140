#pragma once

#include <system_error>
#include <thread>
#include <utility>

namespace tamba {

/// A thread that takes a share of work which gets done without it, too. Not joinable where the system has no thread
/// left: books are opened and saved all the same.
template <class Work>
[[nodiscard]] std::jthread helper(Work&& work) {
    try {
        return std::jthread(std::forward<Work>(work));
    } catch (const std::system_error&) {
        return {};
    }
}

}  // namespace tamba
