// SPDX-License-Identifier: MIT
#pragma once

/// From now on, what asks the program to end (the interrupt key, a closed terminal, a polite
/// request of the system) is noted instead, so that a burn can clean up after itself. Signals that
/// the caller had ignored stay so.
void NoteStopSignals();

/// Whether the program was asked to end. Any thread.
bool IsStopAskedFor();
