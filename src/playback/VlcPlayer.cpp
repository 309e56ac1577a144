// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/VlcPlayer.h"

#include "film/ClipIndexReading.h"
#include "film/FilmLength.h"
#include "film/FilmReader.h"
#include "film/VirtualFilmBuilder.h"
#include "media/AviHeader.h"
#include "playback/VideoView.h"
#include "playback/VlcSession.h"
#include "support/FileSource.h"
#include "support/PacedSource.h"
#include "texts/Localisation.h"
#include "workers/ObjectLink.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <string_view>
#include <utility>

namespace marvo {

namespace {

constexpr int startTimeoutMs = 15'000;
constexpr int clockTickMs = 80;
/// Seeks closer together than this, as from a slider being dragged, become one: each costs libVLC about 100
/// ms.
constexpr int seekGatheringMs = 60;
/// In pause libVLC shows the picture of a seek within this time.
constexpr int seekCheckMs = 250;
/// The same target again within this time is the same seek.
constexpr int seekRepeatMs = 300;
/// libVLC reads ahead by so much, or by some pictures where these last longer: it shows none in pause before.
constexpr int usualCachingMs = 150;
constexpr int longestCachingMs = 1500;
constexpr double cachedPictures = 4.5;
/// In pause libVLC shows a picture once it has read so much more after it.
constexpr int furtherReadMs = 150;
/// After the end of the file a first picture may still be on its way through the decoder.
constexpr int lateFirstFrameMs = 500;
/// So many time reports, four a second, without a picture: the sound plays and the picture cannot be decoded.
constexpr int reportsBeforePictureFault = 12;
/// An end this much before the film's is looked into.
constexpr std::int64_t earlyEndMs = 2000;
/// A file that has not answered by then counts as lost.
constexpr int longestLookMs = 1500;
constexpr std::chrono::seconds shutdownTimeout{2};

const char* faultKey(AviFault fault)
{
    switch (fault) {
    case AviFault::Missing:
        return "play.error_missing";
    case AviFault::NoAccess:
        return "play.error_no_access";
    case AviFault::NotAFile:
        return "play.error_not_a_file";
    case AviFault::Empty:
        return "play.error_empty";
    case AviFault::CannotRead:
        return "play.error_cannot_read";
    case AviFault::NotAvi:
        return "play.error_not_avi";
    case AviFault::NoVideo:
        break;
    }
    return "play.error_no_video";
}

bool isMotionJpeg(const AviHeader& header)
{
    const std::string_view codec(header.videoCodec.data(), header.videoCodec.size());
    return codec == "MJPG" || codec == "mjpg";
}

/// A film as one that libVLC is told of byte by byte, with the times and key pictures that it really has. For
/// one whose index is missing or tells of others: libVLC would believe the header, and seek into grey.
std::optional<VlcBytes> mended(const std::string& path, const ClipIndex& index)
{
    if (!VirtualFilmBuilder::isPlayable(index))
        return std::nullopt;
    VirtualFilmBuilder builder(0);
    builder.append(path, index, 0);
    auto film = builder.finish(VirtualFilmBuilder::Tail::None);
    const std::uint64_t size = film->sizeBytes();
    return VlcBytes{std::make_shared<FilmReader>(std::move(film)), size};
}

} // namespace

namespace {

int cachingFor(const FilmLength& length)
{
    return std::clamp(static_cast<int>(std::min(length.pictureMs, 1000.0) * cachedPictures), usualCachingMs,
                      longestCachingMs);
}

ClipIndex readIndex(FileSource& file, std::stop_token stop)
{
    StoppableSource source(file, std::move(stop));
    return readClipIndex(source, file.size());
}

/// Whether the file is there and its medium gives bytes around a share of it.
bool canBeRead(const std::string& path, double share)
{
    FileSource file(path);
    if (!file.isOpen() || file.size() == 0)
        return false;
    file.dropFromCache();
    std::array<std::byte, 4096> bytes{};
    return std::ranges::all_of(std::array{0.0, share}, [&](double place) {
        return file.readAt(static_cast<std::uint64_t>(place * static_cast<double>(file.size() - 1)), bytes) >
               0;
    });
}

} // namespace

struct VlcPlayer::Prepared
{
    std::shared_ptr<VlcSession> session;
    std::optional<AviHeader> header;
    FilmLength length;
    const char* faultKey = nullptr;
    int readAheadMs = 0;

