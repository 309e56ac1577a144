// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/OutputFile.h"

#include <utility>

namespace marvo::demo {

namespace {

std::string_view asText(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

OutputFile::OutputFile(std::string path) : m_path(std::move(path)) { m_error = m_file.open(m_path); }

void OutputFile::write(std::span<const std::uint8_t> bytes) { write(asText(bytes)); }

void OutputFile::write(std::string_view text)
{
    m_error = m_file.write(text);
    m_size += static_cast<std::int64_t>(text.size());
}

void OutputFile::overwrite(std::int64_t offset, std::span<const std::uint8_t> bytes)
{
    m_error = m_file.overwrite(offset, asText(bytes));
}

std::optional<std::string> OutputFile::commit()
{
    const std::error_code error = m_file.commit();
    if (!error)
        return std::nullopt;
    return writeError(m_path, error);
}

std::string writeError(const std::string& path, const std::error_code& error)
{
    return "cannot write '" + path + "': " + error.message();
}

} // namespace marvo::demo
