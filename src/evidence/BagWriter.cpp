// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "evidence/BagWriter.h"

#include "archive/Archive.h"
#include "archive/FileTree.h"
#include "archive/MediumReading.h"
#include "archive/WorkControl.h"
#include "media/MediaName.h"
#include "support/ByteSource.h"
#include "support/LargeBuffer.h"
#include "support/System.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace marvo {

namespace {

bool isPackageName(std::string_view name)
{
    constexpr std::string_view characters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";
    return !name.empty() && name.size() <= 200 && name.front() != '.' && name.front() != '-' &&
           name.find_first_not_of(characters) == std::string_view::npos;
}

} // namespace

bool isPackagePath(std::string_view path)
{
    while (true) {
        const std::size_t slash = path.find('/');
        if (!isPackageName(path.substr(0, slash)))
            return false;
        if (slash == std::string_view::npos)
            return true;
        path.remove_prefix(slash + 1);
    }
}

std::error_code BagWriter::keep(const std::error_code& error)
{
    if (!m_error)
        m_error = error;
    return m_error;
}

std::error_code BagWriter::open(const std::string& folder)
{
    discard();
    m_payload = {};
    m_tags = {};
    m_payloadBytes = 0;
    m_error = {};
    const std::string whole = absoluteFilePath(folder);
    const std::size_t slash = whole.rfind('/');
    if (!Sha256::isAvailable() || slash == std::string::npos || slash + 1 == whole.size())
        return keep(std::make_error_code(std::errc::invalid_argument));
    m_name = whole.substr(slash + 1);
    m_parent = openFolder(whole.substr(0, slash + 1));
    if (!m_parent)
        return keep(systemError());
    if (::faccessat(*m_parent, m_name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
        return keep(std::make_error_code(std::errc::file_exists));
    m_temporary = unpredictableName() + ".part";
    if (::mkdirat(*m_parent, m_temporary.c_str(), 0777) != 0) {
        m_temporary.clear();
        return keep(systemError());
    }
    m_folder = openFolderWithin(*m_parent, m_temporary);
    return m_folder ? std::error_code() : keep(systemError());
}

std::error_code BagWriter::add(std::string_view path, ByteSource& source, std::uint64_t size)
{
    const std::string inData = "data/" + std::string(path);
    if (!m_error && (!isPackagePath(path) || m_payload.files.contains(inData)))
        return keep(std::make_error_code(std::errc::invalid_argument));
    if (const std::error_code error = addFile(inData, source, size, m_payload))
        return error;
    m_payloadBytes += size;
    return {};
}

std::error_code BagWriter::add(std::string_view path, std::string_view content)
{
    MemorySource source(std::as_bytes(std::span(content)));
    return add(path, source, content.size());
}

std::error_code BagWriter::addTagFile(const std::string& name, std::string_view content)
{
    MemorySource source(std::as_bytes(std::span(content)));
    return addFile(name, source, content.size(), m_tags);
}

std::error_code BagWriter::addFile(const std::string& path, ByteSource& source, std::uint64_t size,
                                   BagManifest& list)
{
    constexpr std::size_t pieceSize = 1024 * 1024;
    if (m_error)
        return m_error;
    for (std::size_t slash = path.find('/'); slash != std::string::npos; slash = path.find('/', slash + 1)) {
        if (::mkdirat(*m_folder, path.substr(0, slash).c_str(), 0777) != 0 && errno != EEXIST)
            return keep(systemError());
    }
    const Descriptor file(
        ::openat(*m_folder, path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (!file)
        return keep(systemError());
    const LargeBuffer buffer = makeLargeBuffer(pieceSize);
    if (!buffer)
        return keep(std::make_error_code(std::errc::not_enough_memory));
    Sha256 sum;
    for (std::uint64_t done = 0; done < size;) {
        const std::span<std::byte> piece(
            buffer.get(), static_cast<std::size_t>(std::min<std::uint64_t>(pieceSize, size - done)));
        if (source.readAt(done, piece) != piece.size())
            return keep(std::make_error_code(std::errc::io_error));
        sum.add(piece);
        if (const std::error_code error =
                writeFully(*file, {reinterpret_cast<const char*>(piece.data()), piece.size()}))
            return keep(error);
        done += piece.size();
        if (!m_control.mayGoOn())
            return keep(std::make_error_code(std::errc::operation_canceled));
    }
    if (::fsync(*file) != 0)
        return keep(systemError());
    const Sha256Sum written = sum.finish();
    const Descriptor again = openFileWithin(*m_folder, path);
    const MediumReading reading = again ? readMedium(*again) : MediumReading();
    if (!reading.isWhole || reading.bytes != size || reading.sum != written)
        return keep(std::make_error_code(std::errc::io_error));
    list.files.emplace(path, written);
    return {};
}

std::error_code BagWriter::commit(const std::vector<std::pair<std::string, std::string>>& information)
{
    std::string lines;
    for (const auto& [label, text] : information) {
        std::string line = text;
        std::ranges::replace_if(
            line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
        lines += label + ": " + line + "\n";
    }
    lines += "Payload-Oxum: " + std::to_string(m_payloadBytes) + "." +
             std::to_string(m_payload.files.size()) + "\n";
    if (!m_error && m_payload.files.empty())
        return keep(std::make_error_code(std::errc::invalid_argument));
    addTagFile("bagit.txt", "BagIt-Version: 1.0\nTag-File-Character-Encoding: UTF-8\n");
    addTagFile("bag-info.txt", lines);
    addTagFile("manifest-sha256.txt", m_payload.text());
    BagManifest last;
    const std::string tagList = m_tags.text();
    MemorySource source(std::as_bytes(std::span(tagList)));
    addFile("tagmanifest-sha256.txt", source, tagList.size(), last);
    if (m_error)
        return m_error;
    m_fingerprint = last.files.begin()->second;
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator
             entry("/proc/self/fd/" + std::to_string(*m_folder) + "/", error),
         end;
         !error && entry != end; entry.increment(error)) {
        if (!entry->is_directory())
            continue;
        const Descriptor folder = openFolder(entry->path().string());
        if (!folder || ::fsync(*folder) != 0)
            return keep(systemError());
    }
    if (error || (error = syncFolder(*m_folder)))
        return keep(error);
    if (::renameat2(*m_parent, m_temporary.c_str(), *m_parent, m_name.c_str(), RENAME_NOREPLACE) != 0) {
        if (errno != EINVAL && errno != ENOSYS)
            return keep(systemError());
        // The file system cannot look and rename in one step; a folder that is not empty is never replaced.
        if (::faccessat(*m_parent, m_name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
            return keep(std::make_error_code(std::errc::file_exists));
        if (::renameat(*m_parent, m_temporary.c_str(), *m_parent, m_name.c_str()) != 0)
            return keep(systemError());
    }
    m_temporary.clear();
    return keep(syncFolder(*m_parent));
}

void BagWriter::discard()
{
    if (!m_temporary.empty() && m_parent) {
        std::error_code ignored;
        std::filesystem::remove_all("/proc/self/fd/" + std::to_string(*m_parent) + "/" + m_temporary,
                                    ignored);
    }
    m_temporary.clear();
    m_folder.reset();
    m_parent.reset();
    if (!m_error)
        m_error = std::make_error_code(std::errc::bad_file_descriptor);
}

} // namespace marvo
