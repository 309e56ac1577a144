// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/player/FilmSession.h"

#include "playback/VlcSession.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace marvo {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int startTimeoutMs = 15'000;
/// For so long after the first pause libVLC may never show what it is sent to.
constexpr int settleMs = 100;
/// libVLC pauses sooner than this, and says so.
constexpr int pauseMs = 150;
/// libVLC shows the picture of a seek within some 100 ms; now and then it forgets to, and is asked again.
constexpr int seekRetryMs = 200;
/// Once libVLC has read enough it decodes from the key picture on, which a busy machine takes its time for.
constexpr int decodingMs = 500;
constexpr int mostSeekTries = 4;
constexpr int wakeUpMs = 60;
constexpr int mostConfirmations = 5;
/// A picture that comes so long after libVLC has read enough is the one sought, even if it looks like the one
/// before.
constexpr auto samePictureDelay = 30ms;
/// libVLC gives up a film a little before its end, or there.
constexpr double endToleranceMs = 1500;

/// Tells of the first fault of a film's reader.
class FaultReporter : public ByteSource
{
public:
    FaultReporter(std::shared_ptr<FilmReader> reader, std::function<void(const FilmFault&)> report)
        : m_reader(std::move(reader)), m_report(std::move(report))
    {}
    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override
    {
        const std::size_t count = m_reader->readAt(offset, into);
        if (m_reader->fault() && !std::exchange(m_hasReported, true))
            m_report(*m_reader->fault());
        return count;
    }

private:
    std::shared_ptr<FilmReader> m_reader;
    std::function<void(const FilmFault&)> m_report;
    bool m_hasReported = false;
};

} // namespace

FilmSession::FilmSession(std::shared_ptr<const VirtualFilm> film, std::int64_t filmMs, double speed,
                         Sound sound, DetachedWorkers& workers, QObject* parent)
    : QObject(parent),
      m_film(std::move(film)),
      m_reader(std::make_shared<FilmReader>(m_film, speed)),
      m_workers(workers),
      m_link(std::make_shared<ObjectLink<FilmSession>>(this)),
      m_speed(speed),
      m_targetMs(m_film->pictureAt(filmMs))
{
    m_waiting.setSingleShot(true);
    connect(&m_waiting, &QTimer::timeout, this, &FilmSession::waitedEnough);
    waitFor(Step::Created, startTimeoutMs);
    QByteArrayList options = {":demux=mkv", ":play-and-pause", ":clock-jitter=0",
                              ":start-time=" +
                                  QByteArray::number(static_cast<double>(m_targetMs) / 1000 / speed, 'f', 3)};
    if (sound == Sound::None)
        options += ":no-audio";
    m_workers.start([link = m_link, reader = m_reader, options, size = m_film->sizeBytes(),
                     matrix = usualColourMatrix(m_film->pictureLines(), m_film->isMotionJpeg())] {
        std::shared_ptr<VlcSession> session;
        auto source = std::make_shared<FaultReporter>(reader, [link](const FilmFault& fault) {
            link->post([fault](FilmSession& self) { self.breakOff(fault); });
        });
        const auto report = [link](const VlcEvent& event) {
            link->post([event](FilmSession& self) { self.handle(event); });
        };
        if (auto instance = VlcInstance::shared())
            session = VlcSession::create(std::move(instance), VlcBytes{std::move(source), size}, options,
                                         matrix, report);
        link->post([session = std::move(session)](FilmSession& self) { self.adopt(session); });
    });
}

FilmSession::~FilmSession()
{
    m_link->sever();
    m_reader->abandon();
    m_workers.start([session = std::move(m_session)] {});
}

void FilmSession::adopt(std::shared_ptr<VlcSession> session)
{
    m_session = std::move(session);
    if (!m_session || m_state == State::Broken)
        return breakOff({});
    waitFor(Step::FirstFrame, startTimeoutMs);
    m_session->setTellsPicturesApart();
    m_session->setVolume(0, true);
    m_session->play();
}

