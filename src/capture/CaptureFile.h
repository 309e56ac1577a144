// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace marvo {

/// A captured picture's file, open for reading, so that what is copied or printed is that picture also when
/// the next one has taken its name.
class CaptureFile
{
public:
    CaptureFile() = default;
    CaptureFile(std::string path, int descriptor) : m_path(std::move(path)), m_descriptor(descriptor) {}
    CaptureFile(CaptureFile&& other) noexcept
        : m_path(std::move(other.m_path)), m_descriptor(std::exchange(other.m_descriptor, -1))
    {}
    CaptureFile& operator=(CaptureFile&& other) noexcept
    {
        std::swap(m_path, other.m_path);
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~CaptureFile();

    const std::string& path() const { return m_path; }
    /// At the file's beginning for the first who reads it; -1 when there is no file at all.
    int descriptor() const { return m_descriptor; }

    /// Copies the content to a new file. What is there already stays as it is: file_exists. Nothing is left
    /// behind of a copy that failed.
    std::error_code copyTo(const std::string& target) const;

private:
    std::string m_path;
    int m_descriptor = -1;
};

/// The one place that captured pictures are written to. The folder may be shared by all users.
///
/// Each picture is a new file, readable by its owner only, that is renamed over the last one. If a link or
/// another user's file has the name, it is left alone: the pictures then go to a private folder beside it,
/// and a line in the log says so.
class CaptureStore
{
public:
    explicit CaptureStore(std::string path) : m_path(std::move(path)) {}

    /// Any thread. What cannot be written is told in the log; the file is then the last one, if any.
    CaptureFile write(std::string_view bytes);
    /// The picture that was written last, by this process or an earlier one of the same user.
    CaptureFile last();

private:
    bool isNameOurs() const;
    std::error_code usePrivateFolder();
    CaptureFile openLast() const;
    const std::string& path() const { return m_privatePath.empty() ? m_path : m_privatePath; }

    std::mutex m_mutex;
    std::string m_path;
    std::string m_privatePath; ///< empty until it was needed
};

} // namespace marvo
