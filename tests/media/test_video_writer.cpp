// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include <sys/resource.h>

#include "media/writer_fixture.h"

namespace {

using namespace framenote::test;

using VideoWriterPictures = WriterTest;
using VideoWriterTimes = WriterTest;
using VideoWriterFailure = WriterTest;

std::string SystemText(int error) {
  return std::generic_category().message(error);
}

/// Bytes that this process may write to one file; the old limit comes back with the end of this.
class FileSizeLimit {
public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    rlimit limit = m_before;
    limit.rlim_cur = bytes;
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  FileSizeLimit(FileSizeLimit const &) = delete;
  FileSizeLimit &operator=(FileSizeLimit const &) = delete;
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
  rlimit m_before = {};
};

struct Size {
  int width;
  int height;
};

// Those of less than 16 are one slice, the last is large enough for sixteen.
constexpr Size kSizes[] = {{2, 2}, {2, 50}, {15, 16}, {16, 16}, {17, 37}, {64, 48}, {801, 603}};

TEST_F(VideoWriterPictures, FFV1IsExact) {
  for (Size const &size : kSizes) {
    std::string const path =
        WriteFrames("a.mkv", SettingsFor(VideoCodec::FFV1, size.width, size.height), 3);
    std::string expected;
    for (std::uint32_t i = 0; i < 3; ++i) expected += Bytes(Noise(size.width, size.height, i));
    EXPECT_TRUE(Decoded(path, "rgb24") == expected) << size.width << "x" << size.height;
  }
}

// libav would write them, and lose what they show.
TEST_F(VideoWriterPictures, FFV1RefusesPicturesOnePixelThin) {
  for (Size const &size : {Size{1, 50}, Size{50, 1}}) {
    VideoSettings const settings = SettingsFor(VideoCodec::FFV1, size.width, size.height);
    EXPECT_EQ(ProblemOf([&] { CreateVideo(PathOf("a.mkv"), "a.mkv", settings); }),
              MediaProblem::Unsupported);
  }
}

TEST_F(VideoWriterPictures, FFV1HasOnlyKeyFrames) {
  std::string const path = WriteFrames("a.mkv", SettingsFor(VideoCodec::FFV1), 3);
  EXPECT_EQ(Probe(path, "-show_entries packet=flags"), (Lines{"K_", "K_", "K_"}));
}

TEST_F(VideoWriterPictures, FFV1TellsDamageByItsCheckSums) {
  std::string const path = WriteFrames("a.mkv", SettingsFor(VideoCodec::FFV1), 1);
  std::string bytes = ReadFile(path);
  bytes[bytes.size() / 2] = static_cast<char>(~bytes[bytes.size() / 2]);
  std::ofstream(path, std::ios::binary) << bytes;
  std::string const log = Output("ffmpeg -v error -nostdin -i '" + path + "' -f null - 2>&1");
  EXPECT_NE(log.find("slice CRC mismatch"), std::string::npos) << log;
}

struct MatrixCase {
  char const *name;
  char const *matrix;
  char const *tags;
  int y, u, v;
};

// (200, 50, 20) in limited range, by hand: luma 79.724 of 255 in BT.709 and 91.43 in BT.601;
// Y = 16 + 219 * luma / 255, U = 128 + 224 * (20 - luma) / 255 / d, and V likewise with 200, where
// d is 1.8556 and 1.5748 in BT.709, 1.772 and 1.402 in BT.601.
constexpr MatrixCase kMatrixCases[] = {
    {"a.mp4", "bt709", "tv,bt709,bt709,bt709,left", 84, 100, 195},
    {"a.mov", "bt709", "tv,bt709,bt709,bt709,left", 84, 100, 195},
    {"a.mkv", "bt709", "tv,bt709,bt709,bt709,left", 84, 100, 195},
    {"a.mp4", "smpte170m", "tv,smpte170m,smpte170m,smpte170m,left", 95, 93, 196},
    {"a.mkv", "bt470bg", "tv,bt470bg,smpte170m,bt470bg,left", 95, 93, 196},
};

TEST_F(VideoWriterPictures, H264HasTheColoursOfItsMatrix) {
  for (MatrixCase const &row : kMatrixCases) {
    SCOPED_TRACE(std::string(row.matrix) + " in " + row.name);
    VideoSettings settings = SettingsFor(VideoCodec::H264);
    settings.colourMatrix = row.matrix;
    std::string const path = PathOf(row.name);
    auto const writer = CreateVideo(path, row.name, settings);
    writer->Write(Plain(64, 48, 200, 50, 20), 0, 1);
    writer->Finish();
    EXPECT_EQ(Probe(path,
                    "-show_entries stream=color_range,color_space,color_transfer,"
                    "color_primaries,chroma_location"),
              Lines{row.tags});
    std::string const yuv = Decoded(path, "yuv420p");
    ASSERT_EQ(yuv.size(), 64U * 48U * 3U / 2U);
    auto const at = [&yuv](std::size_t i) { return static_cast<unsigned char>(yuv[i]); };
    EXPECT_NEAR(at(24 * 64 + 32), row.y, 1);
    EXPECT_NEAR(at(64 * 48 + 12 * 32 + 16), row.u, 1);
    EXPECT_NEAR(at(64 * 48 * 5 / 4 + 12 * 32 + 16), row.v, 1);
    std::string const rgb = Decoded(path, "rgb24");
    ASSERT_EQ(rgb.size(), 64U * 48U * 3U);
    EXPECT_NEAR(static_cast<unsigned char>(rgb[0]), 200, 3);
    EXPECT_NEAR(static_cast<unsigned char>(rgb[1]), 50, 3);
    EXPECT_NEAR(static_cast<unsigned char>(rgb[2]), 20, 3);
  }
}

TEST_F(VideoWriterPictures, H264RepeatsAnOddLastColumnAndRow) {
  Picture picture = Plain(33, 17, 0, 0, 0);
  for (std::size_t y = 0; y < 17; ++y) {
    for (std::size_t x = 0; x < 33; ++x) {
      bool const isEdge = x == 32 || y == 16;
      unsigned char *const pixel = picture.Pixels() + y * picture.RowBytes() + x * 3;
      pixel[0] = pixel[1] = pixel[2] = isEdge ? 255 : 0;
    }
  }
  VideoSettings settings = SettingsFor(VideoCodec::H264, 33, 17);
  settings.quality = 0;
  auto const writer = CreateVideo(PathOf("a.mp4"), "a.mp4", settings);
  writer->Write(picture, 0, 1);
  writer->Finish();
  std::string const yuv = Decoded(PathOf("a.mp4"), "yuv420p");
  ASSERT_EQ(yuv.size(), 34U * 18U * 3U / 2U);
  for (std::size_t y = 0; y < 18; ++y) {
    for (std::size_t x = 0; x < 34; ++x) {
      int const expected = x >= 32 || y >= 16 ? 235 : 16;
      ASSERT_EQ(static_cast<unsigned char>(yuv[y * 34 + x]), expected) << x << "," << y;
    }
  }
}

TEST_F(VideoWriterPictures, H264TakesTheSmallestPicture) {
  std::string const path = WriteFrames("a.mp4", SettingsFor(VideoCodec::H264, 1, 1), 2);
  EXPECT_EQ(Probe(path, "-count_packets -show_entries stream=width,height,nb_read_packets"),
            Lines{"2,2,2"});
}

TEST_F(VideoWriterPictures, PixelShapeIsKept) {
  for (char const *const name : {"a.mp4", "a.mkv"}) {
    VideoSettings settings = SettingsFor(VideoCodec::H264);
    settings.pixelShape = {16, 11};
    EXPECT_EQ(Probe(WriteFrames(name, settings, 1), "-show_entries stream=sample_aspect_ratio"),
              Lines{"16:11"});
  }
}

TEST_F(VideoWriterPictures, TwoRunsGiveTheSameBytes) {
  std::string const source = MakeSource("1", "-c:a aac", "source.mp4");
  struct Case {
    VideoCodec codec;
    char const *name;
  };
  for (Case const &row : {Case{VideoCodec::FFV1, "a.mkv"}, Case{VideoCodec::H264, "a.mkv"},
                          Case{VideoCodec::H264, "a.mp4"}, Case{VideoCodec::H264, "a.mov"}}) {
    VideoSettings settings = SettingsFor(row.codec, 320, 241);
    settings.audioFrom = source;
    settings.audioEnd = 1.0;
    std::string const first = ReadFile(WriteFrames(row.name, settings, 12));
    std::string const second = ReadFile(WriteFrames(row.name, settings, 12));
    EXPECT_GT(first.size(), 10000U);
    EXPECT_TRUE(first == second) << row.name;
  }
}

std::vector<std::int64_t> const kVariableTimes = {900000, 903003, 906100, 915000, 920000};
constexpr std::int64_t kLastDuration = 12345;

VideoSettings Variable(VideoSettings settings) {
  settings.timeBase = {1, 90000};
  settings.origin = 900000;
  return settings;
}

TEST_F(VideoWriterTimes, AreExactInMp4AndMov) {
  for (char const *const name : {"a.mp4", "a.mov"}) {
    std::string const path =
        WriteNoise(name, Variable(SettingsFor(VideoCodec::H264)), kVariableTimes, kLastDuration);
    EXPECT_EQ(Probe(path, "-show_entries packet=pts,dts,duration"),
              (Lines{"0,0,3003", "3003,3003,3097", "6100,6100,8900", "15000,15000,5000",
                     "20000,20000,12345"}));
    EXPECT_EQ(Probe(path, "-show_entries stream=time_base,duration_ts"), Lines{"1/90000,32345"});
  }
}

TEST_F(VideoWriterTimes, AreRoundedToMillisecondsInMatroska) {
  for (VideoCodec const codec : {VideoCodec::H264, VideoCodec::FFV1}) {
    std::string const path =
        WriteNoise("a.mkv", Variable(SettingsFor(codec)), kVariableTimes, kLastDuration);
    EXPECT_EQ(Probe(path, "-show_entries packet=pts"), (Lines{"0", "33", "68", "167", "222"}));
    // 32345 / 90000 s
    EXPECT_EQ(Probe(path, "-show_entries format=duration"), Lines{"0.359000"});
  }
}

TEST_F(VideoWriterTimes, MayBeginAfterTheOrigin) {
  VideoSettings settings = Variable(SettingsFor(VideoCodec::H264));
  settings.origin = 899001;
  std::string const path = WriteNoise("a.mp4", settings, kVariableTimes, kLastDuration);
  EXPECT_EQ(Probe(path, "-show_entries packet=pts"),
            (Lines{"999", "4002", "7099", "15999", "20999"}));
}

TEST_F(VideoWriterTimes, AreExactForATimeBaseThatIsNoUnitFraction) {
  VideoSettings settings = SettingsFor(VideoCodec::H264);
  settings.timeBase = {1001, 30000};
  settings.frameRate = {30000, 1001};
  std::string const path = WriteFrames("a.mp4", settings, 3);
  EXPECT_EQ(Probe(path, "-show_entries packet=pts,duration"),
            (Lines{"0,1001", "1001,1001", "2002,1001"}));
  EXPECT_EQ(Probe(path, "-show_entries stream=time_base"), Lines{"1/30000"});
}

TEST_F(VideoWriterTimes, SurviveMoreFramesThanTheEncoderHolds) {
  std::vector<std::int64_t> times(100);
  std::int64_t time = 0;
  Lines expected;
  for (std::size_t i = 0; i < times.size(); ++i) {
    times[i] = time;
    expected.push_back(std::to_string(time));
    time += i % 3 == 0 ? 1 : 500;
  }
  VideoSettings settings = SettingsFor(VideoCodec::H264, 16, 16);
  settings.timeBase = {1, 12800};
  EXPECT_EQ(Probe(WriteNoise("a.mp4", settings, times, 7), "-show_entries packet=pts"), expected);
}

TEST_F(VideoWriterTimes, TooFarApartForMp4AreRefused) {
  VideoSettings settings = SettingsFor(VideoCodec::H264);
  settings.timeBase = {1, 1000000000};
  std::string detail;
  // Two seconds and a half are more than 31 bits of nanoseconds.
  EXPECT_EQ(ProblemOf(
                [&] {
                  WriteNoise("a.mp4", settings, {0, 2500000000}, 1);
                },
                &detail),
            MediaProblem::Unsupported);
  EXPECT_EQ(detail, "a frame stands too long for MP4");
}

TEST_F(VideoWriterFailure, FullDiskIsTold) {
  for (char const *const name : {"a.mkv", "a.mp4"}) {
    std::string detail;
    EXPECT_EQ(ProblemOf(
                  [&] {
                    auto const writer =
                        CreateVideo("/dev/full", name, SettingsFor(VideoCodec::H264));
                    writer->Write(Plain(64, 48, 1, 2, 3), 0, 1);
                    writer->Finish();
                  },
                  &detail),
              MediaProblem::WriteFailed);
    EXPECT_EQ(detail, SystemText(ENOSPC));
  }
}

TEST_F(VideoWriterFailure, LimitThatOnlyTheEndReachesIsTold) {
  for (char const *const name : {"a.mkv", "a.mp4"}) {
    auto const writer = CreateVideo(PathOf(name), name, SettingsFor(VideoCodec::H264));
    writer->Write(Noise(64, 48, 1), 0, 1);
    // More than the headers, less than a picture of noise.
    FileSizeLimit const limit(2000);
    std::string detail;
    EXPECT_EQ(ProblemOf([&] { writer->Finish(); }, &detail), MediaProblem::WriteFailed);
    EXPECT_EQ(detail, SystemText(EFBIG));
  }
}

TEST_F(VideoWriterFailure, FileSizeLimitIsToldAndDoesNotEndTheProgram) {
  VideoSettings const settings = SettingsFor(VideoCodec::FFV1, 640, 480);
  auto const writer = CreateVideo(PathOf("a.mkv"), "a.mkv", settings);
  FileSizeLimit const limit(1000000);
  std::string detail;
  int written = 0;
  EXPECT_EQ(ProblemOf(
                [&] {
                  for (; written < 20; ++written) {
                    writer->Write(Noise(640, 480, 1), written, 1);
                  }
                },
                &detail),
            MediaProblem::WriteFailed);
  EXPECT_EQ(detail, SystemText(EFBIG));
  // Noise does not shrink: a frame is about 900 kB, and 5 MB are kept back at most.
  EXPECT_LE(written, 8);
  EXPECT_LE(fs::file_size(PathOf("a.mkv")), 1000000U);
}

TEST_F(VideoWriterFailure, FolderThatDoesNotExistIsTold) {
  std::string detail;
  EXPECT_EQ(
      ProblemOf([&] { CreateVideo(PathOf("none/a.mkv"), "a.mkv", SettingsFor(VideoCodec::FFV1)); },
                &detail),
      MediaProblem::WriteFailed);
  EXPECT_EQ(detail, SystemText(ENOENT));
}

TEST_F(VideoWriterFailure, UnfinishedIsClosed) {
  for (char const *const name : {"a.mkv", "a.mp4"}) {
    for (int const count : {0, 1, 30}) {
      auto writer = CreateVideo(PathOf(name), name, SettingsFor(VideoCodec::H264));
      for (int i = 0; i < count; ++i) writer->Write(Noise(64, 48, 1), i, 1);
      auto const openFiles = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
      };
      auto const before = openFiles();
      writer.reset();
      EXPECT_EQ(openFiles(), before - 1);
    }
  }
}

