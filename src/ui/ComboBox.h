#pragma once

#include "ui/ControlOf.h"
#include "ui/ItemList.h"
#include "ui/TextEdit.h"

namespace kvx::ui {

constexpr std::int16_t vbComboDropDown = 0;      ///< a text to edit, and a list
constexpr std::int16_t vbComboSimple = 1;        ///< the same with the list always open
constexpr std::int16_t vbComboDropDownList = 2;  ///< the list only

/// A text with a list to choose from. A choice raises Click, by the user and by code; edited text raises Change.
class ComboBox final : public ControlOf<ComboBox> {
public:
    ComboBox(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "ComboBox"; }
    static const basic::MemberTable<ComboBox>& Members();

    std::int16_t Style() const { return style_; }
    void SetStyle(std::int16_t style);

    const std::string& Text() const { return edit_.Text(); }
    /// With a text to edit: raises Change if it differs, and leaves ListIndex at -1. List only: chooses the item of
    /// that text (case ignored). @throws basic::Error 383: list only, and no such item
    void SetText(std::string_view text);
    std::int32_t ListIndex() const { return listIndex_; }  ///< -1 = none
    /// Chooses an item: Text follows, Click is raised on a change, Change is not.
    /// @throws basic::Error 380: out of range
    void SetListIndex(std::int32_t index);

    std::int32_t ListCount() const { return items_.Count(); }
    const std::string& List(std::int32_t index) const { return items_.Text(index); }  ///< "" out of range
    void SetList(std::int32_t index, std::string_view text);
    std::int32_t ItemData(std::int32_t index) const { return items_.Data(index); }  ///< @throws basic::Error 381
    void SetItemData(std::int32_t index, std::int32_t data) { items_.SetData(index, data); }
    std::int32_t NewIndex() const { return items_.NewIndex(); }
    void AddItem(std::string_view text, std::int32_t index = -1);
    void RemoveItem(std::int32_t index);  ///< @throws basic::Error 5
    void Clear();                         ///< items and Text; raises nothing
    bool Sorted() const { return items_.Sorted(); }
    void SetSorted(bool sorted) { items_.SetSorted(sorted); }

    std::int32_t SelStart() const { return edit_.SelStart(); }
    void SetSelStart(std::int32_t start);  ///< @throws basic::Error 380: negative
    std::int32_t SelLength() const { return edit_.SelLength(); }
    void SetSelLength(std::int32_t length);  ///< @throws basic::Error 380: negative
    std::string SelText() const { return edit_.SelText(); }
    bool Locked() const { return locked_; }
    void SetLocked(bool locked);  ///< the user can neither type nor choose; code can
    std::int32_t MaxLength() const { return maxLength_; }
    void SetMaxLength(std::int32_t length) { maxLength_ = length; }

    void Reset() override;

    // --- what the user did ---
    /// Chose an item of the list: Click on a change, then UserPicked.
    void UserPick(std::int32_t index);
    void UserEdit(std::string_view newText, std::int32_t selStart, std::int32_t selLength = 0);
    void UserSelect(std::int32_t start, std::int32_t length);
    void UserCopy();
    void UserCut();
    void UserPaste();
    void UserUndo();
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;
    bool DefaultKeyPress(std::int32_t key) override;

    ui::Event<> Change;
    ui::Event<> UserPicked;  ///< the user's choice only, after Click; code's ListIndex does not raise it
    ui::Event<> DropDown;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    void Choose(std::int32_t index);
    void Finish(const std::string& before);
    ItemList items_;
    TextEdit edit_;
    std::string undoText_;
    std::int16_t style_ = vbComboDropDown;
    std::int32_t listIndex_ = -1, maxLength_ = 0;
    bool locked_ = false;
};

}  // namespace kvx::ui
