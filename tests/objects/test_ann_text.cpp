// SPDX-License-Identifier: MIT
#include <wx/frame.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include "modes/ann_text_tool_mode.h"
#include "objects/ann_text.h"
#include "objects/object_support.h"
#include "objects/text_lines.h"
#include "support/processor_time.h"

namespace framenote::test {

namespace {

/// Work that grew with the square of these texts' lengths would take longer. Leaves room for
/// sanitizers.
constexpr double kLeastForSquares = 60.0;  ///< seconds of the processor

class AnnTextTest : public ObjectTest {
protected:
  AnnTextTest() {
    Look().SetFont(wxFont(wxFontInfo(12).FaceName("DejaVu Sans")));
    Look().SetFontColor(*wxRED);
  }

  AnnTextProperties &Look() { return *Modes().text->m_properties; }

  AnnText Box(wxString const &text,
              wxRect const &rect = wxRect(wxPoint(20, 20), wxPoint(120, 80))) {
    AnnText box(Modes().shape, Modes().text, rect, 0);
    if (!text.empty()) box.SetTextAndParse(text, {});
    return box;
  }

  AnnText Restored(wxJSONValue const &json) { return {Modes().shape, Modes().text, json}; }

  /// A box restored from a text of lines that nobody has checked.
  AnnText WithLines(wxString const &lines) {
    wxJSONValue json = Box("").ToJSON();
    json.Set(AnnText::textLinesKey, lines);
    return Restored(json);
  }

  static wxImage Paint(AnnText const &box,
                       IAnnPainter::AnnPainterType type = IAnnPainter::GraphicsContext) {
    return PaintedBy(type, wxSize(160, 100), 1.0,
                     [&](auto &painter) { box.Draw(painter, wxPoint2DDouble(0.0, 0.0)); });
  }
};

TEST_F(AnnTextTest, NewBoxIsARectangleWithoutABorderInTheBackgroundColour) {
  ShapeLook().SetShape(AnnShapeProperties::Ellipse);
  ShapeLook().SetThickness(9);
  Look().SetBackgroundColor(*wxGREEN);
  AnnText const box = Box("");
  EXPECT_EQ(box.GetProperties().GetShape(), AnnShapeProperties::Rectangle);
  EXPECT_EQ(box.GetProperties().GetThickness(), 0);
  EXPECT_EQ(box.GetProperties().GetBorderColor(), wxColour(0, 0, 0, 0));
  EXPECT_EQ(box.GetProperties().GetFillColor(), *wxGREEN);
  EXPECT_TRUE(pixels::AreaHas(Paint(box), wxRect(21, 21, 99, 59), pixels::kGreen));
}

TEST_F(AnnTextTest, DocumentHoldsTheRectangleAndTheLinesAsTextWithinText) {
  AnnText const box = WithLines(R"(["a \"b\"","c"])");
  wxJSONValue const &json = box.ToJSON();
  EXPECT_EQ(json.ItemAt("Id").AsInt(), 5);
  EXPECT_EQ(json.ItemAt("TextLines").AsString(), R"(["a \"b\"","c"])");
  EXPECT_EQ(json.ItemAt("Properties").ItemAt("FontColor").AsString(), "#FF0000FF");
  wxJSONValue const rectangle = json.ItemAt("Rectangle");
  EXPECT_EQ(rectangle.ItemAt("StartFrame").AsInt(), 0);
  EXPECT_EQ(rectangle.ItemAt("EndFrame").AsInt(), 0);
  EXPECT_EQ(rectangle.ItemAt("Properties").ItemAt("Thickness").AsInt(), 0);
  EXPECT_EQ(rectangle.ItemAt("Coordinates").ItemAt(0).ItemAt("TopLeft").ItemAt(0).AsDouble(), 20.0);
  EXPECT_FALSE(json.HasMember("Coordinates"));
}

TEST_F(AnnTextTest, ExpandedTextIsNeverSaved) {
  AnnText box = Box("%F%");
  box.ParseTextLines({{"%F%", "17"}});
  EXPECT_EQ(box.GetParsedText(), "17");
  EXPECT_EQ(box.ToJSON().ItemAt("TextLines").AsString(), R"(["%F%"])");
}

