#include "TambaCore/Receipts/OwnProcess.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <thread>

namespace tamba {
namespace {

using namespace std::chrono_literals;

Deadline in(std::chrono::milliseconds time) { return std::chrono::steady_clock::now() + time; }

std::string forever() {
    while (true) ::pause();
}

TEST(OwnProcess, givesWhatTheWorkGivesWhateverItsSize) {
    EXPECT_EQ(inOwnProcess([] { return std::string("done"); }, in(1min), nullptr), "done");
    EXPECT_EQ(inOwnProcess([] { return std::string(); }, in(1min), nullptr), "");
    const std::string large(5'000'000, 'x');
    EXPECT_EQ(inOwnProcess([&] { return large; }, in(1min), nullptr), large);
}

TEST(OwnProcess, givesNothingForWorkThatFailsCrashesOrNeverEnds) {
    EXPECT_EQ(inOwnProcess([]() -> std::string { throw std::runtime_error("no"); }, in(1min), nullptr), std::nullopt);
    EXPECT_EQ(inOwnProcess([]() -> std::string { ::raise(SIGKILL), ::_exit(0); }, in(1min), nullptr), std::nullopt);
    EXPECT_EQ(inOwnProcess(forever, in(100ms), nullptr), std::nullopt);
    std::atomic<bool> cancel = false;
    std::jthread person([&] { std::this_thread::sleep_for(100ms), cancel = true; });
    EXPECT_EQ(inOwnProcess(forever, in(10min), &cancel), std::nullopt);
}

}  // namespace
}  // namespace tamba
