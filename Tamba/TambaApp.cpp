#include "Tamba/TambaApp.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Remembered.h"
#include "Tamba/SignalWatcher.h"
#include "Tamba/Style.h"
#include "Tamba/Window.h"

#include <QApplication>
#include <QCommandLineParser>

#include <clocale>
#include <cstdlib>
#include <optional>

namespace tamba {
namespace {

/// The books that the command line or the environment names.
std::optional<std::filesystem::path> namedFolder(const QStringList& arguments) {
    if (!arguments.isEmpty()) return std::filesystem::absolute(toPath(arguments.front()));
    const char* named = std::getenv("TAMBA_LIBRARY_DIR");
    return named && *named ? std::optional<std::filesystem::path>(named) : std::nullopt;
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
    if (!Remembered::restoreSize(window)) window.resize(1440, 880);
    const auto named = namedFolder(parser.positionalArguments());
    model.open(named ? *named : Remembered::folder().value_or(LibraryStore::defaultFolder()));
    window.showScreen(Screen::overview);
    window.show();
    const int result = QApplication::exec();
    Remembered::setSize(window);
    // Books that were named for this once are not those to begin with the next time.
    if (model.state() == AppModel::State::open && window.ownFolder() != named)
        Remembered::setFolder(window.ownFolder());
    return result;
}

}  // namespace tamba
