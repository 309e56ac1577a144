// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

namespace marvo::cli {

namespace {

ExitCode run(const Arguments&);

} // namespace

const Command listCommand{"list", "", "", run};

namespace {

ExitCode run(const Arguments&) { return failed(listCommand, "is not there yet"); }

} // namespace

} // namespace marvo::cli
