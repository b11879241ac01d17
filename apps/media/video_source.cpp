// SPDX-License-Identifier: MIT
#include "media/video_source.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include <wx/translation.h>

#include "media/frame_converter.h"
#include "media/frame_reader.h"
#include "media/index_store.h"
#include "media/media_error.h"
#include "media/picture_limits.h"
#include "media/picture_turn.h"
#include "media/video_decoder.h"
#include "media/video_index.h"

namespace {

/// Frames whose durations differ from the average by more than this part of it, and by more than a
/// tick of rounding, make the rate a variable one.
constexpr double kSteadyRate = 0.05;

class VideoSource final : public MediaSource {
public:
  VideoSource(std::string path, MediaInfo info, FrameReader reader, FrameConverter converter)
      : m_path(std::move(path)),
        m_info(std::move(info)),
        m_reader(std::move(reader)),
        m_converter(std::move(converter)) {}

  std::string const &Path() const override { return m_path; }
  MediaInfo const &Info() const override { return m_info; }
  std::int64_t TimeStamp(std::int64_t frame) const override {
    return m_reader.Index().timeStamps[static_cast<std::size_t>(frame)];
  }
  std::int64_t Duration(std::int64_t frame) const override {
    return m_reader.Index().DurationOf(frame);
  }
  MediaFrame Read(std::int64_t frame) override {
    DecodedFrame const &decoded = m_reader.Read(frame);
    return {m_converter.Convert(*decoded.frame, m_path), decoded.isDamaged};
  }

private:
  std::string m_path;
  MediaInfo m_info;
  FrameReader m_reader;
  FrameConverter m_converter;
};

/// From the first frame's beginning to the last one's end, in ticks.
std::int64_t LengthOf(VideoIndex const &index) {
  return index.timeStamps.back() - index.timeStamps.front() + index.lastDuration;
}

/// Frames a second, averaged over the whole: exact, since ticks are.
Rational AverageRate(VideoIndex const &index) {
  AVRational rate = {0, 1};
  av_reduce(&rate.num, &rate.den, index.FrameCount() * index.timeBase.denominator,
            LengthOf(index) * index.timeBase.numerator, INT32_MAX);
  return libav::ToRational(rate);
}

/// The last frame's duration does not count: nothing follows that it could be measured by.
bool HasVariableRate(VideoIndex const &index) {
  std::int64_t const count = index.FrameCount() - 1;
  if (count < 2) return false;
  double const average = static_cast<double>(index.timeStamps.back() - index.timeStamps.front()) /
                         static_cast<double>(count);
  double const allowed = std::max(1.0, kSteadyRate * average);
  for (std::int64_t frame = 0; frame < count; ++frame) {
    if (std::abs(static_cast<double>(index.DurationOf(frame)) - average) > allowed) return true;
  }
  return false;
}

/// How the stream's pictures have to be turned. Its matrix has units of 1/65536.
PictureTurn TurnOf(AVStream const &stream) {
  std::int32_t const *matrix = libav::DisplayMatrix(stream);
  if (!matrix) return {};
  return TurnOfMatrix(matrix[0], matrix[1], matrix[3], matrix[4]);
}

Rational PixelShape(VideoDecoder const &decoder, bool isSideways) {
  AVRational shape =
      av_guess_sample_aspect_ratio(&decoder.Input().Format(), &decoder.Input().Video(), nullptr);
  if (shape.num <= 0 || shape.den <= 0) shape = {1, 1};
  if (isSideways) std::swap(shape.num, shape.den);
  return libav::ToRational(shape);
}

void DescribeFormat(MediaInfo &info, VideoDecoder const &decoder) {
  AVCodecParameters const &parameters = *decoder.Input().Video().codecpar;
  auto const format = static_cast<AVPixelFormat>(parameters.format);
  info.container = decoder.Input().Format().iformat->name;
  info.codec = avcodec_get_name(parameters.codec_id);
  if (char const *name = av_get_pix_fmt_name(format)) info.pixelFormat = name;
  if (AVPixFmtDescriptor const *descriptor = av_pix_fmt_desc_get(format)) {
    info.bitsPerChannel = descriptor->comp[0].depth;
  }
  ColourTags const colours =
      ResolveColours(parameters.color_space, parameters.color_range, format, parameters.height);
  info.colourMatrix = MatrixName(colours.matrix);
  info.isColourMatrixGuessed = colours.isGuessed;
  info.isFullRange = colours.isFullRange;
}

MediaInfo Describe(VideoDecoder const &decoder, VideoIndex const &index, PictureTurn const &turn) {
  AVCodecParameters const &parameters = *decoder.Input().Video().codecpar;
  MediaInfo info;
  info.kind = MediaInfo::Kind::Video;
  info.width = turn.IsSideways() ? parameters.height : parameters.width;
  info.height = turn.IsSideways() ? parameters.width : parameters.height;
  info.frameCount = index.FrameCount();
  info.timeBase = index.timeBase;
  info.frameRate = AverageRate(index);
  info.pixelShape = PixelShape(decoder, turn.IsSideways());
  info.hasAudio = decoder.Input().HasAudio();
  info.hasVariableRate = HasVariableRate(index);
  info.isSeekable = index.isSeekable;
  info.rotation = 90 * turn.quarters;
  info.isMirrored = turn.isMirrored;
  DescribeFormat(info, decoder);
  return info;
}

}  // namespace

std::unique_ptr<MediaSource> OpenVideo(std::string const &path, FileStamp const &stamp,
                                       MediaOptions const &options) {
  auto decoder = std::make_unique<VideoDecoder>(path);
  AVCodecParameters const &parameters = *decoder->Input().Video().codecpar;
  if (parameters.width <= 0 || parameters.height <= 0) {
    throw MediaError(MediaProblem::Damaged, path,
                     wxTRANSLATE("the size of its pictures is not known"));
  }
  int const width = parameters.width;
  int const height = parameters.height;
  IndexStore const store(options.cacheFolder);
  std::optional<VideoIndex> index = store.Load(path, stamp);
  if (!index) {
    index = BuildVideoIndex(path, *decoder, options.progress);
    store.Save(path, stamp, *index);
  }
  RequireUnchanged(path, stamp);
  PictureTurn const turn = TurnOf(decoder->Input().Video());
  MediaInfo info = Describe(*decoder, *index, turn);
  return std::make_unique<VideoSource>(
      path, std::move(info),
      FrameReader(std::move(decoder), std::move(*index), stamp, options.keptBytes),
      FrameConverter(width, height, turn));
}
