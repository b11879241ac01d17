// SPDX-License-Identifier: MIT
#include "media/system_file.h"

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>

#ifdef _WIN32
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <csignal>

#include <fcntl.h>
#include <unistd.h>
#endif

namespace system_file {
namespace {

/// A write of more than about two gigabytes is cut short by some systems, refused by others.
constexpr std::size_t kMaxWrite = std::size_t{1} << 30;

}  // namespace

#ifdef _WIN32

std::FILE *OpenToRead(std::string const &path) {
  return _wfopen(std::filesystem::u8path(path).c_str(), L"rbN");
}

bool Seek(std::FILE &file, std::int64_t offset, int origin) {
  return _fseeki64(&file, offset, origin) == 0;
}

std::int64_t Position(std::FILE &file) {
  return _ftelli64(&file);
}

// The C library opens files so that they cannot be removed meanwhile.
int OpenToWrite(std::string const &path, Creation creation, int) {
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  HANDLE const handle = CreateFileW(std::filesystem::u8path(path).c_str(), GENERIC_WRITE, kShared,
                                    nullptr, creation == Creation::New ? CREATE_NEW : CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    std::error_code const error(static_cast<int>(GetLastError()), std::system_category());
    std::error_condition const meaning = error.default_error_condition();
    errno = meaning.category() == std::generic_category() ? meaning.value() : EIO;
    return -1;
  }
  int const file = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_NOINHERIT);
  if (file < 0) CloseHandle(handle);
  return file;
}

std::ptrdiff_t WriteSome(int file, void const *bytes, std::size_t count) {
  return _write(file, bytes, static_cast<unsigned int>(std::min(count, kMaxWrite)));
}

std::int64_t Move(int file, std::int64_t offset, int origin) {
  return _lseeki64(file, offset, origin);
}

std::int64_t Size(int file) {
  return _filelengthi64(file);
}

int Sync(int file) {
  return _commit(file);
}

int Close(int file) {
  return _close(file);
}

// The system writes names on its own, in the order in which they were given.
int SyncNames(std::string const &) {
  return 0;
}

std::optional<std::time_t> ChangedAt(std::string const &path) {
  struct _stat64 info = {};
  if (_wstat64(std::filesystem::u8path(path).c_str(), &info) != 0) return {};
  return info.st_mtime;
}

#else

namespace {

/// A file size limit is told by a signal that ends the program unless it is held off. This does so
/// for the calling thread alone, and takes back the signal that its own write has raised.
class NoFileSizeSignal {
public:
  NoFileSizeSignal() {
    sigemptyset(&m_signal);
    sigaddset(&m_signal, SIGXFSZ);
    m_wasPending = isPending();
    pthread_sigmask(SIG_BLOCK, &m_signal, &m_before);
  }
  NoFileSizeSignal(NoFileSizeSignal const &) = delete;
  NoFileSizeSignal &operator=(NoFileSizeSignal const &) = delete;
  ~NoFileSizeSignal() {
    int const error = errno;
    if (!m_wasPending) takeBack();
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    errno = error;
  }

private:
  static bool isPending() {
    sigset_t pending;
    return sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
  }

  void takeBack() {
#ifdef __APPLE__
    // There is no wait that ends at once; the signal is this thread's, so nobody else takes it.
    int signal = 0;
    if (isPending()) sigwait(&m_signal, &signal);
#else
    timespec const atOnce{0, 0};
    sigtimedwait(&m_signal, nullptr, &atOnce);
#endif
  }

  sigset_t m_signal;
  sigset_t m_before;
  bool m_wasPending = false;
};

}  // namespace

std::FILE *OpenToRead(std::string const &path) {
  return std::fopen(path.c_str(), "rbe");
}

bool Seek(std::FILE &file, std::int64_t offset, int origin) {
  return fseeko(&file, offset, origin) == 0;
}

std::int64_t Position(std::FILE &file) {
  return ftello(&file);
}

int OpenToWrite(std::string const &path, Creation creation, int rights) {
  int const ifThere = creation == Creation::New ? O_EXCL : O_TRUNC;
  return open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC | ifThere, rights);
}

std::ptrdiff_t WriteSome(int file, void const *bytes, std::size_t count) {
  NoFileSizeSignal const noSignal;
  return write(file, bytes, std::min(count, kMaxWrite));
}

std::int64_t Move(int file, std::int64_t offset, int origin) {
  return lseek(file, offset, origin);
}

std::int64_t Size(int file) {
  struct stat info = {};
  return fstat(file, &info) == 0 ? std::int64_t{info.st_size} : -1;
}

int Sync(int file) {
#ifdef __APPLE__
  // What fsync waits for there is only that the disk has the bytes, not that it has written them.
  if (fcntl(file, F_FULLFSYNC) == 0) return 0;
#endif
  return fsync(file);
}

int Close(int file) {
  return close(file);
}

int SyncNames(std::string const &folder) {
  // A folder that can be written to need not be readable; then its names are left to the system.
  int const file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return 0;
  int const error = Sync(file) != 0 ? errno : 0;
  Close(file);
  // Some file systems cannot do it for folders.
  return error == EINVAL || error == ENOTSUP ? 0 : error;
}

std::optional<std::time_t> ChangedAt(std::string const &path) {
  struct stat info = {};
  if (stat(path.c_str(), &info) != 0) return {};
  return info.st_mtime;
}

#endif

}  // namespace system_file
