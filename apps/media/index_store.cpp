// SPDX-License-Identifier: MIT
#include "media/index_store.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>

#include "media/libav.h"

namespace fs = std::filesystem;

namespace {

/// Head of the file; the digits are the version of what follows. All numbers have 8 bytes, the
/// lowest first:
///   libav's version | path: length, bytes | size, modified | time base: 2 | last duration |
///   seekable | frames: count, time stamps | key frames: count, numbers | sum of all before
constexpr std::string_view kMagic = "FNINDEX1";
constexpr std::size_t kNumber = 8;

/// FNV-1a with 64 bits; against accidents, not against forgery.
std::uint64_t SumOf(std::string_view bytes) {
  std::uint64_t sum = 0xcbf29ce484222325U;
  for (char const byte : bytes) {
    sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
  }
  return sum;
}

void Put(std::string &bytes, std::uint64_t number) {
  for (std::size_t i = 0; i < kNumber; ++i) {
    bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFF));
  }
}

void Put(std::string &bytes, std::int64_t number) {
  Put(bytes, static_cast<std::uint64_t>(number));
}

/// Takes numbers from the front; once there are too few bytes, gives nothing but zeros.
class Numbers {
public:
  explicit Numbers(std::string_view bytes) : m_rest(bytes) {}

  std::uint64_t Next() {
    std::string_view const own = Bytes(kNumber);
    std::uint64_t number = 0;
    for (std::size_t i = own.size(); i-- > 0;) {
      number = number << 8 | static_cast<unsigned char>(own[i]);
    }
    return number;
  }
  std::int64_t NextSigned() { return static_cast<std::int64_t>(Next()); }
  /// How many numbers follow; fails for more than are there.
  std::size_t Count() {
    std::uint64_t const count = Next();
    if (count > m_rest.size() / kNumber) m_isShort = true;
    return m_isShort ? 0 : static_cast<std::size_t>(count);
  }
  std::string_view Bytes(std::uint64_t count) {
    if (count > m_rest.size()) m_isShort = true;
    if (m_isShort) return {};
    std::string_view const bytes = m_rest.substr(0, static_cast<std::size_t>(count));
    m_rest.remove_prefix(bytes.size());
    return bytes;
  }
  bool IsUsedUp() const { return !m_isShort && m_rest.empty(); }

private:
  std::string_view m_rest;
  bool m_isShort = false;
};

std::string Head(std::string const &path, FileStamp const &stamp) {
  std::string bytes(kMagic);
  // Another version may take a file apart in another way.
  Put(bytes, std::uint64_t{avformat_version()} << 32 | avcodec_version());
  Put(bytes, std::uint64_t{path.size()});
  bytes += path;
  Put(bytes, stamp.size);
  Put(bytes, stamp.modified);
  return bytes;
}

std::string ToBytes(std::string const &path, FileStamp const &stamp, VideoIndex const &index) {
  std::string bytes = Head(path, stamp);
  bytes.reserve(bytes.size() + (index.timeStamps.size() + index.keyFrames.size() + 8) * kNumber);
  Put(bytes, index.timeBase.numerator);
  Put(bytes, index.timeBase.denominator);
  Put(bytes, index.lastDuration);
  Put(bytes, std::uint64_t{index.isSeekable});
  Put(bytes, std::uint64_t{index.timeStamps.size()});
  for (std::int64_t const timeStamp : index.timeStamps) Put(bytes, timeStamp);
  Put(bytes, std::uint64_t{index.keyFrames.size()});
  for (std::uint32_t const key : index.keyFrames) Put(bytes, std::uint64_t{key});
  Put(bytes, SumOf(bytes));
  return bytes;
}

/// Whether the parts fit together as those of a built index do.
bool IsSound(VideoIndex const &index) {
  if (index.timeStamps.empty() || index.timeStamps.size() > kMostFrames) return false;
  for (std::size_t i = 1; i < index.timeStamps.size(); ++i) {
    if (index.timeStamps[i] <= index.timeStamps[i - 1]) return false;
  }
  for (std::size_t i = 0; i < index.keyFrames.size(); ++i) {
    if (index.keyFrames[i] >= index.timeStamps.size()) return false;
    if (i > 0 && index.keyFrames[i] <= index.keyFrames[i - 1]) return false;
  }
  return index.timeBase.Value() > 0.0 && index.lastDuration > 0;
}

std::optional<VideoIndex> FromBytes(std::string_view bytes, std::string_view head) {
  if (bytes.size() < head.size() + kNumber || bytes.substr(0, head.size()) != head) return {};
  std::string_view const summed = bytes.substr(0, bytes.size() - kNumber);
  if (Numbers(bytes.substr(summed.size())).Next() != SumOf(summed)) return {};
  Numbers numbers(summed.substr(head.size()));
  VideoIndex index;
  index.timeBase.numerator = numbers.NextSigned();
  index.timeBase.denominator = numbers.NextSigned();
  index.lastDuration = numbers.NextSigned();
  index.isSeekable = numbers.Next() != 0;
  index.timeStamps.resize(numbers.Count());
  for (std::int64_t &timeStamp : index.timeStamps) timeStamp = numbers.NextSigned();
  index.keyFrames.resize(numbers.Count());
  for (std::uint32_t &key : index.keyFrames) key = static_cast<std::uint32_t>(numbers.Next());
  if (!numbers.IsUsedUp() || !IsSound(index)) return {};
  return index;
}

/// One file has one name, from wherever it is opened.
std::string Whole(std::string const &path) {
  std::error_code error;
  fs::path const whole = fs::absolute(path, error).lexically_normal();
  return error ? path : whole.string();
}

}  // namespace

IndexStore::IndexStore(std::string folder) : m_folder(std::move(folder)) {}

std::string IndexStore::FileFor(std::string const &path) const {
  return (fs::path(m_folder) / (std::to_string(SumOf(path)) + ".index")).string();
}

std::optional<VideoIndex> IndexStore::Load(std::string const &path, FileStamp const &stamp) const {
  if (m_folder.empty()) return {};
  std::string const whole = Whole(path);
  std::ifstream file(FileFor(whole), std::ios::binary);
  std::string const bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return FromBytes(bytes, Head(whole, stamp));
}

void IndexStore::Save(std::string const &path, FileStamp const &stamp,
                      VideoIndex const &index) const {
  if (m_folder.empty()) return;
  std::string const whole = Whole(path);
  std::string const target = FileFor(whole);
  // A name of its own for each writer: two programs may open the same video.
  std::string const part = target + ".part-" + std::to_string(std::random_device()());
  std::error_code error;
  fs::create_directories(m_folder, error);
  std::string const bytes = ToBytes(whole, stamp, index);
  std::ofstream file(part, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (file) fs::rename(part, target, error);
  if (!file || error) fs::remove(part, error);
}
