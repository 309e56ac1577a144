// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/Sha256.h"

#include <dlfcn.h>
#include <openssl/evp.h>

#include <utility>

namespace marvo {

namespace {

/// What is needed of libcrypto, whose headers give the types.
struct Library
{
    decltype(&EVP_MD_CTX_new) newContext = nullptr;
    decltype(&EVP_MD_CTX_free) freeContext = nullptr;
    decltype(&EVP_MD_CTX_copy_ex) copyContext = nullptr;
    decltype(&EVP_DigestInit_ex) begin = nullptr;
    decltype(&EVP_DigestUpdate) add = nullptr;
    decltype(&EVP_DigestFinal_ex) finish = nullptr;
    const EVP_MD* sha256 = nullptr;
    bool isWhole = false;
};

template <typename Function>
bool find(void* library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(::dlsym(library, name));
    return function != nullptr;
}

Library load()
{
    Library result;
    void* const library = ::dlopen(MARVO_LIBCRYPTO, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return result;
    decltype(&EVP_sha256) sha256 = nullptr;
    result.isWhole =
        find(library, "EVP_MD_CTX_new", result.newContext) &&
        find(library, "EVP_MD_CTX_free", result.freeContext) &&
        find(library, "EVP_MD_CTX_copy_ex", result.copyContext) &&
        find(library, "EVP_DigestInit_ex", result.begin) && find(library, "EVP_DigestUpdate", result.add) &&
        find(library, "EVP_DigestFinal_ex", result.finish) && find(library, "EVP_sha256", sha256);
    if (result.isWhole)
        result.sha256 = sha256();
    return result;
}

const Library& library()
{
    static const Library loaded = load();
    return loaded;
}

EVP_MD_CTX* contextOf(void* pointer) { return static_cast<EVP_MD_CTX*>(pointer); }

} // namespace

std::string hexText(const Sha256Sum& sum)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * sum.size());
    for (const std::uint8_t byte : sum) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::optional<Sha256Sum> readSha256(std::string_view hex)
{
    Sha256Sum sum;
    if (hex.size() != 2 * sum.size())
        return std::nullopt;
    const auto value = [](char c) {
        if (c >= '0' && c <= '9')
            return c - '0';
        const char lower = static_cast<char>(c | 0x20);
        return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
    };
    for (std::size_t i = 0; i < sum.size(); ++i) {
        const int high = value(hex[2 * i]);
        const int low = value(hex[2 * i + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        sum[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return sum;
}

bool Sha256::isAvailable() { return library().isWhole; }

Sha256::Sha256()
{
    if (!isAvailable())
        return;
    m_context = library().newContext();
    library().begin(contextOf(m_context), library().sha256, nullptr);
}

Sha256::~Sha256()
{
    if (m_context != nullptr)
        library().freeContext(contextOf(m_context));
}

Sha256::Sha256(Sha256&& other) noexcept : m_context(std::exchange(other.m_context, nullptr)) {}

Sha256& Sha256::operator=(Sha256&& other) noexcept
{
    std::swap(m_context, other.m_context);
    return *this;
}

void Sha256::add(std::span<const std::byte> bytes)
{
    if (m_context != nullptr)
        library().add(contextOf(m_context), bytes.data(), bytes.size());
}

Sha256Sum Sha256::finish()
{
    Sha256Sum sum{};
    if (m_context != nullptr) {
        library().finish(contextOf(m_context), sum.data(), nullptr);
        library().begin(contextOf(m_context), library().sha256, nullptr);
    }
    return sum;
}

Sha256Sum Sha256::soFar() const
{
    Sha256Sum sum{};
    if (m_context == nullptr)
        return sum;
    EVP_MD_CTX* const copy = library().newContext();
    if (library().copyContext(copy, contextOf(m_context)) == 1)
        library().finish(copy, sum.data(), nullptr);
    library().freeContext(copy);
    return sum;
}

} // namespace marvo
