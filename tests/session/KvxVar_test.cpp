#include "session/KvxVar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace kvx {
namespace {

// Hosts and the sibling library are built against the record as it stands here: a field that changes its type or its
// place would be read as another one.
template <class... Fields>
struct List;
template <class T>
using Eight = std::array<T, 8>;

using Text = std::string;
using Number = std::int32_t;

static_assert(
    std::is_same_v<List<decltype(KvxVar::dbAdo), decltype(KvxVar::objReserved), decltype(KvxVar::strConnection),
                        decltype(KvxVar::strLanguage), decltype(KvxVar::strReserved1), decltype(KvxVar::strReserved2),
                        decltype(KvxVar::strReserved3), decltype(KvxVar::strDateFormat), decltype(KvxVar::strReserved4),
                        decltype(KvxVar::strReserved5), decltype(KvxVar::strAppPath), decltype(KvxVar::strIniFile),
                        decltype(KvxVar::ID_USER), decltype(KvxVar::ID_ACCESS_LEVELS), decltype(KvxVar::numReserved),
                        decltype(KvxVar::strReserved6), decltype(KvxVar::strReserved7), decltype(KvxVar::g_Client),
                        decltype(KvxVar::numReserved2), decltype(KvxVar::strDBUser), decltype(KvxVar::strDBPassword),
                        decltype(KvxVar::bOracle)>,
                   List<ado::Connection, basic::ObjectRef, Text, Text, Text, Text, Text, Text, Text, Text, Text, Text,
                        Number, Number, Eight<Number>, Text, Text, Text, Number, Text, Text, std::int16_t>>);
static_assert(std::is_aggregate_v<KvxVar>, "the record is plain: it is copied in one assignment");

TEST(KvxVarLayout, TheFieldsLieInTheOrderThatHostsKnow)
{
    const KvxVar v;
    const std::vector<const void*> places{
        &v.dbAdo,        &v.objReserved,      &v.strConnection, &v.strLanguage,  &v.strReserved1, &v.strReserved2,
        &v.strReserved3, &v.strDateFormat,    &v.strReserved4,  &v.strReserved5, &v.strAppPath,   &v.strIniFile,
        &v.ID_USER,      &v.ID_ACCESS_LEVELS, &v.numReserved,   &v.strReserved6, &v.strReserved7, &v.g_Client,
        &v.numReserved2, &v.strDBUser,        &v.strDBPassword, &v.bOracle,
    };
    EXPECT_EQ(places.front(), static_cast<const void*>(&v));  // the connection first, always
    EXPECT_TRUE(std::ranges::is_sorted(places, std::less<>()));
}

TEST(KvxVarLayout, ThereAreNoOtherFields)
{
    const KvxVar v;
    // One field more or less does not compile.
    const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18, f19, f20, f21, f22] =
        v;
    EXPECT_EQ(static_cast<const void*>(&f1), &v.dbAdo);
    EXPECT_EQ(&f22, &v.bOracle);
}

TEST(KvxVarLayout, AFreshRecordIsNobodysOnSqlServer)
{
    const KvxVar v;
    EXPECT_EQ(v.ID_USER, 0);
    EXPECT_EQ(v.ID_ACCESS_LEVELS, 0);
    EXPECT_EQ(v.bOracle, 0);
    EXPECT_EQ(v.g_Client, "");
    EXPECT_EQ(v.objReserved, nullptr);
}

}  // namespace
}  // namespace kvx
