// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <wx/gdicmn.h>
#include <wx/image.h>

/// Scales parts of one picture for the screen. It shares the picture's pixels and changes none.
/// For strongly reduced views of a picture that stays it keeps reduced copies, each half as wide
/// and high as the one before, so that a view costs what it shows rather than what it stands for.
class PictureScaler {
public:
  enum class Enlarging {
    Smooth,
    Pixels  ///< every pixel a square
  };

  /// With `isBrief`, as for the frames of a playing video, no reduced copies are made.
  void SetPicture(wxImage const &picture, bool isBrief);
  wxImage const &Picture() const { return m_picture; }

  /// The picture at `zoom`, where its corner lies at `origin`, as seen in `target`. A pixel
  /// of a reduced view is the mean of what it stands for: exactly down to a quarter, and below that
  /// nearly where reduced copies are kept. A zoom of 1 copies.
  /// REQUIRES: a valid picture, a positive zoom, and a target that is not empty.
  wxImage Render(wxRect const &target, wxPoint const &origin, double zoom, Enlarging enlarging);

private:
  struct Pixels {
    unsigned char const *data = nullptr;
    int width = 0;
    int height = 0;
  };

  Pixels level(int index) const;
  void makeLevels(int count);

  wxImage m_picture;
  bool m_isBrief = false;
  std::vector<wxImage> m_levels;  ///< a half, a quarter and so on
};
