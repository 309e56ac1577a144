// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/SystemArea.h"
#include "card/CardContents.h"
#include "card/CardRestoring.h"
#include "card/FormatPlan.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using namespace marvo;

namespace {

constexpr std::uint64_t mebi = std::uint64_t{1} << 20;
constexpr std::uint64_t gibi = std::uint64_t{1} << 30;

/// A volume in memory whose writing fails after so many calls, and the order in which it was written.
class MemoryVolume : public WritableVolume
{
public:
    explicit MemoryVolume(std::size_t size, std::byte filling = std::byte{0}) : bytes(size, filling) {}

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
    {
        return MemorySource(bytes).readAt(offset, into);
    }
    std::error_code writeAt(std::uint64_t offset, std::span<const std::byte> data) override
    {
        if (callsLeft-- == 0)
            return std::make_error_code(std::errc::io_error);
        std::ranges::copy(data, bytes.begin() + static_cast<std::ptrdiff_t>(offset));
        return {};
    }
    std::error_code sync() override
    {
        return callsLeft-- == 0 ? std::make_error_code(std::errc::io_error) : std::error_code();
    }

    std::vector<std::byte> bytes;
    int callsLeft = 1000;
};

void put(std::vector<std::byte>& bytes, std::size_t offset, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes[offset + static_cast<std::size_t>(i)] = static_cast<std::byte>(value >> (8 * i));
}

void put(std::vector<std::byte>& bytes, std::size_t offset, const char* text)
{
    std::memcpy(bytes.data() + offset, text, std::strlen(text));
}

/// The system area of an empty file system, written down here from the layout's description.
MemoryVolume emptyFileSystem(const FormatPlan& plan)
{
    MemoryVolume volume(static_cast<std::size_t>(plan.systemAreaBytes()));
    auto& bytes = volume.bytes;
    put(bytes, 11, 512, 2);
    put(bytes, 13, plan.sectorsPerCluster, 1);
    put(bytes, 14, 32, 2);
    put(bytes, 16, 2, 1);
    put(bytes, 28, plan.hiddenSectors, 4);
    put(bytes, 32, plan.totalSectors, 4);
    put(bytes, 36, plan.sectorsPerFat, 4);
    put(bytes, 44, 2, 4);
    put(bytes, 48, 1, 2);
    put(bytes, 50, 6, 2);
    put(bytes, 66, 0x29, 1);
    put(bytes, 67, 0x1A2B3C4D, 4);
    put(bytes, 71, "MARVO      FAT32   ");
    put(bytes, 510, 0xAA55, 2);
    std::copy_n(bytes.begin(), 512, bytes.begin() + 6 * 512);
    put(bytes, 512, 0x41615252, 4);
    put(bytes, 512 + 484, 0x61417272, 4);
    put(bytes, 512 + 488, plan.clusters - 1, 4);
    put(bytes, 512 + 508, 0xAA550000, 4);
    for (const std::uint64_t fat : {plan.fatOffset(), plan.fatOffset() + plan.fatBytes()}) {
        put(bytes, static_cast<std::size_t>(fat), 0x0FFFFFF8, 4);
        put(bytes, static_cast<std::size_t>(fat) + 4, 0x0FFFFFFF, 4);
        put(bytes, static_cast<std::size_t>(fat) + 8, 0x0FFFFFF8, 4);
    }
    put(bytes, static_cast<std::size_t>(plan.rootOffset()), "MARVO      \x08");
    return volume;
}

} // namespace

TEST(FormatPlan, takesTheCamerasClusterValueWhereThatMakesEnoughClusters)
{
    EXPECT_EQ(clusterSizeByVolumeSizeInKB(7516192767), 32);
    EXPECT_EQ(clusterSizeByVolumeSizeInKB(7516192768), 128);
    struct Row
    {
        std::uint64_t size;
        std::uint32_t sectorsPerCluster; ///< 0: no FAT32
    };
    for (const Row& row :
         {Row{16 * gibi, 128}, Row{7 * gibi, 128}, Row{7 * gibi - 512, 32}, Row{1127 * mebi, 32},
          Row{1024 * mebi, 16}, Row{600 * mebi, 16}, Row{64 * mebi, 1}, Row{32 * mebi, 0}, Row{0, 0},
          Row{2048 * gibi - 512, 128}, Row{2048 * gibi, 0}, Row{UINT64_MAX, 0}}) {
        const auto plan = makeFormatPlan(row.size);
        ASSERT_EQ(plan.has_value(), row.sectorsPerCluster != 0) << row.size;
        if (!plan)
            continue;
        EXPECT_EQ(plan->sectorsPerCluster, row.sectorsPerCluster) << row.size;
        EXPECT_GE(plan->clusters, fat32MinimumClusters) << row.size;
        EXPECT_LE(plan->rootOffset() + plan->clusters * plan->clusterBytes(), row.size);
        EXPECT_GE(plan->fatBytes(), (std::uint64_t{plan->clusters} + 2) * 4) << "an entry for each cluster";
    }
    // The smallest that there is: one sector a cluster, and one cluster less is too few.
    const std::uint64_t smallest = (32 + 2 * 512 + 65525) * 512;
    EXPECT_TRUE(makeFormatPlan(smallest));
    EXPECT_FALSE(makeFormatPlan(smallest - 512));
    EXPECT_EQ(unsuitability(smallest, 512), std::nullopt);
    EXPECT_EQ(unsuitability(smallest - 512, 512), Unsuitable::TooSmall);
    EXPECT_EQ(unsuitability(2048 * gibi, 512), Unsuitable::TooLarge);
    EXPECT_EQ(unsuitability(16 * gibi, 4096), Unsuitable::SectorSize);
}

