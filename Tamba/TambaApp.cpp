#include "Tamba/TambaApp.h"

#include "Tamba/DemoFilm.h"
#include "Tamba/Icons.h"
#include "Tamba/Instance.h"
#include "Tamba/QtText.h"
#include "Tamba/Remembered.h"
#include "Tamba/Sheets/Sheet.h"
#include "Tamba/SignalWatcher.h"
#include "Tamba/StartUp.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Updates.h"
#include "Tamba/Window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace tamba {

using namespace std::chrono_literals;

namespace {

/// The books that the command line or the environment names.
std::optional<std::filesystem::path> namedFolder(const StartArguments& arguments) {
    if (arguments.folder) return arguments.folder;
    const char* named = std::getenv("TAMBA_LIBRARY_DIR");
    return named && *named ? std::optional<std::filesystem::path>(named) : std::nullopt;
}

}  // namespace

void applyLooks(QApplication& application, const AppModel& model) {
    const auto looks = Remembered::appearance().looks;
    const bool dark = looks == Remembered::Appearance::Looks::system ? Style::desktopIsDark()
                                                                     : looks == Remembered::Appearance::Looks::dark;
    Style::apply(application, Colors::make(dark, Icons::colorOf(model.library().business.accentHex)));
}

bool saveTyping(AppModel& model) {
    if (QWidget* field = QApplication::focusWidget()) field->clearFocus();
    return model.saveNow();
}

void closeSheets(AppModel& model, std::function<void()> next, int rounds) {
    QWidget* front = QApplication::activeModalWidget();
    if (!front) front = QApplication::activePopupWidget();
    if (auto* sheet = qobject_cast<Sheet*>(front))
        sheet->end();
    else if (auto* dialog = qobject_cast<QDialog*>(front))
        dialog->reject();
    else if (front)
        front->close();
    // Each has an event loop of its own, and who opened it goes on when that has ended.
    else if (QThread::currentThread()->loopLevel() <= 1)
        return next();
    if (rounds == 0) return next();
    QTimer::singleShot(5ms, &model, [&model, next = std::move(next), rounds] { closeSheets(model, next, rounds - 1); });
}

int runTamba(int argc, char** argv) {
    // A film needs no screen.
    const auto given = [&](const char* name) {
        return std::find(argv, argv + argc, std::string_view(name)) != argv + argc;
    };
    const auto set = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
    if (given("--record-demo") && !set("DISPLAY") && !set("WAYLAND_DISPLAY") && !set("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
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
    const QCommandLineOption story(QStringLiteral("record-demo"),
                                   QObject::tr("Play this storyboard on the sample books and film it."),
                                   QStringLiteral("STORYBOARD"));
    const QCommandLineOption film({QStringLiteral("o"), QStringLiteral("output")},
                                  QObject::tr("Where the film goes: a name that ends in .mp4 or .webm."),
                                  QStringLiteral("FILE"));
    parser.addOptions({story, film});
    parser.addPositionalArgument(QStringLiteral("FOLDER"), QObject::tr("The books to open."),
                                 QStringLiteral("[FOLDER]"));
    parser.addPositionalArgument(QStringLiteral("FILE"), QObject::tr("Receipts and statements to add to them."),
                                 QStringLiteral("[FILE…]"));
    parser.process(application);
    if (parser.isSet(story) != parser.isSet(film)) {
        std::fputs("--record-demo STORYBOARD and -o FILE belong together.\n", stderr);
        return 2;
    }
    if (parser.isSet(story)) return recordDemo(application, parser.value(story), toPath(parser.value(film)));
    const auto arguments = StartArguments::of(parser.positionalArguments());
    const auto named = namedFolder(arguments);
    if (Instance::handOver(StartUp::folder(named), arguments.files)) return 0;

    Translations::install(application, Remembered::appearance().language);
    Style::install(application);
    AppModel model;
    Window window(model);
    applyLooks(application, model);
    QObject::connect(&window, &Window::looksChanged, &model, [&] { applyLooks(application, model); });
    SignalWatcher watcher;
    QObject::connect(&watcher, &SignalWatcher::endRequested, &model, [&model] {
        closeSheets(model, [&model] {
            // Nobody may be there to answer a question.
            model.blockSignals(true);
            QCoreApplication::exit(saveTyping(model) ? 0 : 1);
        });
    });
    // The session ends without asking every window first.
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &model,
        [&model] {
            saveTyping(model);
            if (QApplication::activeModalWidget()) closeSheets(model, [&model] { saveTyping(model); });
        },
        Qt::DirectConnection);
    if (!Remembered::restoreSize(window)) window.resize(1440, 880);
    window.showScreen(Screen::overview);
    StartUp startUp(model, window, named);
    startUp.begin();
    window.show();
    window.addFiles(arguments.files);
    UpdateService updates(Updates::configuration());
    Updates::afterFirstPaint(window, [&] {
        updates.confirm();
        window.setUpdates(updates);
    });
    const int result = QApplication::exec();
    Remembered::setSize(window);
    updates.finish();
    return result;
}

}  // namespace tamba