TEST_F(AnnTextTest, DocumentGivesTheSameBoxBack) {
  AnnText const box = WithLines(R"(["first","second"])");
  AnnText const again = Restored(box.ToJSON());
  EXPECT_EQ(JsonToUtf8(again.ToJSON()), JsonToUtf8(box.ToJSON()));
  EXPECT_EQ(again.GetText(), "first\nsecond");
  EXPECT_EQ(again.TextProperties().GetFontColor(), *wxRED);
}

TEST_F(AnnTextTest, WithoutPropertiesTheModesLookIsTaken) {
  wxJSONValue json(wxJSONTYPE_OBJECT);
  json.Set("Rectangle", Box("").ToJSON().ItemAt("Rectangle"));
  json.Set("TextLines", wxString(R"(["a"])"));
  Look().SetFontColor(*wxBLUE);
  AnnText const box = Restored(json);
  EXPECT_EQ(box.TextProperties().GetFontColor(), *wxBLUE);
  EXPECT_TRUE(box.ToJSON().HasMember("Properties"));
}

TEST_F(AnnTextTest, NeedsARectangleAndLines) {
  wxJSONValue const whole = Box("a").ToJSON();
  EXPECT_TRUE(AnnText::IsJSONValid(whole));
  EXPECT_FALSE(AnnText::IsJSONValid(JsonFromUtf8("{")));
  EXPECT_FALSE(AnnText::IsJSONValid(wxJSONValue(wxJSONTYPE_OBJECT)));
  wxJSONValue withoutLines(wxJSONTYPE_OBJECT);
  withoutLines.Set("Rectangle", whole.ItemAt("Rectangle"));
  EXPECT_FALSE(AnnText::IsJSONValid(withoutLines));
  wxJSONValue withoutRuns = whole;
  withoutRuns.Set("Rectangle", wxJSONValue(wxJSONTYPE_OBJECT));
  EXPECT_FALSE(AnnText::IsJSONValid(withoutRuns));
}

TEST_F(AnnTextTest, RestoredBoxPaintsItsBackgroundOnlyUntilItIsParsed) {
  Look().SetBackgroundColor(*wxGREEN);
  AnnText box = WithLines(R"(["Plate"])");
  EXPECT_EQ(
      pixels::CountWhere(Paint(box), [](auto const &c) { return c.red > 100 && c.green < 100; }),
      0);
  EXPECT_TRUE(pixels::AreaHas(Paint(box), wxRect(21, 21, 99, 59), pixels::kGreen));
  box.ParseTextLines({});
  EXPECT_GT(
      pixels::CountWhere(Paint(box), [](auto const &c) { return c.red > 100 && c.green < 100; }),
      50);
}

TEST_F(AnnTextTest, StringOfThreeLinesIsOneElementAndAControlGivesThree) {
  AnnText box = Box("a\nb\nc");
  EXPECT_EQ(box.GetTextLines().size(), 1U);
  EXPECT_EQ(box.ToJSON().ItemAt("TextLines").AsString(), R"(["a\nb\nc"])");
  auto *const frame = new wxFrame(nullptr, wxID_ANY, "");  // destroyed below
  auto *const control = new wxTextCtrl(frame, wxID_ANY, "a\nb\nc", wxDefaultPosition, wxDefaultSize,
                                       wxTE_MULTILINE);  // owned by the frame
  box.SetTextAndParse(*control, {});
  EXPECT_EQ(box.GetTextLines(), (std::vector<wxString>{"a", "b", "c"}));
  EXPECT_EQ(box.ToJSON().ItemAt("TextLines").AsString(), R"(["a","b","c"])");
  EXPECT_EQ(box.GetText(), "a\nb\nc");
  box.AppendTextAndParse("d", {{"c", "C"}});
  EXPECT_EQ(box.GetTextLines(), (std::vector<wxString>{"a", "b", "cd"}));
  EXPECT_EQ(box.GetText(), "a\nb\ncd");
  EXPECT_EQ(box.GetParsedText(), "a\nb\nCd");
  frame->Destroy();
}

TEST_F(AnnTextTest, KeysAreLiteralAndReplacedEverywhere) {
  EXPECT_EQ(AnnText::ParseString("a.b.c a*", {{".", "-"}}), "a-b-c a*");
  EXPECT_EQ(AnnText::ParseString("aFbF", {{"F", "17"}}), "a17b17");
  EXPECT_EQ(AnnText::ParseString("aFbF", {{"G", "17"}}), "aFbF");
}

