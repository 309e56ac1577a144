// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace marvo {

class Disks;

/// The machine's disks, as its disk service knows them; or, of a folder (a path as bytes) that stands for the
/// camera's card, that folder alone.
std::unique_ptr<Disks> machineDisks(const std::string& cardFolder);

} // namespace marvo
