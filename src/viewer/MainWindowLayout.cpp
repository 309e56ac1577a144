// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MainWindowLayout.h"

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {

/// The fixed lengths at a text size.
struct Lengths
{
    double scale = 1;

    int headHeight = of(50);
    int margin = of(10);
    int rightColumnWidth = of(334);
    int bottomMargin = of(8);
    int leftColumnGap = of(4);
    int gsensorHeight = of(130);
    int mediaControlHeight = of(72);
    int sideButtonHeight = of(22);
    int dataStripHeight = of(98);

    int fullScreenBottomMargin = of(2);
    int fullScreenBarHeight = of(36);
    int fullScreenBarRightMargin = of(2);

    int of(int length) const { return static_cast<int>(std::lround(length * scale)); }
};

/// A window dragged smaller than its fixed parts gives the others nothing, not less than nothing.
QRect box(int x, int y, int width, int height) { return {x, y, std::max(0, width), std::max(0, height)}; }

MainWindowLayout windowedLayout(QSize size, const Lengths& at)
{
    MainWindowLayout layout;
    layout.backgroundBox = box(0, 0, size.width(), size.height());
    layout.headBox = box(0, 0, size.width(), at.headHeight);
    layout.bodyBox = box(0, at.headHeight, size.width(), size.height() - at.headHeight);

    const int columnHeight = layout.bodyBox.height() - at.bottomMargin;
    const int leftWidth = size.width() - 3 * at.margin - at.rightColumnWidth;
    layout.bodyLeftBox = box(at.margin, 0, leftWidth, columnHeight);
    layout.bodyRightBox = box(2 * at.margin + leftWidth, 0, at.rightColumnWidth, columnHeight);

    const int controlTop = columnHeight - at.mediaControlHeight;
    const int gsensorTop = controlTop - at.leftColumnGap - at.gsensorHeight;
    layout.videoBox = box(0, 0, leftWidth, gsensorTop - at.leftColumnGap);
    layout.gsensorBox = box(0, gsensorTop, leftWidth, at.gsensorHeight);
    layout.mediaControlBox = box(0, controlTop, leftWidth, at.mediaControlHeight);

    layout.sideButtonBox = box(0, 0, at.rightColumnWidth, at.sideButtonHeight);
    layout.mediaListBox =
        box(0, at.sideButtonHeight, at.rightColumnWidth, columnHeight - at.sideButtonHeight);
    return layout;
}

MainWindowLayout fullScreenLayout(QSize size, const Lengths& at)
{
    MainWindowLayout layout;
    layout.backgroundBox = box(0, 0, size.width(), size.height());
    layout.bodyBox = layout.backgroundBox;
    layout.bodyLeftBox = box(0, 0, size.width(), size.height() - at.fullScreenBottomMargin);
    const int barTop = layout.bodyLeftBox.height() - at.fullScreenBarHeight;
    layout.videoBox = box(0, 0, size.width(), barTop);
    layout.mediaControlBoxForFullScreen =
        box(0, barTop, size.width() - at.fullScreenBarRightMargin, at.fullScreenBarHeight);
    return layout;
}

} // namespace

QRect minWindowFrame(const QRect& visibleArea, double scale)
{
    const QSize larger =
        (QSizeF(minWindowSize) * std::max(1.0, scale)).toSize().boundedTo(visibleArea.size());
    const QSize size = larger.expandedTo(minWindowSize);
    const QSize free = visibleArea.size() - size;
    return {visibleArea.topLeft() + QPoint(free.width() / 2, free.height() / 2), size};
}

MainWindowLayout layoutWindow(QSize contentSize, WindowMode mode, double scale)
{
    const Lengths at{scale};
    return mode == WindowMode::FullScreen ? fullScreenLayout(contentSize, at)
                                          : windowedLayout(contentSize, at);
}

MapContainerLayout layoutMapContainer(QSize size, double scale)
{
    const int stripHeight = Lengths{scale}.dataStripHeight;
    const int top = size.height() - stripHeight;
    return {box(0, 0, size.width(), top), box(0, std::max(0, top), size.width(), stripHeight)};
}

} // namespace marvo
