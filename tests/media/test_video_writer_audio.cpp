// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "media/writer_fixture.h"

namespace {

using namespace framenote::test;

/// A packet's payload and when it plays.
struct Sound {
  double seconds;
  std::string hash;
};

class VideoWriterAudio : public WriterTest {
protected:
  static std::vector<Sound> SoundsOf(std::string const &path, std::string const &stream = "a:0") {
    // A packet's side data, which has no name to be asked for, breaks its line.
    std::string const text =
        Output("ffprobe -v error -of csv=p=0 -select_streams " + stream +
               " -show_entries packet=pts_time,data_hash -show_data_hash sha256 '" + path +
               "' | sed -z 's/,\\n,/,/g'");
    std::vector<Sound> sounds;
    for (std::string const &line : SplitLines(text)) {
      std::size_t const comma = line.find(',');
      sounds.push_back({std::stod(line), line.substr(comma + 1)});
    }
    return sounds;
  }

  static VideoSettings WithAudio(std::string const &source, double begin, double end,
                                 VideoCodec codec = VideoCodec::H264) {
    VideoSettings settings = SettingsFor(codec);
    settings.audioFrom = source;
    settings.audioBegin = begin;
    settings.audioEnd = end;
    return settings;
  }

  /// Expects the sounds of `source` from the one numbered `first` on, `count` of them, each shifted
  /// by `shift` seconds.
  static void ExpectSounds(std::vector<Sound> const &source, std::vector<Sound> const &copy,
                           std::size_t first, std::size_t count, double shift, double tolerance) {
    ASSERT_EQ(copy.size(), count);
    ASSERT_GE(source.size(), first + count);
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_EQ(copy[i].hash, source[first + i].hash) << i;
      ASSERT_NEAR(copy[i].seconds, source[first + i].seconds + shift, tolerance) << i;
    }
  }
};

// ffprobe prints microseconds; a sample of 44100 a second is 23 of them.
constexpr double kExact = 2e-6;
constexpr double kMatroska = 0.00051;

TEST_F(VideoWriterAudio, WholeStreamIsCopiedWithItsPriming) {
  std::vector<Sound> const source = SoundsOf(MakeSource("1", "-c:a aac", "source.mp4"));
  // 44100 samples are 43.07 packets of 1024; one of priming comes before.
  ASSERT_EQ(source.size(), 45U);
  ASSERT_NEAR(source[0].seconds, -1024.0 / 44100.0, kExact);
  struct Case {
    VideoCodec codec;
    char const *name;
    double tolerance;
  };
  for (Case const &row :
       {Case{VideoCodec::H264, "a.mp4", kExact}, Case{VideoCodec::H264, "a.mov", kExact},
        Case{VideoCodec::H264, "a.mkv", kMatroska}, Case{VideoCodec::FFV1, "a.mkv", kMatroska}}) {
    SCOPED_TRACE(row.name);
    std::string const path =
        WriteFrames(row.name, WithAudio(PathOf("source.mp4"), 0.0, 1.0, row.codec), 25);
    ExpectSounds(source, SoundsOf(path), 0, 45, 0.0, row.tolerance);
    EXPECT_EQ(Probe(path, "-select_streams v -show_entries packet=pts_time").front(), "0.000000");
  }
}

TEST_F(VideoWriterAudio, SoundAndPictureShiftAlike) {
  std::vector<Sound> const source = SoundsOf(MakeSource("2", "-c:a aac", "source.mp4"));
  for (char const *const name : {"a.mp4", "a.mkv"}) {
    VideoSettings settings = WithAudio(PathOf("source.mp4"), 0.6, 1.4);
    settings.origin = 15;
    std::string const path = WriteFrames(name, settings, 20, 15);
    // Packet k begins at sample 1024 (k - 1). 0.6 s are 26460 samples, so k is 27 at least, which
    // begins 164 samples later; 1.4 s are 61740 samples, so k is 61 at most.
    ExpectSounds(source, SoundsOf(path), 27, 35, -0.6,
                 std::string(name) == "a.mp4" ? 1.2e-5 : kMatroska);
    EXPECT_NEAR(SoundsOf(path).front().seconds, 164.0 / 44100.0, kMatroska);
    EXPECT_EQ(Probe(path, "-select_streams v -show_entries packet=pts_time").front(), "0.000000");
  }
}

