// SPDX-License-Identifier: MIT
#include "media/output_io.h"

#include <cerrno>
#include <new>
#include <system_error>

extern "C" {
#include <libavformat/avformat.h>
#include <libavformat/avio.h>
}

#include "media/media_error.h"
#include "media/system_file.h"

namespace {

/// Large enough that a frame of video is few system calls.
constexpr int kBufferBytes = 1 << 18;

/// As far as the process's mask lets them.
constexpr int kRights = 0666;

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
    : m_path(path),
      m_file(system_file::OpenToWrite(path, system_file::Creation::Emptied, kRights)) {
  if (m_file < 0) Fail();
  ThrowIfFailed();
  auto *const buffer = static_cast<unsigned char *>(av_malloc(kBufferBytes));
  if (buffer) {
    m_context = avio_alloc_context(buffer, kBufferBytes, 1, this, nullptr, WriteBytes, SeekTo);
  }
  if (m_context) return;
  av_free(buffer);
  system_file::Close(m_file);
  throw std::bad_alloc();
}

OutputIo::~OutputIo() {
  FreeContext();
  if (m_file >= 0) system_file::Close(m_file);
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
  if (m_failure == 0 && system_file::Sync(m_file) != 0 && errno != EINVAL) Fail();
  if (system_file::Close(m_file) != 0) Fail();
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
  std::size_t done = 0;
  while (done < count) {
    std::ptrdiff_t const written = system_file::WriteSome(m_file, bytes + done, count - done);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return Fail();
    done += static_cast<std::size_t>(written);
  }
  return static_cast<int>(count);
}

std::int64_t OutputIo::Seek(std::int64_t offset, int origin) {
  if ((origin & AVSEEK_SIZE) != 0) {
    std::int64_t const size = system_file::Size(m_file);
    return size >= 0 ? size : Fail();
  }
  std::int64_t const position = system_file::Move(m_file, offset, origin & ~AVSEEK_FORCE);
  return position >= 0 ? position : Fail();
}
