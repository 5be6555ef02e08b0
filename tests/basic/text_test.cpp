#include "basic/Text.h"

#include "basic/Error.h"
#include "basic/Expect.h"

#include <gtest/gtest.h>

namespace kvx::basic {
namespace {

using Pieces = std::vector<std::string>;

TEST(Text, CountsCharactersNotBytes)
{
    EXPECT_EQ(Len(""), 0);
    EXPECT_EQ(Len("abc"), 3);
    EXPECT_EQ(Len("Bäume"), 5);
    EXPECT_EQ(Len("€uro"), 4);
    EXPECT_EQ(Len("\xF0\x9F\x8C\xB2"), 1);
}

TEST(Text, ABadByteIsOneCharacter)
{
    EXPECT_EQ(Len("a\xE4"
                  "b"),
              3);
    EXPECT_EQ(Len("\xC3"), 1);
    EXPECT_EQ(Len("\xE2\x82"), 2);
    EXPECT_EQ(Len("\xC0\x80"), 2);
    EXPECT_EQ(Len("\xED\xA0\x80"), 3);
    EXPECT_EQ(Len("\xF5\x80\x80\x80"), 4);
    EXPECT_EQ(Len("\xE0\x80\x80"), 3);
    EXPECT_EQ(Len("\xF0\x80\x80\x80"), 4);
    EXPECT_EQ(Len("\xF4\x90\x80\x80"), 4);
    EXPECT_EQ(Mid("a\xE4z", 2, 1), "\xE4");
    EXPECT_EQ(UCase("a\xE4z"), "A\xE4Z");
    EXPECT_EQ(AscW("\xE4"), 0xE4);
    EXPECT_EQ(StrReverse("a\xE4ü"), "ü\xE4"
                                    "a");
}

TEST(Text, LeftAndRightGiveAllOfAShortText)
{
    EXPECT_EQ(Left("Bäume", 2), "Bä");
    EXPECT_EQ(Right("Bäume", 4), "äume");
    EXPECT_EQ(Left("Bäume", 9), "Bäume");
    EXPECT_EQ(Right("Bäume", 9), "Bäume");
    EXPECT_EQ(Left("Bäume", 0), "");
    EXPECT_EQ(Right("Bäume", 0), "");
    EXPECT_EQ(ErrorOf([] { return Left("a", -1); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return Right("a", -1); }), kErrInvalidCall);
}

TEST(Text, MidCountsFromOne)
{
    EXPECT_EQ(Mid("Bäume", 2), "äume");
    EXPECT_EQ(Mid("Bäume", 2, 2), "äu");
    EXPECT_EQ(Mid("Bäume", 5, 9), "e");
    EXPECT_EQ(Mid("Bäume", 6), "");
    EXPECT_EQ(Mid("Bäume", 99, 1), "");
    EXPECT_EQ(Mid("Bäume", 1, 0), "");
    EXPECT_EQ(ErrorOf([] { return Mid("a", 0); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return Mid("a", 0, 1); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return Mid("a", 1, -1); }), kErrInvalidCall);
}

TEST(Text, InStrFindsPositionsInCharacters)
{
    EXPECT_EQ(InStr("Bäume", "u"), 3);
    EXPECT_EQ(InStr("Bäume", "U"), 0);
    EXPECT_EQ(InStr("Bäume", ""), 1);
    EXPECT_EQ(InStr("", ""), 0);
    EXPECT_EQ(InStr("", "a"), 0);
    EXPECT_EQ(InStr(3, "äbäb", "ä"), 3);
    EXPECT_EQ(InStr(4, "äbäb", "ä"), 0);
    EXPECT_EQ(InStr(9, "äbäb", "ä"), 0);
    EXPECT_EQ(InStr(2, "abc", ""), 2);
    EXPECT_EQ(InStrRev("äbäb", "ä"), 3);
    EXPECT_EQ(InStrRev("äbäb", "x"), 0);
    EXPECT_EQ(InStrRev("", "x"), 0);
    EXPECT_EQ(InStrRev("äb", ""), 2);
    EXPECT_EQ(ErrorOf([] { return InStr(0, "a", "a"); }), kErrInvalidCall);
}

TEST(Text, TrimTakesTheBlankOnly)
{
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(LTrim("  a  "), "a  ");
    EXPECT_EQ(RTrim("  a  "), "  a");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(LTrim("   "), "");
    EXPECT_EQ(RTrim(""), "");
    EXPECT_EQ(Trim("\ta\r\n"), "\ta\r\n");
    EXPECT_EQ(Trim("\xC2\xA0 a"), "\xC2\xA0 a");
}

TEST(Text, CaseKnowsLatinGreekAndCyrillic)
{
    EXPECT_EQ(UCase("wäldchen öl über ß"), "WÄLDCHEN ÖL ÜBER ß");
    EXPECT_EQ(LCase("WÄLDCHEN ÖL ÜBER ẞ"), "wäldchen öl über ß");
    EXPECT_EQ(UCase("çéîñøÿ÷"), "ÇÉÎÑØŸ÷");
    EXPECT_EQ(LCase("ÇÉÎÑØŸ×"), "çéîñøÿ×");
    EXPECT_EQ(UCase("čěłńőřşžđ"), "ČĚŁŃŐŘŞŽĐ");
    EXPECT_EQ(LCase("ČĚŁŃŐŘŞŽĐ"), "čěłńőřşžđ");
    EXPECT_EQ(UCase("αβγάέήίόύώς"), "ΑΒΓΆΈΉΊΌΎΏΣ");
    EXPECT_EQ(LCase("ΑΒΓΆΈΉΊΌΎΏ"), "αβγάέήίόύώ");
    EXPECT_EQ(UCase("лесђёґ"), "ЛЕСЂЁҐ");
    EXPECT_EQ(LCase("ЛЕСЂЁҐ"), "лесђёґ");
    EXPECT_EQ(UCase("123 €"), "123 €");
}

TEST(Text, EveryLetterComesBackFromTheOtherCase)
{
    for (char32_t c = 0x80; c < 0x2000; ++c) {
        const char32_t lower = LowerCharacter(c);
        if (lower != c && c != 0x130 && c != 0x1E9E) {
            EXPECT_EQ(UpperCharacter(lower), c) << std::hex << static_cast<unsigned>(c);
            EXPECT_EQ(LowerCharacter(lower), lower) << std::hex << static_cast<unsigned>(c);
        }
    }
}

TEST(Text, ReplaceIsBinary)
{
    EXPECT_EQ(Replace("äaÄa", "a", "ö"), "äöÄö");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(Replace("abc", "B", "x"), "abc");
    EXPECT_EQ(Replace("it's", "'", "''"), "it''s");
}

TEST(Text, SplitKeepsEmptyPieces)
{
    EXPECT_EQ(Split("", ";"), Pieces{});
    EXPECT_EQ(Split("a;", ";"), (Pieces{"a", ""}));
    EXPECT_EQ(Split(";", ";"), (Pieces{"", ""}));
    EXPECT_EQ(Split("a\r\nb", "\n"), (Pieces{"a\r", "b"}));
    EXPECT_EQ(Split("aXbxc", "x"), (Pieces{"aXb", "c"}));
    EXPECT_EQ(Split("a b"), (Pieces{"a", "b"}));
    EXPECT_EQ(Split("abc", ""), Pieces{"abc"});
    EXPECT_EQ(Split("a,b,c", ",", 2), (Pieces{"a", "b,c"}));
    EXPECT_EQ(Split("a,b,c", ",", 0), Pieces{});
    EXPECT_EQ(ErrorOf([] { return Split("a", ",", -2).size(); }), kErrInvalidCall);
}

TEST(Text, APiecePastTheEndIsAnError)
{
    const Pieces pieces = Split("a;b", ";");
    EXPECT_EQ(Piece(pieces, 1), "b");
    EXPECT_EQ(ErrorOf([&] { return Piece(pieces, 2); }), kErrSubscript);
    EXPECT_EQ(ErrorOf([&] { return Piece(pieces, -1); }), kErrSubscript);
}

TEST(Text, JoinPutsTheDelimiterBetween)
{
    EXPECT_EQ(Join({"a", "", "b"}, ";"), "a;;b");
    EXPECT_EQ(Join({}, ";"), "");
    EXPECT_EQ(Join({"a", "b"}), "a b");
}

TEST(Text, ComparisonsCountCase)
{
    EXPECT_EQ(StrCompare("a", "B"), 1);
    EXPECT_EQ(StrCompare("a", "a"), 0);
    EXPECT_EQ(StrCompare("a", "ab"), -1);
    EXPECT_EQ(StrCompare("z", "ä"), -1);
    EXPECT_TRUE(SameTextIgnoringCase("WÄLD", "wäld"));
    EXPECT_FALSE(SameTextIgnoringCase("wald", "wäld"));
    EXPECT_FALSE(SameTextIgnoringCase("wal", "wald"));
    EXPECT_TRUE(StartsWith("Wald", "Wa"));
    EXPECT_FALSE(StartsWith("Wald", "wa"));
    EXPECT_TRUE(EndsWith("Wald", "ld"));
}

TEST(Text, RepeatsCharacters)
{
    EXPECT_EQ(Space(3), "   ");
    EXPECT_EQ(String(3, "äx"), "äää");
    EXPECT_EQ(String(0, "a"), "");
    EXPECT_EQ(StrReverse("aäb"), "bäa");
    EXPECT_EQ(ErrorOf([] { return Space(-1); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return String(1, ""); }), kErrInvalidCall);
}

TEST(Text, CodePointsTurnIntoCharactersAndBack)
{
    for (const std::int32_t code : {0, 65, 0xE4, 0x7FF, 0x800, 0x20AC, 0xFFFF, 0x10000, 0x10FFFF})
        EXPECT_EQ(AscW(ChrW(code)), code);
    EXPECT_EQ(ChrW(0xE4), "ä");
    EXPECT_EQ(ErrorOf([] { return ChrW(-1); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return ChrW(0x110000); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return ChrW(0xD800); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return AscW(""); }), kErrInvalidCall);
}

TEST(Text, FilesAreUtf8OrElseWindows1252)
{
    EXPECT_TRUE(IsValidUtf8("Wäldchen €"));
    EXPECT_FALSE(IsValidUtf8("W\xE4ldchen"));
    EXPECT_EQ(Utf8FromFileBytes("W\xE4ldchen \x80"), "Wäldchen €");
    EXPECT_EQ(Utf8FromFileBytes("Wäldchen"), "Wäldchen");
    EXPECT_EQ(Utf8FromFileBytes("\xEF\xBB\xBFWäldchen"), "Wäldchen");
    EXPECT_EQ(Utf8FromWindows1252("\x84Wald\x93"), "„Wald“");
    EXPECT_EQ(Utf8FromLatin1("\xE4\x80"), "ä\xC2\x80");
    EXPECT_EQ(Windows1252FromUtf8("Wäldchen € \xE2\x98\x83"), "W\xE4ldchen \x80 ?");
}

TEST(Text, EveryByteSurvivesTheCodePageRoundTrip)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    EXPECT_EQ(Windows1252FromUtf8(Utf8FromWindows1252(bytes)), bytes);
}

} // namespace
} // namespace kvx::basic
