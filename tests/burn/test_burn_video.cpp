// SPDX-License-Identifier: MIT
// Whole videos through the command: pixels, times, sound, names and reports.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <wx/image.h>

#include <gtest/gtest.h>

#include "burn/video_fixture.h"
#include "media/sha256.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

/// A text over the whole clip, red.
std::string Text(std::string const &text) {
  return R"({"Id":5,"Properties":{"Font":"16;normal;400;0;0;DejaVu Sans","FontColor":"#FF0000FF",)"
         R"("BackgroundColor":"#FFFFFFFF","BackgroundColorTransparent":true,)"
         R"("HorizontalAlignment":0,"VerticalAlignment":0},"Rectangle":{"StartFrame":0,)"
         R"("EndFrame":99,"Properties":{"Shape":0,"BorderColor":"#000000FF",)"
         R"("BorderColorTransparent":true,"FillColor":"#FFFFFFFF","FillColorTransparent":true,)"
         R"("Thickness":0},"Coordinates":[)" +
         Span("0,99", "0", "0", "159", "119") + R"(]},"TextLines":"[\")" + text + R"(\"]"})";
}

/// A slanted, anti-aliased quadrilateral, and a blurred region that moves in frame 10.
std::string const kSoftObjects =
    RedShape("0", "19",
             R"({"TopLeft":[10,20],"TopRight":[70,37],"BottomRight":[64,77],)"
             R"("BottomLeft":[4,60],"Range":[0,19]})") +
    R"(,{"Id":7,"Properties":{"Effect":0,"Strength":20,"Shape":0},"Rectangle":{"StartFrame":0,)"
    R"("EndFrame":19,"Coordinates":[)" +
    Span("0,9", "80", "20", "149", "79") + "," + Span("10,19", "40", "50", "109", "109") + "]}}";

TEST_F(BurnVideo, EveryPixelBesideTheAnnotationIsTheSources) {
  MakeClip("in.mp4");
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mkv")));
  auto const source = FramesOf("in.mp4");
  auto const burnt = FramesOf("out.mkv");
  ASSERT_EQ(source.size(), std::size_t{kFrames});
  ASSERT_EQ(burnt.size(), source.size());
  for (std::size_t i = 0; i < source.size(); ++i) {
    EXPECT_TRUE(IsBurntIn(burnt[i], source[i], HasShape(static_cast<std::int64_t>(i)))) << i;
  }
  EXPECT_EQ(Open("out.mkv")->Info().codec, "ffv1");
}

TEST_F(BurnVideo, EachFrameIsWhatBurningItAsAPictureGives) {
  WriteAll(In("doc.json"), Document(kSoftObjects));
  MakeClip("in.mp4");
  for (char const *painter : {"gc", "dc"}) {
    ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--painter", painter})));
    auto const source = FramesOf("in.mp4");
    auto const burnt = FramesOf("out.mkv");
    for (std::size_t const i : {0U, 9U, 10U, 19U}) {
      ASSERT_TRUE(source[i].SaveFile(In("still.png"), wxBITMAP_TYPE_PNG));
      ExpectSuccess(RunProgram(VideoArguments(
          "still.png", "still-out.png", {"--painter", painter, "--frame", std::to_string(i)})));
      EXPECT_TRUE(AreSame(burnt[i], Result("still-out.png"))) << painter << i;
      EXPECT_FALSE(AreSame(burnt[i], source[i]));
    }
  }
}

TEST_F(BurnVideo, SoundIsCopiedPacketByPacket) {
  MakeClipWithSound("in.mp4");
  Lines const sound = SoundOf("in.mp4");
  ASSERT_GT(sound.size(), 30u);
  for (char const *name : {"out.mkv", "out.mp4", "out.mov"}) {
    ExpectSuccess(RunProgram(VideoArguments("in.mp4", name)));
    EXPECT_EQ(SoundOf(name), sound) << name;
  }
}

