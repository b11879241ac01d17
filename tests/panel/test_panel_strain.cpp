// SPDX-License-Identifier: MIT
// Rapid changes, text that is no number, and a panel that goes before or after its tool.
#include <memory>
#include <string>

#include <wx/odcombo.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_hide.h"
#include "objects/hidden_picture_cache.h"
#include "panel/ann_slider_double_ctrl.h"
#include "panel/panel_fixture.h"
#include "support/processor_time.h"
#include "support/test_pictures.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

class PanelStrain : public PanelTest {
protected:
  /// A region that blurs, selected, on a large picture.
  void SelectARegion() {
    m_tool->SetImage(PlacePicture(1920, 1080), true);
    m_tool->GetToolModes().hide->m_properties->SetEffect(AnnHideProperties::Blur);
    m_tool->GetToolModes().hide->m_properties->SetStrength(50);
    Toggle(Types::Hide);
    Drag({200, 100}, {1700, 900});
    ASSERT_NE(m_tool->GetSelectedObject(), nullptr);
    m_sink.Pump();
    m_sink.Clear();
  }
};

TEST_F(PanelStrain, SliderDraggedFromEndToEndChangesTheDocumentOncePerValue) {
  SelectARegion();
  wxSliderBase &control = *Find<wxSliderBase>(35);
  auto &slider = dynamic_cast<AnnSliderDoubleCtrl &>(*control.GetChildren()[0]);
  HiddenPictureCache const &cache = m_tool->GetToolModes().hide->WholePictures();
  int const runs = cache.RunCount();
  int events = 0;
  control.Bind(wxEVT_SLIDER, [&](wxCommandEvent &event) {
    ++events;
    event.Skip();
  });
  ProcessorTime const watch;
  for (int position = 1; position <= 50; ++position) {
    slider.SetValue(position);
    Send(slider, wxEVT_SLIDER);
    wxYield();
  }
  // The release repeats the last value.
  Send(slider, wxEVT_SLIDER);
  double const taken = watch.Seconds();
  EXPECT_EQ(events, 51);
  EXPECT_EQ(m_sink.Count(wxEVT_ANN_JSON_CHANGED), 50U);
  // The whole picture is never worked out for a change of strength.
  EXPECT_EQ(cache.RunCount(), runs);
  // A step takes 6 ms of an optimised build; half a second would be no dragging any more, even with
  // sanitizers.
  EXPECT_LT(taken, 25.0);
  RecordProperty("milliseconds_per_value", static_cast<int>(taken * 1000 / 50));
}

TEST_F(PanelStrain, SpinTakesNoTextThatIsNoNumber) {
  auto &spin = dynamic_cast<wxSpinCtrlDouble &>(*Find<wxWindow>(15)->GetChildren()[1]);
  AnnShapeProperties const &record = *m_tool->GetToolModes().shape->m_properties;
  for (char const *garbage : {"", "nan", "inf", "-inf", "1e999", "five", "--", "0x"}) {
    spin.SetValue(wxString(garbage));
    Send(spin, wxEVT_TEXT_ENTER);
    EXPECT_GE(record.GetThickness(), 1) << garbage;
    EXPECT_LE(record.GetThickness(), 50) << garbage;
    EXPECT_EQ(Find<wxSliderBase>(15)->GetValue(), record.GetThickness()) << garbage;
  }
}

TEST_F(PanelStrain, DocumentsValuesBeyondTheLabelsAreKeptAndShownAsNone) {
  m_tool->FromJSON(
      JsonFromText(
          R"({"Annotate":{"Objects":[{"Id":7,"Properties":{"Shape":-1,"Effect":77,"Strength":-9,)"
          R"("Thickness":1000000000},"Rectangle":{"StartFrame":0,"EndFrame":0,"Coordinates":[{)"
          R"("TopLeft":[10.0,10.0],"TopRight":[60.0,10.0],"BottomRight":[60.0,60.0],)"
          R"("BottomLeft":[10.0,60.0],"Range":[0,0]}]}}]}})"),
      10);
  ASSERT_FALSE(m_tool->IsEmpty());
  m_tool->AnnotationObjects().front()->OnSelection(false);
  for (int const id : {34, 36}) {
    EXPECT_EQ(Find<wxOwnerDrawnComboBox>(id)->GetSelection(), wxNOT_FOUND) << id;
  }
  EXPECT_EQ(Find<wxSliderBase>(35)->GetValue(), 1);
  EXPECT_EQ(Find<wxSliderBase>(39)->GetValue(), 50);
}

TEST_F(PanelStrain, PanelThatIsGoneAndUnlinkedTwiceLeavesAToolThatWorks) {
  Toggle(Types::Shape);
  m_tool->UnlinkGui();
  m_tool->UnlinkGui();
  m_panel->Destroy();
  wxYield();
  m_tool->SetActiveTool(Types::Shape);
  Drag({20, 20}, {80, 60});
  EXPECT_FALSE(m_tool->IsEmpty());
  // Another panel takes its place.
  AnnotationPanel *const second = m_tool->InitGui(m_frame, &m_sink, m_tool);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(wxWindow::FindWindowById(10, second), nullptr);
}

TEST_F(PanelStrain, PanelOutlivesTheHostsPointerToTheTool) {
  std::weak_ptr<AnnotationTool> const weak = m_tool;
  m_tool->UnlinkGui();
  m_tool.reset();
  Toggle(Types::Shape);
  EXPECT_TRUE(Button(Types::Shape).GetValue());
  m_panel->Destroy();
  wxYield();
  EXPECT_TRUE(weak.expired());
  m_tool = std::make_shared<AnnotationTool>(Config(true));
}

TEST(PanelWithoutASharedOwner, IsNotMadeAndLeavesTheToolUsable) {
  auto *const frame = new wxFrame(nullptr, wxID_ANY, "");  // destroyed below
  AnnotationTool tool({false, false, true, true, true, {}});
  EXPECT_THROW(tool.InitGui(frame, nullptr, nullptr), std::bad_weak_ptr);
  EXPECT_TRUE(frame->GetChildren().empty());
  tool.SetActiveTool(Types::Shape);
  EXPECT_EQ(tool.GetActiveTool()->GetModeId(), Types::Shape);
  tool.UnlinkGui();
  frame->Destroy();
}

}  // namespace

}  // namespace framenote::test
