// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/LabelFilling.h"

#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"

#include <algorithm>
#include <QComboBox>
#include <QSignalBlocker>

namespace marvo {

void fillSegmentedControl(SegmentedControl& control, const QStringList& labels) { control.setLabels(labels); }

void fillComboBox(QComboBox& comboBox, const QStringList& labels)
{
    comboBox.clear();
    // An empty combo box selects its first new item and emits a signal.
    const QSignalBlocker quiet(comboBox);
    comboBox.addItems(labels);
    comboBox.setCurrentIndex(-1);
}

void fillMatrixTitles(RadioMatrix& matrix, const QStringList& titles)
{
    const int count = std::min(static_cast<int>(titles.size()), matrix.cellCount());
    for (int cell = 0; cell < count; ++cell)
        matrix.setTitle(cell, titles.at(cell));
}

} // namespace marvo
