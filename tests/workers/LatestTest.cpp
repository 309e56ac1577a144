// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "workers/Latest.h"

#include <gtest/gtest.h>
#include <optional>
#include <QCoreApplication>
#include <vector>

namespace marvo {
namespace {

struct Outcome
{
    bool good = true;
    static Outcome outOfMemory() { return {.good = false}; }
};

template <typename Result>
Result resultOfTooMuch()
{
    QObject owner;
    Latest<Result> latest(&owner);
    std::optional<Result> result;
    latest.start([](const LatestRun&) -> Result { throw std::bad_alloc(); },
                 [&](Result arrived) { result = arrived; });
    while (!result)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return *result;
}

TEST(Latest, ReportsWorkThatRunsOutOfMemory)
{
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    EXPECT_EQ(resultOfTooMuch<std::error_code>(), std::errc::not_enough_memory);
    EXPECT_NE(resultOfTooMuch<std::optional<QString>>(), std::nullopt);
    EXPECT_FALSE(resultOfTooMuch<Outcome>().good);
    EXPECT_EQ(resultOfTooMuch<std::vector<int>>(), std::vector<int>());
}

} // namespace
} // namespace marvo
