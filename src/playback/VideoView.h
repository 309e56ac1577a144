// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/VideoFrame.h"

#include <QWidget>

namespace marvo {

/// Shows one picture, scaled to fill the whole view, or in its own proportions; black where there is none.
class VideoView : public QWidget
{
    Q_OBJECT
public:
    explicit VideoView(QWidget* parent = nullptr);

    /// The picture shown, in the video's own size, made for each call; null while there is none.
    QImage image() const { return m_frame.toImage(); }
    void setFrame(VideoFrame frame);
    /// Dark bars stand beside a picture whose proportions differ from the view's by more than 4 %.
    void setKeepsProportions(bool keeps);
    bool keepsProportions() const { return m_keepsProportions; }
    /// Where in the view the picture is.
    QRect pictureRect() const;
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
    QSize m_frameSize; ///< of the last picture
    bool m_keepsProportions = false;
    bool m_hasChanged = true;
};

} // namespace marvo
