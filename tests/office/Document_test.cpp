#include "office/OfficeTest.h"

namespace kvx::adapters::office {

namespace {

constexpr std::string_view kStands = "WO1\tWO2\tWO3\r\nNord\t1\ta\r\nNord\t2\t\r\nSüd\t1\tb\r\n";
constexpr std::string_view kGrid = "Holzarten\t\r\nHA\tName\r\nFI\tFichte\r\nEI\tEiche\r\n";

// 40 columns of which each needs more than its share of an upright page.
std::string WideText()
{
    std::string head, row;
    for (int column = 0; column < 40; ++column) {
        head += (column == 0 ? "" : "\t") + ("Kostenstelle" + std::to_string(column));
        row += (column == 0 ? "" : "\t") + std::string("Forstamt Müllrose");
    }
    return head + "\r\n" + row + "\r\n";
}

std::vector<std::int32_t> ColumnWidthsOf(const Docx& docx)
{
    std::vector<std::int32_t> widths;
    for (const pugi::xpath_node& column : docx.Find("word/document.xml", "//w:tblGrid/w:gridCol"))
        widths.push_back(column.node().attribute("w:w").as_int());
    return widths;
}

std::int32_t TextWidthOf(const Docx& docx)
{
    return std::stoi(docx.Value("//w:pgSz", "w:w")) - std::stoi(docx.Value("//w:pgMar", "w:left")) -
           std::stoi(docx.Value("//w:pgMar", "w:right"));
}

std::int32_t SumOf(const std::vector<std::int32_t>& widths)
{
    std::int32_t sum = 0;
    for (const std::int32_t width : widths)
        sum += width;
    return sum;
}

}  // namespace

using OfficeDocumentTest = OfficeTest;

TEST_F(OfficeDocumentTest, HoldsTheTextCellByCell)
{
    EXPECT_EQ(Printed(kStands).Rows(),
              (std::vector<Texts>{{"WO1", "WO2", "WO3"}, {"Nord", "1", "a"}, {"Nord", "2", ""}, {"Süd", "1", "b"}}));
}

TEST_F(OfficeDocumentTest, NamesItsMainPartWhereReadersLookForIt)
{
    const Docx docx = Printed(kStands);
    EXPECT_EQ(docx.names.front(), "[Content_Types].xml");
    EXPECT_EQ(docx.Value("//Override[@PartName='/word/document.xml']", "ContentType", "[Content_Types].xml"),
              "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");
    EXPECT_EQ(docx.Value("//Relationship", "Target", "_rels/.rels"), "word/document.xml");
}

TEST_F(OfficeDocumentTest, LinksEveryPartThatItHas)
{
    const Docx docx = PrintedList(kGrid);
    for (const pugi::xpath_node& link : docx.Find("word/_rels/document.xml.rels", "//Relationship")) {
        const std::string name = std::string("word/") + link.node().attribute("Target").as_string();
        EXPECT_TRUE(docx.HasPart(name)) << name;
        EXPECT_NE(docx.Value("//Override[@PartName='/" + name + "']", "ContentType", "[Content_Types].xml"), "(none)")
            << name;
    }
    EXPECT_EQ(docx.Find("word/_rels/document.xml.rels", "//Relationship").size(), 3U);
}

TEST_F(OfficeDocumentTest, TheFirstRowIsBoldOnGrey)
{
    const Docx docx = Printed(kStands);
    EXPECT_EQ(docx.Count("//w:tr[1]/w:tc/w:p/w:r/w:rPr/w:b[not(@w:val)]"), 3U);
    EXPECT_EQ(docx.Count("//w:tr[1]/w:tc/w:tcPr/w:shd[@w:fill='C0C0C0']"), 3U);
}

TEST_F(OfficeDocumentTest, TheSecondRowIsBoldOnNothing)
{
    const Docx docx = Printed(kStands);
    EXPECT_EQ(docx.Count("//w:tr[2]/w:tc/w:p/w:r/w:rPr/w:b[not(@w:val)]"), 3U);
    EXPECT_EQ(docx.Count("//w:tr[2]//w:shd"), 0U);
}

TEST_F(OfficeDocumentTest, TheOtherRowsArePlain)
{
    const Docx docx = Printed(kStands);
    EXPECT_EQ(docx.Count("//w:tr[position()>2]"), 2U);
    EXPECT_EQ(docx.Count("//w:tr[position()>2]//w:b"), 0U);
    EXPECT_EQ(docx.Count("//w:tr[position()>2]//w:shd"), 0U);
}

TEST_F(OfficeDocumentTest, EveryCellIsSetInArial10)
{
    const Docx docx = Printed(kStands);
    EXPECT_EQ(docx.Count("//w:tc/w:p/w:pPr/w:pStyle[@w:val='TableText']"), 12U);
    EXPECT_EQ(docx.Count("//w:tc//w:rFonts") + docx.Count("//w:tc//w:sz"), 0U);
    const std::string style = "//w:style[@w:styleId='TableText']/w:rPr/";
    EXPECT_EQ(docx.Value(style + "w:rFonts", "w:ascii", "word/styles.xml"), "Arial");
    EXPECT_EQ(docx.Value(style + "w:rFonts", "w:hAnsi", "word/styles.xml"), "Arial");
    EXPECT_EQ(docx.Value(style + "w:sz", "w:val", "word/styles.xml"), "20");
}

TEST_F(OfficeDocumentTest, TheRowsAreCentred)
{
    EXPECT_EQ(Printed(kStands).Value("//w:tblPr/w:jc"), "center");
}

TEST_F(OfficeDocumentTest, TheSectionStartsOnANewPage)
{
    EXPECT_EQ(Printed(kStands).Value("//w:sectPr/w:type"), "nextPage");
}

TEST_F(OfficeDocumentTest, TheMarginsAreMirrored)
{
    EXPECT_EQ(Printed(kStands).Find("word/settings.xml", "//w:mirrorMargins").size(), 1U);
}

TEST_F(OfficeDocumentTest, TheMarginsAreNotMirroredUnasked)
{
    const auto document = application->AddDocument();
    document->SetMirrored(false);
    document->AddTable(1, 1);
    application->SetVisible(true);
    EXPECT_EQ(Written().Find("word/settings.xml", "//w:mirrorMargins").size(), 0U);
}

TEST_F(OfficeDocumentTest, ThePageStandsUpright)
{
    const Docx docx = Printed(kStands, false);
    EXPECT_EQ(docx.Value("//w:pgSz", "w:orient"), "(none)");
    EXPECT_EQ(docx.Value("//w:pgSz", "w:w"), "11906");
    EXPECT_EQ(docx.Value("//w:pgSz", "w:h"), "16838");
}

TEST_F(OfficeDocumentTest, TheFlagOfWideTablesLaysThePageOnItsSide)
{
    const Docx docx = Printed(kStands, true);
    EXPECT_EQ(docx.Value("//w:pgSz", "w:orient"), "landscape");
    EXPECT_EQ(docx.Value("//w:pgSz", "w:w"), "16838");
    EXPECT_EQ(docx.Value("//w:pgSz", "w:h"), "11906");
}

TEST_F(OfficeDocumentTest, APlainPrintHasNoHeadingRowsAndNoFooter)
{
    const Docx docx = Printed(kStands);
    EXPECT_EQ(docx.Count("//w:tblHeader"), 0U);
    EXPECT_EQ(docx.Count("//w:footerReference"), 0U);
    EXPECT_FALSE(docx.HasPart("word/footer1.xml"));
}

TEST_F(OfficeDocumentTest, TheTwoHeadRowsOfAListRepeatOnEveryPage)
{
    const Docx docx = PrintedList(kGrid);
    EXPECT_EQ(docx.Count("//w:tr[1]/w:trPr/w:tblHeader"), 1U);
    EXPECT_EQ(docx.Count("//w:tr[2]/w:trPr/w:tblHeader"), 1U);
    EXPECT_EQ(docx.Count("//w:tblHeader"), 2U);
}

TEST_F(OfficeDocumentTest, AListHasItsPageNumberOnTheRightOfTheFooter)
{
    const Docx docx = PrintedList(kGrid);
    const std::string id = docx.Value("//w:footerReference[@w:type='default']", "r:id");
    EXPECT_EQ(docx.Value("//Relationship[@Id='" + id + "']", "Target", "word/_rels/document.xml.rels"), "footer1.xml");
    EXPECT_EQ(docx.Value("//w:p/w:pPr/w:jc", "w:val", "word/footer1.xml"), "right");
    EXPECT_EQ(docx.Value("//w:fldSimple", "w:instr", "word/footer1.xml"), " PAGE ");
}

TEST_F(OfficeDocumentTest, ThePageNumberStandsOnTheFirstPageToo)
{
    EXPECT_EQ(PrintedList(kGrid).Count("//w:titlePg"), 0U);
}

TEST_F(OfficeDocumentTest, ThePageNumberCanBeLeftOffTheFirstPage)
{
    Print(kGrid)->AddFooterPageNumber(os::kWordPageNumberRight, false);
    RunPosted();
    const Docx docx = Written();
    EXPECT_EQ(docx.Count("//w:titlePg"), 1U);
    EXPECT_EQ(docx.Count("//w:footerReference[@w:type='first']"), 0U);
}

TEST_F(OfficeDocumentTest, AHeadingRowCanBeTakenBack)
{
    const auto document = Print(kGrid);
    Finish(*document);
    document->SetHeadingRow(2, false);
    RunPosted();
    EXPECT_EQ(Written().Count("//w:tblHeader"), 1U);
}

TEST_F(OfficeDocumentTest, AListWithoutRowsHasTitleAndCaptions)
{
    const Docx docx = PrintedList("Holzarten\t\r\nHA\tName\r\n");
    EXPECT_EQ(docx.Rows(), (std::vector<Texts>{{"Holzarten", ""}, {"HA", "Name"}}));
    EXPECT_EQ(docx.Count("//w:tblHeader"), 2U);
}

TEST_F(OfficeDocumentTest, AHeadLineAloneIsATableOfOneRow)
{
    const Docx docx = PrintedList("WO1\tWO2\r\n");
    EXPECT_EQ(docx.Rows(), (std::vector<Texts>{{"WO1", "WO2"}}));
    EXPECT_EQ(docx.Count("//w:tblHeader"), 1U);
}

TEST_F(OfficeDocumentTest, ATableOfNoRowsIsAnEmptyPage)
{
    const Docx docx = PrintedList("");
    EXPECT_EQ(docx.Count("//w:tbl"), 0U);
    EXPECT_EQ(docx.Count("/w:document/w:body/w:p"), 1U);
    EXPECT_EQ(docx.Count("/w:document/w:body/w:sectPr"), 1U);
}

TEST_F(OfficeDocumentTest, CountsBelowZeroMakeNoTable)
{
    const auto document = application->AddDocument();
    document->AddTable(-1, -1);
    document->SelectTable();
    document->PasteText("a\tb\r\n");
    application->SetVisible(true);
    EXPECT_EQ(Written().Count("//w:tbl"), 0U);
}

TEST_F(OfficeDocumentTest, TheTableFillsThePageBetweenTheMargins)
{
    const Docx docx = Printed(kStands);
    EXPECT_EQ(SumOf(ColumnWidthsOf(docx)), TextWidthOf(docx));
    EXPECT_EQ(docx.Value("//w:tblW", "w:w"), std::to_string(TextWidthOf(docx)));
}

TEST_F(OfficeDocumentTest, ColumnsGetWhatTheirTextsNeed)
{
    const std::vector<std::int32_t> widths =
        ColumnWidthsOf(Printed("Nr\tBemerkung\r\n1\tAbfuhr bis Ende März, danach sind die Wege zu schonen\r\n"));
    ASSERT_EQ(widths.size(), 2U);
    EXPECT_GT(widths[1], 4 * widths[0]);
}

TEST_F(OfficeDocumentTest, ATitleDoesNotWidenItsColumn)
{
    const std::vector<std::int32_t> widths = ColumnWidthsOf(
        Printed("Preise der Sorten im Amt, nach Jahr und Monat sortiert\t\r\nNr\tText\r\n1\tKiefern-Stammholz\r\n"));
    ASSERT_EQ(widths.size(), 2U);
    EXPECT_GT(widths[1], widths[0]);
}

TEST_F(OfficeDocumentTest, ATableWiderThanThePageIsSqueezedOntoIt)
{
    const Docx docx = Printed(WideText(), true);
    const std::vector<std::int32_t> widths = ColumnWidthsOf(docx);
    ASSERT_EQ(widths.size(), 40U);
    EXPECT_EQ(SumOf(widths), TextWidthOf(docx));
    EXPECT_GT(*std::ranges::min_element(widths), 2 * std::stoi(docx.Value("//w:tblCellMar/w:left", "w:w")) + 200);
}

TEST_F(OfficeDocumentTest, EveryCellHasTheWidthOfItsColumn)
{
    const Docx docx = Printed(kStands);
    const std::vector<std::int32_t> widths = ColumnWidthsOf(docx);
    for (std::size_t column = 0; column < widths.size(); ++column)
        EXPECT_EQ(docx.Count("//w:tc[" + std::to_string(column + 1) + "]/w:tcPr/w:tcW[@w:w='" +
                             std::to_string(widths[column]) + "']"),
                  4U);
}

TEST_F(OfficeDocumentTest, AFormatOfTheWholeTableReachesRowsWithTheirOwn)
{
    const auto document = application->AddDocument();
    document->AddTable(2, 1);
    document->SelectRow(1);
    document->SetBold(true);
    document->SetFont("Courier", 8);
    document->SelectTable();
    document->PasteText("a\r\nb\r\n");
    document->SetFont("Arial", 10);
    application->SetVisible(true);
    const Docx docx = Written();
    EXPECT_EQ(docx.Count("//w:tr//w:rFonts"), 0U);
    EXPECT_EQ(docx.Count("//w:tr[1]/w:tc/w:p/w:r/w:rPr/w:b"), 1U);
}

TEST_F(OfficeDocumentTest, ARowCanHaveAFontOfItsOwn)
{
    const auto document = application->AddDocument();
    document->AddTable(2, 1);
    document->SelectTable();
    document->PasteText("a\r\nb\r\n");
    document->SetFont("Arial", 10);
    document->SelectRow(2);
    document->SetFont("Times \"New\"", 14);
    application->SetVisible(true);
    const Docx docx = Written();
    EXPECT_EQ(docx.Value("//w:tr[2]//w:r/w:rPr/w:rFonts", "w:ascii"), "Times \"New\"");
    EXPECT_EQ(docx.Value("//w:tr[2]//w:r/w:rPr/w:sz"), "28");
    EXPECT_EQ(docx.Count("//w:tr[1]//w:rFonts"), 0U);
}

TEST_F(OfficeDocumentTest, NothingSelectedNothingDone)
{
    const auto document = application->AddDocument();
    document->AddTable(1, 1);
    document->SelectRow(2);
    document->SetBold(true);
    document->SetShading(0xFF0000);
    document->PasteText("lost\r\n");
    document->SelectTable();
    document->MoveToStart();
    document->SetFont("Arial", 10);
    application->SetVisible(true);
    const Docx docx = Written();
    EXPECT_EQ(docx.Rows(), (std::vector<Texts>{{""}}));
    EXPECT_EQ(docx.Count("//w:b") + docx.Count("//w:shd"), 0U);
    EXPECT_EQ(docx.Find("word/styles.xml", "//w:rFonts").size(), 0U);
}

}  // namespace kvx::adapters::office
