// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/DialectReading.h"

namespace marvo {

void DialectReading::take(std::string_view sentence)
{
    m_accepted += m_parser.parse(sentence) ? 1 : 0;
    appendSnapshot(m_snapshots, m_parser.m_Current());
}

} // namespace marvo
