// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <gtest/gtest.h>

#include "talbase/picture.h"
#include "talcore/hidden_picture.h"
#include "talcore/hide_selection.h"
#include "talcore_support.h"

namespace framenote::test {

namespace {

using Bytes = std::vector<unsigned char>;

constexpr int kBlur = 0;
constexpr int kPixelation = 1;

Bytes Hidden(wxImage const &picture, int effect, int strength) {
  Image const source = WxImageToImage(picture);
  Image destination(picture.GetSize(), 8, 3, nullptr, 0);
  tcvHideSelection(source, destination, effect, strength);
  return BytesOf(IplImageToWxImage(destination));
}

/// Forms of all sizes, as natural pictures have them, the larger ones the stronger: 300 pixels
/// across, the same each time.
wxImage NaturalPicture() {
  constexpr int kSide = 300;
  std::mt19937 random(3);
  cv::Mat sum = cv::Mat::zeros(kSide, kSide, CV_32F);
  for (int cell = 32; cell >= 2; cell /= 2) {
    cv::Mat cells(kSide / cell + 1, kSide / cell + 1, CV_32F);
    for (int i = 0; i < static_cast<int>(cells.total()); ++i) {
      cells.at<float>(i / cells.cols, i % cells.cols) = static_cast<float>(random() % 1000) / 1e3F;
    }
    cv::Mat octave;
    cv::resize(cells, octave, cv::Size(kSide, kSide), 0.0, 0.0, cv::INTER_CUBIC);
    sum += octave * std::sqrt(cell);
  }
  cv::normalize(sum, sum, 0.0, 255.0, cv::NORM_MINMAX);
  wxImage picture(kSide, kSide, false);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      auto const level = static_cast<unsigned char>(sum.at<float>(y, x));
      picture.SetRGB(x, y, level, level, level);
    }
  }
  return picture;
}

cv::Mat Levels(Bytes const &bytes, int width, int height) {
  cv::Mat levels(height, width, CV_32F);
  for (int i = 0; i < width * height; ++i) {
    levels.at<float>(i / width, i % width) = bytes[static_cast<std::size_t>(i) * kChannels];
  }
  return levels;
}

cv::Mat Spectrum(cv::Mat const &levels) {
  cv::Mat spectrum;
  cv::dft(levels, spectrum, cv::DFT_COMPLEX_OUTPUT);
  return spectrum;
}

/// Kernels about the origin, whose sides run on at the other end.
cv::Mat KernelOf(int side, double (*weight)(double, double), double width) {
  cv::Mat kernel(side, side, CV_32F);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      double const distanceX = std::min(x, side - x);
      double const distanceY = std::min(y, side - y);
      kernel.at<float>(y, x) =
          static_cast<float>(weight(distanceX, width) * weight(distanceY, width));
    }
  }
  return kernel / cv::sum(kernel)[0];
}

double GaussianWeight(double distance, double sigma) {
  return std::exp(-distance * distance / (2.0 * sigma * sigma));
}

double BoxWeight(double distance, double width) {
  return distance <= width / 2.0 ? 1.0 : 0.0;
}

/// What makes up a face: all that is finer than about 30 pixels.
Bytes DetailOf(Bytes const &bytes, int side) {
  cv::Mat const levels = Levels(bytes, side, side);
  cv::Mat coarse;
  cv::GaussianBlur(levels, coarse, cv::Size(), 10.0);
  Bytes detail;
  for (int i = 0; i < side * side; ++i) {
    int const row = i / side;
    int const column = i % side;
    float const level = 128.0F + levels.at<float>(row, column) - coarse.at<float>(row, column);
    detail.insert(detail.end(), kChannels,
                  static_cast<unsigned char>(std::clamp(level, 0.0F, 255.0F)));
  }
  return detail;
}

