// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/CarOfCard.h"

#include "archive/Archive.h"
#include "archive/ArchiveLayout.h"
#include "archive/CardCopy.h"
#include "settings/SettingFile.h"

#include <algorithm>

namespace marvo {

std::string proposedCar(const std::string& card, const std::string& archivePath)
{
    Archive archive;
    if (!archive.open(archivePath, Archive::Mode::Read)) {
        if (std::string car = archive.carOfCard(cardIdentifierOf(card)); !car.empty())
            return car;
    }
    _FILEDATA record;
    if (!readSettingFile(card + "/config.bin", record))
        return {};
    std::string number(record.carNumber.begin(), record.carNumber.end());
    number.resize(std::min(number.find('\0'), number.size()));
    return isCarName(number) ? number : std::string();
}

} // namespace marvo
