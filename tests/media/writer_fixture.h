// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "media/media_error.h"
#include "media/picture.h"
#include "media/video_writer.h"

namespace framenote::test {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

/// A picture in which no pixel can be told from its neighbours; `seed` gives another one.
inline Picture Noise(int width, int height, std::uint32_t seed) {
  Picture picture(width, height);
  for (std::size_t i = 0; i < picture.ByteCount(); ++i) {
    seed = seed * 1664525U + 1013904223U;
    picture.Pixels()[i] = static_cast<unsigned char>(seed >> 24);
  }
  return picture;
}

inline Picture Plain(int width, int height, int red, int green, int blue) {
  Picture picture(width, height);
  int const colour[] = {red, green, blue};
  for (std::size_t i = 0; i < picture.ByteCount(); ++i) {
    picture.Pixels()[i] = static_cast<unsigned char>(colour[i % 3]);
  }
  return picture;
}

inline std::string Bytes(Picture const &picture) {
  return {reinterpret_cast<char const *>(picture.Pixels()), picture.ByteCount()};
}

inline std::string ReadFile(std::string const &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// What the command prints. The command must succeed.
inline std::string Output(std::string const &command) {
  std::string output;
  std::FILE *const pipe = popen(command.c_str(), "r");
  char buffer[4096];
  while (std::size_t const count = std::fread(buffer, 1, sizeof buffer, pipe)) {
    output.append(buffer, count);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

inline Lines SplitLines(std::string const &text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

/// What ffprobe prints, one line an entry, values only.
inline Lines Probe(std::string const &path, std::string const &arguments) {
  return SplitLines(Output("ffprobe -v error -of csv=p=0 " + arguments + " '" + path + "'"));
}

/// A folder of its own, in which ffmpeg makes the sources and judges the results.
class WriterTest : public testing::Test {
protected:
  WriterTest() {
    std::string name = (fs::temp_directory_path() / "framenote-writer-XXXXXX").string();
    m_folder = mkdtemp(name.data());
  }
  ~WriterTest() override { fs::remove_all(m_folder); }

  std::string PathOf(std::string const &name) const { return (m_folder / name).string(); }

  /// Runs ffmpeg with these arguments, the last of which is the name of a file in the folder.
  std::string Make(std::string const &arguments, std::string const &name) const {
    Output("ffmpeg -v error -nostdin -y " + arguments + " '" + PathOf(name) + "' 2>&1");
    return PathOf(name);
  }

  /// `seconds` of a test picture, 25 a second, and a tone.
  std::string MakeSource(std::string const &seconds, std::string const &codecs,
                         std::string const &name) const {
    return Make("-f lavfi -i testsrc2=s=64x48:r=25:d=" + seconds +
                    " -f lavfi -i sine=440:r=44100:d=" + seconds +
                    " -c:v libx264 -preset ultrafast " + codecs,
                name);
  }

  /// Frames decoded by ffmpeg.
  static std::string Decoded(std::string const &path, std::string const &pixelFormat) {
    return Output("ffmpeg -v error -nostdin -i '" + path + "' -fps_mode passthrough -f rawvideo" +
                  " -pix_fmt " + pixelFormat + " -");
  }

  static VideoSettings SettingsFor(VideoCodec codec, int width = 64, int height = 48) {
    VideoSettings settings;
    settings.codec = codec;
    settings.width = width;
    settings.height = height;
    return settings;
  }

  /// Writes pictures of noise at these times; each stands until the next, the last for
  /// `lastDuration`. Returns the path.
  std::string WriteNoise(std::string const &name, VideoSettings const &settings,
                         std::vector<std::int64_t> const &times, std::int64_t lastDuration) const {
    auto const writer = CreateVideo(PathOf(name), name, settings);
    for (std::size_t i = 0; i < times.size(); ++i) {
      std::int64_t const duration = i + 1 < times.size() ? times[i + 1] - times[i] : lastDuration;
      writer->Write(Noise(settings.width, settings.height, static_cast<std::uint32_t>(i)), times[i],
                    duration);
    }
    writer->Finish();
    EXPECT_EQ(writer->AudioProblem(), "");
    return PathOf(name);
  }

  /// As WriteNoise, with one time stamp after the other from `first` on.
  std::string WriteFrames(std::string const &name, VideoSettings const &settings, int count,
                          std::int64_t first = 0) const {
    std::vector<std::int64_t> times;
    for (int i = 0; i < count; ++i) times.push_back(first + i);
    return WriteNoise(name, settings, times, 1);
  }

  fs::path m_folder;
};

/// The problem that `work` throws as a MediaError; its detail goes into `detail`.
template <typename Work>
MediaProblem ProblemOf(Work work, std::string *detail = nullptr) {
  try {
    work();
  } catch (MediaError const &error) {
    if (detail) *detail = error.Detail().English();
    return error.Problem();
  }
  ADD_FAILURE() << "no MediaError";
  return MediaProblem::Cancelled;
}

}  // namespace framenote::test