TEST_F(AnnTextTest, EmptyKeyIsIgnoredAndAValueWithItsOwnKeyExpandsOnce) {
  EXPECT_EQ(AnnText::ParseString("abc", {{"", "x"}}), "abc");
  EXPECT_EQ(AnnText::ParseString("aFb", {{"F", "FF"}}), "aFFb");
}

TEST_F(AnnTextTest, ValuesDoNotMakeATextGrowWithoutEnd) {
  wxString const keys('a', 60'000);
  wxString const value('b', 1'000'000);
  ProcessorTime const taken;
  EXPECT_EQ(AnnText::ParseString(keys, {{"a", value}}).length(), AnnText::m_maxLength);
  wxString const tail = AnnText::ParseString(keys + "c", {{"a", "dd"}});
  EXPECT_EQ(tail.length(), AnnText::m_maxLength);
  // What is already longer is kept.
  EXPECT_EQ(AnnText::ParseString(wxString('a', 100'000), {{"x", "y"}}).length(), 100'000U);
  EXPECT_LT(taken.Seconds(), kLeastForSquares);
}

TEST_F(AnnTextTest, KeyInAValueIsReplacedAccordingToTheMapsOrder) {
  AnnText::Macros const macros{{"A", "B"}, {"B", "C"}};
  wxString const expected = macros.begin()->first == "A" ? "C" : "B";
  EXPECT_EQ(AnnText::ParseString("A", macros), expected);
}

TEST_F(AnnTextTest, DisappearsOnlyWithoutText) {
  EXPECT_TRUE(Box("").WouldDisappear());
  EXPECT_FALSE(Box("  ").WouldDisappear());
  EXPECT_FALSE(Box("a", wxRect(20, 20, 1, 1)).WouldDisappear());
}

TEST_F(AnnTextTest, DominantColourIsTheBackgroundUnlessItIsTransparent) {
  AnnText box = Box("a");
  EXPECT_EQ(box.GetDominantColor(), *wxRED);
  box.SetBackgroundColor(*wxGREEN);
  EXPECT_EQ(box.GetDominantColor(), *wxGREEN);
  EXPECT_EQ(box.GetProperties().GetFillColor(), *wxGREEN);
  EXPECT_EQ(box.ToJSON().ItemAt("Properties").ItemAt("BackgroundColor").AsString(), "#00FF00FF");
}

TEST_F(AnnTextTest, IsHitAnywhereInItsBoxThoughNothingIsPaintedThere) {
  AnnText const box = Box("a");
  EXPECT_TRUE(box.Contains({25, 25}));
  EXPECT_TRUE(box.Contains({20, 20}));
  EXPECT_TRUE(box.Contains({120, 80}));
  EXPECT_FALSE(box.Contains({121, 80}));
  EXPECT_FALSE(box.Contains({19, 50}));
}

TEST_F(AnnTextTest, BoxOfOnePixelIsHitThere) {
  AnnText const box = Box("a", wxRect(20, 20, 1, 1));
  ASSERT_TRUE(box.IsPoint(RecordOf(box)));
  EXPECT_TRUE(box.Contains({20, 20}));
  EXPECT_FALSE(box.Contains({21, 20}));
  for (auto const type : {IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext}) {
    Paint(box, type);
  }
}

TEST_F(AnnTextTest, TextMovesWithItsBox) {
  AnnText box = Box("Plate");
  wxRect const before = pixels::BoundsOfPaint(Paint(box));
  ASSERT_FALSE(before.IsEmpty());
  box.MoveFor({7, -5});
  wxRect moved = before;
  moved.Offset(7, -5);
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(box)), moved);
  box.MoveAllFramesFor({-7, 5});
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(box)), before);
  box.MoveFor({0, 0});
  EXPECT_EQ(box.GetRecentlyUpdatedCoordsFrame(), 0);
}