TEST_F(VideoWriterAudio, DecodesToTheSameSamples) {
  MakeSource("1", "-c:a aac", "source.mp4");
  auto const samples = [](std::string const &path) {
    return Output("ffmpeg -v error -nostdin -i '" + path + "' -map 0:a -f s16le -ac 1 -");
  };
  std::string const expected = samples(PathOf("source.mp4"));
  ASSERT_GE(expected.size(), 44100U * 2U);
  VideoSettings const settings = WithAudio(PathOf("source.mp4"), 0.0, 1.1);
  EXPECT_TRUE(samples(WriteFrames("a.mp4", settings, 25)) == expected);
  // From Matroska the priming is decoded too, for the time before zero: 1024 samples.
  std::string const withPriming = samples(WriteFrames("a.mkv", settings, 25));
  ASSERT_GT(withPriming.size(), 2048U);
  EXPECT_TRUE(withPriming.substr(2048, 44100 * 2) == expected.substr(0, 44100 * 2));
}

TEST_F(VideoWriterAudio, LateRangesAreFoundInAnySource) {
  for (char const *const name : {"source.mp4", "source.mkv", "source.ts"}) {
    SCOPED_TRACE(name);
    std::vector<Sound> const source = SoundsOf(MakeSource("50", "-g 250 -c:a mp2", name));
    std::size_t first = 0;
    while (source[first].seconds < 45.0) ++first;
    std::size_t count = 0;
    while (source[first + count].seconds < 46.0) ++count;
    // A packet of 1152 samples lasts 26.1 ms.
    ASSERT_NEAR(static_cast<double>(count), 38.5, 1.0);
    VideoSettings settings = WithAudio(PathOf(name), 45.0, 46.0);
    settings.origin = 45 * 25;
    std::string const path = WriteFrames("a.mkv", settings, 25, 45 * 25);
    ExpectSounds(source, SoundsOf(path), first, count, -45.0, 0.0011);
  }
}

TEST_F(VideoWriterAudio, NeighbouringRangesShareThePackets) {
  std::vector<Sound> const source = SoundsOf(MakeSource("2", "-c:a aac", "source.mp4"));
  std::size_t copied = 0;
  for (int part = 0; part < 4; ++part) {
    double const begin = part * 0.5;
    VideoSettings settings = WithAudio(PathOf("source.mp4"), begin, begin + 0.5);
    settings.timeBase = {1, 10};
    settings.origin = part * 5;
    std::vector<Sound> const sounds = SoundsOf(WriteFrames("a.mp4", settings, 5, part * 5));
    ExpectSounds(source, sounds, copied, sounds.size(), -begin, 1.2e-5);
    copied += sounds.size();
  }
  // 2 s are 86.13 packets, after one of priming.
  EXPECT_EQ(source.size(), 88U);
  EXPECT_EQ(copied, 88U);
}

TEST_F(VideoWriterAudio, StreamsAreAllCopied) {
  MakeSource("1", "-c:a aac", "one.mp4");
  Make("-i '" + PathOf("one.mp4") +
           "' -f lavfi -i sine=880:r=48000:d=1 -map 0:v -map 0:a -map 1:a" +
           " -c:v copy -c:a:0 copy -c:a:1 libopus",
       "source.mkv");
  std::string const path =
      WriteFrames("a.mkv", WithAudio(PathOf("source.mkv"), 0.0, 1.0, VideoCodec::FFV1), 25);
  EXPECT_EQ(Probe(path, "-show_entries stream=codec_name"), (Lines{"ffv1", "aac", "opus"}));
  for (char const *const stream : {"a:0", "a:1"}) {
    std::vector<Sound> const source = SoundsOf(PathOf("source.mkv"), stream);
    std::vector<Sound> const copy = SoundsOf(path, stream);
    EXPECT_GE(copy.size(), 44U);
    ExpectSounds(source, copy, 0, copy.size(), 0.0, 0.0011);
  }
}

