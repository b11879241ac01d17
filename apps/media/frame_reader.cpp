// SPDX-License-Identifier: MIT
#include "media/frame_reader.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include <wx/translation.h>

#include "media/media_error.h"

namespace {

std::size_t BytesOf(AVFrame const &frame) {
  std::size_t bytes = sizeof frame;
  for (AVBufferRef const *buffer : frame.buf) {
    if (buffer) bytes += static_cast<std::size_t>(buffer->size);
  }
  return bytes;
}

}  // namespace

FrameReader::FrameReader(std::unique_ptr<VideoDecoder> decoder, VideoIndex index,
                         FileStamp const &stamp, std::size_t mostKeptBytes)
    : m_decoder(std::move(decoder)),
      m_index(std::move(index)),
      m_stamp(stamp),
      m_mostKeptBytes(mostKeptBytes) {}

DecodedFrame const &FrameReader::Read(std::int64_t frame) {
  auto kept = m_kept.find(frame);
  if (kept == m_kept.end()) {
    RequireUnchanged(Path(), m_stamp);
    Find(frame);
    kept = m_kept.find(frame);
  }
  return kept->second.decoded;
}

/// Decodes until the frame is kept. Throws MediaError: Damaged if it never comes out.
void FrameReader::Find(std::int64_t frame) {
  if (CanReadOn(frame) && DecodeUntil(frame)) return;
  // A seek may lead too far, or the decoder may need more than one key frame to get going. Going
  // back twice as far each time costs at most twice as much as decoding from the beginning.
  for (std::ptrdiff_t keysBack = 0;; keysBack = 2 * keysBack + 1) {
    bool const isFromKey = StartBefore(frame, keysBack);
    if (DecodeUntil(frame)) return;
    if (m_decoder->IsInDoubt()) {
      m_decoder->TakeCare();
      return Find(frame);
    }
    // Frames before it came out, from two beginnings, and it did not: it is not there.
    bool const isGivenUp = keysBack > 0 && m_sawEarlier;
    if (!isFromKey || isGivenUp) {
      throw MediaError(
          MediaProblem::Damaged, Path(),
          Message(wxTRANSLATE("frame %s cannot be decoded"), {std::to_string(frame + 1)}));
    }
  }
}

bool FrameReader::CanReadOn(std::int64_t frame) const {
  if (!m_isRunning || frame <= m_last) return false;
  if (!m_index.isSeekable) return true;
  std::ptrdiff_t const key = m_index.KeyBefore(frame);
  if (key < 0) return true;
  return m_index.keyFrames[static_cast<std::size_t>(key)] <= m_last + 1;
}

/// Begins at the key frame at or before `frame`, or `keysBack` ones earlier. False if that is the
/// beginning of the file.
bool FrameReader::StartBefore(std::int64_t frame, std::ptrdiff_t keysBack) {
  m_last = -1;
  m_sawEarlier = false;
  m_isRunning = false;
  std::ptrdiff_t const own = m_index.isSeekable ? m_index.KeyBefore(frame) : -1;
  std::ptrdiff_t const key = own - keysBack;
  // The first key frame is where the file begins.
  bool isFromKey = key > 0;
  if (isFromKey) {
    m_anchor = m_index.keyFrames[static_cast<std::size_t>(own)];
    std::uint32_t const start = m_index.keyFrames[static_cast<std::size_t>(key)];
    isFromKey = m_decoder->Seek(m_index.timeStamps[start]);
  }
  if (!isFromKey) m_decoder->Restart();
  m_isAnchored = !isFromKey;
  m_isRunning = true;
  return isFromKey;
}

/// Whether a frame that has come out is what decoding from the beginning would give. A seek may
/// lead into the middle of a group of frames, and a decoder may then make its pictures from
/// nothing: they are trusted from a key frame on, and only one that the wanted frame rests on.
bool FrameReader::IsTrusted(std::int64_t frame) {
  if (!m_isAnchored && frame <= m_anchor) {
    m_isAnchored = std::binary_search(m_index.keyFrames.begin(), m_index.keyFrames.end(), frame);
  }
  return m_isAnchored;
}

/// Decodes on until the frame is kept; false once a later one, the end or a doubt has come up.
bool FrameReader::DecodeUntil(std::int64_t wanted) {
  while (std::optional<DecodedFrame> decoded = m_decoder->Next()) {
    if (m_decoder->IsInDoubt()) break;
    std::int64_t const out =
        m_index.isSeekable ? m_index.FrameOf(decoded->frame->best_effort_timestamp) : m_last + 1;
    // What the index does not know is none of the frames; what is past the end was not there when
    // the frames were counted.
    if (out < 0 || out >= m_index.FrameCount()) continue;
    m_last = out;
    if (!IsTrusted(out)) {
      if (out > wanted) return false;
      continue;
    }
    if (out < wanted) m_sawEarlier = true;
    Keep(out, std::move(*decoded), wanted);
    if (out == wanted) return true;
    if (out > wanted) return false;
  }
  m_isRunning = false;
  return false;
}

/// Keeps a frame, and lets go of those furthest from the one that is wanted.
void FrameReader::Keep(std::int64_t frame, DecodedFrame decoded, std::int64_t wanted) {
  std::size_t const bytes = BytesOf(*decoded.frame);
  Kept &kept = m_kept[frame];
  m_keptBytes = m_keptBytes - kept.bytes + bytes;
  kept = {std::move(decoded), bytes};
  while (m_keptBytes > m_mostKeptBytes && m_kept.size() > 1) {
    auto const first = m_kept.begin();
    auto const last = std::prev(m_kept.end());
    auto const furthest = wanted - first->first >= last->first - wanted ? first : last;
    if (furthest->first == wanted) break;
    m_keptBytes -= furthest->second.bytes;
    m_kept.erase(furthest);
  }
}
