// SPDX-License-Identifier: MIT
// Runs framenote-burn as a process, as its users do.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>

#include <wx/image.h>

#include <gtest/gtest.h>

#include "burn/burn_fixture.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

void ExpectRectangleOnGround(wxImage const &image) {
  ASSERT_TRUE(image.IsOk());
  ASSERT_EQ(image.GetSize(), wxSize(kWidth, kHeight));
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      int const expected = IsInRectangle(x, y) ? kRed : GroundAt(x, y);
      ASSERT_EQ(ColourAt(image, x, y), expected) << "at " << x << ", " << y;
    }
  }
}

class BurnPainter : public Burn, public testing::WithParamInterface<char const *> {};

TEST_P(BurnPainter, AFilledRectangleTurnsExactlyItsPixelsRed) {
  ExpectSuccess(RunProgram(Usual({"--painter", GetParam()})));
  ExpectRectangleOnGround(Result());
}

TEST_P(BurnPainter, TheBytesAreTheSameWithADesktopOfAnyScaleAndWithNone) {
  Arguments const painter = {"--painter", GetParam()};
  ASSERT_NE(std::getenv("DISPLAY"), nullptr) << "the tests run on a display";
  ExpectSuccess(RunProgram(Usual(painter, "doc.json", "in.png", "with.png"), [] {
    setenv("GDK_SCALE", "2", 1);
    setenv("GDK_DPI_SCALE", "1.5", 1);
  }));
  ExpectSuccess(RunProgram(Usual(painter, "doc.json", "in.png", "without.png"), [] {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    unsetenv("HOME");
  }));
  ExpectSuccess(RunProgram(Usual(painter, "doc.json", "in.png", "broken.png"),
                           [] { setenv("DISPLAY", ":no-such-display", 1); }));
  std::string const with = ReadAll(In("with.png"));
  EXPECT_EQ(with.substr(1, 3), "PNG");
  EXPECT_EQ(with == ReadAll(In("without.png")), true);
  EXPECT_EQ(with == ReadAll(In("broken.png")), true);
}

INSTANTIATE_TEST_SUITE_P(Both, BurnPainter, testing::Values("gc", "dc"),
                         [](auto const &row) { return std::string(row.param); });

TEST_F(Burn, ThePainterIsTheAntiAliasedOneUnlessToldOtherwise) {
  // A slanted quadrilateral, so that the two painters differ along its sides.
  WriteAll(In("doc.json"),
           Document(RedShape("0", "0",
                             R"({"TopLeft":[10,20],"TopRight":[110,37],"BottomRight":[104,77],)"
                             R"("BottomLeft":[4,60],"Range":[0,0]})")));
  ExpectSuccess(RunProgram(Usual()));
  ExpectSuccess(RunProgram(Usual({"--painter=gc"}, "doc.json", "in.png", "gc.png")));
  ExpectSuccess(RunProgram(Usual({"--painter=dc"}, "doc.json", "in.png", "dc.png")));
  EXPECT_EQ(ReadAll(In("out.png")) == ReadAll(In("gc.png")), true);
  EXPECT_EQ(ReadAll(In("out.png")) == ReadAll(In("dc.png")), false);
}

TEST_F(Burn, AnObjectIsBurntInWhereItIsPresentAndNowhereElse) {
  std::string const run = Span("3,5", "9.5", "19.5", "109.5", "69.5");
  WriteAll(In("doc.json"), Document(RedShape("3", "5", run)));
  struct {
    char const *frame;
    int colour;
  } const rows[] = {{"2", GroundAt(50, 50)}, {"3", kRed}, {"5", kRed}, {"6", GroundAt(50, 50)}};
  for (auto const &row : rows) {
    ExpectSuccess(RunProgram(Usual({"--frame", row.frame})));
    EXPECT_EQ(ColourAt(Result(), 50, 50), row.colour) << "frame " << row.frame;
  }
}

