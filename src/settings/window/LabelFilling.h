// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QComboBox;

namespace marvo {

class RadioMatrix;
class SegmentedControl;

/// Gives the control as many segments as there are labels, segment i with label i.
void fillSegmentedControl(SegmentedControl& control, const QStringList& labels);

/// Replaces the items by the labels, in order. No item is selected afterwards.
void fillComboBox(QComboBox& comboBox, const QStringList& labels);

/// Gives cell i title i. Cells beyond the titles keep theirs, titles beyond the cells are not used.
void fillMatrixTitles(RadioMatrix& matrix, const QStringList& titles);

} // namespace marvo
