// SPDX-License-Identifier: MIT
#include "media/sha256.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <system_error>
#include <vector>

#include <openssl/evp.h>

#include "media/file_stamp.h"
#include "media/media_error.h"
#include "media/system_file.h"

namespace {

constexpr std::size_t kChunkBytes = std::size_t{1} << 20;

struct CloseFile {
  void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void ThrowSystemError(std::string const &path, int error) {
  MediaProblem const problem = error == ENOENT ? MediaProblem::NotFound : MediaProblem::ReadFailed;
  throw MediaError(problem, path, std::generic_category().message(error));
}

/// OpenSSL fails only without memory or without the algorithm; a sum must not seem to be made then.
void Require(int result) {
  if (result != 1) throw std::runtime_error("SHA-256 is not available");
}

struct OpenedFile {
  File file;
  std::uintmax_t byteCount;
};

OpenedFile OpenRegularFile(std::string const &path) {
  // Asked before opening: opening a pipe would wait for somebody to write into it.
  FileStamp const stamp = StampOf(path);
  File file(system_file::OpenToRead(path));
  if (!file) ThrowSystemError(path, errno);
  return {std::move(file), stamp.size};
}

}  // namespace

struct Sha256::State {
  struct Free {
    void operator()(EVP_MD_CTX *context) const { EVP_MD_CTX_free(context); }
  };
  std::unique_ptr<EVP_MD_CTX, Free> context{EVP_MD_CTX_new()};
};

Sha256::Sha256() : m_state(std::make_unique<State>()) {
  if (!m_state->context) throw std::bad_alloc();
  Require(EVP_DigestInit_ex(m_state->context.get(), EVP_sha256(), nullptr));
}

Sha256::~Sha256() = default;

void Sha256::Add(void const *bytes, std::size_t count) {
  Require(EVP_DigestUpdate(m_state->context.get(), bytes, count));
}

std::string Sha256::Finish() {
  unsigned char sum[EVP_MAX_MD_SIZE];
  unsigned int count = 0;
  Require(EVP_DigestFinal_ex(m_state->context.get(), sum, &count));
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (unsigned int i = 0; i < count; ++i) {
    text += kDigits[sum[i] >> 4];
    text += kDigits[sum[i] & 15];
  }
  return text;
}

std::string Sha256OfBytes(void const *bytes, std::size_t count) {
  Sha256 sum;
  sum.Add(bytes, count);
  return sum.Finish();
}

std::string Sha256OfFile(std::string const &path, std::function<bool(double)> const &progress) {
  OpenedFile const opened = OpenRegularFile(path);
  std::vector<unsigned char> chunk(kChunkBytes);
  Sha256 sum;
  std::uintmax_t done = 0;
  auto const isWanted = [&](double part) { return !progress || progress(part); };
  if (!isWanted(0.0)) throw MediaError(MediaProblem::Cancelled, path);
  while (std::size_t const count = std::fread(chunk.data(), 1, chunk.size(), opened.file.get())) {
    sum.Add(chunk.data(), count);
    done += count;
    // A file that grows meanwhile must not report more than the whole.
    double const part = done < opened.byteCount
                            ? static_cast<double>(done) / static_cast<double>(opened.byteCount)
                            : 1.0;
    if (!isWanted(part)) throw MediaError(MediaProblem::Cancelled, path);
  }
  if (std::ferror(opened.file.get()) != 0) ThrowSystemError(path, errno);
  return sum.Finish();
}