void FilmSession::waitFor(Step step, int atMostMs)
{
    m_step = step;
    m_waiting.start(atMostMs);
}

void FilmSession::waitedEnough()
{
    if (m_step == Step::Settled || m_step == Step::Paused)
        return seek();
    if (m_step == Step::Kicked) {
        m_session->setPaused(true);
        return waitFor(Step::Settled, settleMs);
    }
    if (m_step == Step::Picture && m_seekTries == 1)
        return seek();
    if (m_step == Step::Picture && m_seekTries < mostSeekTries) {
        // Now and then it hears nothing more until it has played.
        m_session->setVolume(0, true);
        m_session->setPaused(false);
        return waitFor(Step::Kicked, wakeUpMs);
    }
    if (m_step == Step::Picture)
        return setShown(); // of what cannot be shown the picture before stays
    breakOff({});
}

// At rest

void FilmSession::show(std::int64_t filmMs)
{
    const std::int64_t targetMs = m_film->pictureAt(filmMs);
    const bool wasThere = isShown() && targetMs == m_targetMs;
    m_targetMs = targetMs;
    if (m_state == State::Broken || (m_state == State::Resting && m_step < Step::Picture))
        return; // it is on its way
    if (wasThere) {
        m_link->post([](FilmSession& self) {
            if (self.isShown())
                Q_EMIT self.resting();
        });
        return;
    }
    if (m_isDead)
        return breakOff({});
    setFactor(1);
    m_seekTries = 0;
    m_confirmed.reset();
    if (std::exchange(m_state, State::Resting) == State::Running) {
        m_session->setPaused(true);
        waitFor(Step::Paused, pauseMs);
        return;
    }
    seek();
}

void FilmSession::seek()
{
    ++m_seekTries;
    m_fingerprintBefore = m_session->lastDisplay().fingerprint;
    m_bufferedAt.reset();
    m_seekAt = Clock::now();
    m_session->setTimeMs(static_cast<std::int64_t>(static_cast<double>(m_targetMs) / m_speed));
    waitFor(Step::Picture, seekRetryMs * m_seekTries);
}

void FilmSession::confirm()
{
    if (!isShown() || m_isDead)
        return;
    m_confirmations = 0;
    m_confirmed = m_fingerprint;
    seek();
}

/// False when the picture has to be asked for once more.
bool FilmSession::isConfirmed()
{
    if (!m_confirmed || *m_confirmed == m_fingerprint || ++m_confirmations == mostConfirmations) {
        m_confirmed.reset();
        return true;
    }
    m_confirmed = m_fingerprint;
    return false;
}

void FilmSession::setShown()
{
    m_waiting.stop();
    m_seekTries = 0;
    m_hasBeenShown = true;
    if (m_isHeldNew)
        Q_EMIT pictureCame();
    if (!isConfirmed())
        return seek();
    m_step = Step::Shown;
    if (isShown())
        Q_EMIT resting();
}

// Running

void FilmSession::run()
{
    if (!isShown())
        return;
    m_state = State::Running;
    m_picturesShown = 0;
    applyVolume();
    m_clock.start(m_targetMs, m_speed, Clock::now());
    m_session->setPaused(false);
}

void FilmSession::setFactor(double factor)
{
    if (m_state != State::Running || std::exchange(m_factor, factor) == factor)
        return;
    m_session->setRate(static_cast<float>(factor));
    m_clock.setRate(m_speed * factor, Clock::now());
}

void FilmSession::setVolume(int percent, bool isMuted)
{
    m_volume = percent;
    m_isMuted = isMuted;
    if (m_state == State::Running)
        applyVolume();
}

void FilmSession::applyVolume() { m_session->setVolume(m_volume, m_isMuted); }

void FilmSession::tick()
{
    if (m_state == State::Running && filmMs() >= static_cast<double>(m_film->lengthMs()))
        end();
}

