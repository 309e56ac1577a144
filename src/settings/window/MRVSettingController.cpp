// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/MRVSettingController.h"

#include "card/CardLayout.h"
#include "card/disks/Disks.h"
#include "card/format/MRVFormatWindowController.h"
#include "controls/InterfaceScale.h"
#include "controls/LoadingSheet.h"
#include "controls/MessageSheet.h"
#include "controls/SegmentedControl.h"
#include "controls/WholeScrollArea.h"
#include "controls/WorkArea.h"
#include "platform/DesktopPrograms.h"
#include "settings/SettingFile.h"
#include "settings/window/EarlierSettingsDialog.h"
#include "settings/window/ObdPreference.h"
#include "settings/window/SettingsTabView.h"
#include "settings/window/UnsavedChanges.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLoggingCategory>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logSettings, "marvo.settings")

constexpr std::chrono::seconds saveEndsWithin{5};

QPushButton* windowButton(const char* name, const char* key, QWidget* parent)
{
    auto* button = new QPushButton(localised(key), parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace

MRVSettingController::MRVSettingController(Disks& disks, const SettingsTabTable& tabs,
                                           viewControllerForMRVSettingDelegate* delegate, QWidget* parent)
    : QWidget(parent, Qt::Window), m_disks(disks), m_tabTable(tabs), m_delegate(delegate), m_tabs(tabs.always)
{
    setObjectName(QStringLiteral("MRVSettingController"));
    setAttribute(Qt::WA_DeleteOnClose);
    fillDefaultFileDataForLanguage(m_FileData, m_language);
    buildWindow();
    updateTabBar();
    updateWindowTitle();
    connect(&m_disks, &Disks::volumesChanged, this, &MRVSettingController::volumesChanged);
}

MRVSettingController::~MRVSettingController()
{
    // The application may end with this window; a running save must reach the card.
    m_write.waitForAll(saveEndsWithin);
}

void MRVSettingController::buildWindow()
{
    m_functionSegmentedControl = new SegmentedControl(this);
    m_functionSegmentedControl->setObjectName(QStringLiteral("functionSegmentedControl"));
    m_functionSegmentedControl->setAccessibleName(localised("setting.window_title"));
    connect(m_functionSegmentedControl, &SegmentedControl::segmentClicked, this,
            &MRVSettingController::changeViewController);

    m_targetView = new QWidget(this);
    m_targetView->setObjectName(QStringLiteral("targetView"));
    m_targetView->setMinimumSize(
        scaledSize({860, 540})); // the size of the largest tab: switching does not resize the window
    auto* targetLayout = new QVBoxLayout(m_targetView);
    targetLayout->setContentsMargins(0, 0, 0, 0);
    auto* scrolled = new WholeScrollArea(this);
    scrolled->setObjectName(QStringLiteral("targetScroll"));
    scrolled->setWidget(m_targetView);

    m_resetButton = windowButton("resetButton", "setting.initialize", this);
    m_saveButton = windowButton("saveButton", "save", this);
    m_saveButton->setDefault(true);
    auto* cancelButton = windowButton("cancelButton", "cancel", this);
    connect(m_resetButton, &QPushButton::clicked, this, &MRVSettingController::onSaveDefaultSetting);
    connect(m_saveButton, &QPushButton::clicked, this, &MRVSettingController::onSave);
    connect(cancelButton, &QPushButton::clicked, this, &MRVSettingController::onCloseCmd);

    QPushButton* tools = windowButton("toolsButton", "setting.tools", this);
    tools->setMenu(new QMenu(tools));
    buildToolsMenu(*tools->menu());

    auto* sdcardFormatButton = windowButton("sdcardFormatButton", "setting.sdcardformat", this);
    connect(sdcardFormatButton, &QPushButton::clicked, this, &MRVSettingController::onFormat);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(tools);
    buttons->addWidget(sdcardFormatButton);
    buttons->addWidget(m_resetButton);
    buttons->addStretch();
    buttons->addWidget(cancelButton);
    buttons->addWidget(m_saveButton);
    m_buttonsInOrder = {tools, sdcardFormatButton, m_resetButton, cancelButton, m_saveButton};

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(12);
    layout->addWidget(m_functionSegmentedControl);
    layout->addWidget(scrolled, 1);
    m_noticeLabel = new QLabel(localised("setting.defaults_shown"), this);
    m_noticeLabel->setObjectName(QStringLiteral("noticeLabel"));
    m_noticeLabel->setForegroundRole(QPalette::PlaceholderText);
    m_noticeLabel->setWordWrap(true);
    QSizePolicy policy = m_noticeLabel->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // keeps the tab's height
    m_noticeLabel->setSizePolicy(policy);
    m_noticeLabel->hide();
    layout->addWidget(m_noticeLabel);
    layout->addLayout(buttons);
    m_loadingSheet = new LoadingSheet(this);
    connect(new QShortcut(Qt::CTRL | Qt::Key_W, this), &QShortcut::activated, this,
            &MRVSettingController::requestClose);
}

void MRVSettingController::buildToolsMenu(QMenu& menu)
{
    const auto add = [&](const char* name, const char* key) {
        QAction* action = menu.addAction(localised(key));
        action->setObjectName(QLatin1String(name));
        return action;
    };
    connect(add("onDiskUtil", "setting.disk_utility"), &QAction::triggered, this,
            &MRVSettingController::onDiskUtil);
    m_openAction = add("openSettingsFile", "setting.open_file");
    connect(m_openAction, &QAction::triggered, this, &MRVSettingController::openSettingsFile);
    m_restoreAction = add("restoreEarlierFile", "setting.restore_earlier");
    connect(m_restoreAction, &QAction::triggered, this, &MRVSettingController::restoreEarlierFile);
    menu.addSeparator();
    QAction* obd = add("obdAdapter", "setting.camera_with_obd");
    obd->setCheckable(true);
    obd->setChecked(ObdPreference::isOn());
    connect(obd, &QAction::toggled, this, [this](bool on) {
        ObdPreference::set(on);
        updateTabBar();
    });
}

void MRVSettingController::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_initialised)
        return;
    m_initialised = true;
    centreInWorkArea(*this, size().expandedTo(sizeHint()));
    onInitDIalog();
    changeViewController(0);
}

