// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/player/DrivePlayer.h"

#include "film/ClipIndexReading.h"
#include "playback/VideoView.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace marvo {

namespace {
constexpr int tickMs = 15;
constexpr int timeReportMs = 80;
/// A picture at rest is asked for once more when nothing else has been asked for since.
constexpr int confirmationMs = 120;
/// Above this libVLC cannot decode every picture.
constexpr double fastestWholeRate = 4;
/// Key pictures closer together than this, as they are shown, are not all shown.
constexpr double keyPictureMs = 33;
/// What the front shows in this time tells whether the machine is fast enough for both.
constexpr int speedCheckMs = 3000;
constexpr double leastShareShown = 0.75; ///< of its pictures
constexpr std::chrono::seconds shutdownTimeout{2};
} // namespace

DrivePlayer::DrivePlayer(QObject* parent)
    : QObject(parent),
      m_link(std::make_shared<ObjectLink<DrivePlayer>>(this)),
      m_cameras{CameraPlayer(m_workers), CameraPlayer(m_workers)}
{
    for (CameraPlayer& camera : m_cameras) {
        // Queued: what follows may do away with the session that tells.
        connect(&camera, &CameraPlayer::settled, this, &DrivePlayer::checkSettled, Qt::QueuedConnection);
        connect(
            &camera, &CameraPlayer::broke, this, [this](const std::string& path) { handleBroken(path); },
            Qt::QueuedConnection);
    }
    m_ticks.setInterval(tickMs);
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &DrivePlayer::tick);
    m_confirmation.setSingleShot(true);
    m_confirmation.setInterval(confirmationMs);
    connect(&m_confirmation, &QTimer::timeout, this, [this] {
        for (CameraPlayer& camera : m_cameras)
            camera.confirm();
    });
    m_timeReports.setInterval(timeReportMs);
    connect(&m_timeReports, &QTimer::timeout, this, &DrivePlayer::tellTime);
}

DrivePlayer::~DrivePlayer()
{
    m_reading.request_stop();
    m_link->sever();
    for (CameraPlayer& camera : m_cameras)
        camera.setFilms({}, 1, FilmSession::Sound::None);
    // A card that does not answer is left waiting; everything else has ended before the program does.
    m_workers.waitForAll(shutdownTimeout);
}

void DrivePlayer::setView(Camera camera, VideoView* view) { m_cameras[camera].setView(view); }

void DrivePlayer::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateChanged();
}

// Opening

void DrivePlayer::open(std::vector<DriveClip> clips, std::int64_t startMs, Start start)
{
    close();
    m_clips = std::move(clips);
    m_isWantedPlaying = start == Start::Playing;
    m_timeMs = startMs;
    setState(State::Opening);
    readDrive();
}

void DrivePlayer::close()
{
    m_reading.request_stop();
    m_reading = {};
    m_ticks.stop();
    m_confirmation.stop();
    m_timeReports.stop();
    m_drive = {};
    m_clips.clear();
    m_failedPaths.clear();
    m_place.reset();
    m_pendingMs.reset();
    m_isSettling = false;
    m_isRearThinned = false;
    giveFilms();
    setState(State::Closed);
}

void DrivePlayer::readDrive()
{
    m_reading.request_stop();
    m_reading = {};
    runInBackground(
        m_workers, m_link,
        [clips = m_clips, failed = m_failedPaths, stop = m_reading.get_token()] {
            const auto read = [&failed](const std::string& path) {
                return failed.contains(path) ? ClipIndex() : readClipIndex(path);
            };
            return std::pair(layOutDrive(clips, read, stop), stop);
        },
        [](DrivePlayer& self, std::pair<DriveFilm, std::stop_token> read) {
            if (!read.second.stop_requested())
                self.adopt(std::move(read.first));
        });
}

void DrivePlayer::adopt(DriveFilm drive)
{
    m_drive = std::move(drive);
    m_recordings = {};
    giveFilms();
    if (m_drive.isEmpty())
        return setState(State::Failed);
    if (m_place)
        m_timeMs = placeRemembered();
    m_place.reset();
    Q_EMIT opened();
    rest(std::clamp<std::int64_t>(m_timeMs, 0, m_drive.lengthMs - 1));
}

