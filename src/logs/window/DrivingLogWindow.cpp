// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/window/DrivingLogWindow.h"

#include "card/CardLayout.h"
#include "controls/LoadingSheet.h"
#include "controls/MessageSheet.h"
#include "logs/window/MRVSettingForFlashDataViewController.h"
#include "logs/window/MRVSettingForObdDriveInfoViewController.h"
#include "platform/FolderProbe.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace marvo {

namespace {

constexpr QSize usualSize(1300, 660);
constexpr int roomForTheMap = 490; // to the right of the window, where the screen has it

QString nameOf(const std::string& path) { return displayText(path.substr(path.rfind('/') + 1)); }

} // namespace

DrivingLogWindow::DrivingLogWindow(const LogDescription& log, const std::string& path, QWidget* parent)
    : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("DrivingLogWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("%1 – %2").arg(nameOf(path), localised("log.window_title")));
    if (&log == &flashDataLog())
        m_view = new MRVSettingForFlashDataViewController(this);
    else
        m_view = new MRVSettingForObdDriveInfoViewController(this);
    for (const QKeySequence& key : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
        connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->addWidget(m_view);
    const QRect visible = screen()->availableGeometry();
    resize(usualSize.boundedTo(visible.size()));
    move(visible.topLeft() + QPoint(std::max(0, visible.width() - width() - roomForTheMap) / 2,
                                    (visible.height() - height()) / 2));

    m_view->setLoadingSheet(new LoadingSheet(this));
    m_view->setFlashDataFilePath(path);
    connect(m_view, &DrivingLogViewController::readingEnded, this, &DrivingLogWindow::readingEnded);
    connect(m_view, &DrivingLogViewController::couldNotOpen, this, [this](const QString& name) {
        showMessageSheet(this, QStringLiteral("MARVO"), localised("log.fault.cannot_open").arg(name));
    });
}

void DrivingLogWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (std::exchange(m_firstShow, false))
        m_view->loadFlashDataFile(DrivingLogViewController::Occasion::Chosen);
}

void DrivingLogWindow::readingEnded(bool shown)
{
    if (shown)
        setWindowTitle(QStringLiteral("%1 – %2").arg(nameOf(m_view->flashDataFilePath()),
                                                     localised("log.window_title")));
}

void openDrivingLogDialog(QWidget* parent, const std::string& folder,
                          std::function<void(DrivingLogWindow&)> opened)
{
    auto* dialog = new QFileDialog(parent, localised("log.open_title"));
    dialog->setObjectName(QStringLiteral("openDrivingLogDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QString types;
    for (const LogDescription* log : {&flashDataLog(), &obdDriveInfoLog()})
        types += QStringLiteral(" *.") +
                 QString::fromLatin1(log->fileType.data(), static_cast<qsizetype>(log->fileType.size()));
    dialog->setNameFilter(QStringLiteral("%1 (%2)").arg(localised("log.file"), types.trimmed()));
    const auto shown = [](const std::string& path) {
        return QFile::decodeName(QByteArray::fromStdString(path));
    };
    const std::string logs = std::string(folder).append("/").append(logFolderName);
    dialog->setDirectory(!folderAnswers(folder) ? QDir::homePath()
                         : folderAnswers(logs)  ? shown(logs)
                                                : shown(folder));
    dialog->resize(760, 460);
    QObject::connect(dialog, &QFileDialog::fileSelected, parent,
                     [parent, opened = std::move(opened)](const QString& file) {
                         const std::string path = QFile::encodeName(file).toStdString();
                         const LogDescription* log = logOfFile(path);
                         if (!log) {
                             showMessageSheet(parent, QStringLiteral("MARVO"),
                                              localised("log.fault.no_log").arg(nameOf(path)));
                             return;
                         }
                         auto* window = new DrivingLogWindow(*log, path);
                         opened(*window);
                         // The dialog that is going gives the keyboard back to its own window first.
                         QTimer::singleShot(0, window, [window] {
                             window->show();
                             window->raise();
                             window->activateWindow();
                         });
                     });
    dialog->open();
}

} // namespace marvo
