// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "project/file_lock.h"
#include "project/project_file.h"
#include "talbase/json_value.h"

/// Recovery files: what a session had not saved when it ended without leave. Each running session
/// has one of its own, beside a file that it keeps locked; files whose lock nobody holds are
/// orphans, and offered to the user. A recovery file is two lines of JSON: names and time, so that
/// a list is quickly read, and the project.

/// Where they lie: framenote/recovery in StateFolder(). Empty if the user has no such folder.
std::string RecoveryFolder();

/// The recovery file of this process's session. Used by one thread; it writes on a thread of its
/// own. Nothing throws: a failure is told once, and the session goes on without recovery.
class RecoverySession {
public:
  /// Gets what was thrown. Called at most once, from the constructor or from the thread that
  /// writes.
  using FailureHandler = std::function<void(std::exception_ptr const &)>;

  /// Makes `folder` if it is not there. No file is written before Store.
  RecoverySession(std::string const &folder, FailureHandler onFailure);
  RecoverySession(RecoverySession const &) = delete;
  RecoverySession &operator=(RecoverySession const &) = delete;
  /// Waits until what was asked for last is done. What is stored and not discarded stays, and is an
  /// orphan from then on.
  ~RecoverySession();

  /// Writes the project as it is now, some time soon; returns at once. What was to be written
  /// before and has not been begun is left out, and so is what is stored already. `projectPath` is
  /// empty for a project that has no file yet.
  void Store(Project const &project, std::string const &projectPath);
  /// Removes the file: everything is saved, or given up by the user. Returns at once.
  void Discard();
  /// Waits until what was asked for is done, for the end of the desktop's session.
  void Finish();

  /// The recovery file, whether it is there or not.
  std::string const &Path() const { return m_path; }

private:
  /// What the thread is to do: write the snapshot, or remove the file if there is none.
  struct Task {
    std::optional<wxJSONValue> project;
    std::string projectPath;
    std::string mediaPath;
  };

  void begin(std::string const &folder);
  bool isBehind();
  void give(Task task);
  void run();
  void perform(Task const &task);
  void fail(std::exception_ptr const &failure);

  std::string m_path;
  std::string m_lockPath;
  std::unique_ptr<FileLock> m_lock;  // held, or the session writes nothing
  Task m_stored;                     // the last one that was given; the caller's thread
  FailureHandler m_onFailure;
  bool m_hasToldFailure = false;  // guarded by m_mutex, as what follows
  bool m_isBehind = false;        ///< the last task failed
  std::optional<Task> m_next;
  bool m_isBusy = false;
  bool m_isEnding = false;
  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::thread m_thread;
};

/// What a session left behind.
struct RecoveryOrphan {
  std::string path;         ///< the recovery file
  std::string projectPath;  ///< empty for a project that had no file yet
  std::string mediaPath;    ///< empty without media
  std::int64_t time = 0;    ///< of the snapshot, in seconds since 1970, UTC
};

/// What no running session holds, the newest first. Files that cannot be read are left out.
std::vector<RecoveryOrphan> FindOrphans(std::string const &folder);
/// Throws ProjectError.
Project ReadOrphan(RecoveryOrphan const &orphan);
/// Removes the recovery file: it was taken over, or the user does not want it.
void RemoveOrphan(RecoveryOrphan const &orphan);
/// Removes what no session holds and nothing has changed for 30 days, files that a killed session
/// had only begun too. To be called after the orphans were offered.
void SweepRecovery(std::string const &folder);
