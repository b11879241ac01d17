// SPDX-License-Identifier: MIT
#pragma once

#include <list>

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/datetime.h>
#include <wx/filename.h>
#include <wx/image.h>

#include "framenote/export.h"

namespace framenote {

/// The pictures of files and the bitmaps that are painted of them, each kept once for all objects
/// that show it, and for as long as one does. For the GUI thread.
class FRAMENOTE_API PastedPictures {
public:
  /// The picture in a file, read anew only if the file has changed. Invalid as with
  /// ReadPictureFile.
  wxImage Read(wxString const &path);
  /// The picture as it is painted: mirrored or not, and with one colour transparent if `colour` is
  /// Ok. Null for an invalid picture.
  wxBitmap BitmapOf(wxImage const &picture, wxColour const &colour, bool mirrored);

private:
  struct File {
    wxString path;
    wxDateTime modified;
    wxULongLong size;
    wxImage picture;
  };
  struct Painted {
    wxImage picture;
    wxColour colour;
    bool mirrored;
    wxBitmap bitmap;
  };

  void forgetUnused();

  std::list<File> m_files;
  std::list<Painted> m_painted;
};

}  // namespace framenote
