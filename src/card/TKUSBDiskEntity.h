// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marvo {

/// A mounted removable volume on a USB device. Set once, read-only afterwards; may be passed between threads.
class TKUSBDiskEntity
{
public:
    TKUSBDiskEntity(QString volumeName, std::string mountedURL, std::string deviceFilePath,
                    std::optional<QString> deviceModel, std::uint64_t volumeSize, bool writable,
                    bool mediaWhole, QString key);

    const QString& volumeName() const { return m_volumeName; }
    /// The folder where the volume is mounted; bytes, since a label in it need not be UTF-8.
    const std::string& mountedURL() const { return m_mountedURL; }
    /// The device as the disk tools take it, such as "/dev/sdb1".
    const std::string& deviceFilePath() const { return m_deviceFilePath; }
    const std::optional<QString>& deviceModel() const { return m_deviceModel; }
    std::uint64_t volumeSize() const { return m_volumeSize; } ///< bytes of the medium
    bool writable() const { return m_writable; }
    bool mediaWhole() const
    {
        return m_mediaWhole;
    }                                            ///< the volume is the whole medium, not a partition of it
    const QString& key() const { return m_key; } ///< what the disk service calls the medium

    /// "[7.4 GB] MARVO <Card Reader>"; without a model the text ends after the name and a space.
    QString displayString() const;
    /// The path of a file at the root of the volume.
    std::string rootFile(std::string_view name) const;
    /// True when the root holds a file of that name (a folder of that name is none).
    bool holdsFile(std::string_view name) const;

private:
    QString m_volumeName;
    std::string m_mountedURL;
    std::string m_deviceFilePath;
    std::optional<QString> m_deviceModel;
    std::uint64_t m_volumeSize;
    bool m_writable;
    bool m_mediaWhole;
    QString m_key;
};

/// The name that the camera's card carries.
QString cardVolumeName();

/// The camera's card among the volumes: one named "MARVO" that can be written and holds "config.bin"; else a
/// writable "MARVO"; else any "MARVO"; else any writable volume; else the first. None when there is no
/// volume.
std::optional<TKUSBDiskEntity> findCardDiskEntity(const std::vector<TKUSBDiskEntity>& usbDiskEntities);

/// The first volume that holds a file of that name at its root.
std::optional<TKUSBDiskEntity> findUSBVolumeWithFile(const std::vector<TKUSBDiskEntity>& usbDiskEntities,
                                                     std::string_view fileName);

} // namespace marvo
