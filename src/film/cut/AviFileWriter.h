// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/ClipIndex.h"
#include "film/cut/AviLayout.h"
#include "support/AtomicFile.h"

#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

class ByteSource;

/// Writes an AVI film whose pictures and sound are copied from another one, byte for byte ("AVI RIFF File
/// Reference", Microsoft). The order of calls is that of the file: begin(), chunks, finish(). The film is
/// there whole or not at all, and never in the place of a file that is there already.
///
/// The first error is kept, and all that follows gives the same one: file_exists, file_too_large (a film's
/// sizes have 32 bits), io_error where a source ends too early, operation_canceled after a requested stop.
class AviFileWriter
{
public:
    explicit AviFileWriter(std::stop_token stop) : m_stop(std::move(stop)) {}

    /// The header list is that of the film that is copied; its counts are replaced at the end.
    std::error_code begin(const std::string& path, const AviLayout& layout, const ClipIndex& index);
    /// Bytes of the source as they are: whole chunks before the movie, or behind its index.
    std::error_code copy(ByteSource& source, const FileRange& range);
    /// A part of a chunk's body; of a picture the whole.
    std::error_code addChunk(ByteSource& source, const ClipChunk& chunk, const FileRange& part);
    /// Ends the movie and writes its index. After it copy() and put() add what stands behind.
    std::error_code endMovie();
    std::error_code put(std::string_view bytes);
    std::error_code commit();

    /// Of the video stream so far.
    std::uint32_t pictures() const;

private:
    std::error_code keep(const std::error_code& error);

    std::stop_token m_stop;
    AtomicFile m_file;
    std::uint64_t m_size = 0;
    std::uint64_t m_movieAt = 0; ///< of the word "movi", from which the index counts
    std::vector<std::byte> m_headerList;
    std::vector<ClipStream> m_streams;
    std::size_t m_video = 0;
    std::vector<StreamCount> m_counts;
    std::vector<std::uint64_t> m_soundBytes;
    std::string m_index;
    std::vector<std::byte> m_buffer;
    std::error_code m_error;
};

} // namespace marvo
