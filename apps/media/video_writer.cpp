// SPDX-License-Identifier: MIT
#include "media/video_writer.h"

#include <algorithm>
#include <cassert>
#include <cctype>
#include <climits>
#include <filesystem>
#include <numeric>
#include <optional>
#include <system_error>
#include <vector>

#include <wx/translation.h>

extern "C" {
#include <libavutil/mathematics.h>
}

#include "media/audio_copy.h"
#include "media/libav.h"
#include "media/media_error.h"
#include "media/output_io.h"
#include "media/video_encoder.h"

namespace {

/// A container by the name that it has in libav.
struct Container {
  char const *extension;
  char const *format;
  bool hasTimescale;  ///< counts time in units of its choice, 32 bits wide between two packets
  bool takesFFV1;
};

constexpr Container kContainers[] = {
    {".mkv", "matroska", false, true},
    {".mp4", "mp4", true, false},
    {".mov", "mov", true, false},
};

/// What the source's container says about itself rather than about what it holds.
constexpr char const *kContainerTags[] = {"major_brand", "minor_version", "compatible_brands",
                                          "encoder"};

Container const &ContainerOf(std::string const &name, VideoCodec codec, std::string const &path) {
  std::string extension = std::filesystem::path(name).extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  auto const *const found =
      std::find_if(std::begin(kContainers), std::end(kContainers),
                   [&](Container const &container) { return extension == container.extension; });
  if (found == std::end(kContainers)) {
    throw MediaError(MediaProblem::Unsupported, path,
                     Message(wxTRANSLATE("container %s"), {extension}));
  }
  if (codec == VideoCodec::FFV1 && !found->takesFFV1) {
    throw MediaError(MediaProblem::Unsupported, path,
                     Message(wxTRANSLATE("FFV1 in %s"), {found->format}));
  }
  return *found;
}

void RefuseOverwritingSource(std::string const &path, std::string const &source) {
  std::error_code error;
  if (!source.empty() && std::filesystem::equivalent(path, source, error)) {
    throw MediaError(MediaProblem::WriteFailed, path, wxTRANSLATE("it is the source"));
  }
}

class LibavVideoWriter : public VideoWriter {
public:
  LibavVideoWriter(std::string const &path, Container const &container,
                   VideoSettings const &settings);

  void Write(Picture const &picture, std::int64_t timeStamp, std::int64_t duration) override;
  void Finish() override;
  std::string AudioProblem() const override;

private:
  void AddVideoStream(VideoSettings const &settings);
  void CopyMetadata();
  void WriteHeader(VideoSettings const &settings);
  std::string MovieTimescale() const;
  void WriteEncoded();
  void WriteVideo(AVPacket &packet);
  void WriteAudio(AVPacket &packet);
  void WritePacket(AVPacket &packet);
  void CheckDistance(AVPacket const &packet) const;
  void ThrowIfFailed(int result) const;

