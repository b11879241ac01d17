// SPDX-License-Identifier: MIT
#include "media/video_index.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <wx/translation.h>

#include "media/libav.h"
#include "media/media_error.h"
#include "media/media_input.h"
#include "media/video_decoder.h"

namespace {

using Progress = std::function<bool(double)>;

/// How many packets pass between two reports of progress.
constexpr std::size_t kReportEvery = 256;
/// Frames at the beginning whose time stamps are compared with what the decoder gives out.
constexpr int kCheckedFrames = 16;
/// How far a packet may stand from its frame's place: H.264 holds back 16 frames, as 32 fields.
constexpr std::size_t kFurthestReorder = 32;
/// Frames a second of a stream without time stamps that does not say.
constexpr Rational kUsualRate{25, 1};

/// One packet of the stream as it stands in the file.
struct Entry {
  std::int64_t timeStamp;
  std::int64_t duration;
  std::size_t place;
  bool isKey;
};

void Report(Progress const &progress, double done, std::string const &path) {
  if (progress && !progress(std::clamp(done, 0.0, 1.0))) {
    throw MediaError(MediaProblem::Cancelled, path);
  }
}

void RequireRoom(std::size_t count, std::string const &path) {
  if (count >= kMostFrames)
    throw MediaError(MediaProblem::TooLarge, path, wxTRANSLATE("too many frames"));
}

/// The packets whose frames are shown; nothing if one of them has no time stamp.
std::optional<std::vector<Entry>> ReadEntries(std::string const &path, Progress const &progress) {
  MediaInput input(path);
  libav::PacketPtr const packet = libav::NewPacket();
  std::vector<Entry> entries;
  for (std::size_t place = 0; input.ReadPacket(*packet); ++place) {
    if (place % kReportEvery == 0) Report(progress, input.Progress(), path);
    // What an edit cut away is decoded for the sake of others, and never shown.
    if ((packet->flags & AV_PKT_FLAG_DISCARD) != 0) continue;
    if (packet->pts == AV_NOPTS_VALUE) return std::nullopt;
    RequireRoom(entries.size(), path);
    entries.push_back(
        {packet->pts, packet->duration, place, (packet->flags & AV_PKT_FLAG_KEY) != 0});
  }
  return entries;
}

/// Puts packets into the order of their frames. Whether the time stamps tell frames apart, and
/// order them as a decoder would.
bool SortByTime(std::vector<Entry> &entries) {
  std::sort(entries.begin(), entries.end(),
            [](Entry const &a, Entry const &b) { return a.timeStamp < b.timeStamp; });
  std::vector<std::size_t> places;
  places.reserve(entries.size());
  for (Entry const &entry : entries) places.push_back(entry.place);
  std::sort(places.begin(), places.end());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i > 0 && entries[i].timeStamp == entries[i - 1].timeStamp) return false;
    std::size_t const first = std::min(places[i], entries[i].place);
    if (std::max(places[i], entries[i].place) - first > kFurthestReorder) return false;
  }
  return true;
}

std::int64_t UsualDuration(std::vector<std::int64_t> const &timeStamps, std::int64_t ownDuration) {
  if (ownDuration > 0) return ownDuration;
  std::size_t const count = timeStamps.size();
  return count > 1 ? timeStamps[count - 1] - timeStamps[count - 2] : 1;
}

VideoIndex ToIndex(std::vector<Entry> const &entries, Rational const &timeBase) {
  VideoIndex index;
  index.timeBase = timeBase;
  index.isSeekable = true;
  index.timeStamps.reserve(entries.size());
  for (Entry const &entry : entries) {
    if (entry.isKey) index.keyFrames.push_back(static_cast<std::uint32_t>(index.FrameCount()));
    index.timeStamps.push_back(entry.timeStamp);
  }
  index.lastDuration = UsualDuration(index.timeStamps, entries.back().duration);
  return index;
}

/// Takes away the first `count` frames.
void DropLeading(VideoIndex &index, std::int64_t count) {
  index.timeStamps.erase(index.timeStamps.begin(), index.timeStamps.begin() + count);
  std::vector<std::uint32_t> kept;
  for (std::uint32_t const key : index.keyFrames) {
    if (key >= count) kept.push_back(key - static_cast<std::uint32_t>(count));
  }
  index.keyFrames = std::move(kept);
}

