#include "adapters/sqlite/Collation.h"

#include "adapters/sqlite/Dates.h"
#include "adapters/sqlite/Errors.h"
#include "ado/Constants.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <unicode/ucol.h>

namespace kvx::adapters::sqlite {
namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
using CollatorPtr = std::unique_ptr<UCollator, CloseCollator>;

CollatorPtr OpenCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    CollatorPtr collator(ucol_open("de", &status));
    if (U_SUCCESS(status)) ucol_setStrength(collator.get(), UCOL_SECONDARY);
    if (U_FAILURE(status)) throw MakeError(ado::kErrUnspecified, "The German collation is not available.");
    return collator;
}

int CompareByCollator(const UCollator* collator, std::string_view a, std::string_view b)
{
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator, a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                            static_cast<std::int32_t>(b.size()), &status);
}

/// The collator, and the rank of every ASCII character taken from it: texts of plain characters need not ask it.
class GermanOrder {
public:
    GermanOrder() : collator_(OpenCollator())
    {
        // Characters without a rank of their own (control characters, which do not count at all) keep 0.
        std::array<char, 95> printable{};
        for (std::size_t i = 0; i < printable.size(); ++i)
            printable[i] = static_cast<char>(' ' + i);
        const auto before = [this](char a, char b) { return CompareByCollator(collator_.get(), {&a, 1}, {&b, 1}) < 0; };
        std::ranges::sort(printable, before);
        std::uint8_t rank = 1;
        for (std::size_t i = 0; i < printable.size(); ++i) {
            if (i > 0 && before(printable[i - 1], printable[i])) ++rank;
            ranks_[static_cast<unsigned char>(printable[i])] = rank;
        }
    }

    // At a difference of plain characters that plain characters follow, the rest no longer counts. Everything else is
    // left to the collator, from the last equal character on: what follows may combine with it.
    int Compare(std::string_view a, std::string_view b) const
    {
        const std::size_t size = std::min(a.size(), b.size());
        std::size_t i = 0;
        for (; i < size; ++i) {
            const auto x = static_cast<unsigned char>(a[i]), y = static_cast<unsigned char>(b[i]);
            const std::uint8_t rankX = ranks_[x], rankY = ranks_[y];
            if (rankX == 0 || rankY == 0) return Rest(a, b, i);
            if (rankX == rankY) continue;
            if (!IsPlain(a, i + 1) || !IsPlain(b, i + 1)) return Rest(a, b, i);
            return rankX < rankY ? -1 : 1;
        }
        if (!IsPlain(a, i) || !IsPlain(b, i)) return Rest(a, b, i);
        return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
    }

    int CompareSlowly(std::string_view a, std::string_view b) const { return CompareByCollator(collator_.get(), a, b); }

private:
    bool IsPlain(std::string_view text, std::size_t i) const
    {
        return i >= text.size() || ranks_[static_cast<unsigned char>(text[i])] != 0;
    }

    int Rest(std::string_view a, std::string_view b, std::size_t i) const
    {
        const std::size_t from = i > 0 ? i - 1 : 0;
        return CompareByCollator(collator_.get(), a.substr(from), b.substr(from));
    }

    CollatorPtr collator_;
    std::array<std::uint8_t, 256> ranks_{};
};

const GermanOrder& Order()
{
    static const GermanOrder order;
    return order;
}

std::string_view CutBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

std::string_view View(int size, const void* data)
{
    return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
}

int CompareTextCallback(void* order, int sizeA, const void* a, int sizeB, const void* b)
{
    if (sizeA == sizeB && std::memcmp(a, b, static_cast<std::size_t>(sizeA)) == 0) return 0;
    return static_cast<const GermanOrder*>(order)->Compare(CutBlanks(View(sizeA, a)), CutBlanks(View(sizeB, b)));
}

int CompareDatesCallback(void*, int sizeA, const void* a, int sizeB, const void* b)
{
    return CompareDates(View(sizeA, a), View(sizeB, b));
}

}  // namespace

int CompareText(std::string_view a, std::string_view b)
{
    return Order().Compare(CutBlanks(a), CutBlanks(b));
}

int CompareTextByCollator(std::string_view a, std::string_view b)
{
    return Order().CompareSlowly(CutBlanks(a), CutBlanks(b));
}

int CompareDates(std::string_view a, std::string_view b)
{
    if (a == b) return 0;
    const std::optional<DateTime> x = ParseDate(a), y = ParseDate(b);
    if (x && y) return *x < *y ? -1 : *y < *x ? 1 : 0;
    if (x) return -1;
    if (y) return 1;
    return CompareText(a, b);
}

void RegisterCollations(sqlite3* database)
{
    // SQLite hands the pointer back to us only, and the order never changes.
    void* order = const_cast<GermanOrder*>(&Order());  // NOLINT(cppcoreguidelines-pro-type-const-cast)
    Check(database, sqlite3_create_collation_v2(database, "KVX", SQLITE_UTF8, order, CompareTextCallback, nullptr));
    Check(database,
          sqlite3_create_collation_v2(database, "KVX_DATE", SQLITE_UTF8, nullptr, CompareDatesCallback, nullptr));
}

}  // namespace kvx::adapters::sqlite