/// Films of the rate that is wanted now. At rest every picture can be shown.
void DrivePlayer::giveFilms()
{
    const bool wasFast = m_filmRate > fastestWholeRate;
    const bool isFast = m_isWantedPlaying && m_rate > fastestWholeRate;
    if (!isFast && m_rate <= fastestWholeRate)
        m_wholeRate = m_rate;
    m_filmRate = isFast ? m_rate : m_wholeRate;
    for (const Camera camera : {FrontCamera, RearCamera}) {
        CameraPlayer::Films films = m_drive.films[camera];
        if (isFast || (m_isRearThinned && camera == RearCamera)) {
            for (auto& film : films)
                film = film->keyPictures(static_cast<std::int64_t>(keyPictureMs * m_filmRate));
        }
        // What is heard is the front's sound, or the rear's where there is no front at all.
        const bool isHeard = camera == FrontCamera || m_drive.films[FrontCamera].empty();
        m_cameras[camera].setFilms(std::move(films), m_filmRate,
                                   isHeard && !isFast ? FilmSession::Sound::Heard : FilmSession::Sound::None,
                                   isFast && !wasFast ? CameraPlayer::Former::PutAside
                                                      : CameraPlayer::Former::Ended);
    }
}

// Resting

double DrivePlayer::cameraMs(Camera camera, double driveMs) const
{
    return camera == RearCamera ? driveMs - static_cast<double>(m_rearShiftMs) : driveMs;
}

void DrivePlayer::rest(std::int64_t driveMs)
{
    m_confirmation.stop();
    m_ticks.stop();
    m_timeReports.stop();
    m_timeMs = driveMs;
    m_pendingMs.reset();
    m_isSettling = true;
    if (m_isWantedPlaying ? m_filmRate != m_rate : m_filmRate > fastestWholeRate)
        giveFilms();
    for (const Camera camera : {FrontCamera, RearCamera})
        m_cameras[camera].show(static_cast<std::int64_t>(cameraMs(camera, static_cast<double>(driveMs))));
}

void DrivePlayer::checkSettled()
{
    if (!m_isSettling || !m_cameras[FrontCamera].isSettled() || !m_cameras[RearCamera].isSettled())
        return;
    m_isSettling = false;
    if (m_pendingMs)
        return rest(*m_pendingMs);
    for (const Camera camera : {RearCamera, FrontCamera}) { // the front's picture is the one that counts
        if (m_cameras[camera].hasPicture())
            m_timeMs = m_cameras[camera].pictureMs() + (camera == RearCamera ? m_rearShiftMs : 0);
    }
    if (m_isWantedPlaying)
        return run();
    m_confirmation.start();
    setState(State::Paused);
    tellTime();
}

void DrivePlayer::seek(std::int64_t driveMs)
{
    if (m_drive.isEmpty())
        return;
    const std::int64_t targetMs = std::clamp<std::int64_t>(driveMs, 0, m_drive.lengthMs - 1);
    if (m_isSettling) {
        m_pendingMs = targetMs;
        return;
    }
    rest(targetMs);
}

void DrivePlayer::pause()
{
    if (!m_isWantedPlaying)
        return;
    const std::int64_t atMs = timeMs();
    m_isWantedPlaying = false;
    if (m_state == State::Playing)
        rest(atMs);
}

void DrivePlayer::step(Direction direction)
{
    if (m_isSettling || m_drive.isEmpty())
        return;
    const std::int64_t fromMs = timeMs();
    m_isWantedPlaying = false;
    if (m_filmRate > fastestWholeRate)
        giveFilms();
    std::optional<std::int64_t> target;
    for (const Camera camera : {FrontCamera, RearCamera}) {
        const auto ownMs = static_cast<std::int64_t>(cameraMs(camera, static_cast<double>(fromMs)));
        auto next = direction == Direction::Forward ? m_cameras[camera].pictureAfter(ownMs)
                                                    : m_cameras[camera].pictureBefore(ownMs);
        if (next && camera == RearCamera)
            *next += m_rearShiftMs;
        if (next && (!target || (direction == Direction::Forward ? *next < *target : *next > *target)))
            target = next;
        if (target && m_drive.filmAt(camera, ownMs))
            break;
    }
    rest(std::clamp<std::int64_t>(target.value_or(fromMs), 0, m_drive.lengthMs - 1));
}