    static Prepared make(const std::string& path, VlcSession::Report report, std::stop_token stop)
    {
        FileSource file(path);
        const auto read = readAviHeader(file);
        if (const AviFault* fault = std::get_if<AviFault>(&read))
            return {nullptr, {}, {}, marvo::faultKey(*fault), 0};
        const AviHeader& header = std::get<AviHeader>(read);
        auto instance = VlcInstance::shared();
        if (!instance)
            return {nullptr, {}, {}, "play.error_engine", 0};
        const ClipIndex index = readIndex(file, std::move(stop));
        const FilmLength length = filmLength(index);
        const bool agrees =
            header.hasIndex && header.totalFrames == length.pictures && index.picturesTold == length.pictures;
        auto film = agrees ? std::nullopt : mended(path, index);
        const auto matrix =
            usualColourMatrix(static_cast<int>(std::min(header.height, 0xFFFFU)), isMotionJpeg(header));
        const int cachingMs = cachingFor(length);
        QByteArrayList options = {":play-and-pause", ":clock-jitter=0",
                                  ":file-caching=" + QByteArray::number(cachingMs)};
        options += film ? QByteArrayList{":demux=mkv"} : QByteArrayList{":demux=avi", ":avi-index=3"};
        std::variant<Descriptor, VlcBytes> source = file.duplicate();
        if (film)
            source = std::move(*film);
        std::shared_ptr<VlcSession> session =
            VlcSession::create(std::move(instance), std::move(source), options, matrix, std::move(report));
        if (!session)
            return {nullptr, {}, {}, "play.error_engine", 0};
        return {std::move(session), header, length, nullptr, cachingMs + furtherReadMs};
    }
};

VlcPlayer::VlcPlayer(VideoView* view, QObject* parent)
    : MediaPlayer(parent), m_view(view), m_link(std::make_shared<ObjectLink<VlcPlayer>>(this))
{
    m_startTimer.setSingleShot(true);
    m_startTimer.setInterval(startTimeoutMs);
    connect(&m_startTimer, &QTimer::timeout, this, [this] { fail("play.error_no_answer"); });

    m_clockTimer.setInterval(clockTickMs);
    connect(&m_clockTimer, &QTimer::timeout, this, [this, last = std::int64_t{-1}]() mutable {
        if (std::exchange(last, timeMs()) != last) // while the card keeps the picture waiting, time stands
            Q_EMIT timeChanged();
    });

    m_seekTimer.setSingleShot(true);
    m_seekTimer.setInterval(seekGatheringMs);
    connect(&m_seekTimer, &QTimer::timeout, this, &VlcPlayer::sendSeek);

    m_lookTimer.setSingleShot(true);
    m_lookTimer.setInterval(longestLookMs);
    connect(&m_lookTimer, &QTimer::timeout, this, &VlcPlayer::lost);

    m_seekCheckTimer.setSingleShot(true);
    m_seekCheckTimer.setInterval(seekCheckMs);
    connect(&m_seekCheckTimer, &QTimer::timeout, this, &VlcPlayer::checkSeekInPause);
}

VlcPlayer::~VlcPlayer()
{
    m_link->sever();
    retire();
    // A card that does not answer is left waiting; everything else has ended before the program does.
    m_workers.waitForAll(shutdownTimeout);
}

void VlcPlayer::setMedia(const std::string& path)
{
    retire();
    m_path = path;
    m_clock.reset();
    setState(State::Idle);
    if (hasMedia())
        prepare();
}

void VlcPlayer::prepare()
{
    m_isPreparing = true;
    m_preparing = std::stop_source();
    m_workers.start(
        [link = m_link, generation = m_generation, path = m_path, stop = m_preparing.get_token()] {
            Prepared prepared = Prepared::make(
                path,
                [link, generation](const VlcEvent& event) {
                    link->post([generation, event](VlcPlayer& player) { player.handle(generation, event); });
                },
                stop);
            link->post([generation, prepared = std::move(prepared)](VlcPlayer& player) mutable {
                player.adopt(generation, std::move(prepared));
            });
        });
}

void VlcPlayer::adopt(std::uint64_t generation, Prepared prepared)
{
    if (generation != m_generation) {
        m_workers.start([session = std::move(prepared.session)] {});
        return;
    }
    m_isPreparing = false;
    m_session = std::move(prepared.session);
    m_preparationFault = prepared.faultKey;
    m_readAheadMs = prepared.readAheadMs;
    m_clock.reset(prepared.header);
    if (prepared.length.ms > 0)
        m_clock.setCountedLengthMs(prepared.length.ms, prepared.length.pictureMs);
    if (m_unsentSeekMs)
        m_clock.seek(*m_unsentSeekMs);
    if (m_state == State::Opening)
        startSession();
}

void VlcPlayer::startSession()
{
    if (m_preparationFault != nullptr) {
        fail(m_preparationFault);
        return;
    }
    m_isStarted = true;
    m_session->setRate(m_clock.rate());
    applyVolume();
    if (!m_session->play())
        fail("play.error_unreadable");
}

/// Lets go of the session, if there is one, and of all that belongs to it.
void VlcPlayer::retire()
{
    ++m_generation;
    m_preparing.request_stop();
    m_startTimer.stop();
    m_clockTimer.stop();
    m_seekTimer.stop();
    m_seekCheckTimer.stop();
    m_lookTimer.stop();
    if (m_session)
        m_workers.start([session = std::exchange(m_session, nullptr)] {}); // stops where its last owner goes
    m_preparationFault = nullptr;
    m_unsentSeekMs.reset();
    m_lastSeekMs.reset();
    m_timeReportsBeforeFrame = 0;
    m_isPreparing = m_isStarted = m_isEnded = m_atEnd = false;
    m_unreportedPauses = 0;
    m_intent = Intent::Pause;
    if (m_view)
        m_view->setFrame({});
}

void VlcPlayer::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    if (state == State::Playing)
        m_clockTimer.start();
    else
        m_clockTimer.stop();
    Q_EMIT stateChanged();
}