TEST_F(AnnTextTest, SelectionGivesTheLookToTheTextModeAndLookComesBack) {
  AnnText box = Box("a");
  Look().SetFontColor(*wxBLUE);
  box.OnSelection(false);
  EXPECT_TRUE(box.IsSelected());
  EXPECT_EQ(Look().GetFontColor(), *wxRED);
  EXPECT_EQ(m_driver.Tool().GetActiveTool()->GetModeId(), Types::Text);
  Look().SetFontColor(*wxBLUE);
  Look().SetBackgroundColor(*wxGREEN);
  box.UpdateProperties();
  EXPECT_EQ(box.TextProperties().GetFontColor(), *wxBLUE);
  EXPECT_EQ(box.ToJSON().ItemAt("Properties").ItemAt("FontColor").AsString(), "#0000FFFF");
  EXPECT_EQ(box.ToJSON().ItemAt("Rectangle").ItemAt("Properties").ItemAt("FillColor").AsString(),
            "#00FF00FF");
}

TEST_F(AnnTextTest, RangeReachesTheDocumentWhenTheObjectIsModified) {
  AnnText box = Box("a");
  box.SetEndFrame(3);
  box.OnObjectModified();
  EXPECT_EQ(box.ToJSON().ItemAt("Rectangle").ItemAt("EndFrame").AsInt(), 3);
}

TEST_F(AnnTextTest, CopyIsPastedInFront) {
  AnnText const box = WithLines(R"(["first","second"])");
  box.Paste();
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  auto const *const copy = m_driver.ObjectAs<AnnText>();
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(JsonToUtf8(copy->ToJSON()), JsonToUtf8(box.ToJSON()));
  EXPECT_EQ(copy->GetText(), "first\nsecond");
}

TEST_F(AnnTextTest, LinesThatCannotBeReadGiveAnEmptyText) {
  for (char const *lines : {"", "[", "17", "{}", "null", "[]"}) {
    AnnText box = WithLines(lines);
    EXPECT_EQ(box.GetText(), "") << lines;
    EXPECT_TRUE(box.WouldDisappear()) << lines;
    box.ParseTextLines({});
    box.AppendTextAndParse("a", {});
    EXPECT_EQ(box.GetText(), "a") << lines;
  }
}

TEST_F(AnnTextTest, HugeTextIsKeptWholeAndPaintedInPart) {
  constexpr std::size_t kLetters = 10'000'000;
  wxString const letters('x', kLetters);
  ProcessorTime const taken;
  AnnText box = WithLines("[\"" + letters + "\"]");
  box.ParseTextLines({{"x", "yy"}});
  Paint(box);
  EXPECT_LT(taken.Seconds(), kLeastForSquares);
  EXPECT_EQ(box.GetText().length(), kLetters);
  EXPECT_EQ(box.GetParsedText().length(), AnnText::m_maxLength);
  EXPECT_FALSE(box.IsShownWhole());
  EXPECT_EQ(box.ToJSON().ItemAt("TextLines").AsString().length(), kLetters + 4);
}

TEST_F(AnnTextTest, LookThatMakesNoSensePaintsSomethingOrNothing) {
  for (char const *font : {"garbage", "", "0;normal;400;0;0;Sans", "-5;normal;400;0;0;Sans",
                           "1e9;normal;400;0;0;Sans", "12;normal;99999;7;-1;Sans"}) {
    wxJSONValue json = Box("Plate").ToJSON();
    wxJSONValue look = json.ItemAt("Properties");
    look.Set("Font", wxString(font));
    look.Set("HorizontalAlignment", 99);
    look.Set("VerticalAlignment", -99);
    json.Set("Properties", look);
    AnnText box = Restored(json);
    box.ParseTextLines({});
    for (auto const type : {IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext}) {
      EXPECT_TRUE(Paint(box, type).IsOk()) << font;
    }
  }
}

TEST_F(AnnTextTest, FontThatCannotBeReadDoesNotHideTheText) {
  wxJSONValue json = Box("Plate").ToJSON();
  wxJSONValue look = json.ItemAt("Properties");
  look.Set("Font", wxString("garbage"));
  json.Set("Properties", look);
  AnnText box = Restored(json);
  box.ParseTextLines({});
  EXPECT_FALSE(pixels::BoundsOfPaint(Paint(box)).IsEmpty());
}

