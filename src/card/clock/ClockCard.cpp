// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/clock/ClockCard.h"

#include "card/CardLayout.h"
#include "card/ClockFile.h"
#include "card/disks/Disks.h"

namespace marvo {

ClockCard findClockCard(const Disks& disks)
{
    const auto entities = disks.usbDiskEntities();
    ClockCard card;
    if (const auto volume = findUSBVolumeWithFile(entities, clockFileName)) {
        card.clockFile = volume->rootFile(clockFileName);
        card.folder = volume->mountedURL();
    } else if (const auto found = findCardDiskEntity(entities)) {
        card.folder = found->mountedURL();
    }
    return card;
}

} // namespace marvo
