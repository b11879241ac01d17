// SPDX-License-Identifier: MIT
#include "objects/picture_file.h"

#include <algorithm>

#include <wx/debug.h>
#include <wx/filename.h>
#include <wx/log.h>

namespace framenote {

namespace {

/// Some of the toolkit's decoders assert on files that are damaged.
class WithoutAsserts {
public:
  WithoutAsserts() : m_handler(wxSetAssertHandler(nullptr)) {}
  WithoutAsserts(WithoutAsserts const &) = delete;
  WithoutAsserts &operator=(WithoutAsserts const &) = delete;
  ~WithoutAsserts() { wxSetAssertHandler(m_handler); }

private:
  wxAssertHandler_t m_handler;
};

}  // namespace

wxImage ReadPictureFile(wxString const &path) {
  // Reading from a pipe or a device may never end.
  if (path.empty() || !wxFileName::FileExists(path)) return wxNullImage;
  wxLogNull const quiet;
  WithoutAsserts const undisturbed;
  wxImage image;
  if (!image.LoadFile(path, wxBITMAP_TYPE_ANY, -1)) return wxNullImage;
  long long const pixels = static_cast<long long>(image.GetWidth()) * image.GetHeight();
  bool const isPaintable = std::max(image.GetWidth(), image.GetHeight()) <= kMaxPictureSide;
  return isPaintable && pixels <= kMaxPicturePixels ? image : wxNullImage;
}

}  // namespace framenote
