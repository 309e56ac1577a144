// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/SettingFileWriting.h"

#include "settings/SettingFile.h"
#include "support/Log.h"
#include "texts/Localisation.h"

namespace marvo {

std::optional<QString> writeSettingFile(const _FILEDATA& record, const std::string& path)
{
    const std::error_code error = saveSettingFile(record, path);
    if (!error)
        return std::nullopt;
    logLine(error.message());
    return localised("msg.file_open_fail");
}

std::optional<QString> writeDefaultSettingFile(const std::string& path)
{
    _FILEDATA record;
    fillDefaultFileData(record);
    return writeSettingFile(record, path);
}

} // namespace marvo