// Running

void DrivePlayer::play()
{
    if (m_drive.isEmpty() || m_isWantedPlaying) {
        m_isWantedPlaying = m_isWantedPlaying || m_state == State::Opening;
        return;
    }
    m_isWantedPlaying = true;
    if (m_isSettling)
        return;
    rest(isAtEnd() ? 0 : m_timeMs);
}

bool DrivePlayer::isAtEnd() const
{
    return m_state == State::Paused && !m_cameras[FrontCamera].pictureAfter(m_timeMs) &&
           !m_cameras[RearCamera].pictureAfter(m_timeMs - m_rearShiftMs);
}

void DrivePlayer::run()
{
    for (CameraPlayer& camera : m_cameras)
        camera.run();
    m_stepKeeper.reset();
    m_sinceRun.start();
    m_sinceTick.start();
    m_ticks.start();
    m_timeReports.start();
    setState(State::Playing);
    tellTime();
}

/// The time of a camera that runs, as drive time; none where neither does.
std::optional<double> DrivePlayer::runningMs() const
{
    if (m_cameras[FrontCamera].isRunning())
        return m_cameras[FrontCamera].driveMs();
    if (m_cameras[RearCamera].isRunning())
        return m_cameras[RearCamera].driveMs() + static_cast<double>(m_rearShiftMs);
    return {};
}

void DrivePlayer::tick()
{
    // While no camera has a picture that moves, the drive's time goes on by itself.
    const auto elapsedMs = static_cast<double>(m_sinceTick.restart());
    const double nowMs = runningMs().value_or(static_cast<double>(m_timeMs) + elapsedMs * m_rate);
    const std::int64_t beforeMs =
        std::exchange(m_timeMs, std::max(m_timeMs, static_cast<std::int64_t>(nowMs)));
    tellGaps(beforeMs, m_timeMs);
    for (const Camera camera : {FrontCamera, RearCamera})
        m_cameras[camera].tick(cameraMs(camera, nowMs));
    if (m_timeMs >= m_drive.lengthMs && !runningMs()) {
        m_isWantedPlaying = false;
        return rest(m_drive.lengthMs - 1);
    }
    CameraPlayer& front = m_cameras[FrontCamera];
    CameraPlayer& rear = m_cameras[RearCamera];
    if (!front.isRunning() || !rear.isRunning())
        return m_stepKeeper.reset();
    const double aheadMs = (rear.driveMs() + static_cast<double>(m_rearShiftMs) - front.driveMs()) / m_rate;
    const StepKeeper::Advice advice = m_stepKeeper.advise(aheadMs, front.isTimeSure() && rear.isTimeSure(),
                                                          std::chrono::steady_clock::now());
    if (advice.kind == StepKeeper::Advice::Kind::SetFactor)
        rear.setFactor(advice.factor);
    else if (advice.kind == StepKeeper::Advice::Kind::Rejoin)
        rear.rejoin(cameraMs(RearCamera, nowMs));
    thinRearWhereSlow();
}

void DrivePlayer::tellGaps(std::int64_t fromMs, std::int64_t toMs)
{
    for (const DriveFilm::Gap& gap : m_drive.gaps) {
        if (fromMs < gap.atMs && gap.atMs <= toMs)
            Q_EMIT gapPassed(gap);
    }
}

void DrivePlayer::thinRearWhereSlow()
{
    if (m_isRearThinned || m_rate > 1 || m_sinceRun.elapsed() < speedCheckMs)
        return;
    const auto recording = recordingNow(FrontCamera);
    const auto film = recording ? m_drive.filmAt(FrontCamera, m_timeMs) : nullptr;
    if (!film)
        return;
    const VirtualFilm::Clip& clip = film->clips()[film->clipAt(film->toFilmMs(m_timeMs))];
    const double due = static_cast<double>(m_sinceRun.elapsed()) / 1000 * m_rate * clip.rate / clip.scale;
    if (m_cameras[FrontCamera].picturesShown() < due * leastShareShown) {
        m_isRearThinned = true;
        rest(m_timeMs);
    }
    m_sinceRun.start();
}

