// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <mutex>

#include <wx/image.h>

#include "framenote/export.h"
#include "talcore/hidden_picture.h"

namespace framenote {

/// The whole of a picture with either effect, at one strength. Both are worked out side by side, so
/// that a change of the effect finds the other one ready.
class FRAMENOTE_API HiddenPictures {
public:
  /// Works out both, one of them on a thread of its own if there can be one.
  HiddenPictures(PixelView const &picture, int strength);

  wxSize const &Size() const { return m_size; }                    ///< of the picture, in pixels
  HiddenPicture const &Blurred() const { return *m_blurred; }      ///< with effect 0
  HiddenPicture const &Pixelated() const { return *m_pixelated; }  ///< with effect 1

private:
  wxSize m_size;  ///< of the picture
  std::unique_ptr<HiddenPicture const> m_blurred;
  std::unique_ptr<HiddenPicture const> m_pixelated;
};

/// The whole-picture work of the current picture, which all regions of one strength share. It is
/// kept as long as a region holds it.
///
/// Get may be called by several threads at once; one of them does the work, the others wait.
class FRAMENOTE_API HiddenPictureCache {
public:
  /// The picture that is shared from now on; what was kept of another one is forgotten. It must
  /// stay as it is, and in its place, until the next call. No other thread is in Get.
  void SetPicture(wxImage const &picture);
  /// Both effects of a picture, which must be Ok. Those of any other picture than the shared one
  /// are worked out for the caller alone.
  std::shared_ptr<HiddenPictures const> Get(wxImage const &picture, int strength);
  /// How many pictures SetPicture has been given: what belongs to another number is out of date.
  int PictureNumber() const { return m_number; }
  /// How many times a whole picture was worked out.
  int RunCount() const;

private:
  struct Entry {
    std::mutex mutex;
    std::weak_ptr<HiddenPictures const> pictures;
  };

  std::shared_ptr<HiddenPictures const> make(wxImage const &picture, int strength);
  std::shared_ptr<Entry> entryOf(int strength);

  mutable std::mutex m_mutex;
  unsigned char const *m_pixels = nullptr;  ///< only compared
  std::map<int, std::shared_ptr<Entry>> m_entries;
  int m_number = 0;
  int m_runs = 0;
};

}  // namespace framenote
