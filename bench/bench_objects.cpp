// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstring>
#include <memory>

#include "framenote/annotation_tool.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "side_by_side.h"

/// What an object costs on a long video, beside one pass over the bytes of its store.
namespace {

constexpr std::int64_t kFrames = 1000000;

std::uint64_t PassOver(AnnShapeCoordinates const &store) {
  auto const *bytes = reinterpret_cast<unsigned char const *>(store.CoordsVec().data());
  std::size_t const size = store.CoordsVec().size() * sizeof(std::shared_ptr<AnnShapePoints>);
  std::uint64_t sum = 0;
  for (std::size_t at = 0; at < size; at += sizeof sum) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes + at, sizeof word);
    sum += word;
  }
  return sum;
}

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
      [&] { benchmark::DoNotOptimize(PassOver(shape.GetCoordinates())); });
}

BENCHMARK(ContainingRectOfAStillObject)->UseManualTime()->Iterations(101);

}  // namespace
