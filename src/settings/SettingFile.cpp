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

std::error_code saveSettingFile(const _FILEDATA& record, const std::string& path)
{
    const FileDataBytes bytes = encodeFileData(record);
    std::string content(bytes.size(), '\0');
    std::ranges::transform(bytes, content.begin(), [](std::byte byte) { return static_cast<char>(byte); });
    return writeFileAtomically(path, content);
}

} // namespace marvo
