#include "drive/Drive.h"

#include <stdexcept>

namespace kvx::test {

std::optional<std::string> Drive::Lines::Next(const std::function<bool()>& over)
{
    if (const auto waits = work.find(taken); waits != work.end()) {
        const std::function<void()> now = std::move(waits->second);
        work.erase(waits);
        now();
        if (over()) return std::nullopt;
    }
    if (lines.empty()) return std::nullopt;
    std::string line = std::move(lines.front());
    lines.pop_front();
    ++taken;
    return line;
}

Drive::Drive(std::string_view script)
    : scenario_(script), driver_(
                             SessionOf(scenario_.kvxvar()),
                             [this](const std::string& connection) {
                                 if (connection != "Provider=again") throw host::StartError("no such database");
                                 return SessionOf(scenario_.kvxvar());
                             },
                             lines_,
                             [this](std::string_view line) {
                                 answers_.push_back(Json::parse(line));
                                 return true;
                             })
{
}

void Drive::Send(std::string_view what, Json fields)
{
    Json message = {{"id", lines_.sent++}, {"do", what}};
    message.update(fields);
    SendLine(message.dump());
}

void Drive::Call(std::string_view className, std::string_view method, Json arguments)
{
    Send("call", {{"class", className}, {"method", method}, {"arguments", std::move(arguments)}});
}

void Drive::Then(std::function<void()> work)
{
    lines_.work[lines_.taken + lines_.lines.size()] = std::move(work);
}

const Json& Drive::At(std::size_t n) const
{
    if (n >= answers_.size()) throw std::out_of_range("no answer " + std::to_string(n));
    return answers_[n];
}

const Json& Drive::Last() const
{
    return At(answers_.size() - 1);
}

std::string Drive::FaultAt(std::size_t n) const
{
    const Json& answer = At(n);
    return answer.contains("error") ? answer["error"]["kind"].get<std::string>() : std::string();
}

}  // namespace kvx::test
