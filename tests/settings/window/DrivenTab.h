// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"
#include "lib/RangeSlider/EcoSliderAxisView.h"
#include "lib/RangeSlider/SMDoubleSlider.h"

#include "TabTesting.h"

#include <cmath>
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QtTest>

namespace marvo::testing {

/// A shown settings tab over a record of its own, worked by mouse and keys.
template <class Tab>
class DrivenTab
{
public:
    explicit DrivenTab(const _FILEDATA& shown) : record(shown)
    {
        tab.setFileData(&record);
        tab.resize(860, 560);
        tab.show();
        [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(&tab);
    }

    template <class Control>
    Control& control(const char* name)
    {
        return marvo::testing::control<Control>(tab, name);
    }
    QWidget& widget(const char* name) { return control<QWidget>(name); }
    int chosen(const char* name) { return shownItem(tab, name); }
    QString text(const char* name) { return control<QLabel>(name).text(); }

    /// Chooses an item of a segmented control, a radio matrix or a combo box.
    void choose(const char* name, int item)
    {
        if (auto* combo = qobject_cast<QComboBox*>(&widget(name))) {
            combo->setFocus();
            QTest::keyClick(combo, Qt::Key_Home);
            for (int i = 0; i < item; ++i)
                QTest::keyClick(combo, Qt::Key_Down);
            return;
        }
        click(qPrintable(QStringLiteral("%1.%2").arg(QLatin1String(name)).arg(item)));
    }
    void click(const char* button)
    {
        auto& clicked = control<QAbstractButton>(button);
        QTest::mouseClick(&clicked, Qt::LeftButton, {}, QPoint(8, clicked.height() / 2));
    }

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

inline _FILEDATA defaultRecord()
{
    _FILEDATA record{};
    fillDefaultFileDataForLanguage(record, InterfaceLanguage::English);
    return record;
}

inline void setField(_FILEDATA& record, const char* name, std::int64_t number)
{
    const FileDataField* field = findFileDataField(name);
    if (!field || !field->setNumber(record, number))
        qFatal("field %s cannot be %lld", name, static_cast<long long>(number));
}

inline std::int64_t fieldOf(const _FILEDATA& record, const char* name)
{
    return findFileDataField(name)->number(record);
}

/// The names of the fields that differ.
inline QStringList changedFields(const _FILEDATA& before, const _FILEDATA& after)
{
    QStringList names;
    for (const FileDataField& field : fileDataFields()) {
        const bool same = field.isText() ? before.carNumber == after.carNumber
                                         : field.number(before) == field.number(after);
        if (!same)
            names.append(QString::fromLatin1(field.name.data(), static_cast<qsizetype>(field.name.size())));
    }
    return names;
}

} // namespace marvo::testing