TEST(SystemArea, aChangeOfAnyByteThatCountsIsFound)
{
    const auto plan = makeFormatPlan(40 * mebi, 2048 * 512);
    ASSERT_TRUE(plan);
    MemoryVolume volume = emptyFileSystem(*plan);
    ASSERT_EQ(checkSystemArea(volume, *plan), std::nullopt);
    const auto fat = static_cast<std::size_t>(plan->fatOffset());
    const auto secondFat = fat + static_cast<std::size_t>(plan->fatBytes());
    const auto root = static_cast<std::size_t>(plan->rootOffset());
    const std::vector<std::size_t> counting{0,         11,
                                            13,        14,
                                            16,        28,
                                            35,        36,
                                            44,        48,
                                            50,        66,
                                            71,        82,
                                            511,       512,
                                            512 + 488, 6 * 512 + 100,
                                            fat,       fat + 9,
                                            fat + 12,  secondFat - 1,
                                            secondFat, root - 1,
                                            root,      root + 11,
                                            root + 32, volume.bytes.size() - 1};
    for (const std::size_t offset : counting) {
        volume.bytes[offset] ^= std::byte{1};
        EXPECT_NE(checkSystemArea(volume, *plan), std::nullopt) << offset;
        volume.bytes[offset] ^= std::byte{1};
    }
    for (const std::size_t size : std::vector<std::size_t>{0, 511, 6 * 512, fat + 5, root, root + 500}) {
        MemorySource cut(std::span(volume.bytes).first(size));
        EXPECT_NE(checkSystemArea(cut, *plan), std::nullopt) << "cut at " << size;
    }
}

TEST(SystemArea, aCardPulledOutAtAnyMomentNeverLooksWhole)
{
    const auto plan = makeFormatPlan(300 * mebi);
    ASSERT_TRUE(plan);
    MemoryVolume image = emptyFileSystem(*plan);
    int calls = 0;
    while (true) {
        MemoryVolume card(image.bytes.size(), std::byte{0xE5});
        std::copy_n(image.bytes.begin(), 512, card.bytes.begin()); // it was formatted before
        card.callsLeft = calls++;
        const std::vector<std::byte> before = card.bytes;
        bool told = false;
        const std::error_code error =
            writeSystemArea(image, card, *plan, [&told](std::uint64_t) { told = true; });
        EXPECT_EQ(told, card.bytes != before) << "who says that nothing is lost must know";
        if (!error) {
            EXPECT_EQ(card.bytes, image.bytes);
            break;
        }
        // Cut off before anything was written, it is what it was; else it is none, unless only the last sync
        // failed.
        const bool untouched = calls == 1;
        const bool complete = card.bytes == image.bytes;
        EXPECT_TRUE(untouched || complete || !readBootSector(std::span(card.bytes).first(512))) << calls;
    }
    EXPECT_GE(calls, 7) << "wiping, copying in pieces and the boot sector, each synced";
    MemoryVolume shortImage(1000);
    MemoryVolume card(image.bytes.size());
    EXPECT_TRUE(writeSystemArea(shortImage, card, *plan)) << "an image that ends too early";
}

TEST(CardRestoring, onlyAFileOfTheCardItselfCountsAsItsSettings)
{
    marvo::test::TemporaryFolder folder;
    folder.write("private", "a key");
    const std::string card = folder.makeFolder("card");
    const std::string settings = folder.path("card/config.bin");
    EXPECT_FALSE(readCardContents(card, {}).settingsUnreadable) << "there are none";
    ASSERT_EQ(::symlink("../private", settings.c_str()), 0);
    EXPECT_FALSE(readCardSettingsFile(card));
    EXPECT_TRUE(readCardContents(card, {}).settingsUnreadable);
    ASSERT_EQ(::unlink(settings.c_str()), 0);
    ASSERT_EQ(::mkdir(settings.c_str(), 0777), 0);
    EXPECT_FALSE(readCardSettingsFile(card));
    EXPECT_TRUE(readCardContents(card, {}).settingsUnreadable);
    EXPECT_TRUE(readCardContents(folder.path("gone"), {}).countUnknown);
}

TEST(CardContents, sizesHaveOneDecimal)
{
    const std::pair<std::uint64_t, const char*> texts[] = {{0, "0 B"},
                                                           {1023, "1023 B"},
                                                           {1024, "1.0 kB"},
                                                           {1023 * 1024 + 1000, "1.0 MB"},
                                                           {29420551373, "27.4 GB"}};
    for (const auto& [bytes, text] : texts)
        EXPECT_EQ(decimalSizeString(bytes), text);
}
