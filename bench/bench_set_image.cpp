// SPDX-License-Identifier: MIT
#include <cstddef>
#include <memory>
#include <random>

#include <wx/image.h>

#include "framenote/annotation_tool.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "objects/ann_hide.h"
#include "objects/ann_magnify.h"
#include "side_by_side.h"
#include "talcore/enlarged_picture.h"
#include "talcore/hidden_picture.h"

/// What giving the tool a new picture costs, with regions and lenses to bring up to date.
namespace {

constexpr int kRegions = 10;
constexpr int kLenses = 5;
constexpr int kSide = 200;
constexpr std::size_t kRowBytes = std::size_t{kSide} * 3;

wxImage Noise(int width, int height) {
  wxImage image(width, height, false);
  std::mt19937 random(1);
  unsigned char *const bytes = image.GetData();
  for (int i = 0; i < width * height * 3; ++i) bytes[i] = static_cast<unsigned char>(random());
  return image;
}

wxRect PlaceOf(int i, int width, int height) {
  return {(i * 307) % (width - kSide), (i * 211) % (height - kSide), kSide, kSide};
}

/// A tool whose picture is set, with regions and lenses that the mouse has dragged out.
std::shared_ptr<AnnotationTool> ToolWith(wxImage const &picture, int regions, int lenses) {
  auto tool =
      std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
  tool->UpdateMediaInfo({0, 1, false});
  tool->SetImage(picture, true);
  auto const drag = [&](Types mode, wxRect const &rect) {
    tool->SetActiveTool(mode);
    auto const send = [&](wxEventType type, wxPoint const &at) {
      tool->ProcessMouseEvent(at, wxMouseEvent(type), 1.0, {0.0, 0.0});
    };
    send(wxEVT_LEFT_DOWN, rect.GetTopLeft());
    send(wxEVT_MOTION, rect.GetBottomRight());
    send(wxEVT_LEFT_UP, rect.GetBottomRight());
    tool->Deactivate();
  };
  for (int i = 0; i < regions; ++i) {
    drag(Types::Hide, PlaceOf(i, picture.GetWidth(), picture.GetHeight()));
  }
  for (int i = 0; i < lenses; ++i) {
    drag(Types::Magnify, PlaceOf(regions + i, picture.GetWidth(), picture.GetHeight()));
  }
  return tool;
}

framenote::PixelView ViewOf(wxImage const &image) {
  return {image.GetData(), image.GetWidth(), image.GetHeight(), image.GetWidth() * 3};
}

wxBitmap HidePart(wxImage const &picture, wxRect const &part) {
  framenote::PixelArea const area{part.x, part.y, part.width, part.height};
  framenote::HiddenPicture const hidden(ViewOf(picture), framenote::HideEffect::Pixelation, 40,
                                        area);
  wxImage image(part.GetSize(), false);
  hidden.Render(area, image.GetData(), kRowBytes);
  return wxBitmap(image, -1, 1.0);
}

wxBitmap EnlargePart(wxImage const &picture, wxRect const &part) {
  framenote::EnlargedPicture const enlarged(ViewOf(picture), picture.GetWidth() * 2,
                                            picture.GetHeight() * 2,
                                            framenote::ZoomMethod::Nearest);
  wxImage image(part.GetSize(), false);
  enlarged.Render({part.x * 2, part.y * 2, kSide, kSide}, image.GetData(), kRowBytes);
  return wxBitmap(image, -1, 1.0);
}

/// The parts alone, one after the other: each cut, processed and made a bitmap of, without a mask.
void ProcessParts(wxImage const &picture) {
  for (int i = 0; i < kRegions + kLenses; ++i) {
    wxRect const part = PlaceOf(i, picture.GetWidth(), picture.GetHeight());
    wxBitmap const bitmap = i < kRegions ? HidePart(picture, part) : EnlargePart(picture, part);
    benchmark::DoNotOptimize(bitmap.IsOk());
  }
}

void SetImageWithParts(benchmark::State &state) {
  wxImage const picture = Noise(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  auto const tool = ToolWith(picture, kRegions, kLenses);
  framenote::bench::SideBySide(
      state, [&] { tool->SetImage(picture, false); }, [&] { ProcessParts(picture); });
}

void RefreshTenRegionsToOne(benchmark::State &state) {
  wxImage const picture = Noise(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  auto const ten = ToolWith(picture, kRegions, 0);
  auto const one = ToolWith(picture, 1, 0);
  framenote::bench::SideBySide(
      state, [&] { ten->SetImage(picture, true); }, [&] { one->SetImage(picture, true); });
}

#define FRAMENOTE_AT_BOTH_SIZES(name) \
  BENCHMARK(name)                     \
      ->ArgNames({"width", "height"}) \
      ->Args({1920, 1080})            \
      ->Args({3840, 2160})            \
      ->UseManualTime()               \
      ->Iterations(51)

FRAMENOTE_AT_BOTH_SIZES(SetImageWithParts);
FRAMENOTE_AT_BOTH_SIZES(RefreshTenRegionsToOne);

}  // namespace
