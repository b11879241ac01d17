// SPDX-License-Identifier: MIT
#include "media/message.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include <wx/translation.h>

namespace {

/// A place for a value, at a per cent sign.
struct Place {
  std::size_t length = 0;  ///< of the place's text; 0: it is none
  std::size_t number = 0;  ///< of the value, from 0 on
};

/// "%s" takes the value number `next`, "%2$s" the second one.
Place PlaceAt(std::string const &text, std::size_t at, std::size_t next) {
  if (text.compare(at, 2, "%s") == 0) return {2, next};
  bool const isNumbered = text.size() >= at + 4 && text[at + 1] >= '1' && text[at + 1] <= '9' &&
                          text.compare(at + 2, 2, "$s") == 0;
  if (!isNumbered) return {};
  return {4, static_cast<std::size_t>(text[at + 1] - '1')};
}

}  // namespace

std::string FilledText(std::string const &text, std::vector<std::string> const &values) {
  std::string filled;
  std::size_t next = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const sign = std::min(text.find('%', at), text.size());
    filled.append(text, at, sign - at);
    at = sign;
    if (at == text.size()) break;
    Place const place = PlaceAt(text, at, next);
    bool const isSign = text.compare(at, 2, "%%") == 0;
    if (place.length > 0 && place.number < values.size()) {
      filled += values[place.number];
      at += place.length;
      ++next;
    } else {
      filled += '%';
      at += isSign ? 2 : 1;
    }
  }
  return filled;
}

std::string FilledText(wxString const &text, std::vector<std::string> const &values) {
  return FilledText(text.utf8_string(), values);
}

Message::Message(std::string key, std::vector<std::string> values)
    : m_key(std::move(key)), m_values(std::move(values)) {}

Message::Message(char const *key) : m_key(key) {}

std::string Message::English() const {
  // What is no key may hold per cent signs of its own.
  return m_values.empty() ? m_key : FilledText(m_key, m_values);
}

std::string Message::Translated() const {
  wxString const key = wxString::FromUTF8(m_key);
  // Bytes that are no UTF-8 are no key either; the empty key is the catalogue's own description.
  if (key.empty()) return m_key;
  std::string const text = wxGetTranslation(key).utf8_string();
  return m_values.empty() ? text : FilledText(text, m_values);
}