void MRVSettingController::onInitDIalog()
{
    fillDefaultFileDataForLanguage(m_FileData, m_language);
    m_unchanged = m_FileData;
    setTabEnabled(false);
    // On Wayland, a sheet shown before its window is mapped gets no parent.
    QTimer::singleShot(0, this, [this] {
        if (!m_loaded)
            showLoading(QStringLiteral("Loading..."));
    });
    m_load.start(
        [disks = &m_disks, language = m_language, earlier = m_card](const LatestRun&) {
            return loadSettingFile(*disks, CardNaming::RenameToCardName, language, earlier);
        },
        [this](LoadedSettings loaded) { settingsRead(std::move(loaded)); });
}

void MRVSettingController::settingsRead(LoadedSettings loaded)
{
    m_card = std::move(loaded.card);
    m_FileData = m_unchanged = loaded.record;
    hideLoading();
    setTabEnabled(true);
    if (m_targetController)
        m_targetController->setFileData(&m_FileData);
    updateWindowTitle();
    updateTabBar();
    Q_EMIT settingsLoaded();
}

void MRVSettingController::volumesChanged()
{
    m_volumesChanged = true;
    lookForCardAgain();
}

void MRVSettingController::lookForCardAgain()
{
    // One look-up at a time, since an older one could end last; none while a card is being formatted. Changes
    // meanwhile are looked up afterwards.
    if (!m_volumesChanged || !m_loaded || m_look.isRunning() || m_lastDialogController)
        return;
    m_volumesChanged = false;
    m_look.start(
        [disks = &m_disks, language = m_language, card = m_card](const LatestRun&) {
            return isStillThere(*disks, card)
                       ? std::nullopt
                       : std::optional(loadSettingFile(*disks, CardNaming::RenameToCardName, language, {}));
        },
        [this](std::optional<LoadedSettings> changed) {
            if (!m_loaded)
                m_volumesChanged = true;
            else if (changed)
                takeCard(std::move(*changed));
            lookForCardAgain();
        });
}

