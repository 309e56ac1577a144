// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// Returns the memory of ended recordings to the system, which the C library would keep. Call it once,
/// before any other thread starts.
void returnFreedMemory();

} // namespace marvo
