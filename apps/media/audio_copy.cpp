// SPDX-License-Identifier: MIT
#include "media/audio_copy.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <climits>
#include <filesystem>
#include <system_error>
#include <utility>

#include <wx/translation.h>

extern "C" {
#include <libavutil/intreadwrite.h>
#include <libavutil/mathematics.h>
}

#include "media/media_error.h"

namespace {

/// A range that begins this late is sought rather than read up to, and from this much earlier, in
/// seconds: seeking lands on key frames of the video, roughly.
constexpr double kSkipFrom = 20.0;
constexpr double kSkipMargin = 10.0;
/// How far to look for the first packets of all streams, in seconds: priming is far shorter.
constexpr double kPrimingReach = 1.0;
/// Damaged places in a row that are passed over before the rest is given up.
constexpr int kMostDamage = 64;
/// Range borders come from time stamps through floating point: they count as equal within this,
/// in seconds, which is shorter than any sample.
constexpr double kSame = 1e-6;

[[noreturn]] void ThrowReadError(std::string const &path, int code) {
  MediaProblem problem = MediaProblem::ReadFailed;
  if (code == AVERROR(ENOENT)) problem = MediaProblem::NotFound;
  if (code == AVERROR(ENOMEM)) throw std::bad_alloc();
  if (code == AVERROR_INVALIDDATA) problem = MediaProblem::Unrecognised;
  throw MediaError(problem, path, libav::ErrorText(code));
}

bool IsAudio(AVStream const &stream) {
  return stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
}

double Seconds(std::int64_t time, AVRational base) {
  return static_cast<double>(time) * av_q2d(base);
}

/// In samples, what the packet says must be skipped at its beginning.
std::int64_t SamplesToSkip(AVPacket const &packet) {
  std::size_t size = 0;
  std::uint8_t const *const data =
      av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
  return data && size >= 4 ? std::int64_t{AV_RL32(data)} : 0;
}

/// Side data can be anything that the source's container holds; only what decoding the sound needs
/// goes along.
void KeepOnlySoundData(AVPacket &packet) {
  libav::Owned<AVPacket> const kept = libav::Own(av_packet_alloc());
  for (int i = 0; i < packet.side_data_elems; ++i) {
    AVPacketSideData const &data = packet.side_data[i];
    if (data.type != AV_PKT_DATA_SKIP_SAMPLES && data.type != AV_PKT_DATA_NEW_EXTRADATA) continue;
    std::uint8_t *const copy = av_packet_new_side_data(kept.get(), data.type, data.size);
    if (!copy) throw std::bad_alloc();
    std::copy_n(data.data, data.size, copy);
  }
  av_packet_free_side_data(&packet);
  std::swap(packet.side_data, kept->side_data);
  std::swap(packet.side_data_elems, kept->side_data_elems);
}

}  // namespace

AudioCopy::AudioCopy(VideoSettings const &settings, AVRational timeBase)
    : m_path(settings.audioFrom),
      m_begin(std::max(settings.audioBegin, Seconds(settings.origin, timeBase))),
      m_end(settings.audioEnd),
      m_origin(settings.origin),
      m_originBase(timeBase) {
  Open();
  if (!SkipToBegin()) {
    m_queue.clear();
    m_isAtStart = true;
    Open();
  }
  QueueFirstPackets();
}

void AudioCopy::Open() {
  std::error_code error;
  std::filesystem::file_status const status = std::filesystem::status(m_path, error);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw MediaError(MediaProblem::NotAFile, m_path);
  }
  libav::Options options;
  // A play list must not make this read other files, or the network.
  options.Set("protocol_whitelist", "file");
  AVFormatContext *opened = nullptr;
  // The protocol is named, since a colon in the path would be taken for one.
  int result = avformat_open_input(&opened, ("file:" + m_path).c_str(), nullptr, options.Get());
  if (result < 0) ThrowReadError(m_path, result);
  m_source.reset(opened);
  result = avformat_find_stream_info(m_source.get(), nullptr);
  if (result < 0) ThrowReadError(m_path, result);
  FindTracks();
}

