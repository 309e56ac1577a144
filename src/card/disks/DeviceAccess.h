// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/BlockDevices.h"
#include "card/TKUSBDiskEntity.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace marvo {

/// Which card in which reader. All of it must be unchanged when the card is written.
struct DeviceIdentity
{
    std::string path;           ///< "/dev/sdb1"
    std::uint64_t number = 0;   ///< of the device
    std::uint64_t size = 0;     ///< bytes
    std::uint64_t sequence = 0; ///< diskSequence(): a card that was out meanwhile has another one
    QString drive;              ///< what the disk service calls it
    QString serial;             ///< of the drive

    bool operator==(const DeviceIdentity&) const = default;
};

/// A volume that may be formatted.
struct FormattableVolume
{
    TKUSBDiskEntity entity;
    DeviceIdentity identity;
    unsigned sectorSize = 512; ///< bytes, of the medium
};

struct DeviceError
{
    enum class Kind {
        Refused,        ///< the password was wrong, or this user may not
        Dismissed,      ///< the question for the password was closed
        NobodyAsks,     ///< no program is there to ask for the password
        WriteProtected, ///< the medium takes no writing
        Busy,           ///< a program is using the volume
        Gone,           ///< the device is not there any more
        Other
    };
    Kind kind = Kind::Other;
    QString message; ///< the system's own words
};

/// A descriptor that closes itself.
class DeviceDescriptor
{
public:
    explicit DeviceDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    DeviceDescriptor(DeviceDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1))
    {}
    DeviceDescriptor& operator=(DeviceDescriptor&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~DeviceDescriptor();

    int get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

/// What formatting needs of the machine's disks. Every operation waits for the system, some for the user; all
/// may be called from any thread. A volume is named by its entry's key.
class DeviceAccess
{
public:
    virtual ~DeviceAccess() = default;

    /// The mounted volumes on cards in USB readers that are no part of the running system, no external hard
    /// disks. An entry is writable when its medium is, even if the system has mounted it read-only because of
    /// damage.
    virtual std::vector<FormattableVolume> formattableVolumes() const = 0;
    /// False when the last list is empty only because the system did not answer.
    virtual bool isAnswering() const { return true; }

    /// What the device is now, whether or not it is mounted; none when it is gone, or no longer one that may
    /// be formatted.
    virtual std::optional<DeviceIdentity> identify(const QString& key) const = 0;

    /// Unmounts the volume, and with a whole medium everything on it. A volume in use is tried for a few
    /// seconds; for one that another user has mounted the system asks for the administrator's password. One
    /// that is not mounted is no error.
    virtual std::optional<DeviceError> unmount(const TKUSBDiskEntity& volume) = 0;

    /// Opens the device for reading and writing for this program alone, for which the system asks the user
    /// for the administrator's password as long as it takes. Until it is answered nothing else can be done
    /// with the volume.
    virtual std::optional<DeviceError> openForWriting(const QString& key, DeviceDescriptor& opened) = 0;

    /// Mounts the volume after a change of its content: waits some seconds until the system has noticed the
    /// file system of that identifier ("1A2B-3C4D"); with an empty one it takes at once whatever there is. A
    /// volume that is mounted already is no error. Without an error it is listed from then on.
    virtual std::optional<DeviceError> mount(const QString& key, const QString& fileSystemId) = 0;
};

} // namespace marvo
