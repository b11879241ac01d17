// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "media/message.h"
#include "media/video_writer.h"
#include "project/frame_pipeline.h"

/// What the command was asked to do.
struct BurnOptions {
  enum class Action { Burn, ShowHelp, ShowVersion };
  enum class ProgressForm {
    Line,  ///< one line that is written over, if there is a terminal
    Json,  ///< a JSON object a line on standard output
    None
  };

  Action action = Action::Burn;
  std::string document;
  std::string input;  ///< empty: what the project names
  std::string output;
  std::optional<std::int64_t> frame;
  std::optional<FrameRange> range;
  bool withDeviceContext = false;
  bool extend = false;
  std::vector<std::pair<std::string, std::string>> macros;  ///< names with their values
  std::optional<VideoCodec> codec;
  int quality = 17;
  bool keepAudio = true;
  bool keepMetadata = false;
  std::string report;
  ProgressForm progress = ProgressForm::Line;
};

/// Reads the arguments after the program's name. Returns what is wrong with them, and then
/// `options` is meaningless.
Message ReadBurnOptions(std::vector<std::string> const &arguments, BurnOptions &options);

/// What --help says of the options, in the user's language.
std::string BurnOptionLines();
