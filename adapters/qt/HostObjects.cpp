#include "adapters/qt/HostObjects.h"

#include "adapters/qt/HostObject.h"
#include "ui/Constants.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextCursor>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

using basic::Variant;

std::int32_t Whole(qsizetype value)
{
    return static_cast<std::int32_t>(value);
}

void CheckNotNegative(int value)
{
    if (value < 0) basic::Raise(basic::kErrInvalidProperty);
}

int SelectionStart(const QLineEdit& box)
{
    return box.hasSelectedText() ? box.selectionStart() : box.cursorPosition();
}

void MarkText(QPlainTextEdit& box, int start, int length)
{
    const int end = Whole(box.toPlainText().size());
    QTextCursor cursor = box.textCursor();
    cursor.setPosition(std::min(start, end));
    cursor.setPosition(std::min(start + length, end), QTextCursor::KeepAnchor);
    box.setTextCursor(cursor);
}

// clang-format off
// The default property of a text box is its text; assigning it puts the caret in front, as the classic box does.
constexpr auto kGetLine = [](QLineEdit& w, Args) -> Variant { return FromQt(w.text()); };
constexpr auto kPutLine = [](QLineEdit& w, const Variant& value, Args) { w.setText(TextOf(value)); w.setCursorPosition(0); };
constexpr basic::Member<QLineEdit> kLineEdit[] = {
    {.name = "Text", .get = kGetLine, .put = kPutLine},
    {.name = "", .get = kGetLine, .put = kPutLine},
    {.name = "SelStart",
     .get = [](QLineEdit& w, Args) -> Variant { return SelectionStart(w); },
     .put = [](QLineEdit& w, const Variant& value, Args) {
         CheckNotNegative(basic::CLng(value));
         w.deselect();
         w.setCursorPosition(std::min(basic::CLng(value), Whole(w.text().size())));
     }},
    {.name = "SelLength",
     .get = [](QLineEdit& w, Args) -> Variant { return Whole(w.selectedText().size()); },
     .put = [](QLineEdit& w, const Variant& value, Args) {
         CheckNotNegative(basic::CLng(value));
         const int start = SelectionStart(w);
         w.setSelection(start, std::min(basic::CLng(value), Whole(w.text().size()) - start));
     }},
    {.name = "SelText",
     .get = [](QLineEdit& w, Args) -> Variant { return FromQt(w.selectedText()); },
     .put = [](QLineEdit& w, const Variant& value, Args) { w.insert(TextOf(value)); }},
    {.name = "MaxLength",
     .get = [](QLineEdit& w, Args) -> Variant { return w.maxLength() >= 32767 ? 0 : w.maxLength(); },
     .put = [](QLineEdit& w, const Variant& value, Args) {
         CheckNotNegative(basic::CLng(value));
         w.setMaxLength(basic::CLng(value) == 0 ? 32767 : basic::CLng(value));
     }},
    {.name = "Locked",
     .get = [](QLineEdit& w, Args) -> Variant { return w.isReadOnly(); },
     .put = [](QLineEdit& w, const Variant& value, Args) { w.setReadOnly(basic::CBool(value)); }},
};

constexpr auto kGetLines = [](QPlainTextEdit& w, Args) -> Variant {
    return FromQt(w.toPlainText().replace(QLatin1Char('\n'), QLatin1String("\r\n")));
};
constexpr auto kPutLines = [](QPlainTextEdit& w, const Variant& value, Args) {
    w.setPlainText(TextOf(value).replace(QLatin1String("\r\n"), QLatin1String("\n")));
};
constexpr basic::Member<QPlainTextEdit> kPlainTextEdit[] = {
    {.name = "Text", .get = kGetLines, .put = kPutLines},
    {.name = "", .get = kGetLines, .put = kPutLines},
    {.name = "SelStart",
     .get = [](QPlainTextEdit& w, Args) -> Variant { return w.textCursor().selectionStart(); },
     .put = [](QPlainTextEdit& w, const Variant& value, Args) {
         CheckNotNegative(basic::CLng(value));
         MarkText(w, basic::CLng(value), 0);
     }},
    {.name = "SelLength",
     .get = [](QPlainTextEdit& w, Args) -> Variant {
         return w.textCursor().selectionEnd() - w.textCursor().selectionStart();
     },
     .put = [](QPlainTextEdit& w, const Variant& value, Args) {
         CheckNotNegative(basic::CLng(value));
         MarkText(w, w.textCursor().selectionStart(), basic::CLng(value));
     }},
    {.name = "SelText",
     .get = [](QPlainTextEdit& w, Args) -> Variant { return FromQt(w.textCursor().selectedText()); },
     .put = [](QPlainTextEdit& w, const Variant& value, Args) { w.insertPlainText(TextOf(value)); }},
    {.name = "Locked",
     .get = [](QPlainTextEdit& w, Args) -> Variant { return w.isReadOnly(); },
     .put = [](QPlainTextEdit& w, const Variant& value, Args) { w.setReadOnly(basic::CBool(value)); }},
};

