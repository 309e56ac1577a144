// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/RangeSlider/SMDoubleSlider.h"
#include "settings/FileDataFields.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/SettingsTabView.h"
#include "texts/Localisation.h"

#include "ActiveWindow.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <random>

namespace marvo::testing {

/// A control of a tab by its name, which must exist.
template <typename Control = QWidget>
Control& control(const QWidget& tab, const char* name)
{
    auto* found = tab.findChild<Control*>(QLatin1String(name));
    if (!found)
        qFatal("no control %s", name);
    return *found;
}

inline int shownItem(const QWidget& tab, const char* name) { return choice(control(tab, name)); }

/// Clicks a segment or cell, or a check box by its name alone.
inline void clickItem(QWidget& tab, const char* name, int item = -1)
{
    const QString cell = QStringLiteral("%1.%2").arg(QLatin1String(name)).arg(item);
    auto& button = control<QAbstractButton>(tab, item < 0 ? name : qPrintable(cell));
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
}

/// As a screen reader does it: neither a mouse button nor a key is pressed.
inline void toggleByAssistiveTechnology(QWidget& checkBox)
{
    QAccessibleInterface* box = QAccessible::queryAccessibleInterface(&checkBox);
    box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

inline _FILEDATA defaultRecord()
{
    _FILEDATA record{};
    fillDefaultFileDataForLanguage(record, InterfaceLanguage::English);
    return record;
}

/// A shown settings tab over a record of its own, worked by mouse and keys.
template <class Tab>
struct DrivenTab
{
    explicit DrivenTab(const _FILEDATA& shown = defaultRecord()) : record(shown)
    {
        tab.setFileData(&record);
        tab.resize(860, 560);
        QVERIFY(showActive(tab));
    }

    template <class Control = QWidget>
    Control& control(const char* name)
    {
        return marvo::testing::control<Control>(tab, name);
    }
    int chosen(const char* name) { return shownItem(tab, name); }
    QString text(const char* name) { return control<QLabel>(name).text(); }

    /// Chooses an item of a segmented control, a radio matrix or a combo box.
    void choose(const char* name, int item)
    {
        auto* combo = qobject_cast<QComboBox*>(&control(name));
        if (!combo)
            return clickItem(tab, name, item);
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        for (int i = 0; i < item; ++i)
            QTest::keyClick(combo, Qt::Key_Down);
    }
    void click(const char* button) { clickItem(tab, button); }

    enum class Knob { Low, High };
    /// Drags a knob of a slider to where it shows a whole number.
    void drag(const char* sliderName, Knob knob, int target)
    {
        auto& slider = control<SMDoubleSlider>(sliderName);
        const double value = knob == Knob::Low ? slider.doubleLoValue() : slider.doubleHiValue();
        const QPointF from = slider.cell().knobRect(value, Flip::Flipped).center();
        const QPointF to = slider.cell().knobRect(target, Flip::Flipped).center();
        // Left of its centre, the low knob is taken; at the next pixel at least, the number is reached.
        const QPoint press(static_cast<int>(from.x()) + (knob == Knob::Low ? -3 : 3),
                           static_cast<int>(from.y()));
        const QPoint release(static_cast<int>(std::floor(to.x() + press.x() - from.x())) + 1, press.y());
        QTest::mousePress(&slider, Qt::LeftButton, {}, press);
        QTest::mouseMove(&slider, (press + release) / 2);
        QTest::mouseMove(&slider, release);
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, release);
    }

    _FILEDATA record;
    Tab tab;
};

/// What a control shows of a stored value, what is stored when nothing is chosen, and what when an item is.
struct ChoiceRow
{
    const char* control;
    const char* field;
    std::int64_t stored;
    int shown;
    std::int64_t kept;
    int chosen;
    std::int64_t written;
};

template <class Tab>
void verifyChoices(std::initializer_list<ChoiceRow> rows)
{
    for (const ChoiceRow& row : rows) {
        const FileDataField& field = *findFileDataField(row.field);
        _FILEDATA record = defaultRecord();
        QVERIFY(field.setNumber(record, row.stored));
        DrivenTab<Tab> driven(record);
        const auto outcome = [&row](int shown, std::int64_t kept, std::int64_t written) {
            return QStringLiteral("%1 of %2 shows %3, keeps %4, writes %5")
                .arg(QLatin1String(row.control))
                .arg(row.stored)
                .arg(shown)
                .arg(kept)
                .arg(written);
        };
        const int shown = driven.chosen(row.control);
        driven.tab.populate();
        const std::int64_t kept = field.number(driven.record);
        driven.choose(row.control, row.chosen);
        driven.tab.populate();
        QCOMPARE(outcome(shown, kept, field.number(driven.record)),
                 outcome(row.shown, row.kept, row.written));
    }
}

/// Fields that a tab edits, and what may be stored into each.
struct EditedFields
{
    std::vector<std::string_view> names;
    std::vector<std::int64_t> values;

    bool allows(std::int64_t value) const { return std::ranges::find(values, value) != values.end(); }
};

inline std::vector<std::int64_t> upTo(std::int64_t highest, std::int64_t lowest = 0, int step = 1)
{
    std::vector<std::int64_t> values;
    for (std::int64_t value = lowest; value <= highest; value += step)
        values.push_back(value);
    return values;
}

/// Shows random records in a tab and stores them again. A field that the tab does not edit stays, and so does
/// a value that may be stored; whatever else a card holds there is kept, or becomes a value that may be
/// stored.
template <class Tab>
void verifyRandomRecordsSurvive(const std::vector<EditedFields>& edited)
{
    Tab tab;
    std::mt19937 random(20240517); // NOLINT(cert-msc51-cpp): failures must be repeatable
    for (int round = 0; round < 300; ++round) {
        FileDataBytes bytes{};
        std::ranges::generate(bytes, [&] { return static_cast<std::byte>(random()); });
        _FILEDATA before = decodeFileData(bytes);
        // Never UTF-8 where it is not ASCII: a search for the fonts of all scripts would take most of the
        // time.
        for (char& byte : before.carNumber)
            byte = static_cast<char>(byte < 0 ? 0xFF : byte);
        for (const EditedFields& fields : edited) {
            for (const std::string_view name : fields.names) {
                if (random() % 4 != 0)
                    findFileDataField(name)->setNumber(before,
                                                       fields.values[random() % fields.values.size()]);
            }
        }
        _FILEDATA after = before;
        tab.setFileData(&after);
        tab.populate();
        QCOMPARE(after.carNumber, before.carNumber);
        for (const FileDataField& field : fileDataFields()) {
            if (field.isText() || field.number(before) == field.number(after))
                continue;
            const QString what =
                QStringLiteral("round %1: %2 %3 became %4")
                    .arg(round)
                    .arg(QLatin1String(field.name.data(), static_cast<int>(field.name.size())))
                    .arg(field.number(before))
                    .arg(field.number(after));
            const auto rule = std::ranges::find_if(edited, [&](const EditedFields& fields) {
                return std::ranges::find(fields.names, field.name) != fields.names.end();
            });
            QVERIFY2(rule != edited.end() && !rule->allows(field.number(before)) &&
                         rule->allows(field.number(after)),
                     qPrintable(what));
        }
        tab.setFileData(nullptr);
    }
}

} // namespace marvo::testing
