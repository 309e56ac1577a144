// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/Termination.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace marvo {

namespace {

enum class SlotState { Free, Filling, Noted };

struct Slot
{
    std::atomic<SlotState> state{SlotState::Free};
    int folder = -1;
    std::array<char, 32> name{};
};

// All of this is read by a signal's handler, which may neither wait for a lock nor allocate.
std::array<Slot, 64> slots;
std::atomic<int> pauses{0};
std::atomic<int> waitingSignal{0};
static_assert(std::atomic<SlotState>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

void removeNoted()
{
    for (const Slot& slot : slots) {
        if (slot.state == SlotState::Noted)
            ::unlinkat(slot.folder, slot.name.data(), 0);
    }
}

void onTermination(int number)
{
    const int error = errno;
    waitingSignal = number;
    // A pause that ends at the same time finds the signal waiting; one of both sees the other.
    if (pauses == 0) {
        removeNoted();
        struct sigaction usual = {};
        usual.sa_handler = SIG_DFL;
        ::sigaction(number, &usual, nullptr);
        ::kill(::getpid(), number);
    }
    errno = error;
}

void onWriteBeyondLimit(int) {}

} // namespace

void cleanUpOnTermination()
{
    struct sigaction handling = {};
    handling.sa_handler = onTermination;
    handling.sa_flags = SA_RESTART;
    constexpr std::array ends{SIGTERM, SIGINT, SIGHUP};
    for (const int number : ends)
        ::sigaddset(&handling.sa_mask, number);
    for (const int number : ends) {
        struct sigaction before = {};
        if (::sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
            ::sigaction(number, &handling, nullptr);
    }
    // A handler that does nothing, unlike SIG_IGN, is not passed on to programs that are started.
    struct sigaction nothing = {};
    nothing.sa_handler = onWriteBeyondLimit;
    nothing.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &nothing, nullptr);
}

void TemporaryNote::take(int folder, std::string_view name)
{
    drop();
    for (std::size_t i = 0; i < slots.size(); ++i) {
        Slot& slot = slots[i];
        SlotState expected = SlotState::Free;
        if (name.size() >= slot.name.size() ||
            !slot.state.compare_exchange_strong(expected, SlotState::Filling))
            continue;
        slot.folder = folder;
        *std::ranges::copy(name, slot.name.begin()).out = '\0';
        slot.state = SlotState::Noted;
        m_slot = static_cast<int>(i);
        return;
    }
}

void TemporaryNote::drop()
{
    if (m_slot >= 0)
        slots[static_cast<std::size_t>(m_slot)].state = SlotState::Free;
    m_slot = -1;
}

TerminationPause::TerminationPause() { ++pauses; }

TerminationPause::~TerminationPause()
{
    const int number = --pauses == 0 ? waitingSignal.load() : 0;
    if (number != 0)
        ::kill(::getpid(), number);
}

} // namespace marvo
