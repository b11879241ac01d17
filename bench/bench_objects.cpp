// SPDX-License-Identifier: MIT
#include <cstdint>
#include <memory>

#include "framenote/annotation_tool.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "side_by_side.h"

/// What an object costs on a long video, beside one pass over the bytes of its store.
namespace {

constexpr std::int64_t kFrames = 1000000;

void ContainingRectOfAStillObject(benchmark::State &state) {
  auto const tool =
      std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
  tool->UpdateMediaInfo({0, kFrames, false});
  AnnShape shape(tool->GetToolModes().shape, wxRect(10, 20, 100, 50), 0);
  shape.SetEndFrame(kFrames - 1);
  framenote::bench::SideBySide(
      state,
      [&] {
        shape.SetEndFrame(kFrames - 1);  // drops the cached rectangle
        benchmark::DoNotOptimize(shape.GetContainingRect());
      },
      [&] { framenote::bench::PassOver(shape.GetCoordinates().CoordsVec()); });
}

BENCHMARK(ContainingRectOfAStillObject)->UseManualTime()->Iterations(101);

}  // namespace
