// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/window/DrivingLogViewController.h"

#include "controls/ElidedLabel.h"
#include "controls/LoadingSheet.h"
#include "controls/MessageSheet.h"
#include "logs/LogExport.h"
#include "logs/window/LogTableModel.h"
#include "logs/window/LogTableView.h"
#include "map/MapView.h"
#include "map/MRVMapWindowController.h"
#include "platform/Screens.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"
#include "workers/ObjectLink.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QLoggingCategory>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logLogs, "marvo.logs")

using namespace std::chrono_literals;
constexpr auto messageDelay = 500ms; // the loading sheet takes up to a tick to go
constexpr auto progressInterval = 50ms;
constexpr auto exportClearsUpWithin = 2s;

QString shownPath(const std::string& path) { return displayText(path); }

QString shownName(const std::string& path) { return shownPath(path.substr(path.rfind('/') + 1)); }

std::string bytesOf(const QString& path) { return QFile::encodeName(path).toStdString(); }

QString fileType(const LogDescription& log)
{
    return QString::fromLatin1(log.fileType.data(), static_cast<qsizetype>(log.fileType.size()));
}

/// What stands in the way of a file, in the user's words where they are known.
QString exportFault(const std::error_code& error)
{
    if (error == std::errc::no_space_on_device)
        return localised("log.export.full");
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
        error == std::errc::read_only_file_system)
        return localised("log.export.protected");
    if (error == std::errc::file_exists)
        return localised("log.export.same_file");
    if (error == std::errc::no_such_file_or_directory || error == std::errc::no_such_device ||
        error == std::errc::no_such_device_or_address || error == std::errc::io_error)
        return localised("log.export.gone");
    return QString::fromStdString(error.message());
}

} // namespace

DrivingLogViewController::DrivingLogViewController(const LogDescription& description, QWidget* parent)
    : QWidget(parent),
      m_description(description),
      m_link(std::make_shared<ObjectLink<DrivingLogViewController>>(this)),
      m_model(new LogTableModel(description, this))
{
    buildView();
    showStatus();
}

DrivingLogViewController::~DrivingLogViewController()
{
    m_link->sever();
    if (m_abandonExport) {
        *m_abandonExport = true;
        // It takes its temporary file away with it.
        m_writers.waitForAll(exportClearsUpWithin);
    }
}

void DrivingLogViewController::buildView()
{
    m_fileLabel = new ElidedLabel(this);
    m_fileLabel->setObjectName(QStringLiteral("fileLabel"));
    m_tableView = new LogTableView(m_description, *m_model, this);
    connect(m_tableView, &LogTableView::rowDoubleClicked, this,
            &DrivingLogViewController::doubleClickTableRow);
    connect(m_tableView, &LogTableView::rowChosen, this, [this](int row) {
        if (m_mapWindowController && m_mapWindowController->window()->isVisible())
            showPosition(row);
    });
    m_statusLabel = new QLabel(this);
    m_statusLabel->setTextFormat(Qt::PlainText); // it may name a file
    m_statusLabel->setObjectName(QStringLiteral("statusLabel"));
    m_statusLabel->setWordWrap(true);

    const auto button = [this](const char* name, const char* key) {
        auto* made = new QPushButton(localised(key), this);
        made->setObjectName(QLatin1StringView(name));
        made->setAutoDefault(false);
        return made;
    };
    m_openButton = button("openButton", "open");
    m_exportButton = button("exportButton", "export");
    connect(m_openButton, &QPushButton::clicked, this, &DrivingLogViewController::openFileDialog);
    connect(m_exportButton, &QPushButton::clicked, this, &DrivingLogViewController::onSaveCSVFile);
    m_wayBox = new QCheckBox(localised("log.way"), this);
    m_wayBox->setObjectName(QStringLiteral("wayBox"));
    connect(m_wayBox, &QCheckBox::toggled, this, &DrivingLogViewController::showWay);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_openButton);
    buttons->addWidget(m_exportButton);
    buttons->addStretch();
    buttons->addWidget(m_wayBox);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_fileLabel);
    layout->addWidget(m_tableView, 1);
    layout->addWidget(m_statusLabel);
    layout->addLayout(buttons);
}

std::int64_t DrivingLogViewController::flashDataNum() const { return m_model->rowCount(); }

QString DrivingLogViewController::stringForColumnIndex(std::int64_t column, std::int64_t row) const
{
    return m_model->stringForColumnIndex(column, row);
}

void DrivingLogViewController::setLoadingSheet(LoadingSheet* sheet) { m_loadingSheet = sheet; }

void DrivingLogViewController::loadFlashDataFile(Occasion occasion)
{
    if (m_FlashDataFilePath.empty())
        return;
    if (m_loadingSheet)
        m_loadingSheet->showLoading(QStringLiteral("Loading..."));
    m_isReading = true;
    runInBackground(
        m_readers, m_link,
        [path = m_FlashDataFilePath, log = &m_description] {
            DrivingLog::Reading reading = DrivingLog::read(path, *log);
            if (reading.log && reading.log->recordCount() > LogTableModel::mostRows)
                reading = {.log = {}, .fault = DrivingLog::Fault::NoMemory, .detail = {}};
            return reading;
        },
        [number = ++m_lastRead, occasion, path = m_FlashDataFilePath](DrivingLogViewController& view,
                                                                      DrivingLog::Reading reading) {
            view.readEnded(number, occasion, path, std::move(reading));
        });
}

