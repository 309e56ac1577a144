// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ByteReader.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace marvo {

/// The start of a WAVEFORMATEX, as an AVI file has it of its sound.
struct WaveFormat
{
    std::uint16_t tag = 0;
    std::uint16_t channels = 0;
    std::uint32_t samplesPerSecond = 0;
    std::uint16_t blockAlign = 1;
    std::uint16_t bits = 0;

    explicit WaveFormat(const std::vector<std::uint8_t>& format)
    {
        ByteReader reader(format.data(), format.size());
        tag = reader.littleEndian<std::uint16_t>();
        channels = reader.littleEndian<std::uint16_t>();
        samplesPerSecond = reader.littleEndian<std::uint32_t>();
        reader.skip(4);
        blockAlign = std::max<std::uint16_t>(reader.littleEndian<std::uint16_t>(), 1);
        bits = reader.littleEndian<std::uint16_t>();
    }
};

/// The start of a BITMAPINFOHEADER, as an AVI file has it of its pictures.
struct BitmapFormat
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    explicit BitmapFormat(const std::vector<std::uint8_t>& format)
    {
        ByteReader reader(format.data(), format.size());
        reader.skip(4);
        width = reader.littleEndian<std::uint32_t>();
        height = reader.littleEndian<std::uint32_t>();
        if (height > 0x7FFF'FFFFU) // a picture stored from the top has a negative height
            height = 0U - height;
    }
};

} // namespace marvo
