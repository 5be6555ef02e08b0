#include "host/Calls.h"

#include "basic/Text.h"
#include "entry/c_Tabellen2.h"

namespace kvx::host::calls {

namespace {

// The list's name in the protocol: what its menu entry says.
std::string NameOf(const Operation& operation, bool english)
{
    const std::string caption = basic::Replace(operation.caption.In(english), "&", "");
    return basic::Replace(caption, " …", "");
}

void EditOrPrint(Call& call, std::int16_t bolPrint)
{
    const std::string before = call.arguments.strProtokolPath;
    std::string strProtokolPath = before;
    const basic::Variant saved =
        c_Tabellen2().Tabellen2(call.session.kvxvar, NameOf(*call.operation, call.english), strProtokolPath,
                                call.operation->textId, bolPrint, call.session.userName);
    call.outcome.Result(basic::ToText(saved));
    call.outcome.ByReference("strProtokolPath_dll", before, strProtokolPath);
}

}  // namespace

void Tabellen2(Call& call)
{
    EditOrPrint(call, 0);
}

void Tabellen2Print(Call& call)
{
    EditOrPrint(call, -1);
}

}  // namespace kvx::host::calls
