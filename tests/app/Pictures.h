#pragma once

#include "tests/app/Support.h"

namespace tamba {

/// The folder for pictures, empty where none are wanted.
inline QString picturesFolder() { return qEnvironmentVariable("TAMBA_SHOTS"); }

/// Keeps a picture of the widget as it is now, where pictures are wanted.
inline void picture(QWidget& widget, const QString& name) {
    if (picturesFolder().isEmpty()) return;
    for (int rounds = 0; rounds < 5; ++rounds) QCoreApplication::processEvents();
    const QString scale = widget.devicePixelRatioF() > 1 ? QStringLiteral("@2x") : QString();
    QVERIFY(QDir().mkpath(picturesFolder()));
    QVERIFY(widget.grab().save(picturesFolder() + QStringLiteral("/%1%2.png").arg(name, scale)));
}

}  // namespace tamba
