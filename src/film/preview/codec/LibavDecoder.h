// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/preview/PictureDecoder.h"

#include <QObject>

namespace marvo {

/// Decodes pictures by libavcodec.
class LibavDecoder : public QObject, public PictureDecoder
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID MARVO_PICTURE_DECODER)
    Q_INTERFACES(marvo::PictureDecoder)
public:
    QImage decodeLast(const CodedPictures& coded, QSize within, const std::stop_token& stop) const override;
};

} // namespace marvo
