#include "CorvexKit/UpdateInstallation.h"
#include "tests/updates/Installed.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <functional>

namespace tamba {
namespace {

using namespace testing;
using How = BreakingDisk::How;

/// A program that takes its trial for passed, as one does whose window has appeared.
const std::string confirming = "#!/bin/sh\nrm -f \"$(dirname \"$0\")/../../../tried\"\necho 1.0.1 $*\n";

std::string packed(const std::string& program) {
    return pack({{"./", "", AE_IFDIR, 0755, {}, {}},
                 {"./bin/books", program},
                 {"share/doc/notes.txt", std::string(300'000, 'n'), AE_IFREG, 0644},
                 {"share/empty", ""}});
}

class UpdateInstallationTest : public ::testing::Test {
protected:
    const TemporaryFolder folder_;
    const fs::path root_ = folder_ / "root", archive_ = folder_ / "update.tar.xz";
    SwiftDisk disk_;

    /// A fresh 1.0.0 beside an update that is this program.
    Installed fresh(const std::string& bytes) const {
        fs::remove_all(root_);
        write(archive_, bytes);
        return Installed(root_);
    }
    /// Installs in a process of its own, which the disk may end; its exit status.
    static int inItsOwnProcess(const std::function<void()>& work) {
        const pid_t child = ::fork();
        if (child == 0) {
            work();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

TEST_F(UpdateInstallationTest, switchesToTheNewVersionAndKeepsTheOldOne) {
    for (const int compression : {ARCHIVE_FILTER_XZ, ARCHIVE_FILTER_GZIP}) {
        const auto bytes = pack({{"bin/books", confirming}, {"share/notes", "n", AE_IFREG, 0644}}, compression);
        const Installed installed = fresh(bytes);
        write(root_ / "versions/0.9.0/bin/books", "older");
        EXPECT_EQ(installed.started(), "1.0.0\n=0");
        installed.installation().install(archive_, updateTo({1, 0, 1}, bytes), disk_);
        EXPECT_EQ(installed.started("a b"), "1.0.1 a b\n=0");
        const auto found = tree(root_);
        EXPECT_EQ(found.at("current"), "-> versions/1.0.1");
        EXPECT_EQ(found.at("versions/1.0.1/share/notes"), "n");
        EXPECT_TRUE(found.contains("versions/1.0.0/bin/books"));
        for (const char* gone : {"versions/0.9.0", "trial", "tried", "refused"}) EXPECT_FALSE(found.contains(gone));
        // Once more, or an older one: nothing to do.
        for (const Version& version : {Version{1, 0, 1}, Version{0, 9, 9}})
            installed.installation().install(archive_, updateTo(version, bytes), disk_);
        EXPECT_EQ(tree(root_), found);
    }
}

TEST_F(UpdateInstallationTest, belongsToThePackageManagerUnlessItMayBeWritten) {
    fresh("");
    EXPECT_TRUE(UpdateInstallation::around(root_ / "current/bin/books"));
    EXPECT_TRUE(UpdateInstallation::around(root_ / "versions/1.0.0/bin/books"));
    EXPECT_FALSE(UpdateInstallation::around("/bin/sh"));
    EXPECT_FALSE(UpdateInstallation::around(folder_ / "nothing"));
    fs::rename(root_ / "current", root_ / "other");
    EXPECT_FALSE(UpdateInstallation::around(root_ / "versions/1.0.0/bin/books"));
}

TEST_F(UpdateInstallationTest, refusesArchivesThatLeadElsewhere) {
    const Packed program{"bin/books", confirming};
    const std::vector<Packed> spoiled[] = {
        {program, {"../evil", "x"}},
        {program, {"share/../../evil", "x"}},
        {program, {"share/..", "x"}},
        {program, {"/tmp/evil", "x"}},
        {program, {"share//evil", "x"}},
        {program, {"share/./evil", "x"}},
        {program, {"sh\\are", "x"}},
        {program, {"sh\nare", "x"}},
        {program, {std::string(201, 'x'), "x"}},
        {program, {"share", "", AE_IFLNK, 0777, "/tmp"}},
        {program, {"share", "", AE_IFLNK, 0777, "bin"}, {"share/evil", "x"}},
        {program, {"evil", "", AE_IFREG, 0644, {}, "bin/books"}},
        {program, {"evil", "", AE_IFREG, 0644, {}, "../../../books"}},
        {program, {"evil", "", AE_IFCHR}},
        {program, {"evil", "", AE_IFIFO}},
        {program, program},
        {program, {"bin/books/evil", "x"}},
        {program, {"bin", "x"}},
        {{"bin/other", confirming}},
        {{"bin/books", confirming, AE_IFREG, 0644}},
        {},
    };
    for (const auto& entries : spoiled) {
        const std::string bytes = pack(entries);
        const Installed installed = fresh(bytes);
        const auto before = tree(folder_.path());
        try {
            installed.installation().install(archive_, updateTo({1, 0, 1}, bytes), disk_);
            ADD_FAILURE() << "installed " << (entries.empty() ? "nothing" : entries.back().path);
        } catch (const UpdateError& error) {
            EXPECT_EQ(error.code(), UpdateError::Code::spoiled) << error.what();
            EXPECT_TRUE(std::string(error.what()).ends_with(", so it wasn’t installed. 1.0.0 stays in use."));
        }
        EXPECT_EQ(tree(folder_.path()), before) << entries.back().path;
    }
}

TEST_F(UpdateInstallationTest, refusesAnotherFileThanTheSignedOne) {
    const std::string good = packed(confirming);
    std::string altered = good;
    altered[altered.size() / 2] = static_cast<char>(altered[altered.size() / 2] ^ 1);
    // The last is cut, and signed so.
    const std::string cut = good.substr(0, good.size() - 40);
    const std::pair<std::string, std::string> cases[] = {
        {altered, good}, {good + 'x', good}, {cut, good}, {"", good}, {cut, cut}, {"no archive", "no archive"}};
    for (const auto& [found, announced] : cases) {
        const Installed installed = fresh(found);
        const auto before = tree(folder_.path());
        EXPECT_THROW(installed.installation().install(archive_, updateTo({1, 0, 1}, announced), disk_), UpdateError);
        EXPECT_EQ(tree(folder_.path()), before);
    }
}

TEST_F(UpdateInstallationTest, aFullDiskLeavesThePresentVersion) {
    const std::string bytes = packed(confirming);
    int full = 0;
    for (bool installs = false; !installs; ++full) {
        const Installed installed = fresh(bytes);
        const auto before = tree(root_);
        BreakingDisk disk(How::full, full);
        try {
            installed.installation().install(archive_, updateTo({1, 0, 1}, bytes), disk);
            EXPECT_EQ(installed.started(), "1.0.1\n=0");
            installs = !disk.broke();
        } catch (const UpdateError& error) {
            EXPECT_EQ(error.code(), UpdateError::Code::noRoom);
            EXPECT_STREQ(error.what(), "The disk has no room for Books 1.0.1. 1.0.0 stays in use.");
            EXPECT_EQ(tree(root_), before) << full;
        }
    }
    EXPECT_GT(full, 15);
}

TEST_F(UpdateInstallationTest, aKillAtAnyOperationLeavesAWholeVersion) {
    const std::string bytes = packed(confirming);
    int kills = 0, switched = 0;
    for (bool killed = true; killed; ++kills) {
        const Installed installed = fresh(bytes);
        write(root_ / "versions/0.9.0/bin/books", "older");
        killed = inItsOwnProcess([&] {
            BreakingDisk disk(How::kill, kills);
            installed.installation().install(archive_, updateTo({1, 0, 1}, bytes), disk);
        });
        const auto current = installed.installation().current();
        ASSERT_TRUE(current) << kills;
        switched += *current == Version{1, 0, 1};
        EXPECT_EQ(installed.started(), current->text() + "\n=0") << kills;
        installed.installation().install(archive_, updateTo({1, 0, 1}, bytes), disk_);
        EXPECT_EQ(installed.started(), "1.0.1\n=0") << kills;
        const auto found = tree(root_);
        for (const auto& [path, content] : found)
            EXPECT_FALSE(path.find(".new") < path.size() || path.find(".inc") < path.size()) << path << kills;
        EXPECT_EQ(found.at("versions/1.0.1/share/doc/notes.txt").size(), 300'000U);
        EXPECT_FALSE(found.contains("tried") || found.contains("trial"));
    }
    EXPECT_GT(kills, 15);
    EXPECT_GT(switched, 1);
}

TEST_F(UpdateInstallationTest, aVersionThatFailsToStartGivesWayToTheOneBefore) {
    for (const char* program : {"#!/bin/sh\nexit 3\n", "#!/bin/sh\nkill -SEGV $$\n", "#!/no/such/interpreter\n"}) {
        const auto bytes = packed(program);
        const Installed installed = fresh(bytes);
        installed.installation().install(archive_, updateTo({1, 0, 1}, bytes), disk_);
        EXPECT_EQ(installed.started(), "1.0.0\n=0");
        EXPECT_EQ(installed.installation().refused(), (Version{1, 0, 1}));
        EXPECT_EQ(tree(root_).at("current"), "-> versions/1.0.0");
        EXPECT_FALSE(fs::exists(root_ / "tried"));
    }
}

TEST_F(UpdateInstallationTest, aTrialLastsUntilTheWindowHasAppeared) {
    const auto bytes = packed("#!/bin/sh\necho new\nexit $1\n");
    const Installed installed = fresh(bytes);
    const auto installation = installed.installation();
    installation.install(archive_, updateTo({1, 0, 1}, bytes), disk_);
    // Ended well without a window, as after --version: still on trial.
    EXPECT_EQ(installed.started("0"), "new\n=0");
    EXPECT_TRUE(fs::exists(root_ / "trial"));
    // The next update waits for the outcome.
    EXPECT_THROW(installation.install(archive_, updateTo({1, 0, 2}, bytes), disk_), UpdateError);
    installation.confirm({1, 0, 0}, disk_);
    EXPECT_TRUE(fs::exists(root_ / "trial"));
    installation.confirm({1, 0, 1}, disk_);
    EXPECT_FALSE(fs::exists(root_ / "trial"));
    // What fails later is no failed start.
    EXPECT_EQ(installed.started("3"), "new\n=3");
    EXPECT_EQ(installation.current(), (Version{1, 0, 1}));
    EXPECT_FALSE(installation.refused());
}

TEST_F(UpdateInstallationTest, aTrialThatEndedWithTheComputerCountsAsFailed) {
    const auto bytes = packed("#!/bin/sh\necho new\n");
    int kills = 0;
    for (bool killed = true; killed; ++kills) {
        const Installed installed = fresh(bytes);
        const auto installation = installed.installation();
        installation.install(archive_, updateTo({1, 0, 1}, bytes), disk_);
        fs::rename(root_ / "trial", root_ / "tried");
        // Going back is safe from kills, too.
        killed = inItsOwnProcess([&] {
                     BreakingDisk disk(How::kill, kills);
                     ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
                     (void)installation.launch({}, disk);
                 }) == 9;
        EXPECT_EQ(installed.started(), "1.0.0\n=0") << kills;
        EXPECT_EQ(installation.refused(), (Version{1, 0, 1}));
        EXPECT_FALSE(fs::exists(root_ / "tried"));
    }
    EXPECT_GT(kills, 5);
}

}  // namespace
}  // namespace tamba
