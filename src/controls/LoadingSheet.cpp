// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/LoadingSheet.h"

#include "controls/PMProgressIndicator.h"
#include "texts/Localisation.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace marvo {

namespace {

constexpr double giveUpSeconds = 15;

} // namespace

LoadingSheet::LoadingSheet(QWidget* window)
    : QDialog(window, Qt::Dialog | Qt::FramelessWindowHint),
      m_progressTitleField(new QLabel(this)),
      m_progressIndicator(new PMProgressIndicator(this)),
      m_cancelButton(new QPushButton(localised("cancel"), this))
{
    setObjectName(QStringLiteral("progressPanel"));
    m_progressTitleField->setObjectName(QStringLiteral("progressTitleField"));
    m_progressIndicator->setObjectName(QStringLiteral("progressIndicator"));
    setWindowModality(Qt::WindowModal);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(12);
    layout->addWidget(m_progressTitleField);
    layout->addWidget(m_progressIndicator);
    m_progressIndicator->setMinimumWidth(260);
    m_cancelButton->setObjectName(QStringLiteral("cancelLoadingButton"));
    layout->addWidget(m_cancelButton, 0, Qt::AlignRight);
    connect(m_cancelButton, &QPushButton::clicked, this, &LoadingSheet::reject);
    m_tick.setInterval(tickInterval);
    connect(&m_tick, &QTimer::timeout, this, [this] { updateLoadingWindow(giveUpSeconds); });
}

void LoadingSheet::showLoading(const QString& title, std::function<void()> cancel)
{
    m_cancel = std::move(cancel);
    m_cancelButton->setVisible(m_cancel != nullptr);
    m_cancelButton->setEnabled(true);
    m_progressIndicator->setIndeterminate(true);
    m_stopLoadingWindow = false;
    m_ticks = 0;
    m_progressIndicator->setDoubleValue(m_progressIndicator->minValue());
    m_progressIndicator->startAnimation();
    m_progressTitleField->setText(title);
    m_tick.start();
    adjustSize();
    open();
}

void LoadingSheet::setProgress(double percent)
{
    // After the sheet has closed, nothing would remove the progress from the application's icon.
    if (m_stopLoadingWindow)
        return;
    m_ticks = 0;
    m_progressIndicator->setIndeterminate(false);
    m_progressIndicator->setDoubleValue(percent);
}

void LoadingSheet::reject()
{
    if (!m_cancel)
        return;
    m_cancelButton->setEnabled(false);
    m_cancel();
}

void LoadingSheet::updateLoadingWindow(double seconds)
{
    // Ticks are counted: a sum of thirds would stay below 100.
    const double progress = ++m_ticks * 100 / (2 * seconds);
    if (m_progressIndicator->isIndeterminate())
        m_progressIndicator->setDoubleValue(progress);
    if (progress < 100 && !m_stopLoadingWindow)
        return;
    m_tick.stop();
    m_progressIndicator->setDoubleValue(m_progressIndicator->minValue());
    m_progressIndicator->stopAnimation();
    m_stopLoadingWindow = true;
    done(QDialog::Accepted);
}

} // namespace marvo
