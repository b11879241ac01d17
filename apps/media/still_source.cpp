// SPDX-License-Identifier: MIT
#include "media/still_source.h"

#include <cstring>
#include <optional>
#include <utility>

#include <wx/image.h>
#include <wx/imaggif.h>
#include <wx/imagtiff.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/translation.h>

#include "media/exif_orientation.h"
#include "media/media_error.h"
#include "media/picture_image.h"
#include "media/picture_limits.h"
#include "media/picture_turn.h"
#include "media/still_format.h"

namespace {

using Format = StillHeader::Format;

/// One picture, decoded.
class StillSource final : public MediaSource {
public:
  StillSource(std::string path, MediaInfo info, Picture picture, bool isDamaged)
      : m_path(std::move(path)),
        m_info(std::move(info)),
        m_picture(std::move(picture)),
        m_isDamaged(isDamaged) {}

  std::string const &Path() const override { return m_path; }
  MediaInfo const &Info() const override { return m_info; }
  std::int64_t TimeStamp(std::int64_t /*frame*/) const override { return 0; }
  std::int64_t Duration(std::int64_t /*frame*/) const override { return 1; }
  MediaFrame Read(std::int64_t /*frame*/) override {
    MediaFrame frame;
    frame.picture = Picture(m_picture.Width(), m_picture.Height());
    std::memcpy(frame.picture.Pixels(), m_picture.Pixels(), m_picture.ByteCount());
    frame.isDamaged = m_isDamaged;
    return frame;
  }

private:
  std::string m_path;
  MediaInfo m_info;
  Picture m_picture;
  bool m_isDamaged;
};

/// By the handler itself: those of wxImage's list are the program's to choose.
wxImage Decoded(std::string const &bytes, Format format) {
  wxLogNull const quiet;
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  wxImage image;
  auto const load = [&](wxImageHandler &&handler) {
    if (!handler.LoadFile(&image, stream, false, 0)) image.Destroy();
  };
  switch (format) {
    case Format::Png:
      load(wxPNGHandler());
      break;
    case Format::Jpeg:
      load(wxJPEGHandler());
      break;
    case Format::Bmp:
      load(wxBMPHandler());
      break;
    case Format::Tiff:
      load(wxTIFFHandler());
      break;
    case Format::Pnm:
      load(wxPNMHandler());
      break;
    case Format::Gif:
      load(wxGIFHandler());
      break;
  }
  return image;
}

/// libtiff would mirror by the orientation, but never swap the sides: it is told of none.
void HideOrientation(std::string &bytes, StillHeader const &header) {
  if (header.orientationAt == 0) return;
  bytes[header.orientationAt] = header.isBigEndian ? '\0' : '\1';
  bytes[header.orientationAt + 1] = header.isBigEndian ? '\1' : '\0';
}

MediaInfo Describe(StillHeader const &header, Picture const &picture, PictureTurn const &turn) {
  MediaInfo info;
  info.kind = MediaInfo::Kind::Still;
  info.width = picture.Width();
  info.height = picture.Height();
  info.rotation = 90 * turn.quarters;
  info.isMirrored = turn.isMirrored;
  info.container = NameOf(header.format);
  info.codec = info.container;
  info.pixelFormat = "rgb24";
  info.colourMatrix = "gbr";
  info.isFullRange = true;
  info.bitsPerChannel = header.bitsPerChannel;
  return info;
}

}  // namespace

std::unique_ptr<MediaSource> OpenStill(std::string const &path, std::string bytes) {
  std::optional<StillHeader> const header = ReadStillHeader(bytes);
  if (!header) throw MediaError(MediaProblem::Unrecognised, path);
  if (header->width <= 0 || header->height <= 0) {
    throw MediaError(MediaProblem::Damaged, path, wxTRANSLATE("its header tells no size"));
  }
  if (!IsAcceptedSize(header->width, header->height)) {
    throw MediaError(MediaProblem::TooLarge, path);
  }
  bool const isWhole = IsWhole(bytes, *header);
  if (!isWhole && !IsPartDecoded(bytes, *header)) {
    throw MediaError(MediaProblem::Damaged, path, wxTRANSLATE("its end is missing"));
  }
  PictureTurn const turn = TurnOfExif(ExifOrientation(bytes));
  HideOrientation(bytes, *header);
  wxImage const image = Decoded(bytes, header->format);
  if (!image.IsOk()) throw MediaError(MediaProblem::Damaged, path);
  Picture picture = Turned(ToPicture(image), turn);
  MediaInfo info = Describe(*header, picture, turn);
  return std::make_unique<StillSource>(path, std::move(info), std::move(picture), !isWhole);
}
