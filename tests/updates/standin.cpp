#include "CorvexKit/UpdateService.h"

#include <QCoreApplication>
#include <QSslCertificate>
#include <QTimer>

#include <cstdio>

/// A program as small as can be that keeps itself up to date: says its version, looks for the next one, fetches it,
/// and quits. Where the updates are stands in the environment.
int main(int argc, char** argv) {
    using namespace tamba;
    using Stage = UpdateStatus::Stage;
    std::printf("%s\n", STANDIN_VERSION);
    std::fflush(stdout);
    if (argc > 1) return 0;
    QCoreApplication application(argc, argv);
    if (STANDIN_FAILS) return 3;
    UpdateConfiguration configuration;
    configuration.context = {"Books",
                             *Version::read(STANDIN_VERSION),
                             "linux-x86_64",
                             {*readUpdateKey(qEnvironmentVariable("BOOKS_KEY").toStdString())}};
    configuration.feed = QUrl(qEnvironmentVariable("BOOKS_FEED"));
    configuration.folder = qEnvironmentVariable("BOOKS_FOLDER").toStdString();
    configuration.now = [] { return QDateTime::currentSecsSinceEpoch(); };
    configuration.installation = UpdateInstallation::around("/proc/self/exe");
    configuration.network.tls.setCaCertificates(QSslCertificate::fromPath(qEnvironmentVariable("BOOKS_CERTIFICATE")));
    UpdateService updates(configuration);
    QObject::connect(&updates, &UpdateService::changed, &updates, [&] {
        const Stage stage = updates.status().stage;
        if (stage == Stage::checking || stage == Stage::downloading) return;
        std::printf("%s\n", updates.status().sentence.toUtf8().constData());
        if (stage == Stage::offered)
            updates.download();
        else
            application.quit();
    });
    updates.setAllowed(true);
    updates.confirm();
    application.exec();
    updates.finish();
    return 0;
}
