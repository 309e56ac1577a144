// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <vector>

class QHBoxLayout;
class QWidget;

namespace marvo {

/// Hides groups of a row's widgets, the first group first, until the others fit into `width` pixels; those
/// that fit again are shown again. A row's other widgets always stay.
void showWhatFits(const QHBoxLayout& row, int width, const std::vector<QList<QWidget*>>& givingWay);

} // namespace marvo
