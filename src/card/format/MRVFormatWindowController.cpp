// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/format/MRVFormatWindowController.h"

#include "card/CardRestoring.h"
#include "card/disks/Disks.h"
#include "card/format/FormatMessages.h"
#include "card/FormatPlan.h"
#include "controls/ElidedLabel.h"
#include "controls/MessageSheet.h"
#include "controls/PMProgressIndicator.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <future>
#include <utility>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logFormat, "marvo.format")

constexpr std::chrono::milliseconds progressTick{300};
constexpr std::chrono::seconds askAgainDelay{3}; ///< of a disk service that does not answer
constexpr double progressSeconds = 1000;         ///< after which the display, not the work, ends

/// Calls on the window's thread and returns when it has been called, or the window has gone.
template <typename Call>
void callAndWait(const LatestRun& run, Call call)
{
    auto called = std::make_shared<std::promise<void>>();
    const std::future<void> returned = called->get_future();
    // If the window goes, its dropped call breaks the promise, which also ends the wait.
    run.post([called = std::move(called), call = std::move(call)] {
        call();
        called->set_value();
    });
    returned.wait();
}

QString placeText(const TKUSBDiskEntity& entity)
{
    return QStringLiteral("%1   %2").arg(displayText(entity.deviceFilePath()),
                                         displayText(entity.mountedURL()));
}

/// The cards that may be formatted, and the one that a failed format has left behind.
std::vector<FormattableVolume> doLoadUSBVolumes(DeviceAccess* access,
                                                const std::optional<FormattableVolume>& erased)
{
    if (access == nullptr)
        return {};
    std::vector<FormattableVolume> volumes = access->formattableVolumes();
    // It cannot be mounted, but it is still the card that the user wants to see formatted.
    const bool isMissing = erased && std::ranges::none_of(volumes, [&](const FormattableVolume& volume) {
                               return volume.entity.key() == erased->entity.key();
                           });
    if (isMissing && access->identify(erased->entity.key()) == erased->identity)
        volumes.push_back(*erased);
    return volumes;
}

/// Why the volume cannot become the camera's card; empty when it can.
QString unsuitableText(const FormattableVolume& volume)
{
    const auto reason = unsuitability(volume.entity.volumeSize(), volume.sectorSize);
    if (!reason)
        return {};
    switch (*reason) {
    case Unsuitable::TooSmall:
        return localised("format.too_small");
    case Unsuitable::TooLarge:
        return localised("format.too_large");
    case Unsuitable::SectorSize:
        break;
    }
    return localised("format.sector_size").arg(volume.sectorSize);
}

} // namespace

MRVFormatWindowController::MRVFormatWindowController(Disks& disks, std::string newCameraSettings,
                                                     QWidget* parent)
    : QDialog(parent), m_disks(disks), m_newCameraSettings(std::move(newCameraSettings))
{
    setObjectName(QStringLiteral("MRVFormatWindowController"));
    setWindowTitle(localised("setting.format.title"));
    // The window behind must not be closed while the card is being written.
    setWindowModality(Qt::ApplicationModal);
    buildWindow();
    m_progressTimer.setInterval(progressTick);
    connect(&m_progressTimer, &QTimer::timeout, this, [this] { updateProgressBar(progressSeconds); });
    connect(&m_disks, &Disks::volumesChanged, this, &MRVFormatWindowController::volumesChanged);
    loadUSBVolumes();
}

MRVFormatWindowController::~MRVFormatWindowController() { m_stop.request_stop(); }