TEST_F(BurnVideo, SoundIsLeftOutWhereThatIsAsked) {
  MakeClipWithSound("in.mp4");
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mp4", {"--audio", "drop"})));
  EXPECT_FALSE(Open("out.mp4")->Info().hasAudio);
  EXPECT_EQ(SoundOf("out.mp4"), Lines());
}

TEST_F(BurnVideo, SoundThatTheContainerCannotHoldGivesThreeAndSaysSo) {
  Ffmpeg("-f lavfi -i testsrc2=s=160x120:d=0.2 -f lavfi -i sine=d=0.2 -c:a pcm_s16le in.mkv");
  ExpectFailure(RunProgram(VideoArguments("in.mkv", "out.mp4")), 3, In("out.mp4") + "\"");
  EXPECT_EQ(Names(), (Lines{"doc.json", "in.mkv", "in.png"}));
  ExpectSuccess(RunProgram(VideoArguments("in.mkv", "out.mp4", {"--audio=drop"})));
}

TEST_F(BurnVideo, UnevenTimesAreKept) {
  std::string const uneven = " -vf \"setpts='(N*N+3*N)*0.02/TB'\" -fps_mode vfr ";
  MakeClip("in.mp4", uneven + "-video_track_timescale 1000");
  Lines const times = TimesOf("in.mp4");
  ASSERT_GT(times.size(), 10u);
  EXPECT_EQ(times[1], "0.080000");
  EXPECT_EQ(times[2], "0.200000");
  EXPECT_EQ(times[3], "0.360000");
  for (char const *name : {"out.mkv", "out.mp4"}) {
    ExpectSuccess(RunProgram(VideoArguments("in.mp4", name)));
    EXPECT_EQ(TimesOf(name), times) << name;
  }
}

TEST_F(BurnVideo, ARangeHasItsFramesOnly) {
  MakeClipWithSound("in.mp4");
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--frames", "4-7"})));
  auto const source = FramesOf("in.mp4");
  auto const burnt = FramesOf("out.mkv");
  ASSERT_EQ(burnt.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_TRUE(IsBurntIn(burnt[i], source[4 + i], i > 0)) << i;
  EXPECT_EQ(TimesOf("out.mkv"), (Lines{"0.000000", "0.040000", "0.080000", "0.120000"}));
  // 0.16 s of sound, in packets of 1024 / 44100 s: those that begin within.
  EXPECT_NEAR(static_cast<double>(SoundOf("out.mkv").size()), 7.0, 1.0);
}

TEST_F(BurnVideo, ARangeBeyondTheEndIsAWrongArgument) {
  MakeClip("in.mp4");
  ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--frames", "4-20"})), 2,
                "4 to 20 are not within the 20");
  ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--frame", "20"})), 2, "20");
  for (char const *frames : {"7-4", "4", "-4", "4-", "a-b", "4-7x", "-1-3"}) {
    ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--frames", frames})), 2,
                  "--frames wants");
  }
  ExpectFailure(
      RunProgram(VideoArguments("in.mp4", "out.mkv", {"--frames", "1-2", "--frame", "1"})), 2,
      "exclude");
  ExpectFailure(RunProgram(VideoArguments("in.png", "out.png", {"--frames", "0-1"})), 2, "--frame");
}

TEST_F(BurnVideo, OneFrameMakesAPicture) {
  MakeClip("in.mp4");
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.png", {"--frame", "7"})));
  EXPECT_TRUE(IsBurntIn(Result(), FramesOf("in.mp4")[7], true));
}

TEST_F(BurnVideo, SeveralFramesMakeNumberedPictures) {
  MakeClip("in.mp4");
  ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.png", {"--frames", "3-5"})), 2, "%06d");
  fs::create_directory(In("pictures"));
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "pictures/out-%06d.png", {"--frames", "3-5"})));
  auto const source = FramesOf("in.mp4");
  std::size_t count = 0;
  for (auto const &entry : fs::directory_iterator(In("pictures"))) count += entry.exists() ? 1 : 0;
  EXPECT_EQ(count, 3u);
  for (std::size_t const i : {3U, 4U, 5U}) {
    std::string const name = "pictures/out-00000" + std::to_string(i) + ".png";
    EXPECT_TRUE(IsBurntIn(Result(name), source[i], i == 5)) << name;
  }
}

