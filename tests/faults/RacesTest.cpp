// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// All that runs beside the main thread, in haste and at once, for the thread sanitizer to watch.
#include "card/disks/FolderDisks.h"
#include "logs/LogBytes.h"
#include "logs/LogExport.h"
#include "media/MRVMediaList.h"
#include "playback/RecordingExtraction.h"
#include "recording/MRVBlackBoxData.h"
#include "recording/RecordingBytes.h"
#include "settings/SettingFile.h"
#include "settings/window/CardSettings.h"
#include "settings/window/SettingsBackups.h"
#include "support/AtomicFile.h"
#include "TemporaryFolder.h"
#include "workers/ObjectLink.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLoggingCategory>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <random>
#include <thread>

// Qt is not built with the sanitizer, which therefore does not see that what was done before a call was
// posted comes before the call. A lock that is held where our calls enter Qt's queue, and taken once where
// they leave it, tells it; nothing is suppressed.
#if defined(__SANITIZE_THREAD__)
#include <dlfcn.h>

static std::mutex entrance;

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot, Qt::ConnectionType type,
                                   void* result)
{
    using Real = bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*);
    static const Real real = reinterpret_cast<Real>(
        ::dlsym(RTLD_NEXT,
                "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14Connection"
                "TypeEPv"));
    const std::scoped_lock posting(entrance);
    return real(object, slot, type, result);
}
#endif

