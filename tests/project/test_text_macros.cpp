// SPDX-License-Identifier: MIT
#include "project/text_macros.h"

#include <map>
#include <set>
#include <string>

#include <sys/stat.h>
#include <sys/time.h>

#include <gtest/gtest.h>

#include "project/fake_media.h"
#include "project/temporary_folder.h"

namespace framenote::test {
namespace {

class TextMacros : public InTemporaryFolder {
protected:
  std::map<wxString, wxString> Values(std::string const &path, std::int64_t frame) {
    FakeMedia const media(EvenTimes(100, 40), {1, 1000}, path);
    auto const pairs = MacroValues(media, frame);
    return {pairs.begin(), pairs.end()};
  }
};

TEST_F(TextMacros, StandForTheFrameAndTheFile) {
  WriteAll(In("scene 1.mp4"), "film");
  timeval const time = {1714566896, 0};  // 2024-05-01 12:34:56 UTC
  timeval const times[] = {time, time};
  ASSERT_EQ(utimes(In("scene 1.mp4").c_str(), times), 0);
  std::map<wxString, wxString> const expected = {{"%frame%", "26"},
                                                 {"%time%", "00:00:01.040"},
                                                 {"%date%", "2024-05-01T12:34:56Z"},
                                                 {"%file%", "scene 1.mp4"},
                                                 {"%size%", "1920x1080"}};
  EXPECT_EQ(Values(In("scene 1.mp4"), 26), expected);
}

TEST_F(TextMacros, HaveNoDateWhereTheFileIsGone) {
  auto const values = Values(In("none.mp4"), 0);
  EXPECT_EQ(values.at("%date%"), "");
  EXPECT_EQ(values.at("%file%"), "none.mp4");
}

TEST_F(TextMacros, AreAllOfferedAndNoOthers) {
  std::set<wxString> offered, valued;
  for (auto const &[name, macro] : OfferedMacros().macros) {
    EXPECT_FALSE(name.empty());
    offered.insert(macro);
  }
  for (auto const &[macro, value] : Values(In("none.mp4"), 0)) valued.insert(macro);
  EXPECT_EQ(offered, valued);
  EXPECT_EQ(offered.size(), 5u);
  EXPECT_FALSE(OfferedMacros().macroLabel.empty());
}

}  // namespace
}  // namespace framenote::test
