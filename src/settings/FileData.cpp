// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/FileData.h"

#include "settings/FileDataFields.h"
#include "support/ByteReader.h"

#include <algorithm>
#include <cstring>

namespace marvo {

void fillDefaultFileData(_FILEDATA& record)
{
    record = {};
    for (const FileDataField& field : fileDataFields()) {
        if (!field.isText())
            field.setNumber(record, field.defaultValue);
    }
}

void fillDefaultFileDataForLanguage(_FILEDATA& record, InterfaceLanguage language)
{
    fillDefaultFileData(record);
    if (language == InterfaceLanguage::Korean)
        return;
    record.videoBitrate = 9000;
    record.motionSensitivityFhd = 90;
    record.motionSensitivityHd = 75;
    record.voiceLanguage = 1;
}

void sealFileData(_FILEDATA& record)
{
    record.carNumberSet = record.carNumber[0] != '\0' ? 1 : 0;
    record.checksum = fileDataChecksum(record);
}

std::uint16_t fileDataChecksum(const _FILEDATA& record)
{
    const FileDataBytes bytes = encodeFileData(record);
    ByteReader reader(bytes);
    reader.skip(4);
    std::uint32_t folded = 0;
    while (reader.remaining() > 0)
        folded ^= reader.littleEndian<std::uint32_t>();
    return static_cast<std::uint16_t>(folded & 0xFFFF);
}

FileDataBytes encodeFileData(const _FILEDATA& record)
{
    FileDataBytes bytes{};
    for (const FileDataField& field : fileDataFields()) {
        const auto place = std::span(bytes).subspan(field.offset, field.size());
        if (field.isText()) {
            std::ranges::copy(std::as_bytes(std::span(record.carNumber)), place.begin());
            continue;
        }
        auto number = static_cast<std::uint64_t>(field.number(record));
        for (std::byte& byte : place) {
            byte = static_cast<std::byte>(number & 0xFF);
            number >>= 8;
        }
    }
    return bytes;
}

_FILEDATA decodeFileData(std::span<const std::byte, fileDataSize> bytes)
{
    _FILEDATA record{};
    ByteReader reader(bytes);
    for (const FileDataField& field : fileDataFields()) {
        if (field.isText())
            std::memcpy(record.carNumber.data(), reader.take(field.size()).data(), record.carNumber.size());
        else if (field.size() == sizeof(std::uint16_t))
            field.setNumber(record, reader.littleEndian<std::uint16_t>());
        else if (field.lowest() < 0)
            field.setNumber(record, reader.littleEndian<std::int32_t>());
        else
            field.setNumber(record, reader.littleEndian<std::uint32_t>());
    }
    return record;
}

} // namespace marvo
