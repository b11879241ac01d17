// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "media/libav.h"
#include "media/video_writer.h"

struct CloseInput {
  void operator()(AVFormatContext *context) const { avformat_close_input(&context); }
};

/// The audio packets of a file that go into another one, with the time stamps that they have there.
///
/// A packet goes along if its sound begins in the wanted range, and not before the output's zero;
/// so ranges that follow each other share the packets without gap or overlap. What an encoder puts
/// before the first sound (its priming) has no sound of its own and stays with it, at negative time
/// stamps.
class AudioCopy {
public:
  /// Opens settings.audioFrom. Throws MediaError.
  /// `timeBase` is that of the settings.
  AudioCopy(VideoSettings const &settings, AVRational timeBase);

  /// The source's descriptive metadata.
  AVDictionary const *Metadata() const { return m_source->metadata; }
  /// Adds the streams to a file that has only its video yet. `path` is for messages. Throws
  /// MediaError, Unsupported, which names the codec that the container cannot carry.
  void AddStreams(AVFormatContext &output, std::string const &path);

  /// The next packet, with the output's stream and zero, in the time base that the packet names;
  /// nullptr at the end. It stays until Drop. Throws MediaError, ReadFailed.
  AVPacket *Next();
  void Drop() { m_queue.pop_front(); }

  /// Why sound is missing, or damaged, that the source should have; empty if none is.
  std::string const &Problem() const { return m_problem; }

private:
  struct Track {
    int source = 0;         ///< the stream's index in the source
    AVRational base{1, 1};  ///< of its time stamps there
    AVRational sampleBase{1, 1};
    std::int64_t origin = 0;                   ///< the output's zero, in samples
    std::int64_t soundBegin = AV_NOPTS_VALUE;  ///< where priming ends, in `base`
    std::int64_t next = 0;                     ///< where the last packet ends, in `base`
    std::int64_t rescaled = AV_NOPTS_VALUE;    ///< state of av_rescale_delta
    bool isStarted = false;                    ///< a packet has been seen
    bool isDone = false;                       ///< none is wanted any more
  };

  void Open();
  void FindTracks();
  bool SkipToBegin();
  void QueueFirstPackets();
  bool QueueNext();
  bool ReadPacket(AVPacket &packet);
  void QueueIfWanted(Track &track, libav::Owned<AVPacket> packet);
  double SoundBegin(Track &track, AVPacket const &packet) const;
  void Retime(Track &track, AVPacket &packet) const;

  /// The video comes first in each file that is written.
  static constexpr unsigned int kFirstAudioStream = 1;

  std::string m_path;
  double m_begin;
  double m_end;
  std::int64_t m_origin;
  AVRational m_originBase;
  std::unique_ptr<AVFormatContext, CloseInput> m_source;
  std::vector<Track> m_tracks;
  std::deque<libav::Owned<AVPacket>> m_queue;
  bool m_isAtStart = true;  ///< reading began at the source's first packet
  std::string m_problem;
};
