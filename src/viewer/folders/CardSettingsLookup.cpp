// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/folders/CardSettingsLookup.h"

#include "settings/SettingFile.h"
#include "workers/ObjectLink.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace marvo {

namespace {

constexpr std::array<std::string_view, 4> cardFolders{"AlwaysMovie", "EventMovie", "MotionMovie", "DrvInfo"};

std::optional<_FILEDATA> readRecord(const std::filesystem::path& folder)
{
    const std::filesystem::path file = folder / "config.bin";
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
    if (std::ranges::find(cardFolders, path.filename().string()) == cardFolders.end())
        return std::nullopt;
    return readRecord(path.parent_path());
}

CardSettingsLookup::CardSettingsLookup(CardSettingsReader reader)
    : m_reader(std::move(reader)), m_link(std::make_shared<ObjectLink<CardSettingsLookup>>(this))
{}

CardSettingsLookup::~CardSettingsLookup() { m_link->sever(); }

void CardSettingsLookup::lookUp(const std::string& folder)
{
    m_workers.start([reader = m_reader, link = m_link, folder, generation = ++m_generation] {
        _FILEDATA record;
        fillDefaultFileData(record);
        if (const auto found = reader(folder))
            record = *found;
        link->post([record, generation](CardSettingsLookup& lookup) {
            if (generation == lookup.m_generation)
                Q_EMIT lookup.settingsKnown(record);
        });
    });
}

} // namespace marvo
