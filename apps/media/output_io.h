// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

struct AVIOContext;

/// A new file that libav writes through. It keeps the system's reason for the first failure, which
/// libav passes on only in part, and sees the failures of the last write and of closing.
class OutputIo {
public:
  /// Creates or empties the file. Throws MediaError, WriteFailed.
  explicit OutputIo(std::string const &path);
  OutputIo(OutputIo const &) = delete;
  OutputIo &operator=(OutputIo const &) = delete;
  ~OutputIo();

  AVIOContext *Context() const { return m_context; }
  /// Throws MediaError, WriteFailed, if anything has failed so far.
  void ThrowIfFailed() const;
  /// Brings everything to the disk and closes the file. Throws like ThrowIfFailed.
  void Close();

  /// Called by libav; the results are libav's.
  int Write(std::uint8_t const *bytes, std::size_t count);
  std::int64_t Seek(std::int64_t offset, int origin);

private:
  int Fail();
  void FreeContext();

  std::string m_path;
  int m_file = -1;
  int m_failure = 0;  ///< errno of the first failure
  AVIOContext *m_context = nullptr;
};
