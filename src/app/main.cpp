// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "app/StartOptions.h"
#include "app/Tour.h"
#include "card/disks/Disks.h"
#include "card/disks/MachineDisks.h"
#include "controls/MessageSheet.h"
#include "controls/PMProgressIndicatorController.h"
#include "map/MapSurface.h"
#include "platform/Allocation.h"
#include "platform/LauncherProgress.h"
#include "settings/window/CardSettings.h"
#include "support/Log.h"
#include "support/Termination.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"
#include "viewer/Appearance.h"
#include "viewer/CustomWindow.h"
#include "viewer/MRVAppDelegate.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace {

Q_LOGGING_CATEGORY(lcCore, "marvo.core")

QtMessageHandler usualMessages = nullptr;

/// Log lines hold names from cards: on a terminal they must not contain control characters or line ends.
void logPrintableText()
{
    usualMessages = qInstallMessageHandler(nullptr); // known before another thread may need it
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& message) {
        usualMessages(type, context, marvo::displayText(message));
    });
}

int printMessage(const marvo::StartOptions& options)
{
    std::fputs(options.message.toLocal8Bit().constData(), options.messageExit == 0 ? stdout : stderr);
    return options.messageExit;
}

/// Help and version need no display, so they are answered before one is opened.
bool asksForText(int argc, char** argv)
{
    return std::any_of(argv + std::min(1, argc), argv + argc, [](std::string_view argument) {
        return argument == "-h" || argument == "--help" || argument == "-v" || argument == "--version";
    });
}

/// A folder named on the command line may be misspelt, so a message says so. One chosen in the window
/// exists.
void openAtStart(marvo::MRVAppDelegate& delegate, const std::string& folder, bool mayAsk)
{
    if (mayAsk)
        QObject::connect(
            &delegate, &marvo::MRVAppDelegate::recordingsListed, &delegate,
            [&delegate, folder] {
                if (delegate.mediaList().folderError() && delegate.mediaList().directoryPath() == folder)
                    marvo::showMessageSheet(
                        &delegate.window(), QStringLiteral("MARVO"),
                        marvo::localised("viewer.folder.cannotOpen").arg(marvo::displayText(folder)));
            },
            Qt::SingleShotConnection);
    delegate.openDirectory(folder);
}

/// The machine's disks, or the folder that stands for the camera's card. Detached workers use them, so they
/// live until the process ends.
marvo::Disks& disksFor(const marvo::StartOptions& options)
{
    static marvo::Disks* const disks = marvo::machineDisks(options.card).release();
    return *disks;
}

/// The settings on the card that a folder lies on, else those of the card in the reader.
std::optional<marvo::_FILEDATA> settingsFor(const std::string& folder, marvo::Disks& disks)
{
    if (!folder.empty()) {
        if (const auto record = marvo::readCardSettings(folder))
            return record;
    }
    const marvo::LoadedSettings loaded =
        marvo::loadSettingFile(disks, marvo::CardNaming::Keep, marvo::interfaceLanguage(), {});
    return loaded.wasRead ? std::optional(loaded.record) : std::nullopt;
}

} // namespace

int main(int argc, char** argv)
{
    if (asksForText(argc, argv))
        return printMessage(marvo::readStartOptions(argc, argv));

    marvo::returnFreedMemory();
    marvo::cleanUpOnTermination();
    marvo::prepareForMaps();
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO"));
    QCoreApplication::setApplicationName(QStringLiteral("marvo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MARVO_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("marvo"));
    QApplication application(argc, argv);
    const marvo::StartOptions options = marvo::readStartOptions(argc, argv);
    if (options.messageExit >= 0)
        return printMessage(options);

    logPrintableText();
    marvo::setLogSink(
        [](std::string_view line) { qCInfo(lcCore, "%.*s", static_cast<int>(line.size()), line.data()); });
    if (options.language)
        marvo::useLanguage(*options.language);
    marvo::installLanguage(marvo::interfaceLanguage());
    marvo::applyAppearance(application);
    marvo::PMProgressIndicatorController::sharedInstance().setAnnouncer(
        marvo::launcherProgress(QGuiApplication::desktopFileName()));

    marvo::Disks& disks = disksFor(options);
    marvo::MRVAppDelegate::Configuration configuration;
    configuration.readCardSettings = [&disks](const std::string& folder) {
        return settingsFor(folder, disks);
    };
    configuration.disks = &disks;
    marvo::MRVAppDelegate delegate(configuration);
    delegate.awakeFromNib();
    delegate.applicationDidFinishLaunching();
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &delegate,
                     &marvo::MRVAppDelegate::applicationWillTerminate);

    std::unique_ptr<marvo::Tour> tour;
    if (!options.demoReport.isEmpty()) {
        tour = std::make_unique<marvo::Tour>(delegate, options.demoReport);
        QObject::connect(tour.get(), &marvo::Tour::finished, &application, &QCoreApplication::exit,
                         Qt::QueuedConnection);
        tour->start();
    }
    if (!options.folder.empty())
        openAtStart(delegate, options.folder, tour == nullptr);
    else
        delegate.reopenLastFolder();
    return QApplication::exec();
}
