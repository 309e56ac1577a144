// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/ClipIndex.h"
#include "film/VirtualFilm.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace marvo {

/// Builds a film clip by clip, in the order of time.
class VirtualFilmBuilder
{
public:
    /// startMs: where the film begins on the drive's time line.
    explicit VirtualFilmBuilder(std::int64_t startMs);

    /// What makes an index fit for a film at all: a video stream with a rate and pictures.
    static bool isPlayable(const ClipIndex& index);
    /// The length of such a clip's pictures in whole milliseconds, cut; 0 when it is not playable.
    static std::int64_t lengthMs(const ClipIndex& index);
    /// Whether a clip can go on in this film: a player changes neither size nor codec nor sound within one.
    bool fits(const ClipIndex& index) const;
    /// startMs on the drive's time line, not before the end of the clip before. The index must be playable
    /// and fit.
    void append(std::string path, const ClipIndex& index, std::int64_t startMs);
    /// What stands behind the last picture.
    enum class Tail {
        Repeated, ///< silence and that picture again: it can be shown at rest, and somebody has to end the
                  ///< film
        None      ///< nothing: the film ends by itself
    };
    /// Null when nothing was appended. The builder is used up.
    std::shared_ptr<const VirtualFilm> finish(Tail tail = Tail::Repeated);

private:
    friend class VirtualFilm;
    struct Timed
    {
        std::int64_t filmMs;
        VirtualFilm::Entry entry;
        bool mayBegin; ///< the film can be entered here
    };
    void put(const Timed& timed);
    std::vector<Timed> picturesOf(const ClipIndex& index, const VirtualFilm::Clip& clip);
    std::vector<Timed> soundOf(const ClipIndex& index, const VirtualFilm::Clip& clip);
    void addSilence(std::vector<Timed>& pieces, std::int64_t fromMs, std::int64_t toMs) const;
    void repeatAtEnd();
    void placeClusters();

    std::shared_ptr<VirtualFilm> m_film;
    std::int64_t m_soundEndMs = 0; ///< film time
};

} // namespace marvo
