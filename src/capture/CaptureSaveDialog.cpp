// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureSaveDialog.h"

#include "texts/Localisation.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStandardPaths>

namespace marvo {

namespace {

constexpr int longestNameShown = 240; ///< pixels; a name has up to 255 characters, and the dialog a width

QString startFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

} // namespace

CaptureSaveDialog::CaptureSaveDialog(QWidget* parent)
    : QFileDialog(parent, QStringLiteral("Save Settings"), startFolder()), m_takenLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("captureSaveDialog"));
    // The desktop's own dialogs would offer to replace a file, and some of them cannot show hidden ones.
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    setAcceptMode(QFileDialog::AcceptSave);
    setFileMode(QFileDialog::AnyFile);
    setFilter(QDir::AllEntries | QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Hidden);
    setLabelText(QFileDialog::LookIn, localised("capture.save.folder"));
    setLabelText(QFileDialog::FileName, localised("capture.save.name"));
    setLabelText(QFileDialog::FileType, localised("capture.save.type"));
    setLabelText(QFileDialog::Accept, localised("capture.save.accept"));
    setLabelText(QFileDialog::Reject, localised("capture.save.cancel"));
    setNameFilter(localised("capture.save.allFiles"));
    selectFile(QStringLiteral("marvo_capture.png"));
    resize(760, 460);

    m_takenLabel->setObjectName(QStringLiteral("captureNameTaken"));
    m_takenLabel->setTextFormat(Qt::PlainText); // a name may hold what looks like tags
    if (auto* grid = qobject_cast<QGridLayout*>(layout()))
        grid->addWidget(m_takenLabel, grid->rowCount(), 0, 1, -1);
    if (const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        connect(name, &QLineEdit::textChanged, this, &CaptureSaveDialog::showWhetherTaken);
    connect(this, &QFileDialog::directoryEntered, this, &CaptureSaveDialog::showWhetherTaken);
    showWhetherTaken();
}

void CaptureSaveDialog::showWhetherTaken()
{
    const auto* edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QString name = edit ? edit->text() : QString();
    const QFileInfo file(directory().absoluteFilePath(name));
    const bool isTaken = !name.isEmpty() && (file.isFile() || file.isSymLink());
    const QString shown =
        m_takenLabel->fontMetrics().elidedText(file.fileName(), Qt::ElideMiddle, longestNameShown);
    m_takenLabel->setText(isTaken ? localised("capture.save.taken").arg(shown) : QString());
}

} // namespace marvo
