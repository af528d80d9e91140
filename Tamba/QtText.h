#pragma once

#include <QString>

#include <concepts>
#include <filesystem>
#include <string>
#include <string_view>

/// The border between the core's UTF-8 and Qt's strings; nothing else converts.
namespace tamba {

[[nodiscard]] inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string toStd(const QString& text) { return text.toStdString(); }
template <std::same_as<std::filesystem::path> Path>  // a text must not become a path unasked
[[nodiscard]] QString toQt(const Path& path) {
    return toQt(std::string_view(path.native()));
}
[[nodiscard]] inline std::filesystem::path toPath(const QString& path) { return path.toStdString(); }

}  // namespace tamba
