// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/PartImages.h"

#include <QWidget>

namespace marvo {

/// What is seen where no video is: a field drawn of nine images, and a logo in its middle.
class TKVideoBackgroundImageView : public QWidget
{
    Q_OBJECT
public:
    explicit TKVideoBackgroundImageView(QWidget* parent = nullptr);

    /// Loads the nine images NAME_top_left_corner, NAME_left_edge_fill, NAME_center_fill and so on.
    void setBackgroundNineImageName(const QString& name);
    /// Drawn at its own size; an empty name takes it away.
    void setLogoImage(const QString& name);
    const QString& logoImageName() const { return m_logoName; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void loadImages();

    QString m_nineImageName;
    QString m_logoName;
    qreal m_loadedRatio = 0;
    NinePartImage m_nineImage;
    QPixmap m_centerLogoImage;
};

} // namespace marvo
