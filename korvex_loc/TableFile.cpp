#include "korvex_loc/TableFile.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Locale.h"
#include "basic/Text.h"
#include "os/Files.h"
#include "os/Process.h"
#include "ui/Desktop.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace kvx::loc {

namespace {

std::string CellForFile(const std::string& cell, char separator)
{
    const bool quotes = cell.find_first_of("\"\r\n") != std::string::npos || cell.find(separator) != std::string::npos;
    return quotes ? "\"" + basic::Replace(cell, "\"", "\"\"") + "\"" : cell;
}

std::string FileNameOf(std::string_view title)
{
    std::string name(basic::Trim(title));
    constexpr std::string_view kNotInNames = "/\\:*?\"<>|";
    std::ranges::replace_if(
        name, [&](char c) { return (c >= 0 && c < 32) || kNotInNames.find(c) != std::string_view::npos; }, '_');
    const basic::DateParts now = basic::PartsOf(ui::CurrentDesktop().Now());
    std::array<char, 80> time{};
    std::snprintf(time.data(), time.size(), "%04d-%02d-%02d %02d%02d%02d", now.year, now.month, now.day, now.hour,
                  now.minute, now.second);
    return name.empty() ? time.data() : name + " " + time.data();
}

}  // namespace

std::string TableFileText(const TableLines& lines)
{
    const char separator = basic::CurrentLocale().decimalSeparator == "," ? ';' : ',';
    std::string text = "\xEF\xBB\xBF";
    for (const std::vector<std::string>& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i > 0) text += separator;
            text += CellForFile(line[i], separator);
        }
        text += "\r\n";
    }
    return text;
}

std::filesystem::path DocumentsFolder()
{
    std::error_code missing;
    const auto folder = [&](const std::filesystem::path& path) { return std::filesystem::is_directory(path, missing); };
    if (const char* documents = std::getenv("XDG_DOCUMENTS_DIR"); documents != nullptr && folder(documents))
        return documents;
    if (const char* home = std::getenv("HOME"); home != nullptr && folder(home)) {
        for (const char* name : {"Documents", "Dokumente"})
            if (folder(std::filesystem::path(home) / name)) return std::filesystem::path(home) / name;
        return home;
    }
    return std::filesystem::temp_directory_path();
}

std::filesystem::path WriteTableFile(std::string_view title, const TableLines& lines)
{
    const std::filesystem::path start = DocumentsFolder() / FileNameOf(title);
    std::filesystem::path file = start.string() + ".csv";
    for (int copy = 2; std::filesystem::exists(file); ++copy)
        file = start.string() + " (" + std::to_string(copy) + ").csv";
    os::WriteText(file.string(), TableFileText(lines));
    return file;
}

void OpenTableFile(const std::filesystem::path& file)
{
    try {
        os::CurrentShell().Open(file.string());
    } catch (const basic::Error&) {
        ui::CurrentDesktop().MessageBox(file.string(), ui::vbInformation, "Korvex");
    }
}

}  // namespace kvx::loc
