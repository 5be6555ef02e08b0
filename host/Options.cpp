#include "host/Options.h"

#include "basic/Text.h"
#include "host/SampleDatabase.h"

#include <charconv>

namespace kvx::host {

namespace {

std::string OneLine(std::string_view text)
{
    std::string line;
    for (const char character : text) {
        const bool lineBreak = character == '\r' || character == '\n';
        if (!lineBreak)
            line += character;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    return basic::RTrim(line);
}

[[noreturn]] void WrongUsage(std::string_view what)
{
    throw StartError(std::string(what) + "; korvex_host --help lists the options", StartError::kWrongUsage);
}

std::int32_t ReadId(std::string_view option, std::string_view text)
{
    std::int32_t id = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
    if (error != std::errc{} || end != text.data() + text.size() || id < 0)
        WrongUsage(std::string(option) + " needs a whole number from 0 on, not \"" + std::string(text) + "\"");
    return id;
}

std::string ReadText(std::string_view option, std::string_view text)
{
    if (basic::Trim(text).empty()) WrongUsage(std::string(option) + " must not be empty");
    return std::string(text);
}

struct OptionRow {
    std::string_view name;
    std::string_view value;  // what help calls it; empty: the option takes none
    std::string_view help;   // one line a line
    void (*apply)(Options&, std::string_view name, std::string_view value);
};

// clang-format off
constexpr OptionRow kOptions[] = {
    {"--database", "STRING", "connection string, e.g. \"Provider=Korvex.SQLite;Data Source=forest.db\";\n"
                             "without it the login dialog offers the sample database",
     [](Options& o, std::string_view name, std::string_view value) { o.database = ReadText(name, value); }},
    {"--language", "NAME", "DEUTSCH (as given when left out) or ENGLISH",
     [](Options& o, std::string_view name, std::string_view value) {
         o.language = basic::UCase(value);
         if (o.language != "DEUTSCH" && o.language != "ENGLISH")
             WrongUsage(std::string(name) + " is DEUTSCH or ENGLISH, not \"" + std::string(value) + "\"");
     }},
    {"--client", "CODE", "client code of the installation: BB, SACHSEN; none when left out",
     [](Options& o, std::string_view, std::string_view value) { o.client = value; }},
    {"--user", "ID", "ID_USER of the session; the user who logs in when left out",
     [](Options& o, std::string_view name, std::string_view value) { o.user = ReadId(name, value); }},
    {"--access-level", "ID", "access level of the session, 0 = none; the user's own when left out",
     [](Options& o, std::string_view name, std::string_view value) { o.accessLevel = ReadId(name, value); }},
    {"--oracle", "", "the database is Oracle: the stand dialogs write its dialect",
     [](Options& o, std::string_view, std::string_view) { o.oracle = true; }},
    {"--trace-sql", "FILE", "write every statement of the library to a file, one a line",
     [](Options& o, std::string_view name, std::string_view value) { o.traceFile = ReadText(name, value); }},
    {"--tour", "DIR", "open every dialog in its modes on a fresh sample database, and save a picture\n"
                      "of each and a transcript; needs no display",
     [](Options& o, std::string_view name, std::string_view value) { o.tourFolder = ReadText(name, value); }},
    {"--drive", "", "do what the messages on standard input say, one a line, and answer each on standard\n"
                    "output (docs/drive.md); needs no display",
     [](Options& o, std::string_view, std::string_view) { o.drive = true; }},
    {"--show", "", "with --drive: the dialogs open in windows at the same time",
     [](Options& o, std::string_view, std::string_view) { o.show = true; }},
    {"--help", "", "this text",
     [](Options& o, std::string_view, std::string_view) { o.help = true; }},
    {"--version", "", "version of the forms library",
     [](Options& o, std::string_view, std::string_view) { o.version = true; }},
};
// clang-format on

}  // namespace

StartError::StartError(std::string_view line, int status) : std::runtime_error(OneLine(line)), status_(status) {}

Options ParseOptions(std::span<const std::string_view> arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (!argument.starts_with("-")) WrongUsage("unexpected argument \"" + std::string(argument) + "\"");
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        const OptionRow* row = nullptr;
        for (const OptionRow& known : kOptions)
            if (known.name == name) row = &known;
        if (row == nullptr) WrongUsage("unknown option \"" + std::string(name) + "\"");

        std::string_view value;
        if (row->value.empty()) {
            if (equals != std::string_view::npos) WrongUsage(std::string(name) + " takes no value");
        } else if (equals != std::string_view::npos) {
            value = argument.substr(equals + 1);
        } else {
            // "--client --oracle" is a forgotten value, and no client of that name.
            if (i + 1 == arguments.size() || arguments[i + 1].starts_with("--"))
                WrongUsage(std::string(name) + " needs a value: " + std::string(row->value));
            value = arguments[++i];
        }
        row->apply(options, name, value);
    }
    if (!options.tourFolder.empty() && options.database.has_value())
        WrongUsage("--tour brings its own database and cannot be combined with --database");
    if (options.drive && !options.tourFolder.empty()) WrongUsage("--drive and --tour cannot be combined");
    if (options.show && !options.drive) WrongUsage("--show needs --drive");
    return options;
}

std::string HelpText()
{
    constexpr std::size_t kColumn = 26;
    std::string text = "Korvex host: opens the dialogs of the forest administration.\n\n"
                       "Usage: korvex_host [OPTION]...\n\n";
    for (const OptionRow& row : kOptions) {
        std::string head = "  " + std::string(row.name);
        if (!row.value.empty()) head += " " + std::string(row.value);
        head.resize(std::max(kColumn, head.size() + 2), ' ');
        text += head;
        for (const char character : row.help) {
            text += character;
            if (character == '\n') text += std::string(kColumn, ' ');
        }
        text += '\n';
    }
    text += "\nThe sample database is made on first use as \"korvex/sample.db\" in the user's data folder\n"
            "($XDG_DATA_HOME, else ~/.local/share); delete the file to start afresh. Its users:\n\n";
    for (const SampleUser& user : kSampleUsers) {
        std::string name(user.name);
        name.resize(12, ' ');
        text += "  " + name + std::string(user.help) + "\n";
    }
    text += "\nThe password of each is \"" + std::string(kSamplePassword) +
            "\".\n\n"
            "Exit status: 0 = all is well, 1 = it cannot start or a dialog of the tour failed, 2 = wrong options.\n";
    return text;
}

}  // namespace kvx::host
