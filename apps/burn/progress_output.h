// SPDX-License-Identifier: MIT
#pragma once

#include "burn/burn_options.h"
#include "project/burn_job.h"

/// Tells a terminal, or a program that watches, how far a burn is.
class ProgressOutput {
public:
  explicit ProgressOutput(BurnOptions::ProgressForm form);
  ProgressOutput(ProgressOutput const &) = delete;
  ProgressOutput &operator=(ProgressOutput const &) = delete;
  /// Ends the line of a terminal.
  ~ProgressOutput();

  void Show(BurnProgress const &progress);
  /// The last JSON line: the files were written.
  void ShowDone(BurnOptions const &options, BurnResult const &result);

private:
  BurnOptions::ProgressForm m_form;
  bool m_isLineOpen = false;
};
