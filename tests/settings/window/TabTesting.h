// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileDataFields.h"
#include "settings/window/FieldBinding.h"
#include "settings/window/SettingsTabView.h"
#include "texts/Localisation.h"

#include <QtTest>

#include <algorithm>
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

/// Clicks a segment or cell.
inline void clickItem(QWidget& tab, const char* name, int item)
{
    auto& button = control(tab, qPrintable(QStringLiteral("%1.%2").arg(QLatin1String(name)).arg(item)));
    QTest::mouseClick(&button, Qt::LeftButton);
}

/// A field that a tab edits, and what may be stored into it.
struct EditedField
{
    const char* name;
    std::vector<std::int64_t> values;
};

inline std::vector<std::int64_t> upTo(std::int64_t highest)
{
    std::vector<std::int64_t> values;
    for (std::int64_t value = 0; value <= highest; ++value)
        values.push_back(value);
    return values;
}

/// Shows random records in a tab and stores them again. A field that the tab does not edit stays, and so does
/// a value that may be stored; whatever else a card holds there is kept, or becomes a value that may be
/// stored.
inline void verifyRandomRecordsSurvive(SettingsTabView& tab, const std::vector<EditedField>& edited)
{
    std::mt19937 random(20240517); // NOLINT(cert-msc51-cpp): failures must be repeatable
    for (int round = 0; round < 300; ++round) {
        FileDataBytes bytes{};
        for (std::byte& byte : bytes)
            byte = static_cast<std::byte>(random());
        _FILEDATA before = decodeFileData(bytes);
        // Never UTF-8 where it is not ASCII: a search for the fonts of all scripts would take most of the
        // time.
        for (char& byte : before.carNumber)
            byte = static_cast<char>(byte < 0 ? 0xFF : byte);
        for (const EditedField& field : edited) {
            if (random() % 4 != 0) {
                findFileDataField(field.name)
                    ->setNumber(before, field.values[random() % field.values.size()]);
            }
        }
        _FILEDATA after = before;
        tab.setFileData(&after);
        tab.populate();
        const FileDataBytes beforeBytes = encodeFileData(before);
        const FileDataBytes afterBytes = encodeFileData(after);
        for (const FileDataField& field : fileDataFields()) {
            const auto first = static_cast<std::ptrdiff_t>(field.offset);
            const auto last = first + static_cast<std::ptrdiff_t>(field.size());
            if (std::equal(beforeBytes.begin() + first, beforeBytes.begin() + last,
                           afterBytes.begin() + first))
                continue;
            const QString what =
                QStringLiteral("round %1: %2 %3 became %4")
                    .arg(round)
                    .arg(QLatin1String(field.name.data(), static_cast<int>(field.name.size())))
                    .arg(field.number(before))
                    .arg(field.number(after));
            const auto rule = std::find_if(edited.begin(), edited.end(),
                                           [&](const EditedField& one) { return field.name == one.name; });
            QVERIFY2(rule != edited.end(), qPrintable(what));
            const auto allowed = [&](std::int64_t value) {
                return std::find(rule->values.begin(), rule->values.end(), value) != rule->values.end();
            };
            QVERIFY2(!allowed(field.number(before)) && allowed(field.number(after)), qPrintable(what));
        }
    }
    tab.setFileData(nullptr);
}

} // namespace marvo::testing
