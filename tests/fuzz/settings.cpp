// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The settings record: nothing of a file may be lost, whatever stands in it.
#include "MemoryFile.h"
#include "require.h"
#include "settings/FileDataFields.h"
#include "settings/SettingFile.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace marvo;
    const fuzz::MemoryFile file(data, size);
    _FILEDATA record;
    fillDefaultFileData(record);
    const FileDataBytes defaults = encodeFileData(record);
    const SettingFileRead read = readSettingFile(file.path(), record);
    REQUIRE((read.extent == SettingFileExtent::Whole) == (size >= fileDataSize));

    const FileDataBytes bytes = encodeFileData(record);
    const std::size_t taken = std::min(size, fileDataSize);
    const auto given = std::as_bytes(std::span(data, taken));
    REQUIRE(std::equal(given.begin(), given.end(), bytes.begin()));
    REQUIRE(std::equal(defaults.begin() + static_cast<std::ptrdiff_t>(taken), defaults.end(),
                       bytes.begin() + static_cast<std::ptrdiff_t>(taken)));

    for (const FileDataField& field : fileDataFields()) {
        _FILEDATA copy = record;
        if (field.isText())
            REQUIRE(field.text(copy).size() <= field.size());
        else
            REQUIRE(field.setNumber(copy, field.number(copy)) && copy == record);
    }
    sealFileData(record);
    REQUIRE(record.checksum == fileDataChecksum(record));
    const _FILEDATA sealed = record;
    sealFileData(record);
    REQUIRE(record == sealed);
    return 0;
}
