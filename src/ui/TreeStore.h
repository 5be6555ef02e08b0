#pragma once

#include "ui/Constants.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kvx::ui {

/// Bytes that only grow, in pieces, so that nothing is ever copied to a larger place. Each entry carries its length.
class TextArena {
public:
    std::uint32_t Add(std::string_view text);
    std::string_view At(std::uint32_t at) const;
    /// Writes over an entry. @return false: the text is longer than the entry
    bool Overwrite(std::uint32_t at, std::string_view text);
    void Clear()
    {
        chunks_.clear();
        large_.clear();
        used_ = kChunk;
    }
    std::size_t MemoryBytes() const;

private:
    static constexpr std::uint32_t kChunk = 1u << 16;
    std::vector<std::unique_ptr<char[]>> chunks_;
    std::vector<std::string> large_;  // texts beyond 254 bytes
    std::uint32_t used_ = kChunk;     // of the last chunk
};

/// The nodes of a tree without events: 32 bytes each, the text, and what few nodes have in tables beside. Nodes are
/// numbers from 0; a number is not used again until Clear. No call walks more than the nodes it concerns.
class TreeStore {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    void SetPathKeys(std::string_view rootKey, std::string_view prefix, std::string_view separator);
    bool HasPathKeys() const { return pathKeys_; }

    std::int32_t Count() const { return static_cast<std::int32_t>(live_); }
    bool IsThere(std::uint32_t id) const { return id < made_ && (At(id).flags & kRemoved) == 0; }
    void Clear();

    /// Adds a node without key. @param before  the sibling behind it; kNone = last
    std::uint32_t Insert(std::uint32_t parent, std::uint32_t before, std::string_view text);
    /// Adds a last child whose key part is given; kNone when a sibling has it.
    std::uint32_t AppendChild(std::uint32_t parent, std::string_view part, std::string_view text);
    void Remove(std::uint32_t id);

    std::string_view Text(std::uint32_t id) const { return texts_.At(At(id).text); }
    void SetText(std::uint32_t id, std::string_view text);

    bool HasKey(std::uint32_t id) const { return (At(id).flags & kHasKey) != 0; }
    std::string Key(std::uint32_t id) const;
    std::string_view KeyPart(std::uint32_t id) const;
    /// @param part  by reference: what a child's key adds to that of the parent
    /// @return false: the key does not go on from the parent's, and must be stored whole
    bool SplitKey(std::uint32_t parent, std::string_view key, std::string_view& part) const;
    /// @return false: another node has this key
    bool SetKey(std::uint32_t id, std::string_view key);
    bool SetKeyPart(std::uint32_t id, std::string_view part);
    std::uint32_t FindKey(std::string_view key) const;
    std::uint32_t FindChild(std::uint32_t parent, std::string_view part) const;

    std::uint32_t Parent(std::uint32_t id) const { return At(id).parent; }
    std::uint32_t FirstChild(std::uint32_t id) const { return id == kNone ? top_.first : At(id).first; }
    std::uint32_t LastChild(std::uint32_t id) const;
    std::uint32_t Next(std::uint32_t id) const { return At(id).next; }
    std::uint32_t Previous(std::uint32_t id) const;
    std::uint32_t ChildCount(std::uint32_t id) const { return id == kNone ? top_.count : At(id).count; }
    std::uint32_t ChildAt(std::uint32_t parent, std::uint32_t position) const;
    std::uint32_t Position(std::uint32_t id) const;
    std::uint32_t ByIndex(std::uint32_t index) const;  ///< live nodes in order of creation, from 0; kNone = none
    std::uint32_t IndexOf(std::uint32_t id) const;

    enum Flag : std::uint16_t { kExpanded = 1, kBold = 2, kChecked = 4 };
    bool Has(std::uint32_t id, Flag flag) const { return (At(id).flags & flag) != 0; }
    void Set(std::uint32_t id, Flag flag, bool on);
    Color ForeColor(std::uint32_t id, Color otherwise) const;
    Color BackColor(std::uint32_t id, Color otherwise) const;
    void SetForeColor(std::uint32_t id, Color color);
    void SetBackColor(std::uint32_t id, Color color);
    const std::string& Tag(std::uint32_t id) const;
    void SetTag(std::uint32_t id, std::string_view tag);

