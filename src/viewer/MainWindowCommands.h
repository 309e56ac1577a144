// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <vector>

class QAction;
class QMenu;
class QWidget;

namespace marvo {

/// What the user can tell the main window to do.
enum class Command {
    OpenMediaDirectoryDialog,
    OpenDrivingLog,
    ShowSettingPanel,
    ShowTimeSetupPanel,
    CaptureVideo,
    SaveStill,
    Print,
    ChangeAndPlay,
    ClickPlayButton,
    JumpBackward,
    JumpForward,
    DecreaseSpeed,
    IncreaseSpeed,
    VolumeDown,
    VolumeUp,
    SizeDown,
    SizeUp,
    KeepWindow,
    KeepProportions,
    ToggleFullScreen,
    ClickMediaListViewButton,
    ClickMapViewButton,
    FindRecording,
    ShowMenu,
    CloseWindow,
    Quit,
};

/// One row of the table of commands.
struct CommandRow
{
    enum class Repeat { Once, WhileHeld };
    enum class Kind { Does, Toggles };

    Command command;
    const char* name; ///< the action's object name; "viewer.command." and the name make the key of its title
    std::vector<QKeySequence> shortcuts; ///< may be none
    Repeat repeat = Repeat::Once;
    Kind kind = Kind::Does;
    const char* tipKey = nullptr; ///< of a tool tip other than name and key
};

const std::vector<CommandRow>& commandTable();

/// The main window's commands as actions with titles and shortcuts, and its menu made of them.
class MainWindowCommands : public QObject
{
    Q_OBJECT
public:
    /// The shortcuts hold in the given window.
    explicit MainWindowCommands(QWidget& window);

    QAction* action(Command command) const;
    QMenu* menu() const { return m_menu; }
    /// Puts the languages before the commands that close.
    void insertLanguages(QMenu& languages);
    /// Puts a submenu below the command that opens a folder.
    void insertRecentFolders(QMenu& recent);

private:
    void buildMenu();

    std::vector<QAction*> m_actions;
    QMenu* m_menu;
};

} // namespace marvo
