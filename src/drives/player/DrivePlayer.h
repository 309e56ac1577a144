// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "drives/player/CameraPlayer.h"
#include "drives/player/StepKeeper.h"
#include "film/DriveFilm.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <vector>

namespace marvo {

/// Plays a drive: the films of its two cameras in step, as one.
///
/// Both cameras rest on exactly known pictures or run from there together; a seek, a pause and a step bring
/// both to rest. Times are drive time in milliseconds (see DriveFilm). All belongs to the main thread and
/// returns at once; what could wait for a card runs on workers.
class DrivePlayer : public QObject
{
    Q_OBJECT
public:
    enum class State {
        Closed,
        Opening, ///< until both cameras show their first picture
        Paused,  ///< or about to: see isBusy()
        Playing,
        Failed ///< nothing of the drive can be played, or not any more
    };
    Q_ENUM(State)
    static constexpr double slowestRate = 0.25;
    static constexpr double fastestRate = 16; ///< above 4 in key pictures, without sound

    explicit DrivePlayer(QObject* parent = nullptr);
    ~DrivePlayer() override;

    /// Views are not owned and may go first; null plays without showing.
    void setView(Camera camera, VideoView* view);

    /// What follows rests on the picture of startMs, or plays from there.
    enum class Start { Resting, Playing };
    void open(std::vector<DriveClip> clips, std::int64_t startMs, Start start);
    void close();
    /// Empty until opened() has been told; a new one each time.
    const DriveFilm& drive() const { return m_drive; }
    State state() const { return m_state; }

    /// At the end of the drive it starts again from the beginning.
    void play();
    void pause();
    /// The last of several counts.
    void seek(std::int64_t driveMs);
    enum class Direction { Back, Forward };
    /// Rests on the next picture of the front, where it has one, else of the rear. Nothing while isBusy(), so
    /// that the steps of a key that is held down do not queue.
    void step(Direction direction);
    /// A picture that was asked for is not yet shown.
    bool isBusy() const { return m_isSettling; }

    double rate() const { return m_rate; }
    /// Any from slowestRate to fastestRate; others become the nearest.
    void setRate(double rate);
    void setVolume(int percent, bool isMuted);
    /// By how much the rear is shown later (or, negative, earlier) than the recordings tell.
    void setRearShiftMs(std::int64_t shiftMs);
    std::int64_t rearShiftMs() const { return m_rearShiftMs; }
    /// The same by single pictures of the rear.
    void shiftRear(int pictures);

    /// At rest the beginning of the picture shown.
    std::int64_t timeMs() const;
    std::int64_t lengthMs() const { return m_drive.lengthMs; }
    /// Rests on the last picture.
    bool isAtEnd() const;
    /// The camera's recording that is shown now, as a number in drive().recordings; none where it has none.
    std::optional<std::size_t> recordingNow(Camera camera) const;
    bool hasPicture(Camera camera) const { return m_cameras[camera].hasPicture(); }
    /// Whether the machine is too weak for both films, and the rear shows fewer pictures.
    bool isRearThinned() const { return m_isRearThinned; }

Q_SIGNALS:
    void stateChanged();
    void opened();
    /// Some dozen times a second while it plays, and after each seek and step.
    void timeChanged();
    /// What a camera shows is another recording than before, or nothing.
    void recordingChanged(marvo::Camera camera);
    void gapPassed(const marvo::DriveFilm::Gap& gap);
    /// A recording cannot be read any more and is passed over; the drive has been laid out anew without it.
    void recordingFailed(const std::string& path);

private:
    using Cameras = std::array<CameraPlayer, cameraCount>;

    void readDrive();
    void adopt(DriveFilm drive);
    void giveFilms();
    void rest(std::int64_t driveMs);
    void checkSettled();
    void run();
    void tick();
    void tellTime();
    void handleBroken(const std::string& path);
    void rememberPlace(const std::string& failedPath);
    std::int64_t placeRemembered() const;
    void tellGaps(std::int64_t fromMs, std::int64_t toMs);
    void thinRearWhereSlow();
    double cameraMs(Camera camera, double driveMs) const;
    std::optional<double> runningMs() const;
    void setState(State state);

    DetachedWorkers m_workers;
    std::shared_ptr<ObjectLink<DrivePlayer>> m_link;
    std::stop_source m_reading;
    Cameras m_cameras;
    std::vector<DriveClip> m_clips;
    std::set<std::string> m_failedPaths;
    /// Where to go on when the drive has been laid out anew: in a recording, or with the first of a clip.
    struct Place
    {
        std::string path;
        std::int64_t offsetMs = 0;
        std::size_t clip = 0;
    };
    std::optional<Place> m_place;
    DriveFilm m_drive;
    State m_state = State::Closed;

    bool m_isWantedPlaying = false;
    bool m_isSettling = false;
    bool m_isRearThinned = false;
    std::optional<std::int64_t> m_pendingMs; ///< asked for while another picture was on its way
    std::int64_t m_timeMs = 0;
    double m_rate = 1;
    std::int64_t m_rearShiftMs = 0;
    double m_filmRate = 1;  ///< of the films that the cameras have
    double m_wholeRate = 1; ///< of those last among them that have every picture
    std::array<std::optional<std::size_t>, cameraCount> m_recordings;

    StepKeeper m_stepKeeper;
    QElapsedTimer m_sinceTick;
    QElapsedTimer m_sinceRun;
    QTimer m_ticks;
    QTimer m_confirmation; ///< of the pictures, some time after a pause
    QTimer m_timeReports;
};

} // namespace marvo
