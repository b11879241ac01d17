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
  int width = 0;
  int height = 0;
  Rational timeBase{1, 25};  ///< of the time stamps given to Write, in seconds
  Rational frameRate;        ///< average; a hint for players, 0/1 if unknown
  Rational pixelShape{1, 1};
  int quality = 17;  ///< H.264's constant rate factor, 0 (best) to 51; FFV1 has none
  std::string colourMatrix = "bt709";  ///< H.264: what its YUV is made with, and tagged as
  /// The file whose audio streams are copied, packet by packet; empty: none.
  std::string audioFrom;
  /// What part of the audio goes along: seconds on the clock of the source's own time stamps.
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
class VideoWriter {
public:
  VideoWriter() = default;
  VideoWriter(VideoWriter const &) = delete;
  VideoWriter &operator=(VideoWriter const &) = delete;
  /// Closes the file. Unless Finish has returned it is not complete, and the caller's to remove.
  virtual ~VideoWriter() = default;

  /// Takes the next picture; `timeStamp` rises from call to call. Throws MediaError: WriteFailed
  /// with the system's reason, for example a full disk. REQUIRES: the picture has the settings'
  /// size.
  virtual void Write(Picture const &picture, std::int64_t timeStamp, std::int64_t duration) = 0;
  /// Encodes what is pending, and writes the rest of the audio and the index. Throws like Write.
  virtual void Finish() = 0;
};

/// Creates or empties `path` and starts the video. The container is MP4 or MOV for H.264 by the
/// extension of `containerName`, and Matroska for either codec; `path` itself may be called
/// anything. Throws MediaError: Unsupported where codec, container and audio do not go together.
std::unique_ptr<VideoWriter> CreateVideo(std::string const &path, std::string const &containerName,
                                         VideoSettings const &settings);
