// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

class QPainter;

namespace marvo {

/// Nine pictures that fill a rectangle of any size: corners at their own size, edges and centre repeated.
struct NinePartImage
{
    QPixmap topLeft, topEdge, topRight;
    QPixmap leftEdge, center, rightEdge;
    QPixmap bottomLeft, bottomEdge, bottomRight;
};

void drawNinePartImage(QPainter& painter, const QRect& rect, const NinePartImage& image);

/// A strip drawn of three pictures side by side: the outer ones at their own width, the middle one repeated.
class ThreePartImageBox : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// The names of three drawings; see imageNamed.
    void setImageNames(const QString& left, const QString& middle, const QString& right);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_left;
    QString m_middle;
    QString m_right;
};

} // namespace marvo
