#pragma once

#include "CorvexKit/UpdateService.h"

#include <functional>

class QWidget;

/// This program and its updates: where they come from, and whom to trust, was settled when it was built.
namespace tamba::Updates {

[[nodiscard]] UpdateConfiguration configuration();
/// Calls `work` once the window has painted for the first time.
void afterFirstPaint(QWidget& window, std::function<void()> work);

}  // namespace tamba::Updates
