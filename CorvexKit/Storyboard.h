#pragma once

#include "CorvexKit/DemoError.h"

#include <QDate>
#include <QKeySequence>
#include <QSize>
#include <QString>

#include <optional>
#include <vector>

/// A demonstration as a text file, one step a line. Blank lines and lines that begin with # say nothing.
///
///     size 1280x800            of the film; before the first step, as is the day
///     today 2026-11-21         the day on which it plays
///     caption Drop a bill      is shown until the next caption; without words the caption goes
///     go expenses              to a screen
///     click newExpense         a control by its object name, its accessible name or its words
///     choose Record Payment…   an entry of a menu or a list by its words
///     type Kagaz Stationers    letter by letter into the field that has the focus
///     press Ctrl+K             keys that belong together
///     drop till-bill.jpg       a file on the window; its path starts at the storyboard's folder
///     wait 1.5                 seconds
///     wait until idle          while the program works in the background
namespace tamba {

struct StoryStep {
    enum class Kind { go, click, choose, type, press, drop, wait, waitUntilIdle, caption };
    Kind kind = Kind::wait;
    int line = 0;  ///< in the file, from 1
    QString text = {};
    QKeySequence keys = {};  ///< of `press`
    int milliseconds = 0;    ///< of `wait`
};

struct Storyboard {
    QSize size{1280, 800};  ///< even numbers, which video needs
    std::optional<QDate> today = {};
    std::vector<StoryStep> steps = {};

    /// Throws a `DemoError` that names the line.
    [[nodiscard]] static Storyboard parse(const QString& text);
};

/// “Line 7: ” before the sentence.
[[nodiscard]] DemoError stepError(DemoError::Code code, int line, const QString& sentence);

}  // namespace tamba
