// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MainWindowCommands.h"

#include "playback/PlaybackSteps.h"
#include "texts/Localisation.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

#include <algorithm>

namespace marvo {

namespace {

struct MenuSection
{
    const char* titleKey; ///< of a submenu; none puts a line and the commands into the menu itself
    std::vector<Command> commands;
};

const std::vector<MenuSection>& menuTable()
{
    using enum Command;
    static const std::vector<MenuSection> table{
        {nullptr, {OpenMediaDirectoryDialog, OpenDrivingLog}},
        {nullptr, {ShowSettingPanel, ShowTimeSetupPanel}},
        {nullptr, {CaptureVideo, SaveStill, Print}},
        {nullptr, {}}, // a line between the commands and the submenus
        {"viewer.menu.playback",
         {ChangeAndPlay, ClickPlayButton, JumpBackward, JumpForward, DecreaseSpeed, IncreaseSpeed}},
        {"viewer.menu.sound", {VolumeDown, VolumeUp}},
        {"viewer.menu.view",
         {ClickMediaListViewButton, ClickMapViewButton, FindRecording, SizeDown, SizeUp, KeepProportions,
          KeepWindow, ToggleFullScreen}},
        {nullptr, {CloseWindow, Quit}},
    };
    return table;
}

} // namespace

const std::vector<CommandRow>& commandTable()
{
    using enum Command;
    using enum CommandRow::Repeat;
    const auto key = [](int keyCode) { return QKeySequence(keyCode); };
    const auto control = [](Qt::Key keyCode) { return QKeySequence(Qt::CTRL | keyCode); };
    static const std::vector<CommandRow> table{
        {OpenMediaDirectoryDialog, "openMediaDirectoryDialog", {key(Qt::Key_O), control(Qt::Key_O)}},
        {OpenDrivingLog, "openDrivingLog", {control(Qt::Key_L)}},
        {ShowSettingPanel, "showSettingPanel", {control(Qt::Key_Comma)}},
        {ShowTimeSetupPanel, "showTimeSetupPanel", {control(Qt::Key_T)}},
        {CaptureVideo, "captureVideo", {control(Qt::Key_S)}},
        {SaveStill, "saveStill", {key(Qt::Key_K)}},
        {Print, "print", {control(Qt::Key_P)}},
        {ChangeAndPlay, "changeAndPlay", {key(Qt::Key_Return), key(Qt::Key_Enter)}},
        {ClickPlayButton, "clickPlayButton", {key(Qt::Key_Space)}},
        {JumpBackward, "jumpBackward", {key(Qt::Key_Left)}, WhileHeld},
        {JumpForward, "jumpForward", {key(Qt::Key_Right)}, WhileHeld},
        {DecreaseSpeed, "decreaseSpeed", {key(Qt::Key_BracketLeft)}},
        {IncreaseSpeed, "increaseSpeed", {key(Qt::Key_BracketRight)}},
        {VolumeDown, "volumeDown", {key(Qt::Key_Down)}, WhileHeld},
        {VolumeUp, "volumeUp", {key(Qt::Key_Up)}, WhileHeld},
        {SizeDown, "sizeDown", {key(Qt::Key_Minus)}},
        // The plus sign shares its key with the equals sign on many keyboards.
        {SizeUp, "sizeUp", {key(Qt::Key_Plus), key(Qt::Key_Equal)}},
        {KeepWindow, "keepWindow", {}, Once, CommandRow::Kind::Toggles, "viewer.keepWindowTip"},
        {KeepProportions,
         "keepProportions",
         {key(Qt::Key_A)},
         Once,
         CommandRow::Kind::Toggles,
         "viewer.keepProportionsTip"},
        {ToggleFullScreen, "toggleFullScreen", {key(Qt::Key_F), key(Qt::Key_F11)}},
        {ClickMediaListViewButton, "clickMediaListViewButton", {key(Qt::Key_L)}},
        {ClickMapViewButton, "clickMapViewButton", {key(Qt::Key_M)}},
        {FindRecording, "findRecording", {control(Qt::Key_F)}},
        {ShowMenu, "showMenu", {key(Qt::Key_F10)}},
        {CloseWindow, "closeWindow", {control(Qt::Key_W)}},
        {Quit, "quit", {control(Qt::Key_Q)}},
    };
    return table;
}

MainWindowCommands::MainWindowCommands(QWidget& window) : QObject(&window), m_menu(new QMenu(&window))
{
    using enum Command;
    for (const CommandRow& row : commandTable()) {
        auto* action = new QAction(this);
        QString title = localised(QStringLiteral("viewer.command.%1").arg(QLatin1StringView(row.name)));
        if (row.command == JumpBackward || row.command == JumpForward)
            title = title.arg(jumpSeconds);
        action->setObjectName(QLatin1StringView(row.name));
        action->setText(title);
        action->setIconText(title);
        action->setShortcuts(QList<QKeySequence>(row.shortcuts.begin(), row.shortcuts.end()));
        action->setAutoRepeat(row.repeat == CommandRow::Repeat::WhileHeld);
        action->setCheckable(row.kind == CommandRow::Kind::Toggles);
        const QString name = title.endsWith(QChar(0x2026)) ? title.chopped(1) : title; // "Open folder…"
        const QString keyText =
            row.shortcuts.empty() ? QString() : row.shortcuts.front().toString(QKeySequence::NativeText);
        action->setToolTip(row.tipKey ? localised(row.tipKey)
                                      : QStringLiteral("%1  (%2)").arg(name, keyText));
        window.addAction(action);
        m_actions.push_back(action);
    }
    buildMenu();
}

QAction* MainWindowCommands::action(Command command) const
{
    const auto& table = commandTable();
    const auto row = std::ranges::find(table, command, &CommandRow::command);
    return m_actions.at(static_cast<std::size_t>(row - table.begin()));
}

void MainWindowCommands::insertRecentFolders(QMenu& recent)
{
    const QList<QAction*> entries = m_menu->actions();
    const auto open = entries.indexOf(action(Command::OpenMediaDirectoryDialog));
    m_menu->insertMenu(entries.value(open + 1), &recent);
}

void MainWindowCommands::insertLanguages(QMenu& languages)
{
    const QList<QAction*> entries = m_menu->actions();
    const auto close = entries.indexOf(action(Command::CloseWindow));
    m_menu->insertMenu(entries.value(close - 1), &languages); // before the line above it
}

void MainWindowCommands::buildMenu()
{
    m_menu->setObjectName(QStringLiteral("mainMenu"));
    m_menu->setToolTipsVisible(true);
    bool separate = false;
    for (const MenuSection& section : menuTable()) {
        QMenu* menu = m_menu;
        if (section.titleKey) {
            menu = m_menu->addMenu(localised(section.titleKey));
            menu->setToolTipsVisible(true);
        } else if (separate) {
            m_menu->addSeparator();
        }
        for (const Command command : section.commands)
            menu->addAction(action(command));
        separate = true;
    }
}

} // namespace marvo
