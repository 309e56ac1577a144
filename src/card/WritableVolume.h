// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ByteSource.h"

#include <system_error>

namespace marvo {

/// A volume as plain bytes: a device that has been opened for writing, or in a test one that fails half way.
class WritableVolume : public ByteSource
{
public:
    /// Writes all of the bytes or gives the system's error.
    virtual std::error_code writeAt(std::uint64_t offset, std::span<const std::byte> bytes) = 0;
    /// Returns when all that was written is on the medium; what is read from then on comes from there.
    virtual std::error_code sync() = 0;
};

/// The volume behind an open descriptor, which stays the caller's.
class DescriptorVolume : public WritableVolume
{
public:
    explicit DescriptorVolume(int descriptor) : m_descriptor(descriptor) {}

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override;
    std::error_code writeAt(std::uint64_t offset, std::span<const std::byte> bytes) override;
    std::error_code sync() override;

private:
    int m_descriptor;
};

/// True for the errors of a write-protected medium.
bool isWriteProtection(const std::error_code& error);

} // namespace marvo
