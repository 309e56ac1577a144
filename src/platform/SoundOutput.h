// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// Whether this machine can play sound: through a sound card, a sound server or the user's own set-up.
/// Checked each time, since headphones come and go.
bool mayHaveSoundOutput();

} // namespace marvo
