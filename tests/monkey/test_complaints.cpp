// SPDX-License-Identifier: MIT
#include <glib.h>
#include <gtest/gtest.h>
#include <wx/log.h>

#include "monkey/monkey_invariants.h"

namespace framenote::test {

namespace {

TEST(Complaints, AreThoseOfAllThatIsBelowTheProgram) {
  Complaints complaints;
  wxLogWarning("of wxWidgets");
  g_log("Gtk", G_LOG_LEVEL_CRITICAL, "of a check");
  g_log("Gtk", G_LOG_LEVEL_MESSAGE, "no complaint");
  g_log_structured("Gtk", G_LOG_LEVEL_WARNING, "MESSAGE", "of its own accord");
  {
    NoComplaints const quiet;
    g_log("Gtk", G_LOG_LEVEL_CRITICAL, "not wanted");
  }
  EXPECT_EQ(complaints.Take(), (std::vector<std::string>{"of wxWidgets", "Gtk: of a check",
                                                         "Gtk: of its own accord"}));
  EXPECT_TRUE(complaints.Take().empty());
}

}  // namespace

}  // namespace framenote::test
