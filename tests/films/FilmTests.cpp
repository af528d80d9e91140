#include "CorvexKit/FilmEncoder.h"
#include "tests/films/Films.h"

#include <QtTest>
#include <QtWidgets>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

namespace tamba {

/// Film files, looked at with ffprobe and ffmpeg, which know nothing of how they were made.
class FilmTests : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;

    [[nodiscard]] std::filesystem::path file(const QString& name) const { return folder_.filePath(name).toStdString(); }
    static QByteArray output(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        return process.waitForFinished(60000) ? process.readAllStandardOutput() : QByteArray();
    }
    static QJsonObject probed(const std::filesystem::path& file) {
        return QJsonDocument::fromJson(
                   output(QStringLiteral("ffprobe"),
                          {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-count_packets"),
                           QStringLiteral("-show_streams"), QStringLiteral("-show_format"),
                           QStringLiteral("-show_packets"), QStringLiteral("-of"), QStringLiteral("json"),
                           QString::fromStdString(file.string())}))
            .object();
    }
    static QImage plain(const QSize& size, const QColor& color) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(color);
        return picture;
    }
    static QString said(const std::function<void()>& work) {
        try {
            work();
        } catch (const DemoError& error) {
            return error.sentence();
        }
        return {};
    }

private slots:
    void init() {
        if (!QStandardPaths::findExecutable(QStringLiteral("ffprobe")).isEmpty()) return;
        if (std::getenv("CI")) QFAIL("ffprobe is missing: the package ffmpeg is to be installed.");
        QSKIP("NOT TESTED: ffprobe is not installed (package ffmpeg), so no film was looked at.");
    }

    void aFilmHasItsSizeRateLengthColoursAndCaptions_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("picture");
        QTest::addColumn<QString>("words");
        QTest::newRow("mp4") << QStringLiteral("a film.mp4") << QStringLiteral("h264") << QStringLiteral("mov_text");
        QTest::newRow("webm") << QStringLiteral("film.WebM") << QStringLiteral("vp9") << QStringLiteral("webvtt");
    }
    void aFilmHasItsSizeRateLengthColoursAndCaptions() {
        QFETCH(QString, name);
        const auto path = file(name);
        {
            FilmEncoder film(path, {322, 200});
            for (int frame = 0; frame < 90; ++frame) {
                const Ticks at = frame * FrameTimes::perFrame;
                if (frame == 30) film.add(Cue{QStringLiteral("Erste\nZeile"), at / 2, at});
                if (frame == 75) film.add(Cue{QStringLiteral("दूसरा"), at - FrameTimes::perSecond, at});
                film.add(plain({322, 200}, frame < 45 ? QColor(200, 30, 60) : QColor(20, 90, 160)), at);
            }
            film.end(3 * FrameTimes::perSecond);
            film.wait();
        }
        const QJsonObject facts = probed(path);
        const QJsonArray streams = facts[QLatin1String("streams")].toArray();
        QCOMPARE(streams.size(), 2);
        const QJsonObject video = streams[0].toObject(), words = streams[1].toObject();
        QTEST(video[QLatin1String("codec_name")].toString(), "picture");
        QCOMPARE(video[QLatin1String("width")].toInt(), 322);
        QCOMPARE(video[QLatin1String("height")].toInt(), 200);
        QCOMPARE(video[QLatin1String("r_frame_rate")].toString(), QStringLiteral("30/1"));
        QCOMPARE(video[QLatin1String("nb_read_packets")].toString(), QStringLiteral("90"));
        QCOMPARE(qRound(facts[QLatin1String("format")][QLatin1String("duration")].toString().toDouble() * 100), 300);
        QTEST(words[QLatin1String("codec_name")].toString(), "words");
        QString track = QString::fromUtf8(
            output(QStringLiteral("ffmpeg"),
                   {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"),
                    QString::fromStdString(path.string()), QStringLiteral("-map"), QStringLiteral("0:s"),
                    QStringLiteral("-f"), QStringLiteral("srt"), QStringLiteral("-")}));
        track.remove(QLatin1Char('\r')).remove(QRegularExpression(QStringLiteral("</?font[^>]*>")));
        QCOMPARE(track.trimmed(), QStringLiteral("1\n00:00:00,500 --> 00:00:01,000\nErste\nZeile\n\n"
                                                 "2\n00:00:01,500 --> 00:00:02,500\nदूसरा"));
        for (const auto& [at, color] : {std::pair("1.4", QColor(200, 30, 60)), {"1.6", QColor(20, 90, 160)}}) {
            const QString still = folder_.filePath(QStringLiteral("still.png"));
            output(QStringLiteral("ffmpeg"),
                   {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"), QStringLiteral("-ss"),
                    QString::fromLatin1(at), QStringLiteral("-i"), QString::fromStdString(path.string()),
                    QStringLiteral("-frames:v"), QStringLiteral("1"), still});
            const QColor seen = QImage(still).pixelColor(100, 100);
            const int off = std::max({std::abs(seen.red() - color.red()), std::abs(seen.green() - color.green()),
                                      std::abs(seen.blue() - color.blue())});
            QVERIFY2(off <= 6, qPrintable(seen.name()));
        }
    }

    void framesKeepTheTimesAtWhichTheyWereTaken() {
        LiveTimes times;
        const auto path = file(QStringLiteral("live.mp4"));
        VideoWriter film(path, {320, 200});
        // Milliseconds by the machine's clock: regular, twice at once, late.
        for (const int taken : {5000, 5033, 5033, 5500, 5533})
            film.add(plain({320, 200}, Qt::gray), times.take(taken * 1'000'000LL));
        film.finish(times.take(5600 * 1'000'000LL));
        QCOMPARE(times.longestGap() / FrameTimes::perMillisecond, Ticks(466));
        QStringList found;
        for (const QJsonValue packet : probed(path)[QLatin1String("packets")].toArray())
            if (packet[QLatin1String("stream_index")].toInt() == 0)
                found << packet[QLatin1String("pts_time")].toString();
        std::sort(found.begin(), found.end());
        QCOMPARE(found.join(QLatin1Char(' ')), QStringLiteral("0.000000 0.033000 0.033011 0.500000 0.533000"));
    }

    void whatCannotBeMadeSaysWhyAndLeavesNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("full");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("ending") << QStringLiteral("film.avi") << false
                                << QStringLiteral("The name of a film ends in .mp4 or .webm.");
        QTest::newRow("folder") << QStringLiteral("nowhere/film.mp4") << false
                                << QStringLiteral("The film “film.mp4” could not be made: no such file or directory.");
        QTest::newRow("full mp4") << QStringLiteral("full.mp4") << true
                                  << QStringLiteral("The film “full.mp4” could not be made: file too large.");
        QTest::newRow("full webm") << QStringLiteral("full.webm") << true
                                   << QStringLiteral("The film “full.webm” could not be made: file too large.");
    }
    void whatCannotBeMadeSaysWhyAndLeavesNothing() {
        QFETCH(QString, name);
        QFETCH(bool, full);
        const QDir desk(folder_.path());
        const QStringList before = desk.entryList(QDir::Files | QDir::Hidden);
        rlimit usual{};
        getrlimit(RLIMIT_FSIZE, &usual);
        const rlimit tight{20'000, usual.rlim_max};
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        if (full) setrlimit(RLIMIT_FSIZE, &tight);
        const QString sentence = said([&] {
            FilmEncoder film(file(name), {320, 200});
            QImage noise(320, 200, QImage::Format_RGB32);
            quint32 dice = 7;
            for (int frame = 0; frame < 90; ++frame) {
                for (int i = 0; i < 320 * 200; ++i)
                    reinterpret_cast<quint32*>(noise.bits())[i] = dice = dice * 1664525 + 1013904223;
                film.add(noise, frame * FrameTimes::perFrame);
            }
            film.end(90 * FrameTimes::perFrame);
            film.wait();
        });
        setrlimit(RLIMIT_FSIZE, &usual);
        std::signal(SIGXFSZ, handler);
        QTEST(sentence, "sentence");
        QCOMPARE(desk.entryList(QDir::Files | QDir::Hidden), before);
    }

    void aFilmThatIsGivenUpLeavesNothingAndKeepsTheOldOne() {
        QFile old(folder_.filePath(QStringLiteral("kept.webm")));
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
        old.close();
        const QDir desk(folder_.path());
        const QStringList before = desk.entryList(QDir::Files | QDir::Hidden);
        {
            FilmEncoder film(file(QStringLiteral("kept.webm")), {320, 200});
            for (int frame = 0; frame < 20; ++frame) film.add(plain({320, 200}, Qt::red), frame * FrameTimes::perFrame);
        }
        QCOMPARE(desk.entryList(QDir::Files | QDir::Hidden), before);
        QCOMPARE(old.size(), 3);
    }
};

std::unique_ptr<QObject> filmTests() { return std::make_unique<FilmTests>(); }

}  // namespace tamba

#include "FilmTests.moc"
