// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "logs/CellText.h"
#include "logs/LogDescription.h"
#include "recording/Positions.h"
#include "support/LargeBuffer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace marvo {

/// The records of one log file. It is immutable, so a table and an export can use it on different threads.
class DrivingLog
{
public:
    /// Why there is no log.
    enum class Fault {
        None,
        CannotOpen,
        NoLog,     ///< shorter than a log's header
        NoMemory,  ///< more than this computer can hold now
        CannotRead ///< the medium fails, or the file was cut while it was being read
    };
    struct Reading
    {
        std::shared_ptr<const DrivingLog> log; ///< null with a fault
        Fault fault = Fault::None;
        std::string detail; ///< of the fault, one line in English as the system words it; may be empty

        static Reading outOfMemory() { return {.log = {}, .fault = Fault::NoMemory, .detail = {}}; }
    };

    /// Reads a whole file. The number of records is the smaller of the header's count and the complete
    /// records in the file. Blocks while the medium is read.
    static Reading read(const std::string& path, const LogDescription& description);

    const LogDescription& description() const { return *m_description; }
    const std::string& path() const { return m_path; }
    std::uint64_t recordCount() const { return m_recordCount; }
    /// What the header says.
    std::uint32_t promisedCount() const { return m_promisedCount; }
    bool endsEarly() const { return m_recordCount < m_promisedCount; }

    /// The recordSize bytes of a record that exists.
    const std::byte* record(std::uint64_t row) const
    {
        return m_records.get() + row * m_description->recordSize;
    }

    using CellBuffer = std::array<char, maxCellLength>;
    /// The text of a cell that exists, put into the buffer.
    std::string_view cellText(std::size_t column, std::uint64_t row, CellBuffer& buffer) const;

    /// Where a record was logged, as its cells show it, in decimal degrees; a log knows no hemispheres.
    DecimalPosition position(std::uint64_t row) const;

    /// The whole route in the order of the records, for a map: without records that have no position or
    /// repeat the one before, and thinned, the wider the longer the log, where it has too many.
    std::vector<DecimalPosition> way() const;

private:
    DrivingLog(std::string path, const LogDescription& description);

    std::string m_path;
    const LogDescription* m_description;
    LargeBuffer m_records;
    std::uint64_t m_recordCount = 0;
    std::uint32_t m_promisedCount = 0;
};

/// True where a position can be shown: a log writes 0 where it has none.
inline bool isKnown(const DecimalPosition& position)
{
    return position.latitude != 0 && position.longitude != 0;
}

} // namespace marvo
