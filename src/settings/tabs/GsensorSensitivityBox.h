// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

#include <array>
#include <cstdint>
#include <optional>

class QLineEdit;

namespace marvo {

struct _FILEDATA;
class SegmentedControl;

/// Impact thresholds of the three axes, in hundredths of g.
using GsensorThresholds = std::array<std::int32_t, 3>;

/// What a box of impact sensitivity edits, and how its parts are named.
struct GsensorSensitivity
{
    const char* box;
    const char* titleKey;
    const char* control;
    std::array<const char*, 3> fields;
    std::array<std::int32_t _FILEDATA::*, 3> thresholds;
    std::array<GsensorThresholds, 5> presets; ///< from the least sensitive to the most

    /// The segment of a preset, where all three axes are its own; else that of typed thresholds.
    int findGsensorThresholdIndexByX(const GsensorThresholds& thresholds) const;

    /// The segment after the presets: custom thresholds.
    static constexpr int customSegment = 5;
};

/// While driving and while parked.
extern const GsensorSensitivity drivingSensitivity;
extern const GsensorSensitivity parkingSensitivity;

/// The box for the impact sensor's sensitivity: one of five presets, or a custom threshold for each axis. The
/// three fields show the thresholds in g; they can be edited only for custom thresholds.
class GsensorSensitivityBox : public QGroupBox
{
    Q_OBJECT
public:
    enum class Sensor { Off, On };

    /// The description must outlive the box.
    explicit GsensorSensitivityBox(const GsensorSensitivity& sensitivity, QWidget* parent = nullptr);

    void displayThresholds(const _FILEDATA& record);
    /// Stores what the fields show. A field that still shows the stored threshold leaves it as it is: two
    /// decimals read back can be a hundredth less.
    void storeThresholds(_FILEDATA& record) const;
    /// The message for the first field whose text is no threshold; the field then gets the focus.
    std::optional<QString> validateUserInput();
    void setSensor(Sensor sensor);

private:
    void updateGsensorThreshold();
    void updateEnabled();

    const GsensorSensitivity& m_sensitivity;
    SegmentedControl* m_control = nullptr;
    std::array<QLineEdit*, 3> m_fields{};
    Sensor m_sensor = Sensor::On;
};

} // namespace marvo
