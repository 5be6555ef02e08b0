#pragma once

#include "basic/Error.h"
#include "basic/Object.h"
#include "host/Session.h"
#include "host/Words.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Every public operation of the library, as the host calls it: once a row, for the menu and for the tour.
namespace kvx::host {

/// The host's own boxes, handed to the operations as late-bound objects.
struct Boxes {
    std::array<basic::ObjectRef, 6> txtWO;
    basic::ObjectRef txtLangname, txtGemarkung, txtFlurstueck, txtParzelle, txtFlaeche, txtAlter, txtHolzart;
    basic::ObjectRef txtAuftragWaldort, txtAuftragId, txtAuftragFlaeche;  ///< stand of a work order
    basic::ObjectRef lstWaldorte;                                         ///< stands picked into a list
    basic::ObjectRef cmbWert, txtWert;                                    ///< a value to choose from a list
};

/// What the user sets for the calls that follow.
struct Arguments {
    std::int32_t ID_AL = 0;            ///< access level whose stands are offered
    std::int32_t ID_WALDORT_Root = 0;  ///< only this subtree
    std::string strProtokolPath;       ///< protocol file of the tables; empty = none
};

/// Name of what a call returned, among the lines of its outcome.
constexpr std::string_view kResult = "(result)";

/// What came back from one call.
struct Outcome {
    struct Line {
        std::string name;           ///< argument, kResult for what the call returned
        std::string before, after;  ///< a result has nothing before
    };
    std::string operation;  ///< "c_Waldort.Waldort"
    std::vector<Line> lines;
    std::optional<basic::Error> error;  ///< the call failed so

    void Result(std::string_view value);
    void ByReference(std::string_view name, std::string_view before, std::string_view after);
};

struct Operation;

/// One call in the making.
struct Call {
    const Session& session;
    const Boxes& boxes;
    const Arguments& arguments;
    bool english;
    /// Asks the user for a file to show; empty = none was chosen.
    std::function<std::string()> askFile;
    /// Connects anew with what the login dialog gave; empty = the host cannot.
    std::function<void(const std::string& connectionString)> reconnect;
    Outcome outcome = {};
    const Operation* operation = nullptr;
};

struct Operation {
    Words menu;  ///< the menu that it stands in, with its letter
    std::string_view className, method;
    Words caption;              ///< with its letter
    std::string_view shortcut;  ///< "F2"; empty = none
    Words help;                 ///< for the status bar
    void (*run)(Call& call);
    std::int32_t textId = 0;  ///< chooses the list, where one method serves several

    std::string Name() const { return std::string(className) + "." + std::string(method); }
};

/// In the order of the menus.
std::span<const Operation> Operations();

/// The first operation of that name; a method that stands in the table several times differs by its caption.
/// @return nullptr when there is none
const Operation* FindOperation(std::string_view name);

/// Runs it. An error of the library ends up in the outcome.
Outcome Perform(const Operation& operation, Call call);

/// "438", "-2147217900 (80040E14)".
std::string ErrorNumberText(std::int32_t number);

}  // namespace kvx::host
