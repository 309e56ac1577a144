// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Carries the precompiled headers that the tests share.
int main() { return 0; }
