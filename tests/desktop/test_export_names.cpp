// SPDX-License-Identifier: MIT
#include "desktop/export_names.h"

#include <gtest/gtest.h>

#include "project/path_text.h"

namespace {

ExportFormat const &Format(BurnOutput output, std::size_t index) {
  return FormatsOf(output).at(index);
}

TEST(ExportNames, SuggestANameMadeFromTheSources) {
  ExportFormat const &png = Format(BurnOutput::Picture, 0);
  EXPECT_EQ(SuggestedName("/a/street.mp4", BurnOutput::Video, Format(BurnOutput::Video, 0), 7),
            "street-annotated.mkv");
  EXPECT_EQ(SuggestedName("/a/street.mp4", BurnOutput::Pictures, png, 7),
            "street-annotated-%06d.png");
  EXPECT_EQ(SuggestedName("/a/street.mp4", BurnOutput::Picture, png, 7),
            "street-annotated-000007.png");
  EXPECT_EQ(SuggestedName("/a/face.jpg", BurnOutput::Picture, png, -1), "face-annotated.png");
}

TEST(ExportNames, ASourceWithAPlaceForANumberDoesNotMakeASequence) {
  wxString const name =
      SuggestedName("/a/frame%03d.jpg", BurnOutput::Picture, Format(BurnOutput::Picture, 0), -1);
  EXPECT_EQ(name, "frame_03d-annotated.png");
  EXPECT_EQ(BurnOutputOf(name.utf8_string()), BurnOutput::Picture);
}

TEST(ExportNames, TheNameFollowsTheFormat) {
  ExportFormat const &jpeg = Format(BurnOutput::Picture, 1);
  ExportFormat const &mp4 = Format(BurnOutput::Video, 1);
  EXPECT_EQ(NameForFormat("/a/b.png", BurnOutput::Picture, jpeg), "/a/b.jpg");
  EXPECT_EQ(NameForFormat("/a/b.JPEG", BurnOutput::Picture, jpeg), "/a/b.JPEG");
  EXPECT_EQ(NameForFormat("/a/b", BurnOutput::Picture, jpeg), "/a/b.jpg");
  EXPECT_EQ(NameForFormat("/a/v1.2", BurnOutput::Video, mp4), "/a/v1.2.mp4");
  EXPECT_EQ(NameForFormat("/a/b.mov", BurnOutput::Video, mp4), "/a/b.mov");
  EXPECT_EQ(NameForFormat("/a/b.mp4", BurnOutput::Pictures, jpeg), "/a/b-%06d.jpg");
  EXPECT_EQ(NameForFormat("/a/b%d.png", BurnOutput::Pictures, jpeg), "/a/b%d.jpg");
  EXPECT_EQ(NameForFormat("/a/b-%06d.png", BurnOutput::Video, mp4), "/a/b.mp4");
}

TEST(ExportNames, TheFormatFollowsTheName) {
  EXPECT_EQ(FormatOfName("b.TIFF", BurnOutput::Picture, 0), 3);
  EXPECT_EQ(FormatOfName("b.mkv", BurnOutput::Video, 1), 0);
  EXPECT_EQ(FormatOfName("b.mkv", BurnOutput::Video, 2), 2);
  EXPECT_EQ(FormatOfName("b.mkv", BurnOutput::Picture, 0), -1);
  EXPECT_EQ(FormatOfName("b", BurnOutput::Picture, 0), -1);
}

TEST(ExportNames, TheReportStandsBesideTheOutput) {
  EXPECT_EQ(ReportNameOf("/a/street-annotated.mkv"), "/a/street-annotated-report.json");
  EXPECT_EQ(ReportNameOf("/a/street-annotated-%06d.png"), "/a/street-annotated-report.json");
}

TEST(ExportNames, EveryFormatIsKnownToTheBurnByItsName) {
  for (BurnOutput const output : {BurnOutput::Picture, BurnOutput::Pictures, BurnOutput::Video}) {
    for (ExportFormat const &format : FormatsOf(output)) {
      wxString const name = SuggestedName("/a/b.mp4", output, format, 1);
      EXPECT_EQ(BurnOutputOf(name.utf8_string()), output) << name;
    }
  }
}

TEST(ExportNames, PathsThatAreNoTextComeBackAsTheyWere) {
  for (std::string const path : {"/a/b.png", "/a/\xc3\xa9t\xc3\xa9.png", "/a/\xe9t\xe9.png"}) {
    EXPECT_EQ(BytesOfPath(ShownPath(path)), path);
  }
}

}  // namespace
