#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

// The word processor, as the print of a table drives it step by step. Numbers without a meaning of their own here
// (flags, settings) are handed on as given: a document records them, and does with them what it can.
namespace kvx::os {

constexpr std::int32_t kWordWindowMinimized = 2;
constexpr std::int32_t kWordSectionNewPage = 2;
constexpr std::int32_t kWordRowsCentered = 1;
constexpr std::int32_t kWordPageNumberRight = 2;

/// A document with one table in it.
class WordDocument {
public:
    virtual ~WordDocument() = default;

    // Page set-up.
    virtual void SetMirrored(bool mirrored) = 0;          ///< as given
    virtual void SetSectionStart(std::int32_t start) = 0; ///< as given, kWordSectionNewPage
    virtual void SetWindowFlag(bool flag) = 0;            ///< as given; true for wide tables

    // The table and what is selected of it. Rows count from 1.
    virtual void AddTable(std::int32_t rows, std::int32_t columns) = 0;
    virtual void SelectTable() = 0;
    virtual void SelectRow(std::int32_t row) = 0; ///< a row behind the end selects nothing
    /// Fills the selected cells. @param text  rows end with CR LF, cells are parted by tabs
    virtual void PasteText(std::string_view text) = 0;
    virtual void SetBold(bool bold) = 0;
    virtual void SetShading(std::uint32_t rgb) = 0; ///< 0xRRGGBB behind the selection
    virtual void SetFont(std::string_view name, std::int32_t points) = 0;
    virtual void SetRowSetting(std::int32_t setting) = 0; ///< of the whole table, as given: kWordRowsCentered
    virtual void MoveToStart() = 0;                       ///< nothing is selected any more

    // What turns it into a list of several pages.
    virtual void SetHeadingRow(std::int32_t row, bool heading) = 0; ///< repeated on every page
    /// A page number in the footer. @param alignment  as given, kWordPageNumberRight
    virtual void AddFooterPageNumber(std::int32_t alignment, bool onFirstPage) = 0;
};

/// The running word processor; reused by the next print.
class WordApplication {
public:
    virtual ~WordApplication() = default;
    virtual std::string_view TypeName() const { return "Application"; }
    virtual void SetWindowState(std::int32_t state) = 0; ///< as given, kWordWindowMinimized
    virtual std::shared_ptr<WordDocument> AddDocument() = 0;
    /// True leaves the documents open for the user.
    virtual void SetVisible(bool visible) = 0;
};

using WordProcessorFactory = std::function<std::shared_ptr<WordApplication>()>;
/// Says how a word processor is started; an empty factory takes it away.
void RegisterWordProcessor(WordProcessorFactory factory);

/// Starts one. @return empty when there is none. @throws basic::Error 429: it cannot be started
std::shared_ptr<WordApplication> CreateWordProcessor();

} // namespace kvx::os
