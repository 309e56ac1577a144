// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/TKUSBDiskEntity.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

namespace marvo {

namespace {

enum Writable { ReadOnly, ReadWrite };
enum Config { NoConfig, WithConfig, ConfigIsAFolder };

struct Disk
{
    const char* name;
    Writable writable;
    Config config;
};

TEST(CardLookup, decidesByTheFirstRuleThatFits)
{
    const struct
    {
        std::vector<Disk> disks;
        int expected; ///< index of the disk that is the card; -1 for none
    } rows[] = {{{}, -1},
                {{{"NO NAME", ReadWrite, WithConfig}, {"MARVO", ReadOnly, NoConfig}}, 1},
                {{{"MARVO", ReadWrite, NoConfig}, {"MARVO", ReadWrite, WithConfig}}, 1},
                {{{"MARVO", ReadWrite, ConfigIsAFolder}, {"MARVO", ReadWrite, WithConfig}}, 1},
                {{{"MARVO", ReadOnly, WithConfig}, {"MARVO", ReadWrite, NoConfig}}, 1},
                {{{"marvo", ReadOnly, WithConfig}, {"A", ReadWrite, NoConfig}}, 1},
                {{{"A", ReadOnly, NoConfig}, {"B", ReadOnly, NoConfig}}, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        const test::TemporaryFolder mounts;
        std::vector<TKUSBDiskEntity> entities;
        for (const Disk& disk : row.disks) {
            const std::string number = std::to_string(entities.size());
            if (disk.config == ConfigIsAFolder)
                mounts.makeFolder(number + "/config.bin");
            if (disk.config == WithConfig)
                mounts.write(number + "/config.bin");
            entities.emplace_back(QString::fromLatin1(disk.name), mounts.path(number), "/dev/sdx",
                                  std::nullopt, 1024, disk.writable == ReadWrite, false,
                                  QString::fromStdString(number));
        }
        const auto card = findCardDiskEntity(entities);
        EXPECT_EQ(card ? card->key().toInt() : -1, row.expected);
    }
}

TEST(USBDiskEntity, displayString)
{
    const TKUSBDiskEntity with(QStringLiteral("MARVO"), "/media/card", "/dev/sdb1",
                               QStringLiteral("Card Reader"), 7948206080, true, false, QStringLiteral("k"));
    EXPECT_EQ(with.displayString(), QStringLiteral("[7.4 GB] MARVO <Card Reader>"));
    // A label is the card's own text: what looks like a place marker in it stays as it is.
    const TKUSBDiskEntity without(QStringLiteral("%3%1"), "/", "/dev/sdb1", std::nullopt, 0, true, true, {});
    EXPECT_EQ(without.displayString(), QStringLiteral("[0 B] %3%1 "));
    EXPECT_EQ(without.rootFile("config.bin"), "/config.bin");
}

} // namespace

} // namespace marvo
