#include "host/Trace.h"

#include "host/Options.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>

namespace kvx::host {

namespace {

int hostStatements = 0;

class Observer final : public ado::StatementObserver {
public:
    explicit Observer(StatementSink sink) : sink_(std::move(sink)) {}
    void AfterExecute(const ado::StatementRecord& record) override
    {
        if (record.sent && hostStatements == 0) sink_(record);
    }

private:
    StatementSink sink_;
};

}  // namespace

std::string TraceLine(std::string_view statement)
{
    std::string line;
    line.reserve(statement.size());
    for (const char character : statement) {
        if (character == '\r')
            line += "\\r";
        else if (character == '\n')
            line += "\\n";
        else
            line += character;
    }
    return line;
}

Trace::Trace(StatementSink sink) : observer_(std::make_shared<Observer>(std::move(sink)))
{
    ado::AddProcessObserver(observer_);
}

Trace::~Trace()
{
    ado::RemoveProcessObserver(observer_.get());
}

StatementSink WriteTraceTo(const std::filesystem::path& file)
{
    const auto stream = std::make_shared<std::ofstream>(file, std::ios::binary | std::ios::trunc);
    if (!*stream) {
        const int error = errno;
        throw StartError("the trace file \"" + file.string() + "\" cannot be written: " + std::strerror(error));
    }
    return [stream](const ado::StatementRecord& record) { *stream << TraceLine(record.text) << std::endl; };
}

HostStatements::HostStatements()
{
    ++hostStatements;
}

HostStatements::~HostStatements()
{
    --hostStatements;
}

}  // namespace kvx::host
