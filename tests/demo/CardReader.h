// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

// A reader of its own for what the demo writer writes: it shares no code with it, so that a mistake on one
// side does not hide one on the other.

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

} // namespace marvo::test
