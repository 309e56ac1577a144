// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

namespace marvo {

/// The strip with the graph of the G-sensor and its three readings at the play position.
class GsensorBox : public QWidget
{
    Q_OBJECT
public:
    /// Adopts the graph's view.
    explicit GsensorBox(QWidget* graphView, QWidget* parent = nullptr);

    QLabel* gsensorXField() const { return m_gsensorXField; }
    QLabel* gsensorYField() const { return m_gsensorYField; }
    QLabel* gsensorZField() const { return m_gsensorZField; }

private:
    QLabel* m_gsensorXField;
    QLabel* m_gsensorYField;
    QLabel* m_gsensorZField;
};

} // namespace marvo
