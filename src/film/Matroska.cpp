// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/Matroska.h"

#include <bit>

namespace marvo {

void MatroskaWriter::bigEndian(std::uint64_t value, int width)
{
    for (int shift = (width - 1) * 8; shift >= 0; shift -= 8)
        m_bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

void MatroskaWriter::identifier(std::uint32_t id) { bigEndian(id, (std::bit_width(id) + 7) / 8); }

void MatroskaWriter::wideSize(std::uint64_t size) { bigEndian(size | std::uint64_t{1} << 56, 8); }

void MatroskaWriter::shortSize(std::uint32_t size) { bigEndian(size | std::uint32_t{1} << 28, 4); }

void MatroskaWriter::raw(std::span<const std::uint8_t> bytes)
{
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

void MatroskaWriter::number(std::uint32_t id, std::uint64_t value)
{
    identifier(id);
    m_bytes.push_back(0x88);
    bigEndian(value, 8);
}

void MatroskaWriter::floating(std::uint32_t id, double value)
{
    number(id, std::bit_cast<std::uint64_t>(value));
}

void MatroskaWriter::text(std::uint32_t id, std::string_view value)
{
    identifier(id);
    wideSize(value.size());
    m_bytes.insert(m_bytes.end(), value.begin(), value.end());
}

void MatroskaWriter::binary(std::uint32_t id, std::span<const std::uint8_t> value)
{
    identifier(id);
    wideSize(value.size());
    raw(value);
}

void MatroskaWriter::master(std::uint32_t id, const MatroskaWriter& body) { binary(id, body.m_bytes); }

} // namespace marvo
