#include "ui/TreeStore.h"

#include "basic/Text.h"

#include <algorithm>
#include <cstring>

namespace kvx::ui {

// --- texts: one byte with the length, then the text; 255 stands before the number of a large one ---

namespace {

constexpr std::size_t kLargest = 254;
constexpr unsigned char kLarge = 255;

}  // namespace

std::uint32_t TextArena::Add(std::string_view text)
{
    const bool large = text.size() > kLargest;
    const auto need = static_cast<std::uint32_t>(1 + (large ? sizeof(std::uint32_t) : text.size()));
    if (used_ + need > kChunk) {
        chunks_.push_back(std::make_unique_for_overwrite<char[]>(kChunk));
        used_ = 0;
    }
    char* const entry = chunks_.back().get() + used_;
    const std::uint32_t at = static_cast<std::uint32_t>(chunks_.size() - 1) * kChunk + used_;
    used_ += need;
    if (large) {
        const auto number = static_cast<std::uint32_t>(large_.size());
        large_.emplace_back(text);
        entry[0] = static_cast<char>(kLarge);
        std::memcpy(entry + 1, &number, sizeof number);
    } else {
        entry[0] = static_cast<char>(text.size());
        if (!text.empty()) std::memcpy(entry + 1, text.data(), text.size());
    }
    return at;
}

std::string_view TextArena::At(std::uint32_t at) const
{
    const char* const entry = chunks_[at / kChunk].get() + at % kChunk;
    const auto length = static_cast<unsigned char>(entry[0]);
    if (length != kLarge) return {entry + 1, length};
    std::uint32_t number = 0;
    std::memcpy(&number, entry + 1, sizeof number);
    return large_[number];
}

bool TextArena::Overwrite(std::uint32_t at, std::string_view text)
{
    char* const entry = chunks_[at / kChunk].get() + at % kChunk;
    const auto length = static_cast<unsigned char>(entry[0]);
    if (length == kLarge) {
        std::uint32_t number = 0;
        std::memcpy(&number, entry + 1, sizeof number);
        large_[number] = text;
        return true;
    }
    if (text.size() > length) return false;
    std::memmove(entry + 1, text.data(), text.size());
    entry[0] = static_cast<char>(text.size());
    return true;
}

std::size_t TextArena::MemoryBytes() const
{
    std::size_t bytes = chunks_.size() * kChunk;
    for (const std::string& text : large_)
        bytes += sizeof(std::string) + text.capacity();
    return bytes;
}

// --- nodes ---

void TreeStore::Clear()
{
    chunks_.clear();
    chunks_.shrink_to_fit();
    made_ = live_ = 0;
    top_ = {};
    texts_.Clear();
    keys_.clear();
    tags_.clear();
    colours_.clear();
    palette_.clear();
    separatorInParts_ = false;
    wholeKeys_ = 0;
    index_ = {};
    indexed_ = indexGone_ = 0;
    walked_ = 0;
    order_ = {};
    ForgetCursor();
}

std::uint32_t TreeStore::Make(std::string_view text)
{
    if ((made_ & (kChunk - 1)) == 0) chunks_.push_back(std::make_unique<Record[]>(kChunk));
    const std::uint32_t id = made_++;
    At(id).text = texts_.Add(text);
    ++live_;
    if (!order_.empty()) order_.push_back(id);
    return id;
}

void TreeStore::Link(std::uint32_t id, std::uint32_t parent, std::uint32_t before)
{
    Record& above = ParentRecord(parent);
    Record& node = At(id);
    node.parent = parent;
    if (above.first == kNone) {
        above.first = node.previous = id;
        above.flags |= kPositions;
        node.position = 0;
    } else if (before == kNone) {
        const std::uint32_t last = At(above.first).previous;
        At(last).next = id;
        node.previous = last;
        At(above.first).previous = id;
        node.position = above.count;
    } else {
        node.next = before;
        node.previous = At(before).previous;
        At(before).previous = id;
        if (before == above.first)
            above.first = id;
        else
            At(node.previous).next = id;
        above.flags &= static_cast<std::uint16_t>(~kPositions);
        ForgetCursor();
    }
    ++above.count;
}

void TreeStore::Unlink(std::uint32_t id)
{
    Record& node = At(id);
    Record& above = ParentRecord(node.parent);
    const bool last = node.next == kNone;
    if (above.first == id) {
        above.first = node.next;
        if (!last) At(node.next).previous = node.previous;
    } else {
        At(node.previous).next = node.next;
        At(last ? above.first : node.next).previous = node.previous;
    }
    if (!last) above.flags &= static_cast<std::uint16_t>(~kPositions);
    --above.count;
    node.next = node.previous = kNone;
    ForgetCursor();
}

std::uint32_t TreeStore::Insert(std::uint32_t parent, std::uint32_t before, std::string_view text)
{
    const std::uint32_t id = Make(text);
    Link(id, parent, before);
    ParentRecord(parent).flags &= static_cast<std::uint16_t>(~kRising);
    return id;
}

void TreeStore::Remove(std::uint32_t id)
{
    Unlink(id);
    std::vector<std::uint32_t> gone{id};
    for (std::size_t i = 0; i < gone.size(); ++i)
        for (std::uint32_t child = At(gone[i]).first; child != kNone; child = At(child).next)
            gone.push_back(child);
    // From the leaves up: a key hangs on those above.
    for (auto node = gone.rbegin(); node != gone.rend(); ++node)
        Forget(*node);
    order_.clear();
}

void TreeStore::Forget(std::uint32_t id)
{
    Unindex(id);
    Record& node = At(id);
    if ((node.flags & kKeyStored) != 0) --wholeKeys_;
    if ((node.flags & (kKeyStored | kPartApart)) != 0) keys_.erase(id);
    if ((node.flags & kHasTag) != 0) tags_.erase(id);
    if (node.fore == kOwnColour || node.back == kOwnColour) colours_.erase(id);
    node.flags = kRemoved;
    node.first = node.next = kNone;
    node.count = 0;
    --live_;
}

void TreeStore::SetText(std::uint32_t id, std::string_view text)
{
    Record& node = At(id);
    const std::string_view old = texts_.At(node.text);
    if (old == text) return;
    const bool derived = (node.flags & kHasKey) != 0 && (node.flags & kKeyStored) == 0;
    if (derived && (node.flags & kPartApart) == 0) {
        // The text has been the key as well: the key stays what it was.
        keys_.emplace(id, old);
        node.flags |= kPartApart;
    } else if (derived && keys_.at(id) == text) {
        keys_.erase(id);
        node.flags &= static_cast<std::uint16_t>(~kPartApart);
    }
    if (!texts_.Overwrite(node.text, text)) node.text = texts_.Add(text);
}

std::uint32_t TreeStore::LastChild(std::uint32_t id) const
{
    const std::uint32_t first = FirstChild(id);
    return first == kNone ? kNone : At(first).previous;
}

std::uint32_t TreeStore::Previous(std::uint32_t id) const
{
    return FirstChild(At(id).parent) == id ? kNone : At(id).previous;
}

std::uint32_t TreeStore::ChildAt(std::uint32_t parent, std::uint32_t position) const
{
    const std::uint32_t count = ChildCount(parent);
    if (position >= count) return kNone;
    std::uint32_t at = 0, id = FirstChild(parent);
    if (count - 1 - position < position) {
        at = count - 1;
        id = LastChild(parent);
    }
    // Views ask one row after the other: the last answer is mostly next to the one sought.
    if (cursorId_ != kNone && cursorParent_ == parent) {
        const auto distance = [position](std::uint32_t from) {
            return from > position ? from - position : position - from;
        };
        if (distance(cursorPosition_) < distance(at)) {
            at = cursorPosition_;
            id = cursorId_;
        }
    }
    for (; at < position; ++at)
        id = At(id).next;
    for (; at > position; --at)
        id = At(id).previous;
    cursorParent_ = parent;
    cursorPosition_ = position;
    cursorId_ = id;
    return id;
}

std::uint32_t TreeStore::Position(std::uint32_t id) const
{
    const Record& above = ParentRecord(At(id).parent);
    if ((above.flags & kPositions) == 0) {
        std::uint32_t position = 0;
        for (std::uint32_t child = above.first; child != kNone; child = At(child).next)
            At(child).position = position++;
        above.flags |= kPositions;
    }
    return At(id).position;
}

std::uint32_t TreeStore::ByIndex(std::uint32_t index) const
{
    if (index >= live_) return kNone;
    if (live_ == made_) return index;
    if (order_.empty()) {
        order_.reserve(live_);
        for (std::uint32_t id = 0; id < made_; ++id)
            if (IsThere(id)) order_.push_back(id);
    }
    return order_[index];
}

std::uint32_t TreeStore::IndexOf(std::uint32_t id) const
{
    if (live_ == made_) return id;
    ByIndex(0);
    return static_cast<std::uint32_t>(std::lower_bound(order_.begin(), order_.end(), id) - order_.begin());
}

void TreeStore::Set(std::uint32_t id, Flag flag, bool on)
{
    if (on)
        At(id).flags |= flag;
    else
        At(id).flags &= static_cast<std::uint16_t>(~flag);
}

// Trees use a handful of colours for many nodes: a node holds the number of its colour.
void TreeStore::AssignColor(std::uint32_t id, Color color, bool fore)
{
    auto known = std::find(palette_.begin(), palette_.end(), color);
    if (known == palette_.end() && palette_.size() + 1 < kOwnColour) known = palette_.insert(palette_.end(), color);
    std::uint8_t index = kOwnColour;
    if (known != palette_.end()) {
        index = static_cast<std::uint8_t>(known - palette_.begin() + 1);
    } else {
        std::pair<Color, Color>& own = colours_[id];
        (fore ? own.first : own.second) = color;
    }
    (fore ? At(id).fore : At(id).back) = index;
}

Color TreeStore::ColorAt(std::uint32_t id, std::uint8_t index, bool fore, Color otherwise) const
{
    if (index == 0) return otherwise;
    if (index != kOwnColour) return palette_[index - 1u];
    const std::pair<Color, Color>& own = colours_.at(id);
    return fore ? own.first : own.second;
}

Color TreeStore::ForeColor(std::uint32_t id, Color otherwise) const
{
    return ColorAt(id, At(id).fore, true, otherwise);
}

Color TreeStore::BackColor(std::uint32_t id, Color otherwise) const
{
    return ColorAt(id, At(id).back, false, otherwise);
}

void TreeStore::SetForeColor(std::uint32_t id, Color color)
{
    AssignColor(id, color, true);
}

void TreeStore::SetBackColor(std::uint32_t id, Color color)
{
    AssignColor(id, color, false);
}

const std::string& TreeStore::Tag(std::uint32_t id) const
{
    static const std::string kNothing;
    return (At(id).flags & kHasTag) != 0 ? tags_.at(id) : kNothing;
}

void TreeStore::SetTag(std::uint32_t id, std::string_view tag)
{
    if (tag.empty()) {
        tags_.erase(id);
        At(id).flags &= static_cast<std::uint16_t>(~kHasTag);
    } else {
        tags_[id] = tag;
        At(id).flags |= kHasTag;
    }
}

bool TreeStore::Sorted(std::uint32_t parent) const
{
    return (ParentRecord(parent).flags & kSorted) != 0;
}

void TreeStore::SetSorted(std::uint32_t parent, bool sorted)
{
    Record& above = ParentRecord(parent);
    if (!sorted) {
        above.flags &= static_cast<std::uint16_t>(~kSorted);
        return;
    }
    above.flags |= kSorted;
    std::vector<std::pair<std::string, std::uint32_t>> children;
    for (std::uint32_t child = above.first; child != kNone; child = At(child).next)
        children.emplace_back(basic::LCase(Text(child)), child);
    std::stable_sort(children.begin(), children.end(),
                     [](const auto& a, const auto& b) { return basic::StrCompare(a.first, b.first) < 0; });
    above.first = kNone;
    above.count = 0;
    above.flags &= static_cast<std::uint16_t>(~kRising);
    for (const auto& [text, child] : children) {
        At(child).next = At(child).previous = kNone;
        Link(child, parent, kNone);
    }
    above.flags |= kPositions;
    ForgetCursor();
}

std::uint32_t TreeStore::SortedPlace(std::uint32_t parent, std::string_view text) const
{
    const std::string folded = basic::LCase(text);
    const auto before = [&](std::uint32_t id) { return basic::StrCompare(folded, basic::LCase(Text(id))) < 0; };
    const std::uint32_t last = LastChild(parent);
    if (last == kNone || !before(last)) return kNone;
    std::uint32_t child = FirstChild(parent);
    while (!before(child))
        child = At(child).next;
    return child;
}

std::size_t TreeStore::MemoryBytes() const
{
    // What a hash table takes for an entry, besides the text.
    constexpr std::size_t kEntry = 64;
    std::size_t bytes = chunks_.size() * kChunk * sizeof(Record) + texts_.MemoryBytes();
    bytes += (index_.capacity() + order_.capacity()) * sizeof(std::uint32_t);
    for (const auto& [id, key] : keys_)
        bytes += kEntry + key.capacity();
    for (const auto& [id, tag] : tags_)
        bytes += kEntry + tag.capacity();
    return bytes + colours_.size() * kEntry;
}

}  // namespace kvx::ui