void MRVFormatWindowController::buildWindow()
{
    m_usbDiskCombo = new QComboBox(this);
    m_usbDiskCombo->setObjectName(QStringLiteral("usbDiskCombo"));
    m_usbDiskCombo->setAccessibleName(localised("setting.format.volume"));
    m_usbDiskCombo->setMinimumWidth(320);
    connect(m_usbDiskCombo, &QComboBox::activated, this, &MRVFormatWindowController::changeDisk);

    auto* form = new QFormLayout;
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(10);
    const auto label = [this](const char* name, const char* key) {
        auto* field = new QLabel(localised(key), this);
        field->setObjectName(QLatin1String(name));
        return field;
    };
    const auto value = [this](auto* field, const char* name, const char* key) {
        field->setObjectName(QLatin1String(name));
        field->setAccessibleName(localised(key));
        return field;
    };
    form->addRow(label("usbDiskLabel", "setting.format.volume"), m_usbDiskCombo);
    m_pathField = value(new ElidedLabel(this), "pathField", "setting.format.device");
    form->addRow(label("pathLabel", "setting.format.device"), m_pathField);
    m_fileSystemField =
        value(new QLabel(QStringLiteral("FAT32"), this), "fileSystemField", "setting.format.filesystem");
    form->addRow(label("fileSystemLabel", "setting.format.filesystem"), m_fileSystemField);
    m_allocationUnitField =
        value(new QLabel(this), "allocationUnitField", "setting.format.allocation_unit_size");
    form->addRow(label("allocationUnitLabel", "setting.format.allocation_unit_size"), m_allocationUnitField);

    m_hintField = new QLabel(this);
    m_hintField->setObjectName(QStringLiteral("hintField"));
    m_hintField->setWordWrap(true);
    m_hintField->hide();

    m_progressBar = new PMProgressIndicator(this);
    m_progressBar->setObjectName(QStringLiteral("progressBar"));
    m_progressMessageField = new QLabel(this);
    m_progressMessageField->setObjectName(QStringLiteral("progressMessageField"));
    m_progressDetailField = new QLabel(this);
    m_progressDetailField->setObjectName(QStringLiteral("progressDetailField"));
    m_progressDetailField->setProperty("caption", true);
    auto* progress = new QVBoxLayout;
    progress->setSpacing(6);
    progress->addWidget(m_progressMessageField);
    progress->addWidget(m_progressBar);
    progress->addWidget(m_progressDetailField);
    for (QWidget* shown :
         std::initializer_list<QWidget*>{m_progressBar, m_progressMessageField, m_progressDetailField}) {
        QSizePolicy policy = shown->sizePolicy();
        policy.setRetainSizeWhenHidden(true); // so that the window keeps its size
        shown->setSizePolicy(policy);
        shown->hide();
    }

    const auto button = [this](const char* name, const char* key) {
        auto* made = new QPushButton(localised(key), this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        return made;
    };
    m_formatButton = button("formatButton", "setting.format.format");
    m_cancelButton = button("cancelButton", "cancel");
    connect(m_formatButton, &QPushButton::clicked, this, &MRVFormatWindowController::onFormat);
    connect(m_cancelButton, &QPushButton::clicked, this, &MRVFormatWindowController::cancel);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancelButton);
    buttons->addWidget(m_formatButton);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(16);
    layout->addLayout(form);
    layout->addWidget(m_hintField);
    layout->addLayout(progress);
    layout->addStretch();
    layout->addLayout(buttons);
    setTabOrder(m_usbDiskCombo, m_cancelButton);
    setTabOrder(m_cancelButton, m_formatButton);
    updateSelectedDiskInfo();
}

void MRVFormatWindowController::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    const QRect visible = screen()->availableGeometry();
    move(visible.topLeft() + QPoint(visible.width() - width(), visible.height() - height()) / 2);
}

