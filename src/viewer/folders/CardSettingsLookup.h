// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileData.h"
#include "workers/DetachedWorkers.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace marvo {

template <typename Target>
class ObjectLink;

/// The settings record of the card that a folder (a path as bytes) lies on; none when there is no such card.
/// Called on a worker.
using CardSettingsReader = std::function<std::optional<_FILEDATA>(const std::string& folder)>;

/// Reads "config.bin" in the folder, or in the one above it when the folder is one of the card's own. Only a
/// file of exactly the record's size counts.
std::optional<_FILEDATA> readCardSettings(const std::string& folder);

/// Looks a card's settings up without keeping the window waiting for the card.
class CardSettingsLookup : public QObject
{
    Q_OBJECT
public:
    explicit CardSettingsLookup(CardSettingsReader reader);
    /// Returns at once, also while a look-up hangs on a card that does not answer.
    ~CardSettingsLookup() override;

    /// A look-up still under way is overtaken and tells nobody.
    void lookUp(const std::string& folder);

Q_SIGNALS:
    /// The record that decides from now on: the card's, or the default one.
    void settingsKnown(const marvo::_FILEDATA& record);

private:
    CardSettingsReader m_reader;
    DetachedWorkers m_workers;
    std::shared_ptr<ObjectLink<CardSettingsLookup>> m_link;
    std::uint64_t m_generation = 0;
};

} // namespace marvo
