// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>

class QAbstractButton;
class QWidget;

namespace marvo {

/// A list of buttons of which at most one is selected. The list is one tab stop. The arrow keys select the
/// next enabled button, Home and End the first and the last, the space bar the one with the focus. Unlike a
/// button group, it can return to no selection and has a signal for the user's choices alone.
class ExclusiveButtons : public QObject
{
    Q_OBJECT
public:
    /// The owner holds the buttons; the focus given to it goes to the tab stop.
    explicit ExclusiveButtons(QWidget* owner);

    int count() const { return static_cast<int>(m_buttons.size()); }
    QAbstractButton* at(int index) const { return m_buttons.at(index); }
    /// Takes a button that shows itself as checked into the list, named after the owner: "owner.index".
    void append(QAbstractButton* button);
    /// Deletes the last button; a selection of it is gone with it.
    void removeLast();
    /// How many buttons on the Up and Down keys go; 1 at first.
    void setColumns(int columns) { m_columns = columns; }

    /// The index of the selected button, or -1.
    int selected() const { return m_selected; }
    /// Any index without button selects nothing.
    void select(int index);

    bool isEnabled(int index) const;
    void setEnabled(int index, bool enabled);

Q_SIGNALS:
    /// Changed by the user or by the program.
    void selectedChanged(int index);
    /// The user selected another button.
    void chosen(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void choose(int index);
    /// The next enabled button from an index on, in steps; -1 when there is none.
    int enabledFrom(int index, int step) const;
    int target(int from, int key) const;
    void showSelection();
    void updateTabStop();
    void updateNames();

    QWidget* m_owner;
    QList<QAbstractButton*> m_buttons;
    int m_columns = 1;
    int m_selected = -1;
    QAbstractButton* m_tabStop = nullptr;
    bool m_showing = false;
};

} // namespace marvo
