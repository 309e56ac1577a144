// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

// Readers of their own for what the demo writer writes: they share no code with it, nor with the program's
// extractor, so that a mistake on one side does not hide one on the other.

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace marvo::test {

inline std::string contents(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(in), {}};
}

template <typename Number>
Number numberAt(const std::string& bytes, std::size_t offset)
{
    Number value{};
    if (offset + sizeof value > bytes.size())
        throw std::runtime_error("a number past the end");
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

struct Chunk
{
    std::string id; ///< for a list "LIST" and its type
    std::size_t body = 0;
    std::size_t size = 0;
};

/// The chunks of a range, which they must fill exactly, each of an even size.
inline std::vector<Chunk> chunksOf(const std::string& bytes, std::size_t from, std::size_t to)
{
    std::vector<Chunk> out;
    while (from < to) {
        Chunk chunk{bytes.substr(from, 4), from + 8, numberAt<std::uint32_t>(bytes, from + 4)};
        if (chunk.size % 2 != 0 || chunk.body + chunk.size > to)
            throw std::runtime_error("bad size of chunk " + chunk.id);
        if (chunk.id == "LIST")
            chunk.id += bytes.substr(chunk.body, 4);
        from = chunk.body + chunk.size;
        out.push_back(chunk);
    }
    return out;
}

struct WalkedGps
{
    std::int64_t time = 0;
    int quality = 0;
    double latitude = 0;
    double longitude = 0;
    double speed = 0;
    char km = 0;
    std::string text;
};

struct WalkedG
{
    std::int64_t time = 0;
    int x = 0;
    int y = 0;
    int z = 0;
};

struct Walk
{
    bool result = false;
    bool budgetUsedUp = false;
    int wordsPassedOver = 0;
    std::vector<WalkedGps> gps;
    std::vector<WalkedG> g;
    std::vector<std::size_t> waiting; ///< G-sensor records since the fix before, for each fix
};

/// Walks the camera's data area as the camera's readers do, by position and budget alone.
inline Walk walkDataArea(const std::string& f)
{
    Walk walk;
    if (f.substr(0, 4) != "RIFF" || f.substr(8, 4) != "AVI ")
        return walk;
    std::size_t at = 12;
    while (at + 8 <= f.size() && f.compare(at, 4, "JUNK") != 0)
        at += 8 + numberAt<std::uint32_t>(f, at + 4);
    if (at + 8 > f.size())
        return walk;
    auto budget = numberAt<std::uint32_t>(f, at + 4);
    at += 8;
    std::size_t gAtLastFix = 0;
    while (true) {
        if (budget == 0) {
            walk.result = walk.budgetUsedUp = true;
            return walk;
        }
        if (at + 4 > f.size()) {
            walk.result = true;
            return walk;
        }
        const std::string tag = f.substr(at, 4);
        at += 4;
        if (tag == "0GDA") {
            if (at + 24 > f.size())
                return walk;
            walk.g.push_back({numberAt<std::int64_t>(f, at), numberAt<std::int32_t>(f, at + 8),
                              numberAt<std::int32_t>(f, at + 12), numberAt<std::int32_t>(f, at + 16)});
            at += 24;
            budget -= 24;
        } else if (tag == "0GPS") {
            if (at + 41 > f.size())
                return walk;
            const auto length = numberAt<std::int32_t>(f, at + 8);
            if (length < 0 || length > 512)
                return walk;
            walk.gps.push_back({numberAt<std::int64_t>(f, at), numberAt<std::int32_t>(f, at + 12),
                                numberAt<double>(f, at + 16), numberAt<double>(f, at + 24),
                                numberAt<double>(f, at + 32), f[at + 40],
                                f.substr(at + 41, static_cast<std::size_t>(length))});
            walk.waiting.push_back(walk.g.size() - gAtLastFix);
            gAtLastFix = walk.g.size();
            const char km = f[at + 40];
            at += 41 + static_cast<std::size_t>(length);
            at = km == '1' || km == '9' ? at + 7 : at - 1;
            budget -= 41 + static_cast<std::uint32_t>(length);
            if (at < f.size() && f[at] == 0) {
                ++at;
                budget -= 1;
            }
        } else {
            ++walk.wordsPassedOver;
        }
    }
}

} // namespace marvo::test
