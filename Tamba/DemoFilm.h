#pragma once

#include <QString>

#include <filesystem>

class QApplication;

namespace tamba {

class Window;

/// Films a storyboard played on this program with the sample books, in a folder and with settings of their own that are
/// gone afterwards: `tamba --record-demo STORYBOARD -o FILE`. Says on standard error how far it is and what went wrong.
/// Returns the exit status.
[[nodiscard]] int recordDemo(QApplication& application, const QString& storyboard, const std::filesystem::path& film);

/// Work off the main thread that what the window shows waits for.
[[nodiscard]] bool isWorking(Window& window);

}  // namespace tamba
