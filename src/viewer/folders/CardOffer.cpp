// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/folders/CardOffer.h"

#include "card/disks/Disks.h"
#include "card/TKUSBDiskEntity.h"
#include "workers/ObjectLink.h"

#include <filesystem>
#include <utility>

namespace marvo {

namespace {

bool looksLikeTheCard(const TKUSBDiskEntity& volume)
{
    if (volume.volumeName() == cardVolumeName() || volume.holdsFile("config.bin"))
        return true;
    for (const char* folder : {"AlwaysMovie", "EventMovie", "MotionMovie"}) {
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
    return card ? std::optional(OfferedCard{card->volumeName(), card->mountedURL()}) : std::nullopt;
}

CardOffer::CardOffer(Disks* disks) : m_disks(disks), m_link(std::make_shared<ObjectLink<CardOffer>>(this))
{
    if (m_disks)
        connect(m_disks, &Disks::volumesChanged, this, &CardOffer::look);
}

CardOffer::~CardOffer() { m_link->sever(); }

void CardOffer::look()
{
    if (!m_disks)
        return;
    m_workers.start([disks = m_disks, link = m_link, generation = ++m_generation] {
        link->post([found = findOfferedCard(*disks), generation](CardOffer& offer) {
            if (generation != offer.m_generation)
                return; // a newer look is under way
            const bool same =
                offer.m_card.has_value() == found.has_value() &&
                (!found || (offer.m_card->path == found->path && offer.m_card->name == found->name));
            offer.m_card = found;
            if (!same)
                Q_EMIT offer.cardChanged();
        });
    });
}

} // namespace marvo
