#pragma once

#include <optional>

namespace tamba::testing {

/// The code with which an operation is refused; nothing where it is done.
template <class Error>
[[nodiscard]] std::optional<typename Error::Code> refusal(auto&& operation) {
    try {
        (void)operation();
    } catch (const Error& error) {
        return error.code();
    }
    return {};
}

}  // namespace tamba::testing
