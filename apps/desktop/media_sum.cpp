// SPDX-License-Identifier: MIT
#include "desktop/media_sum.h"

#include <utility>

#include "media/media_error.h"
#include "media/sha256.h"

MediaSum::MediaSum(std::string path)
    : m_thread([this, path = std::move(path)] {
        try {
          m_sum = Sha256OfFile(path, [this](double) { return !m_isGivenUp; });
        } catch (MediaError const &) {
          m_sum.clear();  // a project without a sum says that it is not known
        }
        m_isReady = true;
      }) {}

MediaSum::~MediaSum() {
  m_isGivenUp = true;
  if (m_thread.joinable()) m_thread.join();
}

std::string const &MediaSum::Wait() {
  if (m_thread.joinable()) m_thread.join();
  return m_sum;
}
