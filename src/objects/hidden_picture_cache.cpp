// SPDX-License-Identifier: MIT
#include "objects/hidden_picture_cache.h"

#include <future>
#include <system_error>

#include "objects/picture_pixels.h"

namespace framenote {

HiddenPictures::HiddenPictures(PixelView const &picture, int strength)
    : m_size(picture.width, picture.height) {
  auto const make = [&](HideEffect effect) {
    return std::make_unique<HiddenPicture const>(picture, effect, strength);
  };
  std::future<std::unique_ptr<HiddenPicture const>> blurred;
  try {
    blurred = std::async(std::launch::async, make, HideEffect::Blur);
  } catch (std::system_error const &) {
    // The machine has no thread left: one after the other.
    m_blurred = make(HideEffect::Blur);
  }
  m_pixelated = make(HideEffect::Pixelation);
  if (blurred.valid()) m_blurred = blurred.get();
}

void HiddenPictureCache::SetPicture(wxImage const &picture) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  m_pixels = picture.IsOk() ? picture.GetData() : nullptr;
  m_entries.clear();
  ++m_number;
}

std::shared_ptr<HiddenPictures const> HiddenPictureCache::Get(wxImage const &picture,
                                                              int strength) {
  if (picture.GetData() != m_pixels) return make(picture, strength);
  PixelView const view = PixelsOf(picture);
  std::shared_ptr<Entry> const entry = entryOf(HiddenPicture::EffectiveStrength(view, strength));
  std::lock_guard<std::mutex> const lock(entry->mutex);
  std::shared_ptr<HiddenPictures const> pictures = entry->pictures.lock();
  if (!pictures) {
    pictures = make(picture, strength);
    entry->pictures = pictures;
  }
  return pictures;
}

int HiddenPictureCache::RunCount() const {
  std::lock_guard<std::mutex> const lock(m_mutex);
  return m_runs;
}

std::shared_ptr<HiddenPictures const> HiddenPictureCache::make(wxImage const &picture,
                                                               int strength) {
  {
    std::lock_guard<std::mutex> const lock(m_mutex);
    ++m_runs;
  }
  return std::make_shared<HiddenPictures const>(PixelsOf(picture), strength);
}

std::shared_ptr<HiddenPictureCache::Entry> HiddenPictureCache::entryOf(int strength) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  std::shared_ptr<Entry> &entry = m_entries[strength];
  if (!entry) entry = std::make_shared<Entry>();
  return entry;
}

}  // namespace framenote
