// SPDX-License-Identifier: MIT
#include "media/output_io.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <new>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {
#include <libavformat/avformat.h>
#include <libavformat/avio.h>
}

#include "media/media_error.h"

namespace {

/// Large enough that a frame of video is few system calls.
constexpr int kBufferBytes = 1 << 18;

/// A file size limit is told by a signal that ends the program unless it is held off. This does so
/// for the calling thread alone, and takes back the signal that its own write has raised.
class NoFileSizeSignal {
public:
  NoFileSizeSignal() {
    sigemptyset(&m_signal);
    sigaddset(&m_signal, SIGXFSZ);
    sigset_t pending;
    m_wasPending = sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
    pthread_sigmask(SIG_BLOCK, &m_signal, &m_before);
  }
  NoFileSizeSignal(NoFileSizeSignal const &) = delete;
  NoFileSizeSignal &operator=(NoFileSizeSignal const &) = delete;
  ~NoFileSizeSignal() {
    int const error = errno;
    timespec const atOnce{0, 0};
    if (!m_wasPending) sigtimedwait(&m_signal, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    errno = error;
  }

private:
  sigset_t m_signal;
  sigset_t m_before;
  bool m_wasPending = false;
};

/// libav gives the bytes as constant from version 7 on.
template <typename Byte>
int WriteBytes(void *output, Byte *bytes, int count) {
  return static_cast<OutputIo *>(output)->Write(bytes, static_cast<std::size_t>(count));
}

std::int64_t SeekTo(void *output, std::int64_t offset, int origin) {
  return static_cast<OutputIo *>(output)->Seek(offset, origin);
}

}  // namespace

OutputIo::OutputIo(std::string const &path)
    : m_path(path), m_file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {
  if (m_file < 0) Fail();
  ThrowIfFailed();
  auto *const buffer = static_cast<unsigned char *>(av_malloc(kBufferBytes));
  if (buffer) {
    m_context = avio_alloc_context(buffer, kBufferBytes, 1, this, nullptr, WriteBytes, SeekTo);
  }
  if (m_context) return;
  av_free(buffer);
  close(m_file);
  throw std::bad_alloc();
}

OutputIo::~OutputIo() {
  FreeContext();
  if (m_file >= 0) close(m_file);
}

void OutputIo::FreeContext() {
  if (m_context) av_freep(&m_context->buffer);
  avio_context_free(&m_context);
}

void OutputIo::ThrowIfFailed() const {
  if (m_failure == 0) return;
  throw MediaError(MediaProblem::WriteFailed, m_path, std::generic_category().message(m_failure));
}

void OutputIo::Close() {
  avio_flush(m_context);
  FreeContext();
  // Some systems find out only here that there is no room. What cannot be synchronised, such as a
  // pipe, says EINVAL.
  if (m_failure == 0 && fsync(m_file) != 0 && errno != EINVAL) Fail();
  if (close(m_file) != 0) Fail();
  m_file = -1;
  ThrowIfFailed();
}

int OutputIo::Fail() {
  if (m_failure == 0) m_failure = errno;
  return AVERROR(m_failure);
}

int OutputIo::Write(std::uint8_t const *bytes, std::size_t count) {
  // After a failure the file has a hole or an end; what comes later must not seem to be written.
  if (m_failure != 0) return AVERROR(m_failure);
  NoFileSizeSignal const noSignal;
  std::size_t done = 0;
  while (done < count) {
    ssize_t const written = ::write(m_file, bytes + done, count - done);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return Fail();
    done += static_cast<std::size_t>(written);
  }
  return static_cast<int>(count);
}

std::int64_t OutputIo::Seek(std::int64_t offset, int origin) {
  if ((origin & AVSEEK_SIZE) != 0) {
    struct stat status = {};
    return fstat(m_file, &status) == 0 ? std::int64_t{status.st_size} : Fail();
  }
  off_t const position = lseek(m_file, offset, origin & ~AVSEEK_FORCE);
  return position >= 0 ? std::int64_t{position} : Fail();
}