TEST_F(AnnTextTest, DocumentHasItsMembersInOrder) {
  AnnText const box = Box("a", wxRect(wxPoint(1, 2), wxPoint(30, 40)));
  wxJSONValue look = box.ToJSON().ItemAt("Properties");
  EXPECT_EQ(JsonToUtf8(box.ToJSON()),
            R"({"TextLines":"[\"a\"]","Id":5,"Properties":)" + JsonToUtf8(look) +
                R"(,"Rectangle":{"StartFrame":0,"EndFrame":0,"Coordinates":[{"TopLeft":[1.0,2.0],)"
                R"("TopRight":[30.0,2.0],"BottomRight":[30.0,40.0],"BottomLeft":[1.0,40.0],)"
                R"("Range":[0,0]}],"Id":2,"Properties":{"Shape":0,"BorderColor":"#000000FF",)"
                R"("BorderColorTransparent":true,"FillColor":"#FFFFFFFF",)"
                R"("FillColorTransparent":true,"Thickness":0}}})");
}

TEST_F(AnnTextTest, RestoredBoxKeepsMembersThatItDoesNotKnow) {
  wxJSONValue json = Box("a").ToJSON();
  json.Set("Note", wxString("kept"));
  AnnText box = Restored(json);
  box.OnObjectModified();
  EXPECT_EQ(box.ToJSON().ItemAt("Note").AsString(), "kept");
}

TEST_F(AnnTextTest, RestoredBoxHasNoPaintedTextEvenWithoutMacros) {
  AnnText box = WithLines(R"(["first","second"])");
  EXPECT_EQ(box.GetText(), "first\nsecond");
  EXPECT_EQ(box.GetParsedText(), "");
  box.ParseTextLines({});
  EXPECT_EQ(box.GetParsedText(), "first\nsecond");
}

TEST_F(AnnTextTest, MacrosAreReplacedWithinEachLineOnly) {
  AnnText box = WithLines(R"(["aF","Gb"])");
  box.ParseTextLines({{"F", "1"}, {"G", "2"}, {"F\nG", "joined"}});
  EXPECT_EQ(box.GetParsedText(), "a1\n2b");
  box.ParseTextLines({});
  EXPECT_EQ(box.GetParsedText(), "aF\nGb");
}

TEST_F(AnnTextTest, ElementsThatAreNoTextsDoNotStopTheOthers) {
  AnnText box = WithLines(R"([1,2.5,"a",null,["b"],{"c":1},true])");
  EXPECT_EQ(box.GetTextLines().size(), 7U);
  EXPECT_EQ(box.GetTextLines().at(2), "a");
  box.ParseTextLines({});
  EXPECT_TRUE(Paint(box).IsOk());
  AnnText numbers = WithLines("[1,2,3]");
  numbers.ParseTextLines({});
  EXPECT_EQ(numbers.GetTextLines().size(), 3U);
}

TEST_F(AnnTextTest, StartOfTheRangeReachesTheDocumentWhenTheObjectIsModified) {
  AnnText box(Modes().shape, Modes().text, wxRect(20, 20, 50, 50), 0);
  box.SetEndFrame(5);
  box.SetStartFrame(2);
  box.OnObjectModified();
  wxJSONValue const rectangle = box.ToJSON().ItemAt("Rectangle");
  EXPECT_EQ(rectangle.ItemAt("StartFrame").AsInt(), 2);
  EXPECT_EQ(rectangle.ItemAt("EndFrame").AsInt(), 5);
  EXPECT_FALSE(box.ToJSON().HasMember("StartFrame"));
}

TEST_F(AnnTextTest, CopyHasATextOfItsOwn) {
  AnnText const box = Box("a%F%");
  box.Paste();
  box.Paste();
  ASSERT_EQ(m_driver.ObjectCount(), 2U);
  auto *const front = m_driver.ObjectAs<AnnText>(0);
  auto const *const behind = m_driver.ObjectAs<AnnText>(1);
  ASSERT_NE(front, nullptr);
  ASSERT_NE(behind, nullptr);
  front->SetTextAndParse("b", {});
  front->MoveFor({5, 5});
  front->SetBackgroundColor(*wxGREEN);
  front->OnObjectModified();
  EXPECT_EQ(behind->GetText(), "a%F%");
  EXPECT_EQ(behind->GetParsedText(), "a%F%");
  EXPECT_TRUE(At(RecordOf(*behind).m_topLeft, 20, 20));
  EXPECT_TRUE(At(RecordOf(*front).m_topLeft, 25, 25));
  EXPECT_EQ(JsonToUtf8(behind->ToJSON()), JsonToUtf8(box.ToJSON()));
}

