// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVGpsData.h"

#include <string_view>

namespace marvo {

class NmeaFields;

/// Reads the camera's own two sentences, "$GA" (position) and "$GC" (course and date). State and operations
/// are those of MRVNMEASentenceParser. The dialect has no satellite lists, no PDOP and no VDOP. No recording
/// is known to need it: the extractor uses the standard parser.
class MRVMARVONMEASentenceParser
{
public:
    /// Reads one sentence from its "$" to its checksum, without line end. Refuses (false) text that is not
    /// UTF-8 or has not exactly one "*", and any other sentence. The checksum itself is not compared. Missing
    /// fields count as empty.
    bool parse(std::string_view sentence);
    void clear() { m_current = {}; }

    const MRVGpsData& m_Current() const { return m_current; }
    void setM_Current(const MRVGpsData& state) { m_current = state; }

private:
    bool parseGA(const NmeaFields& fields);
    bool parseGC(const NmeaFields& fields);

    MRVGpsData m_current;
};

} // namespace marvo
