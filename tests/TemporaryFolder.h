// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace marvo::test {

/// A folder of the test's own, gone with all its content at the end. Names are bytes.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "marvo-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_path = std::filesystem::canonical(pattern).string();
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return m_path; }
    std::string path(std::string_view name) const { return m_path + '/' + std::string(name); }

    /// Makes a folder, and those above it.
    std::string makeFolder(std::string_view name) const
    {
        std::filesystem::create_directories(path(name));
        return path(name);
    }

    /// Writes a file, and makes the folders above it.
    std::string write(std::string_view name, std::string_view bytes = {}) const
    {
        const std::string file = path(name);
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

    std::string read(std::string_view name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

private:
    std::string m_path;
};

} // namespace marvo::test