constexpr auto kGetLabel = [](QLabel& w, Args) -> Variant { return FromQt(w.text()); };
constexpr auto kPutLabel = [](QLabel& w, const Variant& value, Args) { w.setText(TextOf(value)); };
constexpr basic::Member<QLabel> kLabel[] = {
    {.name = "Caption", .get = kGetLabel, .put = kPutLabel},
    {.name = "", .get = kGetLabel, .put = kPutLabel},
};

constexpr auto kGetCaption = [](QAbstractButton& w, Args) -> Variant { return FromQt(w.text()); };
constexpr auto kPutCaption = [](QAbstractButton& w, const Variant& value, Args) { w.setText(TextOf(value)); };
constexpr basic::Member<QAbstractButton> kPushButton[] = {
    {.name = "Caption", .get = kGetCaption, .put = kPutCaption},
};
constexpr basic::Member<QAbstractButton> kCheckBox[] = {
    {.name = "Caption", .get = kGetCaption, .put = kPutCaption},
    {.name = "Value",
     .get = [](QAbstractButton& w, Args) -> Variant { return std::int16_t{w.isChecked()}; },
     .put = [](QAbstractButton& w, const Variant& value, Args) {
         const std::int32_t number = basic::CLng(value);
         if (number < 0 || number > 2) basic::Raise(basic::kErrInvalidProperty);
         w.setChecked(number != 0);
     }},
};
constexpr basic::Member<QAbstractButton> kRadioButton[] = {
    {.name = "Caption", .get = kGetCaption, .put = kPutCaption},
    {.name = "Value",
     .get = [](QAbstractButton& w, Args) -> Variant { return w.isChecked(); },
     .put = [](QAbstractButton& w, const Variant& value, Args) { w.setChecked(basic::CBool(value)); }},
};
// clang-format on

// Elements of a control array, counted from 0.
class HostArray final : public basic::Object {
public:
    explicit HostArray(std::vector<basic::ObjectRef> elements) : elements_(std::move(elements)) {}

    std::string TypeName() const override { return "Object"; }
    Variant Get(std::string_view member, Args args) override;
    void Put(std::string_view member, const Variant& value, Args args) override;
    Variant Call(std::string_view member, std::span<Variant> args) override;

    const std::vector<basic::ObjectRef>& Elements() const { return elements_; }
    std::int32_t Count() const { return Whole(std::ssize(elements_)); }

private:
    std::vector<basic::ObjectRef> elements_;
};

// clang-format off
constexpr auto kGetElement = [](HostArray& array, Args args) -> Variant {
    const int index = IndexOf(args);
    if (index < 0 || index >= array.Count()) basic::Raise(basic::kErrControlArrayElement);
    return array.Elements()[static_cast<std::size_t>(index)];
};
constexpr basic::Member<HostArray> kArray[] = {
    {.name = "LBound", .get = [](HostArray&, Args) -> Variant { return std::int16_t{0}; }},
    {.name = "UBound", .get = [](HostArray& array, Args) -> Variant { return array.Count() - 1; }},
    {.name = "Count", .get = [](HostArray& array, Args) -> Variant { return array.Count(); }},
    {.name = "Item", .get = kGetElement},
    {.name = "", .get = kGetElement},
};
constexpr basic::MemberTable<HostArray> kArrayMembers{"Object", kArray};
// clang-format on

Variant HostArray::Get(std::string_view member, Args args)
{
    return kArrayMembers.Get(*this, member, args);
}

void HostArray::Put(std::string_view member, const Variant& value, Args args)
{
    kArrayMembers.Put(*this, member, value, args);
}

Variant HostArray::Call(std::string_view member, std::span<Variant> args)
{
    return kArrayMembers.Call(*this, member, args);
}

}  // namespace

basic::ObjectRef Wrap(QLineEdit* widget)
{
    if (widget == nullptr) return {};
    return std::make_shared<HostObject<QLineEdit>>(widget, "TextBox", kLineEdit);
}

basic::ObjectRef Wrap(QPlainTextEdit* widget)
{
    if (widget == nullptr) return {};
    return std::make_shared<HostObject<QPlainTextEdit>>(widget, "TextBox", kPlainTextEdit);
}

basic::ObjectRef Wrap(QLabel* widget)
{
    if (widget == nullptr) return {};
    return std::make_shared<HostObject<QLabel>>(widget, "Label", kLabel);
}

basic::ObjectRef Wrap(QAbstractButton* widget)
{
    using Wrapper = HostObject<QAbstractButton>;
    if (widget == nullptr) return {};
    if (qobject_cast<QCheckBox*>(widget) != nullptr) return std::make_shared<Wrapper>(widget, "CheckBox", kCheckBox);
    if (qobject_cast<QRadioButton*>(widget) != nullptr)
        return std::make_shared<Wrapper>(widget, "OptionButton", kRadioButton);
    return std::make_shared<Wrapper>(widget, "CommandButton", kPushButton);
}

basic::ObjectRef WrapArray(std::vector<basic::ObjectRef> elements)
{
    return std::make_shared<HostArray>(std::move(elements));
}

}  // namespace kvx::adapters::qt
