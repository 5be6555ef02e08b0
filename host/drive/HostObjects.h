#pragma once

#include "basic/Object.h"
#include "host/drive/Json.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::host::drive {

/// The objects that a driver describes for one call: boxes and lists that are true controls of a form nobody sees, and
/// forms with members. What was described can be read back in the same shape, as it is by then.
///
///     {"object": "TextBox", "Text": "Harz"}
///     {"object": "ComboBox", "List": ["fm", "rm"], "ItemData": [1, 2], "ListIndex": 0}
///     {"object": "Form", "members": {"txtWert": [{"object": "TextBox"}], "FindWarenId": [7, 8]}, "methods": ["Fill"]}
///     {"same": "SetObj.cmbModel"}
class HostObjects {
public:
    HostObjects();
    ~HostObjects();
    HostObjects(const HostObjects&) = delete;
    HostObjects& operator=(const HostObjects&) = delete;

    /// Makes the object of a description. @param name  by which others refer to it, and its Name
    /// @throws Fault unknown-object, bad-object; basic::Error a property refuses its value
    basic::ObjectRef Make(const std::string& name, const Json& description);
    /// An object made before: "SetObj", or one of its members: "SetObj.txtWert(1)". @throws Fault unknown-object
    basic::ObjectRef Find(std::string_view path) const;
    /// Its description as it is now. @throws Fault unknown-object
    Json Describe(const std::string& name) const;
    /// All of them by name.
    Json DescribeAll() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

/// The kinds that can be described.
std::vector<std::string_view> HostObjectKinds();

/// What late binding reaches by a path from an object: "Text", "ListItems(2).SubItems(1)", "List('a')".
struct Member {
    basic::ObjectRef owner;
    std::string name;
    std::vector<basic::Variant> args;
};
/// Walks to the last member of a path. @throws Fault bad-member: no path; basic::Error on the way
Member FollowPath(basic::ObjectRef from, std::string_view path);

}  // namespace kvx::host::drive