void VlcPlayer::fail(const char* reasonKey)
{
    retire();
    setState(State::Failed);
    Q_EMIT failed(localised(reasonKey));
}

// Transport

void VlcPlayer::play()
{
    if (!hasMedia())
        return;
    const Intent before = m_intent;
    if (m_state == State::Opening || m_state == State::Playing) {
        m_intent = Intent::Play;
        if (m_state == State::Playing && before != Intent::Play)
            m_session->setPaused(false);
        return;
    }
    if (m_state == State::Paused && !m_isEnded) {
        if (m_atEnd)
            setTimeMs(0);
        m_intent = Intent::Play;
        m_seekTimer.stop();
        sendSeek(); // libVLC gives up the file when it is told to play on from its end
        m_session->setPaused(false);
        if (before == Intent::ShowEnd) { // libVLC plays already and will not say so again
            m_clock.run();
            setState(State::Playing);
        }
        return;
    }
    // A first start, or a new one of a file that libVLC has let go of.
    if (m_state == State::Paused) {
        const std::int64_t startMs = m_atEnd ? 0 : timeMs();
        retire();
        m_clock.seek(startMs);
        m_unsentSeekMs = startMs;
    }
    m_intent = Intent::Play;
    m_startTimer.start();
    const bool isPrepared = m_session || m_preparationFault != nullptr;
    const std::uint64_t generation = m_generation;
    setState(State::Opening);
    if (generation != m_generation)
        return; // a listener has changed its mind
    if (!isPrepared) {
        if (!m_isPreparing)
            prepare();
    } else if (m_preparationFault != nullptr) {
        m_link->post([generation](VlcPlayer& player) { // play() has returned before it fails
            if (generation == player.m_generation)
                player.startSession();
        });
    } else {
        startSession();
    }
}

void VlcPlayer::pause()
{
    if (m_intent != Intent::Play)
        return;
    m_intent = Intent::Pause;
    if (m_state == State::Playing || m_state == State::Paused) // or about to play on
        sendPause();
}

void VlcPlayer::sendPause()
{
    ++m_unreportedPauses;
    m_session->setPaused(true);
}

void VlcPlayer::stop()
{
    retire();
    m_clock.reset();
    setState(hasMedia() ? State::Stopped : State::Idle);
}

// Time

double VlcPlayer::position() const { return m_atEnd ? 1.0 : m_clock.position(); }

std::int64_t VlcPlayer::timeMs() const { return m_atEnd && lengthMs() > 0 ? lengthMs() : m_clock.timeMs(); }

