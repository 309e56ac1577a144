// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// The interface languages there are string tables for.
enum class InterfaceLanguage { English, Korean };

} // namespace marvo
