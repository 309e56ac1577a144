// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/TKUSBDiskEntity.h"

#include "card/ByteSize.h"
#include "card/CardLayout.h"
#include "texts/DisplayText.h"

#include <algorithm>
#include <array>
#include <functional>
#include <sys/stat.h>

namespace marvo {

TKUSBDiskEntity::TKUSBDiskEntity(QString volumeName, std::string mountedURL, std::string deviceFilePath,
                                 std::optional<QString> deviceModel, std::uint64_t volumeSize, bool writable,
                                 bool mediaWhole, QString key)
    : m_volumeName(std::move(volumeName)),
      m_mountedURL(std::move(mountedURL)),
      m_deviceFilePath(std::move(deviceFilePath)),
      m_deviceModel(std::move(deviceModel)),
      m_volumeSize(volumeSize),
      m_writable(writable),
      m_mediaWhole(mediaWhole),
      m_key(std::move(key))
{}

QString TKUSBDiskEntity::displayString() const
{
    const QString model = m_deviceModel ? QLatin1Char('<') + *m_deviceModel + QLatin1Char('>') : QString();
    return displayText(QStringLiteral("[%1] %2 %3")
                           .arg(QString::fromStdString(byteSizeString(m_volumeSize)), m_volumeName, model));
}

std::string TKUSBDiskEntity::rootFile(std::string_view name) const
{
    std::string path = m_mountedURL;
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

bool TKUSBDiskEntity::holdsFile(std::string_view name) const
{
    struct stat status = {};
    return stat(rootFile(name).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

QString cardVolumeName() { return QString::fromLatin1(cardVolumeLabel); }

std::optional<TKUSBDiskEntity> findCardDiskEntity(const std::vector<TKUSBDiskEntity>& usbDiskEntities)
{
    using Rule = std::function<bool(const TKUSBDiskEntity&)>;
    const Rule isCard = [](const auto& disk) { return disk.volumeName() == cardVolumeName(); };
    const Rule isWritable = &TKUSBDiskEntity::writable;
    const std::array<Rule, 5> rules{
        [&](const auto& disk) {
            return isCard(disk) && isWritable(disk) && disk.holdsFile(settingsFileName);
        },
        [&](const auto& disk) { return isCard(disk) && isWritable(disk); },
        isCard,
        isWritable,
        [](const auto&) { return true; },
    };
    for (const Rule& rule : rules) {
        const auto found = std::find_if(usbDiskEntities.begin(), usbDiskEntities.end(), rule);
        if (found != usbDiskEntities.end())
            return *found;
    }
    return std::nullopt;
}

std::optional<TKUSBDiskEntity> findUSBVolumeWithFile(const std::vector<TKUSBDiskEntity>& usbDiskEntities,
                                                     std::string_view fileName)
{
    const auto found = std::find_if(usbDiskEntities.begin(), usbDiskEntities.end(),
                                    [&](const auto& disk) { return disk.holdsFile(fileName); });
    return found == usbDiskEntities.end() ? std::nullopt : std::optional(*found);
}

} // namespace marvo
