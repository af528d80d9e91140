#include "Tamba/TambaApp.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/SignalWatcher.h"
#include "Tamba/Style.h"
#include "Tamba/Window.h"

#include <QApplication>
#include <QCommandLineParser>

#include <clocale>
#include <cstdlib>

namespace tamba {
namespace {

std::filesystem::path folderToOpen(const QStringList& arguments) {
    if (!arguments.isEmpty()) return std::filesystem::absolute(toPath(arguments.front()));
    const char* named = std::getenv("TAMBA_LIBRARY_DIR");
    return named && *named ? std::filesystem::path(named) : LibraryStore::defaultFolder();
}

}  // namespace

void applyLooks(QApplication& application, const AppModel& model) {
    Style::apply(application, Colors::make(Style::desktopIsDark(), Icons::colorOf(model.library().business.accentHex)));
}

int runTamba(int argc, char** argv) {
    QApplication application(argc, argv);
    // Qt takes over the desktop's locale; files are written the same everywhere.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(QStringLiteral("Tamba"));
    QApplication::setApplicationVersion(QStringLiteral(TAMBA_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("tamba"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QObject::tr("Bookkeeping for freelancers and small studios."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("FOLDER"), QObject::tr("The books to open."),
                                 QStringLiteral("[FOLDER]"));
    parser.process(application);

    Style::install(application);
    AppModel model;
    Window window(model);
    applyLooks(application, model);
    QObject::connect(&window, &Window::looksChanged, &model, [&] { applyLooks(application, model); });
    SignalWatcher watcher;
    QObject::connect(&watcher, &SignalWatcher::endRequested, &model, [&model] {
        // Nobody may be there to answer a question.
        model.blockSignals(true);
        QCoreApplication::exit(model.saveNow() ? 0 : 1);
    });
    // The session ends without asking every window first.
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &model, [&model] { model.saveNow(); }, Qt::DirectConnection);
    window.resize(1440, 880);
    model.open(folderToOpen(parser.positionalArguments()));
    window.show();
    return QApplication::exec();
}

}  // namespace tamba
