// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/VideoNotice.h"

#include <chrono>

namespace marvo {

namespace {

constexpr std::chrono::milliseconds shownFor{1200};
constexpr int edgeGap = 16;

} // namespace

VideoNotice::VideoNotice(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("videoNotice"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_gone.setSingleShot(true);
    connect(&m_gone, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

void VideoNotice::tell(const QString& text)
{
    setText(text);
    adjustSize();
    move(parentWidget()->width() - width() - edgeGap, edgeGap);
    raise();
    show();
    m_gone.start(shownFor);
}

} // namespace marvo
