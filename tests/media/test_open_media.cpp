// SPDX-License-Identifier: MIT
// What cannot be opened or read, and the indexes that are kept.
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "media/clips.h"
#include "media/media_error_text.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

class OpeningMedia : public MediaTest {
protected:
  void MakeClip(std::string const &name) {
    Ffmpeg(kMoving + " -c:v libx264 -preset veryfast -g 12 " + name);
  }
  /// Overwrites the middle third of the clip's packet, which leaves the container whole.
  void Break(std::string const &name, int packet) {
    std::istringstream lines(
        OutputOf("ffprobe -v quiet -select_streams v -show_packets -show_entries packet=size,pos "
                 "-of csv=p=0 " +
                 name));
    std::string line;
    for (int i = 0; i <= packet; ++i) std::getline(lines, line);
    std::size_t const size = std::stoul(line);
    std::size_t const at = std::stoul(line.substr(line.find(',') + 1));
    std::string bytes = ReadAll(In(name));
    for (std::size_t i = at + size / 3; i < at + 2 * size / 3; ++i) {
      bytes[i] = static_cast<char>(i * 37);
    }
    WriteAll(In(name), bytes);
  }
};

std::string ErrorOfRead(MediaSource &source, std::int64_t frame, MediaProblem problem) {
  try {
    source.Read(frame);
  } catch (MediaError const &error) {
    EXPECT_EQ(error.Problem(), problem) << error.what();
    return error.what();
  }
  ADD_FAILURE() << "frame " << frame << " is read";
  return {};
}

}  // namespace

TEST_F(OpeningMedia, FilesThatAreNoMediaSayWhatTheyAre) {
  EXPECT_EQ(ProblemOf(In("nothing")), MediaProblem::NotFound);
  EXPECT_EQ(ProblemOf(In("nothing/below")), MediaProblem::NotFound);
  EXPECT_EQ(ProblemOf(In(".")), MediaProblem::NotAFile);
  WriteAll(In("empty.mp4"), "");
  EXPECT_EQ(ProblemOf(In("empty.mp4")), MediaProblem::Empty);
  WriteAll(In("text.mp4"), std::string(3000, 'a') + "\nno media\n");
  EXPECT_EQ(ProblemOf(In("text.mp4")), MediaProblem::Unrecognised);
  WriteAll(In("byte.mp4"), "x");
  EXPECT_EQ(ProblemOf(In("byte.mp4")), MediaProblem::Unrecognised);
}

TEST_F(OpeningMedia, SoundHasNoPictures) {
  for (std::string const name : {"sound.m4a", "sound.wav", "sound.mp3"}) {
    Ffmpeg("-f lavfi -i sine=d=1 " + name);
    EXPECT_EQ(ProblemOf(In(name)), MediaProblem::NoPictures) << name;
  }
}

TEST_F(OpeningMedia, PlayListsOpenNoOtherFile) {
  MakeClip("clip.ts");
  WriteAll(In("list.m3u8"),
           "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n" + In("clip.ts") + "\n");
  EXPECT_EQ(ProblemOf(In("list.m3u8")), MediaProblem::Unsupported);
  WriteAll(In("list.ffconcat"), "ffconcat version 1.0\nfile clip.ts\n");
  EXPECT_EQ(ProblemOf(In("list.ffconcat")), MediaProblem::Unsupported);
}

TEST_F(OpeningMedia, StillFormatsOfLibavAreNoVideos) {
  Ffmpeg("-f lavfi -i testsrc2=s=64x48 -frames:v 1 still.jp2");
  EXPECT_EQ(ProblemOf(In("still.jp2")), MediaProblem::Unsupported);
}

TEST_F(OpeningMedia, NamesMayHaveColonsAndNoText) {
  MakeClip("clip.mp4");
  for (std::string const name : {"http:clip.mp4", "clip \xFF.mp4", "100%d.mp4"}) {
    fs::rename(In("clip.mp4"), In(name));
    EXPECT_EQ(OpenMedia(In(name))->Info().frameCount, 50);
    fs::rename(In(name), In("clip.mp4"));
  }
}

TEST_F(OpeningMedia, CutOffFilesGiveWhatIsThere) {
  MakeClip("whole.mkv");
  std::string const bytes = ReadAll(In("whole.mkv"));
  WriteAll(In("cut.mkv"), bytes.substr(0, bytes.size() / 2));
  auto const whole = OpenMedia(In("whole.mkv"));
  auto const cut = OpenMedia(In("cut.mkv"));
  ASSERT_GT(cut->Info().frameCount, 10);
  ASSERT_LT(cut->Info().frameCount, 40);
  for (std::int64_t frame = 0; frame < 10; ++frame) {
    EXPECT_TRUE(BytesOf(cut->Read(frame).picture) == BytesOf(whole->Read(frame).picture));
    EXPECT_EQ(cut->TimeStamp(frame), whole->TimeStamp(frame));
  }
  MakeClip("whole.mp4");
  std::string const headless = ReadAll(In("whole.mp4"));
  WriteAll(In("cut.mp4"), headless.substr(0, headless.size() / 2));
  EXPECT_EQ(ProblemOf(In("cut.mp4")), MediaProblem::Damaged);
}

