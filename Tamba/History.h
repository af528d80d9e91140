#pragma once

#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <utility>

namespace tamba {

/// Undo and redo as stacks of whole `Library` values with the name of the step between them. Values share what they
/// have in common, so a hundred of them cost little more than one.
class History {
public:
    static constexpr std::size_t limit = 100;

    /// Remembers the value as it was before the step called `title`. What had been undone is forgotten.
    void push(std::string title, Library before) {
        undo_.push_back({std::move(title), std::move(before)});
        if (undo_.size() > limit) undo_.pop_front();
        redo_.clear();
    }
    /// The value before the latest step; `now` is kept for redo. Nothing when there is no step.
    [[nodiscard]] std::optional<Library> undo(const Library& now) { return step(undo_, redo_, now); }
    [[nodiscard]] std::optional<Library> redo(const Library& now) { return step(redo_, undo_, now); }
    /// What was done before cannot be undone any more.
    void clear() {
        undo_.clear();
        redo_.clear();
    }

    /// Name of the step that would be undone or redone; empty when there is none.
    [[nodiscard]] std::string undoTitle() const { return undo_.empty() ? std::string() : undo_.back().first; }
    [[nodiscard]] std::string redoTitle() const { return redo_.empty() ? std::string() : redo_.back().first; }

private:
    using Steps = std::deque<std::pair<std::string, Library>>;
    static std::optional<Library> step(Steps& from, Steps& to, const Library& now) {
        if (from.empty()) return std::nullopt;
        auto [title, library] = std::move(from.back());
        from.pop_back();
        to.push_back({std::move(title), now});
        return std::move(library);
    }

    Steps undo_, redo_;
};

}  // namespace tamba