TEST_F(BurnVideo, H264KeepsThePicturesSizeAndLook) {
  MakeClip("in.mp4");
  ExpectSuccess(
      RunProgram(VideoArguments("in.mp4", "out.mp4", {"--codec", "h264", "--quality", "10"})));
  auto const info = Open("out.mp4")->Info();
  EXPECT_EQ(info.codec, "h264");
  auto const burnt = FramesOf("out.mp4");
  ASSERT_EQ(burnt.size(), std::size_t{kFrames});
  EXPECT_EQ(burnt[7].GetSize(), wxSize(kClipWidth, kClipHeight));
  // Lossy, so near to red; the corners of the rectangle are where they were.
  for (wxPoint const &at : {wxPoint(14, 24), wxPoint(105, 65), wxPoint(60, 45)}) {
    EXPECT_GT(burnt[7].GetRed(at.x, at.y), 235);
    EXPECT_LT(burnt[7].GetGreen(at.x, at.y), 25);
    EXPECT_LT(burnt[7].GetBlue(at.x, at.y), 25);
  }
}

TEST_F(BurnVideo, ACodecThatTheContainerCannotHoldIsAWrongArgument) {
  MakeClip("in.mp4");
  for (char const *name : {"out.mp4", "out.mov", "OUT.MP4"}) {
    ExpectFailure(RunProgram(VideoArguments("in.mp4", name, {"--codec", "ffv1"})), 2,
                  "cannot hold FFV1; .mkv can");
  }
  ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--codec", "mpeg2"})), 2, "mpeg2");
  ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.mp4", {"--quality", "52"})), 2, "52");
  EXPECT_EQ(Names(), (Lines{"doc.json", "in.mp4", "in.png"}));
}

TEST_F(BurnVideo, ProgressIsOneJsonObjectALine) {
  MakeClip("in.mp4");
  Outcome const outcome = RunProgram(VideoArguments("in.mp4", "out.mkv", {"--progress", "json"}));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "");
  std::istringstream lines(outcome.out);
  std::int64_t done = 0;
  std::string line;
  for (; done < kFrames && std::getline(lines, line);) {
    wxJSONValue const json = JsonFromUtf8(line);
    EXPECT_EQ(json.ItemAt("done").AsInt64(), done + 1) << line;
    EXPECT_EQ(json.ItemAt("frames").AsInt64(), kFrames) << line;
    EXPECT_GE(json.ItemAt("framesPerSecond").AsDouble(), 0.0);
    EXPECT_GE(json.ItemAt("secondsLeft").AsDouble(), 0.0);
    ++done;
  }
  EXPECT_EQ(done, kFrames);
  ASSERT_TRUE(std::getline(lines, line));
  wxJSONValue const last = JsonFromUtf8(line);
  EXPECT_EQ(last.ItemAt("result").AsString(), "done");
  EXPECT_EQ(last.ItemAt("output").AsString(), wxString(In("out.mkv")));
  EXPECT_FALSE(std::getline(lines, line));
}

TEST_F(BurnVideo, QuietOrWithoutATerminalNothingIsPrinted) {
  MakeClip("in.mp4");
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--quiet"})));
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--progress", "line"})));
}

TEST_F(BurnVideo, AProjectNamesItsMedia) {
  MakeClip("in.mp4");
  std::string const objects =
      R"("Annotate":{"ExtensionColor":null,"Objects":[)" + kShapeInTheMiddle + "]}}";
  WriteAll(
      In("case.framenote"),
      R"({"format":"framenote project","formatVersion":1,"media":{"path":"in.mp4"},)" + objects);
  ExpectSuccess(RunProgram({"--document", In("case.framenote"), "--output", In("out.mkv")}));
  EXPECT_TRUE(IsBurntIn(FramesOf("out.mkv")[7], FramesOf("in.mp4")[7], true));
  fs::remove(In("out.mkv"));
  fs::remove(In("in.mp4"));
  ExpectFailure(RunProgram({"--document", In("case.framenote"), "--output", In("out.mkv")}), 1,
                In("in.mp4"));
  WriteAll(In("none.framenote"), R"({"format":"framenote project","formatVersion":1,)" + objects);
  ExpectFailure(RunProgram({"--document", In("none.framenote"), "--output", In("out.mkv")}), 1,
                "none.framenote");
  EXPECT_EQ(Names(), (Lines{"case.framenote", "doc.json", "in.png", "none.framenote"}));
}

