// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace marvo {

/// One line of text. Where it does not fit, its middle is left out and the tool tip has the whole text.
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setFullText(const QString& text);
    const QString& fullText() const { return m_fullText; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QString m_fullText;
};

} // namespace marvo
