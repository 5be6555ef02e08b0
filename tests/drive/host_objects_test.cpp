#include "basic/Convert.h"
#include "basic/Error.h"
#include "drive/Drive.h"
#include "host/drive/HostObjects.h"

#include <set>

// Objects of the host: described, used by late binding, described again.
namespace kvx {

using namespace test;
using host::drive::Fault;
using host::drive::FollowPath;
using host::drive::HostObjectKinds;
using host::drive::HostObjects;

namespace {

const std::vector<const char*> kDescriptions = {
    R"({"object":"TextBox","Text":"Harz","Tag":"7","MaxLength":10,"Locked":true})",
    R"({"object":"Label","Caption":"Fläche","Tag":""})",
    R"({"object":"CheckBox","Caption":"an","Value":1,"Tag":""})",
    R"({"object":"OptionButton","Caption":"so","Value":true,"Tag":""})",
    R"({"object":"CommandButton","Caption":"&Ok","Tag":"","Enabled":false,"Visible":false})",
    R"({"object":"DTPicker","Value":{"date":"2024-05-15T10:30:00"},"Tag":""})",
    R"({"object":"ComboBox","List":["fm","rm"],"ItemData":[1,2],"Text":"rm","ListIndex":1,"Tag":"t","Style":2})",
    R"({"object":"ListBox","List":["a","b","c"],"ItemData":[5,6,7],"SelectedItems":[0,2],"ListIndex":2,"Tag":"","MultiSelect":2})",
    R"({"object":"ListView","ColumnHeaders":[{"Key":"C001","Text":"Name","Width":1200,"Tag":""},{"Key":"C002","Text":"Wert","Width":300,"Tag":"w"}],"ListItems":[{"Key":"K1","Text":"Buche","SubItems":["10"],"Checked":true,"Selected":false,"Tag":"x"}],"Tag":"","Checkboxes":true})",
    R"({"object":"TreeView","Nodes":[{"Key":"A","Text":"Wald","Checked":false,"Expanded":true,"Bold":true,"Tag":"t","Nodes":[{"Key":"B","Text":"Nord","Checked":true,"Expanded":false,"Bold":false,"Tag":"","Nodes":[]}]}],"Tag":"","Checkboxes":true})",
    R"({"object":"Form","members":{"txtWert":[{"object":"TextBox","Text":"1","Tag":""},{"object":"TextBox","Text":"2","Tag":""}],"FindWarenId":[7,8],"List2":{"object":"ListBox","List":["a"],"ItemData":[1],"ListIndex":-1,"Tag":""},"Titel":"t"},"methods":["FillFields"],"calls":[]})",
};

}  // namespace

TEST(DriveObjects, EveryKindComesBackAsItWasDescribed)
{
    Scenario world;
    std::set<std::string> seen;
    for (const char* text : kDescriptions) {
        const Json description = Json::parse(text);
        HostObjects objects;
        ASSERT_NE(objects.Make("box", description), nullptr);
        const Json back = objects.Describe("box");
        EXPECT_EQ(nlohmann::json(back), nlohmann::json(description)) << back;
        HostObjects again;
        again.Make("box", back);
        EXPECT_EQ(nlohmann::json(again.Describe("box")), nlohmann::json(description));
        seen.insert(description["object"].get<std::string>());
    }
    seen.insert("Array");  // below
    for (const std::string_view kind : HostObjectKinds())
        EXPECT_TRUE(seen.contains(std::string(kind))) << kind;
}

TEST(DriveObjects, AControlArrayComesBackElementByElement)
{
    Scenario world;
    HostObjects objects;
    const basic::ObjectRef array = objects.Make(
        "txt", Json::parse(R"({"object":"Array","items":[{"object":"TextBox","Tag":"3"},{"object":"TextBox"}]})"));
    EXPECT_EQ(basic::CLng(array->Get("UBound")), 1);
    const basic::Variant one = std::int32_t{1};
    array->Get("Item", {&one, 1}).ToObject()->Put("Text", "neu");
    const Json back = objects.Describe("txt");
    EXPECT_EQ(back[0]["Tag"], "3");
    EXPECT_EQ(back[1]["Text"], "neu");
}

TEST(DriveObjects, TheLibraryUsesThemAsItUsesAHostsOwn)
{
    Scenario world;
    HostObjects objects;
    const basic::ObjectRef list = objects.Make("list", {{"object", "ListBox"}});
    std::vector<basic::Variant> args{"Nord"};
    list->Call("AddItem", args);
    const basic::Variant index = list->Get("NewIndex");
    list->Put("ItemData", std::int32_t{17}, {&index, 1});
    EXPECT_EQ(objects.Describe("list")["ItemData"].dump(), "[17]");
    try {
        list->Get("Farbe");
        ADD_FAILURE() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, basic::kErrMemberNotFound);
    }
}

