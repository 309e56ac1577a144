// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/folders/CardSettingsLookup.h"

#include "card/CardLayout.h"
#include "settings/SettingFile.h"

#include <filesystem>
#include <system_error>

namespace marvo {

namespace {

std::optional<_FILEDATA> readRecord(const std::filesystem::path& folder)
{
    const std::filesystem::path file = folder / settingsFileName;
    std::error_code failed;
    if (std::filesystem::file_size(file, failed) != fileDataSize || failed)
        return std::nullopt;
    _FILEDATA record;
    fillDefaultFileData(record);
    if (!readSettingFile(file.string(), record))
        return std::nullopt;
    return record;
}

} // namespace

std::optional<_FILEDATA> readCardSettings(const std::string& folder)
{
    if (folder.empty())
        return std::nullopt;
    std::filesystem::path path(folder);
    if (!path.has_filename())
        path = path.parent_path(); // "card/" names the same folder as "card"
    if (const auto record = readRecord(path))
        return record;
    if (!isCardFolder(path.filename().string()))
        return std::nullopt;
    return readRecord(path.parent_path());
}

void CardSettingsLookup::lookUp(const std::string& folder)
{
    m_look.start(
        [reader = m_reader, folder](const LatestRun&) {
            _FILEDATA record;
            fillDefaultFileData(record);
            return reader(folder).value_or(record);
        },
        [this](const _FILEDATA& record) { Q_EMIT settingsKnown(record); });
}

} // namespace marvo