TEST_F(OpeningMedia, ABrokenFrameIsToldAndTheOthersStayRight) {
  for (std::string const codec :
       {"ffv1 -level 3 -g 1 -slicecrc 1", "mjpeg", "mpeg4 -g 10", "libx264 -g 10 -bf 0"}) {
    Ffmpeg(kMoving + " -c:v " + codec + " clip.mkv");
    auto const whole = OpenMedia(In("clip.mkv"));
    std::vector<std::string> const frames = ReadLinear(*whole);
    Break("clip.mkv", 20);
    for (bool const isBackwards : {false, true}) {
      auto const broken = OpenMedia(In("clip.mkv"));
      int damaged = 0;
      for (std::int64_t i = 0; i < 50; ++i) {
        std::int64_t const frame = isBackwards ? 49 - i : i;
        MediaFrame const read = broken->Read(frame);
        if (read.isDamaged) {
          ++damaged;
        } else {
          EXPECT_TRUE(BytesOf(read.picture) == frames[static_cast<std::size_t>(frame)])
              << codec << frame;
        }
      }
      EXPECT_TRUE(broken->Read(20).isDamaged) << codec;
      EXPECT_LE(damaged, 13) << codec;
    }
  }
}

TEST_F(OpeningMedia, AChangedOrRemovedFileIsNoticed) {
  MakeClip("clip.mp4");
  auto const source = OpenMedia(In("clip.mp4"));
  source->Read(0);
  fs::last_write_time(In("clip.mp4"), fs::last_write_time(In("clip.mp4")) + std::chrono::hours(1));
  ErrorOfRead(*source, 40, MediaProblem::Changed);
  fs::remove(In("clip.mp4"));
  std::string const error = ErrorOfRead(*source, 40, MediaProblem::NotFound);
  EXPECT_NE(error.find("clip.mp4"), std::string::npos);
  EXPECT_TRUE(source->Read(0).picture.IsOk());
}

TEST_F(OpeningMedia, ProgressEndsAtOneAndCanStop) {
  MakeClip("clip.mp4");
  MediaOptions options;
  std::vector<double> told;
  options.progress = [&](double done) {
    told.push_back(done);
    return true;
  };
  OpenMedia(In("clip.mp4"), options);
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back(), 1.0);
  options.progress = [](double) { return false; };
  EXPECT_EQ(ProblemOf(In("clip.mp4"), options), MediaProblem::Cancelled);
}

TEST_F(OpeningMedia, IndexesAreKeptAndNeverTrustedBlindly) {
  MakeClip("clip.mp4");
  int reports = 0;
  MediaOptions options;
  options.cacheFolder = In("kept/indexes");
  options.progress = [&](double) { return ++reports > 0; };
  auto const first = OpenMedia(In("clip.mp4"), options);
  EXPECT_GT(reports, 0);
  ASSERT_EQ(std::distance(fs::directory_iterator(In("kept/indexes")), {}), 1);
  std::string const kept = fs::directory_iterator(In("kept/indexes"))->path().string();
  std::string const bytes = ReadAll(kept);

  reports = 0;
  auto const second = OpenMedia(In("clip.mp4"), options);
  EXPECT_EQ(reports, 0);
  EXPECT_EQ(second->Info().frameCount, 50);
  EXPECT_EQ(second->TimeStamp(49), first->TimeStamp(49));
  EXPECT_EQ(second->Duration(49), first->Duration(49));
  EXPECT_TRUE(BytesOf(second->Read(30).picture) == BytesOf(first->Read(30).picture));

  std::string flipped = bytes;
  flipped[bytes.size() / 2] = static_cast<char>(~flipped[bytes.size() / 2]);
  for (std::string const &spoilt :
       {std::string(), bytes.substr(0, bytes.size() - 1), flipped, std::string(5000, 'F')}) {
    WriteAll(kept, spoilt);
    reports = 0;
    EXPECT_EQ(OpenMedia(In("clip.mp4"), options)->Info().frameCount, 50);
    EXPECT_GT(reports, 0);
    EXPECT_TRUE(ReadAll(kept) == bytes);
  }

  Ffmpeg(kMoving + " -t 1 -c:v libx264 -g 12 clip.mp4");
  EXPECT_EQ(OpenMedia(In("clip.mp4"), options)->Info().frameCount, 25);
}

TEST_F(OpeningMedia, AFolderThatCannotBeKeptInCostsNothing) {
  MakeClip("clip.mp4");
  WriteAll(In("file"), "in the way");
  MediaOptions options;
  options.cacheFolder = In("file");
  EXPECT_EQ(OpenMedia(In("clip.mp4"), options)->Info().frameCount, 50);
  EXPECT_EQ(ReadAll(In("file")), "in the way");
}

TEST_F(OpeningMedia, TimesBetweenFramesBelongToTheOneBefore) {
  MakeClip("clip.mp4");
  auto const source = OpenMedia(In("clip.mp4"));
  EXPECT_EQ(source->FrameAt(-5.0), 0);
  EXPECT_EQ(source->FrameAt(0.039), 0);
  EXPECT_EQ(source->FrameAt(0.04), 1);
  EXPECT_EQ(source->FrameAt(1.0), 25);
  EXPECT_EQ(source->FrameAt(100.0), 49);
  EXPECT_DOUBLE_EQ(source->Seconds(10), 0.4);
}

TEST(MediaErrorTexts, NameTheFileWhateverItIsCalled) {
  EXPECT_EQ(MediaErrorText(MediaError(MediaProblem::NotFound, "/a/b.mp4")),
            "There is no file \"/a/b.mp4\".");
  EXPECT_EQ(MediaErrorText(MediaError(MediaProblem::WriteFailed, "x", "disk full")),
            "\"x\" cannot be written. (disk full)");
  EXPECT_EQ(MediaErrorText(MediaError(MediaProblem::Empty, "a\xFF%s.mp4")),
            "The file \"a\\377%s.mp4\" is empty.");
}

}  // namespace framenote::test
