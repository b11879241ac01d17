// SPDX-License-Identifier: MIT
// The commands of docs/scaling.md, as they stand there.
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "burn/video_fixture.h"
#include "support/code_blocks.h"

namespace framenote::test {

namespace {

enum Block : std::size_t { Settings, Part, OneMachine, Slurm, Joining, BlockCount };

class BurnInParts : public BurnVideo {
protected:
  void SetUp() override {
    BurnVideo::SetUp();
    m_blocks = CodeBlocks(FRAMENOTE_SCALING_PAGE, "sh");
    ASSERT_EQ(m_blocks.size(), BlockCount);
    // 120 frames are three parts of 50, the last one shorter.
    std::string &settings = m_blocks[Settings];
    settings.replace(settings.find("part=250"), 8, "part=50");
    Ffmpeg(
        "-f lavfi -i testsrc2=s=64x48:r=25:d=4.8 -f lavfi -i sine=440:r=44100:d=4.8 "
        "-c:v libx264 -preset ultrafast -c:a aac film.mp4");
    WriteAll(In("case.json"),
             Document(RedShape("0", "9999", Span("0,9999", "3", "3", "30", "30"))));
  }

  /// Runs commands of the page in one shell.
  void RunScript(std::string const &commands) {
    WriteAll(In("script"), "set -e\nexport PATH=\"" +
                               fs::path(FRAMENOTE_BURN_PROGRAM).parent_path().string() +
                               ":$PATH\"\n" + commands);
    Output("bash script 2> errors || (cat errors >&2; false)");
  }

  /// What both ways begin with.
  std::string Start() const { return m_blocks[Settings] + m_blocks[Part]; }

  void ExpectSameAsOneRun(std::string const &joined) {
    ExpectSuccess(RunProgram(
        {"--document", In("case.json"), "--input", In("film.mp4"), "--output", In("one.mkv")}));
    Lines const one = OutputLines("ffmpeg -v error -i one.mkv -map 0:v -f framemd5 -");
    Lines const parts = OutputLines("ffmpeg -v error -i " + joined + " -map 0:v -f framemd5 -");
    ASSERT_GT(one.size(), 120u);
    EXPECT_EQ(parts, one);
    EXPECT_EQ(TimesOf(joined), TimesOf("one.mkv"));
    EXPECT_EQ(SoundOf(joined), SoundOf("film.mp4"));
    EXPECT_EQ(fs::exists(In("parts/000000100.mkv")), true);
  }

  std::vector<std::string> m_blocks;
};

TEST_F(BurnInParts, SideBySideOnOneMachine) {
  RunScript(Start() + m_blocks[OneMachine] + m_blocks[Joining]);
  ExpectSameAsOneRun("burnt.mkv");
}

TEST_F(BurnInParts, AsAnArrayOfTasks) {
  // A stand-in that runs the script for each number of the array, with nothing else inherited.
  WriteAll(
      In("sbatch"),
      "#!/bin/bash\n"
      "for argument; do case $argument in --array=0-*) last=${argument#--array=0-};; esac; done\n"
      "for i in $(seq 0 \"$last\"); do\n"
      "  env -i PATH=\"$PATH\" SLURM_ARRAY_TASK_ID=\"$i\" bash \"${!#}\" || exit 1\n"
      "done\n");
  fs::permissions(In("sbatch"), fs::perms::owner_all);
  RunScript("PATH=\"$PWD:$PATH\"\n" + Start() + m_blocks[Slurm] + m_blocks[Joining]);
  ExpectSameAsOneRun("burnt.mkv");
}

TEST_F(BurnInParts, PartsThatAreThereAreNotBurntAgain) {
  RunScript(Start() + m_blocks[OneMachine]);
  WriteAll(In("parts/000000050.mkv"), "there");
  fs::remove(In("parts/000000100.mkv"));
  RunScript(Start() + m_blocks[OneMachine]);
  EXPECT_EQ(ReadAll(In("parts/000000050.mkv")), "there");
  EXPECT_EQ(Open("parts/000000100.mkv")->Info().frameCount, 20);
}

TEST_F(BurnInParts, H264KeepsEveryTimeStampOfAnUnevenVideo) {
  Ffmpeg(
      "-f lavfi -i testsrc2=s=64x48:r=30000/1001:d=5 -f lavfi -i sine=440:r=44100:d=5 "
      "-vf \"setpts=PTS+mod(N\\,3)*0.01/TB\" -fps_mode vfr -c:v libx264 -preset ultrafast "
      "-c:a aac film.mp4");
  std::string names = m_blocks[Settings];
  names.replace(names.find("burnt.mkv"), 9, "burnt.mp4");
  RunScript(names + m_blocks[Part] + m_blocks[OneMachine] + m_blocks[Joining]);
  Lines const times = TimesOf("film.mp4");
  ASSERT_GT(times.size(), 120u);
  EXPECT_EQ(TimesOf("burnt.mp4"), times);
  EXPECT_EQ(SoundOf("burnt.mp4"), SoundOf("film.mp4"));
}

TEST_F(BurnInParts, APartThatFailsEndsTheRun) {
  RunScript(m_blocks[Settings]);
  WriteAll(In("case.json"), "{");
  WriteAll(In("script"), "export PATH=\"" +
                             fs::path(FRAMENOTE_BURN_PROGRAM).parent_path().string() +
                             ":$PATH\"\n" + Start() + m_blocks[OneMachine]);
  EXPECT_NE(Output("bash script 2> /dev/null; echo $?"), "0\n");
  EXPECT_FALSE(fs::exists(In("parts/000000000.mkv")));
}

}  // namespace

}  // namespace framenote::test