void MRVFormatWindowController::loadUSBVolumes(std::function<void()> completion)
{
    const QString message = QStringLiteral("Disk searching...");
    const bool startedHere = m_stopProgressBar;
    if (startedHere)
        showProgressBar(message);
    else
        showMessage(message, {});
    m_listing = true;
    m_listAgain = false;
    m_listingWork.start(
        [access = m_disks.deviceAccess(), erased = m_erased](const LatestRun&) {
            return doLoadUSBVolumes(access, erased);
        },
        [this, startedHere, completion = std::move(completion)](std::vector<FormattableVolume> volumes) {
            const FormattableVolume* selected = selectedUSBDisk();
            m_selectedBefore.reset();
            if (!m_usbDiskArray.empty())
                m_selectedBefore = selected ? selected->entity.deviceFilePath() : std::string();
            m_usbDiskArray = std::move(volumes);
            m_listing = false;
            m_usbDiskCombo->clear();
            const DeviceAccess* access = m_disks.deviceAccess();
            m_isAnswering = access == nullptr || !m_usbDiskArray.empty() || access->isAnswering();
            m_usbDiskCombo->setPlaceholderText(localised(!m_isAnswering           ? "format.no_answer"
                                                         : m_usbDiskArray.empty() ? "setting.format.no_card"
                                                                                  : "setting.format.choose"));
            if (!m_isAnswering)
                QTimer::singleShot(askAgainDelay, this, &MRVFormatWindowController::volumesChanged);
            for (const FormattableVolume& volume : m_usbDiskArray)
                m_usbDiskCombo->addItem(volume.entity.displayString());
            m_usbDiskCombo->setCurrentIndex(m_usbDiskArray.empty() ? -1 : 0);
            updateSelectedDiskInfo();
            if (startedHere)
                hideProgressBar();
            if (completion)
                completion();
            Q_EMIT volumesLoaded();
            if (m_listAgain)
                volumesChanged();
            if (!m_listing && std::exchange(m_formatWanted, false))
                onFormat();
        });
}

void MRVFormatWindowController::volumesChanged()
{
    if (m_listing || m_work != Work::None) {
        m_listAgain = true;
        return;
    }
    loadUSBVolumes([this] {
        if (m_selectedBefore)
            selectOnly(*m_selectedBefore);
    });
}

/// A removed card is not silently replaced by another.
void MRVFormatWindowController::selectOnly(const std::string& deviceFilePath)
{
    if (selectUSBByDevFile(deviceFilePath))
        return;
    m_usbDiskCombo->setCurrentIndex(-1);
    updateSelectedDiskInfo();
}

const FormattableVolume* MRVFormatWindowController::selectUSBByDevFile(const std::string& deviceFilePath)
{
    const auto found = std::ranges::find_if(m_usbDiskArray, [&](const FormattableVolume& volume) {
        return volume.entity.deviceFilePath() == deviceFilePath;
    });
    if (found == m_usbDiskArray.end())
        return nullptr;
    m_usbDiskCombo->setCurrentIndex(static_cast<int>(found - m_usbDiskArray.begin()));
    updateSelectedDiskInfo();
    return &*found;
}

const FormattableVolume* MRVFormatWindowController::selectedUSBDisk() const
{
    const int index = m_usbDiskCombo->currentIndex();
    if (index < 0 || static_cast<std::size_t>(index) >= m_usbDiskArray.size())
        return nullptr;
    return &m_usbDiskArray[static_cast<std::size_t>(index)];
}

void MRVFormatWindowController::updateSelectedDiskInfo()
{
    const FormattableVolume* volume = selectedUSBDisk();
    const QString hint = volume ? unsuitableText(*volume) : QString();
    m_hintField->setText(hint);
    m_hintField->setVisible(!hint.isEmpty());
    if (volume == nullptr) {
        m_pathField->setFullText(QStringLiteral("-"));
        m_allocationUnitField->setText(QStringLiteral("64KB"));
        return;
    }
    m_pathField->setFullText(placeText(volume->entity));
    const auto plan = makeFormatPlan(volume->entity.volumeSize());
    m_allocationUnitField->setText(plan ? QStringLiteral("%1 KB").arg(plan->sectorsPerCluster)
                                        : QStringLiteral("-"));
}

void MRVFormatWindowController::changeDisk() { updateSelectedDiskInfo(); }

