// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

#include <wx/string.h>

/// What was thrown, for the user; empty if it was the user who stopped it.
wxString FailureText(std::exception_ptr const &failure);
