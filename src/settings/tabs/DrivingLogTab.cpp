// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/DrivingLogTab.h"

#include "logs/window/DrivingLogViewController.h"
#include "settings/window/MRVSettingController.h"

#include <QVBoxLayout>

#include <utility>

namespace marvo {

DrivingLogTab::DrivingLogTab(DrivingLogViewController* logView, QWidget* parent)
    : SettingsTabView(parent), m_logView(logView)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_logView);
}

void DrivingLogTab::setMainController(MRVSettingController* controller)
{
    SettingsTabView::setMainController(controller);
    m_logView->setLoadingSheet(controller ? &controller->loadingSheet() : nullptr);
}

void DrivingLogTab::onHide() { m_logView->dropMapWindow(); }

void DrivingLogTab::displayFileData(const _FILEDATA&)
{
    if (std::exchange(m_isFirstDisplay, false))
        m_logView->loadFlashDataFile(DrivingLogViewController::Occasion::FirstDisplay);
}

} // namespace marvo