void VlcPlayer::setPosition(double positionFraction)
{
    if (lengthMs() > 0 && !std::isnan(positionFraction))
        setTimeMs(std::llround(std::clamp(positionFraction, 0.0, 1.0) * static_cast<double>(lengthMs())));
}

void VlcPlayer::setTimeMs(std::int64_t timeMs)
{
    if (!hasMedia() || m_state == State::Failed)
        return;
    const std::int64_t targetMs = std::max<std::int64_t>(timeMs, 0);
    m_clock.seek(targetMs);
    m_atEnd = m_state == State::Paused && lengthMs() > 0 && targetMs >= lengthMs();
    if (m_intent == Intent::ShowEnd && !m_atEnd) {
        m_intent = Intent::Pause;
        sendPause();
    }
    m_unsentSeekMs = targetMs;
    if (!m_seekTimer.isActive())
        sendSeek();
    notifyTimeSoon();
}

void VlcPlayer::jumpForward(int seconds) { setTimeMs(timeMs() + std::int64_t{seconds} * 1000); }

void VlcPlayer::sendSeek()
{
    // A seek before libVLC plays would be lost; it is sent later.
    if (!m_unsentSeekMs || m_isEnded || (m_state != State::Playing && m_state != State::Paused))
        return;
    std::int64_t targetMs = *std::exchange(m_unsentSeekMs, std::nullopt);
    if (lengthMs() > 0) {
        const bool isShownInPause = m_intent == Intent::Pause && !m_atEnd;
        const std::int64_t lastMs = isShownInPause
                                        ? std::min(lengthMs() - m_readAheadMs, m_clock.lastPictureMs())
                                        : m_clock.lastPictureMs();
        targetMs = std::min(targetMs, std::max<std::int64_t>(lastMs, 0));
    }
    if (m_lastSeekMs == targetMs && m_sinceLastSeek.elapsed() < seekRepeatMs)
        return;
    m_lastSeekMs = targetMs;
    m_sinceLastSeek.start();
    m_isSeekShown = false;
    m_session->setTimeMs(targetMs);
    if (m_atEnd && m_intent == Intent::Pause) {
        m_intent = Intent::ShowEnd;
        m_session->setPaused(false);
    }
    m_seekTimer.start();
    if (m_state == State::Paused)
        m_seekCheckTimer.start();
}

/// Sometimes libVLC shows nothing after a seek soon after a pause. A second seek helps.
void VlcPlayer::checkSeekInPause()
{
    const bool wasClose = m_sincePause.elapsed() - m_sinceLastSeek.elapsed() < seekCheckMs;
    if (m_state == State::Paused && m_intent == Intent::Pause && !m_atEnd && !m_isEnded && m_lastSeekMs &&
        (wasClose || !m_isSeekShown))
        m_session->setTimeMs(*m_lastSeekMs);
}

/// Reports a time that was set while libVLC rests, which libVLC does not. Runs after the caller has
/// returned.
void VlcPlayer::notifyTimeSoon()
{
    if (std::exchange(m_isTimeNotificationPosted, true))
        return;
    m_link->post([](VlcPlayer& player) {
        player.m_isTimeNotificationPosted = false;
        if (player.m_state == State::Playing || player.m_state == State::Paused)
            Q_EMIT player.timeChanged();
    });
}

void VlcPlayer::setRate(float rate)
{
    m_clock.setRate(rate);
    if (m_isStarted)
        m_session->setRate(rate);
}

// Sound and picture

void VlcPlayer::setVolume(int percent)
{
    m_volume = std::clamp(percent, 0, 200);
    applyVolume();
}

void VlcPlayer::setMuted(bool muted)
{
    m_isMuted = muted;
    applyVolume();
}

void VlcPlayer::applyVolume()
{
    if (m_isStarted)
        m_session->setVolume(m_volume, m_isMuted);
}

int VlcPlayer::audioTrackCount() const { return m_isStarted ? m_session->audioTrackCount() : 0; }

bool VlcPlayer::hasVideoOut() const { return m_state == State::Playing || m_state == State::Paused; }

QSize VlcPlayer::videoSize() const { return hasVideoOut() ? m_session->frames().size() : QSize(0, 0); }

QImage VlcPlayer::currentFrame() const { return m_view ? m_view->image() : QImage(); }

// What libVLC reports

