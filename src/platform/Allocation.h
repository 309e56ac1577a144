// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// Has the memory of ended recordings go back to the system, where the C library would keep it. To be called
/// once, before there are other threads.
void returnFreedMemory();

} // namespace marvo
