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

/// A file that is written whole or not at all. Until commit() has succeeded, the path leads to the old file;
/// after it, to the new one. A power cut or a card that is pulled out does not change that.
///
/// The content goes to a temporary file beside the target; commit() syncs it and renames it over the target.
/// If the folder takes no new file or refuses the rename, but the target itself is writable, commit() writes
/// into the target. If that fails midway, the old content is put back as far as possible. A link stays; the
/// file it points to is replaced. An existing target keeps its permissions; a write-protected one is refused.
/// A device or pipe is written to directly, at commit().
///
/// A process that is asked to end removes its temporary (see cleanUpOnTermination()). After any other end,
/// such as a power cut, the temporary stays until the next file is written into the folder.
///
/// Any thread, one at a time. Errors are the system's own (std::generic_category).
class AtomicFile
{
public:
    AtomicFile() = default;
    ~AtomicFile() { discard(); }
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// What happens to a file, or anything else, that is already at the path. Keep fails with file_exists,
    /// also when the file appears while content is being added. A link counts as a file, whatever it points
    /// to.
    enum class Existing { Replace, Keep };

    /// Begins new content for the file at the path; unfinished content is discarded.
    std::error_code open(const std::string& path, Existing existing = Existing::Replace);
    /// Adds a piece. After an error nothing more is added, and commit() gives the same error.
    std::error_code write(std::string_view bytes);
    /// Replaces bytes that were added before, such as a size that is known only at the end; errors as
    /// write().
    std::error_code overwrite(std::int64_t offset, std::string_view bytes);
    /// Puts the new content in place. After an error the old file is unchanged and the new content is gone.
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
