// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "drives/player/FilmSession.h"

#include <QObject>
#include <QPointer>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace marvo {

class VideoView;

/// Plays one camera's films of a drive one after the other into a view, each begun by a player that stands
/// ready. Where the camera has no film the view is empty.
///
/// Times are drive time in milliseconds. Whoever owns it tells it the drive's time while it runs.
class CameraPlayer : public QObject
{
    Q_OBJECT
public:
    using Films = std::vector<std::shared_ptr<const VirtualFilm>>;

    explicit CameraPlayer(DetachedWorkers& workers, QObject* parent = nullptr);
    ~CameraPlayer() override;

    /// The view is not owned and may go first.
    void setView(VideoView* view);
    /// In the order of time, to be played at a speed. What was playing is left; put aside, it is there at
    /// once when the same films are given again.
    enum class Former { PutAside, Ended };
    void setFilms(Films films, double speed, FilmSession::Sound sound, Former former = Former::Ended);

    /// Rests on the picture shown at a time, or on nothing where there is no film; settled() tells when it is
    /// there.
    void show(std::int64_t driveMs);
    bool isSettled() const;
    /// Makes sure of the picture shown, as FilmSession does.
    void confirm();
    /// From the picture shown on.
    void run();
    /// Runs a little faster or slower, by a factor near 1.
    void setFactor(double factor);
    void setVolume(int percent, bool isMuted);
    /// To be called some dozens of times a second while the drive runs.
    void tick(double driveMs);
    /// Leaves the place where it runs, and joins the drive a little later at its time.
    void rejoin(double driveMs);

    bool hasPicture() const { return m_current != nullptr; }
    bool isRunning() const;
    /// Whether driveMs() is known to the millisecond.
    bool isTimeSure() const { return isRunning() && m_current->isTimeSure(); }
    double driveMs() const;
    /// The beginning of the picture on the screen.
    std::int64_t pictureMs() const;
    /// The next or the last picture that begins after or before a time; none at the ends.
    std::optional<std::int64_t> pictureAfter(std::int64_t driveMs) const;
    std::optional<std::int64_t> pictureBefore(std::int64_t driveMs) const;
    int picturesShown() const { return m_current ? m_current->picturesShown() : 0; }

Q_SIGNALS:
    void settled();
    /// One of its films cannot be gone on with: the path of the recording at fault.
    void broke(const std::string& path, int errorNumber);

private:
    std::unique_ptr<FilmSession> open(std::shared_ptr<const VirtualFilm> film, std::int64_t driveMs);
    void begin(std::unique_ptr<FilmSession> session);
    void listenForFaults(FilmSession& session);
    void showPicture();
    void clearView();
    void prepareNext(double driveMs);

    DetachedWorkers& m_workers;
    QPointer<VideoView> m_view;
    Films m_films;
    FilmSession::Sound m_sound = FilmSession::Sound::None;
    std::unique_ptr<FilmSession> m_current;
    struct Aside
    {
        Films films;
        double speed = 1;
        std::unique_ptr<FilmSession> session;
    };
    Aside m_aside;
    std::unique_ptr<FilmSession> m_next;    ///< stands ready at its beginning
    std::optional<std::int64_t> m_joinAtMs; ///< when the current one, which rests, is to run
    double m_speed = 1;
    int m_volume = 0;
    bool m_isMuted = false;
};

} // namespace marvo