void VlcPlayer::handle(std::uint64_t generation, const VlcEvent& event)
{
    if (generation != m_generation || !m_session)
        return;
    switch (event.kind) {
    case VlcEvent::Kind::Frame:
        return handleFrame();
    case VlcEvent::Kind::Playing:
        return handlePlaying();
    case VlcEvent::Kind::Paused:
        return handlePaused();
    case VlcEvent::Kind::EndReached:
        m_isEnded = true;
        return handleEnd();
    case VlcEvent::Kind::Error:
        if (m_state == State::Opening)
            return fail("play.error_unreadable");
        m_isEnded = true;
        return handleEnd();
    case VlcEvent::Kind::TimeChanged:
        m_session->dropSoundIfFailed();
        if (m_state == State::Opening) {
            if (++m_timeReportsBeforeFrame >= reportsBeforePictureFault)
                fail("play.error_unreadable");
        } else if (!m_atEnd) {
            m_clock.report(event.valueMs);
        }
        return;
    case VlcEvent::Kind::LengthChanged:
        return m_clock.setFoundLengthMs(event.valueMs);
    case VlcEvent::Kind::Buffered:
        return;
    case VlcEvent::Kind::AudioDevice:
        return applyVolume(); // a device that has just been opened starts with a volume of its own
    }
}

void VlcPlayer::handleFrame()
{
    // The shown picture is returned before the next is fetched, so none is ever copied.
    if (m_view)
        m_view->setFrame(m_session->frames().exchange(m_view->takeFrame()));
    else
        m_session->frames().exchange({});
    m_isSeekShown = true;
    if (m_state != State::Opening)
        return;
    m_startTimer.stop();
    m_clock.run();
    const std::uint64_t generation = m_generation;
    setState(State::Playing);
    if (generation != m_generation)
        return;
    applyVolume();
    Q_EMIT timeChanged();
    if (generation != m_generation)
        return;
    if (m_isEnded || m_session->isPaused())
        handleEnd(); // the only pictures came after the end of the file
    else if (m_intent == Intent::Pause)
        sendPause();
    else
        sendSeek();
}

void VlcPlayer::handlePlaying()
{
    if (m_state == State::Opening || m_intent == Intent::ShowEnd)
        return; // for the user it plays once there is a picture, and not at all while it shows the last one
    if (m_intent == Intent::Pause) {
        sendPause(); // the pause came too early for libVLC to take notice
        return;
    }
    m_atEnd = false;
    m_clock.run();
    setState(State::Playing);
}

void VlcPlayer::handlePaused()
{
    const bool wasAsked = m_unreportedPauses > 0;
    m_unreportedPauses = std::max(m_unreportedPauses - 1, 0);
    if (m_intent == Intent::ShowEnd)
        m_intent = Intent::Pause;
    else if (m_intent == Intent::Pause && m_state != State::Opening)
        rest();
    else if (wasAsked)
        m_session->setPaused(false); // libVLC took no notice of the play() that came before it had paused;
                                     // where it had ignored the pause instead, this ends the file
    else
        handleEnd(); // nobody asked for this pause
}

void VlcPlayer::handleEnd()
{
    if (m_state == State::Opening) {
        QTimer::singleShot(lateFirstFrameMs, this, [this, generation = m_generation] {
            if (generation == m_generation && m_state == State::Opening)
                fail("play.error_unreadable");
        });
        return;
    }
    if (m_state == State::Playing && lengthMs() - m_clock.timeMs() > earlyEndMs)
        return lookWhyItEnded();
    endHere();
}

/// A film that ends well before its time may have lost its card.
void VlcPlayer::lookWhyItEnded()
{
    m_clock.halt();
    if (m_lookTimer.isActive())
        return;
    m_lookTimer.start();
    m_workers.start([link = m_link, generation = m_generation, path = m_path, share = m_clock.position()] {
        link->post([generation, isThere = canBeRead(path, share)](VlcPlayer& player) {
            if (generation != player.m_generation || !player.m_lookTimer.isActive())
                return;
            player.m_lookTimer.stop();
            if (isThere)
                player.endHere();
            else
                Q_EMIT player.lost();
        });
    });
}

void VlcPlayer::endHere()
{
    m_atEnd = true;
    rest();
}

void VlcPlayer::rest()
{
    m_clock.halt();
    m_sincePause.start();
    m_intent = Intent::Pause;
    setState(State::Paused);
}

} // namespace marvo
