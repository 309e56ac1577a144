// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/VideoNotice.h"

#include "controls/InterfaceScale.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>
#include <chrono>

namespace marvo {

namespace {

constexpr int edgeGap = 16;
constexpr int widestReason = 460;

} // namespace

VideoNotice::VideoNotice(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("videoNotice"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_gone.setSingleShot(true);
    connect(&m_gone, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

void VideoNotice::tell(const QString& text, std::chrono::milliseconds shownFor)
{
    setText(text);
    adjustSize();
    move(parentWidget()->width() - width() - edgeGap, edgeGap);
    raise();
    show();
    m_gone.start(shownFor);
}

VideoReason::VideoReason(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("videoReason"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText); // it names files
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    parent->installEventFilter(this);
    hide();
}

void VideoReason::tell(const QString& text)
{
    setText(text);
    place();
    raise();
    show();
}

void VideoReason::place()
{
    ensurePolished();
    const QSize room = parentWidget()->size() - QSize(2 * edgeGap, 2 * edgeGap);
    const int width = std::max(1, std::min(room.width(), scaledLength(widestReason)));
    const QSize size(width, std::min(heightForWidth(width), std::max(1, room.height())));
    setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size, parentWidget()->rect()));
}

bool VideoReason::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QLabel::eventFilter(watched, event);
}

} // namespace marvo
