// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <string>
#include <thread>

/// The SHA-256 sum of a media file, worked out beside what the user does.
class MediaSum {
public:
  explicit MediaSum(std::string path);
  MediaSum(MediaSum const &) = delete;
  MediaSum &operator=(MediaSum const &) = delete;
  /// Gives up what is not finished.
  ~MediaSum();

  bool IsReady() const { return m_isReady; }
  /// Waits for the sum; empty if the file cannot be read.
  std::string const &Wait();

private:
  std::string m_sum;
  std::atomic<bool> m_isReady{false};
  std::atomic<bool> m_isGivenUp{false};
  std::thread m_thread;  // the last member: it works on the others
};