TEST_F(BurnVideo, TheSameInputGivesTheSameBytes) {
  WriteAll(In("doc.json"), Document(kSoftObjects + "," + Text("frame %frame%")));
  MakeClipWithSound("in.mp4");
  for (char const *name : {"out.mkv", "out.mp4", "out-%02d.png"}) {
    Arguments const arguments = VideoArguments("in.mp4", name, {"--report", In("report.json")});
    ExpectSuccess(RunProgram(arguments));
    std::string const file = std::string(name) == "out-%02d.png" ? "out-13.png" : name;
    std::string const bytes = ReadAll(In(file));
    std::string const report = ReadAll(In("report.json"));
    EXPECT_GT(bytes.size(), 1000u);
    fs::last_write_time(In("in.mp4"), fs::file_time_type::clock::now());
    ExpectSuccess(RunProgram(arguments));
    EXPECT_TRUE(ReadAll(In(file)) == bytes) << name;
    EXPECT_EQ(ReadAll(In("report.json")), report) << name;
  }
}

TEST_F(BurnVideo, TheReportTellsSumsSettingsRegionsAndFrames) {
  WriteAll(In("doc.json"), Document(kSoftObjects));
  MakeClip("in.mp4");
  ExpectSuccess(RunProgram(
      VideoArguments("in.mp4", "out.mkv",
                     {"--frames", "8-11", "--macro", "%who%=lab", "--report", In("report.json")})));
  wxJSONValue const report = JsonFromUtf8(ReadAll(In("report.json")));
  auto const sumOf = [this](std::string const &name) {
    return wxString(OutputLines("sha256sum " + name).at(0).substr(0, 64));
  };
  EXPECT_EQ(report.ItemAt("format").AsString(), "framenote burn report");
  EXPECT_EQ(report.ItemAt("source").ItemAt("sha256").AsString(), sumOf("in.mp4"));
  EXPECT_EQ(report.ItemAt("document").ItemAt("sha256").AsString(), sumOf("doc.json"));
  wxJSONValue const output = report.ItemAt("outputs").ItemAt(0);
  EXPECT_EQ(output.ItemAt("path").AsString(), wxString(In("out.mkv")));
  EXPECT_EQ(output.ItemAt("sha256").AsString(), sumOf("out.mkv"));
  EXPECT_EQ(output.ItemAt("size").AsInt64(),
            static_cast<std::int64_t>(fs::file_size(In("out.mkv"))));
  EXPECT_EQ(report.ItemAt("settings").ItemAt("codec").AsString(), "ffv1");
  EXPECT_EQ(report.ItemAt("settings").ItemAt("macros").ItemAt("%who%").AsString(), "lab");
  EXPECT_EQ(JsonToUtf8(report.ItemAt("hideRegions")), R"([{"object":1,"frames":[[8,11]]}])");
  EXPECT_EQ(report.ItemAt("damagedFrames").Size(), 0);

  // The frames' sums, of what `ffmpeg` decodes from the output.
  Output("ffmpeg -v error -i out.mkv -f rawvideo -pix_fmt rgb24 raw");
  Lines const sums = OutputLines("split -b 57600 raw part- && sha256sum part-*");
  wxJSONValue const frames = report.ItemAt("frames");
  ASSERT_EQ(frames.Size(), 4);
  ASSERT_EQ(sums.size(), 4u);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(frames.ItemAt(i).ItemAt("frame").AsInt(), 8 + i);
    EXPECT_EQ(frames.ItemAt(i).ItemAt("timeStamp").AsInt(), (8 + i) * 512);
    EXPECT_EQ(frames.ItemAt(i).ItemAt("sha256").AsString(),
              wxString(sums[static_cast<std::size_t>(i)].substr(0, 64)));
  }
}

