#include "CorvexKit/UpdateService.h"
#include "tests/updates/Installed.h"
#include "tests/updates/Server.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QProcess>
#include <QSslKey>
#include <QTimer>
#include <gtest/gtest.h>

#include <chrono>

namespace tamba {
namespace {

using namespace testing;
using Stage = UpdateStatus::Stage;

std::string run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().trimmed().toStdString();
}

QString qt(const fs::path& path) { return QString::fromStdString(path.native()); }

std::string script(const char* name, const QStringList& arguments) {
    return run(QStringLiteral(RELEASE_SCRIPTS "/") + QString::fromLatin1(name), arguments);
}

QByteArray bytesOf(const fs::path& file) { return QByteArray::fromStdString(contents(file)); }

/// What all the tests share, because it takes a while to make: keys, a certificate and the archive of 1.0.1.
struct Workshop {
    Workshop() {
        script("make-keys", {qt(folder / "keys")});
        script("make-keys", {qt(folder / "stranger")});
        run(QStringLiteral("openssl"),
            {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
             QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:P-256"), QStringLiteral("-nodes"),
             QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=127.0.0.1"),
             QStringLiteral("-addext"), QStringLiteral("subjectAltName=IP:127.0.0.1"), QStringLiteral("-keyout"),
             qt(folder / "tls.key"), QStringLiteral("-out"), qt(folder / "tls.pem"), QStringLiteral("-batch")});
        write(folder / "notes", "Faster.");
        fs::create_directories(folder / "1.0.1/bin");
        fs::copy_file(STANDIN_1_0_1, folder / "1.0.1/bin/books");
        archive = pack("1.0.1");
    }
    QByteArray pack(const std::string& version) const {
        const fs::path out = folder / (version + ".tar.xz");
        script("build-archive", {qt(out), qt(folder / version)});
        return bytesOf(out);
    }
    QSslConfiguration serverTLS() const {
        QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
        tls.setLocalCertificate(QSslCertificate(bytesOf(folder / "tls.pem")));
        tls.setPrivateKey(QSslKey(bytesOf(folder / "tls.key"), QSsl::Ec));
        return tls;
    }
    const TemporaryFolder folder;
    QByteArray archive;
};

class UpdateServiceTest : public ::testing::Test {
protected:
    static const Workshop& workshop() {
        static const Workshop made;
        return made;
    }
    const TemporaryFolder folder_;
    const fs::path root_ = folder_ / "root", own_ = folder_ / "own";
    const Installed installed_{root_, STANDIN_1_0_0};
    Server server_{workshop().serverTLS()};
    SwiftDisk disk_;
    UpdateConfiguration configuration_;

    UpdateServiceTest() {
        configuration_.context = {
            "Books", {1, 0, 0}, "linux-x86_64", {*readUpdateKey(contents(workshop().folder / "keys/update-key.pub"))}};
        configuration_.feed = QUrl(server_.address("/feed.json"));
        configuration_.installation = installed_.installation();
        configuration_.folder = own_;
        configuration_.now = [] { return QDateTime::currentSecsSinceEpoch(); };
        configuration_.network.tls.setCaCertificates(QSslCertificate::fromPath(qt(workshop().folder / "tls.pem")));
        configuration_.network.pause = std::chrono::milliseconds(1);
        configuration_.disk = &disk_;
        publish("1.0.1", 5, workshop().archive);
    }