/// What an attacker gets back with the inverse filter of a kernel: the correlation of the details
/// with those of the original, for the guess of the noise that serves him best.
double BestCorrelation(Bytes const &original, Bytes const &hidden, cv::Mat const &kernel) {
  int const side = kernel.rows;
  cv::Mat const seen = Spectrum(Levels(hidden, side, side));
  cv::Mat const filter = Spectrum(kernel);
  double best = 0.0;
  for (float const noise : {1e-2F, 1e-3F, 1e-4F, 1e-5F, 1e-6F}) {
    cv::Mat estimate(side, side, CV_32FC2);
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) {
        auto const s = seen.at<cv::Vec2f>(y, x);
        auto const k = filter.at<cv::Vec2f>(y, x);
        float const power = k[0] * k[0] + k[1] * k[1] + noise;
        estimate.at<cv::Vec2f>(y, x) =
            cv::Vec2f((s[0] * k[0] + s[1] * k[1]) / power, (s[1] * k[0] - s[0] * k[1]) / power);
      }
    }
    cv::Mat levels;
    cv::dft(estimate, levels, cv::DFT_INVERSE | cv::DFT_SCALE | cv::DFT_REAL_OUTPUT);
    Bytes attacked;
    for (int i = 0; i < side * side; ++i) {
      float const level = std::clamp(levels.at<float>(i / side, i % side), 0.0F, 255.0F);
      attacked.insert(attacked.end(), kChannels, static_cast<unsigned char>(level));
    }
    best = std::max(best, Correlation(DetailOf(original, side), DetailOf(attacked, side)));
  }
  return best;
}

TEST(HideSelection, PixelationShowsTheMeansOfItsBlocks) {
  // Blocks of strength + 1 from the picture's origin; the last ones take a rest of under a half.
  wxImage const picture = MixedPicture(17, 9);
  Bytes const hidden = Hidden(picture, kPixelation, 3);
  auto const mean = [&](int x0, int y0, int x1, int y1) {
    double sum = 0.0;
    for (int y = y0; y < y1; ++y) {
      for (int x = x0; x < x1; ++x) sum += picture.GetRed(x, y);
    }
    return sum / ((x1 - x0) * (y1 - y0));
  };
  auto const red = [&](int x, int y) { return hidden[static_cast<std::size_t>(y * 17 + x) * 3]; };
  EXPECT_NEAR(red(0, 0), mean(0, 0, 4, 4), 0.51);
  EXPECT_NEAR(red(3, 3), mean(0, 0, 4, 4), 0.51);
  EXPECT_NEAR(red(4, 0), mean(4, 0, 8, 4), 0.51);
  EXPECT_NEAR(red(16, 8), mean(12, 4, 17, 9), 0.51);
}

TEST(HideSelection, EvenStrengthOneLeavesNoPixelAlone) {
  wxImage black(32, 32, true);
  wxImage spot = black.Copy();
  spot.SetRGB(10, 10, 255, 255, 255);
  for (int const strength : {-1, 0, 1}) {
    // A quarter of the light at most stays at its place.
    EXPECT_LE(Hidden(spot, kPixelation, strength)[(10 * 32 + 10) * 3], 64);
    EXPECT_LE(Hidden(spot, kBlur, strength)[(10 * 32 + 10) * 3], 128);
  }
}

