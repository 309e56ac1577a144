// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/VideoFrame.h"

#include <QWidget>

namespace marvo {

/// Shows one picture, scaled to fill the whole view; black while there is none.
class VideoView : public QWidget
{
    Q_OBJECT
public:
    explicit VideoView(QWidget* parent = nullptr);

    /// The picture shown, in the video's own size, made for each call; null while there is none.
    QImage image() const { return m_frame.toImage(); }
    void setFrame(VideoFrame frame);
    /// Takes the picture away so that its memory can serve the next one; the view keeps what it has painted
    /// until then.
    VideoFrame takeFrame();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    VideoFrame m_frame;
    FrameConverter m_converter;
    const QImage* m_picture = nullptr; ///< the converter's of m_frame, for a view of m_paintedFor pixels
    QSize m_paintedFor;
    bool m_hasChanged = true;
};

} // namespace marvo
