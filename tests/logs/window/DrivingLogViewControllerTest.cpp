// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The views of the driving logs as a person drives them, with the real map.
#include "ActiveWindow.h"
#include "controls/LoadingSheet.h"
#include "controls/PMProgressIndicator.h"
#include "logs/LogBytes.h"
#include "logs/window/DrivingLogWindow.h"
#include "logs/window/LogTableModel.h"
#include "logs/window/MRVSettingForFlashDataViewController.h"
#include "logs/window/MRVSettingForObdDriveInfoViewController.h"
#include "map/MapEngine.h"
#include "map/MapSurface.h"
#include "map/MapView.h"
#include "map/MRVMapWindowController.h"
#include "MountedFolder.h"
#include "settings/FileData.h"
#include "settings/tabs/DrivingLogTab.h"
#include "TemporaryFolder.h"
#include "texts/Localisation.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableView>
#include <QtTest>

#include <memory>
#include <optional>

#include <unistd.h>

using namespace marvo;
using namespace marvo::test;
using Occasion = DrivingLogViewController::Occasion;

namespace {

QStringList logLines;
QtMessageHandler usualHandler = nullptr;

void keepLogLines(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (qstrcmp(context.category, "marvo.logs") == 0)
        logLines.append(message);
    usualHandler(type, context, message);
}

QVariant ask(const MRVMapWindowController& map, const QString& script)
{
    auto result = std::make_shared<std::optional<QVariant>>(); // an answer may come after the waiting
    map.mapWebView()->engine()->run(script, [result](const QVariant& value) { *result = value; });
    return QTest::qWaitFor([&] { return result->has_value(); }, 10'000) ? **result : QVariant();
}

// Position of the car; number of points of the way.
const QString car =
    QStringLiteral("(p => p ? p.lng.toFixed(6) + ' ' + p.lat.toFixed(6) : '')(marvo.page.vehicle.position)");
const QString way = QStringLiteral("marvo.page.vehicle.way.getLatLngs().flat().length");

} // namespace

class LogViewTest : public QObject
{
    Q_OBJECT

private:
    TemporaryFolder m_folder;
    std::unique_ptr<MRVSettingForFlashDataViewController> m_view;

    template <typename Widget>
    Widget& part(const char* name)
    {
        auto* found = m_view->window()->findChild<Widget*>(QLatin1StringView(name));
        if (!found)
            qFatal("no %s", name);
        return *found;
    }
    QTableView& table() { return part<QTableView>("tableView"); }
    QString status() { return part<QLabel>("statusLabel").text(); }
    QMessageBox* message() { return m_view->findChild<QMessageBox*>(QStringLiteral("messageSheet")); }

    bool load(const std::string& path)
    {
        QSignalSpy ended(m_view.get(), &DrivingLogViewController::readingEnded);
        m_view->setFlashDataFilePath(path);
        m_view->loadFlashDataFile(Occasion::Chosen);
        return ended.wait() && ended.front().front().toBool();
    }
    void doubleClickRow(int row)
    {
        const QPoint middle = table().visualRect(table().model()->index(row, 2)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, middle);
    }

private Q_SLOTS:
    void initTestCase() { usualHandler = qInstallMessageHandler(keepLogLines); }
    void cleanupTestCase() { qInstallMessageHandler(usualHandler); }
    void init()
    {
        logLines.clear();
        m_view = std::make_unique<MRVSettingForFlashDataViewController>();
        m_view->resize(900, 400);
        QVERIFY(marvo::testing::showActive(*m_view));
    }
    void cleanup() { m_view.reset(); }

    void tableShowsWhatTheDescriptionSays()
    {
        QVERIFY(load(m_folder.write("a.drv", drivingLog(3, 2))));
        QCOMPARE(status(), QStringLiteral("2 of 3 records; the file ends early"));
        QCOMPARE(table().model()->index(1, 5).data(), QVariant(QStringLiteral("3733.0001")));
        QCOMPARE(m_view->stringForColumnIndex(5, 2), QString());
        for (const LogDescription* log : {&flashDataLog(), &obdDriveInfoLog()}) {
            QVERIFY2(!logColumnNames(*log).join(QString()).contains(u','),
                     "it would end a title in an export");
        }
    }

    void firstDisplayReadsOnceAndQuietly()
    {
        _FILEDATA record{};
        DrivingLogTab tab(new MRVSettingForFlashDataViewController);
        tab.logView().setFlashDataFilePath(m_folder.path("none.drv"));
        QSignalSpy ended(&tab.logView(), &DrivingLogViewController::readingEnded);
        tab.setFileData(&record);
        QVERIFY(ended.wait());
        QVERIFY(!message());
        QCOMPARE(logLines, QStringList(QStringLiteral("fopen fail:") +
                                       QFile::decodeName(m_folder.path("none.drv").c_str())));
        tab.setFileData(&record);
        QVERIFY2(!ended.wait(200), "later displays do not read");
    }

