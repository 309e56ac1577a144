// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MRVMediaList.h"
#include "playback/MRVPlayInfo.h"
#include "recording/MRVBlackBoxData.h"
#include "recording/Speed.h"
#include "settings/window/MRVSettingControllerDelegate.h"
#include "texts/Localisation.h"
#include "viewer/folders/CardSettingsLookup.h"
#include "viewer/list/RecordingTableModel.h"
#include "viewer/LoadingIndicator.h"
#include "viewer/SidePanel.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace marvo {

class CaptureCommands;
class CustomWindow;
class Disks;
class DataPanelUpdater;
class FolderCommands;
class FolderStatus;
class MainViews;
class MainWindowCommands;
enum class Command;
class MainWindowPlaybackHost;
class PlaybackController;
class PlaybackViews;
class PrintController;
class ToolWindows;
class VlcPlayer;

/// The controller of the application's one main window. It owns the player, the play state, the media list
/// and the extractor for the application's lifetime, and joins them to the window; playback and the data
/// panels have their own rules elsewhere.
class MRVAppDelegate : public QObject, public viewControllerForMRVSettingDelegate
{
    Q_OBJECT
public:
    struct Configuration
    {
        InterfaceLanguage language = interfaceLanguage();
        std::chrono::milliseconds loadingTick = LoadingIndicator::tickInterval;
        CardSettingsReader readCardSettings = marvo::readCardSettings;
        Disks* disks = nullptr; ///< where the settings window looks for the card; outlives the application
        std::string capturePath = "/tmp/marvo_capture.jpg"; ///< the picture that was captured or printed last
    };

    MRVAppDelegate();
    explicit MRVAppDelegate(const Configuration& configuration);
    ~MRVAppDelegate() override;

    /// The window has been loaded: makes the engine and the data objects, and joins them to it.
    void awakeFromNib();
    /// The application has started: fixes the language, sizes the window, and shows it.
    void applicationDidFinishLaunching();
    /// Stops playback and releases the player and its video view.
    void applicationWillTerminate();

    /// Stops the player and scans a folder (a path as bytes); recordingsListed follows.
    void openDirectory(const std::string& path);
    /// Opens the folder that was open last, if there is one and it is still there.
    void reopenLastFolder();

    void openMediaDirectoryDialog();
    /// Plays the selected row, as a double click on it does.
    void changeAndPlay();
    void toggleFullScreen();
    /// Saves the picture that plays.
    void captureVideo();
    /// Prints the picture that is shown, playing or paused.
    void print();
    void clickMediaListViewButton();
    void clickMapViewButton();
    void closeWindow();

    /// 1 shows miles, 0 kilometres; any other value changes nothing.
    void setDisplayMile(std::uint32_t speedUnit) override;
    /// Opens the camera's settings, or brings the window forward that already shows them.
    void showSettingPanel();
    /// Opens the camera's clock, or brings the dialog forward that already shows it.
    void showTimeSetupPanel();
    /// The settings or clock dialog that was opened last; none once it has been closed.
    QWidget* lastDialogController() const;
    /// Asks for a driving log, of any camera, and shows it in a window of its own.
    void openDrivingLog();

    CustomWindow& window() const { return *m_window; }
    MainViews& views() const { return *m_views; }
    const MainWindowCommands& commands() const { return *m_commands; }
    PrintController& printing() const;
    PlaybackController& playback() const { return *m_playback; }
    const VlcPlayer* player1() const { return m_player1.get(); }
    const MRVMediaList& mediaList() const { return m_mediaList; }
    const MRVBlackBoxData& blackBoxData() const { return m_blackBoxData; }
    const MRVPlayInfo& playInfo() const { return m_playInfo; }
    const LoadingIndicator& loadingIndicator() const { return *m_loading; }
    const RecordingTableModel& recordings() const { return m_recordings; }
    RightViewMode rightViewMode() const { return m_rightViewMode; }
    bool m_bMileDisplay() const { return m_speedUnit == SpeedUnit::Miles; }
    bool m_bKorean() const { return m_korean; }

Q_SIGNALS:
    /// The scan has ended, and the list shows its result.
    void recordingsListed();

private:
    void setupInitialValues();
    void connectCommands();
    void remember(Command command, const char* key, const std::function<void(bool)>& apply);
    void mediaListChanged();
    void cardSettingsKnown(const _FILEDATA& record);
    void setMileDisplay(bool miles);
    void setRightViewMode(RightViewMode mode);
    void updateSideViewButton();
    void die();

    Configuration m_configuration;
    MRVPlayInfo m_playInfo;
    MRVMediaList m_mediaList;
    MRVBlackBoxData m_blackBoxData;
    RecordingTableModel m_recordings;
    CardSettingsLookup m_cardSettings;

    std::unique_ptr<CustomWindow> m_window;
    MainWindowCommands* m_commands = nullptr; ///< the window's, as are the next two
    MainViews* m_views = nullptr;
    LoadingIndicator* m_loading = nullptr;

    std::unique_ptr<VlcPlayer> m_player1;
    std::unique_ptr<DataPanelUpdater> m_dataPanel;
    std::unique_ptr<MainWindowPlaybackHost> m_host;
    std::unique_ptr<PlaybackController> m_playback;
    std::unique_ptr<FolderCommands> m_folders;

    std::unique_ptr<FolderStatus> m_folderStatus;
    std::unique_ptr<PlaybackViews> m_playbackViews;
    std::unique_ptr<CaptureCommands> m_captureCommands;
    std::unique_ptr<ToolWindows> m_toolWindows;

    RightViewMode m_rightViewMode = RecordingListMode;
    bool m_korean = false;
    SpeedUnit m_speedUnit = SpeedUnit::Kilometres;
};

} // namespace marvo
