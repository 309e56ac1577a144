// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/RecordingKinds.h"

#include <QWidget>

#include <array>

class QLineEdit;

namespace marvo {

class ImageButton;

/// The strip over the recording list: a field to search by typing and a button for each kind.
class RecordingFilterBar : public QWidget
{
    Q_OBJECT
public:
    explicit RecordingFilterBar(QWidget* parent = nullptr);

    /// Begins a search with a text typed elsewhere, or goes on with the one in the field.
    void beginSearch(const QString& text = {});
    /// Nothing is searched for and every kind is wanted.
    void clear();

Q_SIGNALS:
    void searchChanged(const QString& text);
    /// A bit for each kind wanted, as RecordingFilter::setKinds() takes them.
    void kindsChanged(unsigned kinds);
    /// The user goes on in the list: by one row up (-1) or down (1), to play the row found, or back to it.
    void rowStepped(int step);
    void playRequested();
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    unsigned kinds() const;

    QLineEdit* m_search;
    std::array<ImageButton*, recordingKinds.size()> m_kinds{};
};

} // namespace marvo
