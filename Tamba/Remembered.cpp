#include "Tamba/Remembered.h"

#include "Tamba/QtText.h"

#include <QFileInfo>
#include <QSettings>
#include <QWidget>

#include <algorithm>

namespace tamba::Remembered {
namespace {

QSettings settings() { return QSettings(QStringLiteral("tamba"), QStringLiteral("tamba")); }

const QString folderKey = QStringLiteral("folder"), screenKey = QStringLiteral("screen"),
              sizeKey = QStringLiteral("window");

}  // namespace

std::optional<std::filesystem::path> folder() {
    const QString kept = settings().value(folderKey).toString();
    if (kept.isEmpty() || !QFileInfo::exists(kept + QStringLiteral("/tamba.json"))) return {};
    return toPath(kept);
}

void setFolder(const std::filesystem::path& folder) { settings().setValue(folderKey, toQt(folder)); }

Screen screen() {
    const int kept = settings().value(screenKey).toInt();
    return allScreens[std::clamp(kept, 0, static_cast<int>(std::size(allScreens)) - 1)];
}

void setScreen(Screen screen) { settings().setValue(screenKey, static_cast<int>(screen)); }

bool restoreSize(QWidget& window) { return window.restoreGeometry(settings().value(sizeKey).toByteArray()); }

void setSize(const QWidget& window) { settings().setValue(sizeKey, window.saveGeometry()); }

}  // namespace tamba::Remembered
