// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "texts/InterfaceLanguage.h"

#include <QString>

#include <functional>
#include <string>

class QWidget;

namespace marvo::people {

/// What is made of a window that the gallery shows; its name is fit for a file's.
using Visitor = std::function<void(const QString& name, QWidget& window)>;

enum class Maps { AsTheyCome, Drawn };

/// Opens every window and dialog of the application, one after another, by the commands a person has, in the
/// states that differ to the eye. The card is a folder with recordings and a driving log; the language and
/// the appearance are the application's.
void showEveryWindow(const std::string& card, InterfaceLanguage language, Maps maps, const Visitor& visit);

} // namespace marvo::people