TEST_F(VideoWriterAudio, PacketsStandAmongThePicturesOfTheirTime) {
  MakeSource("4", "-c:a aac", "source.mp4");
  for (char const *const name : {"a.mp4", "a.mkv"}) {
    std::string const path = WriteFrames(name, WithAudio(PathOf("source.mp4"), 0.0, 4.0), 100);
    // What ffprobe lists is in the order of decoding; the place in the file tells.
    double latest[2] = {0.0, 0.0};
    std::vector<std::tuple<long, std::size_t, double>> packets;
    for (std::string const &line : Probe(path, "-show_entries packet=stream_index,pts_time,pos")) {
      std::size_t const second = line.find(',') + 1;
      std::size_t const third = line.find(',', second) + 1;
      packets.emplace_back(std::stol(line.substr(third)), std::stoul(line),
                           std::stod(line.substr(second)));
    }
    std::sort(packets.begin(), packets.end());
    ASSERT_GT(packets.size(), 270U);
    for (auto const &[position, stream, seconds] : packets) {
      ASSERT_LT(stream, 2U);
      latest[stream] = seconds;
      // A picture's time and a packet's, at most.
      if (latest[0] >= 3.9) break;
      ASSERT_NEAR(latest[0], latest[1], 0.065) << name;
    }
  }
}

TEST_F(VideoWriterAudio, SourceWithoutAudioGivesNone) {
  Make("-f lavfi -i testsrc2=s=64x48:r=25:d=1 -c:v libx264", "source.mp4");
  std::string const path = WriteFrames("a.mp4", WithAudio(PathOf("source.mp4"), 0.0, 1.0), 3);
  EXPECT_EQ(Probe(path, "-show_entries stream=codec_name"), Lines{"h264"});
}

TEST_F(VideoWriterAudio, CodecThatTheContainerCannotCarryIsNamed) {
  MakeSource("1", "-c:a pcm_s16le", "source.mov");
  VideoSettings const settings = WithAudio(PathOf("source.mov"), 0.0, 1.0);
  std::string detail;
  EXPECT_EQ(ProblemOf([&] { CreateVideo(PathOf("new"), "a.mp4", settings); }, &detail),
            MediaProblem::Unsupported);
  EXPECT_EQ(detail, "audio pcm_s16le in mp4");
  EXPECT_FALSE(fs::exists(PathOf("new")));
  std::vector<Sound> const source = SoundsOf(PathOf("source.mov"));
  for (char const *const name : {"a.mov", "a.mkv"}) {
    std::vector<Sound> const copy = SoundsOf(WriteFrames(name, settings, 25));
    ExpectSounds(source, copy, 0, source.size(), 0.0, kMatroska);
  }
}

TEST_F(VideoWriterAudio, SourceThatCannotBeReadIsTold) {
  auto const problem = [this](std::string const &source) {
    return ProblemOf([&] { CreateVideo(PathOf("new"), "a.mp4", WithAudio(source, 0.0, 1.0)); });
  };
  EXPECT_EQ(problem(PathOf("none.mp4")), MediaProblem::NotFound);
  EXPECT_EQ(problem(m_folder.string()), MediaProblem::NotAFile);
  std::ofstream(PathOf("text.mp4")) << "no video";
  EXPECT_EQ(problem(PathOf("text.mp4")), MediaProblem::Unrecognised);
  EXPECT_FALSE(fs::exists(PathOf("new")));
}

TEST_F(VideoWriterAudio, SourceIsNotOverwritten) {
  std::string const source = MakeSource("1", "-c:a aac", "source.mp4");
  std::string const before = ReadFile(source);
  fs::create_symlink(source, PathOf("link.mp4"));
  for (std::string const &path : {source, PathOf("link.mp4")}) {
    EXPECT_EQ(ProblemOf([&] { CreateVideo(path, "a.mp4", WithAudio(source, 0.0, 1.0)); }),
              MediaProblem::WriteFailed);
  }
  EXPECT_TRUE(ReadFile(source) == before);
}

