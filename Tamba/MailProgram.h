#pragma once

#include "TambaCore/Documents/Reminders.h"

#include <filesystem>

/// The mail program of the desktop.
namespace tamba::MailProgram {

/// Whether the desktop knows one. Asks it once.
[[nodiscard]] bool exists();
/// Opens a message with the file attached for the person to send. False when that could not be started.
[[nodiscard]] bool compose(const Reminders::Draft& draft, const std::filesystem::path& file);

}  // namespace tamba::MailProgram
