// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/Termination.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

struct stat;

namespace marvo {

/// A file that is written whole or not at all: until commit() has succeeded whoever opens the path sees the
/// old file, and after it the new one, also when the machine loses power or the card is pulled out in
/// between.
///
/// The pieces go to a temporary file beside the target, which commit() syncs and renames over it. Where the
/// folder takes no new file, or will not have this one replaced, but the target itself can be written,
/// commit() writes into the target; if that fails midway the old content is put back as well as can be. A
/// link stays, what it points to is replaced. A target that exists keeps its permissions, one that is
/// write-protected is refused. A device or pipe is written to as it is, at commit().
///
/// A process that is asked to end takes its temporary with it (see cleanUpOnTermination()). One that is ended
/// otherwise, by a power cut say, leaves it behind; the next file that is written into the folder removes it.
///
/// Any thread, one at a time. Errors are the system's own (std::generic_category).
class AtomicFile
{
public:
    AtomicFile() = default;
    ~AtomicFile() { discard(); }
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// What becomes of a file, or anything else, that is at the path already. Keep fails with file_exists,
    /// also when it appears only while the pieces are being added; a link counts as a file, whatever it
    /// points to.
    enum class Existing { Replace, Keep };

    /// Begins a new content for the file at the path; what was begun before is discarded.
    std::error_code open(const std::string& path, Existing existing = Existing::Replace);
    /// Adds a piece. After an error nothing more is added, and commit() gives the same error.
    std::error_code write(std::string_view bytes);
    /// Replaces bytes that were added before, such as a size that is known only at the end; errors as
    /// write().
    std::error_code overwrite(std::int64_t offset, std::string_view bytes);
    /// Puts the new content in place. With an error the old file stands and the new content is gone.
    std::error_code commit();
    /// Leaves the file as it is and removes the temporary.
    void discard();

private:
    std::error_code stage(const std::string& path);
    std::error_code renameInPlace();
    std::error_code stageBeside(const struct ::stat* target);
    bool stageAs(const std::string& name, unsigned int permissions);
    void removeTemporary();
    std::error_code putInPlace();
    std::error_code writeIntoTarget();

    std::string m_name;          ///< of the target in its folder
    std::string m_temporaryName; ///< empty while the content is staged in memory
    TemporaryNote m_note;        ///< of the temporary
    int m_folder = -1;           ///< of the target, and of the temporary
    int m_staged = -1;           ///< the new content so far
    bool m_targetIsRegular = true;
    Existing m_existing = Existing::Replace;
    std::error_code m_error = std::make_error_code(std::errc::bad_file_descriptor);
};

/// Writes one file whole or not at all, as AtomicFile does.
std::error_code writeFileAtomically(const std::string& path, std::string_view bytes);

} // namespace marvo
