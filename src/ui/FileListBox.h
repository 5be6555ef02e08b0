#pragma once

#include "ui/ControlOf.h"

#include <vector>

namespace kvx::ui {

/// The files of a folder that match a pattern, sorted by name.
class FileListBox final : public ControlOf<FileListBox> {
public:
    FileListBox(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "FileListBox"; }
    static const basic::MemberTable<FileListBox>& Members();

    const std::string& Path() const { return path_; }
    void SetPath(std::string_view path);  ///< reads the folder. @throws basic::Error 76: no such folder
    const std::string& Pattern() const { return pattern_; }
    void SetPattern(std::string_view pattern);  ///< "*.doc;*.txt"; case is ignored, "*.*" is every file
    void Refresh();
    std::int32_t ListCount() const { return static_cast<std::int32_t>(files_.size()); }
    const std::string& List(std::int32_t index) const;  ///< file name; "" out of range
    std::int32_t ListIndex() const { return listIndex_; }
    void SetListIndex(std::int32_t index);  ///< raises Click on a change. @throws basic::Error 380
    std::string FileName() const { return List(listIndex_); }

    void Reset() override;
    void UserSelectItem(std::int32_t index);
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    std::string path_, pattern_ = "*.*";
    std::vector<std::string> files_;
    std::int32_t listIndex_ = -1;
};

}  // namespace kvx::ui
