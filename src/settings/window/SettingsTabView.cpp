// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/SettingsTabView.h"

#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"
#include "lib/RangeSlider/SMDoubleSlider.h"
#include "settings/FileData.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>

namespace marvo {

void SettingsTabView::setFileData(_FILEDATA* record)
{
    m_fileData = record;
    if (!record)
        return;
    watchControls();
    const QScopedValueRollback displaying(m_displaying, true);
    displayFileData(*record);
}

void SettingsTabView::populate()
{
    if (m_fileData && !validateUserInput())
        storeControls(*m_fileData);
}

template <typename Control, typename Signal>
static void watchEach(SettingsTabView& tab, Signal changed, void (SettingsTabView::*slot)())
{
    for (Control* control : tab.findChildren<Control*>())
        QObject::connect(control, changed, &tab, slot, Qt::UniqueConnection);
}

/// Connects the signals of every change: assistive technology uses neither mouse nor keys.
void SettingsTabView::watchControls()
{
    constexpr auto slot = &SettingsTabView::controlChanged;
    watchEach<QCheckBox>(*this, &QCheckBox::toggled, slot);
    watchEach<QRadioButton>(*this, &QRadioButton::toggled, slot);
    watchEach<QComboBox>(*this, &QComboBox::currentIndexChanged, slot);
    watchEach<QLineEdit>(*this, &QLineEdit::textChanged, slot);
    watchEach<SegmentedControl>(*this, &SegmentedControl::selectedSegmentChanged, slot);
    watchEach<RadioMatrix>(*this, &RadioMatrix::selectedCellChanged, slot);
    watchEach<SMDoubleSlider>(*this, &SMDoubleSlider::valuesChanged, slot);
    for (QComboBox* combo : findChildren<QComboBox*>())
        combo->installEventFilter(this);
}

void SettingsTabView::controlChanged()
{
    if (!m_displaying)
        Q_EMIT edited();
}

bool SettingsTabView::eventFilter(QObject* watched, QEvent* event)
{
    // The wheel scrolls the tab. It must not change a box that passes below the pointer.
    if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace marvo
