#include "adapters/office/ZipFile.h"

#include "basic/Error.h"

#include <zip.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace kvx::adapters::office {

namespace {

constexpr std::int32_t kErrDiskFull = 61;

class ShortPart final : public ZipPart {
public:
    ShortPart(std::string_view name, std::string content) : ZipPart(name), content_(std::move(content)) {}
    void Rewind() override { done_ = false; }
    bool Next(std::string& content) override
    {
        if (done_) return false;
        content += content_;
        return done_ = true;
    }

private:
    std::string content_;
    bool done_ = false;
};

// The archive library pulls: it calls back for the content of a part while it closes the archive.
class PartReader {
public:
    explicit PartReader(ZipPart& part) : part_(part)
    {
        // Told the length beforehand, the archive needs none of the extensions that some readers refuse.
        part_.Rewind();
        for (std::string piece; part_.Next(piece); piece.clear())
            length_ += piece.size();
    }

    static zip_int64_t Callback(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command)
    {
        return static_cast<PartReader*>(self)->Answer(data, length, command);
    }

private:
    zip_int64_t Answer(void* data, zip_uint64_t length, zip_source_cmd_t command)
    {
        switch (command) {
        case ZIP_SOURCE_OPEN:
            part_.Rewind();
            piece_.clear();
            used_ = 0;
            return 0;
        case ZIP_SOURCE_READ: return Read(static_cast<char*>(data), static_cast<std::size_t>(length));
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_FREE: return 0;
        case ZIP_SOURCE_STAT: {
            auto* stat = static_cast<zip_stat_t*>(data);
            zip_stat_init(stat);
            stat->size = length_;
            stat->valid |= ZIP_STAT_SIZE;
            return sizeof(zip_stat_t);
        }
        case ZIP_SOURCE_ERROR: {
            const int error[2] = {ZIP_ER_INTERNAL, 0};
            std::memcpy(data, error, sizeof error);
            return sizeof error;
        }
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                                  ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
        default: return -1;
        }
    }

    zip_int64_t Read(char* data, std::size_t length)
    {
        std::size_t copied = 0;
        while (copied < length) {
            if (used_ == piece_.size()) {
                piece_.clear();
                used_ = 0;
                if (!part_.Next(piece_)) break;
            }
            const std::size_t count = std::min(length - copied, piece_.size() - used_);
            std::memcpy(data + copied, piece_.data() + used_, count);
            copied += count;
            used_ += count;
        }
        return static_cast<zip_int64_t>(copied);
    }

    ZipPart& part_;
    std::uint64_t length_ = 0;
    std::string piece_;
    std::size_t used_ = 0;
};

[[noreturn]] void RaiseZipError(zip_error_t& error, const std::string& path)
{
    const int system = zip_error_system_type(&error) == ZIP_ET_SYS ? zip_error_code_system(&error) : 0;
    const std::string reason = system != 0 ? std::strerror(system) : zip_error_strerror(&error);
    const std::string description = "The printed table cannot be written to " + path + ": " + reason;
    zip_error_fini(&error);
    switch (system) {
    case ENOSPC:
    case EDQUOT: basic::Raise(kErrDiskFull, description);
    case EACCES:
    case EPERM:
    case EROFS: basic::Raise(basic::kErrPermissionDenied, description);
    case ENOENT:
    case ENOTDIR: basic::Raise(basic::kErrPathNotFound, description);
    default: basic::Raise(basic::kErrFileAccess, description);
    }
}

[[noreturn]] void RaiseZipError(zip_t* archive, const std::string& path)
{
    const zip_error_t* ofArchive = zip_get_error(archive);
    zip_error_t error;
    zip_error_init(&error);
    zip_error_set(&error, ofArchive->zip_err, ofArchive->sys_err);
    zip_discard(archive);
    RaiseZipError(error, path);
}

}  // namespace

std::unique_ptr<ZipPart> TextPart(std::string_view name, std::string content)
{
    return std::make_unique<ShortPart>(name, std::move(content));
}

void WriteZip(const std::string& path, const std::vector<std::unique_ptr<ZipPart>>& parts)
{
    std::vector<PartReader> readers;
    readers.reserve(parts.size());  // the archive keeps their addresses
    for (const auto& part : parts)
        readers.emplace_back(*part);

    int code = 0;
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (archive == nullptr) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        RaiseZipError(error, path);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        zip_source_t* source = zip_source_function(archive, &PartReader::Callback, &readers[i]);
        if (source == nullptr) RaiseZipError(archive, path);
        const zip_int64_t index = zip_file_add(archive, parts[i]->Name().c_str(), source, ZIP_FL_ENC_UTF_8);
        if (index < 0) {
            zip_source_free(source);
            RaiseZipError(archive, path);
        }
        // The markup of a table repeats itself: the fastest level packs it as well as the others.
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, 1);
    }
    if (zip_close(archive) != 0) RaiseZipError(archive, path);
}

}  // namespace kvx::adapters::office
