// SPDX-License-Identifier: MIT
#include "project/recovery_store.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "project/temporary_folder.h"
#include "support/with_variable.h"
#include "talbase/json_text.h"

namespace framenote::test {
namespace {

/// What a session told of failures, from whatever thread.
class Failures {
public:
  RecoverySession::FailureHandler Handler() {
    return [this](std::exception_ptr const &failure) {
      std::lock_guard<std::mutex> const lock(m_mutex);
      try {
        std::rethrow_exception(failure);
      } catch (std::exception const &error) {
        m_lines.push_back(error.what());
      }
    };
  }
  Strings Lines() const {
    std::lock_guard<std::mutex> const lock(m_mutex);
    return m_lines;
  }

private:
  mutable std::mutex m_mutex;
  Strings m_lines;
};

Project Numbered(int number) {
  Project project;
  wxJSONValue annotations(wxJSONTYPE_OBJECT);
  annotations.Set("Number", wxJSONValue(number));
  project.document = DocumentOf(annotations);
  project.media.path = "/media/film.mp4";
  return project;
}

int NumberOf(Project const &project) {
  return project.document.ItemAt("Annotate").ItemAt("Number").AsInt();
}

class Recovery : public InTemporaryFolder {
protected:
  std::string Folder() const { return In("state/recovery"); }

