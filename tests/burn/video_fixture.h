// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <wx/image.h>

#include <gtest/gtest.h>

#include "burn/burn_fixture.h"
#include "media/media_source.h"
#include "media/picture_image.h"

namespace framenote::test {

using Lines = std::vector<std::string>;

constexpr int kFrames = 20;
constexpr int kClipWidth = 160;
constexpr int kClipHeight = 120;

// Present in the frames 5 to 14; its pixels are those of IsInRectangle.
inline std::string const kShapeInTheMiddle =
    RedShape("5", "14", Span("5,14", "9.5", "19.5", "109.5", "69.5"));

inline bool HasShape(std::int64_t frame) {
  return frame >= 5 && frame <= 14;
}

/// Clips made by the `ffmpeg` program, and frames as the programs' own reader decodes them.
class BurnVideo : public Burn {
protected:
  void SetUp() override {
    Burn::SetUp();
    WriteAll(In("doc.json"), Document(kShapeInTheMiddle));
  }

  /// What a command prints, run in the folder. The command must succeed.
  std::string Output(std::string const &command) const {
    std::string const whole = "cd '" + m_folder.string() + "' && (" + command + ") </dev/null";
    std::string output;
    std::FILE *const pipe = popen(whole.c_str(), "r");
    if (!pipe) {
      ADD_FAILURE() << command;
      return {};
    }
    char part[65536];
    while (std::size_t const count = std::fread(part, 1, sizeof part, pipe)) {
      output.append(part, count);
    }
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
  }

  Lines OutputLines(std::string const &command) const {
    std::istringstream stream(Output(command));
    Lines lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }

  void Ffmpeg(std::string const &arguments) const {
    Output("ffmpeg -v error -nostdin -y " + arguments);
  }

  /// A clip of `kFrames` frames, 25 a second.
  void MakeClip(std::string const &name, std::string const &more = "-c:v libx264 -qp 18",
                std::string const &size = "160x120") const {
    Ffmpeg("-f lavfi -i testsrc2=s=" + size + ":r=25:d=0.8 " + more + " " + name);
  }

  /// The same with a tone.
  void MakeClipWithSound(std::string const &name) const {
    Ffmpeg(
        "-f lavfi -i testsrc2=s=160x120:r=25:d=0.8 -f lavfi -i sine=440:r=44100:d=0.8 "
        "-c:v libx264 -qp 18 -c:a aac " +
        name);
  }

  Arguments VideoArguments(std::string const &input, std::string const &output,
                           Arguments const &more = {}) {
    return Usual(more, "doc.json", input, output);
  }

  std::unique_ptr<MediaSource> Open(std::string const &name) const { return OpenMedia(In(name)); }

  std::vector<wxImage> FramesOf(std::string const &name) const {
    auto const source = Open(name);
    std::vector<wxImage> frames;
    for (std::int64_t frame = 0; frame < source->Info().frameCount; ++frame) {
      frames.push_back(ToImage(source->Read(frame).picture));
    }
    return frames;
  }

  /// The times of the frames in seconds, as `ffprobe` reads them.
  Lines TimesOf(std::string const &name) const {
    return OutputLines(
        "ffprobe -v error -select_streams v -show_entries packet=pts_time -of csv=p=0 " + name +
        " | tr -d , | sort -n");
  }

  /// The hashes of the sound's packets.
  Lines SoundOf(std::string const &name) const {
    return OutputLines(
        "ffprobe -v error -select_streams a -show_packets -show_data_hash sha256 "
        "-show_entries packet=data_hash " +
        name + " | sed -n 's/data_hash=//p'");
  }
};

/// Two pictures of one size are the same, bit for bit.
inline testing::AssertionResult AreSame(wxImage const &a, wxImage const &b) {
  if (a.GetSize() != b.GetSize()) {
    return testing::AssertionFailure() << a.GetWidth() << " x " << a.GetHeight() << " and "
                                       << b.GetWidth() << " x " << b.GetHeight();
  }
  for (int y = 0; y < a.GetHeight(); ++y) {
    for (int x = 0; x < a.GetWidth(); ++x) {
      if (ColourAt(a, x, y) == ColourAt(b, x, y)) continue;
      return testing::AssertionFailure() << "(" << x << ", " << y << ")";
    }
  }
  return testing::AssertionSuccess();
}

/// The red rectangle stands in `burnt`, and all about it is as it was.
inline testing::AssertionResult IsBurntIn(wxImage const &burnt, wxImage const &source,
                                          bool hasShape) {
  wxImage expected = source.Copy();
  for (int y = 20; hasShape && y <= 69; ++y) {
    for (int x = 10; x <= 109; ++x) expected.SetRGB(x, y, 255, 0, 0);
  }
  return AreSame(burnt, expected);
}

}  // namespace framenote::test
