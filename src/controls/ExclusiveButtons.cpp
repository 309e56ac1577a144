// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/ExclusiveButtons.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace marvo {

namespace {

QAccessibleInterface* accessibleList(const QString& className, QObject* object)
{
    if (className != QLatin1StringView("marvo::SegmentedControl") &&
        className != QLatin1StringView("marvo::RadioMatrix"))
        return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget*>(object), QAccessible::List);
}

} // namespace

ExclusiveButtons::ExclusiveButtons(QWidget* owner) : QObject(owner), m_owner(owner)
{
    QAccessible::installFactory(accessibleList);
    // No focus proxy: setting one changes the tab order.
    owner->setFocusPolicy(Qt::ClickFocus);
    owner->installEventFilter(this);
    connect(owner, &QObject::objectNameChanged, this, &ExclusiveButtons::updateNames);
}

void ExclusiveButtons::append(QAbstractButton* button)
{
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->installEventFilter(this);
    // Keeps later widgets after the buttons in the tab order.
    QWidget::setTabOrder(m_buttons.isEmpty() ? m_owner : m_buttons.constLast(), button);
    const int index = count();
    // Assistive technology toggles without a click.
    connect(button, &QAbstractButton::toggled, this, [this, index](bool checked) {
        if (checked && !m_showing)
            choose(index);
    });
    m_buttons.append(button);
    updateNames();
    updateTabStop();
}

void ExclusiveButtons::removeLast()
{
    if (m_selected == count() - 1)
        select(-1);
    const QAbstractButton* const button = m_buttons.takeLast();
    updateTabStop();
    delete button;
}

void ExclusiveButtons::select(int index)
{
    if (index < 0 || index >= count())
        index = -1;
    const bool changed = index != m_selected;
    m_selected = index;
    showSelection();
    if (changed)
        Q_EMIT selectedChanged(index);
}

bool ExclusiveButtons::isEnabled(int index) const { return m_buttons.at(index)->isEnabledTo(m_owner); }

void ExclusiveButtons::setEnabled(int index, bool enabled) { m_buttons.at(index)->setEnabled(enabled); }

bool ExclusiveButtons::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        if (watched == m_owner && m_tabStop) {
            m_tabStop->setFocus(static_cast<QFocusEvent*>(event)->reason());
            return true;
        }
        [[fallthrough]];
    case QEvent::FocusOut:
    case QEvent::EnabledChange:
        updateTabStop();
        break;
    case QEvent::KeyPress: {
        const auto* keyEvent = static_cast<QKeyEvent*>(event);
        const int from = static_cast<int>(m_buttons.indexOf(qobject_cast<QAbstractButton*>(watched)));
        const int key = keyEvent->key();
        if (from < 0 || (keyEvent->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
            break;
        if (key < Qt::Key_Home || key > Qt::Key_Down)
            break;
        if (const int to = target(from, key); to >= 0) {
            m_buttons.at(to)->setFocus(Qt::TabFocusReason);
            choose(to);
        }
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void ExclusiveButtons::choose(int index)
{
    const bool changed = index != m_selected;
    select(index);
    if (changed)
        Q_EMIT chosen(index);
}

int ExclusiveButtons::enabledFrom(int index, int step) const
{
    while (index >= 0 && index < count() && !isEnabled(index))
        index += step;
    return index >= 0 && index < count() ? index : -1;
}

int ExclusiveButtons::target(int from, int key) const
{
    switch (key) {
    case Qt::Key_Home:
        return enabledFrom(0, 1);
    case Qt::Key_End:
        return enabledFrom(count() - 1, -1);
    case Qt::Key_Left:
        return enabledFrom(from - 1, -1);
    case Qt::Key_Right:
        return enabledFrom(from + 1, 1);
    case Qt::Key_Up:
        return enabledFrom(from - m_columns, -m_columns);
    default:
        return enabledFrom(from + m_columns, m_columns);
    }
}

void ExclusiveButtons::showSelection()
{
    const QScopedValueRollback showing(m_showing, true);
    for (int i = 0; i < count(); ++i) {
        QAbstractButton* const button = m_buttons.at(i);
        if (i == m_selected || !button->isChecked())
            continue;
        // An exclusive button that is checked cannot be unchecked.
        button->setAutoExclusive(false);
        button->setChecked(false);
        button->setAutoExclusive(true);
    }
    if (m_selected >= 0)
        m_buttons.at(m_selected)->setChecked(true);
    updateTabStop();
}

void ExclusiveButtons::updateTabStop()
{
    m_tabStop = nullptr;
    for (int i = 0; i < count() && (!m_tabStop || !m_tabStop->hasFocus()); ++i) {
        QAbstractButton* const button = m_buttons.at(i);
        if (isEnabled(i) && (!m_tabStop || i == m_selected || button->hasFocus()))
            m_tabStop = button;
    }
    for (QAbstractButton* button : m_buttons)
        button->setFocusPolicy(button == m_tabStop ? Qt::StrongFocus : Qt::ClickFocus);
}

void ExclusiveButtons::updateNames()
{
    for (int i = 0; i < count(); ++i)
        m_buttons.at(i)->setObjectName(QStringLiteral("%1.%2").arg(m_owner->objectName()).arg(i));
}

} // namespace marvo