namespace marvo {

namespace {

class Application : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;
#if defined(__SANITIZE_THREAD__)
    bool notify(QObject* receiver, QEvent* event) override
    {
        entrance.lock();
        entrance.unlock();
        return QCoreApplication::notify(receiver, event);
    }
#endif
};

using test::TemporaryFolder;

class Races : public testing::Test
{
protected:
    static bool waitFor(const std::function<bool()>& condition)
    {
        const QDeadlineTimer deadline(30'000);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }

    /// Lets the workers get on for up to a millisecond, and sometimes hears them.
    void breathe()
    {
        std::this_thread::sleep_for(std::chrono::microseconds(m_random() % 1000));
        if (m_random() % 2 == 0)
            QCoreApplication::processEvents();
    }

    std::minstd_rand m_random{7};
    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    Application m_application{m_argc, m_argv};
    TemporaryFolder m_folder;
};

TEST_F(Races, scansOvertakeEachOther)
{
    constexpr int sizes[] = {1, 400};
    for (const int size : sizes) {
        for (int i = 0; i < size; ++i) {
            m_folder.write(std::to_string(size) + "/" + std::to_string(i % 9) + "/alwa_20130526_" +
                           std::to_string(100'000 + i) + "_F.avi");
        }
    }
    for (int lists = 0; lists < 12; ++lists) {
        MRVMediaList list; // goes while its last scan still runs, every other time
        int published = 0;
        QObject::connect(&list, &MRVMediaList::mediaListChanged, [&] {
            ++published;
            EXPECT_TRUE(list.count() == 1 || list.count() == 400) << list.count();
        });
        for (int i = 0; i < 30; ++i) {
            list.setDirectoryPath(m_folder.path(std::to_string(sizes[m_random() % 2])));
            breathe();
        }
        list.setDirectoryPath(m_folder.path("400"));
        if (lists % 2 == 0) {
            EXPECT_TRUE(waitFor([&] { return !list.isScanning(); }));
            EXPECT_EQ(list.count(), 400);
        }
    }
}

TEST_F(Races, walksAreGivenUpForOthers)
{
    test::Bytes area;
    for (int i = 0; i < 3000; ++i)
        area.longGps(i, "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n")
            .reading(i);
    const std::string path = m_folder.write("a.avi", test::avi(area));
    // Behind its records a long walk through nothing.
    std::filesystem::resize_file(path, std::uintmax_t{1} << 32);
    const std::string shortPath = m_folder.write("b.avi", test::avi(area));
    for (int rounds = 0; rounds < 4; ++rounds) {
        std::size_t taken = 0;
        RecordingExtraction extraction([&](MRVBlackBoxData&& data) { taken = data.m_GSensors().size(); });
        for (int i = 0; i < 15; ++i) {
            extraction.start(i % 3 == 0 ? shortPath : path);
            breathe();
            if (i % 5 == 0)
                extraction.abandon();
        }
        extraction.start(rounds % 2 == 0 ? shortPath : path); // or it goes in the middle of this one
        if (rounds % 2 == 0) {
            EXPECT_TRUE(waitFor([&] { return !extraction.isRunning(); }));
            EXPECT_EQ(taken, 3000U);
        }
    }
}

/// What a table's window does with its logs.
class LogReader : public QObject
{
public:
    ~LogReader() override { m_link->sever(); }

    void read(const std::string& path)
    {
        ++underWay;
        runInBackground(
            m_workers, m_link, [path] { return DrivingLog::read(path, flashDataLog()); },
            [](LogReader& reader, DrivingLog::Reading reading) {
                --reader.underWay;
                reader.log = std::move(reading.log);
            });
    }
    void write(const std::string& path, std::shared_ptr<std::atomic<bool>> abandon)
    {
        ++underWay;
        runInBackground(
            m_workers, m_link,
            [log = log, path, link = m_link, abandon = std::move(abandon)] {
                const std::vector<std::string> titles(log->description().columns.size(), "t");
                return exportLog(*log, titles, path, [&](std::uint64_t records) {
                    link->post([records](LogReader& reader) { reader.told = records; });
                    return !*abandon;
                });
            },
            [](LogReader& reader, std::error_code error) {
                --reader.underWay;
                reader.abandoned += error == std::errc::operation_canceled ? 1 : 0;
            });
    }

    std::shared_ptr<const DrivingLog> log;
    std::uint64_t told = 0;
    int underWay = 0;
    int abandoned = 0;

private:
    std::shared_ptr<ObjectLink<LogReader>> m_link = std::make_shared<ObjectLink<LogReader>>(this);
    DetachedWorkers m_workers;
};

TEST_F(Races, logsAreReadExportedAndShownAtOnce)
{
    const std::string paths[] = {m_folder.write("a.drv", test::drivingLog(20'000, 20'000)),
                                 m_folder.write("b.drv", test::drivingLog(10'000, 10'000))};
    const std::string csv = m_folder.path("out.csv");
    for (int rounds = 0; rounds < 4; ++rounds) {
        LogReader reader; // goes while it reads and writes, every other time
        reader.read(paths[0]);
        ASSERT_TRUE(waitFor([&] { return reader.log != nullptr; }));
        for (int i = 0; i < 6; ++i) {
            reader.read(paths[i % 2]);
            reader.read(paths[(i + 1) % 2]);
            const auto abandon = std::make_shared<std::atomic<bool>>(false);
            reader.write(csv, abandon);
            DrivingLog::CellBuffer buffer;
            for (std::uint64_t row = 0; row < reader.log->recordCount(); row += 500)
                EXPECT_FALSE(reader.log->cellText(0, row, buffer).empty());
            breathe();
            *abandon = i % 3 == 0;
        }
        EXPECT_TRUE(rounds % 2 != 0 || waitFor([&] { return reader.underWay == 0; }));
    }
}

TEST_F(Races, settingsAreReadWhileTheyAreWritten)
{
    QLoggingCategory::setFilterRules(QStringLiteral("marvo.*=false"));
    FolderDisks disks(m_folder.path());
    const std::string path = m_folder.path("config.bin");
    _FILEDATA records[2];
    fillDefaultFileDataForLanguage(records[0], InterfaceLanguage::English);
    fillDefaultFileDataForLanguage(records[1], InterfaceLanguage::Korean);
    ASSERT_FALSE(saveSettingFile(records[0], path));
    std::atomic<bool> enough = false;
    std::atomic<int> loads = 0;
    const auto load = [&] {
        while (!enough) {
            const LoadedSettings loaded =
                loadSettingFile(disks, CardNaming::Keep, InterfaceLanguage::English, {});
            ++loads;
            EXPECT_TRUE(loaded.wasRead);
            EXPECT_TRUE(loaded.record == records[0] || loaded.record == records[1]);
        }
    };
    {
        std::jthread readers[] = {std::jthread(load), std::jthread(load)};
        SettingsBackups backups(QString::fromStdString(m_folder.path("copies")));
        for (int i = 0; i < 100 || loads < 200; ++i) {
            const auto error = saveToFile(records[i % 2], path, SaveTarget::FoundCard, backups);
            EXPECT_FALSE(error) << error->toStdString();
        }
        enough = true;
    }
}

TEST_F(Races, filesAreWrittenSideBySideInOneFolder)
{
    const auto write = [&](char letter) {
        for (int i = 0; i < 60; ++i)
            EXPECT_FALSE(
                writeFileAtomically(m_folder.path(i % 2 == 0 ? "shared" : std::string(1, letter)), "new"));
    };
    {
        std::vector<std::jthread> writers;
        for (const char letter : {'a', 'b', 'c', 'd'})
            writers.emplace_back(write, letter);
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.path()), {}), 5);
}

} // namespace

} // namespace marvo