void DrivePlayer::setRate(double rate)
{
    const double wanted = std::clamp(rate, slowestRate, fastestRate);
    if (wanted == m_rate || !std::isfinite(rate))
        return;
    const std::int64_t atMs = timeMs();
    m_rate = wanted;
    if (m_state == State::Playing)
        rest(atMs);
}

void DrivePlayer::setVolume(int percent, bool isMuted)
{
    for (CameraPlayer& camera : m_cameras)
        camera.setVolume(percent, isMuted);
}

void DrivePlayer::setRearShiftMs(std::int64_t shiftMs)
{
    if (shiftMs == m_rearShiftMs)
        return;
    const std::int64_t atMs = timeMs();
    m_rearShiftMs = shiftMs;
    seek(atMs);
}

void DrivePlayer::shiftRear(int pictures)
{
    const auto film = m_drive.films[RearCamera].empty() ? nullptr : m_drive.films[RearCamera].front();
    if (!film)
        return;
    const VirtualFilm::Clip& clip = film->clips().front();
    const double pictureMs = 1000.0 * clip.scale / clip.rate;
    const double present = std::round(static_cast<double>(m_rearShiftMs) / pictureMs);
    setRearShiftMs(std::llround((present + pictures) * pictureMs));
}

// Time

std::int64_t DrivePlayer::timeMs() const
{
    if (m_pendingMs)
        return *m_pendingMs;
    if (m_state != State::Playing || m_isSettling)
        return m_timeMs;
    if (m_cameras[FrontCamera].isRunning())
        return m_cameras[FrontCamera].pictureMs();
    if (m_cameras[RearCamera].isRunning())
        return m_cameras[RearCamera].pictureMs() + m_rearShiftMs;
    return m_timeMs;
}

std::optional<std::size_t> DrivePlayer::recordingNow(Camera camera) const
{
    return m_drive.recordingAt(camera,
                               static_cast<std::int64_t>(cameraMs(camera, static_cast<double>(timeMs()))));
}

void DrivePlayer::tellTime()
{
    Q_EMIT timeChanged();
    for (const Camera camera : {FrontCamera, RearCamera}) {
        const auto recording = recordingNow(camera);
        if (std::exchange(m_recordings[camera], recording) != recording)
            Q_EMIT recordingChanged(camera);
    }
}

// Faults

void DrivePlayer::handleBroken(const std::string& path)
{
    if (m_drive.isEmpty() || !m_failedPaths.insert(path).second)
        return;
    m_ticks.stop();
    m_timeReports.stop();
    rememberPlace(path);
    Q_EMIT recordingFailed(path);
    readDrive();
}

/// The other camera goes on where it is; without one the drive goes on with the next clip.
void DrivePlayer::rememberPlace(const std::string& failedPath)
{
    const std::int64_t nowMs = timeMs();
    Place place{{}, 0, 0};
    for (const Camera camera : {FrontCamera, RearCamera}) {
        const auto& recordings = m_drive.recordings[camera];
        const auto failed = std::ranges::find(recordings, failedPath, &DriveFilm::Recording::path);
        if (failed != recordings.end())
            place.clip = failed->clip + 1;
        const auto now = recordingNow(camera);
        if (now && recordings[*now].path != failedPath && place.path.empty()) {
            place.path = recordings[*now].path;
            place.offsetMs = nowMs - recordings[*now].startMs;
        }
    }
    m_place = std::move(place);
}

std::int64_t DrivePlayer::placeRemembered() const
{
    std::optional<std::int64_t> next;
    for (const auto& recordings : m_drive.recordings) {
        for (const DriveFilm::Recording& recording : recordings) {
            if (recording.state != DriveFilm::Recording::State::InFilm)
                continue;
            if (recording.path == m_place->path)
                return recording.startMs + m_place->offsetMs;
            if (recording.clip >= m_place->clip)
                next = std::min(next.value_or(recording.startMs), recording.startMs);
        }
    }
    return next.value_or(m_drive.lengthMs - 1);
}

} // namespace marvo
