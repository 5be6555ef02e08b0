#include "adapters/office/Docx.h"

#include "adapters/office/ColumnWidths.h"
#include "adapters/office/Xml.h"

#include <array>
#include <cstdio>

namespace kvx::adapters::office {

namespace {

// An A4 page.
constexpr std::int32_t kPageShortTwips = 11906;
constexpr std::int32_t kPageLongTwips = 16838;
constexpr std::int32_t kPageMarginTwips = 1134;
constexpr std::int32_t kFooterTwips = 567;

constexpr std::string_view kXmlHead = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
                                      "\n";
constexpr std::string_view kWordNamespaces =
    R"( xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main")"
    R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")";

template <std::size_t N>
std::string_view NameOf(std::int32_t value, const std::array<std::string_view, N>& names)
{
    const auto index = static_cast<std::size_t>(value);
    return value >= 0 && index < N ? names[index] : std::string_view{};
}

constexpr std::array<std::string_view, 5> kSectionStarts = {"continuous", "nextColumn", "nextPage", "evenPage",
                                                            "oddPage"};
constexpr std::array<std::string_view, 3> kAlignments = {"left", "center", "right"};

std::string Element(std::string_view name, std::string_view value)
{
    return value.empty() ? "" : "<w:" + std::string(name) + " w:val=\"" + std::string(value) + "\"/>";
}

std::string HexColor(std::uint32_t rgb)
{
    char text[7];
    std::snprintf(text, sizeof text, "%06X", static_cast<unsigned>(rgb & 0xFFFFFF));
    return text;
}

// What the letters of a format have; only that in which it differs from the common one.
std::string LetterProperties(const CellFormat& format, const CellFormat& common)
{
    std::string xml;
    if (format.fontName != common.fontName && !format.fontName.empty()) {
        std::string name;
        AppendEscaped(name, format.fontName);
        xml += "<w:rFonts w:ascii=\"" + name + "\" w:hAnsi=\"" + name + "\" w:cs=\"" + name + "\"/>";
    }
    if (format.bold != common.bold) xml += format.bold ? "<w:b/>" : "<w:b w:val=\"0\"/>";
    if (format.fontPoints != common.fontPoints && format.fontPoints > 0) {
        const std::string halfPoints = std::to_string(format.fontPoints * 2);
        xml += Element("sz", halfPoints) + Element("szCs", halfPoints);
    }
    return xml.empty() ? "" : "<w:rPr>" + xml + "</w:rPr>";
}

std::int32_t PageWidth(const PrintedTable& table)
{
    return table.landscape ? kPageLongTwips : kPageShortTwips;
}

/// word/document.xml: the table row by row, so that a list of any length needs no more memory than its text.
class DocumentPart final : public ZipPart {
public:
    explicit DocumentPart(const PrintedTable& table)
        : ZipPart("word/document.xml"), table_(table),
          layout_(LayOutColumns(table, PageWidth(table) - 2 * kPageMarginTwips))
    {
    }
    void Rewind() override { nextRow_ = 0; }
    bool Next(std::string& content) override
    {
        const bool hasTable = table_.columns > 0 && table_.Rows() > 0;
        const std::int32_t lastRow = hasTable ? table_.Rows() : 0;
        if (nextRow_ > lastRow + 1) return false;
        if (nextRow_ == 0) {
            content += kXmlHead;
            content.append("<w:document").append(kWordNamespaces).append("><w:body>");
            if (hasTable) AppendTableStart(content);
        } else if (nextRow_ <= lastRow) {
            AppendRow(content, nextRow_);
        } else {
            if (hasTable) content += "</w:tbl>";
            AppendEnd(content);
        }
        ++nextRow_;
        return true;
    }

private:
    void AppendTableStart(std::string& xml) const
    {
        const std::string margin = std::to_string(layout_.cellMargin);
        std::int32_t width = 0;
        for (const std::int32_t columnWidth : layout_.widths)
            width += columnWidth;
        xml += "<w:tbl><w:tblPr><w:tblW w:w=\"" + std::to_string(width) + "\" w:type=\"dxa\"/>";
        xml += Element("jc", NameOf(table_.rowSetting, kAlignments));
        xml += R"(<w:tblLayout w:type="fixed"/><w:tblCellMar><w:left w:w=")" + margin + R"(" w:type="dxa"/>)" +
               R"(<w:right w:w=")" + margin + R"(" w:type="dxa"/></w:tblCellMar></w:tblPr><w:tblGrid>)";
        for (const std::int32_t columnWidth : layout_.widths)
            xml += "<w:gridCol w:w=\"" + std::to_string(columnWidth) + "\"/>";
        xml += "</w:tblGrid>";
    }

