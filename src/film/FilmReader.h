// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/VirtualFilm.h"
#include "support/ByteSource.h"
#include "support/FileSource.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>

namespace marvo {

/// Why a film breaks off: one of its clips has changed or gone since the table was made.
struct FilmFault
{
    std::size_t clip = 0;
    int errorNumber = 0; ///< the system's (errno); 0: the file has become shorter
};

/// Reads the bytes of a virtual film, one caller at a time. At most two clips are open at once, so that a
/// card is not kept busy; a file that is gone is noticed at the next read.
class FilmReader : public ByteSource
{
public:
    explicit FilmReader(std::shared_ptr<const VirtualFilm> film, double speed = 1)
        : m_film(std::move(film)), m_head(m_film->head(speed))
    {}

    /// Fewer bytes than asked for: the end of the film, or a clip that cannot be read there (see fault()).
    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override;
    /// What ended the last read, if it was no end of the film.
    std::optional<FilmFault> fault() const { return m_fault; }
    /// From any thread: reads from now on give nothing, so that a film that is not wanted any more ends soon.
    void abandon() { m_isAbandoned = true; }

private:
    struct OpenClip
    {
        std::size_t number = 0;
        std::unique_ptr<FileSource> file;
    };
    FileSource& fileOf(std::size_t clip);

    std::shared_ptr<const VirtualFilm> m_film;
    std::vector<std::uint8_t> m_head;
    std::array<OpenClip, 2> m_open; ///< the one read last, the one before it
    std::optional<FilmFault> m_fault;
    std::atomic<bool> m_isAbandoned = false;
};

} // namespace marvo
