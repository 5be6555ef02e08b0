#pragma once

#include "ui/ControlOf.h"
#include "ui/TextEdit.h"

namespace kvx::ui {

/// Text that the user can edit. Lengths and positions count characters.
class TextBox final : public ControlOf<TextBox> {
public:
    TextBox(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "TextBox"; }
    static const basic::MemberTable<TextBox>& Members();

    const std::string& Text() const { return edit_.Text(); }
    /// Cut to MaxLength; the caret goes to the start; raises Change once, if the text differs.
    void SetText(std::string_view text);

    std::int32_t SelStart() const { return edit_.SelStart(); }
    /// Past the end becomes the end; nothing is marked any more. @throws basic::Error 380: negative
    void SetSelStart(std::int32_t start);
    std::int32_t SelLength() const { return edit_.SelLength(); }
    void SetSelLength(std::int32_t length);  ///< clipped at the end. @throws basic::Error 380: negative
    std::string SelText() const { return edit_.SelText(); }
    void SetSelText(std::string_view text);  ///< replaces what is marked; raises Change

    std::int32_t MaxLength() const { return maxLength_; }  ///< 0 = no limit
    /// A text that is already there stays whole. @throws basic::Error 380: negative
    void SetMaxLength(std::int32_t length);
    bool Locked() const { return locked_; }
    void SetLocked(bool locked);  ///< the user can mark and copy, but not change; code can
    const std::string& PasswordChar() const { return passwordChar_; }
    void SetPasswordChar(std::string_view character);  ///< shown in place of every character; empty = the text itself
    bool MultiLine() const { return multiLine_; }
    void SetMultiLine(bool multiLine);
    std::int16_t ScrollBars() const { return scrollBars_; }  ///< 0 none, 1 horizontal, 2 vertical, 3 both
    void SetScrollBars(std::int16_t bars);
    std::int16_t Alignment() const { return alignment_; }  ///< 0 left, 1 right, 2 centre
    void SetAlignment(std::int16_t alignment);

    bool KeepsReturn() const override { return multiLine_; }
    void Reset() override;

    // --- what the user did ---

    /// A window that edits natively tells the text it holds now. Cut to MaxLength; a locked box takes nothing and shows
    /// its own text again; raises Change, if the text differs.
    void UserEdit(std::string_view newText, std::int32_t selStart, std::int32_t selLength = 0);
    void UserSelect(std::int32_t start, std::int32_t length);  ///< caret or mark moved; raises nothing
    void UserCopy();
    void UserCut();
    void UserPaste();
    void UserUndo();  ///< the text before the last edit; a second time takes that back
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;
    bool DefaultKeyPress(std::int32_t key) override;

    ui::Event<> Change;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    bool Finish(const std::string& before);
    TextEdit edit_;
    std::string undoText_;
    std::int32_t maxLength_ = 0;
    std::string passwordChar_;
    bool locked_ = false, multiLine_ = false;
    std::int16_t scrollBars_ = 0, alignment_ = 0;
};

}  // namespace kvx::ui
