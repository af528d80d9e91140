#pragma once

#include "Tamba/AppModel.h"

class QApplication;

namespace tamba {

/// Palette and style for the books' accent colour, light or dark as the desktop is.
void applyLooks(QApplication& application, const AppModel& model);

/// For the end of a session: what is being typed counts as when its field is left, and all is saved. False when that
/// failed.
bool saveTyping(AppModel& model);

/// The program: `tamba [FOLDER]`, `tamba --version`. Returns its exit status.
int runTamba(int argc, char** argv);

}  // namespace tamba
