// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "logs/window/DrivingLogViewController.h"

namespace marvo {

/// The driving log that every camera keeps.
class MRVSettingForFlashDataViewController : public DrivingLogViewController
{
    Q_OBJECT
public:
    explicit MRVSettingForFlashDataViewController(QWidget* parent = nullptr)
        : DrivingLogViewController(flashDataLog(), parent)
    {}
};

} // namespace marvo
