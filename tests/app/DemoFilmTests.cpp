#include "CorvexKit/LiveRecorder.h"
#include "Tamba/Widgets/RecorderBar.h"
#include "tests/app/Support.h"

#include <QLineEdit>
#include <QMenuBar>

#include <cstdlib>

namespace tamba {

/// Films of the program: a storyboard from the command line, and what a person does from the menu.
class DemoFilmTests : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;

    QString put(const QString& name, const QByteArray& text) {
        QFile file(folder_.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) qFatal("no test file");
        return file.fileName();
    }
    [[nodiscard]] QStringList films() const {
        return QDir(folder_.path())
            .entryList({QStringLiteral("*.mp4*"), QStringLiteral(".*.mp4*")}, QDir::Files | QDir::Hidden);
    }
    void start(QProcess& program, const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), folder_.path());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(TAMBA_PROGRAM), arguments);
    }
    /// Width, height, rate, frames and streams as ffprobe tells them; nothing without it.
    QString probed(const QString& film) {
        QProcess probe;
        probe.start(QStringLiteral("ffprobe"),
                    {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-count_packets"),
                     QStringLiteral("-show_entries"),
                     QStringLiteral("stream=codec_name,width,height,r_frame_rate,nb_read_packets:format=duration"),
                     QStringLiteral("-of"), QStringLiteral("csv"), film});
        return probe.waitForFinished(60000) ? QString::fromUtf8(probe.readAllStandardOutput()) : QString();
    }
    static bool canProbe() {
        if (!QStandardPaths::findExecutable(QStringLiteral("ffprobe")).isEmpty()) return true;
        if (std::getenv("CI")) qFatal("ffprobe is missing: the package ffmpeg is to be installed.");
        return false;
    }

private slots:
    void cleanup() {
        for (const QString& film : films()) QFile::remove(folder_.filePath(film));
    }

    void aStoryboardIsFilmedOnTheSampleBooks() {
        if (!canProbe()) QSKIP("NOT TESTED: ffprobe is not installed (package ffmpeg), so no film was looked at.");
        const QString story = put(QStringLiteral("short.story"),
                                  "size 640x400\ntoday 2026-11-21\ncaption The invoices\ngo invoices\n"
                                  "press Ctrl+N\ncaption Another one\nwait 1\n");
        const QString film = folder_.filePath(QStringLiteral("short.mp4"));
        QProcess program;
        start(program, {QStringLiteral("--record-demo"), story, QStringLiteral("-o"), film});
        QVERIFY(program.waitForFinished(120000));
        QVERIFY2(program.exitCode() == 0, program.readAllStandardError().constData());
        // Frames: 39 of a click, 26 of keys, 30 of the wait.
        const QStringList facts = probed(film).split(QLatin1Char('\n'));
        QCOMPARE(facts.value(0), QStringLiteral("stream,h264,640,400,30/1,95"));
        QVERIFY2(facts.value(1).startsWith(QStringLiteral("stream,mov_text,")), qPrintable(facts.value(1)));
        QVERIFY2(facts.value(2).startsWith(QStringLiteral("format,3.16")), qPrintable(facts.value(2)));
    }

    void aFilmThatIsNotMadeSaysWhyAndLeavesNothing_data() {
        QTest::addColumn<QByteArray>("story");
        QTest::addColumn<QString>("film");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const char* name, const char* story, const char* film, const char* sentence) {
            QTest::newRow(name) << QByteArray(story) << QString::fromUtf8(film) << QString::fromUtf8(sentence);
        };
        // What is being typed then is no trouble to a window that goes.
        row("step", "press Ctrl+Shift+N\nclick lineName\ntype Pap\nclick treasure", "a.mp4",
            "Line 4: there is no “treasure” to be clicked.");
        row("story", "wait forever", "a.mp4",
            "Line 1: say how many seconds to wait, such as 1.5 and at most 600, or “until idle”.");
        row("interrupted", "wait 500", "a.mp4", "The film was given up.");
    }
    void aFilmThatIsNotMadeSaysWhyAndLeavesNothing() {
        QFETCH(QByteArray, story);
        QFETCH(QString, film);
        QFETCH(QString, sentence);
        QProcess program;
        start(program, {QStringLiteral("--record-demo"), put(QStringLiteral("bad.story"), story), QStringLiteral("-o"),
                        folder_.filePath(film)});
        QByteArray said;
        const auto hears = [&](const char* word) {
            said += program.readAllStandardError();
            return said.contains(word) || program.state() == QProcess::NotRunning;
        };
        if (story == "wait 500") {
            QTRY_VERIFY_WITH_TIMEOUT(hears("Step 1 of 1"), 120000);
            program.terminate();
        }
        QVERIFY(program.waitForFinished(120000));
        said += program.readAllStandardError();
        QCOMPARE(program.exitCode(), 1);
        QVERIFY2(QString::fromUtf8(said).trimmed().endsWith(sentence), said.constData());
        QCOMPARE(films(), QStringList());
    }

    void whatAPersonDoesIsFilmedFromTheMenu() {
        OpenWindow books;
        TestPrompts& prompts = books.prompts;
        Window& window = books.window;
        prompts.file = toPath(folder_.path());
        auto* record = window.findChild<QAction*>(QStringLiteral("recordDemonstration"));
        const auto bar = [&] { return window.findChild<RecorderBar*>(); };
        const auto press = [&](const char* name) {
            bar()->findChild<QPushButton*>(QString::fromLatin1(name))->click();
        };
        const auto filmsOn = [&] {
            return QSignalSpy(window.findChild<LiveRecorder*>(), &LiveRecorder::progressed).wait(20000);
        };

        record->trigger();
        QVERIFY(!record->isEnabled() && filmsOn());
        press("recorderCancel");
        QTRY_VERIFY(!window.findChild<LiveRecorder*>() && !bar());
        QCOMPARE(films(), QStringList());

        record->trigger();
        QVERIFY(filmsOn());
        auto* caption = bar()->findChild<QLineEdit*>(QStringLiteral("recorderCaption"));
        QTest::keyClicks(caption, QStringLiteral("Look here"));
        QTest::keyClick(caption, Qt::Key_Return);
        QVERIFY(filmsOn());
        press("recorderStop");
        QTRY_VERIFY_WITH_TIMEOUT(!bar(), 20000);
        QCOMPARE(films(), QStringList{QStringLiteral("tamba.mp4")});
        QCOMPARE(prompts.alerts, QStringList());
        if (canProbe()) {
            const QString facts = probed(folder_.filePath(QStringLiteral("tamba.mp4")));
            QVERIFY2(facts.contains(QStringLiteral("h264")) && facts.contains(QStringLiteral("mov_text")),
                     qPrintable(facts));
        }

        prompts.file = toPath(folder_.path()) / "nowhere";
        record->trigger();
        QCOMPARE(prompts.alerts.size(), 1);
        QVERIFY(record->isEnabled() && !bar());
    }
};

static const TestClass<DemoFilmTests> registered;

}  // namespace tamba

#include "DemoFilmTests.moc"
