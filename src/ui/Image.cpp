#include "ui/Image.h"

#include "os/Files.h"
#include "ui/MemberRows.h"

#include <array>
#include <cstdio>
#include <memory>

namespace kvx::ui {
namespace {

constexpr std::int32_t kErrInvalidPicture = 481;
constexpr std::int32_t kHundredthsOfMillimetrePerInch = 2540;
constexpr std::int32_t kPixelsPerInch = 96;

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

struct Size {
    std::int32_t width = 0, height = 0;
};

std::int32_t BigEndian(const unsigned char* bytes, int count)
{
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value = value << 8 | bytes[i];
    return static_cast<std::int32_t>(value);
}

std::int32_t LittleEndian(const unsigned char* bytes, int count)
{
    std::uint32_t value = 0;
    for (int i = count; i > 0; --i)
        value = value << 8 | bytes[i - 1];
    return static_cast<std::int32_t>(value);
}

// A JPEG file is a chain of segments; the size stands in the one that starts the frame.
Size JpegSize(std::FILE* file)
{
    std::fseek(file, 2, SEEK_SET);
    std::array<unsigned char, 9> head{};
    while (std::fread(head.data(), 1, 4, file) == 4 && head[0] == 0xFF) {
        const int marker = head[1];
        const std::int32_t length = BigEndian(&head[2], 2);
        const bool frame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame) {
            if (std::fread(head.data(), 1, 5, file) != 5) break;
            return {BigEndian(&head[3], 2), BigEndian(&head[1], 2)};
        }
        if (length < 2 || std::fseek(file, length - 2, SEEK_CUR) != 0) break;
    }
    return {};
}

Size ReadSize(std::FILE* file)
{
    std::array<unsigned char, 26> head{};
    const std::size_t count = std::fread(head.data(), 1, head.size(), file);
    const std::string_view start{reinterpret_cast<const char*>(head.data()), count};
    if (count >= 24 && start.starts_with("\x89PNG\r\n\x1a\n"))
        return {BigEndian(&head[16], 4), BigEndian(&head[20], 4)};
    if (count >= 10 && start.starts_with("GIF8")) return {LittleEndian(&head[6], 2), LittleEndian(&head[8], 2)};
    if (count >= 26 && start.starts_with("BM")) {
        const std::int32_t height = LittleEndian(&head[22], 4);  // negative: rows from the top down
        return {LittleEndian(&head[18], 4), height < 0 ? -height : height};
    }
    if (count >= 4 && start.starts_with("\xFF\xD8")) return JpegSize(file);
    return {};
}

std::int32_t Metric(std::int32_t pixels)
{
    const std::int64_t doubled = 2 * std::int64_t{pixels} * kHundredthsOfMillimetrePerInch / kPixelsPerInch;
    return static_cast<std::int32_t>((doubled + 1) / 2);
}

}  // namespace

Picture::Picture(std::string_view path) : path_(path)
{
    const std::string native = os::NativePath(path);
    const File file{os::FileExists(native) ? std::fopen(native.c_str(), "rb") : nullptr};
    if (file == nullptr) {
        const std::size_t slash = native.rfind('/');
        const bool folder = slash == std::string::npos || os::FolderExists(native.substr(0, slash + 1));
        basic::Raise(folder ? basic::kErrFileNotFound : basic::kErrPathNotFound);
    }
    const Size size = ReadSize(file.get());
    if (size.width <= 0 || size.height <= 0) basic::Raise(kErrInvalidPicture);
    pixelWidth_ = size.width;
    pixelHeight_ = size.height;
}

std::int32_t Picture::Width() const
{
    return Metric(pixelWidth_);
}

std::int32_t Picture::Height() const
{
    return Metric(pixelHeight_);
}

Image::Image(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<Image>& Image::Members()
{
    using namespace rows;
    static constexpr basic::Member<Image> kRows[] = {
        ReadWrite<Image, &Image::Stretch, &Image::SetStretch>("Stretch"),
    };
    static constexpr basic::MemberTable<Image> kTable{"Image", kRows};
    return kTable;
}

void Image::Reset()
{
    Control::Reset();
    picture_ = {};
    stretch_ = false;
}

void Image::SetPicture(const ui::Picture& picture)
{
    picture_ = picture;
    Notify(Change::Value);
}

void Image::SetStretch(bool stretch)
{
    stretch_ = stretch;
    Notify(Change::Look);
}

PictureBox::PictureBox(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<PictureBox>& PictureBox::Members()
{
    static constexpr basic::MemberTable<PictureBox> kTable{"PictureBox", {}};
    return kTable;
}

void PictureBox::Reset()
{
    Control::Reset();
    picture_ = {};
}

void PictureBox::SetPicture(const ui::Picture& picture)
{
    picture_ = picture;
    Notify(Change::Value);
}

}  // namespace kvx::ui
