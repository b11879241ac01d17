// SPDX-License-Identifier: MIT
#include "media/clips.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include <unistd.h>

namespace framenote::test {

namespace fs = std::filesystem;

MediaTest::MediaTest() {
  std::string name = (fs::temp_directory_path() / "framenote-media-XXXXXX").string();
  if (!mkdtemp(name.data())) ADD_FAILURE() << "no temporary folder";
  m_folder = name;
}

MediaTest::~MediaTest() {
  std::error_code error;
  fs::remove_all(m_folder, error);
}

std::string MediaTest::OutputOf(std::string const &command) const {
  std::string const whole = "cd '" + m_folder.string() + "' && " + command + " </dev/null";
  std::FILE *pipe = popen(whole.c_str(), "r");
  if (!pipe) {
    ADD_FAILURE() << command;
    return {};
  }
  std::string output;
  char part[65536];
  while (std::size_t const count = std::fread(part, 1, sizeof part, pipe)) {
    output.append(part, count);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

void MediaTest::Ffmpeg(std::string const &arguments) const {
  OutputOf("ffmpeg -v error -y " + arguments);
}

std::string MediaTest::FfmpegFrames(std::string const &name) const {
  return OutputOf("ffmpeg -v quiet -i " + name +
                  " -map 0:v:0 -vf scale=flags=bicubic+accurate_rnd+full_chroma_int,format=rgb24"
                  " -fps_mode passthrough -f rawvideo -");
}

std::vector<std::int64_t> MediaTest::FfprobeTimes(std::string const &name) const {
  std::istringstream lines(
      OutputOf("ffprobe -v quiet -select_streams v:0 -show_frames "
               "-show_entries frame=best_effort_timestamp -of csv=p=0 " +
               name));
  std::vector<std::int64_t> times;
  for (std::string line; std::getline(lines, line);) {
    // Side data makes lines of its own.
    if (!line.empty() && line[0] >= '0' && line[0] <= '9') times.push_back(std::stoll(line));
  }
  return times;
}

std::string ReadAll(std::string const &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteAll(std::string const &path, std::string const &bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string BytesOf(Picture const &picture) {
  return {reinterpret_cast<char const *>(picture.Pixels()), picture.ByteCount()};
}

std::vector<std::string> ReadLinear(MediaSource &source) {
  std::vector<std::string> frames;
  for (std::int64_t frame = 0; frame < source.Info().frameCount; ++frame) {
    try {
      frames.push_back(BytesOf(source.Read(frame).picture));
    } catch (MediaError const &error) {
      EXPECT_EQ(error.Problem(), MediaProblem::Damaged) << error.what();
      frames.emplace_back();
    }
  }
  return frames;
}

MediaProblem ProblemOf(std::string const &path, MediaOptions const &options) {
  try {
    OpenMedia(path, options);
  } catch (MediaError const &error) {
    EXPECT_EQ(error.Path(), path);
    return error.Problem();
  }
  ADD_FAILURE() << path << " opens";
  return MediaProblem::WriteFailed;
}

int LargestDifference(std::string const &a, std::string const &b) {
  if (a.size() != b.size()) return 256;
  int largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    int const one = static_cast<unsigned char>(a[i]);
    int const other = static_cast<unsigned char>(b[i]);
    largest = std::max(largest, std::abs(one - other));
  }
  return largest;
}

}  // namespace framenote::test