    void AppendRow(std::string& xml, std::int32_t row) const
    {
        const CellFormat& format = table_.FormatOf(row);
        const std::string letters = LetterProperties(format, table_.format);
        xml += "<w:tr>";
        if (table_.headingRows.contains(row)) xml += "<w:trPr><w:tblHeader/></w:trPr>";
        std::int32_t done = 0;
        ForEachCell(table_.lines[static_cast<std::size_t>(row) - 1], table_.columns,
                    [&](std::int32_t column, std::string_view text) {
                        AppendCell(xml, column, format, letters, text);
                        done = column + 1;
                    });
        for (; done < table_.columns; ++done)
            AppendCell(xml, done, format, letters, {});
        xml += "</w:tr>";
    }

    void AppendCell(std::string& xml, std::int32_t column, const CellFormat& format, const std::string& letters,
                    std::string_view text) const
    {
        xml += "<w:tc><w:tcPr><w:tcW w:w=\"";
        xml += std::to_string(layout_.widths[static_cast<std::size_t>(column)]);
        xml += "\" w:type=\"dxa\"/>";
        if (format.shading)
            xml += R"(<w:shd w:val="clear" w:color="auto" w:fill=")" + HexColor(*format.shading) + "\"/>";
        xml += "</w:tcPr><w:p><w:pPr><w:pStyle w:val=\"TableText\"/>";
        xml += letters;  // of the paragraph's end, which gives an empty cell its height
        xml += "</w:pPr>";
        if (!text.empty()) {
            xml += "<w:r>";
            xml += letters;
            AppendText(xml, text);
            xml += "</w:r>";
        }
        xml += "</w:p></w:tc>";
    }

    // A line break or a tab within a cell stays one.
    static void AppendText(std::string& xml, std::string_view text)
    {
        while (!text.empty()) {
            const std::size_t special = text.find_first_of("\r\t");
            if (special != 0) {
                xml += "<w:t xml:space=\"preserve\">";
                AppendEscaped(xml, text.substr(0, special));
                xml += "</w:t>";
            }
            if (special == std::string_view::npos) return;
            xml += text[special] == '\t' ? "<w:tab/>" : "<w:br/>";
            text.remove_prefix(special + 1);
        }
    }

    void AppendEnd(std::string& xml) const
    {
        // A document cannot end with a table. The paragraph behind it is so low that it makes no page of its own.
        xml += R"(<w:p><w:pPr><w:spacing w:before="0" w:after="0" w:line="20" w:lineRule="exact"/></w:pPr></w:p>)"
               "<w:sectPr>";
        if (table_.pageNumber) xml += R"(<w:footerReference w:type="default" r:id="rIdFooter"/>)";
        xml += Element("type", NameOf(table_.sectionStart, kSectionStarts));
        const std::string width = std::to_string(PageWidth(table_));
        const std::string height = std::to_string(kPageShortTwips + kPageLongTwips - PageWidth(table_));
        const std::string margin = std::to_string(kPageMarginTwips);
        xml += "<w:pgSz w:w=\"" + width + "\" w:h=\"" + height + "\"";
        if (table_.landscape) xml += " w:orient=\"landscape\"";
        xml += "/><w:pgMar w:top=\"" + margin + "\" w:right=\"" + margin + "\" w:bottom=\"" + margin + "\" w:left=\"" +
               margin + "\" w:header=\"" + std::to_string(kFooterTwips) + "\" w:footer=\"" +
               std::to_string(kFooterTwips) + "\" w:gutter=\"0\"/>";
        // The first page has a footer of its own then, and that one stays empty.
        if (table_.pageNumber && !table_.pageNumber->onFirstPage) xml += "<w:titlePg/>";
        xml += "</w:sectPr></w:body></w:document>";
    }

