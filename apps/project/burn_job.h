// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "media/media_source.h"
#include "media/message.h"
#include "media/video_writer.h"
#include "project/frame_burner.h"
#include "project/frame_pipeline.h"
#include "project/output_name.h"
#include "talbase/json_value.h"

struct BurnSettings {
  FrameRange range;
  BurnLook look;
  std::string output;  ///< its kind by its name; in the bytes of the file system
  VideoCodec codec = VideoCodec::FFV1;
  int quality = 17;  ///< of H.264: its constant rate factor, 0 (best) to 51
  bool keepAudio = true;
  bool keepMetadata = false;
  std::string report;        ///< a file for the report; empty: none
  std::string documentFile;  ///< where the document was read, for the report; empty: nowhere
};

struct BurnProgress {
  std::int64_t done = 0;
  std::int64_t frames = 0;
  double framesPerSecond = 0.0;
  double secondsLeft = 0.0;
};

struct BurnResult {
  std::string source;                       ///< the path of what was burnt into
  std::vector<std::int64_t> damagedFrames;  ///< that the decoder had to make up in part
  /// Objects of the document that are not in the output: they cannot be read, or leave no trace.
  int objectsLeftOut = 0;
  Message problem;     ///< what of the source the output lacks; empty: nothing
  wxJSONValue report;  ///< null if none was asked for
};

/// Burns the annotations of `document` into frames of `source` and writes the output, whole or not
/// at all: it gets its name when it is complete, and the report its own right before that.
/// `progress` is called after each frame, and with all frames done again and again while files are
/// summed up for the report; false stops. Belongs to the GUI thread.
/// Throws MediaError (Cancelled if it was stopped), FileError, and std::invalid_argument, whose
/// what() is in the user's language, for an
/// output of unknown kind or of a codec that it cannot hold, a range outside the source, or an
/// output or a report that is the source or the document itself, or the other one. REQUIRES:
/// `source` reads the frames for this job alone while it runs.
BurnResult RunBurnJob(MediaSource &source, wxJSONValue const &document,
                      BurnSettings const &settings,
                      std::function<bool(BurnProgress const &)> const &progress);
