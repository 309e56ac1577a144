// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/TKUSBDiskEntity.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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

struct LookupCase
{
    const char* name;
    std::vector<Disk> disks;
    int expected; ///< index of the disk that is the card; -1 for none
};

class CardLookup : public testing::TestWithParam<LookupCase>
{};

TEST_P(CardLookup, decidesByTheFirstRuleThatFits)
{
    QTemporaryDir mounts;
    std::vector<TKUSBDiskEntity> entities;
    for (const Disk& disk : GetParam().disks) {
        const QString mount = mounts.filePath(QString::number(entities.size()));
        QDir().mkpath(mount);
        if (disk.config == ConfigIsAFolder)
            QDir(mount).mkdir(QStringLiteral("config.bin"));
        if (disk.config == WithConfig) {
            EXPECT_TRUE(QFile(mount + QStringLiteral("/config.bin")).open(QIODevice::WriteOnly));
        }
        entities.emplace_back(QString::fromLatin1(disk.name), mount.toStdString(), "/dev/sdx", std::nullopt,
                              1024, disk.writable == ReadWrite, false, QString::number(entities.size()));
    }
    const auto card = findCardDiskEntity(entities);
    ASSERT_EQ(card.has_value(), GetParam().expected >= 0);
    if (card) {
        EXPECT_EQ(card->key().toInt(), GetParam().expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    volumes, CardLookup,
    testing::Values(
        LookupCase{"none", {}, -1},
        LookupCase{"readOnlyCardBeforeWritableOther",
                   {{"NO NAME", ReadWrite, WithConfig}, {"MARVO", ReadOnly, NoConfig}},
                   1},
        LookupCase{
            "theOneWithTheFile", {{"MARVO", ReadWrite, NoConfig}, {"MARVO", ReadWrite, WithConfig}}, 1},
        LookupCase{"aFolderIsNoSettingsFile",
                   {{"MARVO", ReadWrite, ConfigIsAFolder}, {"MARVO", ReadWrite, WithConfig}},
                   1},
        LookupCase{"writableWithoutFileBeforeReadOnlyWithFile",
                   {{"MARVO", ReadOnly, WithConfig}, {"MARVO", ReadWrite, NoConfig}},
                   1},
        LookupCase{"caseCounts", {{"marvo", ReadOnly, WithConfig}, {"A", ReadWrite, NoConfig}}, 1},
        LookupCase{"firstWhenNothingElse", {{"A", ReadOnly, NoConfig}, {"B", ReadOnly, NoConfig}}, 0}),
    [](const auto& row) { return std::string(row.param.name); });

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
