// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <initializer_list>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QWidget;

namespace marvo {

class SegmentedControl;

/// The building blocks of the settings tabs. Each takes the control's object name. Texts are keys of the
/// string table; labels are texts as shown.

/// A titled box with an empty vertical layout.
QGroupBox* titledBox(const char* name, const char* titleKey, QWidget* parent);
/// A titled box with widgets below each other, at its top where it is given more height.
QGroupBox* titledBoxWith(const char* name, const char* titleKey, std::initializer_list<QWidget*> contents);
/// A caption in front of a control, whose keyboard shortcut and accessible name it gives where `buddy` is not
/// null.
QLabel* captionLabel(const char* name, const char* key, QWidget* buddy = nullptr);
/// A longer explanation below a control; wraps.
QLabel* guideLabel(const char* name, const char* key);
QCheckBox* checkBox(const char* name, const char* key);
/// A segmented control with the labels given; `accessibleKey` tells assistive technology what is chosen.
SegmentedControl* segmentedControl(const char* name, const char* accessibleKey, const QStringList& labels);
QComboBox* comboBox(const char* name, const char* accessibleKey, const QStringList& items);

/// The texts of several keys.
QStringList localisedList(std::initializer_list<const char*> keys);
/// "1(%@)" and "5(%@)" with the text of a key in place of "%@".
QString labelWith(const char* format, const char* key);

} // namespace marvo
