// SPDX-License-Identifier: MIT
#include "media/media_input.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <new>
#include <string_view>

#include "media/media_error.h"

namespace {

/// Lists of other files, and readers that take single pictures or any text for a video.
constexpr std::string_view kRefusedFormats[] = {"concat", "dash", "ffmetadata", "hls", "image2",
                                                "imf",    "sdp",  "rtsp",       "tty", "webvtt"};
/// The readers of single pictures are called by their format and this.
constexpr std::string_view kPictureSuffix = "_pipe";

bool IsRefused(std::string_view name) {
  if (name.size() > kPictureSuffix.size() &&
      name.substr(name.size() - kPictureSuffix.size()) == kPictureSuffix) {
    return true;
  }
  return std::find(std::begin(kRefusedFormats), std::end(kRefusedFormats), name) !=
         std::end(kRefusedFormats);
}

int RefuseToOpen(AVFormatContext * /*format*/, AVIOContext ** /*io*/, char const * /*url*/,
                 int /*flags*/, AVDictionary ** /*options*/) {
  return AVERROR(EPERM);
}

/// A score at or below this is a guess; libav itself would look at more bytes then.
constexpr int kGuess = AVPROBE_SCORE_RETRY;

}  // namespace

MediaInput::MediaInput(std::string const &path) : m_path(path), m_io(path) {
  libav::Silence();
  // By content alone: without a name there is no extension to go by.
  AVInputFormat const *format = nullptr;
  int const score = av_probe_input_buffer2(&m_io.Context(), &format, "", nullptr, 0, 0);
  if (m_io.HasFailed()) throw MediaError(MediaProblem::ReadFailed, path, std::strerror(EIO));
  if (score < 0 || !format) throw MediaError(MediaProblem::Unrecognised, path);
  if (IsRefused(format->name)) throw MediaError(MediaProblem::Unsupported, path, format->name);
  try {
    Open(format);
    SelectVideo();
  } catch (MediaError const &) {
    // What was but a guess, and led nowhere, is no damaged file of that format.
    if (score > kGuess) throw;
    throw MediaError(MediaProblem::Unrecognised, path);
  }
}

void MediaInput::Open(AVInputFormat const *format) {
  AVFormatContext *context = avformat_alloc_context();
  if (!context) throw std::bad_alloc();
  context->pb = &m_io.Context();
  context->io_open = &RefuseToOpen;
  context->flags |= AVFMT_FLAG_CUSTOM_IO;
  AVDictionary *options = nullptr;
  av_dict_set(&options, "protocol_whitelist", "none", 0);
  // Frees the context when it fails.
  int result = avformat_open_input(&context, "", format, &options);
  av_dict_free(&options);
  if (result >= 0) {
    m_format.reset(context);
    result = avformat_find_stream_info(context, nullptr);
  }
  if (result >= 0) return;
  bool const isRead = !m_io.HasFailed();
  throw MediaError(isRead ? MediaProblem::Damaged : MediaProblem::ReadFailed, m_path,
                   libav::ErrorText(result));
}

void MediaInput::SelectVideo() {
  int const best = av_find_best_stream(m_format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  // A sound's cover picture is a video stream by its kind.
  bool const isCover =
      best >= 0 && (m_format->streams[best]->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
  if (best < 0 || isCover) throw MediaError(MediaProblem::NoPictures, m_path);
  m_video = static_cast<std::size_t>(best);
  for (unsigned i = 0; i < m_format->nb_streams; ++i) {
    if (i != m_video) m_format->streams[i]->discard = AVDISCARD_ALL;
  }
}

bool MediaInput::HasAudio() const {
  for (unsigned i = 0; i < m_format->nb_streams; ++i) {
    if (m_format->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO) return true;
  }
  return false;
}

bool MediaInput::ReadPacket(AVPacket &packet) {
  while (true) {
    av_packet_unref(&packet);
    int const result = av_read_frame(m_format.get(), &packet);
    if (m_io.HasFailed()) {
      throw MediaError(MediaProblem::ReadFailed, m_path, libav::ErrorText(result));
    }
    if (result < 0) return false;
    if (packet.stream_index == static_cast<int>(m_video) && packet.size > 0) return true;
  }
}

bool MediaInput::Seek(std::int64_t timeStamp) {
  return av_seek_frame(m_format.get(), static_cast<int>(m_video), timeStamp,
                       AVSEEK_FLAG_BACKWARD) >= 0;
}

double MediaInput::Progress() const {
  if (m_io.Size() == 0) return 1.0;
  return static_cast<double>(avio_tell(&m_io.Context())) / static_cast<double>(m_io.Size());
}
