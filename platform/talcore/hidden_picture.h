// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "framenote/export.h"
#include "talcore/pixel_view.h"

namespace framenote {

/// How a picture is hidden.
enum class HideEffect : int { Blur = 0, Pixelation = 1 };

/// A picture with one effect, kept as what is left of it: the means of its blocks.
///
/// Pixelation shows each block in its mean. Blur takes smaller blocks, smooths their means, and
/// joins them by a cubic B-spline: a smooth kernel, as a box can be undone. The blocks lie on a
/// grid from the picture's origin, so that a part of the picture looks as it does in the whole. No
/// block is narrower than half the others, so that none at an edge is a pixel of its own.
///
/// Cheap to keep: 2 bytes a channel and block. Reading from several threads is safe.
class FRAMENOTE_API HiddenPicture {
public:
  /// Of the whole picture. Below 1 `strength` acts as 1.
  HiddenPicture(PixelView const &picture, HideEffect effect, int strength);
  /// Of as much as Render needs for `part`, which lies in the picture.
  HiddenPicture(PixelView const &picture, HideEffect effect, int strength, PixelArea const &part);

  /// The strength that acts where this one is asked for: 1 to the picture's longest side.
  static int EffectiveStrength(PixelView const &picture, int strength);

  /// Writes `part` to `pixels`, rows `step` bytes apart. REQUIRES: what was kept covers `part`.
  void Render(PixelArea const &part, unsigned char *pixels, std::size_t step) const;

private:
  /// The blocks along one side of the picture.
  struct Axis {
    int length;  ///< of the side
    int block;   ///< of all blocks but the last one
    int count;   ///< of blocks along the whole side
    int first;   ///< kept blocks
    int last;    ///< exclusive

    Axis(int length, int block);
    void keepFor(int from, int size, int reach);
    int begin(int index) const;
    int end(int index) const;
    int blockAt(int pixel) const;
    int kept() const { return last - first; }
  };
  struct Taps;
  using Line = std::vector<std::uint16_t>;

  void takeMeans(PixelView const &picture);
  template <class Sum>
  void takeMeansOfRow(PixelView const &picture, int index);
  void smooth(double variance);
  std::uint16_t const *row(int index) const;
  void renderBlocks(PixelArea const &part, unsigned char *pixels, std::size_t step) const;
  void renderSpline(PixelArea const &part, unsigned char *pixels, std::size_t step) const;
  void fillLine(std::uint16_t const *means, PixelArea const &part, unsigned char *line) const;
  void spreadRow(int index, PixelArea const &part, Line &line) const;
  void joinShifted(std::uint16_t const *means, int first, int count, Taps const &taps,
                   Line &joined) const;

  HideEffect m_effect;
  Axis m_columns;
  Axis m_rows;
  std::vector<std::uint16_t> m_means;  ///< kept blocks in 1/256 of a level
};

}  // namespace framenote
