// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printing.h"

namespace marvo {

/// Printing by CUPS. Besides its queues ("office", "office/draft") a printer may be named by its address
/// ("ipp://host:631/ipp/print"), which needs no service on this machine. Errors are CUPS's ipp_status_t.
class CupsPrinting : public Printing
{
public:
    Found printerNamed(const std::string& name) override;
};

} // namespace marvo
