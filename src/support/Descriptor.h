// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace marvo {

/// A file descriptor that is closed with its owner.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        reset();
        m_number = std::exchange(other.m_number, -1);
        return *this;
    }

    explicit operator bool() const { return m_number >= 0; }
    int operator*() const { return m_number; }
    /// Hands the descriptor over to the caller.
    int release() { return std::exchange(m_number, -1); }
    void reset()
    {
        if (m_number >= 0)
            ::close(m_number);
        m_number = -1;
    }

private:
    int m_number = -1;
};

} // namespace marvo
