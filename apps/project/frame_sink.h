// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "media/media_source.h"
#include "media/message.h"
#include "project/burn_job.h"

/// A file of an output: where it is for now, and what it will be called.
struct OutputFile {
  std::string temporaryPath;
  std::string path;
};

/// Where burnt frames go. Nothing appears under the output's name before Publish; what was written
/// until then goes with the sink. Used by one thread at a time; throws MediaError and FileError.
class FrameSink {
public:
  FrameSink() = default;
  FrameSink(FrameSink const &) = delete;
  FrameSink &operator=(FrameSink const &) = delete;
  virtual ~FrameSink() = default;

  virtual void Write(std::int64_t frame, Picture const &picture) = 0;
  /// Completes the files, and returns them in the frames' order. REQUIRES: a frame was written.
  virtual std::vector<OutputFile> Complete() = 0;
  /// What of the source the output should have and lacks; empty if nothing. For after Complete.
  virtual Message Problem() const { return {}; }
  /// Gives them their names. REQUIRES: Complete has returned.
  virtual void Publish() = 0;
};

/// The sink for the settings' output. `source` outlives it. Throws std::invalid_argument if the
/// output is of no known kind.
std::unique_ptr<FrameSink> MakeFrameSink(MediaSource const &source, BurnSettings const &settings);
