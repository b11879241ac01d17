// SPDX-License-Identifier: MIT
#include "project/recovery_store.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <random>
#include <system_error>
#include <utility>

#include <wx/translation.h>

#include "project/atomic_file.h"
#include "project/file_error.h"
#include "project/path_text.h"
#include "project/state_folder.h"
#include "talbase/json_text.h"

namespace {

namespace fs = std::filesystem;

constexpr char const *kExtension = ".recovery";
constexpr char const *kLockExtension = ".lock";
constexpr char const *kFormat = "framenote recovery";
constexpr std::size_t kMaxHeader = std::size_t{1} << 16;
constexpr auto kKept = std::chrono::hours(24 * 30);

std::int64_t Now() {
  auto const now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

/// No two sessions have the same, not even those of two machines that share a home.
std::string SessionName() {
  std::random_device random;
  char suffix[32];
  std::snprintf(suffix, sizeof suffix, "-%08x%08x", random(), random());
  return std::to_string(ProcessNumber()) + suffix;
}

/// The lock of the session that made a file. The session's name has no points in it.
std::string LockPathOf(fs::path const &file) {
  std::string const name = file.filename().string();
  return (file.parent_path() / (name.substr(0, name.find('.')) + kLockExtension)).string();
}

/// What others annotate is nobody's business: the folder is the user's alone.
void MakeFolder(std::string const &folder) {
  std::error_code error;
  if (fs::is_directory(folder, error)) return;
  fs::create_directories(folder, error);
  if (!error) fs::permissions(folder, fs::perms::owner_all, error);
  if (error) throw FileError(folder, error.message());
}

/// The first line; invalid if it is not that of a recovery file.
wxJSONValue ReadHeader(std::string const &path) {
  std::ifstream file(path, std::ios::binary);
  std::string line(kMaxHeader, '\0');
  file.read(line.data(), static_cast<std::streamsize>(line.size()));
  line.resize(static_cast<std::size_t>(file.gcount()));
  wxJSONValue header = JsonFromUtf8(line.substr(0, line.find('\n')));
  return header.ItemAt("format").AsString() == kFormat ? header : wxJSONValue(wxJSONTYPE_INVALID);
}

/// Whether the session that made the file has ended.
bool IsAbandoned(fs::path const &file) {
  std::string const lock = LockPathOf(file);
  std::error_code error;
  return !fs::exists(lock, error) || FileLock(lock, FileLock::Use::Probe).IsHeld();
}

/// The regular files of a folder; none if it cannot be read.
std::vector<fs::path> FilesIn(std::string const &folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    std::error_code unknown;
    if (fs::is_regular_file(it->symlink_status(unknown))) files.push_back(it->path());
  }
  return files;
}

}  // namespace

std::string RecoveryFolder() {
  std::string const base = StateFolder();
  return base.empty() ? base : (fs::path(base) / "framenote" / "recovery").string();
}

RecoverySession::RecoverySession(std::string const &folder, FailureHandler onFailure)
    : m_onFailure(std::move(onFailure)) {
  try {
    begin(folder);
  } catch (std::exception const &) {
    m_lock.reset();
    fail(std::current_exception());
  }
}

RecoverySession::~RecoverySession() {
  if (!m_thread.joinable()) return;
  {
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_isEnding = true;
  }
  m_changed.notify_all();
  m_thread.join();
  std::error_code ignored;  // an empty file that the next sweep takes
  fs::remove(m_lockPath, ignored);
}

void RecoverySession::begin(std::string const &folder) {
  if (folder.empty())
    throw FileError(folder, wxTRANSLATE("the user has no folder for recovery files"));
  MakeFolder(folder);
  m_path = (fs::path(folder) / (SessionName() + kExtension)).string();
  m_lockPath = LockPathOf(m_path);
  m_lock = std::make_unique<FileLock>(m_lockPath, FileLock::Use::Own);
  if (!m_lock->IsHeld()) throw FileError(m_lockPath, m_lock->Cause());
  m_thread = std::thread([this] { run(); });
}

void RecoverySession::Store(Project const &project, std::string const &projectPath) {
  if (!m_lock) return;
  // Without the relative path, which the caller would have to wait for the file system for.
  Task task{JsonOfProject(project, {}), projectPath, project.media.path};
  bool const isSame = m_stored.project && m_stored.projectPath == projectPath &&
                      m_stored.project->IsSameAs(*task.project);
  if (isSame && !isBehind()) return;
  m_stored = task;
  give(std::move(task));
}

