// SPDX-License-Identifier: MIT
// Every frame of many kinds of video, in any order, is the frame that linear decoding gives.
#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "media/clips.h"

namespace framenote::test {

namespace {

struct Clip {
  std::string name;
  /// Arguments of `ffmpeg` runs, one after the other; the last writes the clip.
  std::vector<std::string> runs;
  std::string file;
  std::int64_t frames = 50;
  bool isSeekable = true;
  /// Whether ffprobe gives the same time stamps; it gives none where there are none.
  bool hasTimes = true;
  /// Levels: planes are converted by other code than packed colours.
  int tolerance = 2;
};

void PrintTo(Clip const &clip, std::ostream *out) {
  *out << clip.name;
}

std::string X264(std::string const &more, std::string const &file) {
  return kMoving + " -c:v libx264 -preset veryfast -bf 2 -g 12 " + more + " " + file;
}

std::string const kClosedRun = X264("", "closed.mp4");
std::string const kOpenRun = X264("-x264-params open-gop=1", "open.mp4");
std::string const kSteps = " -vf select='not(eq(mod(n\\,5)\\,2))' -fps_mode vfr ";

std::vector<Clip> Clips() {
  return {
      {"H264Mp4", {kClosedRun}, "closed.mp4"},
      {"H264OpenGopMp4", {kOpenRun}, "open.mp4"},
      {"H264OpenGopMkv", {kOpenRun, "-i open.mp4 -c copy open.mkv"}, "open.mkv"},
      {"H264Ts", {kClosedRun, "-i closed.mp4 -c copy closed.ts"}, "closed.ts"},
      {"H264IntraRefresh", {X264("-x264-params intra-refresh=1", "refresh.mp4")}, "refresh.mp4"},
      {"H264Interlaced", {X264("-flags +ilme+ildct", "interlaced.mkv")}, "interlaced.mkv"},
      {"H264TenBits422", {X264("-pix_fmt yuv422p10le", "ten.mp4")}, "ten.mp4"},
      {"HevcOpenGopMp4",
       {kMoving + " -c:v libx265 -preset ultrafast -x265-params "
                  "log-level=none:keyint=12:open-gop=1 hevc.mp4"},
       "hevc.mp4"},
      {"Vp9Webm", {kMoving + " -c:v libvpx-vp9 -cpu-used 8 -g 12 -b:v 200k vp9.webm"}, "vp9.webm"},
      {"Ffv1Mkv", {kMoving + " -c:v ffv1 -level 3 -pix_fmt bgr0 ffv1.mkv"}, "ffv1.mkv"},
      {"MjpegAvi", {kMoving + " -c:v mjpeg mjpeg.avi"}, "mjpeg.avi"},
      {"Mpeg2Ts", {kMoving + " -c:v mpeg2video -bf 2 -g 12 mpeg2.ts"}, "mpeg2.ts"},
      {"Mpeg2Ps",
       {kMoving + " -c:v mpeg2video -bf 2 -g 12 -f vob mpeg2.vob"},
       "mpeg2.vob",
       50,
       false,
       false},
      {"Mpeg4Avi", {kMoving + " -c:v mpeg4 -g 12 asp.avi"}, "asp.avi"},
      {"Mpeg4AviWithB", {kMoving + " -c:v mpeg4 -bf 2 -g 12 b.avi"}, "b.avi", 50, false, false},
      {"RawH264",
       {kClosedRun, "-i closed.mp4 -c copy -bsf:v h264_mp4toannexb raw.h264"},
       "raw.h264",
       50,
       false,
       false},
      {"EditList", {kOpenRun, "-ss 0.7 -i open.mp4 -c copy edit.mp4"}, "edit.mp4", 32},
      {"CutTs", {X264("", "whole.ts"), "-ss 0.7 -i whole.ts -c copy cut.ts"}, "cut.ts", 26},
      {"VariableRateMp4", {X264(kSteps, "vfr.mp4")}, "vfr.mp4", 40},
      {"VariableRateMkv", {X264(kSteps, "vfr.mkv")}, "vfr.mkv", 40},
      {"Turned",
       {kClosedRun, "-i closed.mp4 -c copy -metadata:s:v rotate=90 turned.mp4"},
       "turned.mp4",
       50,
       true,
       true,
       // ffmpeg turns before it converts, and colours of pairs of pixels lie elsewhere then.
       24},
      {"OddSize",
       {"-f lavfi -i testsrc2=s=160x120:d=1 -vf scale=161:121 -c:v ffv1 -pix_fmt yuv420p odd.mkv"},
       "odd.mkv",
       25},
      {"OneFrame", {X264("-frames:v 1", "one.mp4")}, "one.mp4", 1},
      {"WithSound", {"-f lavfi -i sine=d=2 " + X264("-c:a aac", "sound.mp4")}, "sound.mp4"},
  };
}

class RandomAccess : public MediaTest, public testing::WithParamInterface<Clip> {
protected:
  void SetUp() override {
    for (std::string const &run : GetParam().runs) Ffmpeg(run);
  }
  std::unique_ptr<MediaSource> Open() const { return OpenMedia(In(GetParam().file)); }
  std::unique_ptr<MediaSource> OpenWhole() const {
    auto source = Open();
    EXPECT_EQ(source->Info().frameCount, GetParam().frames);
    EXPECT_EQ(source->Info().isSeekable, GetParam().isSeekable);
    return source;
  }
};

/// How many of the frames, read in this order, are not those of the linear run.
int CountWrong(MediaSource &source, std::vector<std::int64_t> const &order,
               std::vector<std::string> const &linear) {
  int wrong = 0;
  for (std::int64_t const frame : order) {
    MediaFrame const read = source.Read(frame);
    if (read.isDamaged || BytesOf(read.picture) != linear[static_cast<std::size_t>(frame)]) ++wrong;
  }
  return wrong;
}

}  // namespace

TEST_P(RandomAccess, AnyOrderGivesTheFramesOfLinearDecoding) {
  auto const source = OpenWhole();
  std::vector<std::string> const linear = ReadLinear(*source);

  // A mistaken frame must not pass for its neighbour.
  std::vector<std::string> unique = linear;
  std::sort(unique.begin(), unique.end());
  ASSERT_EQ(std::unique(unique.begin(), unique.end()), unique.end());
  ASSERT_NE(unique.front(), "");

  std::string const expected = FfmpegFrames(GetParam().file);
  std::string const joined = std::accumulate(linear.begin(), linear.end(), std::string());
  EXPECT_LE(LargestDifference(joined, expected), GetParam().tolerance);

  std::vector<std::int64_t> order(linear.size());
  std::iota(order.begin(), order.end(), 0);
  std::reverse(order.begin(), order.end());
  EXPECT_EQ(CountWrong(*Open(), order, linear), 0) << "backwards";
  std::shuffle(order.begin(), order.end(), std::mt19937(7));
  EXPECT_EQ(CountWrong(*Open(), order, linear), 0) << "shuffled";
}

TEST_P(RandomAccess, TimeStampsAreTheStreamsOwn) {
  auto const source = OpenWhole();
  std::vector<std::int64_t> times;
  for (std::int64_t frame = 0; frame < source->Info().frameCount; ++frame) {
    times.push_back(source->TimeStamp(frame));
    EXPECT_GT(source->Duration(frame), 0);
    EXPECT_EQ(source->FrameAt(source->Seconds(frame)), frame);
  }
  if (GetParam().hasTimes) {
    EXPECT_EQ(times, FfprobeTimes(GetParam().file));
  } else {
    std::vector<std::int64_t> counted(times.size());
    std::iota(counted.begin(), counted.end(), 0);
    EXPECT_EQ(times, counted);
  }
}

INSTANTIATE_TEST_SUITE_P(Clips, RandomAccess, testing::ValuesIn(Clips()),
                         [](auto const &clip) { return clip.param.name; });

}  // namespace framenote::test
