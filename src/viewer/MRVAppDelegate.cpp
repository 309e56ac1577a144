// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MRVAppDelegate.h"

#include "capture/CaptureCommands.h"
#include "capture/CaptureController.h"
#include "capture/CaptureFacts.h"
#include "capture/PrintController.h"
#include "capture/StillController.h"
#include "card/disks/Disks.h"
#include "controls/MessageSheet.h"
#include "map/MapSurface.h"
#include "map/MapView.h"
#include "platform/FolderProbe.h"
#include "playback/PlaybackController.h"
#include "playback/VideoView.h"
#include "playback/VlcPlayer.h"
#include "texts/Localisation.h"
#include "viewer/CustomWindow.h"
#include "viewer/FolderCommands.h"
#include "viewer/FolderStatus.h"
#include "viewer/FullScreenControlBar.h"
#include "viewer/FullScreenRest.h"
#include "viewer/HeadBox.h"
#include "viewer/LanguageMenu.h"
#include "viewer/LanguagePreference.h"
#include "viewer/list/RecordingListView.h"
#include "viewer/MainViews.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MainWindowPlaybackHost.h"
#include "viewer/MediaControlBox.h"
#include "viewer/panel/DataPanelUpdater.h"
#include "viewer/panel/GraphView.h"
#include "viewer/PlaybackViews.h"
#include "viewer/TKVideoBackgroundImageView.h"
#include "viewer/ToolWindows.h"
#include "viewer/VideoNotice.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QScreen>
#include <QSettings>

#include <utility>

