// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <new>
#include <optional>
#include <system_error>
#include <type_traits>

namespace marvo {

/// The result of work that ran out of memory. Results that report errors say so: an error code, an error text
/// or none, or a type with a function outOfMemory(). Any other result is empty, as if nothing had been found.
template <typename Result>
Result resultOutOfMemory()
{
    const std::error_code error = std::make_error_code(std::errc::not_enough_memory);
    if constexpr (std::is_same_v<Result, std::error_code>)
        return error;
    else if constexpr (std::is_same_v<Result, std::optional<QString>>)
        return QString::fromStdString(error.message());
    else if constexpr (requires { Result::outOfMemory(); })
        return Result::outOfMemory();
    else
        return Result{};
}

/// Does work on a worker, where nobody catches an exception: without memory it has that result.
template <typename Work, typename... Arguments>
auto resultOf(Work& work, const Arguments&... arguments)
{
    try {
        return work(arguments...);
    } catch (const std::bad_alloc&) {
        return resultOutOfMemory<std::invoke_result_t<Work&, const Arguments&...>>();
    }
}

} // namespace marvo
