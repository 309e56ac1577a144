// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"
#include "demo/LittleEndian.h"

#include <memory>

namespace marvo::demo {

/// Makes motion-JPEG frames: baseline JPEG (ITU-T T.81) with colour at half resolution and the standard
/// Huffman tables. The same picture gives the same bytes.
class JpegEncoder
{
public:
    /// Quality from 1 to 100 as libjpeg counts it.
    explicit JpegEncoder(int quality);
    ~JpegEncoder();

    /// The frame, always an even number of bytes; it stays valid until the next call. Empty when there is no
    /// memory for it.
    const Bytes& encode(const Canvas& picture);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace marvo::demo
