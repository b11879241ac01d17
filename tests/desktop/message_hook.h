// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <vector>

#include <wx/modalhook.h>
#include <wx/msgdlg.h>

namespace framenote::test {

/// Answers message boxes instead of the user, and keeps what they said.
class MessageHook : public wxModalDialogHook {
public:
  MessageHook() { Register(); }

  void Answer(int answer) { m_answer = answer; }
  /// Of each box: what it says, and below that in smaller letters.
  std::vector<wxString> const &Texts() const { return m_texts; }

private:
  int Enter(wxDialog *dialog) override {
    auto const *const message = dynamic_cast<wxMessageDialog *>(dialog);
    if (message == nullptr) return wxID_NONE;
    m_texts.push_back(message->GetMessage() + "\n" + message->GetExtendedMessage());
    return m_answer;
  }

  int m_answer = wxID_OK;
  std::vector<wxString> m_texts;
};

}  // namespace framenote::test
