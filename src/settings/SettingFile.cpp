// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/SettingFile.h"

#include "support/AtomicFile.h"
#include "support/FileSource.h"

#include <algorithm>

namespace marvo {

SettingFileRead readSettingFile(const std::string& path, _FILEDATA& record)
{
    FileSource file(path);
    FileDataBytes read;
    const std::size_t count = file.readAt(0, read);
    if (!file.error().empty())
        return {.extent = SettingFileExtent::None, .error = file.error()};

    FileDataBytes bytes = encodeFileData(record);
    std::copy_n(read.begin(), count, bytes.begin());
    record = decodeFileData(bytes);
    if (count == bytes.size())
        return {.extent = SettingFileExtent::Whole, .error = {}};
    return {.extent = SettingFileExtent::Short,
            .error = "Only " + std::to_string(count) + " of " + std::to_string(fileDataSize) + " bytes"};
}

namespace {

std::string textOf(const _FILEDATA& record)
{
    const FileDataBytes bytes = encodeFileData(record);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

std::error_code saveSettingFile(const _FILEDATA& record, const std::string& path)
{
    return writeFileAtomically(path, textOf(record));
}

std::string newCameraSettings()
{
    _FILEDATA record{};
    fillDefaultFileData(record);
    return textOf(record);
}

} // namespace marvo
