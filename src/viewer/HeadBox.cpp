// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/HeadBox.h"

#include "controls/ElidedLabel.h"
#include "controls/ImageButton.h"
#include "controls/ImageNamed.h"
#include "controls/PlainToolTip.h"
#include "texts/Localisation.h"
#include "viewer/FittingRow.h"
#include "viewer/MainWindowCommands.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace marvo {

namespace {

constexpr int buttonSize = 34;
constexpr int indicatorRoom = 200; // in the middle of the strip, for the loading indicator

ImageButton* headButton(const char* name, const char* image, const char* titleKey, QWidget* parent)
{
    auto* button = new ImageButton(QLatin1StringView(image), localised(titleKey), parent);
    button->setObjectName(QLatin1StringView(name));
    button->setFixedSize(buttonSize, buttonSize);
    return button;
}

/// Two lines in the strip, the upper one the more important.
QWidget* twoLines(ElidedLabel* upper, ElidedLabel* lower, QWidget* box)
{
    auto* lines = new QVBoxLayout(box);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addStretch();
    lines->addWidget(upper);
    lines->addWidget(lower);
    lines->addStretch();
    return box;
}

} // namespace

HeadBox::HeadBox(const MainWindowCommands& commands, QWidget* parent)
    : QWidget(parent),
      m_commands(commands),
      m_row(new QHBoxLayout(this)),
      m_menuButton(headButton("menuButton", "icon_menu", "viewer.command.showMenu", this)),
      m_brand(new QLabel(this)),
      m_folder(new QWidget(this)),
      m_folderName(new ElidedLabel(m_folder)),
      m_folderDetail(new ElidedLabel(m_folder)),
      m_playing(new QWidget(this)),
      m_playingTitle(new ElidedLabel(m_playing)),
      m_playingTime(new ElidedLabel(m_playing))
{
    setObjectName(QStringLiteral("headBox"));

    m_menuButton->setToolTip(commands.action(Command::ShowMenu)->toolTip());
    connect(m_menuButton, &ImageButton::clicked, this, &HeadBox::popUpMenu);
    connect(commands.action(Command::ShowMenu), &QAction::triggered, this, &HeadBox::popUpMenu);

    m_brand->setObjectName(QStringLiteral("ci_no_bg"));
    m_brand->setPixmap(imageNamed(QStringLiteral("ci_no_bg"), devicePixelRatioF()));
    m_brand->setAccessibleName(QStringLiteral("MARVO"));

    m_folderName->setObjectName(QStringLiteral("folderName"));
    m_folderDetail->setObjectName(QStringLiteral("folderDetail"));
    twoLines(m_folderName, m_folderDetail, m_folder);

    m_playing->setObjectName(QStringLiteral("playingBox"));
    m_playingTitle->setObjectName(QStringLiteral("playingTitle"));
    m_playingTime->setObjectName(QStringLiteral("playingTime"));
    m_playingTitle->setAccessibleDescription(localised("viewer.list.playing"));
    twoLines(m_playingTitle, m_playingTime, m_playing);

    auto* open = headButton("openButton", "icon_folder", "viewer.command.openMediaDirectoryDialog", this);
    open->setCommand(commands.action(Command::OpenMediaDirectoryDialog));
    open->setText(localised("viewer.command.openMediaDirectoryDialog"));
    open->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    open->setMinimumWidth(0);
    open->setMaximumWidth(QWIDGETSIZE_MAX);
    m_openButton = open;
    auto* minimise = headButton("minimiseButton", "icon_minimise", "viewer.window.minimise", this);
    auto* zoom = headButton("zoomButton", "icon_zoom", "viewer.window.zoom", this);
    auto* close = headButton("closeButton", "icon_close", "viewer.command.closeWindow", this);
    close->setCommand(commands.action(Command::CloseWindow));
    connect(minimise, &ImageButton::clicked, this, &HeadBox::minimiseClicked);
    connect(zoom, &ImageButton::clicked, this, &HeadBox::zoomRequested);

    QHBoxLayout* row = m_row;
    row->setContentsMargins(10, 0, 10, 0);
    row->setSpacing(4);
    row->addWidget(m_menuButton);
    row->addSpacing(4);
    row->addWidget(m_brand);
    row->addStretch();
    row->addWidget(open);
    row->addSpacing(10);
    row->addWidget(minimise);
    row->addWidget(zoom);
    row->addWidget(close);
}

void HeadBox::showFolder(const QString& name, const QString& path, const QString& detail)
{
    m_folder->setToolTip(plainToolTip(path));
    m_folderName->setFullText(name);
    m_folderDetail->setFullText(detail);
}

void HeadBox::showPlaying(const QString& title, const QString& time)
{
    m_playing->setToolTip(title.isEmpty() ? QString()
                                          : plainToolTip(QStringLiteral("%1\n%2").arg(title, time)));
    m_playingTitle->setFullText(title);
    m_playingTime->setFullText(time);
}

void HeadBox::popUpMenu()
{
    m_commands.menu()->popup(m_menuButton->mapToGlobal(QPoint(0, m_menuButton->height() + 2)));
}

void HeadBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT zoomRequested();
}

/// In a narrow window the button to open a folder loses its text, then goes: the menu has its command.
void HeadBox::fitButtons()
{
    m_openButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    showWhatFits(*m_row, width(), {{m_openButton}, {m_brand}});
    if (m_openButton->isHidden()) {
        m_openButton->setToolButtonStyle(Qt::ToolButtonIconOnly);
        showWhatFits(*m_row, width(), {{m_openButton}, {m_brand}});
    }
}

void HeadBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitButtons();
    // Both names keep out of the middle, where the loading indicator appears.
    const int brand = m_brand->isHidden() ? 0 : m_brand->sizeHint().width();
    const int left = 10 + buttonSize + 8 + brand + 24;
    const int right = (width() - indicatorRoom) / 2 - 12;
    m_folder->setGeometry(left, 0, std::max(0, right - left), height());
    layout()->activate(); // the button's place is that of this width
    const int playingLeft = (width() + indicatorRoom) / 2 + 12;
    const int playingRight = (m_openButton->isHidden() ? width() : m_openButton->x()) - 10;
    m_playing->setGeometry(playingLeft, 0, std::max(0, playingRight - playingLeft), height());
}

} // namespace marvo
