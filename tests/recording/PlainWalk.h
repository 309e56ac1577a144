// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace marvo::test {

/// The walk as plain arithmetic on a file that is in memory: slow, unshared with the product, and there to
/// tell what a walk of any bytes must give.
struct PlainWalk
{
    bool result = false;
    std::vector<std::int64_t> readings;                            ///< times
    std::vector<std::pair<std::int64_t, std::int32_t>> gpsSamples; ///< times and text lengths of the headers
    std::size_t sentences = 0;

    explicit PlainWalk(const std::string& file) : m_file(file) { result = run(); }

private:
    bool has(std::uint64_t at, std::uint64_t count) const
    {
        return at <= m_file.size() && m_file.size() - at >= count;
    }
    std::uint64_t number(std::uint64_t at, int width) const
    {
        std::uint64_t value = 0;
        for (int i = width; i-- > 0;)
            value = value * 256 + static_cast<unsigned char>(m_file[at + static_cast<std::uint64_t>(i)]);
        return value;
    }
    bool is(std::uint64_t at, const char* tag) const { return m_file.compare(at, 4, tag) == 0; }

    bool run()
    {
        if (!has(0, 12) || !is(0, "RIFF") || !is(8, "AVI "))
            return false;
        std::uint64_t p = 12;
        for (; has(p, 4) && !is(p, "JUNK"); p += 8 + number(p + 4, 4)) {
            if (!has(p, 8))
                return false;
        }
        if (!has(p, 8))
            return false;
        auto budget = static_cast<std::uint32_t>(number(p + 4, 4));
        p += 8;
        while (budget != 0) {
            if (!has(p, 4))
                return true;
            const bool gps = is(p, "0GPS");
            const bool reading = is(p, "0GDA");
            p += 4;
            if (reading) {
                if (!has(p, 24))
                    return false;
                readings.push_back(static_cast<std::int64_t>(number(p, 8)));
                p += 24;
                budget -= 24;
            } else if (gps && !gpsRecord(p, budget)) {
                return false;
            }
        }
        return true;
    }

    bool gpsRecord(std::uint64_t& p, std::uint32_t& budget)
    {
        if (!has(p, 41))
            return false;
        const auto time = static_cast<std::int64_t>(number(p, 8));
        const auto length = static_cast<std::int32_t>(number(p + 8, 4));
        const char KM = m_file[p + 40];
        if (length < 0 || length > 512)
            return false;
        p += 41;
        const std::string text = m_file.substr(p, static_cast<std::size_t>(length));
        std::string piece;
        for (const char c : text) {
            if (c == '$')
                piece.clear();
            if (c != '\n' && c != '\r' && c != '\0') {
                piece += c;
                continue;
            }
            sentences += piece.starts_with("$G") ? 1 : 0;
            piece.clear();
        }
        p += static_cast<std::uint64_t>(length);
        p = KM == '1' || KM == '9' ? p + 7 : p - 1;
        budget -= 41 + static_cast<std::uint32_t>(length);
        if (has(p, 1) && m_file[p] == '\0') {
            ++p;
            --budget;
        }
        while (gpsSamples.size() < readings.size()) {
            gpsSamples.emplace_back(time, length);
            if (readings[gpsSamples.size() - 1] / 100 >= time / 100)
                break;
        }
        return true;
    }

    const std::string& m_file;
};

} // namespace marvo::test
