// SPDX-License-Identifier: MIT
#include "desktop/pasted_picture.h"

#include <algorithm>
#include <filesystem>

#include <wx/bitmap.h>
#include <wx/clipbrd.h>
#include <wx/event.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/stdpaths.h>

#include "framenote/annotation_tool.h"
#include "media/sha256.h"
#include "modes/ann_image_tool_mode.h"
#include "objects/annotation_object.h"
#include "project/atomic_file.h"
#include "project/path_text.h"

namespace {

namespace fs = std::filesystem;

wxImage ClipboardPicture() {
  wxClipboardLocker const locker;
  wxBitmapDataObject data;
  if (!locker || !wxTheClipboard->IsSupported(wxDF_BITMAP) || !wxTheClipboard->GetData(data)) {
    return {};
  }
  return data.GetBitmap().IsOk() ? data.GetBitmap().ConvertToImage() : wxImage();
}

fs::path FolderOfPictures() {
  return fs::path(BytesOfPath(wxStandardPaths::Get().GetUserDataDir())) / "pasted";
}

bool IsFree(AnnotationTool const &tool, wxPoint const &point) {
  std::int64_t const frame = tool.GetMediaInfo().frameIndex;
  auto const &objects = tool.AnnotationObjects();
  return std::none_of(objects.begin(), objects.end(), [&](IAnnotationObject const *object) {
    return object->IsPresentInFrame(frame) && object->Contains({point.x, point.y});
  });
}

/// Where a drag can start without taking hold of an object; rows of places from the middle on.
std::optional<wxPoint> FreePlace(AnnotationTool const &tool, wxRect const &seen) {
  constexpr int kSteps = 8;
  for (int row = 0; row < kSteps; ++row) {
    for (int column = 0; column < kSteps; ++column) {
      wxPoint const place(seen.x + seen.width * (kSteps + column) / (4 * kSteps),
                          seen.y + seen.height * (kSteps + row) / (4 * kSteps));
      if (IsFree(tool, place)) return place;
    }
  }
  return std::nullopt;
}

/// The picture's own size, or smaller where it would not fit.
wxSize SizeWithin(wxSize const &picture, wxSize const &room) {
  double const share = std::min(
      {1.0, static_cast<double>(room.x) / picture.x, static_cast<double>(room.y) / picture.y});
  return {std::max(1, static_cast<int>(share * picture.x)),
          std::max(1, static_cast<int>(share * picture.y))};
}

}  // namespace

std::optional<std::string> KeepClipboardPicture() {
  wxImage const picture = ClipboardPicture();
  wxMemoryOutputStream stream;
  if (!picture.IsOk() || !picture.SaveFile(stream, wxBITMAP_TYPE_PNG)) return std::nullopt;
  std::string bytes(stream.GetSize(), '\0');
  stream.CopyTo(bytes.data(), bytes.size());
  fs::path const path = FolderOfPictures() / (Sha256OfBytes(bytes.data(), bytes.size()) + ".png");
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (!fs::exists(path, error)) WriteFileAtomically(path.string(), bytes);
  return path.string();
}

bool PastePictureObject(AnnotationTool &tool, std::string const &path, wxRect const &seen,
                        double scale, wxPoint2DDouble const &offset) {
  tool.Deactivate();
  std::optional<wxPoint> const from = FreePlace(tool, seen);
  wxImage const picture(wxString(path.c_str(), wxConvFile));
  if (!from || !picture.IsOk()) return false;
  tool.SetActiveTool(Types::Image);
  AnnImageToolMode &mode = *tool.GetToolModes().image;
  mode.m_properties->SetFileName(wxFileName(wxString(path.c_str(), wxConvFile)));
  mode.SetPicture(wxString(path.c_str(), wxConvFile));
  wxSize const size = SizeWithin(picture.GetSize(), seen.GetSize() / 2);
  wxPoint const to = *from + size;
  auto const send = [&](wxEventType type, wxPoint const &at) {
    tool.ProcessMouseEvent(at, wxMouseEvent(type), scale, offset);
  };
  send(wxEVT_MOTION, *from);
  send(wxEVT_LEFT_DOWN, *from);
  send(wxEVT_MOTION, *from + size / 2);
  send(wxEVT_MOTION, to);
  send(wxEVT_LEFT_UP, to);
  return true;
}