/// Whether the frames come out of the decoder with the time stamps of the index, one after the
/// other. Frames ahead of the first that comes out, made from what the file does not hold, are
/// taken away.
bool AgreesWithDecoder(VideoIndex &index, VideoDecoder &decoder, std::string const &path) {
  std::optional<DecodedFrame> decoded = decoder.Next();
  if (decoder.IsInDoubt()) {
    decoder.TakeCare();
    decoder.Restart();
    decoded = decoder.Next();
  }
  if (!decoded)
    throw MediaError(MediaProblem::Damaged, path, wxTRANSLATE("no frame can be decoded"));
  std::int64_t const first = index.FrameOf(decoded->frame->best_effort_timestamp);
  if (first < 0) return false;
  DropLeading(index, first);
  std::int64_t const count = std::min<std::int64_t>(kCheckedFrames, index.FrameCount());
  for (std::int64_t frame = 0; frame < count; ++frame) {
    // Beside damage frames are missing, which says nothing about the others.
    if (!decoded || decoded->isDamaged || decoder.IsInDoubt()) return true;
    if (index.FrameOf(decoded->frame->best_effort_timestamp) != frame) return false;
    decoded = decoder.Next();
  }
  return true;
}

bool IsRising(std::vector<std::int64_t> const &timeStamps) {
  for (std::size_t i = 0; i < timeStamps.size(); ++i) {
    if (timeStamps[i] == AV_NOPTS_VALUE) return false;
    if (i > 0 && timeStamps[i] <= timeStamps[i - 1]) return false;
  }
  return true;
}

/// Time stamps by counting, for a stream that has none.
void CountTime(VideoIndex &index, AVStream const &stream) {
  Rational rate = libav::ToRational(stream.avg_frame_rate);
  if (rate.Value() <= 0.0) rate = libav::ToRational(stream.r_frame_rate);
  if (rate.Value() <= 0.0) rate = kUsualRate;
  index.timeBase = {rate.denominator, rate.numerator};
  index.lastDuration = 1;
  std::int64_t next = 0;
  for (std::int64_t &timeStamp : index.timeStamps) timeStamp = next++;
}

/// The time stamps of all frames in the order in which they come out; nothing if that is in doubt.
std::optional<std::vector<std::int64_t>> DecodeTimes(std::string const &path, VideoDecoder &decoder,
                                                     Progress const &progress,
                                                     std::int64_t &lastDuration) {
  decoder.Restart();
  std::vector<std::int64_t> timeStamps;
  while (std::optional<DecodedFrame> const decoded = decoder.Next()) {
    Report(progress, decoder.Input().Progress(), path);
    RequireRoom(timeStamps.size(), path);
    timeStamps.push_back(decoded->frame->best_effort_timestamp);
    lastDuration = libav::DurationOf(*decoded->frame);
    if (decoder.IsInDoubt()) return std::nullopt;
  }
  if (decoder.IsInDoubt()) return std::nullopt;
  return timeStamps;
}

/// The index of a file that is read from the beginning only.
VideoIndex IndexByDecoding(std::string const &path, VideoDecoder &decoder,
                           Progress const &progress) {
  std::int64_t duration = 0;
  auto timeStamps = DecodeTimes(path, decoder, progress, duration);
  if (!timeStamps) {
    decoder.TakeCare();
    timeStamps = DecodeTimes(path, decoder, progress, duration);
  }
  if (!timeStamps || timeStamps->empty()) {
    throw MediaError(MediaProblem::Damaged, path, wxTRANSLATE("no frame can be decoded"));
  }
  VideoIndex index;
  index.timeBase = libav::ToRational(decoder.Input().Video().time_base);
  index.timeStamps = std::move(*timeStamps);
  if (IsRising(index.timeStamps)) {
    index.lastDuration = UsualDuration(index.timeStamps, duration);
  } else {
    CountTime(index, decoder.Input().Video());
  }
  return index;
}

}  // namespace

std::int64_t VideoIndex::DurationOf(std::int64_t frame) const {
  auto const i = static_cast<std::size_t>(frame);
  return i + 1 < timeStamps.size() ? timeStamps[i + 1] - timeStamps[i] : lastDuration;
}

std::ptrdiff_t VideoIndex::KeyBefore(std::int64_t frame) const {
  auto const after = std::upper_bound(keyFrames.begin(), keyFrames.end(), frame);
  return after - keyFrames.begin() - 1;
}

std::int64_t VideoIndex::FrameOf(std::int64_t timeStamp) const {
  auto const at = std::lower_bound(timeStamps.begin(), timeStamps.end(), timeStamp);
  if (at == timeStamps.end() || *at != timeStamp) return -1;
  return at - timeStamps.begin();
}

VideoIndex BuildVideoIndex(std::string const &path, VideoDecoder &decoder,
                           Progress const &progress) {
  std::optional<std::vector<Entry>> entries = ReadEntries(path, progress);
  if (entries && entries->empty()) {
    throw MediaError(MediaProblem::Damaged, path, wxTRANSLATE("no frame in it"));
  }
  std::optional<VideoIndex> index;
  if (entries && SortByTime(*entries)) {
    index = ToIndex(*entries, libav::ToRational(decoder.Input().Video().time_base));
    if (!AgreesWithDecoder(*index, decoder, path)) index.reset();
  }
  if (!index) index = IndexByDecoding(path, decoder, progress);
  Report(progress, 1.0, path);
  return std::move(*index);
}