  std::string m_path;
  Container m_container;
  int m_width;
  int m_height;
  std::int64_t m_origin;
  VideoEncoder m_encoder;
  std::optional<AudioCopy> m_audio;
  std::optional<OutputIo> m_io;  // outlives m_output, which writes through it
  libav::Owned<AVFormatContext> m_output;
  std::vector<std::int64_t> m_lastTimes;  ///< of each stream, in its own time base
};

// The file is touched only after all that can be refused has been asked for.
LibavVideoWriter::LibavVideoWriter(std::string const &path, Container const &container,
                                   VideoSettings const &settings)
    : m_path(path),
      m_container(container),
      m_width(settings.width),
      m_height(settings.height),
      m_origin(settings.origin),
      m_encoder(settings, path) {
  AVFormatContext *output = nullptr;
  avformat_alloc_output_context2(&output, nullptr, container.format, nullptr);
  m_output = libav::Own(output);
  AddVideoStream(settings);
  if (!settings.audioFrom.empty()) {
    m_audio.emplace(settings, m_encoder.Context().time_base);
    m_audio->AddStreams(*m_output, path);
    if (settings.keepMetadata) CopyMetadata();
  }
  m_io.emplace(path);
  WriteHeader(settings);
}

void LibavVideoWriter::AddVideoStream(VideoSettings const &settings) {
  AVCodecContext const &encoder = m_encoder.Context();
  AVStream *const stream = avformat_new_stream(m_output.get(), nullptr);
  if (!stream || avcodec_parameters_from_context(stream->codecpar, &encoder) < 0) {
    throw std::bad_alloc();
  }
  stream->time_base = encoder.time_base;
  stream->sample_aspect_ratio = encoder.sample_aspect_ratio;
  if (settings.frameRate.numerator > 0) stream->avg_frame_rate = encoder.framerate;
}

void LibavVideoWriter::CopyMetadata() {
  if (av_dict_copy(&m_output->metadata, m_audio->Metadata(), 0) < 0) throw std::bad_alloc();
  for (char const *tag : kContainerTags) av_dict_set(&m_output->metadata, tag, nullptr, 0);
}

void LibavVideoWriter::WriteHeader(VideoSettings const &settings) {
  m_output->pb = m_io->Context();
  m_output->flags |= AVFMT_FLAG_CUSTOM_IO | AVFMT_FLAG_BITEXACT;
  // Time stamps are ours already; what precedes the first sound is told as its priming.
  m_output->avoid_negative_ts = 0;
  libav::Options options;
  if (m_container.hasTimescale) {
    options.Set("use_editlist", "1");
    options.Set("movie_timescale", MovieTimescale());
    // A time code among the metadata would become a stream of its own.
    options.Set("write_tmcd", "0");
    // The usual set of tags lacks most, the device among them.
    if (settings.keepMetadata) options.Set("movflags", "use_metadata_tags");
  }
  int const result = avformat_write_header(m_output.get(), options.Get());
  m_io->ThrowIfFailed();
  if (result == AVERROR(ENOMEM)) throw std::bad_alloc();
  if (result < 0) throw MediaError(MediaProblem::Unsupported, m_path, libav::ErrorText(result));
  m_lastTimes.assign(m_output->nb_streams, AV_NOPTS_VALUE);
}

/// The unit in which MP4 counts the silence or blank before a stream's first packet: one that all
/// streams share, so that none is shifted against another; that of the video if there is none.
std::string LibavVideoWriter::MovieTimescale() const {
  std::int64_t scale = m_encoder.Context().time_base.den;
  for (unsigned int i = 1; i < m_output->nb_streams; ++i) {
    std::int64_t const common =
        std::lcm(scale, std::int64_t{m_output->streams[i]->codecpar->sample_rate});
    if (common <= INT_MAX) scale = common;
  }
  return std::to_string(scale);
}

void LibavVideoWriter::Write(Picture const &picture, std::int64_t timeStamp,
                             std::int64_t duration) {
  assert(picture.Width() == m_width && picture.Height() == m_height);
  m_encoder.Send(picture, timeStamp - m_origin, duration);
  WriteEncoded();
}

void LibavVideoWriter::WriteEncoded() {
  while (AVPacket *const packet = m_encoder.Receive()) WriteVideo(*packet);
}

// Audio goes before the video that it does not come after, so packets stand in the file in the
// order of their time, and libav need not hold any back to sort them.
void LibavVideoWriter::WriteVideo(AVPacket &packet) {
  AVRational const base = m_encoder.Context().time_base;
  while (AVPacket *const audio = m_audio ? m_audio->Next() : nullptr) {
    if (av_compare_ts(audio->pts, audio->time_base, packet.pts, base) > 0) break;
    WriteAudio(*audio);
  }
  packet.stream_index = 0;
  av_packet_rescale_ts(&packet, base, m_output->streams[0]->time_base);
  CheckDistance(packet);
  WritePacket(packet);
}

void LibavVideoWriter::WriteAudio(AVPacket &packet) {
  av_packet_rescale_ts(&packet, packet.time_base,
                       m_output->streams[packet.stream_index]->time_base);
  // Damaged sources repeat time stamps or go back; MP4 counts distances and cannot.
  std::int64_t const last = m_lastTimes[static_cast<std::size_t>(packet.stream_index)];
  std::int64_t const least = last + (m_container.hasTimescale ? 1 : 0);
  if (last != AV_NOPTS_VALUE && packet.pts < least) packet.pts = packet.dts = least;
  WritePacket(packet);
  m_audio->Drop();
}

void LibavVideoWriter::CheckDistance(AVPacket const &packet) const {
  std::int64_t const last = m_lastTimes[0];
  bool const isFar = last != AV_NOPTS_VALUE && packet.pts - last > INT_MAX;
  if (m_container.hasTimescale && (isFar || packet.duration > INT_MAX)) {
    throw MediaError(MediaProblem::Unsupported, m_path,
                     wxTRANSLATE("a frame stands too long for MP4"));
  }
}

void LibavVideoWriter::WritePacket(AVPacket &packet) {
  m_lastTimes[static_cast<std::size_t>(packet.stream_index)] = packet.pts;
  ThrowIfFailed(av_write_frame(m_output.get(), &packet));
}

void LibavVideoWriter::Finish() {
  m_encoder.SendEnd();
  WriteEncoded();
  while (AVPacket *const audio = m_audio ? m_audio->Next() : nullptr) WriteAudio(*audio);
  ThrowIfFailed(av_write_trailer(m_output.get()));
  m_output.reset();
  m_io->Close();
}

std::string LibavVideoWriter::AudioProblem() const {
  return m_audio ? m_audio->Problem() : std::string();
}

void LibavVideoWriter::ThrowIfFailed(int result) const {
  m_io->ThrowIfFailed();
  if (result == AVERROR(ENOMEM)) throw std::bad_alloc();
  if (result < 0) throw MediaError(MediaProblem::WriteFailed, m_path, libav::ErrorText(result));
}

}  // namespace

std::unique_ptr<VideoWriter> CreateVideo(std::string const &path, std::string const &containerName,
                                         VideoSettings const &settings) {
  assert(settings.width > 0 && settings.height > 0);
  Container const &container = ContainerOf(containerName, settings.codec, path);
  RefuseOverwritingSource(path, settings.audioFrom);
  return std::make_unique<LibavVideoWriter>(path, container, settings);
}