    /// kNone = the top nodes.
    bool Sorted(std::uint32_t parent) const;
    void SetSorted(std::uint32_t parent, bool sorted);
    /// Where a new child with this text belongs: the sibling behind it, kNone = last.
    std::uint32_t SortedPlace(std::uint32_t parent, std::string_view text) const;

    std::size_t MemoryBytes() const;

private:
    // The upper bits of the flags are the store's own.
    enum : std::uint16_t {
        kRemoved = 8,
        kHasKey = 16,
        kKeyStored = 32,  // the key stands whole in keys_ and does not follow the parent's
        kPartApart = 64,  // the own part differs from the text and stands in keys_
        kHasTag = 128,
        kSorted = 256,
        kRising = 512,      // parts of the children have come in rising order, each with a key: no two are equal
        kPositions = 1024,  // positions of the children are up to date
    };
    struct Record {
        std::uint32_t parent = kNone, first = kNone, next = kNone;
        std::uint32_t previous = kNone;  // of a first child: the last child
        std::uint32_t count = 0;
        mutable std::uint32_t position = 0;
        std::uint32_t text = 0;
        mutable std::uint16_t flags = 0;
        std::uint8_t fore = 0, back = 0;  // palette; 0 = the tree's
    };
    static_assert(sizeof(Record) == 32);
    static constexpr std::uint32_t kChunkBits = 11, kChunk = 1u << kChunkBits;

    Record& At(std::uint32_t id) { return chunks_[id >> kChunkBits][id & (kChunk - 1)]; }
    const Record& At(std::uint32_t id) const { return chunks_[id >> kChunkBits][id & (kChunk - 1)]; }
    Record& ParentRecord(std::uint32_t parent) { return parent == kNone ? top_ : At(parent); }
    const Record& ParentRecord(std::uint32_t parent) const { return parent == kNone ? top_ : At(parent); }
    static constexpr std::uint32_t kWholeKey = 0xFFFFFFFE;             // "parent" of keys that are stored whole
    static constexpr std::uint32_t kFree = kNone, kGone = 0xFFFFFFFE;  // slots of the look-up
    static constexpr std::uint8_t kOwnColour = 255;                    // palette index: see colours_
    std::uint32_t Make(std::string_view text);
    bool DerivesKeys(std::uint32_t parent) const;
    std::string KeyBase(std::uint32_t parent) const;
    void ForgetCursor() const { cursorId_ = kNone; }
    Color ColorAt(std::uint32_t id, std::uint8_t index, bool fore, Color otherwise) const;
    void AssignColor(std::uint32_t id, Color color, bool fore);
    void Link(std::uint32_t id, std::uint32_t parent, std::uint32_t before);
    void Unlink(std::uint32_t id);
    void Forget(std::uint32_t id);
    void StorePart(std::uint32_t id, std::string_view part);
    std::uint32_t Descend(std::uint32_t parent, std::string_view rest) const;

    // Look-up: numbers of nodes in open addressing, by parent and part, or by the whole of a stored key.
    std::uint64_t HashOf(std::uint32_t id) const;
    static std::uint64_t Hash(std::uint32_t parent, std::string_view part);
    void BuildIndex() const;
    void Index(std::uint32_t id) const;
    void Unindex(std::uint32_t id);
    std::uint32_t Probe(std::uint32_t parent, std::string_view part) const;
    std::uint32_t FindPart(std::uint32_t parent, std::string_view part) const;
    std::uint32_t FindWhole(std::string_view key) const;

    std::vector<std::unique_ptr<Record[]>> chunks_;
    std::uint32_t made_ = 0, live_ = 0;
    Record top_;
    TextArena texts_;
    std::unordered_map<std::uint32_t, std::string> keys_, tags_;
    std::unordered_map<std::uint32_t, std::pair<Color, Color>> colours_;
    std::vector<Color> palette_;
    bool pathKeys_ = false, separatorInParts_ = false;
    std::size_t wholeKeys_ = 0;  // nodes whose key is stored whole
    std::string rootKey_, prefix_, separator_;
    mutable std::vector<std::uint32_t> index_;
    mutable std::uint32_t indexed_ = 0, indexGone_ = 0;
    mutable std::uint64_t walked_ = 0;          // siblings looked at for want of an index
    mutable std::vector<std::uint32_t> order_;  // live nodes by creation; empty while none was removed
    mutable std::uint32_t cursorParent_ = kNone, cursorPosition_ = 0, cursorId_ = kNone;
};

}  // namespace kvx::ui
