// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

namespace marvo {

/// Shows one picture, scaled to fill the whole view; black while there is none.
class VideoView : public QWidget
{
    Q_OBJECT
public:
    explicit VideoView(QWidget* parent = nullptr);

    /// The picture shown, in the video's own size; null while there is none.
    const QImage& image() const { return m_image; }
    void setImage(QImage image);
    /// Takes the picture away so that its memory can serve the next one; the view keeps what it has painted
    /// until then.
    QImage takeImage();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
};

} // namespace marvo