void FilmSession::end()
{
    m_session->setPaused(true);
    setFactor(1);
    m_state = State::Ended;
    m_targetMs = m_film->pictureAt(m_film->lengthMs());
}

double FilmSession::filmMs() const
{
    return m_state == State::Running ? m_clock.filmMsAt(Clock::now()) : static_cast<double>(m_targetMs);
}

std::int64_t FilmSession::pictureMs() const
{
    if (m_state != State::Running)
        return m_targetMs;
    const double shownMs = m_clock.filmMsAt(m_session->lastDisplay().at);
    const VirtualFilm::Clip& clip = m_film->clips()[m_film->clipAt(static_cast<std::int64_t>(shownMs))];
    const double half = 500.0 * clip.scale / clip.rate;
    return std::max(m_film->pictureAt(static_cast<std::int64_t>(shownMs + half)), m_targetMs);
}

VideoFrame FilmSession::exchange(VideoFrame shown)
{
    if (std::exchange(m_isHeldNew, false))
        std::swap(shown, m_held);
    return shown;
}

// What libVLC reports

void FilmSession::handle(const VlcEvent& event)
{
    if (!m_session || m_state == State::Broken)
        return;
    switch (event.kind) {
    case VlcEvent::Kind::Frame:
        return handleFrame();
    case VlcEvent::Kind::Buffered:
        return handleBuffered(event.at);
    case VlcEvent::Kind::TimeChanged:
        m_session->dropSoundIfFailed();
        if (m_state == State::Running)
            m_clock.report(static_cast<double>(event.valueMs) * m_speed, event.at);
        return;
    case VlcEvent::Kind::AudioDevice:
        if (m_state == State::Running)
            applyVolume();
        return;
    case VlcEvent::Kind::EndReached:
    case VlcEvent::Kind::Error:
        m_isDead = true;
        if (m_state == State::Running &&
            filmMs() > static_cast<double>(m_film->lengthMs()) - endToleranceMs * m_speed)
            return end();
        return m_state == State::Ended ? void() : breakOff({});
    case VlcEvent::Kind::Paused:
        if (m_state == State::Resting && m_step == Step::Paused)
            seek();
        return;
    case VlcEvent::Kind::Playing:
    case VlcEvent::Kind::LengthChanged:
        return;
    }
}

/// What was shown before is not the picture sought, unless it is still there some time later.
void FilmSession::handleBuffered(FilmClock::Moment at)
{
    if (m_step != Step::Picture || at < m_seekAt || m_bufferedAt)
        return;
    m_bufferedAt = at;
    m_waiting.start(decodingMs * m_seekTries);
    if (const VlcDisplay display = m_session->lastDisplay(); display.at < at)
        m_fingerprintBefore = display.fingerprint;
}

void FilmSession::handleFrame()
{
    const VlcDisplay display = m_session->lastDisplay();
    m_held = m_session->frames().exchange(std::move(m_held));
    const bool isOther = std::exchange(m_fingerprint, display.fingerprint) != display.fingerprint;
    m_isHeldNew = m_isHeldNew || isOther;
    if (m_state == State::Running) {
        ++m_picturesShown;
        Q_EMIT pictureCame();
        return;
    }
    if (m_step == Step::FirstFrame) {
        m_session->setPaused(true);
        waitFor(Step::Settled, settleMs);
    } else if (m_step == Step::Picture && m_bufferedAt && display.at > *m_bufferedAt &&
               (display.fingerprint != m_fingerprintBefore ||
                display.at > *m_bufferedAt + samePictureDelay)) {
        setShown();
    } else if (m_hasBeenShown && isOther && m_seekTries < 2) {
        Q_EMIT pictureCame();
    }
}

void FilmSession::breakOff(const std::optional<FilmFault>& fault)
{
    if (m_state == State::Broken)
        return;
    m_state = State::Broken;
    m_waiting.stop();
    m_reader->abandon();
    Q_EMIT broke(fault);
}

} // namespace marvo
