// SPDX-License-Identifier: MIT
#pragma once

/// Each frame takes pictures of some megabytes and gives them back. Some C libraries would return
/// them to the system each time, which then clears them anew: 30 ms a frame of 1920 x 1080,
/// measured. This keeps them; it does nothing where the C library has no such setting.
void KeepFreedMemory();