namespace marvo {

namespace {
constexpr std::chrono::seconds stillNoticeTime{4}; // it names a file
} // namespace

MRVAppDelegate::MRVAppDelegate() : MRVAppDelegate(Configuration{}) {}

MRVAppDelegate::MRVAppDelegate(const Configuration& configuration)
    : m_configuration(configuration),
      m_recordings(m_mediaList),
      m_cardSettings(configuration.readCardSettings),
      m_window(std::make_unique<CustomWindow>(QRect({}, minWindowSize))),
      m_commands(new MainWindowCommands(*m_window)),
      m_views(new MainViews(*m_window, *m_commands)),
      m_loading(new LoadingIndicator(*m_views->progressIndicator, configuration.loadingTick))
{
    m_window->setWindowTitle(QStringLiteral("MARVO"));
    prepareWindowForMap(*m_window);
}

MRVAppDelegate::~MRVAppDelegate() { die(); }

void MRVAppDelegate::awakeFromNib()
{
    m_player1 = std::make_unique<VlcPlayer>(m_views->video1View);
    m_dataPanel =
        std::make_unique<DataPanelUpdater>(m_views->dataPanelFields(), *m_views->graphView,
                                           *m_views->mapWebView, *m_player1, m_blackBoxData, m_playInfo);
    m_host =
        std::make_unique<MainWindowPlaybackHost>(*m_views, m_recordings, *m_loading, *m_dataPanel, [this] {
            // The keyboard stays where it is: recordings also start by themselves.
            m_views->bodyRightBox->updateSideViewButton(m_rightViewMode);
        });
    m_playback =
        std::make_unique<PlaybackController>(*m_player1, m_mediaList, m_blackBoxData, m_playInfo, *m_host);
    m_captureCommands = std::make_unique<CaptureCommands>(
        *m_window, *m_player1,
        [this] {
            return CaptureSnapshots::Shown{m_views->video1View->image(),
                                           captureFactsAt(m_player1->mediaPath(), m_player1->position(),
                                                          m_player1->timeMs(), m_blackBoxData, m_speedUnit)};
        },
        m_configuration.capturePath);
    m_captureCommands->follow(*m_commands->action(Command::CaptureVideo),
                              *m_commands->action(Command::SaveStill), *m_player1);
    VideoNotice* notice = m_views->videoNotice;
    connect(&m_captureCommands->stills(), &StillController::saved, notice, [notice](QString path) {
        if (const QString home = QDir::homePath() + QLatin1Char('/'); path.startsWith(home))
            path.replace(0, home.size(), QStringLiteral("~/")); // as file managers do
        notice->tell(localised("capture.still_saved").arg(path), stillNoticeTime);
    });
    connect(&m_captureCommands->stills(), &StillController::failed, notice, [notice](const QString& reason) {
        notice->tell(localised("capture.still_failed").arg(reason), stillNoticeTime);
    });
    m_folderStatus = std::make_unique<FolderStatus>(*m_views, m_mediaList, m_recordings);

    const QString bar = QStringLiteral("bottom-background");
    m_views->mediaControlBoxForFullScreen->setImageNames(bar, bar, bar);
    m_views->player1BackgroundView->setBackgroundNineImageName(QStringLiteral("v1"));
    m_views->player1BackgroundView->setLogoImage(QStringLiteral("v1_front_logo"));

    m_views->bodyRightBox->mediaListTableView()->setModel(&m_recordings);
    setupInitialValues();
}

void MRVAppDelegate::setupInitialValues()
{
    connect(&m_mediaList, &MRVMediaList::mediaListChanged, this, &MRVAppDelegate::mediaListChanged);
    connect(&m_mediaList, &MRVMediaList::scanProgress, m_folderStatus.get(), &FolderStatus::showScanning);
    connect(&m_cardSettings, &CardSettingsLookup::settingsKnown, this, &MRVAppDelegate::cardSettingsKnown);
    m_playbackViews = std::make_unique<PlaybackViews>(*m_views, *m_player1, m_playInfo, *m_playback);
    connect(m_playback.get(), &PlaybackController::momentShown, m_dataPanel.get(),
            &DataPanelUpdater::refresh);
    connect(m_playback.get(), &PlaybackController::mediaIndexChanged, &m_recordings,
            &RecordingTableModel::setPlayingRow);
    connect(m_playback.get(), &PlaybackController::mediaIndexChanged, m_folderStatus.get(),
            &FolderStatus::showPlaying);
    m_toolWindows = std::make_unique<ToolWindows>(*m_window, m_configuration.disks, this);
    connectCommands();
    connect(m_window.get(), &CustomWindow::contentResized, this, [this] {
        m_views->layoutWindow();
        m_playbackViews->contentResized();
    });
    connect(m_window.get(), &CustomWindow::isFullScreenChanged, this, [this] {
        m_views->layoutWindow();
        updateSideViewButton();
    });
    auto* rest = new FullScreenRest(*m_window, *m_views->mediaControlBoxForFullScreen);
    connect(rest, &FullScreenRest::barConcealed, m_views, &MainViews::concealControlBar);
    connect(m_views, &MainViews::videoDoubleClicked, this, &MRVAppDelegate::toggleFullScreen);
    m_folders = std::make_unique<FolderCommands>(*m_views, *m_commands, m_mediaList, *m_player1, m_playInfo,
                                                 *m_playback, m_configuration.disks);
    connect(m_folders.get(), &FolderCommands::folderWanted, this, &MRVAppDelegate::openDirectory);
    connect(m_window.get(), &CustomWindow::windowWillClose, this, [this] { m_folders->keep(); });
    connect(m_window.get(), &CustomWindow::windowWillClose, m_playback.get(), &PlaybackController::stopPlay);
    if (m_configuration.disks) {
        // A recording that is open in the player would keep its card in use.
        connect(m_configuration.disks, &Disks::aboutToUnmount, this, [this](const std::string& mountPath) {
            const MRVMedia* media = m_mediaList.mediaAtIndex(m_playback->mediaIndex());
            if (media && media->path().starts_with(mountPath + '/'))
                m_playback->stop();
        });
    }

    m_rightViewMode = RecordingListMode;
    updateSideViewButton();
    m_host->showVolume(m_playback->volume());
    m_views->video1View->hide();
    m_views->mapWebView->loadPage(mapPageName());
    m_views->layoutWindow();
    RecordingListView* list = m_views->bodyRightBox->mediaListTableView();
    list->setOpenCommand(m_commands->action(Command::OpenMediaDirectoryDialog));
    list->showNoFolder();
    setMileDisplay(false); // what the default settings have, until a card says otherwise
}

void MRVAppDelegate::applicationDidFinishLaunching()
{
    QSettings preferences;
    storeLanguagePreference(preferences);
    m_korean = supportLanguage() == QLatin1StringView("ko");

    const QRect frame = minWindowFrame(m_window->screen()->availableGeometry());
    m_window->setFrame(frame, CustomWindow::FrameChange::AtOnce);
    m_window->setInitialFrame(frame);
    connect(m_views->bodyRightBox->mediaListTableView(), &RecordingListView::rowActivated, m_playback.get(),
            &PlaybackController::changeAndPlay);
    m_window->show();
    m_cardSettings.lookUp({}); // the card in the reader, before any folder is opened
}

void MRVAppDelegate::connectCommands()
{
    PlaybackController* playback = m_playback.get();
    const auto on = [this](Command command, auto* receiver, auto slot) {
        connect(m_commands->action(command), &QAction::triggered, receiver, slot);
    };
    on(Command::OpenMediaDirectoryDialog, this, &MRVAppDelegate::openMediaDirectoryDialog);
    on(Command::ChangeAndPlay, this, &MRVAppDelegate::changeAndPlay);
    on(Command::ClickPlayButton, playback, &PlaybackController::clickPlayButton);
    on(Command::JumpBackward, playback, &PlaybackController::jumpBackward);
    on(Command::JumpForward, playback, &PlaybackController::jumpForward);
    on(Command::DecreaseSpeed, playback, &PlaybackController::decreaseSpeed);
    on(Command::IncreaseSpeed, playback, &PlaybackController::increaseSpeed);
    on(Command::VolumeDown, playback, &PlaybackController::volumeDown);
    on(Command::VolumeUp, playback, &PlaybackController::volumeUp);
    on(Command::SizeDown, playback, &PlaybackController::sizeDown);
    on(Command::SizeUp, playback, &PlaybackController::sizeUp);
    on(Command::CaptureVideo, this, &MRVAppDelegate::captureVideo);
    on(Command::Print, this, &MRVAppDelegate::print);
    on(Command::ToggleFullScreen, this, &MRVAppDelegate::toggleFullScreen);
    on(Command::OpenDrivingLog, this, &MRVAppDelegate::openDrivingLog);
    on(Command::ShowSettingPanel, this, &MRVAppDelegate::showSettingPanel);
    on(Command::ShowTimeSetupPanel, this, &MRVAppDelegate::showTimeSetupPanel);
    on(Command::ClickMediaListViewButton, this, &MRVAppDelegate::clickMediaListViewButton);
    on(Command::ClickMapViewButton, this, &MRVAppDelegate::clickMapViewButton);
    on(Command::CloseWindow, this, &MRVAppDelegate::closeWindow);
    on(Command::Quit, this, &MRVAppDelegate::closeWindow);
    remember(Command::KeepWindow, "keepWindow", [playback](bool keeps) { playback->setKeepsWindow(keeps); });
    remember(Command::KeepProportions, "keepProportions",
             [view = m_views->video1View](bool keeps) { view->setKeepsProportions(keeps); });
    auto* languages = new LanguageMenu(m_commands->menu());
    m_commands->insertLanguages(*languages);
    connect(languages, &LanguageMenu::languageChosen, this, [this] {
        showMessageSheet(m_window.get(), QStringLiteral("MARVO"), localised("viewer.language.nextStart"));
    });
    connect(m_views->headBox, &HeadBox::minimiseClicked, m_window.get(), &QWidget::showMinimized);
    connect(m_views->headBox, &HeadBox::zoomRequested, m_window.get(), &CustomWindow::toggleZoom);
}

/// A choice of the menu that holds at the next start, too.
void MRVAppDelegate::remember(Command command, const char* key, const std::function<void(bool)>& apply)
{
    QAction* action = m_commands->action(command);
    connect(action, &QAction::toggled, this, [apply, key](bool on) {
        apply(on);
        QSettings().setValue(QLatin1StringView(key), on);
    });
    action->setChecked(QSettings().value(QLatin1StringView(key)).toBool());
}

void MRVAppDelegate::openMediaDirectoryDialog()
{
    auto* dialog = new QFileDialog(m_window.get(), localised("viewer.folder.choose"));
    dialog->setObjectName(QStringLiteral("openMediaDirectoryDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    const std::string& folder = m_mediaList.directoryPath();
    dialog->setDirectory(folderAnswers(folder) ? QFile::decodeName(QByteArray::fromStdString(folder))
                                               : QDir::homePath());
    dialog->resize(760, 460);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& path) { openDirectory(QFile::encodeName(path).toStdString()); });
    dialog->open();
}

void MRVAppDelegate::reopenLastFolder() { m_folders->reopenLastFolder(); }

void MRVAppDelegate::openDirectory(const std::string& path)
{
    m_folders->folderWillChange();
    m_playback->stop();
    m_recordings.setPlayingRow(-1);
    m_views->videoReason->hide();
    m_folderStatus->showPlaying(-1);
    m_mediaList.setDirectoryPath(path);
    m_cardSettings.lookUp(path);
    m_folderStatus->showScanning(0);
}

void MRVAppDelegate::mediaListChanged()
{
    setRightViewMode(RecordingListMode);
    // Wherever it was: a button that opened the folder would keep the Space key.
    if (!m_window->isFullScreen())
        m_views->bodyRightBox->mediaListTableView()->setFocus();
    m_folderStatus->showListed();
    if (!m_folders->folderListed())
        m_folderStatus->showNothingOpen();
    Q_EMIT recordingsListed();
}

void MRVAppDelegate::changeAndPlay()
{
    const std::int64_t row = m_views->bodyRightBox->mediaListTableView()->selectedRow();
    if (row >= 0)
        m_playback->changeAndPlay(row);
}

void MRVAppDelegate::toggleFullScreen()
{
    if (m_window->isFullScreen())
        m_window->leaveFullscreen();
    else
        m_window->enterFullscreen();
}

void MRVAppDelegate::captureVideo() { m_captureCommands->capture().captureVideo(); }

void MRVAppDelegate::print() { m_captureCommands->printing().print(); }

PrintController& MRVAppDelegate::printing() const { return m_captureCommands->printing(); }

void MRVAppDelegate::showSettingPanel() { m_toolWindows->showSettingPanel(); }

void MRVAppDelegate::showTimeSetupPanel() { m_toolWindows->showTimeSetupPanel(); }

QWidget* MRVAppDelegate::lastDialogController() const { return m_toolWindows->lastDialogController(); }

void MRVAppDelegate::openDrivingLog() { m_toolWindows->openDrivingLog(m_mediaList.directoryPath()); }

void MRVAppDelegate::clickMediaListViewButton() { setRightViewMode(RecordingListMode); }

void MRVAppDelegate::clickMapViewButton() { setRightViewMode(MapMode); }

void MRVAppDelegate::setRightViewMode(RightViewMode mode)
{
    if (m_rightViewMode == mode)
        return;
    m_rightViewMode = mode;
    updateSideViewButton();
}

void MRVAppDelegate::updateSideViewButton()
{
    // The keyboard is the list's while the list is shown, and the window's otherwise; it must not wander to
    // whatever button comes next.
    m_window->setFocus();
    m_views->bodyRightBox->updateSideViewButton(m_rightViewMode);
    if (m_rightViewMode == RecordingListMode && !m_window->isFullScreen())
        m_views->bodyRightBox->mediaListTableView()->setFocus();
}

void MRVAppDelegate::cardSettingsKnown(const _FILEDATA& record)
{
    setMileDisplay((record.speedUnit & 0xFF) != 0);
}

void MRVAppDelegate::setDisplayMile(std::uint32_t speedUnit)
{
    if (speedUnit <= 1)
        setMileDisplay(speedUnit == 1);
}

void MRVAppDelegate::setMileDisplay(bool miles)
{
    m_speedUnit = miles ? SpeedUnit::Miles : SpeedUnit::Kilometres;
    m_dataPanel->setSpeedUnit(m_speedUnit);
}

void MRVAppDelegate::closeWindow() { m_window->close(); }

void MRVAppDelegate::applicationWillTerminate() { die(); }

void MRVAppDelegate::die()
{
    if (!m_playback)
        return;
    m_folders->keep();
    m_playback->stopPlay();
    m_folders.reset();
    m_captureCommands.reset();
    m_playbackViews.reset();
    m_playback.reset();
    m_host.reset();
    m_dataPanel.reset();
    m_player1.reset();
}

} // namespace marvo