void MRVFormatWindowController::setWork(Work work)
{
    m_work = work;
    m_usbDiskCombo->setEnabled(work == Work::None);
    m_formatButton->setEnabled(work == Work::None);
    m_cancelButton->setEnabled(work != Work::Abandoning && work != Work::MustEnd);
    if (work == Work::None && m_listAgain)
        volumesChanged();
}

void MRVFormatWindowController::onFormat()
{
    if (m_work != Work::None)
        return;
    m_formatWanted = m_listing;
    if (m_listing)
        return;
    const FormattableVolume* volume = selectedUSBDisk();
    if (volume == nullptr) {
        showMessageSheet(this, QStringLiteral("MARVO"),
                         !m_isAnswering           ? localised("format.no_answer")
                         : m_usbDiskArray.empty() ? QStringLiteral("There is no USB drive.")
                                                  : QStringLiteral("Please select USB drive."));
        return;
    }
    const QString displayString = volume->entity.displayString();
    if (!volume->entity.writable()) {
        const FormatFailure failure{FormatFailure::Kind::WriteProtected, {}};
        showMessageSheet(this, localised("msg.cannot_format"), failureText(displayString, failure, {}));
        return;
    }
    if (const QString text = unsuitableText(*volume); !text.isEmpty()) {
        showMessageSheet(this, localised("msg.cannot_format"), text);
        return;
    }
    askAndFormat(*volume);
}

void MRVFormatWindowController::askAndFormat(const FormattableVolume& volume)
{
    m_stop = std::stop_source();
    setWork(Work::CanBeAbandoned);
    showProgressBar(QStringLiteral("Disk searching..."));
    showMessage(m_progressMessageField->text(), localised("format.step.look"));
    m_look.start(
        [root = volume.entity.mountedURL(), stop = m_stop.get_token()](const LatestRun&) {
            return root.empty() ? CardContents() : readCardContents(root, stop);
        },
        [this, volume](const CardContents& contents) {
            hideProgressBar();
            if (m_stop.stop_requested())
                setWork(Work::None);
            else
                showWarningSheet(volume, contents);
        });
}

void MRVFormatWindowController::showWarningSheet(const FormattableVolume& volume,
                                                 const CardContents& contents)
{
    auto* sheet = new QMessageBox(QMessageBox::Warning, localised("setting.format.title"),
                                  localised("msg.format.warning"), QMessageBox::NoButton, this);
    sheet->setObjectName(QStringLiteral("warningSheet"));
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowModality(Qt::WindowModal);
    QString text = QStringLiteral("%1\n%2\n\n%3")
                       .arg(volume.entity.displayString(), placeText(volume.entity).trimmed(),
                            localised("msg.format.will_erase").arg(contentsText(contents)));
    if (contents.settings || earlierSettings(volume))
        text += QLatin1Char('\n') + localised("msg.format.settings_stay");
    else if (contents.settingsUnreadable)
        text += QLatin1Char('\n') + localised("msg.format.settings_lost");
    setPlainMessage(*sheet, text);
    QPushButton* go = sheet->addButton(localised("setting.format.format"), QMessageBox::DestructiveRole);
    go->setObjectName(QStringLiteral("confirmButton"));
    go->setAutoDefault(false);
    QPushButton* stay = sheet->addButton(localised("cancel"), QMessageBox::RejectRole);
    sheet->setDefaultButton(stay);
    sheet->setEscapeButton(stay);
    connect(sheet, &QMessageBox::finished, this, [this, sheet, go, volume, settings = contents.settings] {
        if (sheet->clickedButton() == go)
            doFormat(volume, settings);
        else
            setWork(Work::None);
    });
    sheet->open();
}

std::optional<KeptSettings> MRVFormatWindowController::earlierSettings(const FormattableVolume& volume) const
{
    return m_erased && m_erased->identity == volume.identity ? m_erasedSettings : std::nullopt;
}