TEST(DriveObjects, AFormHasIndexedMembersAndNotesItsCalls)
{
    Scenario world;
    HostObjects objects;
    const basic::ObjectRef form = objects.Make("form", Json::parse(kDescriptions.back()));
    const basic::Variant one = std::int32_t{1}, nine = std::int32_t{9};
    EXPECT_EQ(basic::CLng(form->Get("findwarenid", {&one, 1})), 8);
    EXPECT_EQ(basic::ToText(form->Get("txtWert", {&one, 1}).ToObject()->Get("Text")), "2");
    form->Put("FindWarenId", std::int32_t{88}, {&one, 1});
    form->Put("Titel", "neu");
    std::vector<basic::Variant> args{std::int32_t{0}, "x"};
    form->Call("FillFields", args);
    const Json back = objects.Describe("form");
    EXPECT_EQ(back["members"]["FindWarenId"].dump(), "[7,88]");
    EXPECT_EQ(back["members"]["Titel"], "neu");
    EXPECT_EQ(back["calls"].dump(), R"([["FillFields",0,"x"]])");
    for (const auto& [member, number] :
         {std::pair{"Fehlt", 438}, std::pair{"FindWarenId", 9}, std::pair{"txtWert", 340}}) {
        try {
            form->Get(member, {&nine, 1});
            ADD_FAILURE() << member;
        } catch (const basic::Error& error) {
            EXPECT_EQ(error.Number, number) << member;
        }
    }
}

TEST(DriveObjects, OneObjectCanBeAMemberOfAnother)
{
    Scenario world;
    HostObjects objects;
    objects.Make("SetObj", Json::parse(kDescriptions.back()));
    objects.Find("SetObj.List2")->Put("Tag", "t");
    objects.Find("SetObj.txtWert(1)")->Put("Text", "drei");
    const Json back = objects.Describe("SetObj");
    EXPECT_EQ(back["members"]["List2"]["Tag"], "t");
    EXPECT_EQ(back["members"]["txtWert"][1]["Text"], "drei");
    EXPECT_THROW(objects.Find("Other"), Fault);
}

TEST(DriveObjects, AnObjectThatTheLibraryKeepsOutlivesTheCall)
{
    Scenario world;
    basic::ObjectRef form;
    {
        HostObjects objects;
        form = objects.Make("form", Json::parse(kDescriptions.back()));
    }
    EXPECT_EQ(basic::ToText(form->Get("Titel")), "t");
    form->Get("List2").ToObject()->Put("Tag", "still there");
}

TEST(DriveObjects, WrongDescriptionsAreNamed)
{
    Scenario world;
    for (const char* text :
         {R"({"object":"Slider"})", R"({"Text":"x"})", R"([])", R"({"object":"ListBox","List":"a"})",
          R"({"object":"Form","boxes":{}})", R"({"object":"Array","items":[]})", R"({"object":"Array"})",
          R"({"object":"Array","items":[3]})", R"({"object":"TreeView","Nodes":3})"}) {
        HostObjects objects;
        EXPECT_THROW(objects.Make("box", Json::parse(text)), Fault) << text;
    }
    HostObjects objects;
    EXPECT_THROW(objects.Make("box", Json::parse(R"({"object":"ListBox","List":["a"],"ItemData":[1,2]})")),
                 basic::Error);
    EXPECT_THROW(objects.Describe("none"), Fault);
}

}  // namespace kvx
