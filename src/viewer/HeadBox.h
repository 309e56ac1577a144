// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace marvo {

class ElidedLabel;
class ImageButton;
class MainWindowCommands;

/// The title strip: menu, brand, the folder shown, the loading indicator's place, and the window's buttons.
class HeadBox : public QWidget
{
    Q_OBJECT
public:
    explicit HeadBox(const MainWindowCommands& commands, QWidget* parent = nullptr);

    /// The folder's name, its whole path, and what is known of it, such as the number of its recordings.
    void showFolder(const QString& name, const QString& path, const QString& detail);
    /// What is in the player: kind and camera, and below it when it was recorded. Empty when nothing is.
    void showPlaying(const QString& title, const QString& time);
    /// Opens the menu below its button.
    void popUpMenu();

Q_SIGNALS:
    void minimiseClicked();
    void zoomRequested();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitButtons();

    const MainWindowCommands& m_commands;
    QHBoxLayout* m_row;
    ImageButton* m_menuButton;
    QLabel* m_brand;
    QWidget* m_folder;
    ElidedLabel* m_folderName;
    ElidedLabel* m_folderDetail;
    ImageButton* m_openButton;
    QWidget* m_playing;
    ElidedLabel* m_playingTitle;
    ElidedLabel* m_playingTime;
};

} // namespace marvo
