// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/FileData.h"
#include "workers/Latest.h"

#include <QObject>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace marvo {

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
    explicit CardSettingsLookup(CardSettingsReader reader) : m_reader(std::move(reader)) {}

    /// A look-up still under way is overtaken and tells nobody.
    void lookUp(const std::string& folder);

Q_SIGNALS:
    /// The record that decides from now on: the card's, or the default one.
    void settingsKnown(const marvo::_FILEDATA& record);

private:
    CardSettingsReader m_reader;
    Latest<_FILEDATA> m_look{this};
};

} // namespace marvo
