#pragma once

#include "Tamba/AppModel.h"

#include <functional>

class QApplication;

namespace tamba {

/// Palette and style for the books' accent colour, light or dark as the desktop is.
void applyLooks(QApplication& application, const AppModel& model);

/// For the end of a session: what is being typed counts as when its field is left, and all is saved. False when that
/// failed.
bool saveTyping(AppModel& model);
/// Closes the sheets that are open, with what was typed in them where that only had to be kept, and goes on once all
/// they were opened for has happened, or after `rounds` of waiting for what does not end by itself.
void closeSheets(AppModel& model, std::function<void()> next, int rounds = 200);

/// The program: `tamba [FOLDER]`, `tamba --version`. Returns its exit status.
int runTamba(int argc, char** argv);

}  // namespace tamba
