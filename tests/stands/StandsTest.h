#pragma once

#include "entry/c_Waldort.h"
#include "session/SiblingClasses.h"
#include "support/Scenario.h"
#include "support/Sent.h"
#include "ui/ListBox.h"
#include "ui/ProgressBar.h"
#include "ui/TextBox.h"
#include "ui/TreeView.h"
#include "ui/View.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// What the tests of the stand dialog share. Ids in tests/data/forest.sql: 1 Nord, 2 Nord/1, 3 Nord/1/a, 17 Nord/3,
// 18 Nord/3/a; Ost/5/c stands there without its parents, which the first load makes.
namespace kvx::test {

using Script = std::function<void(Dialog&)>;

/// Stand maintenance; the script is what the user does in the dialog, and must close it.
void Maintain(Scenario& s, const Script& script, bool onlyRead = false);

/// The session is Oracle's: the statements are its, the embedded database runs most of them all the same.
void BeOracle(Scenario& s);

/// Paths of all nodes below the root, in the tree's order: "Nord", "Nord/1". A grey node has a "*" behind it.
Lines Nodes(Dialog& f);

/// Key of the node as the dialog holds it, with "|" for each line break.
std::string NodeKey(Dialog& f, const Dialog::Path& path);
bool IsGrey(Dialog& f, const Dialog::Path& path);
/// Path of the selected node; "(root)", "(none)".
std::string Selected(Dialog& f);
ui::TreeView& Tree(Dialog& f);

/// Types a new label for the selected node and ends with Enter.
void Rename(Dialog& f, std::string_view text);

/// The six key boxes, joined by "|".
std::string KeyBoxes(Dialog& f);

/// Which statement of the whole log is the first that begins so, from 1: what FailStatement takes.
std::size_t PlaceOf(const Scenario& s, std::string_view start);

/// Notes every state of the dialog's progress bar: its value, or "hidden". The window that shows the bar goes on to be
/// told of its changes.
class BarWatch final : public ui::View {
public:
    ~BarWatch() override { Detach(); }
    /// From now on, at the dialog that is open or about to open.
    void Attach();
    void Detach();
    void Changed(ui::Change what) override;
    void Gone() override;

    Lines states;                        ///< a state that is the same as the one before is noted once
    std::vector<std::int32_t> pointers;  ///< the form's pointer, with each state
    bool isHundredths = true;            ///< the range was 0 to 100 all the time

private:
    ui::ProgressBar* bar_ = nullptr;
    ui::View* window_ = nullptr;
};

/// A form that stands for the host's window; its boxes are handed in late-bound.
class HostForm final : public ui::Form {
public:
    HostForm() : Form("HostForm") { Load(); }
    ui::TextBox txtWO1{*this, "txtWO1"}, txtWO2{*this, "txtWO2"}, txtWO3{*this, "txtWO3"};
    ui::TextBox txtWO4{*this, "txtWO4"}, txtWO5{*this, "txtWO5"}, txtWO6{*this, "txtWO6"};
    ui::TextBox txtLangname{*this, "txtLangname"}, txtGemarkung{*this, "txtGemarkung"};
    ui::TextBox txtFlurStuck{*this, "txtFlurStuck"}, txtParzelle{*this, "txtParzelle"};
    ui::TextBox txtFlaeche{*this, "txtFlaeche"}, txtAlter{*this, "txtAlter"}, txtWaldort{*this, "txtWaldort"};
    ui::ListBox List1{*this, "List1"};

private:
    void Design() override {}
};

}  // namespace kvx::test
