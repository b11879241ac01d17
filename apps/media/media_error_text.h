// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

#include "media/media_error.h"

/// What is wrong, in the user's language and with the file's name. Bytes of a path that are no
/// UTF-8 show as octal numbers.
wxString MediaErrorText(MediaError const &error);
