// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "media/picture.h"
#include "media/rational.h"

enum class VideoCodec { H264, FFV1 };

/// What a video is written with.
struct VideoSettings {
  VideoCodec codec = VideoCodec::FFV1;
  /// H.264 here has half the chroma each way, and so even sizes only: an odd last column or row is
  /// repeated once, and no pixel of the picture moves. FFV1 keeps any size from
  /// 2 x 2 on, bit for bit.
  int width = 0;
  int height = 0;
  Rational timeBase{1, 25};  ///< of the time stamps given to Write, in seconds
  /// In frames a second, a hint for players. 0/1 if it is unknown or varies: Matroska would give
  /// each frame the same duration.
  Rational frameRate;
  Rational pixelShape{1, 1};
  int quality = 17;  ///< H.264's constant rate factor, 0 (lossless, for few players) to 51
  /// H.264: what its YUV is made with, and tagged as: "bt709", "smpte170m" or "bt470bg" (both are
  /// BT.601), "fcc", "smpte240m", "bt2020nc". Always limited range.
  std::string colourMatrix = "bt709";
  /// The source: the file whose audio streams are copied, packet by packet; empty: none. It may
  /// have no audio.
  std::string audioFrom;
  /// What part of the audio goes along: the packets whose sound begins at audioBegin or later, and
  /// before audioEnd; seconds on the clock of the source's own time stamps. Sound from before the
  /// origin never goes along.
  double audioBegin = 0.0;
  double audioEnd = 0.0;
  /// The source's time stamp, in timeBase, that becomes the output's zero; audio and video shift
  /// alike, so that they stay together.
  std::int64_t origin = 0;
  /// Copies the source's descriptive metadata (title, date, device ...). Off: evidence that is
  /// passed on must not tell more than its pictures.
  bool keepMetadata = false;
};

/// Writes one video file: pictures and copied audio, and nothing else of the source. The same
/// pictures and settings give the same bytes. Used by one thread at a time.
///
/// MP4 and MOV keep time stamps and durations exactly, and audio to the sample. Matroska counts
/// milliseconds: each time stamp is rounded to the nearest, and only the last duration is kept, as
/// the length of the whole.
class VideoWriter {
public:
  VideoWriter() = default;
  VideoWriter(VideoWriter const &) = delete;
  VideoWriter &operator=(VideoWriter const &) = delete;
  /// Closes the file. Unless Finish has returned it is not complete, and the caller's to remove.
  virtual ~VideoWriter() = default;

  /// Takes the next picture; `timeStamp` rises from call to call. Throws MediaError: WriteFailed
  /// with the system's reason, for example a full disk; ReadFailed if the source cannot be read any
  /// more. No call but the destructor's may follow that.
  /// REQUIRES: the picture has the settings' size; `timeStamp` is not before the origin, and
  /// `duration` is positive.
  virtual void Write(Picture const &picture, std::int64_t timeStamp, std::int64_t duration) = 0;
  /// Encodes what is pending, writes the rest of the audio and the index, and sees to it that all
  /// is on the disk. Throws like Write. REQUIRES: at least one picture; no other call follows.
  virtual void Finish() = 0;
  /// Why audio is missing or damaged that the source should have, in English; empty if none is. For
  /// after Finish.
  virtual std::string AudioProblem() const = 0;
};

/// Whether a matrix is one of those that VideoSettings names.
bool IsWrittenMatrix(std::string const &colourMatrix);

/// Creates or empties `path` and starts the video. The container is MP4 or MOV for H.264 by the
/// extension of `containerName`, and Matroska for either codec; `path` itself may be called
/// anything. Throws MediaError: Unsupported where codec, container and audio do not go together,
/// before the file is touched as far as that is known by then; WriteFailed, also for the source's
/// own path.
std::unique_ptr<VideoWriter> CreateVideo(std::string const &path, std::string const &containerName,
                                         VideoSettings const &settings);
