// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "logs/window/DrivingLogViewController.h"

namespace marvo {

/// The log of a camera with an OBD adapter.
class MRVSettingForObdDriveInfoViewController : public DrivingLogViewController
{
    Q_OBJECT
public:
    explicit MRVSettingForObdDriveInfoViewController(QWidget* parent = nullptr)
        : DrivingLogViewController(obdDriveInfoLog(), parent)
    {}
};

} // namespace marvo
