// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "framenote/annotation_tool.h"
#include "host/host_session.h"
#include "talbase/json_value.h"

namespace framenote::fuzz {

/// What holds after each call of a host, whatever came before. A call that breaks it is a defect,
/// and ends the process.
class HostInvariants {
public:
  HostInvariants();
  HostInvariants(HostInvariants const &) = delete;
  HostInvariants &operator=(HostInvariants const &) = delete;
  ~HostInvariants();

  /// A new session begins.
  void Begin();
  /// `call` has just returned; `isLast` in this session.
  void Check(HostSession &session, char const *call, bool isLast);

private:
  void checkFlags(AnnotationTool const &tool) const;
  void checkState(AnnotationTool const &tool) const;
  void checkRanges(AnnotationTool const &tool) const;
  void checkMirrors(AnnotationTool const &tool) const;
  void checkDocument(HostSession const &session) const;
  void checkLoading(HostSession &session);
  void compareLoaded(wxJSONValue const &written, wxJSONValue const &loaded) const;
  void require(bool holds, char const *what) const;
  [[noreturn]] void fail(std::string const &what) const;

  std::shared_ptr<AnnotationTool> m_reader;  ///< loads what the tool has written
  wxJSONValue m_lastLoaded;
  char const *m_call = "";
  int m_calls = 0;
};

}  // namespace framenote::fuzz
