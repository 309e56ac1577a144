// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

namespace marvo {

/// A flat button with an image and an optional text beside it. It takes the focus from the Tab key, not from
/// a click. With the focus, the space bar presses it, even where the window has another use for that key.
class ImageButton : public QToolButton
{
    Q_OBJECT
public:
    /// The name of the drawing on it, see imageNamed, and the name that tool tips and screen readers give.
    ImageButton(const QString& imageName, const QString& title, QWidget* parent = nullptr);

    void setImageName(const QString& imageName);
    const QString& imageName() const { return m_imageName; }
    /// The button runs the action and follows its availability and texts, keeping its own picture.
    void setCommand(QAction* action);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_imageName;
};

} // namespace marvo
