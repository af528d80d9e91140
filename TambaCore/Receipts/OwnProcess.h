#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace tamba {

using Deadline = std::chrono::steady_clock::time_point;

/// Runs `work` in a process of its own and gives the bytes it returns; nothing when it threw, crashed, was cancelled or
/// went past the deadline. For libraries that cannot be stopped while they work on a hostile file. The process begins
/// as a copy of this one with the calling thread alone: `work` must take no lock that another thread may hold.
[[nodiscard]] std::optional<std::string> inOwnProcess(const std::function<std::string()>& work, Deadline deadline,
                                                      const std::atomic<bool>* cancel);

}  // namespace tamba
