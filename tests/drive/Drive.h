#pragma once

#include "host/drive/Driver.h"
#include "support/Scenario.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::test {

using host::drive::Json;

/// A session over a test's record.
inline host::Session SessionOf(const KvxVar& kvxvar)
{
    host::Session session;
    session.kvxvar = kvxvar;
    return session;
}

/// A driver of a test: sends messages one after the other to a host in this process, and keeps the answers.
///
///     Drive d;
///     d.Send("call", {{"class", "C_Version"}, {"method", "DLL_Version"}});
///     d.Run();
///     EXPECT_EQ(d.Last()["ended"]["result"], "2.0");
class Drive {
public:
    explicit Drive(std::string_view script = "forest.sql");

    Scenario& World() { return scenario_; }
    host::drive::Driver& Host() { return driver_; }

    /// One line as it stands.
    void SendLine(std::string line) { lines_.lines.push_back(std::move(line)); }
    void Send(std::string_view what, Json fields = Json::object());
    /// A call, its arguments by name.
    void Call(std::string_view className, std::string_view method, Json arguments = Json::object());
    /// Runs the work when the messages before it are answered and the next one is waited for.
    void Then(std::function<void()> work);
    /// All that was sent, then the end of the input.
    void Run() { driver_.Run(); }

    const std::vector<Json>& Answers() const { return answers_; }
    /// Of message n, from 0.
    const Json& At(std::size_t n) const;
    const Json& Last() const;
    /// The fault of message n: its kind; "" when it was carried out.
    std::string FaultAt(std::size_t n) const;

private:
    struct Lines final : host::drive::LineSource {
        std::deque<std::string> lines;
        std::map<std::size_t, std::function<void()>> work;
        std::size_t taken = 0, sent = 0;
        std::optional<std::string> Next(const std::function<bool()>& over) override;
    };
    Scenario scenario_;
    std::vector<Json> answers_;
    Lines lines_;
    host::drive::Driver driver_;
};

}  // namespace kvx::test
