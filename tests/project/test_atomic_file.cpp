// SPDX-License-Identifier: MIT
#include "project/atomic_file.h"

#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "project/file_error.h"
#include "project/temporary_folder.h"

namespace framenote::test {
namespace {

std::string CauseOf(std::function<void()> const &action) {
  try {
    action();
  } catch (FileError const &error) {
    return error.Cause().English();
  }
  return "no error";
}

unsigned ModeOf(std::string const &path) {
  struct stat info = {};
  EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
  return info.st_mode & 07777u;
}

/// Sets the process's mask, and sets it back.
class WithMask {
public:
  explicit WithMask(mode_t mask) : m_former(umask(mask)) {}
  ~WithMask() { umask(m_former); }
  WithMask(WithMask const &) = delete;
  WithMask &operator=(WithMask const &) = delete;

private:
  mode_t m_former;
};

/// Starts a child process that ends with the code that `action` returns, without running any exit
/// handlers of the test program.
pid_t Fork(std::function<int()> const &action) {
  pid_t const child = fork();
  if (child == 0) _exit(action());
  return child;
}

/// The exit code of the child, or minus the signal that ended it.
int WaitFor(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

class AnAtomicFile : public InTemporaryFolder {};

TEST_F(AnAtomicFile, HasNothingInTheTargetsPlaceBeforeTheCommit) {
  WriteAll(In("file"), "old");
  AtomicFile file(In("file"));
  file.Write("new ");
  file.Write("bytes");
  EXPECT_EQ(ReadAll(In("file")), "old");
  EXPECT_EQ(ReadAll(file.TemporaryPath()), "new bytes");
  file.Commit();
  EXPECT_EQ(ReadAll(In("file")), "new bytes");
  EXPECT_EQ(Names(), (Strings{"file"}));
}

TEST_F(AnAtomicFile, ThatIsNotCommittedLeavesNothing) {
  WriteAll(In("file"), "old");
  {
    AtomicFile file(In("file"));
    file.Write("new");
    EXPECT_EQ(Names().size(), 2u);
  }
  EXPECT_EQ(ReadAll(In("file")), "old");
  EXPECT_EQ(Names(), (Strings{"file"}));
}

TEST_F(AnAtomicFile, CanBeWrittenByName) {
  AtomicFile file(In("file"));
  EXPECT_EQ(fs::path(file.TemporaryPath()).parent_path(), m_folder);
  WriteAll(file.TemporaryPath(), "by name");
  file.Commit();
  EXPECT_EQ(ReadAll(In("file")), "by name");
}

TEST_F(AnAtomicFile, IsNamedRelativeToTheWorkingFolderToo) {
  fs::path const former = fs::current_path();
  fs::current_path(m_folder);
  WriteFileAtomically("file", "bytes");
  fs::current_path(former);
  EXPECT_EQ(ReadAll(In("file")), "bytes");
  EXPECT_EQ(Names(), (Strings{"file"}));
}

TEST_F(AnAtomicFile, TakesTheLongestNameThatTheFileSystemHas) {
  std::string const name(255, 'n');
  WriteFileAtomically(In(name), "bytes");
  EXPECT_EQ(Names(), (Strings{name}));
}

TEST_F(AnAtomicFile, HasTheRightsOfANewFileWhereThereWasNone) {
  WithMask const mask(027);
  WriteFileAtomically(In("file"), "bytes");
  EXPECT_EQ(ModeOf(In("file")), 0640u);
}

TEST_F(AnAtomicFile, KeepsTheRightsOfTheFormerFile) {
  for (unsigned const mode : {0600u, 0664u, 0755u}) {
    WithMask const mask(027);
    WriteAll(In("file"), "old");
    ASSERT_EQ(chmod(In("file").c_str(), mode), 0);
    WriteFileAtomically(In("file"), "new");
    EXPECT_EQ(ModeOf(In("file")), mode);
    EXPECT_EQ(ReadAll(In("file")), "new");
  }
}

TEST_F(AnAtomicFile, IsNotReadableByOthersBeforeTheCommitIfTheFormerIsNot) {
  WriteAll(In("file"), "old");
  ASSERT_EQ(chmod(In("file").c_str(), 0600), 0);
  AtomicFile const file(In("file"));
  EXPECT_EQ(ModeOf(file.TemporaryPath()), 0600u);
}

TEST_F(AnAtomicFile, ReplacesWhatASymbolicLinkPointsTo) {
  fs::create_directory(In("there"));
  WriteAll(In("there/file"), "old");
  fs::create_symlink("there/file", In("second"));
  fs::create_symlink("second", In("first"));
  WriteFileAtomically(In("first"), "new");
  EXPECT_EQ(fs::is_symlink(In("first")), true);
  EXPECT_EQ(fs::is_symlink(In("second")), true);
  EXPECT_EQ(ReadAll(In("there/file")), "new");
  EXPECT_EQ(NamesIn(In("there")), (Strings{"file"}));
}

TEST_F(AnAtomicFile, MakesWhatADanglingLinkPointsTo) {
  fs::create_symlink(In("file"), In("link"));
  WriteFileAtomically(In("link"), "new");
  EXPECT_EQ(Names(), (Strings{"file", "link"}));
  EXPECT_EQ(fs::is_symlink(In("link")), true);
  EXPECT_EQ(ReadAll(In("file")), "new");
}

TEST_F(AnAtomicFile, RefusesLinksThatGoRound) {
  fs::create_symlink("b", In("a"));
  fs::create_symlink("a", In("b"));
  EXPECT_EQ(CauseOf([&] { AtomicFile const file(In("a")); }), "too many symbolic links");
}

TEST_F(AnAtomicFile, RefusesFoldersAndDevices) {
  EXPECT_EQ(CauseOf([&] { AtomicFile const file(m_folder.string()); }), "not a file");
  EXPECT_EQ(CauseOf([&] { AtomicFile const file("/dev/null"); }), "not a file");
  ASSERT_EQ(mkfifo(In("pipe").c_str(), 0600), 0);
  EXPECT_EQ(CauseOf([&] { AtomicFile const file(In("pipe")); }), "not a file");
  EXPECT_EQ(Names(), (Strings{"pipe"}));
}

TEST_F(AnAtomicFile, SaysWhichFileAndWhy) {
  try {
    AtomicFile const file(In("missing/file"));
    FAIL() << "no error";
  } catch (FileError const &error) {
    EXPECT_EQ(error.Path(), In("missing/file"));
    EXPECT_EQ(error.what(), "'" + In("missing/file") + "': No such file or directory");
  }
}

TEST_F(AnAtomicFile, LeavesTheFormerFileWhereThereIsNoRoom) {
  WriteAll(In("file"), "old");
  std::string const path = In("file");
  pid_t const child = Fork([&path] {
    // A limit on the size of files stands for a full disk: the write is cut short, the next fails.
    rlimit const limit = {100000, 100000};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::string const cause = CauseOf([&] { WriteFileAtomically(path, std::string(300000, 'x')); });
    return cause == "File too large" ? 0 : 1;
  });
  EXPECT_EQ(WaitFor(child), 0);
  EXPECT_EQ(ReadAll(In("file")), "old");
  EXPECT_EQ(Names(), (Strings{"file"}));
}

/// What the process that is killed writes: its parts are all the same, so that a mixture of two
/// versions or a cut is seen.
std::string Version(int number) {
  return std::string(200000, static_cast<char>('a' + number % 26));
}

bool IsWholeVersion(std::string const &bytes) {
  return bytes.size() == 200000 && bytes.find_first_not_of(bytes[0]) == std::string::npos;
}

TEST_F(AnAtomicFile, IsWholeAtWhateverMomentTheProcessIsKilled) {
  constexpr int kKills = 50;
  constexpr int kLatestMicroseconds = 30000;
  std::mt19937 generator(20240501);
  std::uniform_int_distribution<int> moments(0, kLatestMicroseconds);
  std::string const path = In("file");
  WriteFileAtomically(path, Version(0));
  std::size_t changes = 0;
  for (int round = 0; round < kKills; ++round) {
    std::string const before = ReadAll(path);
    pid_t const child = Fork([&path]() -> int {
      for (int i = 1;; ++i) WriteFileAtomically(path, Version(i));
    });
    std::this_thread::sleep_for(std::chrono::microseconds(moments(generator)));
    kill(child, SIGKILL);
    ASSERT_EQ(WaitFor(child), -SIGKILL);
    std::string const after = ReadAll(path);
    ASSERT_TRUE(IsWholeVersion(after)) << "after kill " << round;
    if (after != before) ++changes;
  }
  EXPECT_GT(changes, 0u) << "no child came so far as to write";
}

}  // namespace
}  // namespace framenote::test
