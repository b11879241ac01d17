// SPDX-License-Identifier: MIT
#include <cstddef>
#include <random>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "side_by_side.h"
#include "talcore/enlarged_picture.h"

/// What enlarging a whole picture costs beside OpenCV's resize to the same size by the like method,
/// both on one thread.
namespace {

using framenote::EnlargedPicture;
using framenote::ZoomMethod;

int LikeMethod(ZoomMethod method) {
  switch (method) {
    case ZoomMethod::Nearest:
      return cv::INTER_NEAREST;
    case ZoomMethod::Bilinear:
      return cv::INTER_LINEAR;
    case ZoomMethod::Bicubic:
      return cv::INTER_CUBIC;
    case ZoomMethod::BoxAverage:
      return cv::INTER_AREA;
  }
  return cv::INTER_NEAREST;
}

void EnlargeWholePicture(benchmark::State &state) {
  auto const width = static_cast<int>(state.range(0));
  auto const height = static_cast<int>(state.range(1));
  auto const method = static_cast<ZoomMethod>(state.range(2));
  constexpr int kZoom = 2;
  cv::setNumThreads(1);
  cv::Mat source(height, width, CV_8UC3);
  cv::randu(source, 0, 256);
  cv::Mat ours(height * kZoom, width * kZoom, CV_8UC3);
  cv::Mat theirs(height * kZoom, width * kZoom, CV_8UC3);
  EnlargedPicture const enlarged({source.data, width, height, static_cast<int>(source.step)},
                                 ours.cols, ours.rows, method);
  framenote::bench::SideBySide(
      state,
      [&] {
        enlarged.Render({0, 0, ours.cols, ours.rows}, ours.data, ours.step);
      },
      [&] { cv::resize(source, theirs, theirs.size(), 0.0, 0.0, LikeMethod(method)); });
}

BENCHMARK(EnlargeWholePicture)
    ->ArgNames({"width", "height", "method"})
    ->ArgsProduct({{1920}, {1080}, {0, 1, 2, 3}})
    ->ArgsProduct({{3840}, {2160}, {0, 1, 2, 3}})
    ->UseManualTime()
    ->Iterations(11);

}  // namespace
