// SPDX-License-Identifier: MIT
#include "media/file_io.h"

#include <cerrno>
#include <cstring>
#include <new>

#include "media/media_error.h"
#include "media/system_file.h"

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

}  // namespace

FileIo::FileIo(std::string const &path) : m_file(system_file::OpenToRead(path)) {
  if (!m_file) throw MediaError(MediaProblem::ReadFailed, path, std::strerror(errno));
  // libav has a buffer of its own.
  std::setvbuf(m_file.get(), nullptr, _IONBF, 0);
  if (system_file::Seek(*m_file, 0, SEEK_END)) m_size = system_file::Position(*m_file);
  if (m_size < 0 || !system_file::Seek(*m_file, 0, SEEK_SET)) {
    throw MediaError(MediaProblem::ReadFailed, path, std::strerror(errno));
  }
  auto *buffer = static_cast<unsigned char *>(av_malloc(kBufferSize));
  if (!buffer) throw std::bad_alloc();
  m_context = avio_alloc_context(buffer, static_cast<int>(kBufferSize), 0, this, &FileIo::Read,
                                 nullptr, &FileIo::Seek);
  if (!m_context) {
    av_free(buffer);
    throw std::bad_alloc();
  }
}

FileIo::~FileIo() {
  // The buffer may have been replaced by a larger one.
  av_freep(&m_context->buffer);
  avio_context_free(&m_context);
}

int FileIo::Read(void *self, std::uint8_t *bytes, int count) {
  std::FILE *file = static_cast<FileIo *>(self)->m_file.get();
  std::size_t const got = std::fread(bytes, 1, static_cast<std::size_t>(count), file);
  if (got > 0) return static_cast<int>(got);
  return std::ferror(file) != 0 ? AVERROR(EIO) : AVERROR_EOF;
}

std::int64_t FileIo::Seek(void *self, std::int64_t offset, int whence) {
  auto *const io = static_cast<FileIo *>(self);
  int const mode = whence & ~AVSEEK_FORCE;
  if (mode == AVSEEK_SIZE) return io->m_size;
  if (mode != SEEK_SET && mode != SEEK_CUR && mode != SEEK_END) return AVERROR(EINVAL);
  if (!system_file::Seek(*io->m_file, offset, mode)) return AVERROR(errno);
  return system_file::Position(*io->m_file);
}
