// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileData.h"
#include "settings/window/CardSettings.h"
#include "settings/window/SettingsBackups.h"
#include "settings/window/SettingsTab.h"
#include "texts/Localisation.h"
#include "workers/Latest.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace marvo {

class Disks;
class LoadingSheet;
class MRVFormatWindowController;
class SegmentedControl;
class viewControllerForMRVSettingDelegate;

/// The settings window. It finds the camera's card, reads the settings into its record, shows one tab at a
/// time for editing, and writes the record back. Only onSave() writes to the card.
class MRVSettingController : public QWidget
{
    Q_OBJECT
public:
    /// The disks must outlive every window of the application; the table of tabs and the delegate, which may
    /// be null, this one.
    MRVSettingController(Disks& disks, const SettingsTabTable& tabs,
                         viewControllerForMRVSettingDelegate* delegate, QWidget* parent = nullptr);
    /// Waits a few seconds at most for a save that is still running.
    ~MRVSettingController() override;

    _FILEDATA* filedata() { return &m_FileData; }
    const SelectedCard& selectedCard() const { return m_card; }
    Disks& disks() { return m_disks; }

    /// Shows the tab of a segment, after the shown one has been checked and stored; with invalid input it
    /// stays.
    void changeViewController(int index);
    /// Forwarded to the tab shown.
    void populate();
    std::optional<QString> validateUserInput();

    void onSave();
    /// Closes the window. Unsaved changes are lost.
    void onCloseCmd();
    /// Closes the window; asks first if there are unsaved changes.
    void requestClose();
    void onDiskUtil();
    /// Shows the dialog that formats a card; afterwards the settings are read again.
    void onFormat();
    /// The defaults of the language into the record and the tab shown; nothing is written.
    void onSaveDefaultSetting();

    /// The loading sheet; it goes by itself after 15 s. Also used by the views in the window's tabs.
    void showLoading(const QString& title);
    void hideLoading();
    LoadingSheet& loadingSheet() { return *m_loadingSheet; }

Q_SIGNALS:
    /// The record has been read from the card, or was found to stay as it is.
    void settingsLoaded();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildWindow();
    void buildToolsMenu(QMenu& menu);
    void onInitDIalog();
    void settingsRead(LoadedSettings loaded);
    void reloadAfterFormat();
    void volumesChanged();
    void lookForCardAgain();
    void takeCard(LoadedSettings loaded);
    void updateWindowTitle();
    void updateTabBar();
    void showTab(int index);
    void orderTabStops();
    void setTabEnabled(bool enabled);
    bool hasUnsavedChanges();
    void askWhereToSave(const _FILEDATA& record);
    void writeTo(const std::string& path, const _FILEDATA& record, SaveTarget target);
    void saved(const std::string& path, std::uint32_t speedUnit, const std::optional<QString>& error);
    void openSettingsFile();
    void readOpenedFile(const QString& file);
    void editOpenedFile(const std::string& path, const _FILEDATA& record);
    void restoreEarlierFile();
    void useEarlierFile(const std::string& path);

    Disks& m_disks;
    Latest<LoadedSettings> m_load{this};
    Latest<std::optional<LoadedSettings>> m_look{this};
    Latest<std::optional<std::string>> m_findDestination{this};
    Latest<std::optional<QString>> m_write{this};
    Latest<std::optional<_FILEDATA>> m_open{this};
    const SettingsTabTable& m_tabTable;
    viewControllerForMRVSettingDelegate* m_delegate;
    InterfaceLanguage m_language = interfaceLanguage(); ///< of the defaults
    _FILEDATA m_FileData{};
    _FILEDATA m_unchanged{}; ///< the record as it was read or last written
    SelectedCard m_card;
    std::optional<std::string> m_openedFile; ///< chosen by the user in place of a card's
    SettingsBackups m_backups;
    std::vector<SettingsTab> m_tabs;             ///< of the segments now offered
    QHash<QString, SettingsTabView*> m_keptTabs; ///< by the key of their label
    int m_lastSelectedTabIndex = -1;
    bool m_initialised = false;
    bool m_touched = false;        ///< the user has changed something in a tab, or replaced the record
    bool m_loaded = false;         ///< no read or write of the record is running
    bool m_volumesChanged = false; ///< since the card was looked for

    SegmentedControl* m_functionSegmentedControl = nullptr;
    QAction* m_openAction = nullptr;
    QAction* m_restoreAction = nullptr;
    QLabel* m_noticeLabel = nullptr;
    QPushButton* m_saveButton = nullptr;
    QPushButton* m_resetButton = nullptr;
    QList<QWidget*> m_buttonsInOrder; ///< those below the tab, as they stand
    QWidget* m_targetView = nullptr;
    SettingsTabView* m_targetController = nullptr;
    LoadingSheet* m_loadingSheet = nullptr;
    QPointer<MRVFormatWindowController> m_lastDialogController; ///< while it is open
};

} // namespace marvo