  /// Leaves the recovery file of a process that was killed.
  void Crash(int number, std::string const &projectPath = {}) {
    pid_t const child = fork();
    if (child == 0) {
      RecoverySession session(Folder(), {});
      session.Store(Numbered(number), projectPath);
      session.Finish();
      raise(SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  Failures m_failures;
};

TEST_F(Recovery, KeepsWhatACrashedSessionStoredLast) {
  std::int64_t const before = std::chrono::duration_cast<std::chrono::seconds>(
                                  std::chrono::system_clock::now().time_since_epoch())
                                  .count();
  Crash(7, "/cases/case.framenote");
  auto const orphans = FindOrphans(Folder());
  ASSERT_EQ(orphans.size(), 1u);
  EXPECT_EQ(orphans[0].projectPath, "/cases/case.framenote");
  EXPECT_EQ(orphans[0].mediaPath, "/media/film.mp4");
  EXPECT_GE(orphans[0].time, before);
  EXPECT_LE(orphans[0].time, before + 60);
  Project const project = ReadOrphan(orphans[0]);
  EXPECT_EQ(NumberOf(project), 7);
  EXPECT_EQ(project.media.path, "/media/film.mp4");
}

TEST_F(Recovery, DoesNotTakeRunningSessionsForOrphans) {
  RecoverySession session(Folder(), m_failures.Handler());
  session.Store(Numbered(1), "");
  session.Finish();
  EXPECT_TRUE(fs::exists(session.Path()));
  EXPECT_TRUE(FindOrphans(Folder()).empty());
  // Another process sees the same.
  pid_t const child = fork();
  if (child == 0) _exit(static_cast<int>(FindOrphans(Folder()).size()));
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

TEST_F(Recovery, WritesTheLatestState) {
  std::string path;
  {
    RecoverySession session(Folder(), m_failures.Handler());
    path = session.Path();
    for (int i = 0; i <= 500; ++i) session.Store(Numbered(i), "");
  }
  auto const orphans = FindOrphans(Folder());
  ASSERT_EQ(orphans.size(), 1u);
  EXPECT_EQ(orphans[0].path, path);
  EXPECT_EQ(NumberOf(ReadOrphan(orphans[0])), 500);
  EXPECT_EQ(m_failures.Lines(), Strings{});
}

TEST_F(Recovery, WritesASnapshotWhateverHappensToTheDocumentThen) {
  RecoverySession session(Folder(), m_failures.Handler());
  Project project = Numbered(0);
  wxJSONValue numbers(wxJSONTYPE_ARRAY);
  for (int i = 0; i < 1000; ++i) {
    numbers.Append(wxJSONValue(i));
    wxJSONValue annotations(wxJSONTYPE_OBJECT);
    annotations.Set("Numbers", numbers);
    project.document = DocumentOf(annotations);
    session.Store(project, "");
  }
  numbers.Append(wxJSONValue("never stored"));
  session.Finish();
  std::string const bytes = ReadAll(session.Path());
  EXPECT_NE(bytes.find("997,998,999]"), std::string::npos);
}

TEST_F(Recovery, LeavesOutWhatIsStoredAlready) {
  RecoverySession session(Folder(), m_failures.Handler());
  session.Store(Numbered(1), "");
  session.Finish();
  WriteAll(session.Path(), "mark");
  session.Store(Numbered(1), "");
  session.Finish();
  EXPECT_EQ(ReadAll(session.Path()), "mark");
  session.Store(Numbered(1), "/cases/case.framenote");
  session.Finish();
  EXPECT_NE(ReadAll(session.Path()), "mark");
  WriteAll(session.Path(), "mark");
  session.Store(Numbered(2), "/cases/case.framenote");
  session.Finish();
  EXPECT_NE(ReadAll(session.Path()), "mark");
}

TEST_F(Recovery, RemovesTheFileWhenItIsDiscarded) {
  RecoverySession session(Folder(), m_failures.Handler());
  session.Store(Numbered(1), "");
  session.Discard();
  session.Finish();
  EXPECT_FALSE(fs::exists(session.Path()));
  session.Store(Numbered(1), "");
  session.Finish();
  EXPECT_TRUE(fs::exists(session.Path()));
  EXPECT_EQ(m_failures.Lines(), Strings{});
}

TEST_F(Recovery, LeavesNothingOfASessionThatEndsCleanly) {
  {
    RecoverySession session(Folder(), m_failures.Handler());
    session.Store(Numbered(1), "");
    session.Finish();
    session.Discard();
  }
  EXPECT_EQ(NamesIn(Folder()), Strings{});
}

TEST_F(Recovery, ListsOrphansTheNewestFirst) {
  Crash(1);
  Crash(2);
  auto orphans = FindOrphans(Folder());
  ASSERT_EQ(orphans.size(), 2u);
  // The first line says when; a second is too long to wait for.
  std::string bytes = ReadAll(orphans[1].path);
  bytes.replace(bytes.find("\"time\":") + 7, 1, "9");
  WriteAll(orphans[1].path, bytes);
  int const newest = NumberOf(ReadOrphan(orphans[1]));
  orphans = FindOrphans(Folder());
  ASSERT_EQ(orphans.size(), 2u);
  EXPECT_EQ(NumberOf(ReadOrphan(orphans[0])), newest);
  EXPECT_GT(orphans[0].time, orphans[1].time);
}

TEST_F(Recovery, RemovesAnOrphanWithItsLock) {
  Crash(1);
  EXPECT_EQ(NamesIn(Folder()).size(), 2u);
  RemoveOrphan(FindOrphans(Folder()).at(0));
  EXPECT_EQ(NamesIn(Folder()), Strings{});
}

TEST_F(Recovery, PassesOverWhatIsNoRecoveryFile) {
  fs::create_directories(Folder() + "/folder.recovery");
  WriteAll(Folder() + "/1-a.recovery", "");
  WriteAll(Folder() + "/2-a.recovery", "{\"format\":\"else\"}\n{}\n");
  WriteAll(Folder() + "/3-a.recovery", std::string(200000, '{'));
  ASSERT_EQ(mkfifo((Folder() + "/4-a.recovery").c_str(), 0600), 0);
  EXPECT_TRUE(FindOrphans(Folder()).empty());
  EXPECT_TRUE(FindOrphans(In("none")).empty());
}

TEST_F(Recovery, SaysThatAnOrphanIsDamaged) {
  Crash(1);
  RecoveryOrphan const orphan = FindOrphans(Folder()).at(0);
  std::string const bytes = ReadAll(orphan.path);
  WriteAll(orphan.path, bytes.substr(0, bytes.size() - 10));
  EXPECT_THROW(ReadOrphan(orphan), ProjectError);
  WriteAll(orphan.path, bytes.substr(0, bytes.find('\n')));
  EXPECT_THROW(ReadOrphan(orphan), ProjectError);
}

TEST_F(Recovery, SweepsWhatIsOlderThanThirtyDays) {
  Crash(1);
  Crash(2);
  RecoverySession session(Folder(), m_failures.Handler());
  session.Store(Numbered(3), "");
  session.Finish();
  auto const orphans = FindOrphans(Folder());
  ASSERT_EQ(orphans.size(), 2u);
  auto const age = [](std::string const &path, int days) {
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(24 * days + 1));
  };
  age(orphans[0].path, 30);
  age(fs::path(orphans[0].path).replace_extension(".lock").string(), 30);
  age(orphans[1].path, 29);
  age(session.Path(), 30);
  std::string const begun = orphans[1].path + ".part-0123456789abcdef";
  WriteAll(begun, "half");
  age(begun, 30);
  SweepRecovery(Folder());
  EXPECT_FALSE(fs::exists(orphans[0].path));
  EXPECT_TRUE(fs::exists(orphans[1].path));
  EXPECT_TRUE(fs::exists(session.Path()));
  EXPECT_FALSE(fs::exists(begun));
  EXPECT_EQ(NamesIn(Folder()).size(), 4u);
}

TEST_F(Recovery, IsTheUsersAlone) {
  RecoverySession const session(Folder(), m_failures.Handler());
  struct stat info = {};
  ASSERT_EQ(stat(Folder().c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 07777u, 0700u);
}

TEST_F(Recovery, SaysOnceThatItsFolderCannotBeMade) {
  WriteAll(In("state"), "a file where the folder is to be");
  RecoverySession session(Folder(), m_failures.Handler());
  session.Store(Numbered(1), "");
  session.Store(Numbered(2), "");
  session.Finish();
  session.Discard();
  EXPECT_EQ(m_failures.Lines(), (Strings{"'" + Folder() + "': Not a directory"}));
}

TEST_F(Recovery, SaysOnceThatThereIsNoFolderForIt) {
  RecoverySession session("", m_failures.Handler());
  session.Store(Numbered(1), "");
  session.Finish();
  EXPECT_EQ(m_failures.Lines(), (Strings{"'': the user has no folder for recovery files"}));
}

TEST_F(Recovery, SaysOnceThatAWriteFailsAndGoesOnWhenItCan) {
  RecoverySession session(Folder(), m_failures.Handler());
  fs::remove_all(Folder());
  session.Store(Numbered(1), "");
  session.Finish();
  session.Store(Numbered(2), "");
  session.Finish();
  EXPECT_EQ(m_failures.Lines(), (Strings{"'" + session.Path() + "': No such file or directory"}));
  fs::create_directory(Folder());
  // The same state as before: it is not stored yet.
  session.Store(Numbered(2), "");
  session.Finish();
  EXPECT_TRUE(fs::exists(session.Path()));
  EXPECT_EQ(m_failures.Lines().size(), 1u);
}

TEST_F(Recovery, KeepsTheFormerStateOnAFullDisk) {
  pid_t const child = fork();
  if (child == 0) {
    rlimit const limit = {100000, 100000};
    setrlimit(RLIMIT_FSIZE, &limit);
    Failures failures;
    RecoverySession session(Folder(), failures.Handler());
    session.Store(Numbered(1), "");
    session.Finish();
    Project large = Numbered(2);
    large.media.facts.sha256 = std::string(200000, 'a');
    session.Store(large, "");
    session.Finish();
    raise(failures.Lines() == Strings{"'" + session.Path() + "': File too large"} ? SIGKILL
                                                                                  : SIGTERM);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WTERMSIG(status), SIGKILL);
  auto const orphans = FindOrphans(Folder());
  ASSERT_EQ(orphans.size(), 1u);
  EXPECT_EQ(NumberOf(ReadOrphan(orphans[0])), 1);
  EXPECT_EQ(NamesIn(Folder()).size(), 2u);
}

TEST(RecoveryFolder, IsInTheFolderForTheStateOfPrograms) {
  WithVariable const home("HOME", "/home/user");
  {
    WithVariable const state("XDG_STATE_HOME", "/state");
    EXPECT_EQ(RecoveryFolder(), "/state/framenote/recovery");
  }
  for (char const *value : {static_cast<char const *>(nullptr), "", "relative"}) {
    WithVariable const state("XDG_STATE_HOME", value);
    EXPECT_EQ(RecoveryFolder(), "/home/user/.local/state/framenote/recovery");
  }
}

TEST(RecoveryFolder, IsNowhereForAUserWithoutAFolder) {
  WithVariable const home("HOME", nullptr);
  WithVariable const state("XDG_STATE_HOME", nullptr);
  EXPECT_EQ(RecoveryFolder(), "");
}

}  // namespace
}  // namespace framenote::test
