// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/Speed.h"

namespace marvo {

namespace {

constexpr double kilometresPerMile = 1.609344;
constexpr double milesPerKilometre = 0.621371192;

} // namespace

double shownSpeed(const _AVI_GPS_DATA_T& sample, SpeedUnit unit)
{
    if (unit == SpeedUnit::Miles)
        return sample.KM == '9' ? sample.fSpeed * kilometresPerMile : sample.fSpeed;
    return sample.KM == '1' ? sample.fSpeed * milesPerKilometre : sample.fSpeed;
}

} // namespace marvo
