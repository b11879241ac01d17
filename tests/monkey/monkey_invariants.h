// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "talbase/json_value.h"

class AnnotationTool;
class IAnnotationObject;

namespace framenote::test {

class Monkey;

/// What holds after every step, whatever the step was. Each check gives an empty text, or says what
/// is wrong.
class MonkeyInvariants {
public:
  explicit MonkeyInvariants(Monkey &monkey);
  ~MonkeyInvariants();

  /// All that can be checked without doing anything to the window.
  std::string Check();
  /// Undoes and redoes a step, twice: a step that is redone gives what there was. Does nothing
  /// while a gesture lasts.
  std::string CheckUndo();

private:
  std::string checkFlags() const;
  std::string checkState() const;
  std::string checkDocument();
  std::string checkTimeline() const;
  std::string checkList() const;
  std::string compareObjects(wxJSONValue const &written, wxJSONValue const &read) const;
  std::string stepDifference(wxJSONValue const &shown) const;
  bool mayBeLeftOut(wxJSONValue const &written, int index) const;
  wxJSONValue documentAfter(char const *label);
  bool isGestureRunning() const;

  Monkey &m_monkey;
  std::shared_ptr<AnnotationTool> m_reader;  ///< reads what the window's tool has written
  wxJSONValue m_checked;                     ///< the document of the last check
};

/// Collects what wxWidgets and GLib have to complain about.
class Complaints {
public:
  Complaints();
  Complaints(Complaints const &) = delete;
  Complaints &operator=(Complaints const &) = delete;
  ~Complaints();
  /// Those since the last call.
  std::vector<std::string> Take();
};

/// While it lives nothing is collected: a file dialog that is not shown to its end makes GTK
/// complain.
class NoComplaints {
public:
  NoComplaints();
  NoComplaints(NoComplaints const &) = delete;
  NoComplaints &operator=(NoComplaints const &) = delete;
  ~NoComplaints();
};

/// The memory that the process has in use, in megabytes.
double ResidentMegabytes();

}  // namespace framenote::test
