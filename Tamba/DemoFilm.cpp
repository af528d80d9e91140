#include "Tamba/DemoFilm.h"

#include "CorvexKit/FilmEncoder.h"
#include "CorvexKit/StoryboardRunner.h"
#include "Tamba/Prompts.h"
#include "Tamba/QtText.h"
#include "Tamba/Sheets/ImportSheet.h"
#include "Tamba/SignalWatcher.h"
#include "Tamba/Style.h"
#include "Tamba/TambaApp.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/DocumentPreview.h"
#include "Tamba/Widgets/ReceiptView.h"
#include "Tamba/Widgets/SearchPalette.h"
#include "Tamba/Window.h"
#include "TambaCore/Fixtures.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>

namespace tamba {
namespace {

/// Nothing leaves a film: no message is sent, nothing printed, and files go to its own folder.
class FilmPrompts : public DialogPrompts {
public:
    FilmPrompts(QWidget& window, Path desk) : DialogPrompts(window), desk_(std::move(desk)) {}
    std::optional<Path> targetFolder(const QString&) override { return desk_; }
    std::optional<Path> saveFile(const QString&, const std::string& name) override { return desk_ / name; }
    bool openMail(const Reminders::Draft&, const Path&) override { return true; }
    void print(const QString&, const std::string&) override {}

private:
    Path desk_;
};

Storyboard storyboardIn(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw DemoError(
            DemoError::Code::file,
            QStringLiteral("The storyboard “%1” could not be read: %2.").arg(name, file.errorString().toLower()));
    return Storyboard::parse(QString::fromUtf8(file.readAll()));
}

void say(const QString& words) { std::fprintf(stderr, "%s\n", qPrintable(words)); }

/// What this program is for a storyboard: its screens go by their names, “go invoices”.
Stage stageOf(Window& window, AppModel& model, const QString& storyboard) {
    Stage stage;
    stage.window = &window;
    stage.screenControl = [&window](const QString& screen) {
        return window.findChild<QWidget*>(QStringLiteral("screen") + screen.left(1).toUpper() + screen.mid(1));
    };
    stage.isBusy = [&window] { return isWorking(window); };
    stage.timerOwners = {&model};
    stage.folder = QFileInfo(storyboard).absolutePath();
    return stage;
}

/// Throws a `DemoError` or what the sample books throw.
void film(QApplication& application, const QString& storyboard, const std::filesystem::path& target) {
    const Storyboard board = storyboardIn(storyboard);
    FilmEncoder encoder(target, board.size);
    const QTemporaryDir desk;
    const auto folder = toPath(desk.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, desk.filePath(QStringLiteral("settings")));
    Style::install(application);
    const Day today = board.today ? dayOf(*board.today) : Day::today();
    say(QStringLiteral("Making the sample books."));
    Fixtures::write(LibraryStore(folder / "Books"), today);
    AppModel model([today] { return today; });
    Window window(model,
                  Window::MakePrompts([folder](Window& over) { return std::make_unique<FilmPrompts>(over, folder); }));
    model.open(folder / "Books");
    applyLooks(application, model);
    window.resize(board.size);
    window.showScreen(Screen::overview);
    window.show();
    window.activateWindow();

    std::optional<DemoError> problem;
    StoryboardRunner runner(
        board, stageOf(window, model, storyboard),
        {[&](const QImage& frame, Ticks at) { encoder.add(frame, at); }, [&](const Cue& cue) { encoder.add(cue); }});
    const auto leave = [] { QMetaObject::invokeMethod(qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection); };
    QObject::connect(&runner, &StoryboardRunner::progressed, &runner, [&](int step, int count) {
        const auto seconds = runner.length() / FrameTimes::perSecond;
        say(QStringLiteral("Step %1 of %2, %3:%4")
                .arg(step)
                .arg(count)
                .arg(seconds / 60)
                .arg(seconds % 60, 2, 10, QLatin1Char('0')));
    });
    QObject::connect(&runner, &StoryboardRunner::finished, &runner, [&] { encoder.end(runner.length(), leave); });
    QObject::connect(&runner, &StoryboardRunner::failed, &runner, [&](const DemoError& error) {
        problem = error;
        leave();
    });
    SignalWatcher watcher;
    QObject::connect(&watcher, &SignalWatcher::endRequested, &runner, &StoryboardRunner::cancel);
    runner.start();
    QApplication::exec();
    // As when it is closed: what is being typed is taken while the screens are still there.
    window.hide();
    // A film that nobody lets finish is none.
    if (problem) throw DemoError(*problem);
    encoder.wait();
    // Its folder goes with it.
    model.blockSignals(true);
    model.saveNow();
}

}  // namespace

bool isWorking(Window& window) {
    if (window.receipts().isBusy()) return true;
    const auto threads = window.findChildren<QThread*>();
    if (std::any_of(threads.begin(), threads.end(), [](const QThread* thread) { return thread->isRunning(); }))
        return true;
    for (const SearchPalette* palette : window.findChildren<SearchPalette*>())
        if (palette->isVisible() && !palette->isSettled()) return true;
    for (const ReceiptView* view : window.findChildren<ReceiptView*>())
        if (view->isVisible() && !view->isLoaded()) return true;
    for (const DocumentPreview* preview : window.findChildren<DocumentPreview*>())
        if (preview->isVisible() && preview->isRendering()) return true;
    for (const ImportSheet* sheet : window.findChildren<ImportSheet*>())
        if (sheet->isReading()) return true;
    return false;
}

int recordDemo(QApplication& application, const QString& storyboard, const std::filesystem::path& target) {
    try {
        film(application, storyboard, target);
        say(QStringLiteral("Made %1.").arg(toQt(target)));
        return 0;
    } catch (const std::exception& error) {
        say(toQt(std::string_view(error.what())));
        return 1;
    }
}

}  // namespace tamba
