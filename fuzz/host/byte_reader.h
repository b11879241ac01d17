// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace framenote::fuzz {

/// The bytes of one call. Past their end everything reads as 0, so any bytes make a call.
class ByteReader {
public:
  ByteReader(std::uint8_t const *data, std::size_t size) : m_data(data), m_size(size) {}

  std::uint8_t Byte() { return m_at < m_size ? m_data[m_at++] : std::uint8_t{0}; }
  bool Flag() { return (Byte() & 1) != 0; }
  /// 0 to `count` - 1.
  int Below(int count) { return Byte() % count; }
  /// A place on the picture or near it.
  int Coordinate() { return Byte() - kMargin; }
  template <class T, std::size_t N>
  T const &Pick(T const (&table)[N]) {
    return table[Byte() % N];
  }

  /// How far the greatest place to the left lies outside the picture.
  static constexpr int kMargin = 64;

private:
  std::uint8_t const *m_data;
  std::size_t m_size;
  std::size_t m_at = 0;
};

}  // namespace framenote::fuzz
