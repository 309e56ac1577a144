// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "drives/player/FilmClock.h"
#include "film/FilmReader.h"
#include "playback/VideoFrame.h"
#include "workers/DetachedWorkers.h"
#include "workers/ObjectLink.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <cstdint>
#include <memory>
#include <optional>

namespace marvo {

class VlcSession;
struct VlcEvent;

/// One film in a libVLC player of its own, which rests on a picture that is known exactly, or runs.
///
/// libVLC does not tell which picture it shows. At rest the film is therefore always sought to the beginning
/// of a picture, which libVLC then shows; it is taken for shown when another picture than before has come.
/// Times are the film's own, in milliseconds. All belongs to the main thread; what could wait for a card runs
/// on workers.
class FilmSession : public QObject
{
    Q_OBJECT
public:
    enum class State {
        Resting, ///< on the picture asked for, or about to
        Running,
        Ended, ///< the last picture has been shown for its time
        Broken ///< libVLC or the medium has given up: only a new session can go on
    };
    enum class Sound { Heard, None };

    /// Rests on the picture shown at a time as soon as it can. The film runs at `speed`, whatever it is:
    /// libVLC itself leaves pictures out, or waits, when it is told of another rate than the usual.
    FilmSession(std::shared_ptr<const VirtualFilm> film, std::int64_t filmMs, double speed, Sound sound,
                DetachedWorkers& workers, QObject* parent = nullptr);
    ~FilmSession() override;

    const VirtualFilm& film() const { return *m_film; }
    State state() const { return m_state; }

    /// Rests on the picture shown at a time; resting() tells when it is there. A newer call replaces an
    /// older.
    void show(std::int64_t filmMs);
    /// Asks libVLC for the picture that is shown again, until it gives the same one twice: the first picture
    /// after a seek may be one that was decoded before it.
    void confirm();
    bool isShown() const { return m_state == State::Resting && m_step == Step::Shown; }
    /// From the picture shown on.
    void run();
    /// Runs a little faster or slower than its speed, by a factor near 1.
    void setFactor(double factor);
    void setVolume(int percent, bool isMuted);

    /// Where it is: the picture's beginning at rest.
    double filmMs() const;
    /// The beginning of the picture that is on the screen now.
    std::int64_t pictureMs() const;
    /// Whether the time is known to the millisecond.
    bool isTimeSure() const { return m_state == State::Running && m_clock.isReported(); }
    int picturesShown() const { return m_picturesShown; } ///< since it began to run

    /// The newest picture in exchange for the one given, as FrameExchange does.
    VideoFrame exchange(VideoFrame shown);
    /// To be called some dozens of times a second while it runs: it ends by this.
    void tick();

Q_SIGNALS:
    void pictureCame();
    void resting(); ///< isShown() has become true
    /// The film cannot be read or played on. The clip that is at fault where one is known.
    void broke(const std::optional<marvo::FilmFault>& fault);

private:
    /// What is waited for at rest.
    enum class Step {
        Created,    ///< the worker's player
        FirstFrame, ///< libVLC's first picture
        Paused,     ///< libVLC's word that it has paused
        Kicked,     ///< a moment in which it plays, as it would hear nothing in pause
        Settled,    ///< some time after the first pause, in which it would not hear
        Picture,    ///< the picture sought
        Shown
    };

    void adopt(std::shared_ptr<VlcSession> session);
    void handle(const VlcEvent& event);
    void handleFrame();
    void handleBuffered(FilmClock::Moment at);
    void seek();
    void waitFor(Step step, int atMostMs);
    void waitedEnough();
    bool isConfirmed();
    void setShown();
    void end();
    void breakOff(const std::optional<FilmFault>& fault);
    void applyVolume();

    std::shared_ptr<const VirtualFilm> m_film;
    std::shared_ptr<FilmReader> m_reader;
    DetachedWorkers& m_workers;
    std::shared_ptr<ObjectLink<FilmSession>> m_link;
    std::shared_ptr<VlcSession> m_session;
    FilmClock m_clock;
    double m_speed;
    double m_factor = 1;

    State m_state = State::Resting;
    Step m_step = Step::Created;
    std::int64_t m_targetMs = 0;
    FilmClock::Moment m_seekAt{};
    std::optional<FilmClock::Moment> m_bufferedAt;
    std::uint64_t m_fingerprintBefore = 0;
    int m_seekTries = 0;
    std::optional<std::uint64_t> m_confirmed; ///< fingerprint of what was shown before it was asked for again
    int m_confirmations = 0;
    VideoFrame m_held; ///< the newest picture, until somebody fetches it
    bool m_isHeldNew = false;
    bool m_isDead = false;           ///< libVLC has let go of the film
    bool m_hasBeenShown = false;     ///< until then libVLC shows how the film begins
    std::uint64_t m_fingerprint = 0; ///< of the picture held last
    int m_picturesShown = 0;
    int m_volume = 0;
    bool m_isMuted = true;
    QTimer m_waiting; ///< for the step to come about
};

} // namespace marvo
