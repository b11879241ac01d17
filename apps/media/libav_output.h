// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <new>
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

/// Frees what writing holds of libav.
struct OutputFree {
  void operator()(AVFormatContext *context) const { avformat_free_context(context); }
  void operator()(AVCodecContext *context) const { avcodec_free_context(&context); }
  void operator()(SwsContext *context) const { sws_freeContext(context); }
  void operator()(AVFrame *frame) const { av_frame_free(&frame); }
  void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

template <typename T>
using OutputOwned = std::unique_ptr<T, OutputFree>;

/// Takes over what libav has allocated. Throws std::bad_alloc if it has not.
template <typename T>
OutputOwned<T> OwnOutput(T *allocated) {
  if (!allocated) throw std::bad_alloc();
  return OutputOwned<T>(allocated);
}

/// Options on their way into libav, which takes out those that it knows.
class OutputOptions {
public:
  OutputOptions() = default;
  OutputOptions(OutputOptions const &) = delete;
  OutputOptions &operator=(OutputOptions const &) = delete;
  ~OutputOptions() { av_dict_free(&m_options); }

  void Set(char const *name, std::string const &value) {
    if (av_dict_set(&m_options, name, value.c_str(), 0) < 0) throw std::bad_alloc();
  }
  AVDictionary **Get() { return &m_options; }

private:
  AVDictionary *m_options = nullptr;
};

/// What libav, or the system through it, says about the error `code`.
inline std::string LibavReason(int code) {
  char text[AV_ERROR_MAX_STRING_SIZE] = "";
  av_strerror(code, text, sizeof text);
  return text;
}