    void faultKeepsTheTable()
    {
        QVERIFY(load(m_folder.write("a.drv", drivingLog(2, 2))));
        QVERIFY(!load(m_folder.path("none.drv")));
        QVERIFY(!message());
        QVERIFY(!load(m_folder.write("short.drv", "short")));
        QTRY_VERIFY(message());
        QCOMPARE(message()->informativeText(), QStringLiteral("“short.drv” is not a driving log."));
        QCOMPARE(m_view->flashDataNum(), std::int64_t{2});
        QVERIFY(load(m_folder.write("a.drv", drivingLog(0, 0))));
        QVERIFY(!part<QPushButton>("exportButton").isEnabled());
        m_view->onSaveCSVFile();
        QVERIFY(!m_view->findChild<QFileDialog*>()); // there is nothing to export
    }

    /// Two reads and an export at once: each on its own data, and the log asked for last is shown.
    void readsAndExportRace()
    {
        LoadingSheet sheet(m_view.get());
        m_view->setLoadingSheet(&sheet);
        QVERIFY(load(m_folder.write("a.drv", drivingLog(60'000, 60'000))));
        for (int round = 0; round < 10; ++round) {
            QSignalSpy readEnded(m_view.get(), &DrivingLogViewController::readingEnded);
            QSignalSpy exportEnded(m_view.get(), &DrivingLogViewController::exportEnded);
            const auto shown = static_cast<std::size_t>(m_view->flashDataNum());
            m_view->doWriteCSVFile(m_folder.path("out.csv"));
            m_view->setFlashDataFilePath(m_folder.write("b.drv", drivingLog(100'000, 100'000)));
            m_view->loadFlashDataFile(Occasion::Chosen);
            m_view->setFlashDataFilePath(m_folder.write("c.drv", drivingLog(50, 50)));
            m_view->loadFlashDataFile(Occasion::Chosen);
            QTRY_COMPARE(readEnded.size(), 2);
            QTRY_COMPARE(exportEnded.size(), 1);
            QVERIFY(exportEnded.front().front().toBool());
            QCOMPARE(m_view->flashDataNum(), std::int64_t{50});
            const std::string text = m_folder.read("out.csv");
            QCOMPARE(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')), shown + 1);
            QVERIFY(load(m_folder.path("a.drv")));
        }
        QTRY_VERIFY(!sheet.isVisible());
    }

    void exportByTheButtons()
    {
        QVERIFY(load(m_folder.write("a.drv", drivingLog(2, 2))));
        QTest::mouseClick(&part<QPushButton>("exportButton"), Qt::LeftButton);
        auto* panel = m_view->findChild<QFileDialog*>(QStringLiteral("savePanel"));
        QVERIFY(panel);
        QCOMPARE(QFileInfo(panel->selectedFiles().front()).fileName(), QStringLiteral("marvo_000.csv"));
        panel->setDirectory(QFile::decodeName(m_folder.path().c_str()));
        panel->selectFile(QStringLiteral("by_hand"));
        QMetaObject::invokeMethod(panel, "accept");
        QTRY_VERIFY(message());
        QCOMPARE(message()->informativeText(), localised("msg.saved").trimmed());
        QVERIFY(m_folder.read("by_hand.csv").starts_with("No.,Seq.,Date,"));
    }

    void exportThatFailsSaysSo()
    {
        MountedFolder mounted(m_folder.makeFolder("disk"));
        if (!mounted.isMounted)
            QSKIP("mounting takes the rights of an administrator");
        QVERIFY(load(m_folder.write("a.drv", drivingLog(2000, 2000))));
        m_folder.write("disk/out.csv", "old");
        const std::pair<const char*, const char*> rows[] = {{"disk/out.csv", "log.export.full"},
                                                            {"a.drv", "log.export.same_file"},
                                                            {"disk/out.csv", "log.export.protected"}};
        for (const auto& [file, reason] : rows) {
            if (QLatin1String(reason).endsWith(QLatin1String("protected")))
                QVERIFY(mounted.makeReadOnly());
            m_view->doWriteCSVFile(m_folder.path(file));
            QTRY_VERIFY(message());
            QVERIFY2(message()->informativeText().contains(localised(reason)), reason);
            message()->close();
            QTRY_VERIFY(!message());
            QCOMPARE(m_folder.read("disk/out.csv"), std::string("old"));
            QCOMPARE(std::distance(std::filesystem::directory_iterator(m_folder.path("disk")), {}), 1);
        }
    }

    void exportIsCancelled()
    {
        LoadingSheet sheet(m_view.get());
        m_view->setLoadingSheet(&sheet);
        QVERIFY(load(m_folder.write("a.drv", drivingLog(400'000, 400'000))));
        QTRY_VERIFY(!sheet.isVisible());
        m_folder.write("cancelled/out.csv", "old");
        QSignalSpy ended(m_view.get(), &DrivingLogViewController::exportEnded);
        m_view->doWriteCSVFile(m_folder.path("cancelled/out.csv"));
        QTest::mouseClick(sheet.findChild<QPushButton*>(QStringLiteral("cancelLoadingButton")),
                          Qt::LeftButton);
        QVERIFY(ended.wait());
        QVERIFY(!ended.front().front().toBool());
        QTRY_VERIFY(!sheet.isVisible());
        QCOMPARE(m_folder.read("cancelled/out.csv"), std::string("old"));
        QCOMPARE(std::distance(std::filesystem::directory_iterator(m_folder.path("cancelled")), {}), 1);
        QVERIFY2(!QTest::qWaitFor([&] { return message() != nullptr; }, 700), "who cancels knows");
        sheet.setProgress(60); // an export that stood still for too long goes on
        const auto* bar = sheet.findChild<PMProgressIndicator*>();
        QCOMPARE(bar->doubleValue(), bar->minValue());
    }

    void viewThatGoesTakesItsExportWithIt()
    {
        QVERIFY(load(m_folder.write("a.drv", drivingLog(400'000, 400'000))));
        const QDir folder(QFile::decodeName(m_folder.makeFolder("gone").c_str()));
        m_view->doWriteCSVFile(m_folder.path("gone/out.csv"));
        m_view.reset();
        const QStringList left = folder.entryList(QDir::Files | QDir::Hidden);
        QVERIFY2(left.isEmpty() || left == QStringList(QStringLiteral("out.csv")), "a temporary stays");
    }

    void rowsOnTheMap()
    {
        std::string log = logHeader(4);
        log += drivingRecord(0, 0, 0) + drivingRecord(1) + drivingRecord(2, 3734, 0);
        log += drivingRecord(3, 3735, 0);
        QVERIFY(load(m_folder.write("a.drv", log)));
        doubleClickRow(0);
        QCOMPARE(logLines, QStringList(QStringLiteral("rowNum=0")));
        const MRVMapWindowController* map = m_view->mapWindowController();
        QVERIFY(map && map->window()->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(map->mapWebView()->isReady(), 20'000);
        QCOMPARE(ask(*map, car), QVariant(QString())); // it has no position

        doubleClickRow(1);
        QCOMPARE(m_view->mapWindowController(), map);
        QTRY_COMPARE_WITH_TIMEOUT(ask(*map, car), QVariant(QStringLiteral("126.966733 37.552057")), 10'000);
        ask(*map, QStringLiteral("marvo.page.follow(false); marvo.page.map.setView([0, 0]); 1")); // dragged
        doubleClickRow(1);
        QTRY_COMPARE_WITH_TIMEOUT(
            ask(*map, QStringLiteral("Math.round(marvo.page.map.getCenter().lat)")).toInt(), 38, 10'000);
        QTest::keyClick(map->window(), Qt::Key_Down); // it is the window in front
        QTRY_COMPARE_WITH_TIMEOUT(ask(*map, car), QVariant(QStringLiteral("126.966733 37.566667")), 10'000);

        QTest::mouseClick(&part<QCheckBox>("wayBox"), Qt::LeftButton, {}, QPoint(8, 8));
        QTRY_COMPARE_WITH_TIMEOUT(ask(*map, way).toInt(), 3, 10'000);
        QCOMPARE(ask(*map, car), QVariant(QString())); // all of the way is in view
        QTest::mouseClick(&part<QCheckBox>("wayBox"), Qt::LeftButton, {}, QPoint(8, 8));
        QTRY_COMPARE_WITH_TIMEOUT(ask(*map, way).toInt(), 0, 10'000);
        QTest::mouseClick(&part<QCheckBox>("wayBox"), Qt::LeftButton, {}, QPoint(8, 8));
        map->window()->close();
        QVERIFY(!part<QCheckBox>("wayBox").isChecked());

        logLines.clear();
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, QPoint(20, table().height() - 60));
        QTest::mouseDClick(table().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 8));
        QCOMPARE(logLines, QStringList({QStringLiteral("rowNum=-1"), QStringLiteral("rowNum=-1")}));
        m_view->dropMapWindow();
        QVERIFY(!m_view->mapWindowController());
    }

    void windowShowsAnyFile()
    {
        QWidget parent;
        QPointer<DrivingLogWindow> window;
        openDrivingLogDialog(&parent, m_folder.path(), [&](DrivingLogWindow& opened) { window = &opened; });
        auto* dialog = parent.findChild<QFileDialog*>(QStringLiteral("openDrivingLogDialog"));
        m_folder.write("car.OBD", logHeader(1) + std::string(68, '\0'));
        dialog->selectFile(QFile::decodeName(m_folder.path("car.OBD").c_str()));
        QTRY_COMPARE(dialog->selectedFiles().size(), 1);
        QMetaObject::invokeMethod(dialog, "accept");
        QTRY_VERIFY(window && window->isVisible());
        QTRY_COMPARE(window->view().flashDataNum(), std::int64_t{1});
        QVERIFY(window->windowTitle().startsWith(QStringLiteral("car.OBD")));
        window->close();
        QTRY_VERIFY(!window);
    }
};

int main(int argc, char** argv)
{
    mountForThisProcessAlone();
    QStandardPaths::setTestModeEnabled(true);
    prepareForMaps();
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO-test"));
    QCoreApplication::setApplicationName(QStringLiteral("logs"));
    QSettings().setValue(QStringLiteral("map/tileAddress"), QString());
    installLanguage(InterfaceLanguage::English);
    LogViewTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "DrivingLogViewControllerTest.moc"
