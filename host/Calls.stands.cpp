#include "host/Calls.h"

#include "basic/Convert.h"
#include "entry/c_Waldort.h"

namespace kvx::host::calls {

namespace {

// A box that the library fills: what it held before and holds now.
class Watched {
public:
    Watched(std::string_view name, basic::ObjectRef box, std::string_view member = "Text")
        : name_(name), member_(member), box_(std::move(box)), before_(Read())
    {
    }
    void Tell(Outcome& outcome) const { outcome.ByReference(name_, before_, Read()); }

private:
    std::string Read() const { return box_ == nullptr ? std::string() : basic::ToText(box_->Get(member_)); }
    std::string name_, member_;
    basic::ObjectRef box_;
    std::string before_;
};

}  // namespace

void Waldort(Call& call)
{
    const Boxes& b = call.boxes;
    std::vector<Watched> watched;
    for (std::size_t i = 0; i < b.txtWO.size(); ++i)
        watched.emplace_back("txtWO" + std::to_string(i + 1), b.txtWO[i]);
    watched.emplace_back("txtWOLangname", b.txtLangname);
    watched.emplace_back("txtGemarkung", b.txtGemarkung);
    watched.emplace_back("txtFlurStuck", b.txtFlurstueck);
    watched.emplace_back("txtParzelle", b.txtParzelle);
    watched.emplace_back("txtFlaeche", b.txtFlaeche);
    watched.emplace_back("txtAlter", b.txtAlter);
    std::int32_t ID_AL = call.arguments.ID_AL, ID_WALDORT_Root = call.arguments.ID_WALDORT_Root;
    const std::string before = TextOf(b.txtHolzart);
    std::string strHolzart = before;
    c_Waldort().Waldort(call.session.kvxvar, b.txtWO[0], b.txtWO[1], b.txtWO[2], b.txtWO[3], b.txtWO[4], b.txtWO[5],
                        ID_AL, b.txtLangname, b.txtGemarkung, b.txtFlurstueck, b.txtParzelle, b.txtFlaeche, b.txtAlter,
                        strHolzart, "", 0, ID_WALDORT_Root);
    SetText(b.txtHolzart, strHolzart);
    for (const Watched& box : watched)
        box.Tell(call.outcome);
    call.outcome.ByReference("strHolzart", before, strHolzart);
    call.outcome.ByReference("ID_AL", std::to_string(call.arguments.ID_AL), std::to_string(ID_AL));
    call.outcome.ByReference("ID_WALDORT_Root", std::to_string(call.arguments.ID_WALDORT_Root),
                             std::to_string(ID_WALDORT_Root));
}

void WaldortMaintain(Call& call)
{
    c_Waldort().WaldortSimple(call.session.kvxvar, 0, call.arguments.ID_AL, 0, call.arguments.ID_WALDORT_Root);
}

void WaldortView(Call& call)
{
    c_Waldort().WaldortSimple(call.session.kvxvar, 0, call.arguments.ID_AL, -1, call.arguments.ID_WALDORT_Root);
}

void WaldortPrint(Call& call)
{
    c_Waldort().WaldortSimple(call.session.kvxvar, -1, call.arguments.ID_AL, 0, call.arguments.ID_WALDORT_Root);
}

void WaldortIdOne(Call& call)
{
    std::string strWO;
    const std::int32_t id = c_Waldort().WaldortId(call.session.kvxvar, strWO, call.arguments.ID_AL,
                                                  call.arguments.ID_WALDORT_Root, nullptr);
    call.outcome.Result(std::to_string(id));
    call.outcome.ByReference("strWO", "", strWO);
}

void WaldortIdList(Call& call)
{
    basic::Object& list = basic::Deref(call.boxes.lstWaldorte);
    const std::string before = basic::ToText(list.Get("ListCount"));
    std::string strWO;
    const std::int32_t id = c_Waldort().WaldortId(call.session.kvxvar, strWO, call.arguments.ID_AL,
                                                  call.arguments.ID_WALDORT_Root, call.boxes.lstWaldorte);
    call.outcome.Result(std::to_string(id));
    call.outcome.ByReference("strWO", "", strWO);
    call.outcome.ByReference("ListBox1.ListCount", before, basic::ToText(list.Get("ListCount")));
}

void WaldortArbeits(Call& call)
{
    const Boxes& b = call.boxes;
    const Watched text("txtWaldort.Text", b.txtAuftragWaldort);
    const Watched tag("txtWaldort.Tag", b.txtAuftragWaldort, "Tag");
    const std::string idBefore = TextOf(b.txtAuftragId), areaBefore = TextOf(b.txtAuftragFlaeche);
    auto id = static_cast<std::int32_t>(basic::ReadVal(idBefore));
    std::string area = areaBefore;
    c_Waldort().WaldortArbeits(call.session.kvxvar, b.txtAuftragWaldort, id, area, call.arguments.ID_AL,
                               call.arguments.ID_WALDORT_Root);
    SetText(b.txtAuftragId, std::to_string(id));
    SetText(b.txtAuftragFlaeche, area);
    text.Tell(call.outcome);
    tag.Tell(call.outcome);
    call.outcome.ByReference("intWaldortId", idBefore, std::to_string(id));
    call.outcome.ByReference("txtFlaeche", areaBefore, area);
}

void Waldort_ID(Call& call)
{
    std::array<std::string, 6> key;
    for (std::size_t i = 0; i < key.size(); ++i)
        key[i] = TextOf(call.boxes.txtWO[i]);
    std::int32_t ID_AL = call.arguments.ID_AL;
    const std::int32_t id =
        c_Waldort().Waldort_ID(call.session.kvxvar, ID_AL, key[0], key[1], key[2], key[3], key[4], key[5]);
    call.outcome.Result(std::to_string(id));
    call.outcome.ByReference("ID_AL", std::to_string(call.arguments.ID_AL), std::to_string(ID_AL));
}

}  // namespace kvx::host::calls
