// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVGpsData.h"

#include <string_view>

namespace marvo {

class NmeaFields;

/// Reads the camera's own two sentences, "$GA" (position) and "$GC" (course and date), into the same state as
/// MRVNMEASentenceParser reads the standard ones and with the same operations. It knows no lists of
/// satellites, no PDOP and no VDOP. No recording is known to need it: the extractor keeps the standard
/// parser.
class MRVMARVONMEASentenceParser
{
public:
    /// Takes one sentence from its "$" to its checksum, without line end. False for what is refused: text
    /// that is not UTF-8, not exactly one "*", any other sentence. The checksum itself is not compared.
    /// Missing fields count as empty.
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