    /// A program that ends while its download goes on, once it has this many bytes.
    void leaveDownloadAfter(std::uint64_t bytes) {
        UpdateService service(configuration_);
        service.check();
        settle(service);
        service.download();
        while (service.status().done < bytes && service.status().stage == Stage::downloading)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// Puts an archive and its signed list on the server.
    void publish(const std::string& version, int sequence, const QByteArray& archive, int days = 30,
                 const char* keys = "keys") {
        write(folder_ / "archive", archive.toStdString());
        server_.answers["/archive"] = {archive};
        script("make-feed", {QStringLiteral("--version"), QString::fromStdString(version), QStringLiteral("--sequence"),
                             QString::number(sequence), QStringLiteral("--notes"), qt(workshop().folder / "notes"),
                             QStringLiteral("--days"), QString::number(days), QStringLiteral("--archive"),
                             QStringLiteral("linux-x86_64"), qt(folder_ / "archive"), server_.address("/archive"),
                             QStringLiteral("--out"), qt(folder_ / "feed.json")});
        sign(keys);
    }
    void sign(const char* keys) {
        script("sign", {qt(workshop().folder / keys / "update-key.pem"), qt(folder_ / "feed.json")});
        server_.answers["/feed.json"] = {bytesOf(folder_ / "feed.json")};
        server_.answers["/feed.json.sig"] = {bytesOf(folder_ / "feed.json.sig")};
    }
    /// Works until the service rests. A fault that keeps it from resting fails here, and does not hold up the others.
    static void settle(UpdateService& service) {
        const QDeadlineTimer end(60'000);
        QTimer tick;  // an event, when nothing else comes
        tick.start(1000);
        while (service.status().stage == Stage::checking || service.status().stage == Stage::downloading) {
            if (end.hasExpired()) {
                ADD_FAILURE() << "the update does not come to an end";
                return;
            }
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    static void fetch(UpdateService& service) {
        service.check();
        settle(service);
        service.download();
        settle(service);
    }
    /// Looks, fetches what is offered, quits. The sentence at the end.
    Stage update(std::string* sentence = nullptr) {
        UpdateService service(configuration_);
        fetch(service);
        service.finish();
        if (sentence) *sentence = service.status().sentence.toStdString();
        return service.status().stage;
    }
    /// What a refused update leaves behind: the installation as it was, and nothing that was fetched.
    void expectUntouched(const std::map<std::string, std::string>& before, const std::string& what) {
        EXPECT_EQ(tree(root_), before) << what;
        EXPECT_FALSE(fs::exists(own_ / "update.download")) << what;
        EXPECT_FALSE(fs::exists("/tmp/evil")) << what;
    }
};

TEST_F(UpdateServiceTest, bringsTheNewVersionWhenTheProgramQuits) {
    const auto start = [&] {
        QProcess books;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("BOOKS_FEED"), configuration_.feed.toString());
        environment.insert(QStringLiteral("BOOKS_KEY"),
                           QString::fromLatin1(bytesOf(workshop().folder / "keys/update-key.pub")));
        environment.insert(QStringLiteral("BOOKS_CERTIFICATE"), qt(workshop().folder / "tls.pem"));
        environment.insert(QStringLiteral("BOOKS_FOLDER"), qt(own_));
        books.setProcessEnvironment(environment);
        books.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // Its server is this process.
        QEventLoop loop;
        QObject::connect(&books, &QProcess::finished, &loop, &QEventLoop::quit);
        QObject::connect(&books, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
        books.start(qt(root_ / "books"));
        loop.exec();
        return books.readAllStandardOutput().toStdString();
    };
    EXPECT_EQ(start(), "1.0.0\nBooks 1.0.1 is available.\nBooks 1.0.1 is ready. It is installed when you quit.\n");
    EXPECT_EQ(installed_.started("--version"), "1.0.1\n=0");
    EXPECT_EQ(start(), "1.0.1\nBooks 1.0.1 is the latest version.\n");
    EXPECT_FALSE(fs::exists(root_ / "trial") || fs::exists(root_ / "tried"));
    EXPECT_FALSE(fs::exists(own_ / "update.download"));

    fs::create_directories(folder_ / "failing/bin");
    fs::copy_file(STANDIN_FAILING, folder_ / "failing/bin/books");
    script("build-archive", {qt(folder_ / "failing.tar.xz"), qt(folder_ / "failing")});
    publish("1.0.2", 6, bytesOf(folder_ / "failing.tar.xz"));
    EXPECT_EQ(start(), "1.0.1\nBooks 1.0.2 is available.\nBooks 1.0.2 is ready. It is installed when you quit.\n");
    EXPECT_EQ(start(),
              "1.0.2\n1.0.1\nBooks 1.0.2 didn’t start on this computer, so 1.0.1 stays in use until a later "
              "version is out.\n");
    EXPECT_EQ(installed_.started("--version"), "1.0.1\n=0");
}

TEST_F(UpdateServiceTest, refusesEachAttackWithNothingChanged) {
    const auto& answers = server_.answers;
    const QByteArray newer = answers["/feed.json"].body;
    const auto altered = [](QByteArray bytes, qsizetype at) {
        bytes[at] = static_cast<char>(bytes[at] ^ 1);
        return bytes;
    };
    const auto moved = [&](const QByteArray& path, const QByteArray& to) {
        return [this, path, to] { server_.answers[path] = {{}, {}, 302, to}; };
    };
    const struct {
        std::string what;
        std::function<void()> attack;
        std::string sentence;
    } cases[] = {
        {"a stranger’s key", [&] { sign("stranger"); }, "The list of updates isn’t signed by the makers of Books"},
        {"no signature", [&] { server_.answers.remove("/feed.json.sig"); }, "doesn’t have what was asked for"},
        {"a byte of the list", [&] { server_.answers["/feed.json"].body = altered(newer, 20); }, "isn’t signed by"},
        {"an older list",
         [&] {
             // What was seen last was newer.
             publish("1.0.0", 9, workshop().archive);
             EXPECT_EQ(update(), Stage::upToDate);
             publish("1.0.1", 8, workshop().archive);
         },
         "The list of updates is older than one that was here before"},
        {"a list past its days", [&] { publish("1.0.1", 9, workshop().archive, 0); }, "is out of date"},
        {"an endless list", [&] { server_.answers["/feed.json"].body = QByteArray(3'000'000, ' '); },
         "sent more than a list of updates can be"},
        {"a byte of the archive", [&] { server_.answers["/archive"].body = altered(workshop().archive, 2'000); },
         "Books 1.0.1 isn’t what its makers signed"},
        {"an endless archive",
         [&] {
             server_.answers["/archive"].body += QByteArray(3'000'000, 'x');
             server_.answers["/archive"].withoutLength = true;
         },
         "is longer than announced"},
        {"a shorter archive", [&] { server_.answers["/archive"].body.chop(1); }, "isn’t as long as announced"},
        {"an archive that climbs out",
         [&] {
             const auto evil = pack({{"bin/books", "#!/bin/sh\n"}, {"../evil", "x"}});
             publish("1.0.1", 5, QByteArray::fromStdString(evil));
         },
         "holds “../evil”, a name that leads elsewhere"},
        {"the list by plain http", moved("/feed.json", "http://127.0.0.1:1/feed.json"),
         "leads to a place that isn’t safe"},
        {"the archive from the disk", moved("/archive", "file:///etc/passwd"), "leads to a place that isn’t safe"},
        {"a circle", moved("/archive", "/archive"), "leads round in circles"},
        {"a list that never comes",
         [&] {
             server_.answers["/feed.json"].mute = true;
             configuration_.network.shortWait = std::chrono::milliseconds(100);
         },
         "can’t be reached"},
        {"an archive that never comes",
         [&] {
             server_.answers["/archive"].mute = true;
             configuration_.network.longWait = std::chrono::milliseconds(100);
         },
         "took too long to fetch"},
        {"another certificate", [&] { configuration_.network.tls.setCaCertificates({}); }, "couldn’t prove who it is"},
    };
    for (const auto& each : cases) {
        fs::remove_all(own_);
        configuration_.network.shortWait = configuration_.network.longWait = std::chrono::minutes(5);
        publish("1.0.1", 5, workshop().archive);
        const auto before = tree(root_);
        each.attack();
        std::string sentence;
        EXPECT_EQ(update(&sentence), Stage::failed) << each.what;
        EXPECT_NE(sentence.find(each.sentence), std::string::npos) << each.what << ": " << sentence;
        expectUntouched(before, each.what);
        // What went wrong while quitting is told at the next start, and once.
        for (const bool told : {sentence.ends_with("stays in use."), false})
            EXPECT_EQ(UpdateService(configuration_).status().sentence.toStdString(), told ? sentence : "") << each.what;
    }
}

TEST_F(UpdateServiceTest, goesOnWhereTheConnectionBroke) {
    const QByteArray& archive = workshop().archive;
    const auto before = tree(root_);
    for (int tenth = 1; tenth < 10; ++tenth) {
        fs::remove_all(own_);
        server_.requests.clear();
        const qsizetype cut = archive.size() * tenth / 10;
        // In one run each connection brings a tenth more; in the other the program ends after the first.
        server_.answers["/archive"].cutAfter = cut;
        configuration_.network.fruitless = 1;
        server_.answers["/feed.json"].tag.clear();
        leaveDownloadAfter(static_cast<std::uint64_t>(cut));
        EXPECT_EQ(bytesOf(own_ / "update.download"), archive.left(cut));
        server_.answers["/archive"].cutAfter = -1;
        UpdateService service(configuration_);
        fetch(service);
        EXPECT_EQ(service.status().stage, Stage::ready) << service.status().sentence.toStdString();
        EXPECT_EQ(server_.requests.back().range, "bytes=" + QByteArray::number(cut) + '-');
        EXPECT_EQ(bytesOf(own_ / "update.download"), archive);
    }
    EXPECT_EQ(tree(root_), before);

    fs::remove_all(own_);
    server_.requests.clear();
    server_.answers["/archive"].cutAfter = archive.size() / 10 + 1;
    EXPECT_EQ(update(), Stage::ready);
    EXPECT_EQ(server_.requests.size(), 2 + 10);
    EXPECT_EQ(installed_.started("--version"), "1.0.1\n=0");
}

TEST_F(UpdateServiceTest, beginsAgainWhereItCannotGoOn) {
    const QByteArray& archive = workshop().archive;
    const std::function<void(Server::Answer&)> changes[] = {
        [](Server::Answer& answer) { answer.tag = "\"2\""; },
        [](Server::Answer& answer) { answer.ranges = false; },
        [](Server::Answer& answer) { answer.tag.clear(); },
    };
    for (const auto& change : changes) {
        fs::remove_all(own_);
        Server::Answer& answer = server_.answers["/archive"] = {archive};
        answer.cutAfter = archive.size() / 2;
        configuration_.network.fruitless = 1;
        leaveDownloadAfter(1);
        answer.cutAfter = -1;
        change(answer);
        UpdateService service(configuration_);
        fetch(service);
        EXPECT_EQ(service.status().stage, Stage::ready) << service.status().sentence.toStdString();
    }
    // Too little, again and again.
    fs::remove_all(own_);
    server_.answers["/archive"].cutAfter = 0;
    std::string sentence;
    EXPECT_EQ(update(&sentence), Stage::failed);
    EXPECT_EQ(sentence, "The server of the updates can’t be reached at the moment.");
}

TEST_F(UpdateServiceTest, aFullDiskKeepsThePresentVersion) {
    const auto before = tree(root_);
    for (const int at : {0, 1, 2}) {
        BreakingDisk full(BreakingDisk::How::full, at);
        configuration_.disk = &full;
        std::string sentence;
        EXPECT_EQ(update(&sentence), Stage::failed);
        EXPECT_EQ(sentence, "The disk has no room for Books 1.0.1.");
        expectUntouched(before, "a full disk");
    }
}

TEST_F(UpdateServiceTest, onlyTellsWhereThePackageManagerOwnsTheProgram) {
    configuration_.installation.reset();
    const auto before = tree(root_);
    std::string sentence;
    EXPECT_EQ(update(&sentence), Stage::managed);
    EXPECT_EQ(sentence, "Books 1.0.1 is available. It comes with the updates of your system.");
    EXPECT_EQ(server_.requests.size(), 2);
    expectUntouched(before, "managed");
}

TEST_F(UpdateServiceTest, isOffWithoutAFeedOrKeys) {
    const auto off = [&](const UpdateConfiguration& configuration) {
        UpdateService service(configuration);
        service.setAllowed(true);
        service.check();
        return service.status().stage == Stage::off && !service.status().sentence.isEmpty();
    };
    UpdateConfiguration changed = configuration_;
    changed.feed = QUrl();
    EXPECT_TRUE(off(changed));
    changed.feed = QUrl(QStringLiteral("http://127.0.0.1/feed.json"));
    EXPECT_TRUE(off(changed));
    changed = configuration_;
    changed.context.keys.clear();
    EXPECT_TRUE(off(changed));
    EXPECT_FALSE(off(configuration_));
}

}  // namespace
}  // namespace tamba