TEST_F(AnnTextTest, NegativeOffsetIsTakenByGraphicsContextsAlone) {
  AnnText const box = Box("Plate");
  auto const bounds = [&](IAnnPainter::AnnPainterType type, double offset) {
    return pixels::BoundsOfPaint(PaintedBy(type, wxSize(160, 100), 1.0, [&](auto &painter) {
      box.Draw(painter, wxPoint2DDouble(offset, offset));
    }));
  };
  wxRect moved = bounds(IAnnPainter::GraphicsContext, 0.0);
  moved.Offset(-15, -15);
  EXPECT_EQ(bounds(IAnnPainter::GraphicsContext, -15.0), moved);
  wxRect const still = bounds(IAnnPainter::DeviceContext, 0.0);
  EXPECT_FALSE(still.IsEmpty());
  EXPECT_EQ(bounds(IAnnPainter::DeviceContext, -15.0), still);
}

class AnnTextInAVideo : public VideoObjectTest {};

TEST_F(AnnTextInAVideo, TextIsWhereItsBoxIsInEachFrame) {
  AnnText box(Modes().shape, Modes().text, wxRect(wxPoint(20, 20), wxPoint(120, 80)), 0);
  box.SetEndFrame(5);
  box.SetTextAndParse("Plate", {});
  auto const ink = [&] {
    return pixels::BoundsOfPaint(
        PaintedBy(IAnnPainter::GraphicsContext, wxSize(200, 150), 1.0,
                  [&](auto &painter) { box.Draw(painter, wxPoint2DDouble(0.0, 0.0)); }));
  };
  wxRect const before = ink();
  ASSERT_FALSE(before.IsEmpty());
  GoTo(box, 3);
  EXPECT_EQ(ink(), before);
  box.MoveFor({40, 50});
  wxRect moved = before;
  moved.Offset(40, 50);
  EXPECT_EQ(ink(), moved);
  GoTo(box, 1);
  EXPECT_EQ(ink(), before);
  GoTo(box, 3);
  EXPECT_EQ(ink(), moved);
  GoTo(box, 1);
  box.MoveAllFramesFor({-10, 5});
  GoTo(box, 3);
  moved.Offset(-10, 5);
  EXPECT_EQ(ink(), moved);
}

TEST(TextLines, AreJoinedByLineFeeds) {
  EXPECT_EQ(JoinLines({}), "");
  EXPECT_EQ(JoinLines({"a"}), "a");
  EXPECT_EQ(JoinLines({"a", "", "b"}), "a\n\nb");
}

TEST(TextLines, BeginningHasAtMostSoManyLinesAndLetters) {
  EXPECT_EQ(FirstLines(wxString("a\nb\nc"), 2, 100), "a\nb");
  EXPECT_EQ(FirstLines(wxString("abcdef"), 2, 3), "abc");
  EXPECT_EQ(FirstLines(wxString("abc"), 1, 3), "abc");
  EXPECT_EQ(FirstLines(std::vector<wxString>{"a", "b", "c"}, 2, 100),
            (std::vector<wxString>{"a", "b"}));
  // Line feeds in an element count too.
  EXPECT_EQ(FirstLines(std::vector<wxString>{"a\nb\nc", "d"}, 2, 100),
            (std::vector<wxString>{"a\nb"}));
  EXPECT_EQ(FirstLines(std::vector<wxString>{"ab", "cdef", "g"}, 9, 4),
            (std::vector<wxString>{"ab", "cd"}));
}

TEST_F(AnnTextInAVideo, IsNotHitWhereItHasNoGeometry) {
  AnnText box(Modes().shape, Modes().text, wxRect(wxPoint(20, 20), wxPoint(60, 40)), 2);
  box.SetTextAndParse(wxString("abc"), {});
  GoTo(box, 2);
  EXPECT_TRUE(box.Contains({30, 30}));
  GoTo(box, 3);
  wxStockCursor cursor = wxCURSOR_ARROW;
  EXPECT_FALSE(box.Contains({30, 30}));
  EXPECT_FALSE(box.IsOverText({20, 20}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_ARROW);
}

}  // namespace

}  // namespace framenote::test