void MRVSettingController::takeCard(LoadedSettings loaded)
{
    m_card = std::move(loaded.card);
    // The user's changes, which may not be stored in the record yet, take precedence over a card inserted
    // later.
    if (loaded.wasRead && !m_touched && !m_openedFile) {
        m_FileData = m_unchanged = loaded.record;
        if (m_targetController)
            m_targetController->setFileData(&m_FileData);
    }
    updateWindowTitle();
    updateTabBar();
}

void MRVSettingController::setTabEnabled(bool enabled)
{
    m_loaded = enabled;
    m_targetView->setEnabled(enabled);
    m_functionSegmentedControl->setEnabled(enabled);
    m_saveButton->setEnabled(enabled);
    m_resetButton->setEnabled(enabled);
    m_restoreAction->setEnabled(enabled);
    m_openAction->setEnabled(enabled);
    lookForCardAgain();
}

void MRVSettingController::updateWindowTitle()
{
    const QString title = localised("setting.window_title");
    const QString version = QStringLiteral(MARVO_VERSION);
    const auto& path = m_openedFile ? m_openedFile : m_card.m_SettingFilePath;
    m_noticeLabel->setVisible(!path && m_loaded);
    if (path) {
        setWindowTitle(QStringLiteral("%1[Ver %2] : %3").arg(title, version, displayText(*path)));
    } else {
        setWindowTitle(QStringLiteral("%1[Ver %2]").arg(title, version));
    }
}

void MRVSettingController::updateTabBar()
{
    m_tabs = m_tabTable.always;
    if (ObdPreference::isOn() || m_card.holdsObdLog)
        m_tabs.insert(m_tabs.end(), m_tabTable.withObd.begin(), m_tabTable.withObd.end());
    QStringList labels;
    for (const SettingsTab& tab : m_tabs)
        labels.append(localised(tab.labelKey));
    if (labels == m_functionSegmentedControl->labels())
        return;
    if (m_lastSelectedTabIndex >= labels.size())
        changeViewController(0);
    m_functionSegmentedControl->setLabels(labels);
    m_functionSegmentedControl->setSelectedSegment(m_lastSelectedTabIndex);
}

void MRVSettingController::changeViewController(int index)
{
    if (index == m_lastSelectedTabIndex || index < 0 || static_cast<std::size_t>(index) >= m_tabs.size())
        return;
    if (m_targetController) {
        if (const auto message = m_targetController->validateUserInput()) {
            m_functionSegmentedControl->setSelectedSegment(m_lastSelectedTabIndex);
            showMessageSheet(this, QStringLiteral("MARVO"), *message);
            return;
        }
        m_targetController->populate();
        m_targetController->onHide();
        m_targetController->hide();
        m_targetView->layout()->removeWidget(m_targetController);
        if (!m_keptTabs.values().contains(m_targetController))
            m_targetController->deleteLater(); // its own signal may be running
        m_targetController = nullptr;
    }
    showTab(index);
}

void MRVSettingController::showTab(int index)
{
    const SettingsTab& tab = m_tabs[static_cast<std::size_t>(index)];
    SettingsTabView* view = m_keptTabs.value(QLatin1StringView(tab.labelKey));
    if (!view) {
        view = tab.create(m_targetView, m_card);
        view->setAccessibleName(localised(tab.titleKey));
        if (tab.lifetime == SettingsTab::Lifetime::Window)
            m_keptTabs.insert(QString::fromLatin1(tab.labelKey), view); // a log: it edits no settings
        else
            connect(view, &SettingsTabView::edited, this, [this] { m_touched = true; });
    }
    m_targetController = view;
    m_targetView->layout()->addWidget(view);
    // In this order: what a tab begins when it first sees the record covers no window.
    view->setFileData(&m_FileData);
    view->setMainController(this);
    view->show();
    orderTabStops();
    m_lastSelectedTabIndex = index;
    m_functionSegmentedControl->setSelectedSegment(index);
}