void DrivingLogViewController::readEnded(std::uint64_t number, Occasion occasion, const std::string& path,
                                         DrivingLog::Reading reading)
{
    // An earlier one that still hangs on its card keeps nobody waiting.
    if (number == m_lastRead)
        m_isReading = false;
    hideLoadingWhenIdle();
    // One that was begun earlier may come later.
    const bool shown = reading.log && number > m_shownRead;
    if (shown) {
        m_shownRead = number;
        m_model->setLog(std::move(reading.log));
        m_tableView->fitColumns();
        showStatus();
    } else if (!reading.log) {
        showFault(path, occasion, reading);
    }
    Q_EMIT readingEnded(shown);
}

void DrivingLogViewController::hideLoadingWhenIdle()
{
    if (m_loadingSheet && !m_isReading && !m_abandonExport)
        m_loadingSheet->hideLoading();
}

void DrivingLogViewController::showFault(const std::string& path, Occasion occasion,
                                         const DrivingLog::Reading& reading)
{
    using enum DrivingLog::Fault;
    if (reading.fault == CannotOpen) {
        qCWarning(logLogs, "fopen fail:%s", path.c_str());
        if (occasion == Occasion::Chosen)
            Q_EMIT couldNotOpen(shownName(path));
        return;
    }
    if (!reading.detail.empty())
        qCWarning(logLogs, "%s: %s", path.c_str(), reading.detail.c_str());
    const char* key = reading.fault == NoLog      ? "log.fault.no_log"
                      : reading.fault == NoMemory ? "log.fault.no_memory"
                                                  : "log.fault.cannot_read";
    const QString text = localised(key).arg(shownName(path));
    if (occasion == Occasion::Chosen)
        showMessageSheet(window(), QStringLiteral("MARVO"), text);
    else
        m_statusLabel->setText(text);
}

void DrivingLogViewController::showStatus()
{
    const auto& log = m_model->log();
    m_exportButton->setEnabled(flashDataNum() > 0 && !m_abandonExport);
    m_wayBox->setEnabled(flashDataNum() > 0);
    m_fileLabel->setVisible(log != nullptr);
    if (!log) {
        m_statusLabel->setText(localised("log.none"));
        return;
    }
    m_fileLabel->setFullText(shownPath(log->path()));
    const auto number = [](std::uint64_t value) { return QLocale().toString(qulonglong(value)); };
    m_statusLabel->setText(
        log->endsEarly()
            ? localised("log.ends_early").arg(number(log->recordCount()), number(log->promisedCount()))
        : log->recordCount() == 1 ? localised("log.record")
                                  : localised("log.records").arg(number(log->recordCount())));
}

void DrivingLogViewController::openFileDialog()
{
    dropMapWindow();
    const QString type = fileType(m_description);
    auto* dialog = new QFileDialog(this, localised("log.open_title"));
    dialog->setObjectName(QStringLiteral("openFileDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(QStringLiteral("%1 (*.%2)").arg(localised("log.file"), type));
    const auto& log = m_model->log();
    const QString folder = log ? QFileInfo(QFile::decodeName(log->path().c_str())).path()
                               : QFile::decodeName(m_logFolder.c_str());
    dialog->setDirectory(folder.isEmpty() ? QDir::homePath() : folder);
    dialog->resize(760, 460);
    connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList& files) {
        m_FlashDataFilePath = bytesOf(files.last());
        loadFlashDataFile(Occasion::Chosen);
    });
    dialog->open();
}

void DrivingLogViewController::onSaveCSVFile()
{
    dropMapWindow();
    if (flashDataNum() <= 0)
        return;
    openSavePanel([this](const std::string& path) { doWriteCSVFile(path); });
}

