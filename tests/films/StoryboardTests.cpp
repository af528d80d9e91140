#include "CorvexKit/CaptionLayout.h"
#include "CorvexKit/StoryboardRunner.h"
#include "tests/films/Films.h"

#include <QtTest>
#include <QtWidgets>

#include <vector>

namespace tamba {

/// Storyboards, and how they are played on a window.
class StoryboardTests : public QObject {
    Q_OBJECT

    /// A window with one of each thing that a storyboard handles.
    struct Desk : QMainWindow {
        QStringList heard;
        QLineEdit* field = new QLineEdit;
        QComboBox* combo = new QComboBox;
        QTimer* timer = new QTimer(this);
        int work = 0;  // how often the question whether it is busy is still answered with yes

        Desk() {
            resize(640, 400);
            setAcceptDrops(true);
            auto* rows = new QVBoxLayout;
            field->setObjectName(QStringLiteral("field"));
            combo->setAccessibleName(QStringLiteral("Fruit"));
            combo->addItems({QStringLiteral("Mango"), QStringLiteral("Lychee")});
            auto* button = new QPushButton(QStringLiteral("&Ask…"));
            rows->addWidget(field);
            rows->addWidget(combo);
            rows->addWidget(button);
            rows->addStretch(1);
            auto* middle = new QWidget;
            middle->setLayout(rows);
            setCentralWidget(middle);
            connect(button, &QPushButton::clicked, this, [this] { ask(); });
            QAction* save = menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Save"));
            save->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
            connect(save, &QAction::triggered, this, [this] { heard << QStringLiteral("saved"); });
            timer->setInterval(700);
            connect(timer, &QTimer::timeout, this, [this] { heard << QStringLiteral("timer"); });
        }
        void ask() {
            QDialog sheet(this);
            auto* rows = new QVBoxLayout(&sheet);
            auto* name = new QLineEdit;
            auto* good = new QPushButton(QStringLiteral("Good"));
            rows->addWidget(name);
            rows->addWidget(good);
            connect(good, &QPushButton::clicked, &sheet, &QDialog::accept);
            heard << (sheet.exec() == QDialog::Accepted ? name->text() : QStringLiteral("no"));
        }
        void dragEnterEvent(QDragEnterEvent* event) override { event->accept(); }
        void dropEvent(QDropEvent* event) override {
            event->accept();
            heard << QFileInfo(event->mimeData()->urls().value(0).toLocalFile()).fileName();
        }
    };
    struct Film {
        int frames = 0;
        Ticks last = -1;
        std::vector<Cue> cues;
        QString problem;
        bool regular = true;
    };
    static Film play(Desk& desk, const QString& story, const QString& folder = {}) {
        Film film;
        Storyboard board = Storyboard::parse(story);
        board.size = {320, 200};
        Stage stage{&desk};
        stage.isBusy = [&desk] { return desk.work > 0 && desk.work-- > 0; };
        stage.folder = folder;
        StoryboardRunner runner(board, stage,
                                {[&](const QImage& frame, Ticks at) {
                                     film.regular = film.regular && frame.size() == board.size &&
                                                    at == film.frames * FrameTimes::perFrame;
                                     film.last = at;
                                     ++film.frames;
                                 },
                                 [&](const Cue& cue) { film.cues.push_back(cue); }});
        bool over = false;
        connect(&runner, &StoryboardRunner::finished, &desk, [&] { over = true; });
        connect(&runner, &StoryboardRunner::failed, &desk, [&](const DemoError& error) {
            film.problem = error.sentence();
            over = true;
        });
        desk.show();
        desk.activateWindow();
        if (QTest::qWaitForWindowActive(&desk)) runner.start();
        if (!QTest::qWaitFor([&] { return over; }, 60000)) film.problem = QStringLiteral("it did not end");
        return film;
    }

private slots:
    void refusesWhatItCannotPlayAndNamesTheLine_data() {
        QTest::addColumn<QString>("story");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const char* name, const char* story, const char* sentence) {
            QTest::newRow(name) << QString::fromUtf8(story) << QString::fromUtf8(sentence);
        };
        row("nothing", "# only words\n\n", "The storyboard has no steps.");
        row("unknown", "wait 1\nclik here",
            "Line 2: “clik” is no step. A step begins with go, click, choose, type, press, drop, wait or caption.");
        row("empty", "\n\nclick  ", "Line 3: say after “click” what is meant.");
        row("wait", "wait until tea",
            "Line 1: say how many seconds to wait, such as 1.5 and at most 600, or “until idle”.");
        row("long wait", "wait 601",
            "Line 1: say how many seconds to wait, such as 1.5 and at most 600, or “until idle”.");
        row("keys", "press Ctrl+Banana", "Line 1: “Ctrl+Banana” is no key; write keys like Ctrl+K or Return.");
        row("size", "size 12x800\nwait 1", "Line 1: a size is written like 1280x800, each side from 160 to 3840.");
        row("day", "today 2026-02-30\nwait 1", "Line 1: a day is written like 2026-11-21.");
        row("late", "wait 1\nsize 640x400", "Line 2: “size” stands before the first step.");
    }
    void refusesWhatItCannotPlayAndNamesTheLine() {
        QFETCH(QString, story);
        QString said;
        try {
            (void)Storyboard::parse(story);
        } catch (const DemoError& error) {
            said = error.sentence();
        }
        QTEST(said, "sentence");
    }

