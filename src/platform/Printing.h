// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace marvo {

/// Named print settings, such as "copies" = "2", under the names that IPP has for them (RFC 8011).
class PrintSettings
{
public:
    /// Adds a setting, or changes it.
    void setValue(const std::string& name, const std::string& value);
    const std::vector<std::pair<std::string, std::string>>& values() const { return m_values; }

private:
    std::vector<std::pair<std::string, std::string>> m_values;
};

/// A printer that has been reached. It belongs to the thread that asked for it.
class Printer
{
public:
    virtual ~Printer() = default;

    /// The document types that it takes, such as "image/jpeg"; none when it does not answer.
    virtual std::vector<std::string> mimeTypes() = 0;
    /// Sends a file of one of those types to the printer and returns when the printer has it. `file` is a
    /// descriptor at the beginning of the document and stays the caller's. 0, or the print system's number
    /// of an error; then the job is taken back.
    virtual int printWithFile(int file, const std::string& title, const std::string& mimeType,
                              const PrintSettings& settings) = 0;
};

/// The print system. Every operation may wait for the network, for a minute at the worst, and may be called
/// on any thread.
class Printing
{
public:
    struct Found
    {
        std::unique_ptr<Printer> printer; ///< null when there is none of that name, or it cannot be reached
        int error = 0;                    ///< then the print system's number of the error, never 0
    };

    virtual ~Printing() = default;
    virtual Found printerNamed(const std::string& name) = 0;
};

} // namespace marvo