void DrivingLogViewController::openSavePanel(std::function<void(const std::string&)> chosen)
{
    auto* dialog = new QFileDialog(this, localised("log.export_title"),
                                   QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                                   QStringLiteral("%1 (*.csv)").arg(localised("log.csv_file")));
    dialog->setObjectName(QStringLiteral("savePanel"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("csv"));
    dialog->selectFile(
        QString::fromLatin1(m_description.exportName.data(), qsizetype(m_description.exportName.size())) +
        QStringLiteral(".csv"));
    dialog->resize(760, 460);
    connect(dialog, &QFileDialog::fileSelected, this,
            [chosen = std::move(chosen)](const QString& path) { chosen(bytesOf(path)); });
    dialog->open();
}

void DrivingLogViewController::doWriteCSVFile(const std::string& path)
{
    if (m_abandonExport || flashDataNum() <= 0)
        return;
    m_abandonExport = std::make_shared<std::atomic<bool>>(false);
    m_exportButton->setEnabled(false);
    if (m_loadingSheet)
        m_loadingSheet->showLoading(QStringLiteral("Saving..."),
                                    [abandon = m_abandonExport] { *abandon = true; });
    std::vector<std::string> titles;
    for (const QString& name : m_model->columnNames())
        titles.push_back(name.toStdString());

    runInBackground(
        m_writers, m_link,
        [log = m_model->log(), titles, path, link = m_link, abandon = m_abandonExport] {
            auto told = std::chrono::steady_clock::now();
            const auto total = static_cast<double>(log->recordCount());
            return exportLog(*log, titles, path, [&](std::uint64_t records) {
                const auto now = std::chrono::steady_clock::now();
                if (now - told >= progressInterval || records == log->recordCount()) {
                    told = now;
                    link->post([percent = 100 * static_cast<double>(records) / total](auto& view) {
                        if (view.m_loadingSheet)
                            view.m_loadingSheet->setProgress(percent);
                    });
                }
                return !*abandon;
            });
        },
        [path](DrivingLogViewController& view, std::error_code error) { view.writingEnded(path, error); });
}

void DrivingLogViewController::writingEnded(const std::string& path, std::error_code error)
{
    m_abandonExport.reset();
    showStatus();
    hideLoadingWhenIdle();
    Q_EMIT exportEnded(!error);
    if (error == std::errc::operation_canceled)
        return;
    if (error)
        qCWarning(logLogs, "%s: %s", path.c_str(), error.message().c_str());
    const QString text = error ? localised("log.export.failed").arg(shownName(path), exportFault(error))
                               : localised("msg.saved").trimmed();
    QTimer::singleShot(messageDelay, this,
                       [this, text] { showMessageSheet(window(), QStringLiteral("MARVO"), text); });
}

void DrivingLogViewController::doubleClickTableRow(std::int64_t row)
{
    qCInfo(logLogs, "rowNum=%ld", static_cast<long>(row));
    if (row < 0 || row >= flashDataNum())
        return;
    showMapWindow();
    // Whoever asks for a place wants to see it, also after the map has been dragged elsewhere.
    if (showPosition(row))
        m_mapWindowController->mapWebView()->follow();
}

void DrivingLogViewController::showMapWindow()
{
    if (m_mapWindowController) {
        m_mapWindowController->showWindow(window());
        return;
    }
    m_mapWindowController = std::make_unique<MRVMapWindowController>();
    m_mapWindowController->window()->installEventFilter(this);
    keepAbove(*m_mapWindowController->window(), *this);
    m_mapWindowPlaced = false;
    m_mapWindowController->showWindow(window());
    placeMapWindow();
}

bool DrivingLogViewController::eventFilter(QObject* watched, QEvent* event)
{
    // Only now the map window has its frame, and the edges can be level.
    if (event->type() == QEvent::WindowActivate && !std::exchange(m_mapWindowPlaced, true))
        placeMapWindow();
    // It comes to the front, but the keys go on moving from row to row.
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        QCoreApplication::sendEvent(m_tableView, event);
        return true;
    }
    // The box tells what the map shows.
    if (event->type() == QEvent::Close)
        m_wayBox->setChecked(false);
    return QWidget::eventFilter(watched, event);
}

void DrivingLogViewController::placeMapWindow()
{
    m_mapWindowController->moveWindowRightBy(window()->frameGeometry());
    // Beside a window that reaches to the screen's edge the map could not be seen.
    QWidget* map = m_mapWindowController->window();
    const QRect visible = window()->screen()->availableGeometry();
    map->move(
        std::max(visible.left(), std::min(map->x(), visible.right() + 1 - map->frameGeometry().width())),
        map->y());
}

void DrivingLogViewController::dropMapWindow()
{
    m_mapWindowController.reset();
    m_wayBox->setChecked(false);
}

bool DrivingLogViewController::showPosition(std::int64_t row)
{
    const DecimalPosition position = m_model->log()->position(static_cast<std::uint64_t>(row));
    if (!isKnown(position))
        return false;
    m_mapWindowController->updateMapLat(position.latitude, position.longitude);
    return true;
}

void DrivingLogViewController::showWay(bool shown)
{
    if (!shown) {
        if (m_mapWindowController)
            m_mapWindowController->mapWebView()->setWay({});
        return;
    }
    showMapWindow();
    runInBackground(
        m_readers, m_link,
        [log = m_model->log()] {
            QList<MapPoint> way;
            for (const DecimalPosition& point : log->way())
                way.append({.longitude = point.longitude, .latitude = point.latitude});
            return std::pair(log, way);
        },
        [](DrivingLogViewController& view, const auto& result) {
            const auto& [log, way] = result;
            if (!view.m_mapWindowController || !view.m_wayBox->isChecked() || log != view.m_model->log())
                return;
            // Without a position the map shows all of the way.
            MapView& map = *view.m_mapWindowController->mapWebView();
            map.newRecording();
            map.follow();
            map.setWay(way);
        });
}

} // namespace marvo
