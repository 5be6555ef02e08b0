#include "korvex_loc/FileTools.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "os/Files.h"
#include "ui/Desktop.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace kvx::loc {

namespace {

std::string TimeStamp()
{
    const basic::DateParts now = basic::PartsOf(ui::CurrentDesktop().Now());
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", now.year, now.month, now.day, now.hour,
                  now.minute, now.second);
    return text.data();
}

// One call is one line whatever a table's name or a user's holds.
std::string OneCell(std::string_view text)
{
    std::string cell(text);
    std::ranges::replace_if(
        cell, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return cell;
}

std::string_view Bare(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

void FileTools::WriteProtocol(std::string_view action, std::string_view object, std::string_view word,
                              std::string_view userName, std::string_view path)
{
    if (path.empty()) return;
    std::string line = TimeStamp();
    for (const std::string_view part : {action, object, word, userName})
        line += '\t' + OneCell(part);
    os::AppendLine(path, line);
}

std::string FileTools::ReadIni(std::string_view key, std::string_view defaultText, std::string_view iniPath)
{
    if (!os::FileExists(iniPath)) return std::string(defaultText);
    for (const std::string& text : os::ReadLines(iniPath)) {
        const std::string_view line = Bare(text);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || line.starts_with(';') || line.starts_with('#')) continue;
        if (!basic::SameTextIgnoringCase(Bare(line.substr(0, equals)), key)) continue;
        std::string_view value = Bare(line.substr(equals + 1));
        if (value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\''))
            value = value.substr(1, value.size() - 2);
        return std::string(value);
    }
    return std::string(defaultText);
}

std::vector<std::string> FileTools::ImageFormats(std::string_view appPath, std::string_view iniFile)
{
    const std::string iniPath = std::string(appPath) + "\\" + std::string(iniFile);
    const std::string list = basic::Replace(ReadIni("IMAGEFORMATS", "jpg,jpeg,png,bmp,gif,tif", iniPath), ";", ",");
    std::vector<std::string> formats{""};
    for (const std::string& piece : basic::Split(list, ",")) {
        const std::string extension = basic::Trim(basic::Replace(piece, "*.", ""));
        if (extension.empty()) continue;
        formats[0] += (formats[0].empty() ? "*." : ";*.") + extension;
        formats.push_back(extension);
    }
    return formats;
}

}  // namespace kvx::loc
