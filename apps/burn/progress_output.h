// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

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
  /// The files were written: ends the line of a terminal, or writes the last JSON line.
  void ShowDone(BurnOptions const &options, BurnResult const &result);

private:
  void endLine();

  BurnOptions::ProgressForm m_form;
  std::int64_t m_done = 0;  ///< as it was last told
  bool m_isLineOpen = false;
};
