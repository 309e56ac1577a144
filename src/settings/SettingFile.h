// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileData.h"

#include <string>
#include <system_error>

namespace marvo {

/// How much of a settings file there was to read.
enum class SettingFileExtent {
    None,  ///< missing or unreadable: the record is as it was
    Short, ///< under 272 bytes: they replace the record's leading bytes, the others are as they were
    Whole
};

struct SettingFileRead
{
    SettingFileExtent extent = SettingFileExtent::None;
    std::string error; ///< why there is no whole record, one line in English; empty when there is

    explicit operator bool() const { return extent == SettingFileExtent::Whole; }
};

/// Reads the first 272 bytes of a settings file over a record, which holds the defaults before. Nothing is
/// checked: neither magic nor checksum nor the ranges of the fields.
SettingFileRead readSettingFile(const std::string& path, _FILEDATA& record);

/// Writes the record as it is; the file is replaced whole or stays as it was.
std::error_code saveSettingFile(const _FILEDATA& record, const std::string& path);

/// The bytes of the settings file of a new camera.
std::string newCameraSettings();

} // namespace marvo
