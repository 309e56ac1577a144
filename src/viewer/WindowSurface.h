// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace marvo {

/// Makes a window, before it is first shown, one that can take a web view later on.
///
/// A web view is drawn by OpenGL, and a window that was made for anything else is taken off the screen and
/// made anew when the first one appears in it. Where OpenGL does not work, or only by the processor, the
/// window stays as it is: there every picture of a recording would cost more than that one moment.
void prepareWindowForWebView(QWidget& window);

} // namespace marvo
