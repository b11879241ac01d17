// SPDX-License-Identifier: MIT
// Texts and their macros, burnt in by the command.
#include <string>

#include <wx/image.h>

#include <gtest/gtest.h>

#include "burn/burn_fixture.h"
#include "painters/pixel_matchers.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

/// A box over the whole picture, with red letters on nothing.
std::string TextBox(std::string const &lines, std::string const &font = "DejaVu Sans") {
  return R"({"Id":5,"Properties":{"Font":"16;normal;400;0;0;)" + font +
         R"(","FontColor":"#FF0000FF","BackgroundColor":"#FFFFFFFF",)"
         R"("BackgroundColorTransparent":true,"HorizontalAlignment":0,"VerticalAlignment":0},)"
         R"("Rectangle":{"StartFrame":0,"EndFrame":9,"Properties":{"Shape":0,)"
         R"("BorderColor":"#000000FF","BorderColorTransparent":true,"FillColor":"#FFFFFFFF",)"
         R"("FillColorTransparent":true,"Thickness":0},"Coordinates":[)" +
         Span("0,9", "0", "0", "199", "99") + R"(]},"TextLines":)" +
         JsonToUtf8(wxJSONValue(wxString::FromUTF8(lines))) + "}";
}

class BurnTexts : public Burn {
protected:
  /// The picture with a document of one text box.
  wxImage Burnt(std::string const &lines, Arguments const &more = {},
                std::string const &font = "DejaVu Sans", int leftOut = 0) {
    WriteAll(In("text.json"), Document(TextBox(lines, font)));
    Outcome const outcome = RunProgram(Usual(more, "text.json"));
    EXPECT_EQ(outcome.err, LeftOutText(In("text.json"), leftOut));
    EXPECT_EQ(outcome.code, 0);
    return Result();
  }

  /// How much of the picture letters have changed.
  static wxRect Ink(wxImage const &image) {
    wxRect ink;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        if (ColourAt(image, x, y) != GroundAt(x, y)) ink.Union(wxRect(x, y, 1, 1));
      }
    }
    return ink;
  }
};

TEST_F(BurnTexts, MacrosAreReplaced) {
  wxImage const plain = Burnt(R"(["frame 17 of a.avi"])");
  EXPECT_FALSE(Ink(plain).IsEmpty());
  wxImage const replaced =
      Burnt(R"(["frame %F% of %N%"])", {"--macro", "%F%=17", "--macro=%N%=a.avi"});
  EXPECT_TRUE(pixels::Alike(replaced, plain, 0));
  wxImage const kept = Burnt(R"(["frame %F% of %N%"])", {"--macro", "%N%=a.avi"});
  EXPECT_FALSE(pixels::Alike(kept, plain, 0));
}

TEST_F(BurnTexts, ValueMayBeEmptyOrHoldItsOwnName) {
  EXPECT_TRUE(pixels::Alike(Burnt(R"(["a%F%b"])", {"--macro", "%F%="}), Burnt(R"(["ab"])"), 0));
  EXPECT_TRUE(pixels::Alike(Burnt(R"(["aFb"])", {"--macro", "F=FF=F"}), Burnt(R"(["aFF=Fb"])"), 0));
}

TEST_F(BurnTexts, TextWithoutMacrosIsBurntInToo) {
  wxRect const one = Ink(Burnt(R"(["Hgl"])"));
  wxRect const two = Ink(Burnt(R"(["Hgl","Hgl"])"));
  EXPECT_GT(one.width, 20);
  EXPECT_EQ(two.width, one.width);
  EXPECT_GT(two.height, one.height + 10);
}

TEST_F(BurnTexts, EveryScriptLeavesInk) {
  for (char const *text : {"\xC3\xA9\xC3\xA0\xC3\xBC", "\xD0\x96\xD0\xB8\xD0\xB7",
                           "\xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7", "\xE4\xB8\xAD\xE6\x96\x87",
                           "\xF0\x9F\x98\x80"}) {
    wxRect const ink = Ink(Burnt("[\"" + std::string(text) + "\"]"));
    EXPECT_GT(ink.width, 8) << text;
    EXPECT_GT(ink.height, 8) << text;
  }
}

TEST_F(BurnTexts, MissingFontFallsBack) {
  EXPECT_FALSE(Ink(Burnt(R"(["Hgl"])", {}, "No Such Face Anywhere")).IsEmpty());
}

TEST_F(BurnTexts, SameBytesWithoutADisplay) {
  Burnt(R"(["frame %F%"])", {"--macro", "%F%=17"});
  std::string const with = ReadAll(In("out.png"));
  Outcome const outcome =
      RunProgram(Usual({"--macro", "%F%=17"}, "text.json", "in.png", "without.png"), [] {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
      });
  ExpectSuccess(outcome);
  EXPECT_EQ(ReadAll(In("without.png")), with);
}

TEST_F(BurnTexts, MacroWithoutANameOrAValueIsAWrongArgument) {
  ExpectFailure(RunProgram(Usual({"--macro", "%F%"})), 2, "NAME=VALUE");
  ExpectFailure(RunProgram(Usual({"--macro", "=17"})), 2, "NAME=VALUE");
  ExpectFailure(RunProgram(Usual({"--macro", "\xff=17"})), 2, "UTF-8");
  ExpectFailure(RunProgram(Usual({"--macro"})), 2, "--macro");
}

TEST_F(BurnTexts, DamagedTextsDoNoHarm) {
  // Three empty lines and the word null are texts; one empty line is none.
  for (char const *lines : {"[1,2,3]", "[null]"}) Burnt(lines);
  for (char const *lines : {"", "[", "{\"a\":1}", "17", "[[\"a\"]]"}) {
    Burnt(lines, {}, "DejaVu Sans", 1);
  }
  std::string const huge = "[\"" + std::string(10'000'000, 'x') + "\"]";
  Burnt(huge);
  std::string lines = "[\"x\"";
  for (int i = 0; i < 100'000; ++i) lines += ",\"x\"";
  Burnt(lines + "]");
}

}  // namespace

}  // namespace framenote::test