    void playsEveryStepThroughDialogsAndMenus() {
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("bill.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        Desk desk;
        const Film film = play(desk,
                               QStringLiteral("caption First\nclick field\ntype Chai é\npress Ctrl+S\nchoose File\n"
                                              "choose Save\ncaption\nclick Ask…\ntype Ravi\nclick Good\nclick Fruit\n"
                                              "choose Lychee\ncaption Last\ndrop bill.txt\nwait 0.5"),
                               folder.path());
        QCOMPARE(film.problem, QString());
        QCOMPARE(desk.field->text(), QStringLiteral("Chai é"));
        QCOMPARE(desk.combo->currentText(), QStringLiteral("Lychee"));
        QCOMPARE(desk.heard, (QStringList{QStringLiteral("saved"), QStringLiteral("saved"), QStringLiteral("Ravi"),
                                          QStringLiteral("bill.txt")}));
        QVERIFY(film.regular);
        QCOMPARE(film.cues.size(), std::size_t(2));
        QCOMPARE(film.cues[0].text, QStringLiteral("First"));
        QVERIFY(film.cues[0].to < film.cues[1].from);
        QCOMPARE(film.cues[1].to, film.last + FrameTimes::perFrame);
    }

    void timersRunOnTheFilmsClock() {
        Desk desk;
        desk.timer->start();
        // Frames are made faster than they are shown: by the machine’s clock the timer would hardly fire.
        const Film film = play(desk, QStringLiteral("wait 3"));
        QCOMPARE(desk.heard.count(QStringLiteral("timer")), 4);
        QVERIFY(film.frames >= 90 && film.frames <= 92);
    }

    void theClockStandsStillWhileTheProgramWorks() {
        Desk desk;
        const auto frames = [&](const char* story, int work) {
            desk.work = work;
            return play(desk, QString::fromLatin1(story)).frames;
        };
        const int idle = frames("wait 0.2", 0);
        QCOMPARE(frames("wait 0.2", 20), idle);
        QVERIFY(frames("wait until idle\nwait 0.2", 20) > idle + 2);
    }

    void aStepThatCannotBeTakenEndsTheFilm_data() {
        QTest::addColumn<QString>("story");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("control") << QStringLiteral("wait 0.1\nclick sugar")
                                 << QStringLiteral("Line 2: there is no “sugar” to be clicked.");
        QTest::newRow("screen") << QStringLiteral("go kitchen")
                                << QStringLiteral("Line 1: there is no screen “kitchen”.");
        QTest::newRow("file") << QStringLiteral("drop nothing.pdf")
                              << QStringLiteral("Line 1: there is no file “nothing.pdf”.");
        // What lies under a dialog cannot be reached; the dialog is closed in the end.
        QTest::newRow("behind") << QStringLiteral("click Ask…\nclick field")
                                << QStringLiteral("Line 2: there is no “field” to be clicked.");
    }
    void aStepThatCannotBeTakenEndsTheFilm() {
        QFETCH(QString, story);
        Desk desk;
        const Film film = play(desk, story);
        QTEST(film.problem, "sentence");
        QTRY_VERIFY(!QApplication::activeModalWidget());
    }

    void captionsAreBrokenIntoEvenLines_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("lines");
        QTest::newRow("one") << QStringLiteral("Drop a bill") << QStringLiteral("Drop a bill");
        QTest::newRow("even") << QStringLiteral("one two three four five") << QStringLiteral("one two three|four five");
        QTest::newRow("cut") << QStringLiteral("aaaaaaaaaaaaaaaaaaaaaaaaa") << QStringLiteral("aaaaaaaaaaaaaaaaaaa…");
        QTest::newRow("too many") << "aaaaaaaaaaaaaaaaaaa bbbbbbbbbbbbbbbbbbb ccccccccccccccccccc ddd"
                                  << "aaaaaaaaaaaaaaaaaaa|bbbbbbbbbbbbbbbbbbb|ccccccccccccccccccc…";
    }
    void captionsAreBrokenIntoEvenLines() {
        QFETCH(QString, words);
        const auto widthOf = [](const QString& text) { return static_cast<int>(text.size()); };
        QTEST(CaptionLayout::lines(words, 20, widthOf).join(QLatin1Char('|')), "lines");
    }
};

std::unique_ptr<QObject> storyboardTests() { return std::make_unique<StoryboardTests>(); }

}  // namespace tamba

#include "StoryboardTests.moc"
