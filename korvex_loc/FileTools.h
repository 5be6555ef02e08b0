#pragma once

#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Protocol file, INI file and picture formats.
class FileTools final : public c_FileTools {
public:
    /// One line: time of the desktop's clock ("2024-05-31 14:03:07"), action, object, word and user, a tab between
    /// them. An empty path writes nothing: the host keeps no protocol.
    void WriteProtocol(std::string_view action, std::string_view object, std::string_view word,
                       std::string_view userName, std::string_view path) override;

    /// The key of any section, the first that has it; case is ignored.
    /// @return without blanks and quotes around it; the default text when file or key is missing
    /// @throws basic::Error 70, 75: the file is there and cannot be read
    std::string ReadIni(std::string_view key, std::string_view defaultText, std::string_view iniPath) override;

    /// @return element 0: a pattern of all formats for file lists ("*.jpg;*.png"); from 1 on the file extensions, the
    ///         usual one first. The INI key IMAGEFORMATS ("png,jpg") replaces the built-in list
    std::vector<std::string> ImageFormats(std::string_view appPath, std::string_view iniFile) override;
};

} // namespace kvx::loc