void MRVFormatWindowController::doFormat(const FormattableVolume& volume,
                                         const std::optional<std::string>& settings)
{
    setWork(Work::CanBeAbandoned);
    showProgressBar(stepMessage(FormatStep::KeepSettings));
    // A recording that is being played from the card would keep it in use.
    if (!volume.entity.mountedURL().empty())
        Q_EMIT m_disks.aboutToUnmount(volume.entity.mountedURL());
    m_job.start(
        [this, access = m_disks.deviceAccess(), volume, stop = m_stop.get_token(),
         earlier = earlierSettings(volume), settings](const LatestRun& run) {
            FormatJob job(*access, volume, earlier, settings);
            return job.run(
                [this, &run](FormatStep step) {
                    bool goOn = false; // the window, and with it the wish to format, may be gone
                    callAndWait(run, [this, &goOn, step] { goOn = showStep(step); });
                    return goOn;
                },
                stop);
        },
        [this, volume](FormatOutcome outcome) { formatEnded(volume, std::move(outcome)); });
}

bool MRVFormatWindowController::showStep(FormatStep step)
{
    const QString message = stepMessage(step);
    showMessage(message.isEmpty() ? m_progressMessageField->text() : message, stepDetail(step));
    if (m_stop.stop_requested())
        return false;
    // From Write on, giving up would leave a card without a file system.
    if (step == FormatStep::Unmount || step == FormatStep::Password)
        setWork(Work::CanBeLeft);
    else if (step < FormatStep::Write)
        setWork(Work::CanBeAbandoned);
    else
        setWork(Work::MustEnd);
    return true;
}

void MRVFormatWindowController::formatEnded(const FormattableVolume& volume, FormatOutcome outcome)
{
    if (outcome.failure && outcome.failure->erased) {
        rememberUnfinished(volume, outcome.kept);
    } else if (!outcome.failure && m_erased && m_erased->identity == volume.identity) {
        m_erased.reset();
        m_erasedSettings.reset();
    }
    setWork(Work::MustEnd);
    loadUSBVolumes([this, volume, outcome = std::move(outcome)] {
        if (outcome.failure)
            formatFailed(volume, *outcome.failure, outcome.kept);
        else
            formatDidFinished(volume, outcome.kept);
    });
}

void MRVFormatWindowController::rememberUnfinished(const FormattableVolume& volume,
                                                   const std::optional<KeptSettings>& kept)
{
    // Its entry is that of a volume which is mounted nowhere.
    const TKUSBDiskEntity& before = volume.entity;
    m_erased = FormattableVolume{TKUSBDiskEntity(before.volumeName(), {}, before.deviceFilePath(),
                                                 before.deviceModel(), before.volumeSize(), before.writable(),
                                                 before.mediaWhole(), before.key()),
                                 volume.identity};
    m_erasedSettings = kept;
}

void MRVFormatWindowController::formatFailed(const FormattableVolume& volume, const FormatFailure& failure,
                                             const std::optional<KeptSettings>& kept)
{
    selectOnly(volume.entity.deviceFilePath());
    if (failure.erased)
        Q_EMIT cardChanged();
    if (failure.kind == FormatFailure::Kind::Abandoned) {
        hideProgressBar();
        setWork(Work::None);
        return;
    }
    endWithMessage(localised("msg.cannot_format"), failureText(volume.entity.displayString(), failure, kept));
}

