#include "Tamba/Updates.h"

#include "Tamba/QtText.h"

#include <QDateTime>
#include <QEvent>
#include <QStandardPaths>
#include <QSysInfo>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace tamba::Updates {
namespace {

class FirstPaint : public QObject {
public:
    FirstPaint(QWidget& window, std::function<void()> work) : QObject(&window), work_(std::move(work)) {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* window, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            window->removeEventFilter(this);
            // The event comes before the painting.
            QTimer::singleShot(0, this, [this] {
                work_();
                deleteLater();
            });
        }
        return false;
    }

private:
    const std::function<void()> work_;
};

}  // namespace

UpdateConfiguration configuration() {
    UpdateConfiguration made;
    made.context.program = "Tamba";
    made.context.present = Version::read(TAMBA_VERSION).value_or(Version());
    made.context.platform = toStd(QSysInfo::kernelType() + QLatin1Char('-') + QSysInfo::buildCpuArchitecture());
    for (const QString& key : QStringLiteral(TAMBA_UPDATE_KEYS).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        if (const auto read = readUpdateKey(toStd(key))) made.context.keys.push_back(*read);
    made.feed = QUrl(QStringLiteral(TAMBA_UPDATE_FEED));
    made.installation = UpdateInstallation::around("/proc/self/exe");
    made.folder = toPath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         QStringLiteral("/tamba-updates"));
    made.now = [] { return QDateTime::currentSecsSinceEpoch(); };
    return made;
}

void afterFirstPaint(QWidget& window, std::function<void()> work) { new FirstPaint(window, std::move(work)); }

}  // namespace tamba::Updates