/// Moves the buttons below the tab after it in the tab order.
void MRVSettingController::orderTabStops()
{
    const auto comesBefore = [this](const QWidget* widget) {
        return widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy() &&
               (m_functionSegmentedControl->isAncestorOf(widget) || m_targetController->isAncestorOf(widget));
    };
    QWidget* before = m_functionSegmentedControl;
    for (QWidget* next = before->nextInFocusChain(); next != m_functionSegmentedControl;
         next = next->nextInFocusChain())
        if (comesBefore(next))
            before = next;
    for (QWidget* button : m_buttonsInOrder) {
        setTabOrder(before, button);
        before = button;
    }
}

void MRVSettingController::populate()
{
    if (m_targetController)
        m_targetController->populate();
}

std::optional<QString> MRVSettingController::validateUserInput()
{
    return m_targetController ? m_targetController->validateUserInput() : std::nullopt;
}

void MRVSettingController::onSave()
{
    if (!m_loaded)
        return;
    if (const auto message = validateUserInput()) {
        showMessageSheet(this, QStringLiteral("MARVO"), *message);
        return;
    }
    populate();
    sealFileData(m_FileData);
    if (m_openedFile)
        return writeTo(*m_openedFile, m_FileData, SaveTarget::Chosen);
    setTabEnabled(false);
    m_findDestination.start(
        [disks = &m_disks, card = m_card](const LatestRun&) { return saveDestination(*disks, card); },
        [this, record = m_FileData](const std::optional<std::string>& destination) {
            setTabEnabled(true);
            if (destination)
                writeTo(*destination, record, SaveTarget::FoundCard);
            else
                askWhereToSave(record);
        });
}

void MRVSettingController::askWhereToSave(const _FILEDATA& record)
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    auto* dialog = new QFileDialog(this, QStringLiteral("Save Settings"), desktop);
    dialog->setObjectName(QStringLiteral("saveDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->selectFile(QString::fromLatin1(settingsFileName));
    // A card inserted meanwhile may change the record.
    connect(dialog, &QFileDialog::fileSelected, this, [this, record](const QString& path) {
        writeTo(QFile::encodeName(path).toStdString(), record, SaveTarget::Chosen);
    });
    dialog->open();
}

void MRVSettingController::writeTo(const std::string& path, const _FILEDATA& record, SaveTarget target)
{
    setTabEnabled(false);
    m_write.start([record, path, target, backups = m_backups](
                      const LatestRun&) mutable { return saveToFile(record, path, target, backups); },
                  [this, path, speedUnit = record.speedUnit](const std::optional<QString>& error) {
                      saved(path, speedUnit, error);
                  });
}

void MRVSettingController::saved(const std::string& path, std::uint32_t speedUnit,
                                 const std::optional<QString>& error)
{
    setTabEnabled(true);
    if (error) {
        qCWarning(logSettings, "%s", qUtf8Printable(*error));
        showMessageSheet(this, QStringLiteral("Warn"), localised("msg.write_protected_disk"));
        return;
    }
    m_touched = false;
    showAlertSheet(this, QStringLiteral("Information"), localised("msg.saved") + displayText(path),
                   [this] { onCloseCmd(); });
    if (m_delegate)
        m_delegate->setDisplayMile(speedUnit);
}

void MRVSettingController::onCloseCmd() { close(); }

bool MRVSettingController::hasUnsavedChanges()
{
    if (!m_touched)
        return false;
    if (validateUserInput())
        return true;
    populate();
    return m_FileData != m_unchanged;
}

void MRVSettingController::requestClose()
{
    if (m_findDestination.isRunning() || m_write.isRunning())
        return; // wait for the result, which needs the window
    if (hasUnsavedChanges())
        askAboutUnsavedChanges(
            *this, [this] { onSave(); }, [this] { onCloseCmd(); });
    else
        onCloseCmd();
}

void MRVSettingController::closeEvent(QCloseEvent* event)
{
    // Spontaneous: closed by the desktop, such as from the title bar.
    event->setAccepted(!event->spontaneous() || !hasUnsavedChanges());
    if (!event->isAccepted())
        requestClose();
}

void MRVSettingController::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Cancel))
        requestClose();
    else if (isReturn && !qobject_cast<QAbstractItemView*>(focusWidget())) // a log uses Return itself
        m_saveButton->click();
    else
        QWidget::keyPressEvent(event);
}

