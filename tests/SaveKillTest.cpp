// Tests that need a child process: a kill at every system call of a save, a full disk, missing permissions.
#ifdef __linux__

#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <set>

#include "FakePlatform.h"
#include "Plant.h"

namespace trevandix::testing {

namespace {

namespace fs = std::filesystem;

constexpr int kNotPossible = 77;
constexpr uid_t kNobody = 65534;

// Larger than the write buffer, so that a save takes several writes.
struct Large : PlantedWorkplace {
    Large() : PlantedWorkplace({"U", "U.B/"}) {
        std::vector<std::string> keys;
        for (int i = 0; i < 20000; ++i) keys.push_back("U.B.item" + std::to_string(i));
        plant(*this, keys);
        after = saved();
        writeFile(path("test.xml"), before);
    }
    const std::string before = "the old content\r\n";
    std::string after;
};

/// Runs the body in a child process; its result becomes the exit code.
template <typename Body>
int inChild(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        int code = 99;
        try {
            code = body();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
        _exit(code);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Runs the body in a child process that stops at every entry to and return from a system call. Calls `goOn`
/// at each stop and kills the child when it returns false. Returns false if the child ended by itself.
template <typename Body, typename GoOn>
bool killed(Body body, GoOn goOn) {
    const pid_t child = fork();
    if (child == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        body();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);  // tells calls from signals
    while (WIFSTOPPED(status) && goOn(child)) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        waitpid(child, &status, 0);
    }
    if (!WIFSTOPPED(status)) return false;
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return true;
}

bool mayTrace() {
    return inChild([] { return ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? 0 : kNotPossible; }) == 0;
}

}  // namespace

// The new file must be synced before the backup is deleted; otherwise a power failure could lose both.
TEST(SaveKill, OldOrNewContentSurvivesAKillAtEverySystemCall) {
    if (!mayTrace()) GTEST_SKIP() << "this system lets no process trace another";
    Large place;
    const std::string path = place.path("test.xml");
    int asOld = 0;
    std::set<std::size_t> partly;  // sizes of the unfinished new file
    int step = 1;
    std::vector<std::uint64_t> calls;  // number of each entry, 0 for a return
    const auto stopAtStep = [&](pid_t process) {
        __ptrace_syscall_info info{};
        ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof(info), &info);
        calls.push_back(info.op == PTRACE_SYSCALL_INFO_ENTRY ? info.entry.nr : 0);
        return calls.size() <= static_cast<std::size_t>(step);
    };
    for (; killed([&] { place.run("mnuSaveCfg"); }, stopAtStep); ++step, calls.clear()) {
        const std::string now = readFile(path);
        const std::string backup = readFile(path + ".bak");
        ASSERT_TRUE(now == place.before || now == place.after || backup == place.before) << "step " << step;
        asOld += now == place.before ? 1 : 0;
        if (now != place.after && backup == place.before) partly.insert(now.size());
        fs::remove(path + ".bak");
        writeFile(path, place.before);
    }
    EXPECT_GT(asOld, 0);
    EXPECT_GE(partly.size(), 3U);  // empty, after the first and after the second write
    EXPECT_EQ(readFile(path), place.after);
    EXPECT_FALSE(fs::exists(path + ".bak"));
    const auto synced = std::ranges::find(calls, static_cast<std::uint64_t>(SYS_fsync));
    ASSERT_NE(synced, calls.end());
    const auto deletes = [](std::uint64_t call) {
#ifdef SYS_unlink
        if (call == SYS_unlink) return true;
#endif
        return call == SYS_unlinkat;
    };
    EXPECT_EQ(std::find_if(calls.begin(), synced, deletes), synced);
    EXPECT_NE(std::find_if(synced, calls.end(), deletes), calls.end());
}

TEST(SaveKill, FullDiskKeepsTheOldContent) {
    Large place;
    const int code = inChild([&] {
        const fs::path disk = place.folder / "disk";
        fs::create_directory(disk);
        // A file system that only this process sees and that disappears with it.
        if (unshare(CLONE_NEWNS) != 0 || mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=128k") != 0) {
            return kNotPossible;
        }
        const std::string path = (disk / "test.xml").string();
        writeFile(path, place.before);
        place.configuration.setFilePath(path);
        place.run("mnuSaveCfg");
        const std::string message =
            " Error n. 61  Disk full: the previous file is kept as " + path + ".bak in ";
        return place.messages.texts.back().starts_with(message) && readFile(path + ".bak") == place.before &&
                       !place.configuration.state.saved
                   ? 0
                   : 1;
    });
    if (code == kNotPossible) GTEST_SKIP() << "this user may not mount a disk";
    EXPECT_EQ(code, 0);
}

// Refused before any file is changed. A user who may write another's file keeps the permissions of all
// others.
TEST(SaveKill, PermissionsOfAnotherUsersFile) {
    struct Row {
        mode_t file, folder, after;  // 0: refused
    };
    for (const auto& [file, folder, after] :
         {Row{0444, 0777, 0}, Row{0666, 0555, 0}, Row{0666, 0777, 0666}, Row{0662, 0777, 0622}}) {
        SCOPED_TRACE(file);
        Large place;
        const std::string path = place.path("test.xml");
        chmod(path.c_str(), file);
        chmod(place.folder.c_str(), folder);
        const int code = inChild([&] {
            if (getuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0))
                return kNotPossible;
            place.run("mnuSaveCfg");
            const std::string wanted =
                after == 0 ? " Error n. 70  Permission denied in CreateXML" : path + " saved";
            return place.messages.texts.back() == wanted ? 0 : 1;
        });
        chmod(place.folder.c_str(), 0777);
        if (code == kNotPossible) GTEST_SKIP() << "root cannot become another user here";
        EXPECT_EQ(code, 0);
        EXPECT_EQ(readFile(path), after == 0 ? place.before : place.after);
        struct stat now {};
        ASSERT_EQ(stat(path.c_str(), &now), 0);
        EXPECT_EQ(now.st_mode & 0777U, after == 0 || getuid() != 0 ? file : after);
        EXPECT_FALSE(fs::exists(path + ".bak"));
    }
}

TEST(SaveKill, LinksAndPermissionsAreKept) {
    Large place;
    const fs::path real = place.folder / "real.xml";
    fs::rename(place.path("test.xml"), real);
    fs::create_symlink("real.xml", place.path("test.xml"));
    chmod(real.c_str(), 0640);
    const bool given = chown(real.c_str(), kNobody, kNobody) == 0;  // needs root
    place.run("mnuSaveCfg");
    EXPECT_TRUE(fs::is_symlink(place.path("test.xml")));
    EXPECT_EQ(readFile(real), place.after);
    struct stat now {};
    ASSERT_EQ(stat(real.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 0777U, 0640U);
    EXPECT_EQ(now.st_uid == kNobody, given);
    EXPECT_EQ(std::distance(fs::directory_iterator(place.folder), {}), 2);

    const std::string pipe = place.path("pipe.xml");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    place.fileDialog.choice = pipe;
    place.run("mnuSaveAs");
    EXPECT_EQ(place.messages.take().back(), " Error n. 75  Path/File access error in CreateXML");
    EXPECT_TRUE(fs::is_fifo(pipe));
    place.messages.answers = {Answer::No};
    place.editor.openFile(pipe);  // must not wait for a writer
    EXPECT_EQ(place.messages.take().back(), " Error n. 75  Path/File access error in ImportXML");
}

}  // namespace trevandix::testing

#endif
