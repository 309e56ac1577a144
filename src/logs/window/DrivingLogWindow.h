// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <string>

namespace marvo {

class DrivingLogViewController;
struct LogDescription;

/// A driving log of either kind in a window of its own, from any file. It deletes itself when it is closed.
class DrivingLogWindow : public QWidget
{
    Q_OBJECT
public:
    /// Reads the log, whose path is bytes, when it is first shown, and tells in a message if it cannot.
    DrivingLogWindow(const LogDescription& log, const std::string& path, QWidget* parent = nullptr);

    DrivingLogViewController& view() const { return *m_view; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void readingEnded(bool shown);

    DrivingLogViewController* m_view;
    bool m_firstShow = true;
};

/// Asks for a log file, beginning in a folder (bytes; its "DrvInfo" folder when it has one), and shows it in
/// a window of its own, which `opened` is given.
void openDrivingLogDialog(QWidget* parent, const std::string& folder,
                          std::function<void(DrivingLogWindow&)> opened);

} // namespace marvo
