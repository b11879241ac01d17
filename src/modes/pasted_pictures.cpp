// SPDX-License-Identifier: MIT
#include "modes/pasted_pictures.h"

#include <algorithm>

#include "objects/ann_image.h"
#include "objects/picture_file.h"

namespace framenote {

namespace {

bool IsHeldByUsAlone(wxObject const &object) {
  return object.GetRefData() == nullptr || object.GetRefData()->GetRefCount() == 1;
}

}  // namespace

void PastedPictures::forgetUnused() {
  m_painted.remove_if([](Painted const &painted) { return IsHeldByUsAlone(painted.bitmap); });
  m_files.remove_if([](File const &file) { return IsHeldByUsAlone(file.picture); });
}

wxImage PastedPictures::Read(wxString const &path) {
  forgetUnused();
  if (path.empty() || !wxFileName::FileExists(path)) return wxNullImage;
  wxFileName const name(path);
  File file{path, name.GetModificationTime(), name.GetSize(), wxNullImage};
  auto const known = std::find_if(m_files.begin(), m_files.end(), [&](File const &other) {
    return other.path == file.path && other.modified == file.modified && other.size == file.size;
  });
  if (known != m_files.end()) return known->picture;
  file.picture = ReadPictureFile(path);
  if (file.picture.IsOk()) m_files.push_back(file);
  return file.picture;
}

wxBitmap PastedPictures::BitmapOf(wxImage const &picture, wxColour const &colour, bool mirrored) {
  forgetUnused();
  if (!picture.IsOk()) return wxNullBitmap;
  auto const known = std::find_if(m_painted.begin(), m_painted.end(), [&](Painted const &painted) {
    return painted.picture.IsSameAs(picture) && painted.colour == colour &&
           painted.mirrored == mirrored;
  });
  if (known != m_painted.end()) return known->bitmap;
  wxBitmap const bitmap = AnnImage::GetBitmapWithTransparentColour(picture, colour, mirrored);
  m_painted.push_back({picture, colour, mirrored, bitmap});
  return bitmap;
}

}  // namespace framenote
