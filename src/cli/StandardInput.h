// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/FileSource.h"

#include <memory>
#include <string>

namespace marvo::cli {

/// Standard input as a file that can be read more than once. What comes through a pipe is put into a
/// temporary file without a name first, so that its size is no matter of memory.
struct StandardInput
{
    std::unique_ptr<FileSource> source; ///< nullptr when there is none
    std::string error;                  ///< why

    static StandardInput open();
};

} // namespace marvo::cli
