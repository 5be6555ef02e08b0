#include "ui/TreeStore.h"

#include <bit>
#include <functional>

// Keys of a tree and how nodes are found by them.
namespace kvx::ui {

void TreeStore::SetPathKeys(std::string_view rootKey, std::string_view prefix, std::string_view separator)
{
    pathKeys_ = !separator.empty();
    rootKey_ = rootKey;
    prefix_ = prefix;
    separator_ = separator;
}

bool TreeStore::DerivesKeys(std::uint32_t parent) const
{
    return pathKeys_ && parent != kNone && HasKey(parent);
}

// What the keys of the children begin with, ahead of the separator.
std::string TreeStore::KeyBase(std::uint32_t parent) const
{
    if ((At(parent).flags & kKeyStored) != 0 && keys_.at(parent) == rootKey_) return prefix_;
    return Key(parent);
}

std::string_view TreeStore::KeyPart(std::uint32_t id) const
{
    const std::uint16_t flags = At(id).flags;
    if ((flags & kHasKey) == 0) return {};
    return (flags & (kKeyStored | kPartApart)) != 0 ? std::string_view{keys_.at(id)} : Text(id);
}

std::string TreeStore::Key(std::uint32_t id) const
{
    if (!HasKey(id)) return {};
    std::vector<std::uint32_t> chain;
    while ((At(id).flags & kKeyStored) == 0) {
        chain.push_back(id);
        id = At(id).parent;
    }
    const std::string& whole = keys_.at(id);
    std::string key = !chain.empty() && whole == rootKey_ ? prefix_ : whole;
    for (auto node = chain.rbegin(); node != chain.rend(); ++node)
        key.append(separator_).append(KeyPart(*node));
    return key;
}

bool TreeStore::SplitKey(std::uint32_t parent, std::string_view key, std::string_view& part) const
{
    if (!DerivesKeys(parent)) return false;
    const std::string base = KeyBase(parent) + separator_;
    if (!key.starts_with(base)) return false;
    part = key.substr(base.size());
    return true;
}

// The node has no part apart and no stored key yet.
void TreeStore::StorePart(std::uint32_t id, std::string_view part)
{
    Record& node = At(id);
    node.flags |= kHasKey;
    if (part == texts_.At(node.text)) return;
    keys_[id] = std::string{part};
    node.flags |= kPartApart;
}

std::uint32_t TreeStore::AppendChild(std::uint32_t parent, std::string_view part, std::string_view text)
{
    if (!DerivesKeys(parent)) {
        if (FindKey(part) != kNone) return kNone;
        const std::uint32_t id = Insert(parent, kNone, text);
        SetKey(id, part);
        return id;
    }
    // Only where a key may be spelled in two ways (a stored key below the root, a separator inside a part) can another
    // parent's child have it.
    if (part.find(separator_) != std::string_view::npos) separatorInParts_ = true;
    if (wholeKeys_ > 1 || separatorInParts_) {
        if (FindKey(KeyBase(parent).append(separator_).append(part)) != kNone) return kNone;
    }
    bool rising = true;
    if (At(parent).count > 0) {
        rising = (At(parent).flags & kRising) != 0;
        const int order = rising ? part.compare(KeyPart(LastChild(parent))) : 0;
        if (rising && order == 0) return kNone;
        rising = order > 0;
        if (!rising && FindPart(parent, part) != kNone) return kNone;
    }
    const std::uint32_t id = Make(text);
    Link(id, parent, kNone);
    StorePart(id, part);
    Record& above = At(parent);
    above.flags = static_cast<std::uint16_t>(rising ? above.flags | kRising : above.flags & ~kRising);
    Index(id);
    return id;
}

bool TreeStore::SetKey(std::uint32_t id, std::string_view key)
{
    if (!key.empty()) {
        const std::uint32_t owner = FindKey(key);
        if (owner == id) return true;
        if (owner != kNone) return false;
    }
    Unindex(id);
    Record& node = At(id);
    if ((node.flags & kKeyStored) != 0) --wholeKeys_;
    if ((node.flags & (kKeyStored | kPartApart)) != 0) keys_.erase(id);
    node.flags &= static_cast<std::uint16_t>(~(kHasKey | kKeyStored | kPartApart));
    ParentRecord(node.parent).flags &= static_cast<std::uint16_t>(~kRising);
    std::string_view part;
    if (key.empty()) return true;
    if (SplitKey(node.parent, key, part)) {
        if (part.find(separator_) != std::string_view::npos) separatorInParts_ = true;
        StorePart(id, part);
    } else {
        keys_[id] = std::string{key};
        node.flags |= kHasKey | kKeyStored;
        ++wholeKeys_;
    }
    Index(id);
    return true;
}

bool TreeStore::SetKeyPart(std::uint32_t id, std::string_view part)
{
    const std::uint32_t parent = At(id).parent;
    return SetKey(id, DerivesKeys(parent) ? KeyBase(parent).append(separator_).append(part) : std::string{part});
}

// --- look-up ---

std::uint64_t TreeStore::Hash(std::uint32_t parent, std::string_view part)
{
    std::uint64_t hash = std::hash<std::string_view>{}(part) ^ (std::uint64_t{parent} * 0x9E3779B97F4A7C15u);
    hash ^= hash >> 32;
    hash *= 0xD6E8FEB86659FD93u;
    return hash ^ (hash >> 32);
}

std::uint64_t TreeStore::HashOf(std::uint32_t id) const
{
    return Hash((At(id).flags & kKeyStored) != 0 ? kWholeKey : At(id).parent, KeyPart(id));
}

void TreeStore::BuildIndex() const
{
    if (!index_.empty()) return;
    // Between a third and two thirds full.
    const std::size_t wanted = std::bit_ceil(static_cast<std::size_t>(live_) * 3 / 2 + 16);
    index_.assign(wanted, kFree);
    indexed_ = indexGone_ = 0;
    for (std::uint32_t id = 0; id < made_; ++id)
        if ((At(id).flags & (kRemoved | kHasKey)) == kHasKey) Index(id);
}

void TreeStore::Index(std::uint32_t id) const
{
    if (index_.empty()) return;
    if ((std::size_t{indexed_} + indexGone_ + 1) * 4 > index_.size() * 3) {
        index_ = {};   // given back ahead of the larger one, so that the two never stand side by side
        BuildIndex();  // finds this node too
        return;
    }
    const std::size_t mask = index_.size() - 1;
    std::size_t slot = HashOf(id) & mask;
    while (index_[slot] != kFree && index_[slot] != kGone)
        slot = (slot + 1) & mask;
    if (index_[slot] == kGone) --indexGone_;
    index_[slot] = id;
    ++indexed_;
}

void TreeStore::Unindex(std::uint32_t id)
{
    if (index_.empty() || !HasKey(id)) return;
    const std::size_t mask = index_.size() - 1;
    for (std::size_t slot = HashOf(id) & mask; index_[slot] != kFree; slot = (slot + 1) & mask) {
        if (index_[slot] != id) continue;
        index_[slot] = kGone;
        --indexed_;
        ++indexGone_;
        return;
    }
}

// The node with this part below the parent, or with this whole key. The look-up must have been built.
std::uint32_t TreeStore::Probe(std::uint32_t parent, std::string_view part) const
{
    const std::size_t mask = index_.size() - 1;
    for (std::size_t slot = Hash(parent, part) & mask; index_[slot] != kFree; slot = (slot + 1) & mask) {
        const std::uint32_t id = index_[slot];
        if (id == kGone) continue;
        const bool whole = (At(id).flags & kKeyStored) != 0;
        if (whole != (parent == kWholeKey) || (!whole && At(id).parent != parent)) continue;
        if (KeyPart(id) == part) return id;
    }
    return kNone;
}

// The index is built when looking through siblings has cost as much as building it: a single rename or insert in a
// large tree stays local, and a long series of look-ups gets its index.
std::uint32_t TreeStore::FindPart(std::uint32_t parent, std::string_view part) const
{
    constexpr std::uint64_t kFewSteps = 4096;
    if (index_.empty() && walked_ <= made_ + kFewSteps) {
        for (std::uint32_t child = FirstChild(parent); child != kNone; child = At(child).next) {
            ++walked_;
            const Record& node = At(child);
            if ((node.flags & (kHasKey | kKeyStored)) == kHasKey && KeyPart(child) == part) return child;
        }
        return kNone;
    }
    BuildIndex();
    return Probe(parent, part);
}

std::uint32_t TreeStore::FindWhole(std::string_view key) const
{
    constexpr std::size_t kFewKeys = 64;
    if (index_.empty() && keys_.size() <= kFewKeys) {
        for (const auto& [id, own] : keys_)
            if (own == key && (At(id).flags & kKeyStored) != 0) return id;
        return kNone;
    }
    BuildIndex();
    return Probe(kWholeKey, key);
}

std::uint32_t TreeStore::Descend(std::uint32_t parent, std::string_view rest) const
{
    std::size_t cut = rest.find(separator_);
    while (cut != std::string_view::npos) {
        const std::uint32_t child = FindPart(parent, rest.substr(0, cut));
        const std::uint32_t found = child == kNone ? kNone : Descend(child, rest.substr(cut + separator_.size()));
        if (found != kNone || !separatorInParts_) return found;
        cut = rest.find(separator_, cut + 1);
    }
    return FindPart(parent, rest);
}

std::uint32_t TreeStore::FindKey(std::string_view key) const
{
    if (key.empty()) return kNone;
    const std::uint32_t whole = FindWhole(key);
    if (whole != kNone || !pathKeys_) return whole;
    if (key.starts_with(prefix_) && key.substr(prefix_.size()).starts_with(separator_)) {
        const std::uint32_t root = FindWhole(rootKey_);
        if (root != kNone) {
            const std::uint32_t found = Descend(root, key.substr(prefix_.size() + separator_.size()));
            if (found != kNone) return found;
        }
    }
    if (wholeKeys_ < 2) return kNone;
    for (std::size_t cut = key.find(separator_); cut != std::string_view::npos; cut = key.find(separator_, cut + 1)) {
        const std::string_view base = key.substr(0, cut);
        const std::uint32_t above = base == rootKey_ ? kNone : FindWhole(base);
        const std::uint32_t found = above == kNone ? kNone : Descend(above, key.substr(cut + separator_.size()));
        if (found != kNone) return found;
    }
    return kNone;
}

std::uint32_t TreeStore::FindChild(std::uint32_t parent, std::string_view part) const
{
    if (DerivesKeys(parent)) return FindPart(parent, part);
    const std::uint32_t found = FindWhole(part);
    return found != kNone && At(found).parent == parent ? found : kNone;
}

}  // namespace kvx::ui
