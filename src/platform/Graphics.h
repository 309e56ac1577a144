// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// Whether the kernel knows of a graphics processor. One that the machine has need not be one that OpenGL can
/// use, but without one OpenGL need not be asked.
bool mayHaveGraphicsProcessor();

/// Whether the program runs with the administrator's rights.
bool isAdministrator();

} // namespace marvo
