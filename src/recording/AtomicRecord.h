// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/SampleRecords.h"

#include <atomic>

namespace marvo {

/// One raw record as an entry of a list. It is copied in and out as a whole, so that a reader never sees half
/// of another thread's update. A new record holds zeros.
template <typename Record>
class AtomicRecord
{
public:
    AtomicRecord() = default;
    explicit AtomicRecord(const Record& data) : m_data(data) {}
    AtomicRecord(const AtomicRecord& other) : m_data(other.data()) {}
    AtomicRecord& operator=(const AtomicRecord& other)
    {
        setData(other.data());
        return *this;
    }

    Record data() const { return m_data.load(); }
    void setData(const Record& data) { m_data.store(data); }

private:
    std::atomic<Record> m_data{};
};

/// A GPS sample.
using MRVAviGpsData = AtomicRecord<_AVI_GPS_DATA_T>;
/// A raw G-sensor sample.
using MRVAviGSensorData = AtomicRecord<_AVI_GSENSOR_DATA_T>;

} // namespace marvo
