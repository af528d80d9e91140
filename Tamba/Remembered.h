#pragma once

#include <filesystem>
#include <optional>
#include <string>

class QWidget;

/// What this computer remembers from one start to the next, beside the books: which ones, and how the window stood.
namespace tamba::Remembered {

/// The books opened last, whether they are still there or not.
[[nodiscard]] std::optional<std::filesystem::path> folder();
void setFolder(const std::filesystem::path& folder);
/// Whether books have been open in this folder before.
[[nodiscard]] bool heldBooks(const std::filesystem::path& folder);
void setHeldBooks(const std::filesystem::path& folder);

/// False, with the window as it was, when nothing is remembered.
[[nodiscard]] bool restoreSize(QWidget& window);
void setSize(const QWidget& window);

/// How the windows look on this computer, and the language of their texts.
struct Appearance {
    enum class Looks { system, light, dark };
    enum class Language { system, english, hindi };
    Looks looks = Looks::system;
    Language language = Language::system;
    bool operator==(const Appearance&) const = default;
};
[[nodiscard]] Appearance appearance();
void setAppearance(const Appearance& appearance);

/// Whether the program may look for updates by itself; false until somebody wants it.
[[nodiscard]] bool looksForUpdates();
void setLooksForUpdates(bool allowed);

/// How the statements of one layout were read last; empty when none came in.
[[nodiscard]] std::string layout(const std::string& key);
/// Nothing is kept for an empty key.
void setLayout(const std::string& key, const std::string& reading);

}  // namespace tamba::Remembered
