// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileData.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

class QWidget;

namespace marvo {

/// One 32-bit field of the settings record, signed or not; its value is handled as the 32 bits that stand in
/// the file.
class RecordField
{
public:
    RecordField(std::uint32_t _FILEDATA::*field) : m_field(field) {}
    RecordField(std::int32_t _FILEDATA::*field) : m_field(field) {}

    std::uint32_t value(const _FILEDATA& record) const;
    void setValue(_FILEDATA& record, std::uint32_t value) const;

private:
    std::variant<std::uint32_t _FILEDATA::*, std::int32_t _FILEDATA::*> m_field;
};

/// What a choice shows for a stored value without an item.
struct Fallback
{
    /// The item shown, and so stored when the tab is left; none: no item is selected, and the stored value is
    /// kept until the user chooses one.
    std::optional<int> item;
};

/// A choice control (SegmentedControl, RadioMatrix or QComboBox) and the field that it edits.
struct ChoiceBinding
{
    const char* control; ///< its object name
    RecordField field;
    std::vector<std::uint32_t> values; ///< what each item stands for
    Fallback fallback = {};
    /// Finds the item in place of the value list, for items that stand for more than one value.
    int (*itemOf)(std::uint32_t stored) = nullptr;

    /// The item that shows a stored value; -1 for none.
    int itemFor(std::uint32_t stored) const;
};

/// A check box and the field that it edits. Any value but 0 counts as on.
struct FlagBinding
{
    enum class Sense { Direct, Inverted };

    const char* control; ///< its object name
    RecordField field;
    Sense sense = Sense::Direct; ///< Inverted: the box is checked when the field is 0
};

/// The values 0, 1, ... count - 1: a field that holds its item's index.
std::vector<std::uint32_t> indexValues(int count);

/// Selects an item of a choice control; -1 (or any index without item) selects none.
void setChoice(QWidget& control, int item);
/// The selected item of a choice control, -1 for none.
int choice(const QWidget& control);

/// Shows the record's values in the controls below `tab`, or stores the controls' values into the record.
/// Storing leaves the field of a choice without selection as it is.
void showChoices(QWidget& tab, const std::vector<ChoiceBinding>& bindings, const _FILEDATA& record);
void storeChoices(const QWidget& tab, const std::vector<ChoiceBinding>& bindings, _FILEDATA& record);
void showFlags(QWidget& tab, const std::vector<FlagBinding>& bindings, const _FILEDATA& record);
void storeFlags(const QWidget& tab, const std::vector<FlagBinding>& bindings, _FILEDATA& record);
/// For a check box that stores when toggled. A value that already means the same is left as it is, since
/// showing a record toggles the box, too.
void storeToggled(std::uint32_t& flag, bool on);

} // namespace marvo