TEST(HideSelection, StrengthStopsAtThePicturesSize) {
  wxImage const picture = MixedPicture(40, 30);
  for (int const effect : {kBlur, kPixelation}) {
    Bytes const most = Hidden(picture, effect, 1'000'000'000);
    EXPECT_EQ(Hidden(picture, effect, 40), most);
  }
  Bytes const one = Hidden(picture, kPixelation, 40);
  EXPECT_EQ(std::count(one.begin(), one.end(), one[0]), std::count(one.begin(), one.end(), one[3]));
}

TEST(HideSelection, PicturesOfAnySizeAreHidden) {
  for (wxSize const &size : {wxSize(1, 1), wxSize(2, 1), wxSize(1, 50), wxSize(7, 3)}) {
    for (int const effect : {kBlur, kPixelation}) {
      for (int const strength : {1, 5, 50}) {
        wxImage const picture = MixedPicture(size.x, size.y);
        EXPECT_EQ(Hidden(picture, effect, strength).size(), BytesOf(picture).size());
      }
    }
  }
}

TEST(HideSelection, PicturesThatDoNotFitAreLeftAlone) {
  Image const source(wxSize(8, 8), 8, 3, nullptr, 0);
  Image other(wxSize(8, 9), 8, 3, nullptr, 0);
  Image grey(wxSize(8, 8), 8, 1, nullptr, 0);
  tcvHideSelection(source, other, kBlur, 5);
  tcvHideSelection(source, grey, kBlur, 5);
  tcvHideSelection(nullptr, grey, kBlur, 5);
  tcvHideSelection(source, nullptr, kBlur, 5);
}

// How the grid of blocks lies changes with their size, and lets the correlation ripple from one
// strength to the next: with sharp blocks more than with smooth ones.
TEST(HideSelection, LargerStrengthHidesMore) {
  wxImage const picture = NaturalPicture();
  Bytes const original = BytesOf(picture);
  for (int const effect : {kBlur, kPixelation}) {
    double last = 1.0;
    double lastOfTen = 1.0;
    for (int strength = 1; strength <= 50; ++strength) {
      double const correlation = Correlation(original, Hidden(picture, effect, strength));
      EXPECT_LT(correlation, last + (effect == kBlur ? 0.01 : 0.05)) << effect << " " << strength;
      last = correlation;
      if (strength % 10 != 0) continue;
      EXPECT_LT(correlation, lastOfTen) << effect << " " << strength;
      lastOfTen = correlation;
    }
  }
}

/// One light pixel moves what is shown at its own place by no more than its share of a block.
TEST(HideSelection, NoPixelDependsOnTheOneUnderItAlone) {
  constexpr int kSide = 120;
  wxImage const picture = MixedPicture(kSide, kSide);
  for (int const effect : {kBlur, kPixelation}) {
    for (int const strength : {5, 20, 50}) {
      Bytes const before = Hidden(picture, effect, strength);
      for (wxPoint const &at :
           {wxPoint(0, 0), wxPoint(60, 60), wxPoint(119, 119), wxPoint(3, 117)}) {
        wxImage changed = picture.Copy();
        bool const isDark = picture.GetRed(at.x, at.y) < 128;
        unsigned char const level = isDark ? 255 : 0;
        changed.SetRGB(at.x, at.y, level, level, level);
        Bytes const after = Hidden(changed, effect, strength);
        auto const k = static_cast<std::size_t>(at.y * kSide + at.x) * 3;
        // At the least strength of these a block of blur has 4 by 4 pixels, of which a corner of
        // the picture shows three quarters or so.
        EXPECT_LE(std::abs(int{after[k]} - int{before[k]}), 16)
            << effect << " " << strength << " (" << at.x << ", " << at.y << ")";
      }
    }
  }
}

/// The mean of 51 by 51 pixels about each, which is no protection: the attack must succeed on it,
/// or it proves nothing about the effects.
Bytes BoxBlurred(wxImage const &picture) {
  int const side = picture.GetWidth();
  cv::Mat around;
  cv::copyMakeBorder(Levels(BytesOf(picture), side, side), around, 25, 25, 25, 25, cv::BORDER_WRAP);
  cv::blur(around, around, cv::Size(51, 51));
  cv::Mat const blurred = around(cv::Rect(25, 25, side, side));
  Bytes bytes;
  for (int i = 0; i < side * side; ++i) {
    float const level = blurred.at<float>(i / side, i % side);
    bytes.insert(bytes.end(), kChannels, static_cast<unsigned char>(std::lround(level)));
  }
  return bytes;
}

TEST(HideSelection, InverseFilterDoesNotBringAFaceBack) {
  constexpr int kSide = 300;
  wxImage const picture = NaturalPicture();
  Bytes const original = BytesOf(picture);
  cv::Mat const box = KernelOf(kSide, BoxWeight, 51.0);
  EXPECT_GT(BestCorrelation(original, BoxBlurred(picture), box), 0.6);
  // Three quarters of a block is the deviation of the blur.
  cv::Mat const gaussian = KernelOf(kSide, GaussianWeight, 0.75 * 51.0);
  EXPECT_LT(BestCorrelation(original, Hidden(picture, kBlur, 50), gaussian), 0.15);
  EXPECT_LT(BestCorrelation(original, Hidden(picture, kPixelation, 50), box), 0.15);
}

class HiddenPart : public testing::TestWithParam<std::tuple<HideEffect, int>> {};

INSTANTIATE_TEST_SUITE_P(, HiddenPart,
                         testing::Combine(testing::Values(HideEffect::Blur, HideEffect::Pixelation),
                                          testing::Values(1, 2, 5, 13, 50, 1000)));

TEST_P(HiddenPart, LooksAsInTheWhole) {
  auto const [effect, strength] = GetParam();
  wxImage const picture = MixedPicture(130, 90);
  HiddenPicture const whole(ViewOf(picture), effect, strength);
  for (PixelArea const &part : {PixelArea{0, 0, 130, 90}, PixelArea{40, 30, 50, 40},
                                PixelArea{129, 89, 1, 1}, PixelArea{0, 60, 130, 30}}) {
    HiddenPicture const alone(ViewOf(picture), effect, strength, part);
    Bytes a(static_cast<std::size_t>(part.width * part.height) * kChannels);
    Bytes b(a.size());
    auto const step = static_cast<std::size_t>(part.width) * kChannels;
    whole.Render(part, a.data(), step);
    alone.Render(part, b.data(), step);
    EXPECT_EQ(a, b) << part.x << ", " << part.y;
  }
}

}  // namespace

}  // namespace framenote::test
