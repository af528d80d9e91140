#pragma once

#include <QObject>

#include <memory>

namespace tamba {

[[nodiscard]] std::unique_ptr<QObject> storyboardTests();
[[nodiscard]] std::unique_ptr<QObject> filmTests();

}  // namespace tamba
