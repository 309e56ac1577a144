// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/folders/CardOffer.h"

#include "card/CardLayout.h"
#include "card/disks/Disks.h"
#include "card/TKUSBDiskEntity.h"
#include "texts/DisplayText.h"

#include <filesystem>

namespace marvo {

namespace {

bool looksLikeTheCard(const TKUSBDiskEntity& volume)
{
    if (volume.volumeName() == cardVolumeName() || volume.holdsFile(settingsFileName))
        return true;
    for (const char* folder : recordingFolders) {
        std::error_code failed;
        if (std::filesystem::is_directory(volume.rootFile(folder), failed))
            return true;
    }
    return false;
}

} // namespace

std::optional<OfferedCard> findOfferedCard(const Disks& disks)
{
    std::vector<TKUSBDiskEntity> volumes = disks.usbDiskEntities();
    std::erase_if(volumes, [](const TKUSBDiskEntity& volume) { return !looksLikeTheCard(volume); });
    const auto card = findCardDiskEntity(volumes);
    return card ? std::optional(OfferedCard{displayText(card->volumeName()), card->mountedURL()})
                : std::nullopt;
}

CardOffer::CardOffer(Disks* disks) : m_disks(disks)
{
    if (m_disks)
        connect(m_disks, &Disks::volumesChanged, this, &CardOffer::look);
}

void CardOffer::look()
{
    if (!m_disks)
        return;
    m_look.start([disks = m_disks](const LatestRun&) { return findOfferedCard(*disks); },
                 [this](const std::optional<OfferedCard>& found) {
                     if (found == m_card)
                         return;
                     m_card = found;
                     Q_EMIT cardChanged();
                 });
}

} // namespace marvo