void MRVSettingController::onDiskUtil()
{
    if (!startDiskUtility())
        showMessageSheet(this, QStringLiteral("MARVO"), localised("msg.no_disk_utility"));
}

void MRVSettingController::onFormat()
{
    if (m_lastDialogController)
        return;
    m_lastDialogController = new MRVFormatWindowController(m_disks, newCameraSettings(), this);
    m_lastDialogController->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_lastDialogController, &MRVFormatWindowController::cardChanged, this,
            &MRVSettingController::reloadAfterFormat);
    // Queued: it is also destroyed with this window.
    connect(m_lastDialogController, &QObject::destroyed, this, &MRVSettingController::lookForCardAgain,
            Qt::QueuedConnection);
    m_lastDialogController->show();
}

void MRVSettingController::reloadAfterFormat()
{
    m_load.start([disks = &m_disks, language = m_language](
                     const LatestRun&) { return loadSettingFile(*disks, CardNaming::Keep, language, {}); },
                 [this](LoadedSettings loaded) { takeCard(std::move(loaded)); });
}

void MRVSettingController::onSaveDefaultSetting()
{
    m_touched = true;
    fillDefaultFileDataForLanguage(m_FileData, m_language);
    if (m_targetController)
        m_targetController->setFileData(&m_FileData);
}

void MRVSettingController::restoreEarlierFile()
{
    auto* dialog = new EarlierSettingsDialog(m_backups.copies(), this);
    connect(dialog, &EarlierSettingsDialog::chosen, this, &MRVSettingController::useEarlierFile);
    dialog->open();
}

void MRVSettingController::useEarlierFile(const std::string& path)
{
    _FILEDATA earlier{};
    if (!readSettingFile(path, earlier)) {
        showMessageSheet(this, QStringLiteral("MARVO"), localised("msg.earlier_unreadable"));
        return;
    }
    m_touched = true;
    m_FileData = earlier;
    if (m_targetController)
        m_targetController->setFileData(&m_FileData);
}

void MRVSettingController::openSettingsFile()
{
    const auto choose = [this] {
        auto* dialog = new QFileDialog(this, localised("setting.open_file"));
        dialog->setObjectName(QStringLiteral("openSettingsDialog"));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::ExistingFile);
        dialog->setNameFilter(QStringLiteral("%1 (*.bin)").arg(localised("setting.file")));
        connect(dialog, &QFileDialog::fileSelected, this, &MRVSettingController::readOpenedFile);
        dialog->open();
    };
    if (hasUnsavedChanges())
        askAboutUnsavedChanges(
            *this, [this] { onSave(); }, choose);
    else
        choose();
}

void MRVSettingController::readOpenedFile(const QString& file)
{
    const std::string path = QFile::encodeName(file).toStdString();
    setTabEnabled(false);
    m_open.start([path](const LatestRun&) { return readWholeFile(path); },
                 [this, path](const std::optional<_FILEDATA>& record) {
                     setTabEnabled(true);
                     if (record)
                         editOpenedFile(path, *record);
                     else
                         showMessageSheet(this, QStringLiteral("MARVO"),
                                          localised("msg.no_settings_file").arg(displayText(path)));
                 });
}

void MRVSettingController::editOpenedFile(const std::string& path, const _FILEDATA& record)
{
    m_openedFile = path;
    m_FileData = m_unchanged = record;
    if (m_targetController)
        m_targetController->setFileData(&m_FileData);
    m_touched = false;
    updateWindowTitle();
}

void MRVSettingController::showLoading(const QString& title) { m_loadingSheet->showLoading(title); }

void MRVSettingController::hideLoading() { m_loadingSheet->hideLoading(); }

} // namespace marvo
