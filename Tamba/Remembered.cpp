#include "Tamba/Remembered.h"

#include "Tamba/QtText.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSettings>
#include <QWidget>

namespace tamba::Remembered {
namespace {

QSettings settings() { return QSettings(QStringLiteral("tamba"), QStringLiteral("tamba")); }

const QString folderKey = QStringLiteral("folder"), sizeKey = QStringLiteral("window");

/// The titles of a statement hold characters that settings take for groups.
QString layoutName(const std::string& key) {
    const QByteArray hash = QCryptographicHash::hash(QByteArrayView(key), QCryptographicHash::Sha1);
    return QStringLiteral("statements/") + QString::fromLatin1(hash.toHex());
}

}  // namespace

std::optional<std::filesystem::path> folder() {
    const QString kept = settings().value(folderKey).toString();
    if (kept.isEmpty() || !QFileInfo::exists(kept + QStringLiteral("/tamba.json"))) return {};
    return toPath(kept);
}

void setFolder(const std::filesystem::path& folder) { settings().setValue(folderKey, toQt(folder)); }

bool restoreSize(QWidget& window) { return window.restoreGeometry(settings().value(sizeKey).toByteArray()); }

void setSize(const QWidget& window) { settings().setValue(sizeKey, window.saveGeometry()); }

std::string layout(const std::string& key) {
    return key.empty() ? std::string() : toStd(settings().value(layoutName(key)).toString());
}

void setLayout(const std::string& key, const std::string& reading) {
    if (!key.empty()) settings().setValue(layoutName(key), toQt(reading));
}

}  // namespace tamba::Remembered