    const PrintedTable& table_;
    ColumnLayout layout_;
    std::int32_t nextRow_ = 0;  // 0 = what stands before the rows; one beyond the last = what stands behind
};

std::string ContentTypes(const PrintedTable& table)
{
    constexpr std::string_view kWordType = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
    std::string xml(kXmlHead);
    xml += R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
           R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
           R"(<Default Extension="xml" ContentType="application/xml"/>)";
    const auto add = [&](std::string_view part, std::string_view type) {
        xml.append("<Override PartName=\"/word/").append(part).append("\" ContentType=\"");
        xml.append(kWordType).append(type).append("+xml\"/>");
    };
    add("document.xml", "document.main");
    add("styles.xml", "styles");
    add("settings.xml", "settings");
    if (table.pageNumber) add("footer1.xml", "footer");
    return xml + "</Types>";
}

std::string Relationships(std::initializer_list<std::array<std::string_view, 3>> links)
{
    std::string xml(kXmlHead);
    xml += R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)";
    for (const auto& [id, type, target] : links) {
        xml.append("<Relationship Id=\"").append(id);
        xml.append("\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/").append(type);
        xml.append("\" Target=\"").append(target).append("\"/>");
    }
    return xml + "</Relationships>";
}

std::string DocumentLinks(const PrintedTable& table)
{
    if (!table.pageNumber)
        return Relationships({{"rIdStyles", "styles", "styles.xml"}, {"rIdSettings", "settings", "settings.xml"}});
    return Relationships({{"rIdStyles", "styles", "styles.xml"},
                          {"rIdSettings", "settings", "settings.xml"},
                          {"rIdFooter", "footer", "footer1.xml"}});
}

std::string Styles(const PrintedTable& table)
{
    std::string xml(kXmlHead);
    xml.append("<w:styles").append(kWordNamespaces).append(">");
    xml += R"(<w:style w:type="paragraph" w:default="1" w:styleId="Normal"><w:name w:val="Normal"/></w:style>)"
           R"(<w:style w:type="paragraph" w:customStyle="1" w:styleId="TableText"><w:name w:val="Table Text"/>)"
           R"(<w:basedOn w:val="Normal"/>)";
    return xml + LetterProperties(table.format, CellFormat{}) + "</w:style></w:styles>";
}

std::string Settings(const PrintedTable& table)
{
    std::string xml(kXmlHead);
    xml.append("<w:settings").append(kWordNamespaces).append(">");
    if (table.mirrored) xml += "<w:mirrorMargins/>";
    // Without this a word processor takes the file for one of an early version and limits what it offers.
    xml += R"(<w:compat><w:compatSetting w:name="compatibilityMode" w:uri="http://schemas.microsoft.com/office/word")"
           R"( w:val="15"/></w:compat>)";
    return xml + "</w:settings>";
}

std::string Footer(const PageNumber& pageNumber)
{
    std::string xml(kXmlHead);
    xml.append("<w:ftr").append(kWordNamespaces).append("><w:p><w:pPr><w:pStyle w:val=\"TableText\"/>");
    xml += Element("jc", NameOf(pageNumber.alignment, kAlignments));
    return xml + R"(</w:pPr><w:fldSimple w:instr=" PAGE "><w:r><w:t>1</w:t></w:r></w:fldSimple></w:p></w:ftr>)";
}

}  // namespace

std::vector<std::unique_ptr<ZipPart>> DocxParts(const PrintedTable& table)
{
    std::vector<std::unique_ptr<ZipPart>> parts;
    parts.push_back(TextPart("[Content_Types].xml", ContentTypes(table)));
    parts.push_back(TextPart("_rels/.rels", Relationships({{"rIdDocument", "officeDocument", "word/document.xml"}})));
    parts.push_back(std::make_unique<DocumentPart>(table));
    parts.push_back(TextPart("word/_rels/document.xml.rels", DocumentLinks(table)));
    parts.push_back(TextPart("word/styles.xml", Styles(table)));
    parts.push_back(TextPart("word/settings.xml", Settings(table)));
    if (table.pageNumber) parts.push_back(TextPart("word/footer1.xml", Footer(*table.pageNumber)));
    return parts;
}

}  // namespace kvx::adapters::office
