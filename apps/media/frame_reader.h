// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "media/file_stamp.h"
#include "media/video_decoder.h"
#include "media/video_index.h"

/// Finds frames by number in an indexed video: reads on where that is enough, else begins at a key
/// frame before. Keeps frames around the last one wanted, so that stepping back within a group of
/// frames does not decode it anew each time.
class FrameReader {
public:
  /// `decoder` may stand anywhere; `stamp` is that of the file when it was indexed; of decoded
  /// frames up to `mostKeptBytes` are kept, and one in any case.
  FrameReader(std::unique_ptr<VideoDecoder> decoder, VideoIndex index, FileStamp const &stamp,
              std::size_t mostKeptBytes);

  VideoIndex const &Index() const { return m_index; }
  VideoDecoder const &Decoder() const { return *m_decoder; }

  /// The frame; valid until the next call. Throws MediaError like MediaSource::Read.
  /// REQUIRES: 0 <= frame < Index().FrameCount().
  DecodedFrame const &Read(std::int64_t frame);

private:
  bool CanReadOn(std::int64_t frame) const;
  bool IsTrusted(std::int64_t frame);
  bool StartBefore(std::int64_t frame, std::ptrdiff_t keysBack);
  bool DecodeUntil(std::int64_t wanted);
  void Find(std::int64_t frame);
  std::string const &Path() const { return m_decoder->Input().Path(); }
  void Keep(std::int64_t frame, DecodedFrame decoded, std::int64_t wanted);

  std::unique_ptr<VideoDecoder> m_decoder;
  VideoIndex m_index;
  FileStamp m_stamp;
  std::size_t m_mostKeptBytes;
  /// The frame that came out last since decoding began anew; -1 before any, or when it stopped.
  std::int64_t m_last = -1;
  bool m_isRunning = false;
  /// The key frame that, or one before it, must have come out before any frame is trusted.
  std::int64_t m_anchor = 0;
  bool m_isAnchored = false;
  bool m_sawEarlier = false;  ///< since decoding began anew, a trusted frame before the wanted one

  struct Kept {
    DecodedFrame decoded;
    std::size_t bytes = 0;
  };
  std::map<std::int64_t, Kept> m_kept;
  std::size_t m_keptBytes = 0;
};
