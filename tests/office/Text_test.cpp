#include "adapters/office/Xml.h"
#include "office/OfficeTest.h"

namespace kvx::adapters::office {

namespace {
std::string Escaped(std::string_view text)
{
    std::string xml;
    AppendEscaped(xml, text);
    return xml;
}
}  // namespace

TEST(OfficeXml, MarkupIsEscaped)
{
    EXPECT_EQ(Escaped("a < b & \"c\" > d"), "a &lt; b &amp; &quot;c&quot; &gt; d");
}

TEST(OfficeXml, OtherCharactersStayAsTheyAre)
{
    EXPECT_EQ(Escaped("Öl ß € \U0001F332 'x'"), "Öl ß € \U0001F332 'x'");
}

TEST(OfficeXml, ControlCharactersAreLeftOut)
{
    EXPECT_EQ(Escaped(std::string_view("a\0b\x01\x1F\x7F\xC2\x85\n c", 11)), "ab c");
}

TEST(OfficeXml, WhatIsNoTextBecomesTheReplacementCharacter)
{
    EXPECT_EQ(Escaped("a\xFF b\xC3"), "a\xEF\xBF\xBD b\xEF\xBF\xBD");
    EXPECT_EQ(Escaped("\xEF\xBF\xBE|\xEF\xBF\xBF"), "\xEF\xBF\xBD|\xEF\xBF\xBD");
}

using OfficeText = OfficeTest;

TEST_F(OfficeText, MarkupUmlautsAndBlanksAreReadBackUnchanged)
{
    EXPECT_EQ(Printed("a<b>&\"c'\tÄÖÜäöüß €\t  zwei  \r\n").Rows(),
              (std::vector<Texts>{{"a<b>&\"c'", "ÄÖÜäöüß €", "  zwei  "}}));
}

TEST_F(OfficeText, BlanksAtTheEndsOfACellAreKept)
{
    EXPECT_EQ(Printed(" 01 \r\n").Value("//w:t", "xml:space"), "preserve");
}

TEST_F(OfficeText, ShortLinesLeaveCellsEmpty)
{
    EXPECT_EQ(Printed("a\tb\tc\r\n1\r\n\r\n").Rows(),
              (std::vector<Texts>{{"a", "b", "c"}, {"1", "", ""}, {"", "", ""}}));
}

TEST_F(OfficeText, SurplusCellsAreKeptInTheLastColumn)
{
    EXPECT_EQ(Printed("a\tb\r\n1\t2\t3\t4\r\n").Rows(), (std::vector<Texts>{{"a", "b"}, {"1", "2<tab>3<tab>4"}}));
}

TEST_F(OfficeText, ALineWithoutEndGetsARowToo)
{
    EXPECT_EQ(Printed("a\tb\r\n1\t2").Rows(), (std::vector<Texts>{{"a", "b"}, {"1", "2"}}));
}

TEST_F(OfficeText, ALineBreakInACellStaysOne)
{
    EXPECT_EQ(Printed("a\rb\r\n").Rows(), (std::vector<Texts>{{"a<br>b"}}));
}

TEST_F(OfficeText, ATextPastedIntoARowFillsFromThere)
{
    const auto document = application->AddDocument();
    document->AddTable(3, 2);
    document->SelectTable();
    document->PasteText("a\tb\r\nc\td\r\ne\tf\r\n");
    document->SelectRow(2);
    document->PasteText("C\tD\r\n");
    application->SetVisible(true);
    EXPECT_EQ(Written().Rows(), (std::vector<Texts>{{"a", "b"}, {"C", "D"}, {"e", "f"}}));
}

TEST_F(OfficeText, TheTextMayBeGoneWhenTheDocumentIsWritten)
{
    const auto document = application->AddDocument();
    document->AddTable(1, 1);
    document->SelectTable();
    {
        std::string text = "a text that is too long to stand in the string object itself\r\n";
        document->PasteText(text);
        text.assign(text.size(), '#');
    }
    application->SetVisible(true);
    EXPECT_EQ(Written().Rows(), (std::vector<Texts>{{"a text that is too long to stand in the string object itself"}}));
}

TEST_F(OfficeText, ALongListIsWrittenWhole)
{
    std::string text = "WO1\tWO2\r\n";
    for (int row = 1; row <= 20000; ++row)
        text += "Nord\t" + std::to_string(row) + "\r\n";
    const std::vector<Texts> rows = Printed(text).Rows();
    ASSERT_EQ(rows.size(), 20001U);
    for (std::size_t row = 1; row < rows.size(); ++row)
        ASSERT_EQ(rows[row], (Texts{"Nord", std::to_string(row)}));
}

}  // namespace kvx::adapters::office
