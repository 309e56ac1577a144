// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace marvo::test {

/// The walk as plain arithmetic on a file that is in memory: slow, unshared with the product, and there to
/// tell what a walk of any bytes must give.
struct PlainWalk
{
    struct Reading
    {
        std::int64_t time;
        std::int32_t x, y, z;
    };
    struct Fix
    {
        std::int64_t time;
        double speed;
        char km;
        std::string text;
        std::size_t readingsBefore; ///< since the start
    };
    bool result = false;
    bool budgetUsedUp = false;
    std::vector<Reading> readings;
    std::vector<Fix> fixes;
    std::vector<std::pair<std::int64_t, std::int32_t>> gpsSamples; ///< times and text lengths of the headers
    std::size_t sentences = 0;

    explicit PlainWalk(const std::string& file) : m_file(file) { result = run(); }

private:
    bool has(std::uint64_t at, std::uint64_t count) const
    {
        return at <= m_file.size() && m_file.size() - at >= count;
    }
    template <typename Number>
    Number number(std::uint64_t at) const
    {
        Number value;
        std::memcpy(&value, m_file.data() + at, sizeof value);
        return value;
    }
    bool is(std::uint64_t at, const char* tag) const { return m_file.compare(at, 4, tag) == 0; }

    bool run()
    {
        if (!has(0, 12) || !is(0, "RIFF") || !is(8, "AVI "))
            return false;
        std::uint64_t p = 12;
        for (; has(p, 8) && !is(p, "JUNK"); p += 8)
            p += number<std::uint32_t>(p + 4);
        if (!has(p, 8))
            return false;
        auto budget = number<std::uint32_t>(p + 4);
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
                readings.push_back({number<std::int64_t>(p), number<std::int32_t>(p + 8),
                                    number<std::int32_t>(p + 12), number<std::int32_t>(p + 16)});
                p += 24;
                budget -= 24;
            } else if (gps && !gpsRecord(p, budget)) {
                return false;
            }
        }
        return budgetUsedUp = true;
    }

    bool gpsRecord(std::uint64_t& p, std::uint32_t& budget)
    {
        if (!has(p, 41))
            return false;
        const auto time = number<std::int64_t>(p);
        const auto length = number<std::int32_t>(p + 8);
        const char km = m_file[p + 40];
        if (length < 0 || length > 512)
            return false;
        const std::string text = m_file.substr(p + 41, static_cast<std::size_t>(length));
        fixes.push_back({time, number<double>(p + 32), km, text, readings.size()});
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
        p += 41 + static_cast<std::uint64_t>(length);
        p = km == '1' || km == '9' ? p + 7 : p - 1;
        budget -= 41 + static_cast<std::uint32_t>(length);
        if (has(p, 1) && m_file[p] == '\0') {
            ++p;
            --budget;
        }
        while (gpsSamples.size() < readings.size()) {
            gpsSamples.emplace_back(time, length);
            if (readings[gpsSamples.size() - 1].time / 100 >= time / 100)
                break;
        }
        return true;
    }

    const std::string& m_file;
};

} // namespace marvo::test
