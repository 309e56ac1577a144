// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/MachineDisks.h"

#include "card/disks/FolderDisks.h"
#include "card/disks/UDisks2Disks.h"

namespace marvo {

std::unique_ptr<Disks> machineDisks(const std::string& cardFolder)
{
    if (cardFolder.empty())
        return std::make_unique<UDisks2Disks>();
    return std::make_unique<FolderDisks>(cardFolder);
}

} // namespace marvo
