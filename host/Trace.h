#pragma once

#include "ado/StatementObserver.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace kvx::host {

/// A statement on one line: CR and LF are shown as \r and \n, all else stands as sent.
std::string TraceLine(std::string_view statement);

/// Gets every statement that the library and its sibling send, in the order in which they were run.
using StatementSink = std::function<void(const ado::StatementRecord&)>;

/// Watches all connections of the process from now until it goes. Statements that were stopped before they reached the
/// database, and those of the host itself, are not told.
class Trace {
public:
    explicit Trace(StatementSink sink);
    ~Trace();
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

private:
    std::shared_ptr<ado::StatementObserver> observer_;
};

/// The file begins anew; each line is on the disk when the statement has run.
/// @throws StartError the file cannot be written
StatementSink WriteTraceTo(const std::filesystem::path& file);

/// While it lives, statements are the host's own business: its look-ups of users and levels are no part of a trace.
class HostStatements {
public:
    HostStatements();
    ~HostStatements();
    HostStatements(const HostStatements&) = delete;
    HostStatements& operator=(const HostStatements&) = delete;
};

}  // namespace kvx::host
