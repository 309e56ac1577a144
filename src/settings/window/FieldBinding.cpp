// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/FieldBinding.h"

#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"

#include <QCheckBox>
#include <QComboBox>

#include <algorithm>
#include <numeric>

namespace marvo {

namespace {

template <typename Control>
Control& controlNamed(const QWidget& tab, const char* name)
{
    auto* control = tab.findChild<Control*>(QLatin1String(name));
    Q_ASSERT_X(control, "FieldBinding", name);
    return *control;
}

} // namespace

std::uint32_t RecordField::value(const _FILEDATA& record) const
{
    return std::visit([&](auto field) { return static_cast<std::uint32_t>(record.*field); }, m_field);
}

void RecordField::setValue(_FILEDATA& record, std::uint32_t value) const
{
    std::visit(
        [&](auto field) {
            using Type = std::remove_reference_t<decltype(record.*field)>;
            record.*field = static_cast<Type>(value);
        },
        m_field);
}

int ChoiceBinding::itemFor(std::uint32_t stored) const
{
    if (itemOf)
        return itemOf(stored);
    const auto found = std::find(values.begin(), values.end(), stored);
    return found != values.end() ? static_cast<int>(found - values.begin()) : fallback.item.value_or(-1);
}

std::vector<std::uint32_t> indexValues(int count)
{
    std::vector<std::uint32_t> values(static_cast<std::size_t>(count));
    std::iota(values.begin(), values.end(), 0U);
    return values;
}

void setChoice(QWidget& control, int item)
{
    if (auto* segments = qobject_cast<SegmentedControl*>(&control))
        segments->setSelectedSegment(item);
    else if (auto* cells = qobject_cast<RadioMatrix*>(&control))
        cells->setSelectedCell(item);
    else if (auto* combo = qobject_cast<QComboBox*>(&control))
        combo->setCurrentIndex(item < combo->count() ? item : -1);
}

int choice(const QWidget& control)
{
    if (const auto* segments = qobject_cast<const SegmentedControl*>(&control))
        return segments->selectedSegment();
    if (const auto* cells = qobject_cast<const RadioMatrix*>(&control))
        return cells->selectedCell();
    if (const auto* combo = qobject_cast<const QComboBox*>(&control))
        return combo->currentIndex();
    return -1;
}

void showChoices(QWidget& tab, const std::vector<ChoiceBinding>& bindings, const _FILEDATA& record)
{
    for (const ChoiceBinding& binding : bindings)
        setChoice(controlNamed<QWidget>(tab, binding.control), binding.itemFor(binding.field.value(record)));
}

void storeChoices(const QWidget& tab, const std::vector<ChoiceBinding>& bindings, _FILEDATA& record)
{
    for (const ChoiceBinding& binding : bindings) {
        const int item = choice(controlNamed<QWidget>(tab, binding.control));
        if (item >= 0 && static_cast<std::size_t>(item) < binding.values.size())
            binding.field.setValue(record, binding.values[static_cast<std::size_t>(item)]);
    }
}

void showFlags(QWidget& tab, const std::vector<FlagBinding>& bindings, const _FILEDATA& record)
{
    for (const FlagBinding& binding : bindings) {
        const bool on = binding.field.value(record) != 0;
        controlNamed<QCheckBox>(tab, binding.control)
            .setChecked(on == (binding.sense == FlagBinding::Sense::Direct));
    }
}

void storeFlags(const QWidget& tab, const std::vector<FlagBinding>& bindings, _FILEDATA& record)
{
    for (const FlagBinding& binding : bindings) {
        const bool checked = controlNamed<QCheckBox>(tab, binding.control).isChecked();
        binding.field.setValue(record, checked == (binding.sense == FlagBinding::Sense::Direct) ? 1 : 0);
    }
}

void storeToggled(std::uint32_t& flag, bool on)
{
    if ((flag != 0) != on)
        flag = on ? 1 : 0;
}

} // namespace marvo