void MRVFormatWindowController::formatDidFinished(const FormattableVolume& volume,
                                                  const std::optional<KeptSettings>& kept)
{
    const FormattableVolume* formatted = selectUSBByDevFile(volume.entity.deviceFilePath());
    if (formatted == nullptr || formatted->identity != volume.identity ||
        formatted->entity.mountedURL().empty()) {
        restored(volume, localised("msg.format.not_mounted"), {}, kept);
        return;
    }
    showMessage(m_progressMessageField->text(), stepDetail(FormatStep::Complete));
    m_restore.start(
        [root = formatted->entity.mountedURL(), isKept = kept.has_value(),
         bytes = kept ? kept->bytes : m_newCameraSettings](const LatestRun&) {
            RestoreErrors errors;
            if (const std::error_code error = restoreSettings(root, bytes)) {
                qCWarning(logFormat, "error=%s", error.message().c_str());
                errors.copy =
                    isKept ? QString::fromStdString(error.message()) : localised("msg.file_open_fail");
                return errors;
            }
            makeRecordingFolders(root);
            if (const auto fault = checkCard(root, bytes)) {
                qCWarning(logFormat, "error=%s", fault->c_str());
                errors.check = localised("msg.format.incomplete");
            }
            return errors;
        },
        [this, formatted = *formatted, kept](const RestoreErrors& errors) {
            restored(formatted, errors.copy, errors.check, kept);
        });
}

void MRVFormatWindowController::restored(const FormattableVolume& volume, const QString& copyError,
                                         const QString& checkError, const std::optional<KeptSettings>& kept)
{
    Q_EMIT cardChanged();
    if (copyError.isEmpty() && checkError.isEmpty()) {
        hideProgressBar();
        setWork(Work::None);
        showAlertSheet(this, localised("msg.format_complete"), volume.entity.displayString(),
                       [this] { cancel(); });
        return;
    }
    const bool notCopied = !copyError.isEmpty();
    const QString title = notCopied ? QStringLiteral("config.bin copy fail") : localised("msg.cannot_format");
    const QString text = notCopied ? copyError : errorText(volume.entity.displayString(), checkError);
    // The next attempt must know that the card had settings.
    rememberUnfinished(volume, kept);
    loadUSBVolumes([this, path = volume.entity.deviceFilePath(), title, text = text + keptText(kept)] {
        selectOnly(path);
        endWithMessage(title, text);
    });
}

void MRVFormatWindowController::endWithMessage(const QString& title, const QString& message)
{
    hideProgressBar();
    setWork(Work::None);
    showMessageSheet(this, title, message);
}

void MRVFormatWindowController::cancel() { close(); }

void MRVFormatWindowController::reject() { close(); }

void MRVFormatWindowController::closeEvent(QCloseEvent* event)
{
    if (m_work == Work::None || m_work == Work::CanBeLeft) {
        m_stop.request_stop();
        event->accept();
        setResult(QDialog::Rejected);
        Q_EMIT finished(result());
        return;
    }
    event->ignore();
    if (m_work == Work::CanBeAbandoned) {
        m_stop.request_stop();
        setWork(Work::Abandoning);
    }
}

void MRVFormatWindowController::showProgressBar(const QString& message)
{
    m_progressBar->setIndeterminate(true);
    m_stopProgressBar = false;
    m_progress = 0;
    showMessage(message, {});
    m_progressBar->setDoubleValue(m_progressBar->minValue());
    m_progressBar->startAnimation();
    for (QWidget* shown :
         std::initializer_list<QWidget*>{m_progressBar, m_progressMessageField, m_progressDetailField})
        shown->show();
    m_progressTimer.start();
}

void MRVFormatWindowController::updateProgressBar(double totalSeconds)
{
    m_progress += 100 / (totalSeconds / std::chrono::duration<double>(progressTick).count());
    m_progressBar->setDoubleValue(m_progress);
    if (m_progress < 100 && !m_stopProgressBar)
        return;
    m_progressTimer.stop();
    m_progressBar->setDoubleValue(m_progressBar->minValue());
    m_progressBar->stopAnimation();
    hideProgressBar();
}

void MRVFormatWindowController::hideProgressBar()
{
    for (QWidget* shown :
         std::initializer_list<QWidget*>{m_progressBar, m_progressMessageField, m_progressDetailField})
        shown->hide();
    m_stopProgressBar = true;
}

void MRVFormatWindowController::showMessage(const QString& message, const QString& detail)
{
    m_progressMessageField->setText(message);
    m_progressDetailField->setText(detail);
    Q_EMIT stepShown(message, detail);
}

} // namespace marvo