TEST_F(BurnVideo, MacrosOfAFrameDifferFromFrameToFrame) {
  MakeClip("in.mp4", "-vf drawbox=c=black:t=fill -c:v ffv1 -f matroska");
  for (char const *macro : {"%frame%", "%time%"}) {
    WriteAll(In("doc.json"), Document(Text(macro)));
    ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mkv")));
    auto const burnt = FramesOf("out.mkv");
    ASSERT_EQ(burnt.size(), std::size_t{kFrames});
    for (std::size_t i = 1; i < burnt.size(); ++i) {
      EXPECT_FALSE(AreSame(burnt[i], burnt[i - 1])) << macro << i;
    }
  }
  WriteAll(In("doc.json"), Document(Text("17")));
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "plain.mkv")));
  WriteAll(In("doc.json"), Document(Text("%frame%")));
  ExpectSuccess(RunProgram(VideoArguments("in.mp4", "out.mkv")));
  EXPECT_TRUE(AreSame(FramesOf("out.mkv")[17], FramesOf("plain.mkv")[17]));
}

TEST_F(BurnVideo, OddSizesAreKeptByFFV1AndFilledUpByH264) {
  MakeClip("in.mkv", "-vf scale=161:121,format=bgr0 -c:v ffv1");
  ASSERT_EQ(Open("in.mkv")->Info().width, 161);
  ExpectSuccess(RunProgram(VideoArguments("in.mkv", "out.mkv")));
  EXPECT_TRUE(IsBurntIn(FramesOf("out.mkv")[7], FramesOf("in.mkv")[7], true));
  ExpectSuccess(RunProgram(VideoArguments("in.mkv", "out.mp4")));
  EXPECT_EQ(FramesOf("out.mp4")[7].GetSize(), wxSize(162, 122));
}

TEST_F(BurnVideo, ATurnedSourceIsBurntAsItIsShown) {
  MakeClip("wide.mp4");
  Ffmpeg("-i wide.mp4 -c copy -metadata:s:v rotate=90 tall.mp4");
  ExpectSuccess(RunProgram(VideoArguments("tall.mp4", "out.mkv")));
  auto const burnt = Open("out.mkv");
  EXPECT_EQ(burnt->Info().width, kClipHeight);
  EXPECT_EQ(burnt->Info().height, kClipWidth);
  EXPECT_EQ(burnt->Info().rotation, 0);
  EXPECT_TRUE(IsBurntIn(FramesOf("out.mkv")[7], FramesOf("wide.mp4")[7].Rotate90(false), true));
}

TEST_F(BurnVideo, DamagedFramesAreNamedAndReported) {
  MakeClip("in.mkv", "-c:v ffv1 -level 3 -g 1 -slicecrc 1");
  Lines const packets = OutputLines(
      "ffprobe -v error -select_streams v -show_entries packet=size,pos -of csv=p=0 in.mkv");
  std::string bytes = ReadAll(In("in.mkv"));
  for (std::size_t const frame : {3U, 11U}) {
    std::string const &packet = packets.at(frame);
    std::size_t const size = std::stoul(packet);
    std::size_t const at = std::stoul(packet.substr(packet.find(',') + 1));
    for (std::size_t i = at + size / 3; i < at + 2 * size / 3; ++i) {
      bytes[i] = static_cast<char>(i * 37);
    }
  }
  WriteAll(In("in.mkv"), bytes);
  Outcome const outcome =
      RunProgram(VideoArguments("in.mkv", "out.mkv", {"--report", In("report.json")}));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err,
            "framenote-burn: warning: '" + In("in.mkv") + "': 2 frames are damaged: 3, 11\n");
  wxJSONValue const report = JsonFromUtf8(ReadAll(In("report.json")));
  EXPECT_EQ(JsonToUtf8(report.ItemAt("damagedFrames")), "[3,11]");
}

}  // namespace

}  // namespace framenote::test