void AudioCopy::FindTracks() {
  m_tracks.clear();
  for (unsigned int i = 0; i < m_source->nb_streams; ++i) {
    AVStream &stream = *m_source->streams[i];
    stream.discard = AVDISCARD_ALL;
    if (!IsAudio(stream)) continue;
    if (stream.codecpar->sample_rate <= 0) {
      throw MediaError(MediaProblem::Damaged, m_path, wxTRANSLATE("audio without a sample rate"));
    }
    stream.discard = AVDISCARD_DEFAULT;
    Track track;
    track.source = static_cast<int>(i);
    track.base = stream.time_base;
    track.sampleBase = AVRational{1, stream.codecpar->sample_rate};
    track.origin = av_rescale_q(m_origin, m_originBase, track.sampleBase);
    m_tracks.push_back(track);
  }
}

/// Returns false if reading has to begin at the source's first packet after all.
bool AudioCopy::SkipToBegin() {
  double const first = m_source->start_time == AV_NOPTS_VALUE
                           ? 0.0
                           : Seconds(m_source->start_time, AVRational{1, AV_TIME_BASE});
  // Where time may jump, seeking goes by guesses.
  bool const isSound = (m_source->iformat->flags & AVFMT_TS_DISCONT) == 0;
  if (m_tracks.empty() || !isSound || m_begin - first < kSkipFrom) return true;
  int const video = av_find_best_stream(m_source.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  AVRational const base =
      video >= 0 ? m_source->streams[video]->time_base : AVRational{1, AV_TIME_BASE};
  auto const time = static_cast<std::int64_t>((m_begin - kSkipMargin) / av_q2d(base));
  m_isAtStart = false;
  int const result = av_seek_frame(m_source.get(), std::max(video, -1), time, AVSEEK_FLAG_BACKWARD);
  if (result < 0) return false;
  auto const isStarted = [](Track const &track) { return track.isStarted; };
  while (!std::all_of(m_tracks.begin(), m_tracks.end(), isStarted)) {
    if (!QueueNext()) return false;
  }
  // A track that is first heard of within the range may have lost packets that belong to it.
  return m_queue.empty();
}

// The container's header says how long the priming is, so the first packets come before it.
void AudioCopy::QueueFirstPackets() {
  auto const isWaiting = [](Track const &track) { return !track.isStarted; };
  while (std::any_of(m_tracks.begin(), m_tracks.end(), isWaiting) || m_queue.empty()) {
    if (!m_queue.empty()) {
      AVPacket const &last = *m_queue.back();
      if (Seconds(last.pts, last.time_base) > kPrimingReach) return;
    }
    if (!QueueNext()) return;
  }
}

void AudioCopy::AddStreams(AVFormatContext &output, std::string const &path) {
  assert(output.nb_streams == kFirstAudioStream);
  for (Track const &track : m_tracks) {
    AVCodecParameters const &source = *m_source->streams[track.source]->codecpar;
    if (avformat_query_codec(output.oformat, source.codec_id, FF_COMPLIANCE_NORMAL) == 0) {
      throw MediaError(MediaProblem::Unsupported, path,
                       // TRANSLATORS: a codec and a container, such as "audio vorbis in mp4".
                       Message(wxTRANSLATE("audio %s in %s"),
                               {avcodec_get_name(source.codec_id), output.oformat->name}));
    }
    AVStream *const stream = avformat_new_stream(&output, nullptr);
    if (!stream || avcodec_parameters_copy(stream->codecpar, &source) < 0) throw std::bad_alloc();
    stream->time_base = track.sampleBase;
    // Containers have codes of their own; the source's may mean another codec there.
    stream->codecpar->codec_tag = 0;
    stream->codecpar->initial_padding = 0;
    for (libav::Owned<AVPacket> const &packet : m_queue) {
      if (packet->stream_index != stream->index) continue;
      stream->codecpar->initial_padding = static_cast<int>(std::max<std::int64_t>(0, -packet->pts));
      break;
    }
  }
}

AVPacket *AudioCopy::Next() {
  while (m_queue.empty()) {
    if (!QueueNext()) return nullptr;
  }
  return m_queue.front().get();
}

/// Reads one packet. Returns false when no track has anything more.
bool AudioCopy::QueueNext() {
  auto const isDone = [](Track const &track) { return track.isDone; };
  if (std::all_of(m_tracks.begin(), m_tracks.end(), isDone)) return false;
  libav::Owned<AVPacket> packet = libav::Own(av_packet_alloc());
  if (!ReadPacket(*packet)) {
    for (Track &track : m_tracks) track.isDone = true;
    return false;
  }
  for (std::size_t i = 0; i < m_tracks.size(); ++i) {
    if (m_tracks[i].source != packet->stream_index) continue;
    packet->stream_index = static_cast<int>(kFirstAudioStream + i);
    QueueIfWanted(m_tracks[i], std::move(packet));
    break;
  }
  return true;
}

bool AudioCopy::ReadPacket(AVPacket &packet) {
  for (int damage = 0; damage < kMostDamage;) {
    int const result = av_read_frame(m_source.get(), &packet);
    if (result >= 0) return true;
    if (result == AVERROR(EAGAIN)) continue;
    if (result == AVERROR_EOF) {
      int const ioError = m_source->pb ? m_source->pb->error : 0;
      if (ioError < 0 && ioError != AVERROR_EOF) ThrowReadError(m_path, ioError);
      return false;
    }
    if (result != AVERROR_INVALIDDATA) ThrowReadError(m_path, result);
    m_problem = libav::ErrorText(result);
    ++damage;
  }
  return false;
}

void AudioCopy::QueueIfWanted(Track &track, libav::Owned<AVPacket> packet) {
  if (packet->pts == AV_NOPTS_VALUE) packet->pts = packet->dts;
  if (packet->pts == AV_NOPTS_VALUE) packet->pts = track.next;
  track.next = packet->pts + packet->duration;
  double const begin = SoundBegin(track, *packet);
  track.isStarted = true;
  if (begin >= m_end - kSame) track.isDone = true;
  if (begin < m_begin - kSame || begin >= m_end - kSame) return;
  // Damaged sound goes along as it is, but not in silence.
  if ((packet->flags & AV_PKT_FLAG_CORRUPT) != 0) m_problem = "damaged packet";
  Retime(track, *packet);
  KeepOnlySoundData(*packet);
  m_queue.push_back(std::move(packet));
}

/// Seconds on the source's clock. Where the packet is priming, in whole or in its first part, the
/// sound begins behind that.
double AudioCopy::SoundBegin(Track &track, AVPacket const &packet) const {
  if (!track.isStarted && m_isAtStart) {
    std::int64_t priming = SamplesToSkip(packet);
    if (priming == 0) priming = m_source->streams[track.source]->codecpar->initial_padding;
    // Upwards, since a time stamp in milliseconds may have been rounded down.
    track.soundBegin =
        packet.pts + av_rescale_q_rnd(priming, track.sampleBase, track.base, AV_ROUND_UP);
  }
  return Seconds(std::max(packet.pts, track.soundBegin), track.base);
}

/// From the source's clock to samples from the output's zero.
void AudioCopy::Retime(Track &track, AVPacket &packet) const {
  AVCodecParameters &codec = *m_source->streams[track.source]->codecpar;
  int samples = av_get_audio_frame_duration2(&codec, packet.size);
  if (samples <= 0) {
    std::int64_t const rescaled = av_rescale_q(packet.duration, track.base, track.sampleBase);
    samples = static_cast<int>(std::clamp<std::int64_t>(rescaled, 0, INT_MAX));
  }
  // Time stamps coarser than samples are refined by the number of samples so far.
  packet.pts = av_rescale_delta(track.base, packet.pts, track.sampleBase, samples, &track.rescaled,
                                track.sampleBase) -
               track.origin;
  packet.dts = packet.pts;
  packet.duration = samples;
  packet.time_base = track.sampleBase;
  packet.pos = -1;
}
