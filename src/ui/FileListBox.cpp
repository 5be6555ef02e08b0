#include "ui/FileListBox.h"

#include "os/Files.h"
#include "ui/MemberRows.h"

#include <algorithm>

namespace kvx::ui {

FileListBox::FileListBox(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<FileListBox>& FileListBox::Members()
{
    using namespace rows;
    using T = FileListBox;
    static constexpr basic::Member<T> kRows[] = {
        ReadOnly<T, &T::FileName>("FileName"),
        ReadOnly<T, &T::FileName>(""),
        ReadWrite<T, &T::Path, &T::SetPath>("Path"),
        ReadWrite<T, &T::Pattern, &T::SetPattern>("Pattern"),
        Method<T, &T::Refresh>("Refresh"),
        ReadOnly<T, &T::ListCount>("ListCount"),
        ReadWrite<T, &T::ListIndex, &T::SetListIndex>("ListIndex"),
        {.name = "List", .get = GetAt<T, &T::List>},
    };
    static constexpr basic::MemberTable<T> kTable{"FileListBox", kRows};
    return kTable;
}

void FileListBox::Reset()
{
    Control::Reset();
    path_.clear();
    pattern_ = "*.*";
    files_.clear();
    listIndex_ = -1;
}

void FileListBox::SetPath(std::string_view path)
{
    std::vector<std::string> files = os::ListFiles(path, pattern_);
    path_ = path;
    files_ = std::move(files);
    listIndex_ = -1;
    Notify(Change::Items);
}

void FileListBox::SetPattern(std::string_view pattern)
{
    pattern_ = pattern;
    if (!path_.empty()) Refresh();
}

void FileListBox::Refresh()
{
    SetPath(std::string{path_});
}

const std::string& FileListBox::List(std::int32_t index) const
{
    static const std::string kNothing;
    return index < 0 || index >= ListCount() ? kNothing : files_[static_cast<std::size_t>(index)];
}

void FileListBox::SetListIndex(std::int32_t index)
{
    if (index < -1 || index >= ListCount()) basic::Raise(basic::kErrInvalidProperty);
    if (index == listIndex_) return;
    listIndex_ = index;
    Notify(Change::Selection);
    Click.Raise();
}

void FileListBox::UserSelectItem(std::int32_t index)
{
    if (index < 0 || index >= ListCount()) return;
    listIndex_ = index;
    Notify(Change::Selection);
    Click.Raise();
}

bool FileListBox::DefaultKeyDown(std::int16_t keyCode, std::int16_t)
{
    if (ListCount() == 0 || (keyCode != vbKeyUp && keyCode != vbKeyDown)) return false;
    SetListIndex(std::clamp(listIndex_ + (keyCode == vbKeyUp ? -1 : 1), 0, ListCount() - 1));
    return true;
}

}  // namespace kvx::ui
