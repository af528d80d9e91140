#include "Tamba/Remembered.h"

#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"

#include <QCryptographicHash>
#include <QSettings>
#include <QWidget>

namespace tamba::Remembered {
namespace {

QSettings settings() { return QSettings(QStringLiteral("tamba"), QStringLiteral("tamba")); }

const QString folderKey = QStringLiteral("folder"), heldKey = QStringLiteral("folders"),
              sizeKey = QStringLiteral("window"), looksKey = QStringLiteral("looks"),
              languageKey = QStringLiteral("language"), updatesKey = QStringLiteral("lookForUpdates");

/// The titles of a statement hold characters that settings take for groups.
QString layoutName(const std::string& key) {
    const QByteArray hash = QCryptographicHash::hash(QByteArrayView(key), QCryptographicHash::Sha1);
    return QStringLiteral("statements/") + QString::fromLatin1(hash.toHex());
}

}  // namespace

std::optional<std::filesystem::path> folder() {
    const QString kept = settings().value(folderKey).toString();
    if (kept.isEmpty()) return {};
    return toPath(kept);
}

void setFolder(const std::filesystem::path& folder) { settings().setValue(folderKey, toQt(folder)); }

bool heldBooks(const std::filesystem::path& folder) {
    return settings().value(heldKey).toStringList().contains(toQt(Files::realPath(folder)));
}

void setHeldBooks(const std::filesystem::path& folder) {
    constexpr qsizetype kept = 50;
    const QString path = toQt(Files::realPath(folder));
    QStringList held = settings().value(heldKey).toStringList();
    if (!held.isEmpty() && held.front() == path) return;
    held.removeAll(path);
    held.prepend(path);
    settings().setValue(heldKey, held.mid(0, kept));
}

bool restoreSize(QWidget& window) { return window.restoreGeometry(settings().value(sizeKey).toByteArray()); }

void setSize(const QWidget& window) { settings().setValue(sizeKey, window.saveGeometry()); }

Appearance appearance() {
    const auto kept = [](const QString& key) { return std::clamp(settings().value(key).toInt(), 0, 2); };
    return {static_cast<Appearance::Looks>(kept(looksKey)), static_cast<Appearance::Language>(kept(languageKey))};
}

void setAppearance(const Appearance& appearance) {
    settings().setValue(looksKey, static_cast<int>(appearance.looks));
    settings().setValue(languageKey, static_cast<int>(appearance.language));
}

bool looksForUpdates() { return settings().value(updatesKey).toBool(); }

void setLooksForUpdates(bool allowed) { settings().setValue(updatesKey, allowed); }

std::string layout(const std::string& key) {
    return key.empty() ? std::string() : toStd(settings().value(layoutName(key)).toString());
}

void setLayout(const std::string& key, const std::string& reading) {
    if (!key.empty()) settings().setValue(layoutName(key), toQt(reading));
}

}  // namespace tamba::Remembered
