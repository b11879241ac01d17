// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "media/media_error.h"
#include "media/media_source.h"
#include "media/picture.h"

namespace framenote::test {

/// Two seconds of a moving picture, 160 x 120 at 25 frames a second, as `ffmpeg` input.
inline std::string const kMoving = "-f lavfi -i testsrc2=s=160x120:r=25:d=2";

/// A folder of its own for each test, with clips made by the `ffmpeg` program.
class MediaTest : public testing::Test {
protected:
  MediaTest();
  ~MediaTest() override;

  std::string In(std::string const &name) const { return (m_folder / name).string(); }
  /// Runs `ffmpeg ARGUMENTS` in the folder; a failure fails the test.
  void Ffmpeg(std::string const &arguments) const;
  /// What a command writes, run in the folder.
  std::string OutputOf(std::string const &command) const;
  /// The colours of all frames as `ffmpeg` decodes them from the beginning to the end.
  std::string FfmpegFrames(std::string const &name) const;
  /// The frames' time stamps as `ffprobe` decodes them.
  std::vector<std::int64_t> FfprobeTimes(std::string const &name) const;

private:
  std::filesystem::path m_folder;
};

std::string ReadAll(std::string const &path);
void WriteAll(std::string const &path, std::string const &bytes);
/// The picture's bytes.
std::string BytesOf(Picture const &picture);
/// All frames from the first to the last; "" for one that cannot be decoded.
std::vector<std::string> ReadLinear(MediaSource &source);
/// What opening gives as its problem; fails the test if it opens.
MediaProblem ProblemOf(std::string const &path, MediaOptions const &options = {});
/// The largest difference between two runs of bytes of one length; 256 if the lengths differ.
int LargestDifference(std::string const &a, std::string const &b);

}  // namespace framenote::test
