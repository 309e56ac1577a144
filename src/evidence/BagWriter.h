// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "evidence/BagManifest.h"
#include "support/Descriptor.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace marvo {

class ByteSource;
class WorkControl;

/// Writes a BagIt folder (RFC 8493, SHA-256) that is there whole or not at all: it grows as a hidden folder
/// beside its place, each file is synced and read back, and commit() renames it.
///
/// Names in it are of the letters A to Z and a to z, digits, ".", "_" and "-", in folders of such names;
/// others are refused (invalid_argument). The first error is kept: all that follows gives the same one.
class BagWriter
{
public:
    explicit BagWriter(WorkControl& control) : m_control(control) {}
    /// What was not committed goes.
    ~BagWriter() { discard(); }

    /// The folder must not exist (file_exists), the one above it must.
    std::error_code open(const std::string& folder);
    /// Adds "data/PATH" with all bytes of a source, which must have just so many (io_error).
    std::error_code add(std::string_view path, ByteSource& source, std::uint64_t size);
    std::error_code add(std::string_view path, std::string_view content);
    /// The lists and declarations, then the rename. The lines of "bag-info.txt" are labels with their texts,
    /// to which Payload-Oxum is added.
    std::error_code commit(const std::vector<std::pair<std::string, std::string>>& information);
    void discard();

    /// After commit(): what tells whether somebody packed anew.
    const Sha256Sum& fingerprint() const { return m_fingerprint; }

private:
    std::error_code addFile(const std::string& path, ByteSource& source, std::uint64_t size,
                            BagManifest& list);
    std::error_code addTagFile(const std::string& name, std::string_view content);
    std::error_code keep(const std::error_code& error);

    WorkControl& m_control;
    Descriptor m_parent;
    Descriptor m_folder;
    std::string m_name;      ///< of the folder
    std::string m_temporary; ///< its name until then
    BagManifest m_payload;
    BagManifest m_tags;
    std::uint64_t m_payloadBytes = 0;
    std::error_code m_error = std::make_error_code(std::errc::bad_file_descriptor);
    Sha256Sum m_fingerprint{};
};

/// True for a path that every file system and every tool takes.
bool isPackagePath(std::string_view path);

} // namespace marvo
