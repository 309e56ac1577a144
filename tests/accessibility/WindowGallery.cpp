// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "accessibility/WindowGallery.h"

#include "capture/CaptureSaveDialog.h"
#include "card/disks/DeviceAccess.h"
#include "card/disks/FolderDisks.h"
#include "card/format/MRVFormatWindowController.h"
#include "controls/MessageSheet.h"
#include "logs/LogDescription.h"
#include "logs/window/DrivingLogViewController.h"
#include "logs/window/DrivingLogWindow.h"
#include "map/MapView.h"
#include "settings/window/EarlierSettingsDialog.h"
#include "settings/window/MRVSettingController.h"
#include "settings/window/ObdPreference.h"
#include "TemporaryFolder.h"
#include "viewer/WindowStage.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include <memory>

namespace marvo::people {

namespace {

using test::WindowStage;

bool shown(QWidget* window)
{
    if (!window)
        qFatal("a window did not open");
    return QTest::qWaitForWindowExposed(window) && QTest::qWaitFor([window] {
               window->activateWindow();
               return window->isActiveWindow();
           });
}

template <typename Condition>
void waitFor(const char* what, Condition condition, int timeoutMs = 10'000)
{
    if (!QTest::qWaitFor(condition, timeoutMs))
        qFatal("waited in vain: %s", what);
}

void closeAndWait(QPointer<QWidget> window)
{
    window->close();
    waitFor("closed", [&] { return !window || !window->isVisible(); });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Tells of a card that could be formatted, and formats none.
class ShownCard final : public DeviceAccess
{
public:
    std::vector<FormattableVolume> formattableVolumes() const override
    {
        const TKUSBDiskEntity card(QStringLiteral("MARVO"), "/media/MARVO", "/dev/sdb1",
                                   QStringLiteral("Card Reader"), 31'914'983'424, true, false,
                                   QStringLiteral("sdb1"));
        return {{card, {}}};
    }
    std::optional<DeviceIdentity> identify(const QString&) const override { return std::nullopt; }
    std::optional<DeviceError> unmount(const TKUSBDiskEntity&) override { return DeviceError(); }
    std::optional<DeviceError> openForWriting(const QString&, DeviceDescriptor&) override
    {
        return DeviceError();
    }
    std::optional<DeviceError> mount(const QString&, const QString&) override { return DeviceError(); }
};

class ShownDisks final : public FolderDisks
{
public:
    using FolderDisks::FolderDisks;
    DeviceAccess* deviceAccess() override { return &m_access; }

private:
    ShownCard m_access;
};

class Gallery
{
public:
    Gallery(const std::string& card, InterfaceLanguage language, Maps maps, const Visitor& visit)
        : m_card(card), m_disks(card), m_maps(maps), m_visit(visit), m_stage(configuration(language))
    {}

    void showAll()
    {
        mainWindow();
        dialogsOfTheMainWindow();
        settings();
        clock();
        logs();
    }

private:
    MRVAppDelegate::Configuration configuration(InterfaceLanguage language)
    {
        MRVAppDelegate::Configuration configuration;
        configuration.language = language;
        configuration.disks = &m_disks;
        return configuration;
    }

    QWidget* dialog(const char* name)
    {
        QWidget* found = nullptr;
        waitFor("open", [&] {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->isVisible() && window->objectName() == QLatin1StringView(name))
                    found = window;
            return found != nullptr;
        });
        return found;
    }

    void visitAndClose(const QString& name, QWidget* window)
    {
        if (!shown(window))
            qFatal("%s did not open", qPrintable(name));
        m_visit(name, *window);
        closeAndWait(window);
    }

    void visitDialogOf(Command command, const char* dialogName, const QString& name)
    {
        m_stage.action(command)->trigger();
        visitAndClose(name, dialog(dialogName));
    }

    void waitForMap(const MapView& map)
    {
        if (m_maps == Maps::AsTheyCome)
            return;
        waitFor(
            "map is ready", [&map] { return map.isReady(); }, 60'000);
        QTest::qWait(3000); // the page draws after it is ready, and tells nobody
    }

    void mainWindow()
    {
        CustomWindow& window = m_stage.window();
        m_visit(QStringLiteral("main-first"), window);
        if (!m_stage.open(m_card))
            qFatal("the folder was not read");
        m_stage.list().selectOnlyRow(0);
        m_stage.action(Command::ChangeAndPlay)->trigger();
        waitFor(
            "plays", [&] { return m_stage.player().timeMs() > 1500; }, 20'000);
        m_stage.action(Command::ClickPlayButton)->trigger();
        waitFor("paused", [&] { return m_stage.player().isPaused(); });
        m_visit(QStringLiteral("main"), window);

        auto* search = window.findChild<QLineEdit*>(QStringLiteral("listSearchField"));
        search->setText(QStringLiteral("zzz"));
        m_visit(QStringLiteral("main-nothing-found"), window);
        search->clear();

        m_stage.action(Command::ClickMapViewButton)->trigger();
        waitForMap(*m_stage.delegate.views().mapWebView);
        m_visit(QStringLiteral("main-map"), window);
        m_stage.action(Command::ClickMediaListViewButton)->trigger();

        m_stage.action(Command::ToggleFullScreen)->trigger();
        waitFor("full screen", [&] { return window.size() == window.screen()->size(); });
        m_visit(QStringLiteral("main-full-screen"), window);
        m_stage.action(Command::ToggleFullScreen)->trigger();
        waitFor("windowed", [&] { return window.size() != window.screen()->size(); });
    }

    void dialogsOfTheMainWindow()
    {
        QMenu* menu = m_stage.delegate.commands().menu();
        m_stage.action(Command::ShowMenu)->trigger();
        waitFor("menu", [menu] { return menu->isVisible(); });
        m_visit(QStringLiteral("menu"), *menu);
        menu->close();
        visitDialogOf(Command::OpenMediaDirectoryDialog, "openMediaDirectoryDialog",
                      QStringLiteral("open-folder"));
        visitDialogOf(Command::OpenDrivingLog, "openDrivingLogDialog", QStringLiteral("open-log"));
        visitDialogOf(Command::Print, "printPanel", QStringLiteral("print"));
        auto* save = new CaptureSaveDialog(&m_stage.window());
        save->setAttribute(Qt::WA_DeleteOnClose);
        save->open();
        visitAndClose(QStringLiteral("save-picture"), save);
        showMessageSheet(&m_stage.window(), QStringLiteral("MARVO"),
                         localised("viewer.folder.cannotOpen").arg(QStringLiteral("/media/card/DCIM")));
        visitAndClose(QStringLiteral("message"), dialog("messageSheet"));
    }

    void settings()
    {
        const bool hadObd = ObdPreference::isOn();
        ObdPreference::set(true);
        m_stage.action(Command::ShowSettingPanel)->trigger();
        auto* window = qobject_cast<MRVSettingController*>(m_stage.delegate.lastDialogController());
        if (!shown(window))
            qFatal("the settings window did not open");
        auto* tab = window->findChild<QWidget*>(QStringLiteral("targetView"));
        waitFor("settings read", [tab] { return tab->isEnabled(); });
        auto* sheet = window->findChild<QWidget*>(QStringLiteral("progressPanel"));
        static const char* const names[] = {"video", "basic", "gps", "aux", "audio", "log", "obd", "obd-log"};
        for (int i = 0; i < int(std::size(names)); ++i) {
            window->changeViewController(i);
            waitFor("tab read", [&] { return !sheet->isVisible(); });
            QTest::qWait(0);
            m_visit(QStringLiteral("settings-%1").arg(QLatin1StringView(names[i])), *window);
            // What is to be told about a log that is not there.
            if (QWidget* told = window->findChild<QWidget*>(QStringLiteral("messageSheet")))
                closeAndWait(told);
        }
        window->changeViewController(0);
        QMenu* tools = window->findChild<QPushButton*>(QStringLiteral("toolsButton"))->menu();
        tools->popup(window->mapToGlobal(QPoint(20, 20)));
        m_visit(QStringLiteral("settings-tools"), *tools);
        tools->close();
        window->findChild<QAction*>(QStringLiteral("restoreEarlierFile"))->trigger();
        visitAndClose(QStringLiteral("settings-earlier"), window->findChild<EarlierSettingsDialog*>());
        QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("sdcardFormatButton")),
                          Qt::LeftButton);
        auto* format = window->findChild<MRVFormatWindowController*>();
        waitFor("cards listed", [format] { return !format->usbDiskArray().empty(); });
        visitAndClose(QStringLiteral("format"), format);
        closeAndWait(window);
        ObdPreference::set(hadObd);
    }

    void clock()
    {
        m_stage.action(Command::ShowTimeSetupPanel)->trigger();
        visitAndClose(QStringLiteral("clock"), m_stage.delegate.lastDialogController());
    }

    void logs()
    {
        QPointer<DrivingLogWindow> log =
            new DrivingLogWindow(flashDataLog(), m_card + "/DrvInfo/marvo_000.drv", nullptr);
        QSignalSpy read(&log->view(), &DrivingLogViewController::readingEnded);
        log->show();
        if (!shown(log) || (read.isEmpty() && !read.wait()))
            qFatal("the driving log was not read");
        QTest::qWait(100); // the sheet goes
        m_visit(QStringLiteral("log"), *log);
        log->view().doubleClickTableRow(0);
        QWidget* map = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->findChild<MapView*>() && window != &m_stage.window())
                map = window;
        if (!shown(map))
            qFatal("the map window did not open");
        waitForMap(*map->findChild<MapView*>());
        m_visit(QStringLiteral("log-map"), *map);
        closeAndWait(log.data());
    }

    std::string m_card;
    ShownDisks m_disks;
    Maps m_maps;
    const Visitor& m_visit;
    WindowStage m_stage;
};

} // namespace

void showEveryWindow(const std::string& card, InterfaceLanguage language, Maps maps, const Visitor& visit)
{
    Gallery(card, language, maps, visit).showAll();
}

} // namespace marvo::people