TEST_F(Burn, AnObjectThatMovesIsBurntInWhereItIsInThatFrame) {
  WriteAll(In("doc.json"), Document(RedShape("0", "9",
                                             Span("0,4", "9.5", "9.5", "19.5", "19.5") + "," +
                                                 Span("5,9", "99.5", "49.5", "109.5", "59.5"))));
  ExpectSuccess(RunProgram(Usual({"--frame", "4"})));
  EXPECT_EQ(ColourAt(Result(), 15, 15), kRed);
  EXPECT_EQ(ColourAt(Result(), 105, 55), GroundAt(105, 55));
  ExpectSuccess(RunProgram(Usual({"--frame=5"})));
  EXPECT_EQ(ColourAt(Result(), 15, 15), GroundAt(15, 15));
  EXPECT_EQ(ColourAt(Result(), 105, 55), kRed);
}

TEST_F(Burn, AFarFrameCostsNoMemory) {
  Outcome const near = RunProgram(Usual({"--frame", "0"}));
  Outcome const far = RunProgram(Usual({"--frame", "9223372036854775807"}));
  ExpectSuccess(far);
  EXPECT_EQ(ColourAt(Result(), 50, 50), GroundAt(50, 50));
  EXPECT_LT(far.maxKilobytes, near.maxKilobytes + 16 * 1024);
}

