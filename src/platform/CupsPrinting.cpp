// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/CupsPrinting.h"

#include <cups/cups.h>
#include <cups/pwg.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include <unistd.h>

namespace marvo {

namespace {

constexpr int connectTimeoutMs = 15'000;
constexpr double answerTimeoutSeconds = 30;

struct Deleter
{
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
    void operator()(cups_dinfo_t* facts) const { cupsFreeDestInfo(facts); }
    void operator()(http_t* connection) const { httpClose(connection); }
};

using Destination = std::unique_ptr<cups_dest_t, Deleter>;
using Facts = std::unique_ptr<cups_dinfo_t, Deleter>;
using Connection = std::unique_ptr<http_t, Deleter>;

/// A job's options as CUPS wants them, freed at the end. A value that the printer says it does not have, such
/// as a paper size, is left to the printer, which would refuse the whole job for it.
class OptionList
{
public:
    OptionList(const Connection& connection, const Destination& destination, const Facts& facts,
               const PrintSettings& settings)
        : m_connection(connection), m_destination(destination), m_facts(facts)
    {
        // First the user's own options for this printer. The queue's description is among them and is no
        // option.
        for (int i = 0; i < destination->num_options; ++i) {
            const cups_option_t& option = destination->options[i];
            const std::string_view name = option.name;
            const bool describes = name.starts_with("printer-") || name.starts_with("device-") ||
                                   name.starts_with("marker-") || name.starts_with("auth-info");
            if (!describes)
                add(option.name, option.value);
        }
        for (const auto& [name, value] : settings.values())
            add(name, value);
    }
    ~OptionList() { cupsFreeOptions(m_count, m_options); }
    OptionList(const OptionList&) = delete;
    OptionList& operator=(const OptionList&) = delete;

    int count() const { return m_count; }
    cups_option_t* options() const { return m_options; }

private:
    void add(const std::string& name, std::string value)
    {
        // A printer knows paper by its standard name only, not as "A4".
        if (name == "media") {
            if (const pwg_media_t* media = pwgMediaForPPD(value.c_str()))
                value = media->pwg;
        }
        if (isPossible(name.c_str(), value.c_str()))
            m_count = cupsAddOption(name.c_str(), value.c_str(), m_count, &m_options);
    }

    bool isPossible(const char* name, const char* value) const
    {
        http_t* connection = m_connection.get();
        return !cupsFindDestSupported(connection, m_destination.get(), m_facts.get(), name) ||
               cupsCheckDestSupported(connection, m_destination.get(), m_facts.get(), name, value) != 0;
    }

    const Connection& m_connection;
    const Destination& m_destination;
    const Facts& m_facts;
    int m_count = 0;
    cups_option_t* m_options = nullptr;
};

/// The last error of CUPS in this thread; it does not record all failures.
int lastError()
{
    const int error = cupsLastError();
    return error > IPP_STATUS_OK_EVENTS_COMPLETE ? error : IPP_STATUS_ERROR_INTERNAL;
}

bool isFailure(ipp_status_t status) { return status < 0 || status > IPP_STATUS_OK_EVENTS_COMPLETE; }

class CupsPrinter : public Printer
{
public:
    CupsPrinter(Destination destination, Connection connection)
        : m_destination(std::move(destination)), m_connection(std::move(connection))
    {}

    std::vector<std::string> mimeTypes() override
    {
        std::vector<std::string> types;
        if (!loadFacts())
            return types;
        ipp_attribute_t* supported =
            cupsFindDestSupported(m_connection.get(), m_destination.get(), m_facts.get(), "document-format");
        const int count = supported ? ippGetCount(supported) : 0;
        for (int i = 0; i < count; ++i) {
            if (const char* type = ippGetString(supported, i, nullptr))
                types.emplace_back(type);
        }
        return types;
    }

    int printWithFile(int file, const std::string& title, const std::string& mimeType,
                      const PrintSettings& settings) override
    {
        if (!loadFacts())
            return lastError();
        http_t* connection = m_connection.get();
        const OptionList options(m_connection, m_destination, m_facts, settings);
        int job = 0;
        if (isFailure(cupsCreateDestJob(connection, m_destination.get(), m_facts.get(), &job, title.c_str(),
                                        options.count(), options.options())))
            return lastError();
        const int error = sendDocument(file, job, title, mimeType);
        if (error != 0)
            cupsCancelDestJob(connection, m_destination.get(), job); // else it would wait for its document
        return error;
    }

private:
    bool loadFacts()
    {
        if (!m_facts)
            m_facts.reset(cupsCopyDestInfo(m_connection.get(), m_destination.get()));
        return m_facts != nullptr;
    }

    int sendDocument(int file, int job, const std::string& title, const std::string& mimeType)
    {
        http_t* connection = m_connection.get();
        if (cupsStartDestDocument(connection, m_destination.get(), m_facts.get(), job, title.c_str(),
                                  mimeType.c_str(), 0, nullptr, 1) != HTTP_STATUS_CONTINUE)
            return lastError();
        std::array<char, 65536> piece;
        while (true) {
            const ssize_t count = ::read(file, piece.data(), piece.size());
            if (count < 0 && errno == EINTR)
                continue;
            if (count < 0)
                return IPP_STATUS_ERROR_DOCUMENT_ACCESS;
            if (count == 0)
                break;
            if (cupsWriteRequestData(connection, piece.data(), static_cast<std::size_t>(count)) !=
                HTTP_STATUS_CONTINUE)
                return lastError();
        }
        return isFailure(cupsFinishDestDocument(connection, m_destination.get(), m_facts.get())) ? lastError()
                                                                                                 : 0;
    }

    Destination m_destination;
    Connection m_connection;
    Facts m_facts;
};

/// Refuses to wait on, so that a silent printer is given up.
int giveUp(http_t*, void*) { return 0; }

/// CUPS itself would ask on the terminal and block there.
const char* noPassword(const char*, http_t*, const char*, const char*, void*) { return nullptr; }

} // namespace

void PrintSettings::setValue(const std::string& name, const std::string& value)
{
    const auto known = std::ranges::find(m_values, name, &std::pair<std::string, std::string>::first);
    if (known != m_values.end())
        known->second = value;
    else
        m_values.emplace_back(name, value);
}

Printing::Found CupsPrinting::printerNamed(const std::string& name)
{
    cupsSetPasswordCB2(noPassword, nullptr); // of this thread
    const bool isAddress = name.find("://") != std::string::npos;
    const std::size_t slash = name.find('/');
    const std::string queue = name.substr(0, slash);
    const std::string instance = slash == std::string::npos ? std::string() : name.substr(slash + 1);

    Destination destination(isAddress ? cupsGetDestWithURI(nullptr, name.c_str())
                                      : cupsGetNamedDest(CUPS_HTTP_DEFAULT, queue.c_str(),
                                                         instance.empty() ? nullptr : instance.c_str()));
    if (!destination)
        return {nullptr, lastError()};

    int cancel = 0;
    std::array<char, 1024> resource{};
    Connection connection(
        cupsConnectDest(destination.get(), isAddress ? CUPS_DEST_FLAGS_DEVICE : CUPS_DEST_FLAGS_NONE,
                        connectTimeoutMs, &cancel, resource.data(), resource.size(), nullptr, nullptr));
    // A refused connection is returned as a special value.
    if (!connection || httpGetFd(connection.get()) < 0)
        return {nullptr, lastError()};
    httpSetTimeout(connection.get(), answerTimeoutSeconds, giveUp, nullptr);
    return {std::make_unique<CupsPrinter>(std::move(destination), std::move(connection)), 0};
}

} // namespace marvo
