#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::adapters::office {

/// One file inside an archive. It is asked for its content piece by piece, so that no part has to stand in memory
/// whole.
class ZipPart {
public:
    explicit ZipPart(std::string_view name) : name_(name) {}
    virtual ~ZipPart() = default;
    const std::string& Name() const { return name_; }

    virtual void Rewind() = 0;
    /// Appends the next piece. @return false: there was none left
    virtual bool Next(std::string& content) = 0;

private:
    std::string name_;
};

/// A part that is short enough to be given as it stands.
std::unique_ptr<ZipPart> TextPart(std::string_view name, std::string content);

/// Writes an archive of the parts in their order; an older file of the name is replaced once the new one is complete.
/// @throws basic::Error 61: disk full; 70, 75, 76
void WriteZip(const std::string& path, const std::vector<std::unique_ptr<ZipPart>>& parts);

}  // namespace kvx::adapters::office
