#include "Tamba/MailProgram.h"

#include "Tamba/QtText.h"

#include <QProcess>
#include <QStandardPaths>

#include <chrono>

namespace tamba::MailProgram {
namespace {

/// "Asha Rao <asha@saffron.example>" gives asha@saffron.example: the name would be taken for a second address.
QString bareAddress(const QString& to) {
    const qsizetype from = to.lastIndexOf(QLatin1Char('<'));
    QString address = from < 0 ? to : to.mid(from + 1).remove(QLatin1Char('>'));
    address = address.trimmed();
    // What begins with a hyphen would be an option.
    return address.contains(QLatin1Char('@')) && !address.startsWith(QLatin1Char('-')) ? address : QString();
}

}  // namespace

bool exists() {
    static const bool found = [] {
        if (QStandardPaths::findExecutable(QStringLiteral("xdg-email")).isEmpty()) return false;
        // The script is there on desktops without a mail program, too.
        QProcess query;
        query.start(QStringLiteral("xdg-mime"),
                    {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("x-scheme-handler/mailto")});
        return query.waitForFinished(3000) && !query.readAllStandardOutput().trimmed().isEmpty();
    }();
    return found;
}

bool compose(const Reminders::Draft& draft, const std::filesystem::path& file) {
    if (!exists()) return false;
    QStringList arguments{
        QStringLiteral("--utf8"), QStringLiteral("--subject"), toQt(draft.subject), QStringLiteral("--body"),
        toQt(draft.body),         QStringLiteral("--attach"),  toQt(file)};
    if (const QString address = bareAddress(toQt(draft.to)); !address.isEmpty()) arguments << address;
    return QProcess::startDetached(QStringLiteral("xdg-email"), arguments);
}

}  // namespace tamba::MailProgram