void RecoverySession::Discard() {
  if (!m_lock || !m_stored.project) return;
  m_stored = {};
  give({});
}

void RecoverySession::Finish() {
  std::unique_lock<std::mutex> lock(m_mutex);
  m_changed.wait(lock, [this] { return !m_next && !m_isBusy; });
}

bool RecoverySession::isBehind() {
  std::lock_guard<std::mutex> const lock(m_mutex);
  return m_isBehind;
}

void RecoverySession::give(Task task) {
  {
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_next = std::move(task);
  }
  m_changed.notify_all();
}

void RecoverySession::run() {
  std::unique_lock<std::mutex> lock(m_mutex);
  while (true) {
    m_changed.wait(lock, [this] { return m_next || m_isEnding; });
    if (!m_next) return;
    Task const task = std::move(*m_next);
    m_next.reset();
    m_isBusy = true;
    lock.unlock();
    bool hasFailed = false;
    try {
      perform(task);
    } catch (std::exception const &) {
      hasFailed = true;
      fail(std::current_exception());
    }
    lock.lock();
    m_isBehind = hasFailed;
    m_isBusy = false;
    m_changed.notify_all();
  }
}

void RecoverySession::perform(Task const &task) {
  if (!task.project) {
    std::error_code error;
    fs::remove(m_path, error);
    if (error) throw FileError(m_path, error.message());
    return;
  }
  wxJSONValue header(wxJSONTYPE_OBJECT);
  header.Set("format", wxJSONValue(kFormat));
  header.Set("time", wxJSONValue(static_cast<long long>(Now())));
  header.Set("projectPath", JsonOfPath(task.projectPath));
  header.Set("mediaPath", JsonOfPath(task.mediaPath));
  AtomicFile file(m_path);
  file.Write(JsonToUtf8(header) + "\n");
  file.Write(JsonToUtf8(*task.project));
  file.Write("\n");
  file.Commit();
}

void RecoverySession::fail(std::exception_ptr const &failure) {
  {
    std::lock_guard<std::mutex> const lock(m_mutex);
    if (std::exchange(m_hasToldFailure, true)) return;
  }
  if (m_onFailure) m_onFailure(failure);
}

std::vector<RecoveryOrphan> FindOrphans(std::string const &folder) {
  std::vector<RecoveryOrphan> orphans;
  for (fs::path const &path : FilesIn(folder)) {
    if (path.extension() != kExtension || !IsAbandoned(path)) continue;
    wxJSONValue const header = ReadHeader(path.string());
    if (!header.IsValid()) continue;
    orphans.push_back({path.string(), PathOfJson(header.ItemAt("projectPath")),
                       PathOfJson(header.ItemAt("mediaPath")), header.ItemAt("time").AsInt64()});
  }
  std::sort(orphans.begin(), orphans.end(),
            [](RecoveryOrphan const &a, RecoveryOrphan const &b) { return a.time > b.time; });
  return orphans;
}

Project ReadOrphan(RecoveryOrphan const &orphan) {
  std::string const bytes = ReadWholeFile(orphan.path);
  std::size_t const header = bytes.find('\n');
  if (header == std::string::npos) throw ProjectError(ProjectProblem::NotJson, orphan.path);
  wxJSONValue const json = JsonFromUtf8(std::string_view(bytes).substr(header + 1));
  if (!json.IsValid()) throw ProjectError(ProjectProblem::NotJson, orphan.path);
  return ProjectOfJson(json, orphan.path);
}

void RemoveOrphan(RecoveryOrphan const &orphan) {
  std::error_code ignored;  // what cannot be removed is offered again
  fs::remove(orphan.path, ignored);
  fs::remove(LockPathOf(orphan.path), ignored);
}

void SweepRecovery(std::string const &folder) {
  auto const now = fs::file_time_type::clock::now();
  for (fs::path const &path : FilesIn(folder)) {
    std::error_code error;
    auto const changed = fs::last_write_time(path, error);
    if (!error && now - changed > kKept && IsAbandoned(path)) fs::remove(path, error);
  }
}
