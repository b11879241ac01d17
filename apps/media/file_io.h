// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "media/libav.h"

/// An open file that libav reads through. A file by its handle instead of its name: libav takes
/// names with a colon for addresses, and a name may come to stand for another file.
class FileIo {
public:
  /// Throws MediaError: ReadFailed.
  explicit FileIo(std::string const &path);
  FileIo(FileIo const &) = delete;
  FileIo &operator=(FileIo const &) = delete;
  ~FileIo();

  AVIOContext &Context() const { return *m_context; }
  std::int64_t Size() const { return m_size; }
  /// Whether the system failed to read, other than by reaching the end.
  bool HasFailed() const { return std::ferror(m_file.get()) != 0; }

private:
  static int Read(void *self, std::uint8_t *bytes, int count);
  static std::int64_t Seek(void *self, std::int64_t offset, int whence);

  struct Close {
    void operator()(std::FILE *file) const { std::fclose(file); }
  };

  std::unique_ptr<std::FILE, Close> m_file;
  std::int64_t m_size = 0;
  AVIOContext *m_context = nullptr;
};
