// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/FilmReader.h"

#include <algorithm>
#include <utility>

namespace marvo {

FileSource& FilmReader::fileOf(std::size_t clip)
{
    if (!m_open[0].file || m_open[0].number != clip)
        std::swap(m_open[0], m_open[1]);
    if (!m_open[0].file || m_open[0].number != clip)
        m_open[0] = {clip, std::make_unique<FileSource>(m_film->clips()[clip].path)};
    return *m_open[0].file;
}

std::size_t FilmReader::readAt(std::uint64_t offset, std::span<std::byte> into)
{
    m_fault.reset();
    std::size_t done = 0;
    while (done < into.size() && !m_isAbandoned) {
        if (offset + done < m_head.size()) {
            const auto from = std::as_bytes(std::span(m_head)).subspan(offset + done);
            const std::size_t count = std::min(from.size(), into.size() - done);
            std::ranges::copy(from.first(count), into.begin() + static_cast<std::ptrdiff_t>(done));
            done += count;
            continue;
        }
        const VirtualFilm::Piece piece = m_film->pieceAt(offset + done, into.subspan(done));
        if (piece.length == 0)
            break;
        if (piece.clip) {
            FileSource& file = fileOf(*piece.clip);
            const std::size_t count = file.readAt(piece.fileOffset, into.subspan(done, piece.length));
            if (count < piece.length) {
                m_fault = FilmFault{*piece.clip, file.errorNumber()};
                m_open[0].file.reset(); // it may be there again at the next read
                return done + count;
            }
        }
        done += piece.length;
    }
    return done;
}

} // namespace marvo
