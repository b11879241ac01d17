// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

/// Pixels in the layout of wxImage: red, green, blue, 8 bits each, rows from the top without
/// padding. The buffer comes from malloc, so that wxImage can take it over. A picture has one owner
/// and no shared parts; it may be handed from thread to thread.
class Picture {
public:
  Picture() = default;
  /// Uninitialised pixels. Throws std::bad_alloc. REQUIRES: both sizes are positive.
  Picture(int width, int height)
      : m_width(width),
        m_height(height),
        m_pixels(static_cast<unsigned char *>(std::malloc(ByteCount()))) {
    if (!m_pixels) throw std::bad_alloc();
  }

  bool IsOk() const { return m_pixels != nullptr; }
  int Width() const { return m_width; }
  int Height() const { return m_height; }
  std::size_t RowBytes() const { return static_cast<std::size_t>(m_width) * kChannels; }
  std::size_t ByteCount() const { return RowBytes() * static_cast<std::size_t>(m_height); }
  unsigned char *Pixels() { return m_pixels.get(); }
  unsigned char const *Pixels() const { return m_pixels.get(); }
  /// Gives the buffer away, to be released by std::free; the picture is empty then.
  unsigned char *Release() {
    m_width = m_height = 0;
    return m_pixels.release();
  }

  static constexpr std::size_t kChannels = 3;

private:
  struct Free {
    void operator()(unsigned char *pixels) const { std::free(pixels); }
  };

  int m_width = 0;
  int m_height = 0;
  std::unique_ptr<unsigned char, Free> m_pixels;
};
