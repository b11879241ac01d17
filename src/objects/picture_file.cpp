// SPDX-License-Identifier: MIT
#include "objects/picture_file.h"

#include <algorithm>

#include <wx/debug.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/wfstream.h>

#include "objects/picture_header.h"

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

bool IsPaintable(PictureExtent const &extent) {
  return std::max(extent.width, extent.height) <= kMaxPictureSide &&
         extent.width * extent.height <= kMaxPicturePixels;
}

/// Whether the file's header lets it be read; decoding may take gigabytes before it fails.
bool MayBeDecoded(wxString const &path) {
  wxFileInputStream file(path);
  if (!file.IsOk()) return false;
  std::optional<PictureExtent> const extent = ExtentInHeader(file);
  return !extent || IsPaintable(*extent);
}

}  // namespace

wxImage ReadPictureFile(wxString const &path) {
  // Reading from a pipe or a device may never end.
  if (path.empty() || !wxFileName::FileExists(path)) return wxNullImage;
  wxLogNull const quiet;
  WithoutAsserts const undisturbed;
  if (!MayBeDecoded(path)) return wxNullImage;
  wxImage image;
  if (!image.LoadFile(path, wxBITMAP_TYPE_ANY, -1)) return wxNullImage;
  return IsPaintable({image.GetWidth(), image.GetHeight()}) ? image : wxNullImage;
}

}  // namespace framenote
