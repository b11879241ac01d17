// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "media/picture.h"
#include "media/rational.h"

/// What is known of an opened picture or video.
struct MediaInfo {
  enum class Kind { Still, Video };

  Kind kind = Kind::Still;
  int width = 0;   ///< of the pictures that are read: rotation is applied already
  int height = 0;  ///< likewise
  std::int64_t frameCount = 1;
  Rational timeBase{1, 1};    ///< of TimeStamp, in seconds
  Rational frameRate;         ///< average, in frames a second; 0/1 for a still
  Rational pixelShape{1, 1};  ///< width to height of a pixel, after rotation
  bool hasAudio = false;
  bool hasVariableRate = false;
  bool isSeekable = true;   ///< false where frames can only be read from the beginning on
  int rotation = 0;         ///< clockwise degrees that were applied on reading: 0, 90, 180, 270
  bool isMirrored = false;  ///< left to right, before that rotation
  std::string container;    ///< short names of the format, codec and pixel format
  std::string codec;
  std::string pixelFormat;
  std::string colourMatrix;            ///< such as "bt709"
  bool isColourMatrixGuessed = false;  ///< the stream does not say; guessed from its size
  bool isFullRange = false;
  int bitsPerChannel = 8;
};

/// One frame as it was read.
struct MediaFrame {
  Picture picture;
  bool isDamaged = false;  ///< the decoder had to make up parts of it
};

/// An opened picture or video: its frames, in any order, exactly. Used by one thread at a time.
class MediaSource {
public:
  MediaSource() = default;
  MediaSource(MediaSource const &) = delete;
  MediaSource &operator=(MediaSource const &) = delete;
  virtual ~MediaSource() = default;

  virtual std::string const &Path() const = 0;
  virtual MediaInfo const &Info() const = 0;
  /// The stream's own time stamp, in units of Info().timeBase. REQUIRES: 0 <= frame < frameCount.
  virtual std::int64_t TimeStamp(std::int64_t frame) const = 0;
  /// How long the frame stands, in units of Info().timeBase; positive. REQUIRES as TimeStamp.
  virtual std::int64_t Duration(std::int64_t frame) const = 0;
  /// The picture of exactly this frame. Frames in order are cheap; others cost decoding from the
  /// key frame before. Throws MediaError: Damaged if the frame yields no picture at all, Changed or
  /// NotFound if the file is not what was opened. The source stays usable for other frames.
  /// REQUIRES as TimeStamp.
  virtual MediaFrame Read(std::int64_t frame) = 0;

  /// Seconds from the first frame's time stamp to this one's. REQUIRES as TimeStamp.
  double Seconds(std::int64_t frame) const;
  /// The frame that stands at `seconds` from the first; the first or last beyond the ends.
  std::int64_t FrameAt(double seconds) const;
};

/// How media is opened.
struct MediaOptions {
  /// Told how much of a video has been indexed, 0 to 1; false stops (MediaError, Cancelled). May be
  /// empty. Called from the thread that opens.
  std::function<bool(double)> progress;
  /// Where indexes of videos are kept between runs, a folder that may not exist yet; empty:
  /// nowhere.
  std::string cacheFolder;
  /// How many bytes of decoded frames are kept, so that going back is cheap; as given, 80 frames of
  /// 1920 x 1080 with 12 bits a pixel. 0 suits those who read from the beginning to the end.
  std::size_t keptBytes = std::size_t{256} << 20;
};

/// Opens a still picture or a video by what the file holds, whatever its name is.
/// Throws MediaError. `path` is in the file system's encoding.
std::unique_ptr<MediaSource> OpenMedia(std::string const &path, MediaOptions const &options = {});
