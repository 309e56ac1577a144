// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// Whether this machine could make a sound: a sound card, a sound server, or a way the user has set up.
/// Looked at anew each time, since headphones come and go.
bool mayHaveSoundOutput();

} // namespace marvo
