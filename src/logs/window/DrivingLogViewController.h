// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "logs/DrivingLog.h"
#include "workers/DetachedWorkers.h"

#include <QPointer>
#include <QWidget>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <system_error>

class QCheckBox;
class QLabel;
class QPushButton;

namespace marvo {

class ElidedLabel;
class LoadingSheet;
class LogTableModel;
class LogTableView;
class MRVMapWindowController;
template <typename Target>
class ObjectLink;

/// A driving log as a table that can be read only, with the map beside it and an export.
///
/// Reading and exporting run on workers. Each works on data of its own: a log that has been read replaces the
/// shown one on the main thread, and an export keeps the log that it began with.
class DrivingLogViewController : public QWidget
{
    Q_OBJECT
public:
    DrivingLogViewController(const LogDescription& description, QWidget* parent = nullptr);
    /// An export that still goes on is abandoned: the file that it was to replace stays.
    ~DrivingLogViewController() override;

    /// The log to be shown at the first display, as bytes.
    void setFlashDataFilePath(const std::string& path) { m_FlashDataFilePath = path; }
    const std::string& flashDataFilePath() const { return m_FlashDataFilePath; }
    /// Where the open dialog begins while no log is shown.
    void setLogFolder(const std::string& folder) { m_logFolder = folder; }
    /// Rows of the table; 0 until a log has been read.
    std::int64_t flashDataNum() const;
    QString stringForColumnIndex(std::int64_t column, std::int64_t row) const;
    const LogDescription& description() const { return m_description; }
    /// Null while there is none.
    MRVMapWindowController* mapWindowController() const { return m_mapWindowController.get(); }

    /// What covers the window while a log is read or written; none is needed.
    void setLoadingSheet(LoadingSheet* sheet);

    /// Who asked for a log: of one that the user has named, every fault is told in a message.
    enum class Occasion { FirstDisplay, Chosen };
    /// Reads the log at the path set; readingEnded follows.
    void loadFlashDataFile(Occasion occasion);

    void openFileDialog();
    void onSaveCSVFile();
    /// Exports the table to a file; a message follows, and exportEnded. One at a time.
    void doWriteCSVFile(const std::string& path);
    /// Shows a row's position in the map window; nothing for a row that does not exist.
    void doubleClickTableRow(std::int64_t row);
    /// Closes the map window and lets go of its map.
    void dropMapWindow();

Q_SIGNALS:
    /// The table shows what was read, or what it showed before if that failed.
    void readingEnded(bool shown);
    void exportEnded(bool written);
    /// A file that has been chosen cannot be opened at all; the view itself only logs that.
    void couldNotOpen(const QString& name);

private:
    void buildView();
    void openSavePanel(std::function<void(const std::string&)> chosen);
    void readEnded(std::uint64_t number, Occasion occasion, const std::string& path,
                   DrivingLog::Reading reading);
    void showFault(const std::string& path, Occasion occasion, const DrivingLog::Reading& reading);
    void writingEnded(const std::string& path, std::error_code error);
    void hideLoadingWhenIdle();
    void showStatus();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showMapWindow();
    void placeMapWindow();
    /// False, and the map as it was, for a row without a position.
    bool showPosition(std::int64_t row);
    void showWay(bool shown);

    const LogDescription& m_description;
    std::shared_ptr<ObjectLink<DrivingLogViewController>> m_link;
    DetachedWorkers m_readers;
    DetachedWorkers m_writers;
    std::string m_FlashDataFilePath;
    std::string m_logFolder;
    std::uint64_t m_lastRead = 0;                       ///< number of the reading that was begun last
    std::uint64_t m_shownRead = 0;                      ///< number of the reading whose result is shown
    bool m_isReading = false;                           ///< the reading that was begun last has not ended
    std::shared_ptr<std::atomic<bool>> m_abandonExport; ///< of the export under way; null for none

    LogTableModel* m_model;
    LogTableView* m_tableView = nullptr;
    ElidedLabel* m_fileLabel = nullptr;
    QLabel* m_statusLabel = nullptr;
    QPushButton* m_openButton = nullptr;
    QPushButton* m_exportButton = nullptr;
    QCheckBox* m_wayBox = nullptr;
    QPointer<LoadingSheet> m_loadingSheet;
    std::unique_ptr<MRVMapWindowController> m_mapWindowController;
    bool m_mapWindowPlaced = false; ///< with the frame that the desktop gives it
};

} // namespace marvo
