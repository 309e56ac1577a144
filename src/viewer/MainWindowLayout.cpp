// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MainWindowLayout.h"

#include <algorithm>

namespace marvo {

namespace {

constexpr int headHeight = 50;
constexpr int margin = 10;
constexpr int rightColumnWidth = 334;
constexpr int bottomMargin = 8;
constexpr int leftColumnGap = 4;
constexpr int gsensorHeight = 130;
constexpr int mediaControlHeight = 72;
constexpr int sideButtonHeight = 22;
constexpr int dataStripHeight = 98;

constexpr int fullScreenBottomMargin = 2;
constexpr int fullScreenBarHeight = 36;
constexpr int fullScreenBarRightMargin = 2;

/// A window dragged smaller than its fixed parts gives the others nothing, not less than nothing.
QRect box(int x, int y, int width, int height) { return {x, y, std::max(0, width), std::max(0, height)}; }

MainWindowLayout windowedLayout(QSize size)
{
    MainWindowLayout layout;
    layout.backgroundBox = box(0, 0, size.width(), size.height());
    layout.headBox = box(0, 0, size.width(), headHeight);
    layout.bodyBox = box(0, headHeight, size.width(), size.height() - headHeight);

    const int columnHeight = layout.bodyBox.height() - bottomMargin;
    const int leftWidth = size.width() - 3 * margin - rightColumnWidth;
    layout.bodyLeftBox = box(margin, 0, leftWidth, columnHeight);
    layout.bodyRightBox = box(2 * margin + leftWidth, 0, rightColumnWidth, columnHeight);

    const int controlTop = columnHeight - mediaControlHeight;
    const int gsensorTop = controlTop - leftColumnGap - gsensorHeight;
    layout.videoBox = box(0, 0, leftWidth, gsensorTop - leftColumnGap);
    layout.gsensorBox = box(0, gsensorTop, leftWidth, gsensorHeight);
    layout.mediaControlBox = box(0, controlTop, leftWidth, mediaControlHeight);

    layout.sideButtonBox = box(0, 0, rightColumnWidth, sideButtonHeight);
    layout.mediaListBox = box(0, sideButtonHeight, rightColumnWidth, columnHeight - sideButtonHeight);
    return layout;
}

MainWindowLayout fullScreenLayout(QSize size)
{
    MainWindowLayout layout;
    layout.backgroundBox = box(0, 0, size.width(), size.height());
    layout.bodyBox = layout.backgroundBox;
    layout.bodyLeftBox = box(0, 0, size.width(), size.height() - fullScreenBottomMargin);
    const int barTop = layout.bodyLeftBox.height() - fullScreenBarHeight;
    layout.videoBox = box(0, 0, size.width(), barTop);
    layout.mediaControlBoxForFullScreen =
        box(0, barTop, size.width() - fullScreenBarRightMargin, fullScreenBarHeight);
    return layout;
}

} // namespace

QRect minWindowFrame(const QRect& visibleArea)
{
    const QSize free = visibleArea.size() - minWindowSize;
    return {visibleArea.topLeft() + QPoint(free.width() / 2, free.height() / 2), minWindowSize};
}

MainWindowLayout layoutWindow(QSize contentSize, WindowMode mode)
{
    return mode == WindowMode::FullScreen ? fullScreenLayout(contentSize) : windowedLayout(contentSize);
}

MapContainerLayout layoutMapContainer(QSize size)
{
    const int top = size.height() - dataStripHeight;
    return {box(0, 0, size.width(), top), box(0, std::max(0, top), size.width(), dataStripHeight)};
}

} // namespace marvo
