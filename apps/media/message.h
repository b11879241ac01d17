// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <wx/string.h>

/// The text with a value for each "%s" in turn, or for "%1$s" where a language orders them anew;
/// "%%" is one per cent sign. A place without a value stays as it is: no translation makes a
/// program read what is not there.
std::string FilledText(std::string const &text, std::vector<std::string> const &values);
/// The same of a text that was looked up; the result is UTF-8 but for the bytes of the values.
std::string FilledText(wxString const &text, std::vector<std::string> const &values);

/// A text of the catalogue that is not looked up yet, so that reports and logs have it in English
/// and people in their language. May be made and copied on any thread.
class Message {
public:
  /// `key` is the English text, marked by wxTRANSLATE where it stands. What a system or a decoder
  /// says is no key, and is the same in every language. Values may be bytes of the file system.
  Message(std::string key = {}, std::vector<std::string> values = {});
  Message(char const *key);

  bool IsEmpty() const { return m_key.empty(); }
  std::string English() const;
  /// In the user's language. Belongs to the GUI thread.
  std::string Translated() const;

private:
  std::string m_key;
  std::vector<std::string> m_values;
};
