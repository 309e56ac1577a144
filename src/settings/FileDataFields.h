// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileData.h"

#include <string_view>
#include <variant>

namespace marvo {

/// One field of the settings record: where it stands in the file, of which type it is, what the base record
/// holds, and how to get at it.
struct FileDataField
{
    using Member = std::variant<std::uint16_t _FILEDATA::*, std::uint32_t _FILEDATA::*,
                                std::int32_t _FILEDATA::*, std::array<char, 8> _FILEDATA::*>;

    std::string_view name;
    std::size_t offset; ///< in the file, bytes
    Member member;
    std::int64_t defaultValue = 0;

    bool isText() const { return std::holds_alternative<std::array<char, 8> _FILEDATA::*>(member); }
    std::size_t size() const;

    /// Of a field that is a number.
    std::int64_t number(const _FILEDATA& record) const;
    std::int64_t lowest() const;
    std::int64_t highest() const;
    /// False, and nothing changed, when the field cannot hold the number.
    bool setNumber(_FILEDATA& record, std::int64_t number) const;

    /// Of a field that is text: the bytes before the first zero byte.
    std::string_view text(const _FILEDATA& record) const;
    /// False, and nothing changed, when the text does not fit or is not UTF-8. A zero byte would end it early
    /// and does not fit either.
    bool setText(_FILEDATA& record, std::string_view text) const;
};

/// Every field, in the order of the record.
std::span<const FileDataField> fileDataFields();
/// The field of a name; null when there is none.
const FileDataField* findFileDataField(std::string_view name);

} // namespace marvo
