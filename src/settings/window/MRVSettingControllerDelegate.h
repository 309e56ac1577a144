// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace marvo {

struct _FILEDATA;
class MRVSettingController;

/// The interface of a settings tab. A tab edits the window's record through its address and never touches the
/// file.
class MRVSettingControllerDelegate
{
public:
    virtual ~MRVSettingControllerDelegate() = default;

    /// Keeps the address and shows the record's values at once.
    virtual void setFileData(_FILEDATA* record) = 0;
    /// Stores the controls' values into the record if validateUserInput() finds them valid.
    virtual void populate() = 0;
    /// None when the tab's input is valid, else a message for the user; the offending control then has the
    /// focus.
    virtual std::optional<QString> validateUserInput() = 0;
    virtual void setMainController(MRVSettingController* controller) = 0;
    /// The tab is being left.
    virtual void onHide() {}
};

/// The viewer's interface to the settings window.
class viewControllerForMRVSettingDelegate
{
public:
    virtual ~viewControllerForMRVSettingDelegate() = default;

    /// 0 = km/h, 1 = mi/h; any other value changes nothing.
    virtual void setDisplayMile(unsigned int speedUnit) = 0;
};

} // namespace marvo