TEST_F(VideoWriterAudio, SourceThatBreaksOffIsCopiedAsFarAsItGoes) {
  std::string const source = MakeSource("4", "-c:a aac -movflags +faststart", "source.mp4");
  std::vector<Sound> const whole = SoundsOf(source);
  fs::resize_file(source, fs::file_size(source) / 2);
  auto const writer = CreateVideo(PathOf("a.mp4"), "a.mp4", WithAudio(source, 0.0, 4.0));
  for (int i = 0; i < 100; ++i) writer->Write(Noise(64, 48, 1), i, 1);
  writer->Finish();
  EXPECT_EQ(writer->AudioProblem(), "damaged packet");
  std::vector<Sound> copy = SoundsOf(PathOf("a.mp4"));
  ASSERT_GT(copy.size(), 40U);
  // The last packet is cut in two.
  EXPECT_NE(copy.back().hash, whole[copy.size() - 1].hash);
  copy.pop_back();
  ExpectSounds(whole, copy, 0, copy.size(), 0.0, kExact);
}

class VideoWriterEvidence : public VideoWriterAudio {
protected:
  /// A source with all that can travel beside pictures and sound.
  std::string MakeTellingSource() const {
    MakeSource("2", "-c:a aac", "plain.mp4");
    Make("-f lavfi -i color=red:s=32x32 -frames:v 1", "cover.png");
    std::ofstream(PathOf("words.srt")) << "1\n00:00:00,100 --> 00:00:01,000\nSecretWords\n";
    std::ofstream(PathOf("tags.txt"))
        << ";FFMETADATA1\ntitle=SecretTitle\ntimecode=01:02:03:04\n"
           "[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=1000\ntitle=SecretChapter\n";
    Make("-i '" + PathOf("plain.mp4") + "' -i '" + PathOf("words.srt") + "' -i '" +
             PathOf("tags.txt") + "' -i '" + PathOf("cover.png") +
             "' -map 0 -map 1 -map 3 -map_metadata 2 -map_chapters 2 -c copy -c:s mov_text" +
             " -metadata:s:a title=SecretTrack -metadata:s:a language=deu" +
             " -disposition:v:1 attached_pic",
         "source.mp4");
    return PathOf("source.mp4");
  }
};

TEST_F(VideoWriterEvidence, NothingElseOfTheSourceTravels) {
  std::string const source = MakeTellingSource();
  // Two videos, sound, words, chapters as text, time code.
  ASSERT_GE(Probe(source, "-show_entries stream=index").size(), 5U);
  for (char const *const name : {"a.mp4", "a.mov", "a.mkv"}) {
    std::string const path = WriteFrames(name, WithAudio(source, 0.0, 2.0), 50);
    EXPECT_EQ(Probe(path, "-show_entries stream=codec_name"), (Lines{"h264", "aac"})) << name;
    EXPECT_EQ(Probe(path, "-show_chapters"), Lines{});
    std::string const bytes = ReadFile(path);
    for (char const *const text : {"Secret", "01:02:03:04", "deu", "PNG"}) {
      EXPECT_EQ(bytes.find(text), std::string::npos) << name << " " << text;
    }
  }
}

TEST_F(VideoWriterEvidence, MetadataIsKeptWhenAskedFor) {
  std::string const source = MakeTellingSource();
  for (char const *const name : {"a.mp4", "a.mov", "a.mkv"}) {
    VideoSettings settings = WithAudio(source, 0.0, 2.0);
    settings.keepMetadata = true;
    std::string const path = WriteFrames(name, settings, 2);
    EXPECT_EQ(Probe(path, "-show_entries format_tags=title"), Lines{"SecretTitle"}) << name;
    EXPECT_EQ(Probe(path, "-show_entries stream=codec_name"), (Lines{"h264", "aac"})) << name;
    EXPECT_EQ(Probe(path, "-show_chapters"), Lines{});
    EXPECT_EQ(ReadFile(path).find("SecretTrack"), std::string::npos);
  }
}

}  // namespace