struct Refusal {
  VideoCodec codec;
  char const *name;
  char const *matrix;
  char const *detail;
};

constexpr Refusal kRefusals[] = {
    {VideoCodec::FFV1, "a.mp4", "bt709", "FFV1 in mp4"},
    {VideoCodec::FFV1, "a.mov", "bt709", "FFV1 in mov"},
    {VideoCodec::H264, "a.avi", "bt709", "container .avi"},
    {VideoCodec::H264, "a", "bt709", "container "},
    {VideoCodec::H264, "a.mp4", "gbr", "colour matrix gbr"},
};

TEST_F(VideoWriterFailure, WhatDoesNotGoTogetherIsRefusedBeforeTheFileIsMade) {
  for (Refusal const &row : kRefusals) {
    VideoSettings settings = SettingsFor(row.codec);
    settings.colourMatrix = row.matrix;
    std::string detail;
    EXPECT_EQ(ProblemOf([&] { CreateVideo(PathOf("new"), row.name, settings); }, &detail),
              MediaProblem::Unsupported);
    EXPECT_EQ(detail, row.detail);
    EXPECT_FALSE(fs::exists(PathOf("new")));
  }
}

TEST_F(VideoWriterFailure, ContainerIsChosenByTheNameAlone) {
  auto const writer = CreateVideo(PathOf("part.tmp"), "Clip.MP4", SettingsFor(VideoCodec::H264));
  writer->Write(Noise(64, 48, 1), 0, 1);
  writer->Finish();
  EXPECT_EQ(Probe(PathOf("part.tmp"), "-show_entries format=format_name"),
            Lines{"\"mov,mp4,m4a,3gp,3g2,mj2\""});
}

}  // namespace
