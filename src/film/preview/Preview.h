// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/ClipIndex.h"
#include "workers/Latest.h"

#include <QImage>
#include <QObject>
#include <QSize>

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace marvo {

/// Pictures of moments of recordings, small ones, for hovering over a time line. Of several requests the
/// newest counts.
class Preview : public QObject
{
    Q_OBJECT
public:
    explicit Preview(QObject* parent = nullptr);

    /// Asks for the picture shown `offsetMs` after a recording's beginning, no larger than `within`.
    void request(const std::string& path, std::int64_t offsetMs, QSize within);
    /// Nothing that was asked for comes any more.
    void cancel();

Q_SIGNALS:
    /// The picture, and the moment at which it begins; a null picture where there is none.
    void came(const QImage& picture, const std::string& path, std::int64_t offsetMs);

private:
    /// The indexes of the recordings asked about last, for whichever worker needs them.
    struct Indexes;
    struct Result
    {
        QImage picture;
        std::int64_t offsetMs = 0;
    };
    static Result make(Indexes& indexes, const std::string& path, std::int64_t offsetMs, QSize within,
                       const std::stop_token& stop);

    std::shared_ptr<Indexes> m_indexes;
    Latest<Result> m_latest{this};
};

} // namespace marvo