TEST_F(Burn, ExtensionEnlargesTheResultAndPlacesThePicture) {
  WriteAll(In("doc.json"),
           Document(RedShape("0", "0", Span("0,0", "-20", "-10", "9", "9")), R"("#00FF00FF")"));
  ExpectSuccess(RunProgram(Usual({"--extend"})));
  wxImage const image = Result();
  ASSERT_EQ(image.GetSize(), wxSize(220, 110));
  EXPECT_EQ(ColourAt(image, 5, 5), kRed);
  EXPECT_EQ(ColourAt(image, 25, 15), kRed);
  EXPECT_EQ(ColourAt(image, 5, 60), kGreen);
  EXPECT_EQ(ColourAt(image, 150, 5), kGreen);
  EXPECT_EQ(ColourAt(image, 20, 109), GroundAt(0, 99));
  EXPECT_EQ(ColourAt(image, 219, 10), GroundAt(199, 0));
  EXPECT_EQ(ColourAt(image, 219, 109), GroundAt(199, 99));
}

TEST_F(Burn, WithoutExtensionTheResultHasThePicturesSize) {
  WriteAll(In("doc.json"),
           Document(RedShape("0", "0", Span("0,0", "-20", "-10", "9", "9")), R"("#00FF00FF")"));
  ExpectSuccess(RunProgram(Usual()));
  wxImage const image = Result();
  ASSERT_EQ(image.GetSize(), wxSize(kWidth, kHeight));
  EXPECT_EQ(ColourAt(image, 5, 5), kRed);
  EXPECT_EQ(ColourAt(image, 5, 60), GroundAt(5, 60));
}

TEST_F(Burn, ADocumentWithoutAnExtensionColourDoesNotExtend) {
  WriteAll(In("doc.json"), Document(RedShape("0", "0", Span("0,0", "-20", "-10", "9", "9"))));
  ExpectSuccess(RunProgram(Usual({"--extend"})));
  EXPECT_EQ(Result().GetSize(), wxSize(kWidth, kHeight));
}

TEST_F(Burn, BadObjectsDoNotCostTheGoodOnes) {
  WriteAll(In("doc.json"), Document(R"({"Id":99},5,null,"x",[1],{"Id":2},)"
                                    R"({"Id":2,"Coordinates":[{"TopLeft":"x","Range":[5,1]}]},)" +
                                    RedShape("0", "0", kOnWholePixels) + R"(,{"Id":"2"})"));
  Outcome const outcome = RunProgram(Usual());
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, LeftOutText(In("doc.json"), 8));
  ExpectRectangleOnGround(Result());
}

TEST_F(Burn, ADocumentWithoutObjectsLeavesThePictureAsItIs) {
  WriteAll(In("doc.json"), R"({"Annotate":{}})");
  ExpectSuccess(RunProgram(Usual()));
  EXPECT_EQ(ColourAt(Result(), 50, 50), GroundAt(50, 50));
}

TEST_F(Burn, ADocumentThatCannotBeReadGivesOne) {
  WriteAll(In("cut.json"), kDocument.substr(0, kDocument.size() - 20));
  WriteAll(In("empty.json"), "");
  WriteAll(In("other.json"), R"({"Other":{}})");
  WriteAll(In("array.json"), R"({"Annotate":[1]})");
  WriteAll(In("list.json"), "[]");
  WriteAll(In("latin.json"), "{\"Annotate\":{\"x\":\"\xE9\"}}");
  ASSERT_EQ(mkfifo(In("fifo.json").c_str(), 0600), 0);
  for (char const *name : {"cut.json", "empty.json", "other.json", "array.json", "list.json",
                           "latin.json", "fifo.json", "missing.json", "in.png", "."}) {
    ExpectFailure(RunProgram(Usual({}, name)), 1, In(name));
    EXPECT_FALSE(fs::exists(In("out.png"))) << name;
  }
}

TEST_F(Burn, APictureThatCannotBeReadGivesOne) {
  WriteAll(In("cut.png"), ReadAll(In("in.png")).substr(0, 60));
  WriteAll(In("empty.png"), "");
  ASSERT_EQ(mkfifo(In("fifo.png").c_str(), 0600), 0);
  for (char const *name : {"cut.png", "empty.png", "fifo.png", "missing.png", "doc.json", "."}) {
    ExpectFailure(RunProgram(Usual({}, "doc.json", name)), 1, In(name));
    EXPECT_FALSE(fs::exists(In("out.png"))) << name;
  }
  Arguments device = Usual();
  device[3] = "/dev/zero";
  ExpectFailure(RunProgram(device), 1, "/dev/zero");
}

TEST_F(Burn, AFileTooLargeToReadGivesOneAtOnce) {
  WriteAll(In("large"), "");
  fs::resize_file(In("large"), std::uintmax_t{3} << 30);  // sparse: it takes no room
  ExpectFailure(RunProgram(Usual({}, "large")), 1, "too large");
  ExpectFailure(RunProgram(Usual({}, "doc.json", "large")), 1, In("large"));
}

TEST_F(Burn, ObjectsThatAreLeftOutAreToldAndTheOthersBurnt) {
  std::string const lost =
      R"({"Id":6,"Properties":{"FileName":"/nowhere/logo.png"},"Rectangle":{}},{"Id":99})";
  WriteAll(In("some.json"), Document(lost + "," + RedShape("0", "0", kOnWholePixels)));
  Outcome const outcome = RunProgram(Usual({"--report", In("report.json")}, "some.json"));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, LeftOutText(In("some.json"), 2));
  EXPECT_EQ(JsonFromUtf8(ReadAll(In("report.json"))).ItemAt("objectsLeftOut").AsInt(), 2);
  wxImage const some = Result();
  ExpectSuccess(RunProgram(Usual()));
  wxImage const whole = Result();
  EXPECT_EQ(std::memcmp(some.GetData(), whole.GetData(), std::size_t{3} * kWidth * kHeight), 0);
}

TEST_F(Burn, ACutOffJpegIsBurntAsFarAsItGoesWithOneLineOfWarning) {
  ASSERT_TRUE(wxImage(In("in.png")).SaveFile(In("in.jpg"), wxBITMAP_TYPE_JPEG));
  ExpectSuccess(RunProgram(Usual({}, "doc.json", "in.jpg")));
  wxImage const whole = Result();
  std::string const bytes = ReadAll(In("in.jpg"));
  WriteAll(In("cut.jpg"), bytes.substr(0, bytes.size() / 2));
  Outcome const outcome = RunProgram(Usual({}, "doc.json", "cut.jpg"));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "framenote-burn: warning: '" + In("cut.jpg") + "': frame 0 is damaged\n");
  wxImage const cut = Result();
  ASSERT_EQ(cut.GetSize(), wxSize(kWidth, kHeight));
  EXPECT_EQ(ColourAt(cut, 150, 3), ColourAt(whole, 150, 3));
  EXPECT_EQ(ColourAt(cut, 50, 50), kRed);
  EXPECT_EQ(ColourAt(cut, 150, 97), 0x808080);
}

TEST_F(Burn, AJpegCutOffBeforeItsPictureGivesOne) {
  ASSERT_TRUE(wxImage(In("in.png")).SaveFile(In("in.jpg"), wxBITMAP_TYPE_JPEG));
  WriteAll(In("cut.jpg"), ReadAll(In("in.jpg")).substr(0, 200));
  ExpectFailure(RunProgram(Usual({}, "doc.json", "cut.jpg")), 1, "its end is missing");
}

TEST_F(Burn, WrongArgumentsGiveTwo) {
  struct {
    Arguments more;
    char const *why;
  } const rows[] = {
      {{"--bogus"}, "--bogus"},
      {{"stray"}, "stray"},
      {{"--frame"}, "--frame"},
      {{"--frame", "-1"}, "-1"},
      {{"--frame", "1x"}, "1x"},
      {{"--frame", ""}, "--frame"},
      {{"--frame", " 1"}, "--frame"},
      {{"--frame", "1.5"}, "1.5"},
      {{"--frame", "9223372036854775808"}, "--frame"},
      {{"--painter", "xx"}, "xx"},
      {{"--painter"}, "--painter"},
      {{"--extend=yes"}, "--extend"},
      {{"-h"}, "-h"},
      {{"two\nlines"}, "two?lines"},
  };
  for (auto const &row : rows) ExpectFailure(RunProgram(Usual(row.more)), 2, row.why);
  EXPECT_EQ(Names(), (std::vector<std::string>{"doc.json", "in.png"}));
}

TEST_F(Burn, AMissingArgumentGivesTwoAndIsNamed) {
  ExpectFailure(RunProgram({}), 2, "--document");
  Arguments const usual = Usual();
  for (std::size_t i = 0; i < usual.size(); i += 2) {
    Arguments arguments = usual;
    auto const from = arguments.begin() + static_cast<std::ptrdiff_t>(i);
    arguments.erase(from, from + 2);
    ExpectFailure(RunProgram(arguments), 2, usual[i]);
  }
}

TEST_F(Burn, AnOutputOfNoKnownKindGivesTwo) {
  for (char const *name : {"out.xyz", "out", "out.", "png", "out.png.txt"}) {
    ExpectFailure(RunProgram(Usual({}, "doc.json", "in.png", name)), 2, "output");
  }
  EXPECT_EQ(Names(), (std::vector<std::string>{"doc.json", "in.png"}));
}

TEST_F(Burn, TheOutputsNameSaysItsFormat) {
  struct {
    char const *name;
    char const *start;
  } const rows[] = {{"o.png", "\x89PNG"},   {"o.PNG", "\x89PNG"}, {"o.jpg", "\xFF\xD8"},
                    {"o.jpeg", "\xFF\xD8"}, {"o.bmp", "BM"},      {"o.tif", "II*"},
                    {"o.tiff", "II*"}};
  for (auto const &row : rows) {
    ExpectSuccess(RunProgram(Usual({}, "doc.json", "in.png", row.name)));
    EXPECT_EQ(ReadAll(In(row.name)).rfind(row.start, 0), 0u) << row.name;
    EXPECT_EQ(Result(row.name).GetSize(), wxSize(kWidth, kHeight)) << row.name;
  }
}

TEST_F(Burn, AnOutputThatCannotBeMadeGivesThree) {
  fs::create_directory(In("folder.png"));
  ExpectFailure(RunProgram(Usual({}, "doc.json", "in.png", "folder.png")), 3, "not a file");
  ExpectFailure(RunProgram(Usual({}, "doc.json", "in.png", "none/out.png")), 3, "No such file");
  ExpectFailure(RunProgram(Usual({}, "doc.json", "in.png", "doc.json/out.png")), 3,
                "Not a directory");
  EXPECT_EQ(Names(), (std::vector<std::string>{"doc.json", "folder.png", "in.png"}));
}

TEST_F(Burn, AWriteThatFailsHalfWayLeavesWhatWasThere) {
  WriteAll(In("out.bmp"), "what was there");
  auto const limitFiles = [] {
    rlimit const limit = {10000, 10000};  // the result has 60054 bytes
    setrlimit(RLIMIT_FSIZE, &limit);
  };
  ExpectFailure(RunProgram(Usual({}, "doc.json", "in.png", "out.bmp"), limitFiles), 3,
                "File too large");
  EXPECT_EQ(ReadAll(In("out.bmp")), "what was there");
  EXPECT_EQ(Names(), (std::vector<std::string>{"doc.json", "in.png", "out.bmp"}));
}

TEST_F(Burn, AFailureLeavesAnExistingOutputAlone) {
  WriteAll(In("out.png"), "what was there");
  WriteAll(In("doc.json"), "{");
  ExpectFailure(RunProgram(Usual()), 1, In("doc.json"));
  ExpectFailure(RunProgram(Usual({"--frame", "x"})), 2, "--frame");
  EXPECT_EQ(ReadAll(In("out.png")), "what was there");
}

TEST_F(Burn, SuccessReplacesAnExistingOutputAndLeavesNothingElse) {
  WriteAll(In("out.png"), "what was there");
  ExpectSuccess(RunProgram(Usual()));
  ExpectRectangleOnGround(Result());
  EXPECT_EQ(Names(), (std::vector<std::string>{"doc.json", "in.png", "out.png"}));
}

TEST_F(Burn, TheOutputGetsTheRightsOfANewFile) {
  ExpectSuccess(RunProgram(Usual(), [] { umask(027); }));
  EXPECT_EQ(fs::status(In("out.png")).permissions(), static_cast<fs::perms>(0640));
}

TEST_F(Burn, PathsAreBytesInAnyLocale) {
  auto const plainLocale = [] { setenv("LC_ALL", "C", 1); };
  for (char const *name : {"b\xC3\xBCrn.png", "\xFF\xFE.png", "two\nlines.png", "a b'\".png"}) {
    fs::rename(In("in.png"), In(std::string("in-") + name));
    ExpectSuccess(RunProgram(Usual({}, "doc.json", std::string("in-") + name, name), plainLocale));
    EXPECT_EQ(ReadAll(In(name)).substr(1, 3), "PNG");
    fs::rename(In(std::string("in-") + name), In("in.png"));
  }
  ExpectFailure(RunProgram(Usual({}, "no\nsuch")), 1, "no?such");
}

TEST_F(Burn, HelpAndVersionNeedNoOtherArgument) {
  Outcome const help = RunProgram({"--help"});
  EXPECT_EQ(help.code, 0);
  EXPECT_EQ(help.err, "");
  EXPECT_EQ(help.out.rfind("Usage: framenote-burn --document DOC", 0), 0u);
  for (char const *option : {"--document", "--input", "--output", "--frame", "--painter",
                             "--extend", "--help", "--version"}) {
    EXPECT_NE(help.out.find(option), std::string::npos) << option;
  }
  Outcome const version = RunProgram({"--version"});
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.err, "");
  EXPECT_EQ(version.out, "framenote-burn 0.1.0\n");
}

}  // namespace

}  // namespace framenote::test
